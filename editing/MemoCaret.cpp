// The caret: its two coordinates, how it is placed on the screen, the rows
// its moves repaint, focus, and the character classes that caret motion and
// word selection rest on.

#include <unicode/ubrk.h>
#include <unicode/uchar.h>

#include <algorithm>
#include <memory>

#include "editing/OrlMemo.h"

namespace orl {
namespace {

struct TBreakCloser {
  void operator()(UBreakIterator* it) const { ubrk_close(it); }
};

/// The user-perceived character boundary nearest to `to` in the direction of the move.
int CharacterStop(std::u16string_view row, int from, int to) {
  UErrorCode status = U_ZERO_ERROR;
  std::unique_ptr<UBreakIterator, TBreakCloser> breaks(
      ubrk_open(UBRK_CHARACTER, "", reinterpret_cast<const UChar*>(row.data()), int32_t(row.size()), &status));
  if (U_FAILURE(status) || ubrk_isBoundary(breaks.get(), to)) return to;
  // Asked from inside a surrogate pair, the iterator counts from the pair's
  // start: take the stop behind and step back from there.
  const int next = ubrk_following(breaks.get(), to);
  if (next == UBRK_DONE) return to;
  if (to > from) return next;
  const int previous = ubrk_preceding(breaks.get(), next);
  return previous == UBRK_DONE ? to : previous;
}

} // namespace

int TOrlCustomMemo::ClusterStop(int line, int from, int to) {
  const std::u16string_view row = InternalLines().GetLineString(line);
  if (to == from || to <= 0 || size_t(to) >= row.size()) return to;
  const size_t lo = size_t(std::clamp(std::min(from, to), 0, int(row.size())));
  const size_t hi = size_t(std::clamp(std::max(from, to) + 1, 0, int(row.size())));
  // Plain text between the two positions needs no break analysis.
  if (RowIsPlainAnsi(row.substr(lo, hi - lo))) return to;
  return CharacterStop(row, from, to);
}

void TOrlCustomMemo::SetCurX(int Value) {
  if (!NoVirtualSpace() && Value == FCurX) return;
  Value = std::max(Value, 0);
  const int length = InternalLines().GetLineLength(FCurY);
  if (Value < length) Value = ClusterStop(FCurY, FCurX, Value);
  if (NoVirtualSpace() && !FColumnMode) Value = std::min(Value, length);
  // Virtual space ends where force wrap would begin, so holding Right cannot
  // grow the scroll range without bound.
  FCurX = std::min(Value, std::max(length, FForcewrapLength));
  const int oldLeftCol = FLeftCol;
  if (!FSelectionDrag) ScrollToCaret(true, !FDoNotScroll && !FMoveCaretXY);
  if (OnStatusChange) OnStatusChange();
  if (FHighlightBraces && !HasSelection() && FLeftCol == oldLeftCol) UpdateLineAndBraces(FCurY, FCurY, false);
  if (!FMoveCaretXY) PlaceCaret(true);
  if (!HasSelection() && OnCursorChange) OnCursorChange();
}

void TOrlCustomMemo::SetCurY(int Value) {
  TOrlMemoStrings& lines = InternalLines();
  if (lines.Count() == 0) lines.DoAdd(u"");
  if (FCellSize.H <= 0) FontChanged();
  const int visualColumn = FromRealCursorPos(FCurY, FCurX);
  const int oldRow = FCurY;
  FPreviousCurY = FCurY;
  int row = std::clamp(Value, 0, lines.Count() - 1);
  if (row != oldRow && !NoVirtualSpace() && !FKeepTrailing) RemoveTrailing(oldRow);
  while (row > 0 && lines.GetHiddenLine(row)) --row;
  FCurY = row;
  // The view keeps FCaretScrollVDistance - 1 rows beyond the caret in the
  // direction it moves; the caret itself moves the rows it was asked to.
  const int margin = std::max(FCaretScrollVDistance - 1, 0);
  FScrollRefY = std::clamp(row + (FKeyDown ? margin : 0) - (FKeyUp ? margin : 0), 0, lines.Count() - 1);
  const bool bSavedDoNotScroll = FDoNotScroll;
  FDoNotScroll = true;  // the row scrolls below, once the column is known
  if (!FMoveCaretXY) SetCurX(ToRealCursorPos(row, visualColumn));
  FDoNotScroll = bSavedDoNotScroll;
  if (!HasSelection()) UpdateLineAndBraces(oldRow, row, false);
  if (!FDoNotScroll) ScrollToCaret(!FMoveCaretXY, true);
  FScrollRefY = -1;
  if (OnStatusChange) OnStatusChange();
  if (OnCursorChange) OnCursorChange();
  PlaceCaret(true);
}

void TOrlCustomMemo::SetCursor(int aCurX, int aCurY, bool bRefresh) {
  if (bRefresh) {
    SetCurY(aCurY);
    SetCurX(aCurX);
  } else {
    SetTextCursorValues(aCurX, aCurY);
  }
  ClearSelection(true);
}

void TOrlCustomMemo::SetTextCursor(int cx, int cy, bool bClearSelection) {
  FWindow->ShowCaret(false);
  FMoveCaretXY = true;
  SetCurY(cy);
  SetCurX(cx);
  FMoveCaretXY = false;
  if (bClearSelection) ClearSelection(true);
  PlaceCaret(true);
}

void TOrlCustomMemo::UpdateLineAndBraces(int oldLine, int newLine, bool bForce) {
  if (Hooks.FindMatchingBraces && FHighlightBraces) Hooks.FindMatchingBraces();
  if (oldLine == newLine && !bForce) {
    if (FHighlightLine) InvalidateLine(newLine);
    return;
  }
  InvalidateLine(oldLine);
  InvalidateLine(newLine);
}

void TOrlCustomMemo::CreateSystemCaret() {
  const bool bBlock = FOverwrite || (FCaretWidth < 0 && FMonospacedFont);
  const int width = bBlock ? FCellSize.W : std::max(FCaretWidth, 1);
  FWindow->CreateCaret(width, FCellSize.H);
  FCaretX = FCaretY = 65535;
  FCaretCreated = true;
}

void TOrlCustomMemo::PlaceCaret(bool bShow) {
  if (FClosing || !FCaretCreated || FCellSize.H <= 0) return;
  if (FMultiEditMode || FHexView) {
    FWindow->ShowCaret(false);
    return;
  }
  if (FNotepadCursor && !FColumnMode && FCurX > InternalLines().GetLineLength(FCurY)) {
    FCurX = InternalLines().GetLineLength(FCurY);
    if (OnCursorChange) OnCursorChange();
  }
  if (!bShow || !(FFocused || FAutoCompleteDot || FFileDrag) || FHideCaret) {
    FWindow->ShowCaret(false);
    return;
  }
  const TRect area = EditorRect(true, FCurY);
  const int left = area.Left + TextLength(FCurY, FCurX, false, false) - FLeftCol * FCellSize.W;
  const int row = GetRowFromLine(FCurY);
  const int top = area.Top + row * FCellSize.H;
  if (left < FGutterWidth || row < 0 || row >= VisibleRowMax()) {
    FWindow->ShowCaret(false);
    return;
  }
  const unsigned x = unsigned(std::max(left - (FCaretWidth > 1 ? 1 : 0), 0));
  const unsigned y = unsigned(std::max(top - 1, 0));
  if (x != FCaretX || y != FCaretY) FWindow->SetCaretPos(int(x), int(y));
  FCaretX = x;
  FCaretY = y;
  FWindow->ShowCaret(true);
}

void TOrlCustomMemo::FocusGained() {
  FHaltBkThread = false;
  FFileDrag = false;
  StopPanning();
  if (FCaretCreated) FWindow->DestroyCaret();
  DoEnter();
  FFocused = true;
  CreateSystemCaret();
  PlaceCaret(true);
}

void TOrlCustomMemo::FocusLost() {
  FHaltBkThread = true;
  FFocused = false;
  FWindow->DestroyCaret();
  FCaretCreated = false;
}

bool TOrlCustomMemo::IsSymbolBoundary(char16_t ch) const {
  if (ch == u' ' || ch == u'\t' || ch == u'\u00B7') return true;
  if (FStyles) return ch == u'\'' || FStyles->FSymbols.find(ch) != std::u16string::npos;
  return FCachedDelimiters.find(ch) != std::u16string::npos || FUserDelimiters.find(ch) != std::u16string::npos;
}

bool TOrlCustomMemo::CharIsWhiteSpace(char16_t ch, bool bIncludeTab) {
  if (ch == u'\t') return bIncludeTab;
  return u_isUWhiteSpace(ch);
}

} // namespace orl
