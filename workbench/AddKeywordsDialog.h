#pragma once
// The dialog that collects plain words, or one regular expression, for a
// keyword or tag group.

#include <QDialog>

#include <optional>
#include <string>
#include <vector>

class QLineEdit;
class QListWidget;
class QPushButton;

namespace orl {

class TLanguageTexts;

class TAddForm : public QDialog {
  Q_OBJECT
public:
  TAddForm(const TLanguageTexts& language, QWidget* parent = nullptr);

  /// Shows the dialog; the rows of its list on OK, nothing on Cancel. With
  /// `bRegExKeyword` it takes one row only.
  std::optional<std::vector<std::u16string>> Collect(bool bRegExKeyword);

  QLineEdit* Edit;
  QListWidget* List;
  QPushButton* btnAdd;
  QPushButton* btnDel;
  QPushButton* btnOk;
  QPushButton* btnAbort;
  bool FRegExKeyword = false;

private:
  void AddClick();
  void DelClick();
};

} // namespace orl
