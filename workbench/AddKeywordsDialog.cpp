#include "workbench/AddKeywordsDialog.h"

#include <QGridLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

namespace orl {

TAddForm::TAddForm(QWidget* parent) : QDialog(parent) {
  auto* layout = new QGridLayout(this);
  layout->addWidget(Edit = new QLineEdit, 0, 0);
  layout->addWidget(btnAdd = new QPushButton("Add"), 0, 1);
  layout->addWidget(List = new QListWidget, 1, 0, 3, 1);
  layout->addWidget(btnDel = new QPushButton("Delete"), 1, 1);
  layout->addWidget(btnOk = new QPushButton("OK"), 2, 1);
  layout->addWidget(btnAbort = new QPushButton("Cancel"), 3, 1, Qt::AlignTop);
  connect(btnOk, &QPushButton::clicked, this, &QDialog::accept);
  connect(btnAbort, &QPushButton::clicked, this, &QDialog::reject);
}

} // namespace orl
