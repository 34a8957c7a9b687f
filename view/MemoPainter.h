#pragma once
// The memo's painter: what one paint draws and in which order. It reads the
// memo (rows, line states, caret, selection, colours) and draws through an
// IMemoCanvas; the canvas keeps its pixels between paints, so a scroll moves
// them and a redrawn row replaces only its own.
//
// Coordinates are the memo's client pixels. Rows are drawn from the state
// the tokeniser stored for the row above; every state the painter computes
// is stored back, so a paint rescans only what an edit invalidated.

#include <string>
#include <utility>
#include <vector>

#include "editing/OrlMemo.h"
#include "syntax/TokenRun.h"
#include "view/MemoCanvas.h"

namespace orl {

/// The run kind of the shown line-end mark, coloured as a control character.
inline constexpr int8_t kLineEndMark = -3;

/// What one row is being drawn with, for the decorations.
struct TRowPaint {
  int Line = -1;
  TRect Rect;                 ///< the row's rectangle
  int TextLeft = 0;           ///< x of the row's first character, scroll included
  int TextRight = 0;          ///< x behind its last character
  TColor Background = 0;      ///< the row's base background
  int SelStart = 0, SelEnd = 0;  ///< selected characters [SelStart, SelEnd), 0-based
  bool bContinuation = false;
};

/// The decorations of parts drawn elsewhere: sync edit, indent guides, the
/// highlight lists, colour values, clip tab stops, extra carets, gutter, map
/// and hex view. Each default draws nothing and changes nothing.
class IRowDecorations {
public:
  virtual ~IRowDecorations() = default;
  virtual bool InSyncBlock(int line) { (void)line; return false; }
  /// True when the hex view painted the whole control.
  virtual bool HexPaint(IMemoCanvas&) { return false; }
  virtual void Gutter(IMemoCanvas&, const TRect& clip) { (void)clip; }
  virtual void DocumentMap(IMemoCanvas&, bool bScrolling) { (void)bScrolling; }
  // The row's decorations, called in this order after the right margin, the
  // fold marker (indent guides) and the spelling marks (the rest).
  virtual void IndentGuides(IMemoCanvas&, const TRowPaint&) {}
  /// Smart highlight, highlighted words, find marks, highlighted selections and expressions.
  virtual void Highlights(IMemoCanvas&, const TRowPaint&) {}
  virtual void ColorValueUnderlines(IMemoCanvas&, const TRowPaint&) {}
  virtual void ClipTabStops(IMemoCanvas&, const TRowPaint&) {}
  virtual void ExtraCaretSelections(IMemoCanvas&, const TRowPaint&) {}
};

class TMemoPainter {
public:
  /// `decorations` may be null: no decorations beyond the painter's own.
  explicit TMemoPainter(TOrlCustomMemo& memo, IRowDecorations* decorations = nullptr);

  /// One paint of the client rectangle `clip` (empty: the whole client).
  void Paint(IMemoCanvas& canvas, TRect clip);
  /// Draws line `line` where it stands in the view: a redraw without a paint.
  /// Returns its rectangle, empty when the line is not shown.
  TRect PaintLine(IMemoCanvas& canvas, int line);
  /// The rectangle of the row that shows `line`; empty above or below the view.
  TRect RowRect(int line);
  /// The view scrolled since the last paint: the canvas's rows are not where
  /// the memo's are until the next paint moves them.
  bool ScrollPending() const { return FPaintedTopLine != M.TopLine() || FPaintedLeftCol != M.LeftCol(); }

private:
  struct TRunColours {
    TColor Fg = 0, Bg = 0;
    TFontStyles Style = 0;
    /// A token's colours; its background only where no mark set one.
    void Take(TColor fg, TColor bg, TFontStyles style, bool bKeepBackground) {
      Fg = fg;
      Style = style;
      if (!bKeepBackground && bg != clNoColor) Bg = bg;
    }
  };

  // The paint.
  bool ScrollShortcut(IMemoCanvas& canvas, const TRect& area, TRect& clip);
  void PaintRows(IMemoCanvas& canvas, const TRect& area, const TRect& clip);
  /// A row below the text: background and the margin line through it.
  void FillBeyondText(IMemoCanvas& canvas, int line, const TRect& rect);
  void AdjustHorizontalBar();

