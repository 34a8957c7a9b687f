// How the view follows the caret and the scroll bars follow the view: the
// top line and left column, the greatest top line, the bars' ranges, the
// wheel and the bars moved by the user.

#include <algorithm>

#include "editing/OrlMemo.h"

namespace orl {

int TOrlCustomMemo::GreatestTopLine() {
  TOrlMemoStrings& lines = InternalLines();
  const int last = std::max(lines.Count() - 1, 0);
  if (FGreedyVerticalScroll) return last;
  // A text that fits does not scroll (its bar is hidden). Otherwise the row
  // count less the page height plus 1: the view may show one empty row below
  // the last, as the bar's range of all shown rows gives.
  const int rows = VisibleRowMax();
  if (lines.VisibleCount() <= rows) return 0;
  return StepShownLines(last, -std::max(rows - 2, 0));
}

TScrollInfo TOrlCustomMemo::VerticalBar() {
  const int rows = VisibleRowMax();
  TScrollInfo bar{0, InternalLines().VisibleCount(), rows, GetVisibleLines(0, FTopLine) - 1};
  if (FGreedyVerticalScroll) bar.Max += rows - 2;  // the last row may scroll up to the top
  bar.Max = std::max(bar.Max, bar.Pos);
  return bar;
}

void TOrlCustomMemo::SetTopLine(int Value) {
  Value = std::clamp(Value, 0, GreatestTopLine());
  if (Value == FTopLine) return;
  FPrevTopLine = FTopLine;
  const int real = GetRealLine(Value);
  FTopLine = Value;
  FRealTopLine = real;
  FTopLineObject = InternalLines().GetLineAttributeObject(Value);
  FWindow->SetScrollInfo(TScrollBarKind::sbVertical, VerticalBar());
  if (OnVScrollChange) OnVScrollChange(FTopLine);
  Invalidate();
}

void TOrlCustomMemo::SetTopRow(int Value) {
  const int current = GetVisibleLines(0, FTopLine) - 1;
  SetTopLine(StepShownLines(FTopLine, Value - current));
}

void TOrlCustomMemo::ResetTopLine() {
  const int wanted = FTopLine;
  FTopLine = FRealTopLine = FPrevTopLine = 0;
  SetTopLine(wanted);
  ResizeScrollBars(false, 0);
}

void TOrlCustomMemo::SetLeftCol(int Value) {
  Value = std::max(Value, 0);
  if (Value == FLeftCol) return;
  FLastLeftCol = FLeftCol;
  FLeftCol = Value;
  ResizeScrollBars(false, 0);
  if (OnHScrollChange) OnHScrollChange(FLeftCol);
  if (FAutoHideHorzScrollBar) {
    FWindow->ShowScrollBar(TScrollBarKind::sbHorizontal, true);
    FWindow->StartTimer(TMemoTimer::ScrollHOff, TimerInterval(TMemoTimer::ScrollHOff));
  }
  Invalidate();
}

void TOrlCustomMemo::ScrollToCaret(bool bHorz, bool bVert) {
  if (FReplaceAll || FHexView || FSelectionDrag || FCellSize.W <= 0 || FCellSize.H <= 0) return;
  if (bHorz) ScrollHorizontally(TextLength(FCurY, FCurX, false, false));
  if (bVert) ScrollVertically();
}

void TOrlCustomMemo::ScrollHorizontally(int x) {
  const int cell = FCellSize.W;
  const int page = VisiblePosCount();
  const int left = FLeftCol * cell;
  const int right = left + page * cell;
  int wanted = FLeftCol;
  if (x < left) {
    if (FLeftButtonDown) wanted -= (left - x + cell - 1) / cell;
    else if (FFindScroll) wanted = x / cell - page / 2;
    else wanted = x / cell - FCaretScrollDistance;
  } else if (x > right) {
    if (FScrollMode == smStrict && !FWindow->ScrollBarVisible(TScrollBarKind::sbHorizontal)) {
      FCurX = CharXYFromPos(right, GetRowFromLine(FCurY) * FCellSize.H, false).x;
      return;
    }
    if (FLeftButtonDown) wanted += (x - right + cell - 1) / cell;
    else if (FFindScroll) wanted = x / cell - page / 2;
    else wanted += (x - right) / cell + FCaretScrollDistance;
    if (x > FMaxTextWidth - cell) FMaxTextWidth = x + 4 * cell;
  }
  SetLeftCol(wanted);
}

void TOrlCustomMemo::ScrollVertically() {
  const int page = VisibleRowMax();
  if (page <= 0) return;
  const int target = FScrollRefY >= 0 ? FScrollRefY : FCurY;
  if (target < FTopLine) {
    if (FOffsetScrollMode == osmNone) FOffsetScrollMode = osmAllow;
    SetTopLine(FFindScroll ? StepShownLines(FCurY, -page / 2) : target);
    return;
  }
  const int lastShown = StepShownLines(FTopLine, page - 1);
  if (target <= lastShown) return;
  if (FScrollMode == smStrict && !FWindow->ScrollBarVisible(TScrollBarKind::sbVertical)) {
    FCurY = lastShown;
    return;
  }
  if (FFindScroll) {
    FOffsetScrollMode = osmNotAllow;
    SetTopLine(StepShownLines(FCurY, -page / 2));
    return;
  }
  if (FOffsetScrollMode == osmNone) FOffsetScrollMode = osmAllow;
  SetTopLine(StepShownLines(FTopLine, ShownRowsBetween(lastShown, target)));
}

void TOrlCustomMemo::ResizeScrollBars(bool bRedraw, int AMaxLen) {
  if (!FLetRefresh || FNoResize || !FHasLoaded || FCellSize.W <= 0 || FCellSize.H <= 0) return;
  const int rows = VisibleRowMax();
  const int shown = InternalLines().VisibleCount();
  if (shown <= rows) {
    FTopLine = FRealTopLine = 0;
    FWindow->SetScrollInfo(TScrollBarKind::sbVertical, {0, std::max(shown - 1, 0), rows, 0});
    FWindow->ShowScrollBar(TScrollBarKind::sbVertical, false);
  } else {
    FTopLine = std::min(FTopLine, GreatestTopLine());
    FWindow->SetScrollInfo(TScrollBarKind::sbVertical, VerticalBar());
    FWindow->ShowScrollBar(TScrollBarKind::sbVertical, !FAutoHideVertScrollBar);
  }
  const int columns = VisiblePosCount();
  // The widest row met so far: the painter raises it as it measures rows, caret motion as it goes.
  const int widest = std::max({(FMaxTextWidth + 4 * FCellSize.W) / FCellSize.W, AMaxLen, FLeftCol + columns});
  FWindow->SetScrollInfo(TScrollBarKind::sbHorizontal, {0, widest, columns, FLeftCol});
  const bool bWrapHidesBar = (FWordWrap || FForceWrap) && !FWrapAtRightMargin;
  FWindow->ShowScrollBar(TScrollBarKind::sbHorizontal, !bWrapHidesBar && !FAutoHideHorzScrollBar && widest > columns);
  if (bRedraw) Invalidate();
}

void TOrlCustomMemo::ResizeEditor() {
  if (FClosing || !FHasLoaded) return;
  ResizeScrollBars(false, 0);
  Invalidate();
  PlaceCaret(true);
}

void TOrlCustomMemo::MouseWheel(TShiftState shift, int notches, int lines) {
  if (notches == 0) return;
  if (notches > 0 && OnMouseWheelUp) OnMouseWheelUp(shift, lines);
  if (notches < 0 && OnMouseWheelDown) OnMouseWheelDown(shift, lines);
  if (shift & ssCtrl) return;  // the host zooms
  const int step = lines >= 1 ? lines : std::max(VisibleRowMax(), 1);
  FOffsetScrollMode = osmAllow;
  SetTopLine(StepShownLines(FTopLine, -notches * step));
  PlaceCaret(true);
}

void TOrlCustomMemo::ScrollBarMoved(TScrollBarKind bar, int pos) {
  if (bar == TScrollBarKind::sbVertical) {
    SetTopRow(pos);
    FLinePanelVisible = FThumbTracking;
  } else {
    SetLeftCol(pos);
  }
  PlaceCaret(true);
}

void TOrlCustomMemo::ScrollThumbTracking(bool bTracking) {
  FThumbTracking = bTracking;
  if (!bTracking) FLinePanelVisible = false;
}

// The panel counts real lines, as the gutter does, so that under wrap it
// names the line the view will open on.
std::u16string TOrlCustomMemo::LinePanelText() {
  const std::string number = std::to_string(GetRealLine(FTopLine) + 1);
  return u"Line: " + std::u16string(number.begin(), number.end());
}

} // namespace orl
