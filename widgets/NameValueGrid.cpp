#include "widgets/NameValueGrid.h"

#include <QHeaderView>

#include "widgets/PickListDelegate.h"

namespace orl {

TNameValueGrid::TNameValueGrid(QWidget* parent) : QTableWidget(0, 2, parent), FDelegate(new TPickListDelegate(this)) {
  setItemDelegateForColumn(1, FDelegate);
  verticalHeader()->hide();
  horizontalHeader()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
  horizontalHeader()->setStretchLastSection(true);
  setSelectionMode(QAbstractItemView::SingleSelection);
  setEditTriggers(QAbstractItemView::AllEditTriggers);
  setAlternatingRowColors(true);
  // Rows as high as a line of text, not the style's roomy default.
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  connect(this, &QTableWidget::itemChanged, this, &TNameValueGrid::OnItemChanged);
}

void TNameValueGrid::SetTitles(const QString& nameTitle, const QString& valueTitle) {
  setHorizontalHeaderLabels({nameTitle, valueTitle});
}

void TNameValueGrid::SetRowNames(const QStringList& names) {
  FFilling = true;
  setRowCount(int(names.size()));
  for (int row = 0; row < names.size(); ++row) {
    auto* name = new QTableWidgetItem(names[row]);
    name->setFlags(Qt::ItemIsEnabled);
    setItem(row, 0, name);
    setItem(row, 1, new QTableWidgetItem());
  }
  FFilling = false;
}

void TNameValueGrid::SetPickList(int row, const QStringList& values) { FDelegate->SetPickList(row, values); }

void TNameValueGrid::SetValue(int row, const QString& value) {
  if (QTableWidgetItem* cell = item(row, 1)) {
    FFilling = true;
    cell->setText(value);
    FFilling = false;
  }
}

QString TNameValueGrid::Value(int row) const {
  const QTableWidgetItem* cell = item(row, 1);
  return cell ? cell->text() : QString();
}

void TNameValueGrid::ClearValues() {
  for (int row = 0; row < rowCount(); ++row) SetValue(row, QString());
}

void TNameValueGrid::EditValue(int row, const QString& text) {
  if (QTableWidgetItem* cell = item(row, 1)) cell->setText(text);
}

void TNameValueGrid::OnItemChanged(QTableWidgetItem* item) {
  if (!FFilling && item->column() == 1) emit ValueEdited(item->row(), item->text());
}

} // namespace orl
