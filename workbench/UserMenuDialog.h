#pragma once
// The item dialog of the user menu and the completion pages: caption, insert
// text, image, and whether the item stands for another group. Its behaviour
// comes with the pages that open it.

#include <QDialog>

class QCheckBox;
class QComboBox;
class QPlainTextEdit;
class QToolButton;

namespace orl {

class TLanguageTexts;

class TUserMenuForm : public QDialog {
  Q_OBJECT
public:
  TUserMenuForm(const TLanguageTexts& language, QWidget* parent = nullptr);

  QComboBox* cboItem;
  QPlainTextEdit* DataMemo;
  QComboBox* ComboBoxEx1;
  QCheckBox* cbVariable;
  QToolButton* BitBtn1;
};

} // namespace orl
