// Deleting: a selection, the character or cluster at the caret (Delete) or
// before it (Backspace), the join of two rows, and the smart backspace that
// goes back one indentation level.

#include <algorithm>

#include "editing/OrlMemo.h"
#include "editing/UndoRecords.h"

namespace orl {

namespace {

bool IsBlankOrTab(char16_t ch) { return ch == u' ' || ch == u'\t'; }

// Far enough for any indentation a user scrolls through, and a bound for the walk.
constexpr int kIndentSearchRows = 10000;

} // namespace

void TOrlCustomMemo::DeleteSelection(bool bRepaint, bool bUndo, bool bSilent, bool bMultiDelete) {
  if (FReadOnly || FSyncEdit || !HasSelection()) return;
  TOrlMemoStrings& lines = InternalLines();
  const TOrderedSelection s = GetSelection();
  if (s.StartY < 0 || s.EndY >= lines.Count() || s.StartX < 0 || s.EndX < 0) {
    SetSelectionSilent(0, 0, 0, 0);
    return;
  }
  if (s.StartY == s.EndY && s.StartX >= lines.GetLineLength(s.StartY)) {
    // Only virtual space is selected: there is nothing to take.
    SetTextCursorValues(s.StartX, s.StartY);
    ClearSelection(bRepaint);
    return;
  }
  // The row left behind inherits the first bookmark of the range and any line mark.
  int bookmark = -1;
  bool bLinemark = false;
  for (int line = s.StartY; line <= s.EndY; ++line) {
    const TTextAttribute& row = lines.ReadLineAttribute(line);
    if (bookmark < 0) bookmark = row.Bookmark;
    bLinemark = bLinemark || row.Linemark();
  }
  const bool bWasHalted = SuspendThread(true);
  if (bUndo) {
    auto record = std::make_unique<TDeleteBufUndo>();
    record->FUnicodeText = SelectedText();
    record->SetSelection(*this, FSelStartX, FSelStartY, FSelEndX, FSelEndY);
    FillUndo(*record, FCurX, FCurY, s.StartX, s.StartY, u"");
    AddUndo(std::move(record));
  }
  const std::u16string_view first = lines.GetLineString(s.StartY);
  std::u16string head(first.substr(0, std::min<size_t>(size_t(s.StartX), first.size())));
  if (s.EndY > s.StartY && size_t(s.StartX) > head.size()) head.append(size_t(s.StartX) - head.size(), u' ');
  const std::u16string_view last = lines.GetLineString(s.EndY);
  head += last.substr(std::min<size_t>(size_t(s.EndX), last.size()));
  lines.Put(s.StartY, head);
  if (!bSilent || bMultiDelete) SetTextCursorValues(s.StartX, s.StartY);
  ClearSelection(false);
  if (s.EndY > s.StartY) lines.DeleteLinesSilent(s.StartY + 1, s.EndY, false);
  ChangeLineHistory(s.StartY);
  if (!bMultiDelete) NotifySelectionChange();
  if (s.EndY > s.StartY) {
    TTextAttribute& row = *lines.GetLineAttribute(s.StartY);
    row.Bookmark = int8_t(bookmark);
    row.SetLinemark(bLinemark);
  }
  if (!bWasHalted) SuspendThread(false);
  ClearLineStylesFrom(s.StartY - 1);
  if (bRepaint) {
    FUpdate = true;
    if (s.EndY > s.StartY) InvalidateLines(s.StartY, std::max(LastVisibleLine(), s.StartY));
    else InvalidateLine(s.StartY);
  }
  FOldCurX = TextLength(FCurY, FCurX, false, false);
  LinesChanged(bRepaint, false, true);
  if (Hooks.RecordMacro) Hooks.RecordMacro(39, 0);
}

void TOrlCustomMemo::DeleteInRow(int line, int x, int count, int x0, int y0, bool bBackspace) {
  TOrlMemoStrings& lines = InternalLines();
  auto record = std::make_unique<TDeleteCharUndo>();
  record->FIsBackspace = bBackspace;
  std::u16string text(lines.GetLineString(line).substr(size_t(x), size_t(count)));
  lines.DeleteAt(line, x + 1, count);
  RowEdited(line);
  ClearLineStylesFrom(line);
  FillUndo(*record, x0, y0, x, line, std::move(text));
  AddUndo(std::move(record));
}

void TOrlCustomMemo::JoinWithNextRow(int line, int x, int x0, int y0, bool bBackspace) {
  TOrlMemoStrings& lines = InternalLines();
  const bool bWasHalted = SuspendThread(true);
  const int length = lines.GetLineLength(line);
  if (x > length && !WrapOn()) lines.InsertAt(line, std::u16string(size_t(x - length), u' '), length + 1);
  if (lines.GetLineLength(line) == 0) {
    // An empty row gives way to the next one, which keeps its own marks and
    // state; the line end before this row and its bookmark stay.
    const TTextAttribute& gone = lines.ReadLineAttribute(line);
    const int8_t bookmark = gone.Bookmark;
    const bool bCR = gone.LinefeedCR(), bLF = gone.LinefeedLF(), bLinemark = gone.Linemark();
    lines.DeleteSilent(line, false);
    TTextAttribute& row = *lines.GetLineAttribute(line);
    if (bookmark >= 0) row.Bookmark = bookmark;
    if (bLinemark) row.SetLinemark(true);
    row.SetLinefeedCR(bCR);
    row.SetLinefeedLF(bLF);
  } else {
    const int8_t nextBookmark = lines.ReadLineAttribute(line + 1).Bookmark;
    lines.CopyLineTo(line + 1, line);
    lines.DeleteSilent(line + 1, false);
    TTextAttribute& row = *lines.GetLineAttribute(line);
    if (row.Bookmark < 0) row.Bookmark = nextBookmark;
  }
  ChangeLineHistory(line);
  ClearLineStylesFrom(line);
  auto record = std::make_unique<TDeleteCharUndo>();
  record->FIsBackspace = bBackspace;
  FillUndo(*record, x0, y0, x, line, u"\r");
  AddUndo(std::move(record));
  if (!bWasHalted) SuspendThread(false);
  InvalidateLines(line, std::max(LastVisibleLine(), line));
  LinesChanged(true, false, true);
}

void TOrlCustomMemo::DeleteChar(int OldX, int OldY) {
  if (FReadOnly || FSyncEdit) return;
  TOrlMemoStrings& lines = InternalLines();
  if (FCurY < 0 || FCurY >= lines.Count()) return;
  const bool bBackspace = OldX >= 0 && OldY >= 0;
  const int x0 = bBackspace ? OldX : FCurX, y0 = bBackspace ? OldY : FCurY;
  ClearSelection(true);
  const int length = lines.GetLineLength(FCurY);
  if (FCurX < length) {
    const int stop = std::max(ClusterStop(FCurY, FCurX, FCurX + 1), FCurX + 1);
    DeleteInRow(FCurY, FCurX, std::min(stop, length) - FCurX, x0, y0, bBackspace);
    return;
  }
  if (FCurY + 1 >= lines.Count()) return;  // the text's end: nothing to join
  JoinWithNextRow(FCurY, FCurX, x0, y0, bBackspace);
}

int TOrlCustomMemo::PreviousIndentation(int line, int vx) {
  TOrlMemoStrings& lines = InternalLines();
  for (int row = line, walked = 0; row >= 0 && walked < kIndentSearchRows; --row, ++walked) {
    const std::u16string visual = StringToVisual(lines.GetLineString(row));
    const size_t firstText = visual.find_first_not_of(u' ');
    // Rows blank up to the caret's column say nothing about a lesser indentation.
    if (firstText == std::u16string::npos || int(firstText) >= vx) continue;
    return ToRealCursorPos(FCurY, int(firstText));
  }
  return 0;
}

bool TOrlCustomMemo::SmartBackspace() {
  if (!FSmartBackspace || FWordWrap || FCurX == 0 || HasSelection()) return false;
  const std::u16string_view row = InternalLines().GetLineString(FCurY);
  if (size_t(FCurX) > row.size()) return false;
  for (int i = 0; i < FCurX; ++i)
    if (!IsBlankOrTab(row[size_t(i)])) return false;
  if (size_t(FCurX) < row.size() && IsBlankOrTab(row[size_t(FCurX)])) return false;
  const int vx = FromRealCursorPos(FCurY, FCurX);
  const int target = PreviousIndentation(FCurY - 1, vx);
  if (FromRealCursorPos(FCurY, target) >= vx) return false;
  SetSelectionSilent(target, FCurY, FCurX, FCurY);
  DeleteSelection(false, true, false, false);
  InvalidateLine(FCurY);
  return true;
}

void TOrlCustomMemo::Backspace() {
  if (FReadOnly || FSyncEdit) return;
  if (SmartBackspace()) return;
  TOrlMemoStrings& lines = InternalLines();
  const int oldX = FCurX, oldY = FCurY;
  FBackSpace = true;
  FHideCaret = true;
  FMoveCaretXY = true;
  MoveCursor(-1, 0, 0);
  FMoveCaretXY = false;
  FBackSpace = false;
  FHideCaret = false;
  // In virtual space Backspace only moves: there is no character to take.
  const bool bMoved = FCurX != oldX || FCurY != oldY;
  if (bMoved && oldX <= lines.GetLineLength(oldY)) {
    if (FCurY == oldY) DeleteInRow(FCurY, FCurX, oldX - FCurX, oldX, oldY, true);
    else DeleteChar(oldX, oldY);
  }
  ClearSelection(false);
  ScrollToCaret(true, true);
  PlaceCaret(true);
}

} // namespace orl
