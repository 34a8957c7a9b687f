#pragma once
// Paints a hint row: its type digit, then the one-line field above and the
// multi-line field, paler, below.

#include <QStyledItemDelegate>

namespace orl {

class THintRowDelegate : public QStyledItemDelegate {
  Q_OBJECT
public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

} // namespace orl
