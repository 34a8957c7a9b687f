#include "widgets/MenuImages.h"

#include <QPainter>
#include <QPainterPath>

#include "definition/DefinitionFormat.h"

namespace orl {
namespace {

// Kinds share a colour: loads, variables, members, tags, misc and so on.
QColor KindColour(int index) {
  static const QColor colours[] = {QColor(0x6b, 0x7b, 0x8c), QColor(0x2e, 0x7d, 0x32), QColor(0x15, 0x65, 0xc0),
                                   QColor(0xef, 0x6c, 0x00), QColor(0x6a, 0x1b, 0x9a), QColor(0x00, 0x83, 0x8f),
                                   QColor(0xad, 0x14, 0x57), QColor(0x5d, 0x40, 0x37)};
  return colours[index % 8];
}

QPixmap Badge(const QString& text, const QColor& colour, int size) {
  QPixmap pixmap(size, size);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::Antialiasing);
  QPainterPath path;
  path.addRoundedRect(QRectF(0.5, 0.5, size - 1, size - 1), size / 5.0, size / 5.0);
  painter.fillPath(path, colour);
  QFont font = painter.font();
  font.setPixelSize(int(size * 0.7));
  font.setBold(true);
  painter.setFont(font);
  painter.setPen(Qt::white);
  painter.drawText(QRect(0, 0, size, size), Qt::AlignCenter, text);
  return pixmap;
}

} // namespace

QIcon MenuImage(int index) {
  const auto images = ImageLetters();
  if (index < 0 || size_t(index) >= images.size()) index = 0;
  QIcon icon;
  for (int size : {16, 24, 32})
    icon.addPixmap(Badge(QString(QChar(images[size_t(index)].Letter)), KindColour(index), size));
  return icon;
}

namespace {

// An icon drawn on a unit square scaled to each size.
template <typename TDraw>
QIcon DrawnIcon(TDraw draw) {
  QIcon icon;
  for (int size : {16, 24, 32}) {
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(size / 16.0, size / 16.0);
    painter.setPen(QPen(QColor(0x37, 0x47, 0x4f), 1.2));
    draw(painter);
    icon.addPixmap(pixmap);
  }
  return icon;
}

} // namespace

QIcon GlyphIcon(const QString& glyph) {
  return DrawnIcon([glyph](QPainter& p) {
    QFont font = p.font();
    font.setPixelSize(glyph.size() > 1 ? 7 : 13);
    font.setBold(true);
    p.setFont(font);
    p.drawText(QRectF(0, 0, 16, 16), Qt::AlignCenter, glyph);
  });
}

QIcon CopyIcon() {
  return DrawnIcon([](QPainter& p) {
    p.setBrush(Qt::white);
    p.drawRect(QRectF(2.5, 2.5, 7.5, 9));
    p.drawRect(QRectF(6, 5.5, 7.5, 9));
  });
}

QIcon PasteIcon() {
  return DrawnIcon([](QPainter& p) {
    p.setBrush(QColor(0xd7, 0xb8, 0x8b));
    p.drawRoundedRect(QRectF(2.5, 2.5, 10, 12), 1.5, 1.5);
    p.setBrush(Qt::white);
    p.drawRect(QRectF(5.5, 5.5, 7.5, 8.5));
    p.setBrush(QColor(0x78, 0x90, 0x9c));
    p.drawRect(QRectF(5, 1.5, 5, 2.5));
  });
}

} // namespace orl
