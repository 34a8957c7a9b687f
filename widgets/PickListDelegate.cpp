#include "widgets/PickListDelegate.h"

#include <QComboBox>

namespace orl {

QWidget* TPickListDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                         const QModelIndex& index) const {
  const auto list = FPickLists.find(index.row());
  if (list == FPickLists.end()) return QStyledItemDelegate::createEditor(parent, option, index);
  auto* combo = new QComboBox(parent);
  combo->setEditable(true);
  combo->setInsertPolicy(QComboBox::NoInsert);
  combo->addItems(*list);
  return combo;
}

void TPickListDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
  if (auto* combo = qobject_cast<QComboBox*>(editor)) combo->setEditText(index.data(Qt::EditRole).toString());
  else QStyledItemDelegate::setEditorData(editor, index);
}

void TPickListDelegate::setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const {
  if (auto* combo = qobject_cast<QComboBox*>(editor)) model->setData(index, combo->currentText(), Qt::EditRole);
  else QStyledItemDelegate::setModelData(editor, model, index);
}

} // namespace orl
