#pragma once
// The memo's canvas over a QImage: the back buffer that keeps its pixels
// between paints. The image is in device pixels; what is drawn on it is in
// the memo's logical pixels, scaled by the image's device pixel ratio.

#include <QFont>
#include <QFontMetrics>
#include <QImage>
#include <QPainter>
#include <QPalette>

#include <array>
#include <optional>

#include "view/MemoCanvas.h"

namespace orl {

class TQtMemoCanvas final : public IMemoCanvas {
public:
  /// Paints on `image` until destroyed; system colours resolve through `palette`.
  TQtMemoCanvas(QImage& image, const QPalette& palette);

  void SetFont(const TMemoFont& font) override;
  void BeginRow(int line, const TRect& row) override;
  void FillRect(const TRect& r, TRgb color) override;
  int TextOut(const TTextOut& t) override;
  void Line(TPoint from, TPoint to, TRgb color, int width) override;
  void Hatch(const TRect& r, TRgb color) override;
  void ZigZag(int x1, int x2, int y, TRgb color, int width) override;
  void MarginLine(int x, const TRect& row, TRgb color, int width, TMarginLineType type, int parity,
                  std::span<const TRgb> under) override;
  void ScrollRows(const TRect& area, int dy) override;
  const TSystemPalette& Palette() const override { return FPalette; }

  static QColor ToQColor(TRgb c) { return QColor(c.R, c.G, c.B); }

private:
  /// The font of a run's style, made once per style and paint.
  const QFont& StyledFont(TFontStyles style);
  const QFontMetrics& Metrics(TFontStyles style);
  int SimpleText(const TTextOut& t);
  int ComplexText(const TTextOut& t);
  /// Device pixels of a logical extent.
  int Device(int logical) const { return int(logical * FRatio + 0.5); }

  QImage& FImage;
  QPainter FPainter;
  qreal FRatio;
  QFont FFont;
  std::array<std::optional<QFont>, 16> FStyled;
  std::array<std::optional<QFontMetrics>, 16> FMetrics;
  TSystemPalette FPalette;
};

} // namespace orl
