#pragma once
// The dialog that collects plain words (or one regular expression) for a
// keyword or tag group. Its behaviour comes with the group pages.

#include <QDialog>

class QLineEdit;
class QListWidget;
class QPushButton;

namespace orl {

class TLanguageTexts;

class TAddForm : public QDialog {
  Q_OBJECT
public:
  TAddForm(const TLanguageTexts& language, QWidget* parent = nullptr);

  QLineEdit* Edit;
  QListWidget* List;
  QPushButton* btnAdd;
  QPushButton* btnDel;
  QPushButton* btnOk;
  QPushButton* btnAbort;
  bool FRegExKeyword = false;
};

} // namespace orl