  // One row.
  void PaintRow(IMemoCanvas& canvas, int line, const TRect& rect, const TStyle& start);
  /// The state at the end of `line` from `state` at its start, stored for the next paint.
  void AdvanceState(int line, TStyle& state);
  TColor RowBackground(int line) const;
  void RowSelection(int line, int length, TRowPaint& row);
  /// The row's text run by run from `start`, the state at its beginning, and its line-end mark.
  void DrawRowText(IMemoCanvas& canvas, int line, const TStyle& start);
  void BlockSelectionLines(IMemoCanvas& canvas, int line);
  void ColumnSelectionBeyondText(IMemoCanvas& canvas);
  void EndOfRowSelection(IMemoCanvas& canvas, int line, int& x);
  void CurrentLineBorder(IMemoCanvas& canvas, const TRowPaint& row);
  void RightMargin(IMemoCanvas& canvas, const TRowPaint& row);
  /// A closed fold head: its marker 20 pixels behind the text.
  void FoldMarker(IMemoCanvas& canvas, const TRowPaint& row);
  /// A wavy line under each misspelt word of the row.
  void SpellingMarks(IMemoCanvas& canvas, const TRowPaint& row);
  void Decorations(IMemoCanvas& canvas, const TRowPaint& row);

  // Runs.
  /// The addresses of the row: each from its scheme to the first character that ends one.
  void FindUrlSpans(std::u16string_view text, bool bStartsInUrl);
  /// Cuts a run where an address starts or ends; the address's part is drawn as a link.
  void OutputRunWithUrls(IMemoCanvas& canvas, const TTokenRun& run);
  /// Cuts a run at tabs (shown tabs) and into pieces of at most 1024 characters.
  void OutputRun(IMemoCanvas& canvas, const TTokenRun& run);
  void OutputPiece(IMemoCanvas& canvas, const TTokenRun& run, int start, int length);
  TRunColours RunColours(const TTokenRun& run, int start) const;
  /// A brace mark on the run's first character: true when it set the colours.
  bool BraceColours(int start, TRunColours& c) const;
  /// The token classes' colours, in their order of precedence.
  void TokenColours(const TOrlCustomMemoStyles& S, const TTokenRun& run, bool bKeepBackground, TRunColours& c) const;
  /// Draws characters [start, start + length) of the row; returns the advance.
  int OutputText(IMemoCanvas& canvas, int start, int length, const TRunColours& colours, bool bSelected);
  /// The text output of characters [start, start + length) at the pen.
  TTextOut TextOutAt(int start, int length, const TRunColours& colours, bool bSelected) const;
  int OutputComplex(IMemoCanvas& canvas, int start, int length, const TRunColours& colours);
  int TabMark(IMemoCanvas& canvas, int start, const TRunColours& colours, bool bSelected);
  /// Pixel width of characters [start, start + length) on the cell grid, tabs expanded.
  int GridWidth(int start, int length) const;
  TRgb Rgb(TColor c) const { return ColorToRgb(c, FCanvasPalette ? *FCanvasPalette : TSystemPalette::Default()); }
  TColor SelFg() const;
  TColor SelBg() const;

  TOrlCustomMemo& M;
  IRowDecorations FNoDecorations;
  IRowDecorations& FDeco;
  TTokenRunList FRuns;
  std::vector<std::pair<int, int>> FUrlSpans;  ///< [start, end) of each address in the row, 0-based
  const TSystemPalette* FCanvasPalette = nullptr;

  // The row being drawn.
  TRowPaint FRow;
  std::u16string FVisual;     ///< the row as shown: control characters substituted, tabs kept
  int FVisualLength = 0;
  int FPen = 0;               ///< pen x
  int FTabOrigin = 0;
  bool FScrolledDown = false;  ///< this paint follows a downward scroll blit
  // What the canvas shows: the top line and left column of the last paint
  // (the memo's own previous top line follows every change, not the paints).
  int FPaintedTopLine = -1, FPaintedLeftCol = 0;
  int FSizedForWidth = 0;      ///< the widest row the horizontal bar was last sized for
};

} // namespace orl
