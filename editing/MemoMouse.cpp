// The mouse: a press places the caret or starts a selection, a drag grows it
// (word by word after a double click), leaving the view scrolls on a timer,
// a double click selects a word and a third click the line.

#include <algorithm>
#include <cstdlib>

#include "editing/OrlMemo.h"

namespace orl {
namespace {

/// Auto-scroll's pace by how far the mouse is past the edge, per axis.
struct TScrollPace {
  int Interval;
  int Step;
};

TScrollPace PaceFor(int distance, bool bVertical) {
  if (distance > 40) return {40, 4};
  if (distance >= 20) return bVertical ? TScrollPace{80, 2} : TScrollPace{40, 2};
  return bVertical ? TScrollPace{100, 1} : TScrollPace{20, 1};
}

/// How far `v` lies outside [lo, hi): negative before, positive behind, 0 inside.
int PastEdge(int v, int lo, int hi) { return v < lo ? v - lo : v >= hi ? v - hi + 1 : 0; }

bool Inside(const TOrderedSelection& s, TFullPos p) {
  const auto before = [](int ax, int ay, int bx, int by) { return ay < by || (ay == by && ax < bx); };
  return !before(p.x, p.Y, s.StartX, s.StartY) && before(p.x, p.Y, s.EndX, s.EndY);
}

} // namespace

void TOrlCustomMemo::MouseDown(TMouseButton button, TShiftState shift, int x, int y) {
  if (FHexView || FClosing) return;
  StopTimer(TMemoTimer::ColorHint);
  FFileDrag = FSelectionDrag = false;
  FX = FMouseX = x;
  FY = FMouseY = y;
  if (!FFocused) FocusGained();
  if (button == TMouseButton::mbMiddle) {
    StartPanning(x, y);
    return;
  }
  if (button == TMouseButton::mbRight && HasSelection()) return;  // the context menu acts on it
  const bool bPlainLeft = button == TMouseButton::mbLeft && (shift & (ssShift | ssAlt | ssCtrl)) == 0;
  if (bPlainLeft && FWindow->TickCount() - FLastDblClick <= FWindow->DoubleClickTime() &&
      std::abs(x - FDoubleX) <= 2 && std::abs(y - FDoubleY) <= 2) {
    FLastDblClick = -1'000'000;
    SelectRealLine(PointToCharPos(x, y).Y);
    return;
  }
  FOffsetScrollMode = osmNotAllow;
  const TRect area = EditorRect(true, -1);
  if (x < area.Left - 3 || y < area.Top) return;  // gutter and ruler act when they exist
  const TFullPos pos = ClampToStore(PointToCharPos(x, y));
  if (button == TMouseButton::mbLeft && !(shift & ssShift) && HasSelection() && Inside(GetSelection(), pos)) {
    // A drag of the selected text starts once the mouse moves; a release
    // without moving places the caret.
    FSelectionDrag = FAllowDragText;
    if (FSelectionDrag) {
      FLeftButtonDown = true;
      return;
    }
  }
  if (Hooks.RecordMacro) {
    Hooks.RecordMacro(6, pos.Y - FCurY);
    Hooks.RecordMacro(5, pos.x - FCurX);
  }
  NoteNavigationStop();
  SetTextCursor(pos.x, pos.Y, false);
  FOldCurX = TextLength(FCurY, FCurX, false, false);
  if ((shift & (ssAlt | ssShift)) == (ssAlt | ssShift) && !HasSelection()) {
    SetColumnMode(true);
    FColumnModeRelease = true;
    ExpandSelection(false, true, false, true);
  } else if (shift & ssShift) {
    ExpandSelection(false, true, false, true);
  } else {
    ClearSelection(true);
  }
  if (button == TMouseButton::mbLeft && (!(shift & ssCtrl) || FAllowMultiEditMode)) {
    FLeftButtonDown = true;
    FTimerInterval = 50;
  }
}

void TOrlCustomMemo::MouseMove(TShiftState shift, int x, int y) {
  FMouseX = x;
  FMouseY = y;
  if (!FLeftButtonDown) {
    const TFullPos pos = PointToCharPos(x, y);
    const bool bOverSelection = HasSelection() && Inside(GetSelection(), pos);
    FWindow->SetCursorShape(bOverSelection ? TCursorShape::crArrow : TCursorShape::crIBeam);
    return;
  }
  if (std::abs(x - FX) < 3 && std::abs(y - FY) < 3) return;
  FX = x;
  FY = y;
  if ((shift & ssAlt) && !FColumnMode) {
    SetColumnMode(true);
    FColumnModeRelease = true;
  }
  if (FSelectionDrag) return;  // dropping text belongs to the text commands
  DragSelectTo(x, y);
}

void TOrlCustomMemo::DragSelectTo(int x, int y) {
  const TRect area = EditorRect(true, -1);
  const int bottom = area.Top + VisibleRowMax() * FCellSize.H;
  if (PastEdge(x, area.Left, area.Right) != 0 || PastEdge(y, area.Top, bottom) != 0) {
    if (!FWindow->TimerRunning(TMemoTimer::Scroll)) FWindow->StartTimer(TMemoTimer::Scroll, FTimerInterval);
    return;
  }
  StopTimer(TMemoTimer::Scroll);
  TFullPos pos = ClampToStore(PointToCharPos(x, y));
  if (!FColumnMode) pos.x = std::min(pos.x, InternalLines().GetLineLength(pos.Y));
  if (FDoubleClick && FDoubleClickStart.Y >= 0) {
    const auto before = [](TFullPos a, TFullPos b) { return a.Y < b.Y || (a.Y == b.Y && a.x < b.x); };
    const bool bLeft = before(pos, FDoubleClickStart);
    const std::u16string_view row = InternalLines().GetLineString(pos.Y);
    const auto isWordChar = [&](int i) {
      return i >= 0 && size_t(i) < row.size() && !CharIsWhiteSpace(row[size_t(i)], true) &&
             FSelectDelimiters.find(row[size_t(i)]) == std::u16string::npos;
    };
    if (bLeft) {
      while (isWordChar(pos.x - 1)) --pos.x;
      FSelStartX = FDoubleClickEnd.x;
      FSelStartY = FDoubleClickEnd.Y;
    } else {
      if (!before(pos, FDoubleClickEnd)) {
        while (isWordChar(pos.x)) ++pos.x;
      } else {
        pos = FDoubleClickEnd;
      }
      FSelStartX = FDoubleClickStart.x;
      FSelStartY = FDoubleClickStart.Y;
    }
  }
  FPreviousCurY = FCurY;
  FCurX = pos.x;
  FCurY = pos.Y;
  ExpandSelection(false, true, false, true);
  PlaceCaret(true);
}

void TOrlCustomMemo::AutoScrollTick() {
  if (!FLeftButtonDown) {
    StopTimer(TMemoTimer::Scroll);
    return;
  }
  const TRect area = EditorRect(true, -1);
  const int bottom = area.Top + std::max(VisibleRowMax(), 1) * FCellSize.H;
  const int pastX = PastEdge(FMouseX, area.Left, area.Right);
  const int pastY = PastEdge(FMouseY, area.Top, bottom);
  if (pastX == 0 && pastY == 0) {
    StopTimer(TMemoTimer::Scroll);
    return;
  }
  const TScrollPace pace = pastY != 0 ? PaceFor(std::abs(pastY), true) : PaceFor(std::abs(pastX), false);
  const int line = pastY == 0 ? FCurY : StepShownLines(FCurY, pastY < 0 ? -pace.Step : pace.Step);
  int column = FCurX;
  if (pastX != 0) {
    // Step cells beyond the view's edge on the mouse's side.
    const int cells = pastX < 0 ? FLeftCol - pace.Step : FLeftCol + VisiblePosCount() + pace.Step;
    column = CharXYFromPos(std::max(cells, 0) * FCellSize.W, 0, false, InternalLines().GetLineString(line)).x;
    if (column == FCurX) column += pastX < 0 ? -2 : 2;
  }
  if (!FColumnMode) column = std::min(column, InternalLines().GetLineLength(line));
  if (line != FCurY) SetCurY(line);
  SetCurX(std::max(column, 0));
  FTimerInterval = pace.Interval;
  FWindow->StartTimer(TMemoTimer::Scroll, pace.Interval);
  ExpandSelection(true, true, false, true);
}

void TOrlCustomMemo::MouseUp(TMouseButton button, TShiftState shift, int x, int y) {
  if (FHexView || FClosing) return;
  if (button == TMouseButton::mbLeft && !(shift & ssAlt) && FColumnModeRelease) SetColumnMode(false);
  if (FSelectionDrag && button == TMouseButton::mbLeft) {
    FSelectionDrag = false;
    const TFullPos pos = ClampToStore(PointToCharPos(x, y));
    SetTextCursor(pos.x, pos.Y, false);
    FOldCurX = TextLength(FCurY, FCurX, false, false);
    ClearSelection(true);
  }
  FDoubleClickStart = FDoubleClickEnd = {-1, -1};
  FDoubleClick = FFileDrag = FLeftButtonDown = FGutterSelection = false;
  StopPanning();
  StopTimer(TMemoTimer::Scroll);
  FWindow->StartTimer(TMemoTimer::ColorHint, TimerInterval(TMemoTimer::ColorHint));
}

void TOrlCustomMemo::DblClick(TShiftState shift, int x, int y) {
  if (FSyncEdit || FHexView || FClosing) return;
  const TRect area = EditorRect(true, -1);
  if (x < area.Left || y < area.Top || PastEdge(x, area.Left, area.Right) != 0) return;
  // The character under the mouse, not the nearest boundary between two.
  const TFullPos pos = ClampToStore(PointToCharPos(x - FCellSize.W / 2, y));
  if (pos.x >= InternalLines().GetLineLength(pos.Y)) return;
  FLastDblClick = FWindow->TickCount();
  FDoubleX = x;
  FDoubleY = y;
  SelectWordAt(pos, shift & ssAlt);
  FDoubleClick = true;
  FLeftButtonDown = true;
}

void TOrlCustomMemo::SelectWordAt(TFullPos pos, bool bAlt) {
  const std::u16string_view row = InternalLines().GetLineString(pos.Y);
  const std::u16string& delimiters = bAlt ? FSelectDelimitersAlt : FSelectDelimiters;
  const auto isWhite = [&](int i) { return CharIsWhiteSpace(row[size_t(i)], true); };
  const auto isDelimiter = [&](int i) { return delimiters.find(row[size_t(i)]) != std::u16string::npos; };
  int start = pos.x, end = pos.x + 1;
  if (!isWhite(pos.x) && isDelimiter(pos.x)) {
    // one delimiter alone
  } else {
    const bool bWhite = isWhite(pos.x);
    const auto same = [&](int i) { return bWhite ? isWhite(i) : !isWhite(i) && !isDelimiter(i); };
    while (start > 0 && same(start - 1)) --start;
    while (size_t(end) < row.size() && same(end)) ++end;
  }
  ClearSelection(false);
  SetSelectionSilent(start, pos.Y, end, pos.Y);
  SetTextCursor(end, pos.Y, false);
  FOldCurX = TextLength(FCurY, FCurX, false, false);
  FPrevSelX = end;
  FPrevSelY = pos.Y;
  FDoubleClickStart = {start, pos.Y};
  FDoubleClickEnd = {end, pos.Y};
  NotifySelectionChange();
  ExpandSelection(false, true, true, true);
}

void TOrlCustomMemo::SelectRealLine(int line) {
  TOrlMemoStrings& lines = InternalLines();
  const int first = GetWrapStartLine(line);
  int last = first;
  while (last + 1 < lines.Count() && lines.IsLineWrapped(last + 1)) ++last;
  // The line with its ending, so that a copy or a delete takes the whole line.
  if (last + 1 < lines.Count()) SetSelection2(0, first, 0, last + 1, true);
  else SetSelection2(0, first, lines.GetLineLength(last), last, true);
  FOldCurX = TextLength(FCurY, FCurX, false, false);
}

} // namespace orl
