#include "workbench/UserMenuDialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

#include "definition/DefinitionFormat.h"
#include "widgets/MenuImages.h"
#include "workbench/HintsPage.h"
#include "workbench/HostEnvironment.h"

namespace orl {

namespace {
QString Q(std::u16string_view s) { return QString::fromUtf16(s.data(), qsizetype(s.size())); }
constexpr int kVariableImage = 21;
} // namespace

TUserMenuForm::TUserMenuForm(const TLanguageTexts& language, QWidget* parent) : QDialog(parent) {
  setWindowTitle(Q(language.GrammarDesk(u"312")));
  cboItem = new QComboBox;
  cboItem->setEditable(true);
  cboItem->installEventFilter(this);
  BitBtn1 = new QToolButton;
  BitBtn1->setText("...");
  BitBtn1->setPopupMode(QToolButton::InstantPopup);
  BitBtn1->setMenu(SpecialCaptions());
  DataMemo = new QPlainTextEdit;
  ComboBoxEx1 = new QComboBox;
  const auto images = ImageLetters();
  for (size_t i = 0; i < images.size(); ++i) ComboBoxEx1->addItem(MenuImage(int(i)), Q(images[i].Caption));
  cbVariable = new QCheckBox(Q(language.GrammarDesk(u"316")));
  connect(cbVariable, &QCheckBox::toggled, this, &TUserMenuForm::SetVariableMode);

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
  resize(460, 360);
}

// In variable mode the item names another group: its caption is picked from
// the groups with `@`, and it has no text of its own and the image "var".
void TUserMenuForm::SetVariableMode(bool bOn) {
  cboItem->clear();
  cboItem->setEditable(!bOn);
  if (bOn) {
    for (const std::u16string& group : FVariables) cboItem->addItem(Q(group));
    ComboBoxEx1->setCurrentIndex(kVariableImage);
    DataMemo->clear();
  } else {
    cboItem->setEditText(QString());
  }
  ComboBoxEx1->setEnabled(!bOn);
  DataMemo->setEnabled(!bOn);
  BitBtn1->setEnabled(!bOn);
}

// Captions with a meaning of their own for the host editor's menu.
QMenu* TUserMenuForm::SpecialCaptions() {
  auto* menu = new QMenu(this);
  const char16_t* captions[] = {
      u"\u00BBcolor", u"\u00BBfile", u"\u00BBfont", u"\u00BBimage", u"\u00BBurl", u"",
      u"\u00BBcss_background", u"\u00BBcss_background_values", u"\u00BBcss_border", u"\u00BBcss_border_values",
      u"\u00BBcss_border-left", u"\u00BBcss_border-left_values", u"\u00BBcss_border-right",
      u"\u00BBcss_border-right_values", u"\u00BBcss_border-top", u"\u00BBcss_border-top_values",
      u"\u00BBcss_border-bottom", u"\u00BBcss_border-bottom_values", u"\u00BBcss_outline", u"\u00BBcss_outline_values",
      u"\u00BBcss_font", u"\u00BBcss_font_values", u"\u00BBcss_list-style", u"\u00BBcss_list-style_values"};
  for (const char16_t* caption : captions) {
    if (!*caption) {
      menu->addSeparator();
      continue;
    }
    const QString text = QString::fromUtf16(caption);
    menu->addAction(text, this, [this, text] { cboItem->setEditText(text); });
  }
  return menu;
}

void TUserMenuForm::SetVariable(bool bValue) {
  cbVariable->setChecked(bValue);
  SetVariableMode(bValue);
  if (!bValue) ComboBoxEx1->setCurrentIndex(0);
}

bool TUserMenuForm::Edit(TItemDialogData& item) {
  FVariables = item.Variables;
  setWindowTitle(Q(item.Title));
  cbVariable->setEnabled(item.bVariableAllowed);
  cbVariable->blockSignals(true);
  cbVariable->setChecked(item.bVariable);
  cbVariable->blockSignals(false);
  SetVariableMode(item.bVariable);
  if (item.bVariable) cboItem->setCurrentText(Q(item.Caption));
  else {
    cboItem->setEditText(Q(item.Caption));
    DataMemo->setPlainText(Q(item.Text));
    ComboBoxEx1->setCurrentIndex(item.ImageIndex < 0 ? 0 : item.ImageIndex);
  }
  cboItem->setFocus();
  const bool bOk = exec() == QDialog::Accepted;
  if (bOk) {
    item.Caption = cboItem->currentText().toStdU16String();
    item.Text = DataMemo->toPlainText().toStdU16String();
    item.ImageIndex = ComboBoxEx1->currentIndex();
    item.bVariable = cbVariable->isChecked();
  }
  SetVariable(false);
  return bOk;
}

void TUserMenuForm::keyPressEvent(QKeyEvent* event) {
  if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && (event->modifiers() & Qt::ControlModifier)) {
    accept();
    return;
  }
  QDialog::keyPressEvent(event);
}

// Ctrl+Down in the caption copies it (or its selection) into the insert text.
bool TUserMenuForm::eventFilter(QObject* watched, QEvent* event) {
  if (watched == cboItem && event->type() == QEvent::KeyPress) {
    auto* key = static_cast<QKeyEvent*>(event);
    if (key->key() == Qt::Key_Down && (key->modifiers() & Qt::ControlModifier)) {
      CopyCaptionToText();
      return true;
    }
    if ((key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) && (key->modifiers() & Qt::ControlModifier)) {
      accept();
      return true;
    }
    if (key->matches(QKeySequence::Paste) && cboItem->isEditable()) {
      cboItem->lineEdit()->paste();
      cboItem->setEditText(QString::fromStdU16String(CleanUpSignature(cboItem->currentText().toStdU16String(), false)));
      return true;
    }
  }
  return QDialog::eventFilter(watched, event);
}

void TUserMenuForm::CopyCaptionToText() {
  const QLineEdit* edit = cboItem->lineEdit();
  const QString text = edit && edit->hasSelectedText() ? edit->selectedText() : cboItem->currentText();
  DataMemo->insertPlainText(text);
  DataMemo->setFocus();
}

} // namespace orl
