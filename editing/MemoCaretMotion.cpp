// Caret motion: arrows with their modifiers, word steps, pages, Home and End,
// in the virtual-space model and in the notepad model (no virtual space,
// which word wrap and force wrap share).

#include <unicode/ubrk.h>

#include <algorithm>
#include <memory>

#include "editing/OrlMemo.h"

namespace orl {
namespace {

struct TBreakCloser {
  void operator()(UBreakIterator* it) const { ubrk_close(it); }
};

bool IsBlank(char16_t ch) { return ch == u' ' || ch == u'\t' || ch == u'\u00A0'; }

/// The nearest word stop of the break analysis after (`bForward`) or before `from`.
int IcuWordStop(std::u16string_view row, int from, bool bForward) {
  UErrorCode status = U_ZERO_ERROR;
  std::unique_ptr<UBreakIterator, TBreakCloser> words(
      ubrk_open(UBRK_WORD, "", reinterpret_cast<const UChar*>(row.data()), int32_t(row.size()), &status));
  if (U_FAILURE(status)) return bForward ? int(row.size()) : 0;
  const int stop = bForward ? ubrk_following(words.get(), from) : ubrk_preceding(words.get(), from);
  if (stop == UBRK_DONE) return bForward ? int(row.size()) : 0;
  return stop;
}

int FirstNonBlank(std::u16string_view row) {
  const size_t n = row.find_first_not_of(u" \t\u00A0");
  return n == std::u16string_view::npos ? -1 : int(n);
}

} // namespace

int TOrlCustomMemo::WordClass(char16_t ch) const {
  if (IsBlank(ch)) return 0;
  const bool bDelimiter =
      FCachedDelimiters.find(ch) != std::u16string::npos || FUserDelimiters.find(ch) != std::u16string::npos;
  return bDelimiter ? 1 : 2;
}

bool TOrlCustomMemo::Extending(TShiftState shift) const {
  return ((shift & ssShift) || FSelectionMode) && FCurX == FPrevSelX && FCurY == FPrevSelY;
}

void TOrlCustomMemo::ExtendOrClear(bool bExtend, bool bSetOldCurX) {
  if (bExtend) {
    ExpandSelection(false, bSetOldCurX, false, true);
    return;
  }
  ClearSelection(true);
  if (bSetOldCurX) FOldCurX = TextLength(FCurY, FCurX, false, false);
}

TFullPos TOrlCustomMemo::WordRightPos(int x, int line) {
  TOrlMemoStrings& lines = InternalLines();
  const std::u16string_view row = lines.GetLineString(line);
  size_t end = row.size();
  while (end > 0 && (row[end - 1] == u' ' || row[end - 1] == u'\u00A0')) --end;
  const int n = int(end);
  if (x >= n) {
    if (FColumnMode) return {x + 1, line};
    const int next = StepShownLines(line, 1);
    if (next == line) return {std::max(x, int(row.size())), line};
    return {std::max(FirstNonBlank(lines.GetLineString(next)), 0), next};
  }
  const int startClass = WordClass(row[size_t(x)]);
  int i = x + 1;
  while (i < n && WordClass(row[size_t(i)]) == startClass) ++i;
  if (!RowIsPlainAnsi(row.substr(size_t(x), size_t(i - x) + (i < n ? 1 : 0))))
    i = std::min(i, IcuWordStop(row.substr(0, end), x, true));
  // A word or a run of delimiters ends at the next thing that is not blank.
  while (i < n && WordClass(row[size_t(i)]) == 0) ++i;
  return {i, line};
}

TFullPos TOrlCustomMemo::WordLeftPos(int x, int line) {
  TOrlMemoStrings& lines = InternalLines();
  const std::u16string_view row = lines.GetLineString(line);
  int i = std::min(x, int(row.size()));
  if (i == 0) {
    const int previous = StepShownLines(line, -1);
    if (previous == line) return {0, line};
    return {lines.GetLineLength(previous), previous};
  }
  const int from = i;
  while (i > 0 && WordClass(row[size_t(i - 1)]) == 0) --i;
  if (i == 0) return {0, line};
  const int runClass = WordClass(row[size_t(i - 1)]);
  while (i > 0 && WordClass(row[size_t(i - 1)]) == runClass) --i;
  if (!RowIsPlainAnsi(row.substr(size_t(i), size_t(from - i)))) i = std::max(i, IcuWordStop(row, from, false));
  return {i, line};
}

void TOrlCustomMemo::MoveCursor(int dx, int dY, TShiftState shift) {
  const bool bExtend = Extending(shift);
  TOrlMemoStrings& lines = InternalLines();
  if (shift & ssCtrl) {
    if (dx != 0) {
      const TFullPos to = dx > 0 ? WordRightPos(FCurX, FCurY) : WordLeftPos(FCurX, FCurY);
      if (to.Y != FCurY) SetCurY(to.Y);
      SetCurX(to.x);
    } else if (dY != 0) {
      SetTopLine(StepShownLines(FTopLine, dY > 0 ? 1 : -1));
    }
  } else if (shift & ssAlt) {
    if (dx > 0) SetCurX(lines.GetLineLength(FCurY));
    else if (dx < 0) SetCurX(0);
    else if (dY > 0) SetCurY(LastVisibleLine());
    else if (dY < 0) SetCurY(FTopLine);
  } else {
    const bool bVirtual = !NoVirtualSpace() || FColumnMode;
    const bool bCollapse = FSelectionMoveCaret && HasSelection() && !bExtend && dY == 0 && dx != 0;
    if (dx < 0 && dY == 0 && FCurX == 0 && !bCollapse) {
      const int previous = StepShownLines(FCurY, -1);
      if ((!bVirtual || FBackSpace) && previous != FCurY) {
        SetCurY(previous);
        SetCurX(lines.GetLineLength(previous));
      }
    } else if (bCollapse) {
      const TOrderedSelection sel = GetSelection();
      SetCurY(dx < 1 ? sel.StartY : sel.EndY);
      SetCurX(dx < 1 ? sel.StartX : sel.EndX);
    } else if (!bVirtual && dx > 0 && dY == 0 && FCurX >= lines.GetLineLength(FCurY)) {
      const int next = StepShownLines(FCurY, 1);
      if (next != FCurY) {
        SetCurY(next);
        SetCurX(0);
        SetLeftCol(0);
        Invalidate();
      }
    } else {
      if (dY != 0) SetCurY(StepShownLines(FCurY, dY));
      if (dY != 0 && !bVirtual) SetCurX(CharXYFromPos(FOldCurX, 0, false, lines.GetLineString(FCurY)).x);
      else if (dx != 0) SetCurX(FCurX + dx);
    }
  }
  ExtendOrClear(bExtend, false);
  if (dx != 0) FOldCurX = TextLength(FCurY, FCurX, false, false);
}

void TOrlCustomMemo::MovePage(int dP, TShiftState shift) {
  if (FCellSize.H <= 0 || dP == 0) return;
  const int page = std::max(VisibleRowMax(), 1);
  if (shift & ssCtrl) {
    const int target = dP < 0 ? FTopLine : StepShownLines(FTopLine, page - 1);
    MoveCursor(0, ShownRowsBetween(FCurY, target), TShiftState(shift & ~ssCtrl));
    return;
  }
  const bool bExtend = Extending(shift);
  const int last = InternalLines().Count() - 1;
  int target = StepShownLines(FCurY, dP * page);
  if (dP < 0 && FTopLine == 0) target = 0;
  if (dP > 0 && FTopLine >= GreatestTopLine()) target = last;
  // The view moves a page and the caret keeps its place on the screen.
  SetTopLine(StepShownLines(FTopLine, dP * page));
  SetCurY(target);
  if (bExtend) ExpandSelection(false, true, false, true);
  else ClearSelection(true);
}

void TOrlCustomMemo::GoHome(TShiftState shift, bool bHandleWrappedLines) {
  const bool bExtend = Extending(shift);
  if (shift & ssCtrl) {
    if (shift & ssShift) FOffsetScrollMode = osmNotAllow;
    FDocMapDrawType = dmrRepaint;
    SetCurY(0);
    if (!(FColumnMode && bExtend)) SetCurX(0);
    ExtendOrClear(bExtend, true);
    return;
  }
  TOrlMemoStrings& lines = InternalLines();
  if (bHandleWrappedLines && FWordWrap && FCurX == 0) SetCurY(GetWrapStartLine(FCurY));
  const std::u16string_view row = lines.GetLineString(FCurY);
  const int firstText = FirstNonBlank(row);
  const bool bToText = FHomeKeyToLineStart ? firstText >= 0 && firstText != FCurX : FCurX == 0 && firstText >= 0;
  if (bToText) {
    SetCurX(firstText);
  } else {
    SetCurX(0);
    SetLeftCol(0);
  }
  ExtendOrClear(bExtend, true);
}

void TOrlCustomMemo::GoEnd(TShiftState shift, bool bHandleWrappedLines) {
  const bool bExtend = Extending(shift);
  TOrlMemoStrings& lines = InternalLines();
  if (shift & ssCtrl) {
    SetCurY(lines.Count() - 1);
  } else if (bHandleWrappedLines && FWordWrap && FCurX == lines.GetLineLength(FCurY)) {
    int row = FCurY;
    while (row + 1 < lines.Count() && lines.IsLineWrapped(row + 1)) ++row;
    SetCurY(row);
  }
  SetCurX(lines.GetLineLength(FCurY));
  ExtendOrClear(bExtend, true);
}

} // namespace orl
