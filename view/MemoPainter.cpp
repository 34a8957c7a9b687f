// The paint: from the clip rectangle to the rows it covers, with the scroll
// blit that leaves only the uncovered band to draw.

#include "view/MemoPainter.h"

#include <algorithm>
#include <cstdlib>

namespace orl {

TMemoPainter::TMemoPainter(TOrlCustomMemo& memo, IRowDecorations* decorations)
    : M(memo), FDeco(decorations ? *decorations : FNoDecorations) {}

void TMemoPainter::Paint(IMemoCanvas& canvas, TRect clip) {
  if (M.FClosing || M.FSuspendPainting) return;
  FCanvasPalette = &canvas.Palette();
  if (M.FHexView && FDeco.HexPaint(canvas)) return;
  const TCellSize cell = M.CellSize();
  if (cell.W <= 0 || cell.H <= 0) return;
  canvas.SetFont(M.FMeasureFont);
  const TRect client = M.Window().ClientRect();
  if (clip.Width() <= 0 || clip.Height() <= 0) clip = client;
  const TRect area = M.EditorRect(true, -1);

  FScrolledDown = false;
  const bool bScrolled = ScrollShortcut(canvas, area, clip);
  M.FLastLeftCol = M.FLeftCol;
  M.FOffsetScrollMode = osmNone;
  // Rows are taken inclusively at both ends: a band of no height still names the row at its edge.
  if (clip.Bottom >= area.Top && clip.Top < area.Bottom) PaintRows(canvas, area, clip);
  if (M.FShowDocumentMap) FDeco.DocumentMap(canvas, bScrolled);
  M.FDocMapDrawType = dmrAllow;
  // What lies left of and above the text (gutter and ruler bands, the margin
  // strip) keeps the memo's background unless their painters draw there.
  const TRgb background = Rgb(M.FBkColor);
  canvas.BeginRow(-1, client);
  canvas.FillRect({client.Left, std::max(clip.Top, area.Top), area.Left, std::min(clip.Bottom, area.Bottom + 1)},
                  background);
  canvas.FillRect({client.Left, clip.Top, client.Right, std::min(clip.Bottom, area.Top)}, background);
  FDeco.Gutter(canvas, clip);
  AdjustHorizontalBar();
  M.FPrevTopLine = FPaintedTopLine = M.FTopLine;
  FPaintedLeftCol = M.FLeftCol;
}

bool TMemoPainter::ScrollShortcut(IMemoCanvas& canvas, const TRect& area, TRect& clip) {
  if (M.FOffsetScrollMode != osmAllow || FPaintedTopLine < 0 || FPaintedTopLine == M.FTopLine ||
      FPaintedLeftCol != M.FLeftCol)
    return false;
  if (M.FShowDocumentMap && M.FDocMapDrawType == dmrDocMapOnly) return false;
  if (!M.Window().ScrollBarVisible(TScrollBarKind::sbVertical)) return false;
  // Rows the view moved down by since the canvas was drawn: its top now stands that many rows above.
  const int d = -M.GetRowFromLine(FPaintedTopLine);
  const int H = M.CellSize().H;
  if (d == 0 || std::abs(d) >= M.VisibleRowMax() - 1) return false;
  canvas.ScrollRows(area, -d * H);
  const bool bMargin = M.FCaretScrollVDistance >= 2;
  if (d < 0) {
    clip = {area.Left, area.Top, area.Right, area.Top + (-d - (bMargin ? 1 : 0)) * H};
  } else {
    clip = {area.Left, area.Bottom - (d + (bMargin ? 2 : 1)) * H, area.Right, area.Bottom};
    FScrolledDown = true;
  }
  return true;
}

void TMemoPainter::PaintRows(IMemoCanvas& canvas, const TRect& area, const TRect& clip) {
  const int H = M.CellSize().H;
  int firstRow = std::max((std::max(clip.Top, area.Top) - area.Top) / H - 1, 0);
  if (FScrolledDown) firstRow = std::max(firstRow - M.FCaretScrollVDistance, 0);
  const int lastInArea = (area.Height() + H - 1) / H - 1;
  const int lastRow = std::min((std::min(clip.Bottom, area.Bottom) - area.Top) / H, lastInArea);
  TOrlMemoStrings& lines = M.InternalLines();
  int line = M.GetLineFromRow(firstRow);
  bool bPastEnd = lines.Count() == 0 || M.GetRowFromLine(line) != firstRow;
  TStyle state;
  if (!bPastEnd) state = M.GetUpStyle(line - 1, false);
  for (int row = firstRow; row <= lastRow; ++row) {
    const TRect rect{area.Left, area.Top + row * H, area.Right, std::min(area.Top + (row + 1) * H, area.Bottom)};
    if (bPastEnd) {
      FillBeyondText(canvas, -1, rect);
      continue;
    }
    PaintRow(canvas, line, rect, state);
    AdvanceState(line, state);
    const int next = M.GetNextVisibleLine(line, line + 1);
    if (next <= line) {
      bPastEnd = true;
      continue;
    }
    // Rows hidden in a closed fold lie between: their state comes from above the next shown one.
    if (next != line + 1) state = M.GetUpStyle(next - 1, false);
    line = next;
  }
}

void TMemoPainter::AdvanceState(int line, TStyle& state) {
  if (M.InternalLines().LineStyleValid(line) && !M.FUpdate) {
    bool bCached = false;
    state = M.GetLineStyle(line, bCached);
    return;
  }
  M.GetUpLineStyle(line, 0, -1, state, false);
  M.SetLineStyle(line, state);
}

void TMemoPainter::FillBeyondText(IMemoCanvas& canvas, int line, const TRect& rect) {
  canvas.BeginRow(line, rect);
  const TColor background = M.FStyles ? M.FStyles->FBkColor : M.FBkColor;
  canvas.FillRect(rect, Rgb(background));
  FRow = {};
  FRow.Line = line;
  FRow.Rect = rect;
  FRow.Background = background;
  RightMargin(canvas, FRow);
}

TRect TMemoPainter::RowRect(int line) {
  const TCellSize cell = M.CellSize();
  TOrlMemoStrings& lines = M.InternalLines();
  if (cell.H <= 0 || line < 0 || line >= lines.Count() || lines.GetHiddenLine(line) || line < M.TopLine()) return {};
  const TRect area = M.EditorRect(true, -1);
  const int row = M.GetRowFromLine(line);
  const int top = area.Top + row * cell.H;
  if (row < 0 || top >= area.Bottom) return {};
  return {area.Left, top, area.Right, std::min(top + cell.H, area.Bottom)};
}

TRect TMemoPainter::PaintLine(IMemoCanvas& canvas, int line) {
  if (M.FClosing || M.FSuspendPainting || M.CellSize().W <= 0) return {};
  const TRect rect = RowRect(line);
  if (rect.Height() <= 0) return {};
  FCanvasPalette = &canvas.Palette();
  canvas.SetFont(M.FMeasureFont);
  PaintRow(canvas, line, rect, M.GetUpStyle(line - 1, false));
  AdjustHorizontalBar();
  return rect;
}

void TMemoPainter::AdjustHorizontalBar() {
  if (M.FWordWrap || M.FForceWrap || M.FMaxTextWidth <= FSizedForWidth) return;
  // Only the pixel measure grows here: the character count that switches
  // force wrap on stays the store's.
  FSizedForWidth = M.FMaxTextWidth;
  M.ResizeScrollBars(false, 0);
}

} // namespace orl
