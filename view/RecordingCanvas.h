#pragma once
// A canvas that draws nothing and keeps what it was asked to draw, in order:
// the display list that tests and `gdtool memo` read. Text of the complex
// path is measured by the memo's window, so it agrees with hit testing.

#include <string>
#include <vector>

#include "view/MemoCanvas.h"

namespace orl {

enum class TPaintKind : uint8_t { Fill, Text, Line, Hatch, ZigZag, Margin, Scroll };

struct TPaintItem {
  TPaintKind Kind = TPaintKind::Fill;
  int Line = -1;            ///< the row being drawn, -1 outside rows
  TRect R;                  ///< Fill, Hatch; Text: its extent; Line, ZigZag, Margin: the span
  std::u16string Text;
  TRgb Fg, Bg;
  TFontStyles Style = 0;
  int SelStart = 0, SelEnd = 0;
  bool bComplex = false;
  int Width = 0;            ///< Text: advance; Line, ZigZag, Margin: pen width; Scroll: dy
};

class TRecordingCanvas final : public IMemoCanvas {
public:
  explicit TRecordingCanvas(IMemoWindow& measurer) : FMeasurer(measurer) {}

  void SetFont(const TMemoFont& font) override { FFont = font; }
  void BeginRow(int line, const TRect&) override { FLine = line; }
  void FillRect(const TRect& r, TRgb color) override;
  int TextOut(const TTextOut& t) override;
  void Line(TPoint from, TPoint to, TRgb color, int width) override;
  void Hatch(const TRect& r, TRgb color) override;
  void ZigZag(int x1, int x2, int y, TRgb color, int width) override;
  void MarginLine(int x, const TRect& row, TRgb color, int width, TMarginLineType type, int parity,
                  std::span<const TRgb> under) override;
  void ScrollRows(const TRect& area, int dy) override;

  void Clear() {
    Items.clear();
    FLine = -1;
  }
  /// The text items of one row, in drawing order.
  std::vector<const TPaintItem*> TextOf(int line) const;

  std::vector<TPaintItem> Items;

private:
  TPaintItem& Add(TPaintKind kind);
  void AddStroke(TPaintKind kind, const TRect& span, TRgb color, int width);

  IMemoWindow& FMeasurer;
  TMemoFont FFont;
  int FLine = -1;
};

} // namespace orl
