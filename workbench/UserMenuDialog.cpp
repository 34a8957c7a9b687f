#include "workbench/UserMenuDialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QToolButton>

#include <QLabel>
#include <QVBoxLayout>

#include "definition/DefinitionFormat.h"
#include "workbench/HostEnvironment.h"

namespace orl {

namespace {
QString Q(const std::u16string& s) { return QString::fromStdU16String(s); }
} // namespace

TUserMenuForm::TUserMenuForm(const TLanguageTexts& language, QWidget* parent) : QDialog(parent) {
  setWindowTitle(Q(language.GrammarDesk(u"312")));
  cboItem = new QComboBox;
  cboItem->setEditable(true);
  BitBtn1 = new QToolButton;
  BitBtn1->setText("...");
  DataMemo = new QPlainTextEdit;
  ComboBoxEx1 = new QComboBox;
  for (const TImageLetter& image : ImageLetters())
    ComboBoxEx1->addItem(QString::fromUtf16(image.Caption.data(), qsizetype(image.Caption.size())));
  cbVariable = new QCheckBox(Q(language.GrammarDesk(u"316")));

  auto* caption = new QHBoxLayout;
  caption->addWidget(cboItem, 1);
  caption->addWidget(BitBtn1);
  auto* form = new QVBoxLayout(this);
  form->addWidget(new QLabel(Q(language.GrammarDesk(u"309"))));
  form->addLayout(caption);
  form->addWidget(new QLabel(Q(language.GrammarDesk(u"311"))));
  form->addWidget(DataMemo, 1);
  form->addWidget(ComboBoxEx1);
  form->addWidget(cbVariable);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  buttons->button(QDialogButtonBox::Ok)->setText(Q(language.Text(u"Buttons", u"100", u"OK")));
  buttons->button(QDialogButtonBox::Cancel)->setText(Q(language.Text(u"Buttons", u"101", u"Cancel")));
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  form->addWidget(buttons);
}

} // namespace orl
