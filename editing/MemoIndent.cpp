// Indenting and unindenting: a selected block of rows by one step, and
// Shift+Tab at the caret.

#include <algorithm>

#include "editing/OrlMemo.h"
#include "editing/UndoRecords.h"

namespace orl {

namespace {

bool IsIndentBlank(char16_t ch) { return ch == u' ' || ch == u'\u00A0'; }

int LeadingBlanks(std::u16string_view row, size_t limit) {
  size_t n = 0;
  while (n < row.size() && n < limit && IsIndentBlank(row[n])) ++n;
  return int(n);
}

} // namespace

TOrlCustomMemo::TBlockRows TOrlCustomMemo::SelectedBlockRows() {
  TBlockRows block;
  const TOrderedSelection s = HasSelection() ? GetSelection() : TOrderedSelection{FCurX, FCurY, FCurX, FCurY};
  block.First = s.StartY;
  block.Last = s.EndX == 0 && s.EndY > s.StartY ? s.EndY - 1 : s.EndY;
  return block;
}

bool TOrlCustomMemo::BlockRowTakesPart(int line) {
  const TTextAttribute& row = InternalLines().ReadLineAttribute(line);
  if (FTextDiffMode && !row.Enabled) return false;
  return !row.Wrapped() && InternalLines().GetLineLength(line) > 0;
}

void TOrlCustomMemo::ShiftSelectionColumns(const std::vector<int>& shifts, int firstRow, bool bFullLines) {
  auto shifted = [&](int x, int y) {
    const int index = y - firstRow;
    if (index < 0 || index >= int(shifts.size()) || x == 0) return x;
    return std::max(x + shifts[size_t(index)], 0);
  };
  const bool bStartFirst = FSelStartY < FSelEndY || (FSelStartY == FSelEndY && FSelStartX <= FSelEndX);
  int startX = shifted(FSelStartX, FSelStartY), endX = shifted(FSelEndX, FSelEndY);
  if (bFullLines) (bStartFirst ? startX : endX) = 0;
  const int startY = FSelStartY, endY = FSelEndY;
  const bool bSavedDoNotScroll = FDoNotScroll;
  FDoNotScroll = true;
  SetCursor(shifted(FCurX, FCurY), FCurY, false);
  FDoNotScroll = bSavedDoNotScroll;
  if (startX != endX || startY != endY) SetSelectionSilent(startX, startY, endX, endY);
  FOldCurX = TextLength(FCurY, FCurX, false, false);
}

void TOrlCustomMemo::IndentSelectedBlock(bool bFullLines) {
  if (FReadOnly || FSyncEdit) return;
  TOrlMemoStrings& lines = InternalLines();
  const TBlockRows block = SelectedBlockRows();
  const std::u16string firstRow = StringToVisual(lines.GetLineString(block.First));
  const int tabSize = std::max(FTabSize, 1);
  const int blanks = LeadingBlanks(firstRow, firstRow.size());
  const int step = firstRow.empty() ? tabSize : tabSize - blanks % tabSize;
  const std::u16string indent = FTabAsSpaces ? std::u16string(size_t(step), u' ') : u"\t";
  const bool bWasHalted = SuspendThread(true);
  std::vector<int> shifts;
  for (int line = block.First; line <= block.Last; ++line) {
    const bool bTakesPart = BlockRowTakesPart(line);
    shifts.push_back(bTakesPart ? int(indent.size()) : 0);
    if (!bTakesPart) continue;
    lines.InsertAt(line, indent, 1);
    RaiseMaxLength(lines.GetLineLength(line));
    ChangeLineHistory(line);
  }
  if (!bWasHalted) SuspendThread(false);
  const int x0 = FCurX, y0 = FCurY;
  ShiftSelectionColumns(shifts, block.First, bFullLines);
  const std::string count = std::to_string(step);
  AddBlockUndo(std::make_unique<TBlockIndentUndo>(), x0, y0, block.First, block.Last,
               FTabAsSpaces ? std::u16string(count.begin(), count.end()) : u"$");
}

void TOrlCustomMemo::AddBlockUndo(std::unique_ptr<TUndo> record, int x0, int y0, int firstRow, int lastRow,
                                  std::u16string text) {
  FillUndo(*record, x0, y0, FCurX, FCurY, std::move(text));
  record->FUndoPos0 = firstRow;
  record->FUndoPos = lastRow;
  AddUndo(std::move(record));
  ClearLineStylesFrom(firstRow);
  Invalidate();
}

void TOrlCustomMemo::UnIndentSelectedBlock(bool bFullLines) {
  if (FReadOnly || FSyncEdit) return;
  TOrlMemoStrings& lines = InternalLines();
  const TBlockRows block = SelectedBlockRows();
  const int tabSize = std::max(FTabSize, 1);
  const std::u16string_view firstRow = lines.GetLineString(block.First);
  const int blanks = LeadingBlanks(firstRow, firstRow.size());
  const int step = blanks % tabSize == 0 ? tabSize : blanks % tabSize;
  const bool bWasHalted = SuspendThread(true);
  auto record = std::make_unique<TBlockUnIndentUndo>();
  std::vector<int> shifts;
  for (int line = block.First; line <= block.Last; ++line) {
    const std::u16string_view row = lines.GetLineString(line);
    int removed = BlockRowTakesPart(line) ? LeadingBlanks(row, size_t(step)) : 0;
    const bool bTab = removed == 0 && BlockRowTakesPart(line) && row.front() == u'\t';
    if (bTab) removed = 1;
    record->FRemoved.push_back(bTab ? TBlockUnIndentUndo::kTab : removed);
    shifts.push_back(-removed);
    if (removed == 0) continue;
    lines.DeleteAt(line, 1, removed);
    ChangeLineHistory(line);
  }
  if (!bWasHalted) SuspendThread(false);
  const int x0 = FCurX, y0 = FCurY;
  ShiftSelectionColumns(shifts, block.First, bFullLines);
  AddBlockUndo(std::move(record), x0, y0, block.First, block.Last, u"");
}

void TOrlCustomMemo::UnIndentFromCursor() {
  if (FReadOnly || FSyncEdit || FCurX == 0) return;
  const std::u16string_view row = InternalLines().GetLineString(FCurY);
  const int limit = TextLength(FCurY, FCurX, false, false) - std::max(FTabSize, 1) * FCellSize.W;
  int x = FCurX;
  // Virtual space counts as blanks.
  auto blankBefore = [&](int at) { return size_t(at) > row.size() || row[size_t(at - 1)] == u' ' || row[size_t(at - 1)] == u'\t'; };
  while (x > 0 && blankBefore(x) && TextLength(FCurY, x, false, false) > limit) --x;
  if (x == FCurX) return;
  SetSelectionSilent(x, FCurY, FCurX, FCurY);
  DeleteSelection(true, true, false, false);
}

} // namespace orl
