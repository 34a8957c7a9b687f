#pragma once
// What the painter draws on: a back buffer that keeps its pixels between
// paints. The recording canvas keeps a display list for tests and tools; the
// Qt canvas in widgets/ draws into an image. Coordinates are the memo's
// logical pixels.

#include <span>
#include <string_view>

#include "editing/OrlMemo.h"
#include "view/MemoColors.h"

namespace orl {

/// One piece of text to draw. Tabs stand in Text as themselves and advance
/// to the next stop TabOrigin + k * TabWidth, so that stops stay on the
/// document's grid whatever piece the tab falls in.
struct TTextOut {
  int X = 0;                 ///< pen position
  int Top = 0;               ///< row top plus the font's lead
  TRect Row;                 ///< the row's rectangle: nothing is drawn outside it
  std::u16string_view Text;
  TRgb Fg, Bg;
  TFontStyles Style = 0;
  bool bOpaque = true;       ///< fill the background behind the glyphs
  int TabOrigin = 0;
  int TabWidth = 0;
  /// Simple path: the width the painter measured on the cell grid, filled
  /// with Bg. Complex path: 0, the canvas lays the text out itself.
  int Width = 0;
  bool bComplex = false;
  bool bRightToLeft = false;  ///< complex path: the text reads from right to left
  /// Complex path: characters [SelStart, SelEnd) are drawn in SelFg on SelBg.
  int SelStart = 0, SelEnd = 0;
  TRgb SelFg, SelBg;
};

class IMemoCanvas {
public:
  virtual ~IMemoCanvas() = default;

  /// The font text is drawn in; a run's style adds to it.
  virtual void SetFont(const TMemoFont& font) = 0;
  /// The painter starts a row: canvases that keep a list group by it.
  virtual void BeginRow(int line, const TRect& row) { (void)line, (void)row; }
  virtual void FillRect(const TRect& r, TRgb color) = 0;
  /// Draws and returns the advance in pixels; 0 for a layout that failed.
  virtual int TextOut(const TTextOut& t) = 0;
  virtual void Line(TPoint from, TPoint to, TRgb color, int width) = 0;
  /// Diagonal hatch over `r`.
  virtual void Hatch(const TRect& r, TRgb color) = 0;
  /// A wavy underline from x1 to x2 around y.
  virtual void ZigZag(int x1, int x2, int y, TRgb color, int width) = 0;
  /// A vertical line at x through `row` that only covers pixels still in one
  /// of the `under` colours, so that it never crosses a glyph. Dotted lines
  /// take every second scan line, starting on `parity`.
  virtual void MarginLine(int x, const TRect& row, TRgb color, int width, TMarginLineType type, int parity,
                          std::span<const TRgb> under) = 0;
  /// Moves the pixels of `area` by dy (negative: up); what is uncovered keeps old pixels.
  virtual void ScrollRows(const TRect& area, int dy) = 0;
  /// The palette system colours resolve through.
  virtual const TSystemPalette& Palette() const { return TSystemPalette::Default(); }
};

} // namespace orl
