#include "widgets/HintRowDelegate.h"

#include <QApplication>
#include <QPainter>

#include "definition/DefinitionItems.h"

namespace orl {
namespace {

// p percent of colour a into colour b.
QColor Blend(const QColor& a, const QColor& b, int percent) {
  auto mix = [percent](int x, int y) { return y + (x - y) * percent / 100; };
  return QColor(mix(a.red(), b.red()), mix(a.green(), b.green()), mix(a.blue(), b.blue()));
}

QString OneLine(const std::u16string& field) { return QString::fromStdU16String(field).replace('\n', " \u21B5 "); }

} // namespace

void THintRowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
  QStyleOptionViewItem base = option;
  initStyleOption(&base, index);
  base.text.clear();
  QApplication::style()->drawControl(QStyle::CE_ItemViewItem, &base, painter, base.widget);

  const THint hint = SplitHint(index.data().toString().toStdU16String());
  // Type 1 keeps the identifier in its multi-line field; the upper line always shows the one-line field.
  const std::u16string& upper = hint.Type == 1 ? hint.Description : hint.Identifier;
  const std::u16string& lower = hint.Type == 1 ? hint.Identifier : hint.Description;
  const bool bSelected = option.state & QStyle::State_Selected;
  const QColor text = option.palette.color(bSelected ? QPalette::HighlightedText : QPalette::Text);
  const QColor background = option.palette.color(bSelected ? QPalette::Highlight : QPalette::Base);
  const QRect r = option.rect.adjusted(3, 1, -3, -1);
  const int lineHeight = option.fontMetrics.height();
  const int fieldLeft = r.left() + option.fontMetrics.horizontalAdvance(QStringLiteral("0000"));

  painter->save();
  painter->setPen(text);
  painter->drawText(QRect(r.left(), r.top() + lineHeight / 2, fieldLeft - r.left(), lineHeight), Qt::AlignLeft,
                    QString::number(hint.Type));
  painter->drawText(QRect(fieldLeft, r.top() + lineHeight / 2, r.right() - fieldLeft, lineHeight),
                    Qt::AlignLeft | Qt::TextSingleLine, option.fontMetrics.elidedText(OneLine(upper), Qt::ElideRight, r.right() - fieldLeft));
  painter->setPen(Blend(text, background, 30));
  painter->drawText(QRect(fieldLeft, r.top() + lineHeight * 3 / 2, r.right() - fieldLeft, lineHeight),
                    Qt::AlignLeft | Qt::TextSingleLine, option.fontMetrics.elidedText(OneLine(lower), Qt::ElideRight, r.right() - fieldLeft));
  painter->setPen(option.palette.color(QPalette::Mid));
  painter->drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
  painter->restore();
}

QSize THintRowDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const {
  return QSize(option.rect.width(), option.fontMetrics.height() * 3);
}

} // namespace orl
