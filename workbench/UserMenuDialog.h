#pragma once
// The item dialog of the user menu and the completion pages: caption, insert
// text, image, and whether the item stands for another group.

#include <QDialog>

#include "workbench/WorkbenchUi.h"

class QCheckBox;
class QComboBox;
class QPlainTextEdit;
class QToolButton;
class QMenu;

namespace orl {

class TLanguageTexts;

class TUserMenuForm : public QDialog {
  Q_OBJECT
public:
  TUserMenuForm(const TLanguageTexts& language, QWidget* parent = nullptr);

  /// Shows the dialog on `item` and writes the result back; false on Cancel.
  bool Edit(TItemDialogData& item);

  QComboBox* cboItem;
  QPlainTextEdit* DataMemo;
  QComboBox* ComboBoxEx1;
  QCheckBox* cbVariable;
  QToolButton* BitBtn1;

protected:
  void keyPressEvent(QKeyEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

  /// Sets variable mode; leaving it selects image 0.
  void SetVariable(bool bValue);

private:
  QMenu* SpecialCaptions();
  void SetVariableMode(bool bOn);
  void CopyCaptionToText();

  std::vector<std::u16string> FVariables;
};

} // namespace orl
