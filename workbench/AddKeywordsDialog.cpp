#include "workbench/AddKeywordsDialog.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

#include "workbench/HostEnvironment.h"

namespace orl {

namespace {
QString Q(const std::u16string& s) { return QString::fromStdU16String(s); }
} // namespace

TAddForm::TAddForm(const TLanguageTexts& language, QWidget* parent) : QDialog(parent) {
  setWindowTitle(Q(language.GrammarDesk(u"300")));
  auto* layout = new QGridLayout(this);
  layout->addWidget(new QLabel(Q(language.GrammarDesk(u"310"))), 0, 0, 1, 2);
  layout->addWidget(Edit = new QLineEdit, 1, 0);
  layout->addWidget(btnAdd = new QPushButton(Q(language.GrammarDesk(u"300", u"Add"))), 1, 1);
  layout->addWidget(List = new QListWidget, 2, 0, 3, 1);
  layout->addWidget(btnDel = new QPushButton(Q(language.GrammarDesk(u"302", u"Delete"))), 2, 1);
  layout->addWidget(btnOk = new QPushButton(Q(language.Text(u"Buttons", u"100", u"OK"))), 3, 1);
  layout->addWidget(btnAbort = new QPushButton(Q(language.Text(u"Buttons", u"101", u"Cancel"))), 4, 1, Qt::AlignTop);
  List->setSelectionMode(QAbstractItemView::ExtendedSelection);
  // Enter adds, as the button does, and does nothing while it is disabled:
  // no other button may become the default and take Enter with the focus.
  for (QPushButton* button : {btnDel, btnOk, btnAbort}) button->setAutoDefault(false);
  btnAdd->setDefault(true);
  connect(btnAdd, &QPushButton::clicked, this, &TAddForm::AddClick);
  connect(btnDel, &QPushButton::clicked, this, &TAddForm::DelClick);
  connect(btnOk, &QPushButton::clicked, this, &QDialog::accept);
  connect(btnAbort, &QPushButton::clicked, this, &QDialog::reject);
}

void TAddForm::AddClick() {
  if (Edit->text().isEmpty()) return;
  List->addItem(Edit->text());
  Edit->clear();
  if (FRegExKeyword) btnAdd->setEnabled(false);
}

void TAddForm::DelClick() {
  qDeleteAll(List->selectedItems());
  if (FRegExKeyword && List->count() == 0) btnAdd->setEnabled(true);
}

std::optional<std::vector<std::u16string>> TAddForm::Collect(bool bRegExKeyword) {
  FRegExKeyword = bRegExKeyword;
  Edit->clear();
  List->clear();
  btnAdd->setEnabled(true);
  Edit->setFocus();
  if (exec() != QDialog::Accepted) return std::nullopt;
  std::vector<std::u16string> rows;
  for (int i = 0; i < List->count(); ++i) rows.push_back(List->item(i)->text().toStdU16String());
  return rows;
}

} // namespace orl
