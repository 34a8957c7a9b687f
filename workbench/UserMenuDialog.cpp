#include "workbench/UserMenuDialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QToolButton>

#include "definition/DefinitionFormat.h"

namespace orl {

TUserMenuForm::TUserMenuForm(QWidget* parent) : QDialog(parent) {
  cboItem = new QComboBox;
  cboItem->setEditable(true);
  BitBtn1 = new QToolButton;
  BitBtn1->setText("...");
  DataMemo = new QPlainTextEdit;
  ComboBoxEx1 = new QComboBox;
  for (const TImageLetter& image : ImageLetters())
    ComboBoxEx1->addItem(QString::fromUtf16(image.Caption.data(), qsizetype(image.Caption.size())));
  cbVariable = new QCheckBox;

  auto* caption = new QHBoxLayout;
  caption->addWidget(cboItem, 1);
  caption->addWidget(BitBtn1);
  auto* form = new QFormLayout(this);
  form->addRow("Caption", caption);
  form->addRow("Insert text", DataMemo);
  form->addRow("Image", ComboBoxEx1);
  form->addRow(QString(), cbVariable);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  form->addRow(buttons);
}

} // namespace orl
