// The caret's fields and the character classes that caret motion and word
// selection rest on.

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
  const bool bWrapLike = FWordWrap || FForceWrap || FNotepadCursor;
  if (!bWrapLike && Value == FCurX) return;
  Value = std::max(Value, 0);
  const int length = InternalLines().GetLineLength(FCurY);
  if (Value < length) Value = ClusterStop(FCurY, FCurX, Value);
  if (bWrapLike && !FColumnMode) Value = std::min(Value, length);
  FCurX = Value;
  FOldCurX = TextLength(FCurY, FCurX, false, false);
  if (OnStatusChange) OnStatusChange();
  if (!HasSelection() && OnCursorChange) OnCursorChange();
}

void TOrlCustomMemo::SetCurY(int Value) {
  TOrlMemoStrings& lines = InternalLines();
  if (lines.Count() == 0) lines.DoAdd(u"");
  if (FCellSize.H <= 0) FontChanged();
  const int visualColumn = FromRealCursorPos(FCurY, FCurX);
  FPreviousCurY = FCurY;
  int row = std::clamp(Value, 0, lines.Count() - 1);
  while (row > 0 && lines.GetHiddenLine(row)) --row;
  FCurY = row;
  if (!FMoveCaretXY) SetCurX(ToRealCursorPos(row, visualColumn));
}

void TOrlCustomMemo::ClearSelection(bool bCaretToo) {
  const bool bHad = HasSelection();
  if (bCaretToo) {
    FSelStartX = FSelEndX = FCurX;
    FSelStartY = FSelEndY = FCurY;
  } else {
    FSelStartX = FSelEndX;
    FSelStartY = FSelEndY;
  }
  if (bHad && OnSelectionChange) OnSelectionChange(false);
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
