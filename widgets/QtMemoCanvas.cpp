#include "widgets/QtMemoCanvas.h"

#include <QFontMetrics>
#include <QTextLayout>

#include <algorithm>
#include <cmath>
#include <cstring>

#include "widgets/MemoWidget.h"

namespace orl {

namespace {

QString ToQString(std::u16string_view s) { return QString::fromUtf16(s.data(), qsizetype(s.size())); }

TRgb FromQColor(const QColor& c) { return {uint8_t(c.red()), uint8_t(c.green()), uint8_t(c.blue())}; }

TSystemPalette FromQPalette(const QPalette& p) {
  TSystemPalette palette = TSystemPalette::Default();
  using R = TPaletteRole;
  const std::pair<R, QPalette::ColorRole> roles[] = {
      {R::Window, QPalette::Window},       {R::WindowText, QPalette::WindowText},
      {R::Base, QPalette::Base},           {R::Text, QPalette::Text},
      {R::Button, QPalette::Button},       {R::ButtonText, QPalette::ButtonText},
      {R::Highlight, QPalette::Highlight}, {R::HighlightedText, QPalette::HighlightedText},
      {R::ToolTipBase, QPalette::ToolTipBase}, {R::ToolTipText, QPalette::ToolTipText},
      {R::Light, QPalette::Light},         {R::Mid, QPalette::Mid},
      {R::Dark, QPalette::Dark},           {R::Shadow, QPalette::Shadow},
      {R::PlaceholderText, QPalette::PlaceholderText}, {R::Link, QPalette::Link}};
  for (const auto& [role, qtRole] : roles) palette[role] = FromQColor(p.color(qtRole));
  return palette;
}

} // namespace

TQtMemoCanvas::TQtMemoCanvas(QImage& image, const QPalette& palette)
    : FImage(image), FPainter(&image), FRatio(image.devicePixelRatio()), FPalette(FromQPalette(palette)) {}

void TQtMemoCanvas::SetFont(const TMemoFont& font) {
  FFont = TOrlMemoWidget::ToQFont(font);
  FStyled = {};
  FMetrics = {};
}

const QFont& TQtMemoCanvas::StyledFont(TFontStyles style) {
  std::optional<QFont>& slot = FStyled[style & 15];
  if (!slot) {
    QFont f = FFont;
    f.setBold(style & fsBold);
    f.setItalic(style & fsItalic);
    f.setUnderline(style & fsUnderline);
    f.setStrikeOut(style & fsStrikeOut);
    slot = f;
    FMetrics[style & 15].emplace(f);
  }
  return *slot;
}

const QFontMetrics& TQtMemoCanvas::Metrics(TFontStyles style) {
  StyledFont(style);
  return *FMetrics[style & 15];
}

void TQtMemoCanvas::BeginRow(int, const TRect& row) {
  FPainter.setClipRect(QRect(row.Left, row.Top, row.Width(), row.Height()));
}

void TQtMemoCanvas::FillRect(const TRect& r, TRgb color) {
  if (r.Width() <= 0 || r.Height() <= 0) return;  // Qt would fill a turned-over rectangle
  FPainter.fillRect(QRect(r.Left, r.Top, r.Width(), r.Height()), ToQColor(color));
}

int TQtMemoCanvas::TextOut(const TTextOut& t) { return t.bComplex ? ComplexText(t) : SimpleText(t); }

int TQtMemoCanvas::SimpleText(const TTextOut& t) {
  if (t.bOpaque) FillRect({t.X, t.Row.Top, t.X + t.Width, t.Row.Bottom}, t.Bg);
  const QFont& font = StyledFont(t.Style);
  if (FPainter.font() != font) FPainter.setFont(font);
  FPainter.setPen(ToQColor(t.Fg));
  const QFontMetrics& metrics = Metrics(t.Style);
  const int baseline = t.Top + metrics.ascent();
  int x = t.X;
  size_t from = 0;
  // Pieces between tabs go out whole; a tab moves the pen to the next stop of the document's grid.
  while (from <= t.Text.size()) {
    const size_t tab = std::min(t.Text.find(u'\t', from), t.Text.size());
    if (tab > from) {
      const QString piece = ToQString(t.Text.substr(from, tab - from));
      FPainter.drawText(QPoint(x, baseline), piece);
      x += metrics.horizontalAdvance(piece);
    }
    if (tab == t.Text.size()) break;
    if (t.TabWidth > 0) x = t.TabOrigin + ((x - t.TabOrigin) / t.TabWidth + 1) * t.TabWidth;
    from = tab + 1;
  }
  return t.Width;
}

int TQtMemoCanvas::ComplexText(const TTextOut& t) {
  QTextLayout layout(ToQString(t.Text), StyledFont(t.Style));
  QTextOption option;
  option.setWrapMode(QTextOption::NoWrap);
  if (t.bRightToLeft) option.setTextDirection(Qt::RightToLeft);
  if (t.TabWidth > 0) {
    // Stops relative to the piece's start, so that they fall on the document's grid.
    const int offset = ((t.X - t.TabOrigin) % t.TabWidth + t.TabWidth) % t.TabWidth;
    QList<QTextOption::Tab> tabs;
    for (size_t k = 1; k <= t.Text.size() + 1; ++k) tabs.append(QTextOption::Tab(qreal(k * t.TabWidth - offset), QTextOption::LeftTab));
    option.setTabs(tabs);
  }
  layout.setTextOption(option);
  layout.beginLayout();
  QTextLine line = layout.createLine();
  if (!line.isValid()) {
    layout.endLayout();
    return 0;
  }
  line.setLineWidth(1e9);
  layout.endLayout();
  const int width = int(std::ceil(line.naturalTextWidth()));
  if (t.bOpaque) FillRect({t.X, t.Row.Top, t.X + width, t.Row.Bottom}, t.Bg);
  QList<QTextLayout::FormatRange> formats;
  if (t.SelEnd > t.SelStart) {
    QTextLayout::FormatRange selection;
    selection.start = t.SelStart;
    selection.length = t.SelEnd - t.SelStart;
    selection.format.setForeground(ToQColor(t.SelFg));
    selection.format.setBackground(ToQColor(t.SelBg));
    formats.append(selection);
  }
  FPainter.setPen(ToQColor(t.Fg));
  layout.draw(&FPainter, QPointF(t.X, t.Top), formats);
  return width;
}

void TQtMemoCanvas::Line(TPoint from, TPoint to, TRgb color, int width) {
  FPainter.setPen(QPen(ToQColor(color), width));
  FPainter.drawLine(from.X, from.Y, to.X, to.Y);
}

void TQtMemoCanvas::Hatch(const TRect& r, TRgb color) {
  FPainter.fillRect(QRect(r.Left, r.Top, r.Width(), r.Height()), QBrush(ToQColor(color), Qt::BDiagPattern));
}

void TQtMemoCanvas::ZigZag(int x1, int x2, int y, TRgb color, int width) {
  static constexpr int kWave[] = {0, -1, 0, 1};
  QPolygon points;
  for (int x = x1; x <= x2; ++x) points << QPoint(x, y + kWave[(x - x1) % 4]);
  FPainter.setPen(QPen(ToQColor(color), width));
  FPainter.drawPolyline(points);
}

void TQtMemoCanvas::MarginLine(int x, const TRect& row, TRgb color, int width, TMarginLineType type, int parity,
                               std::span<const TRgb> under) {
  // Pixel by pixel in device pixels: only what still shows a background takes the line.
  const int left = std::max(Device(x), 0), right = std::min(Device(x + width), FImage.width());
  const int top = std::max(Device(row.Top), 0), bottom = std::min(Device(row.Bottom), FImage.height());
  const QRgb line = qRgb(color.R, color.G, color.B);
  for (int y = top; y < bottom; ++y) {
    if (type == mDotted && ((y - top) & 1) != (parity & 1)) continue;
    QRgb* pixels = reinterpret_cast<QRgb*>(FImage.scanLine(y));
    for (int px = left; px < right; ++px) {
      const TRgb now = FromQColor(QColor(pixels[px]));
      if (std::ranges::find(under, now) != under.end()) pixels[px] = line;
    }
  }
}

void TQtMemoCanvas::ScrollRows(const TRect& area, int dy) {
  const int top = std::max(Device(area.Top), 0), bottom = std::min(Device(area.Bottom), FImage.height());
  const int left = std::max(Device(area.Left), 0), right = std::min(Device(area.Right), FImage.width());
  const int shift = Device(std::abs(dy));
  if (right <= left || shift >= bottom - top) return;
  const size_t bytes = size_t(right - left) * 4;
  // Rows move in the direction that never reads a row already overwritten.
  const auto move = [&](int y) { std::memmove(FImage.scanLine(y + (dy < 0 ? 0 : shift)) + left * 4,
                                               FImage.scanLine(y + (dy < 0 ? shift : 0)) + left * 4, bytes); };
  if (dy < 0)
    for (int y = top; y < bottom - shift; ++y) move(y);
  else
    for (int y = bottom - shift - 1; y >= top; --y) move(y);
}

} // namespace orl
