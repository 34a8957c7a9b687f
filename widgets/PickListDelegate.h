#pragma once
// Edits value cells with an editable drop-down where a row has a pick list,
// and with a plain line edit elsewhere.

#include <QMap>
#include <QStringList>
#include <QStyledItemDelegate>

namespace orl {

class TPickListDelegate : public QStyledItemDelegate {
  Q_OBJECT
public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void SetPickList(int row, const QStringList& values) { FPickLists[row] = values; }

  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  void setEditorData(QWidget* editor, const QModelIndex& index) const override;
  void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;

private:
  QMap<int, QStringList> FPickLists;
};

} // namespace orl
