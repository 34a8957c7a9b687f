// Commands on whole rows: duplicate, delete, insert, and the trailing blanks
// of a row the caret leaves.

#include <algorithm>

#include "editing/OrlMemo.h"
#include "editing/UndoRecords.h"

namespace orl {

namespace {

/// A closed fold starts on the row: a row command would act on the hidden rows too.
bool IsClosedFoldHead(const TTextAttribute& row) {
  return (row.NodeHead() && row.NodeClosed()) || (row.Rgn_Begin() && row.Rgn_Closed()) ||
         (row.SelNodeHead() && row.SelNodeClosed());
}

} // namespace

bool TOrlCustomMemo::HasFillerRow(int first, int last) {
  if (!FTextDiffMode) return false;
  for (int line = first; line <= last; ++line)
    if (!InternalLines().ReadLineAttribute(line).Enabled) return true;
  return false;
}

std::u16string TOrlCustomMemo::RowsText(int first, int last) {
  TOrlMemoStrings& lines = InternalLines();
  return lines.GetText(first, last, 1, lines.GetLineLength(last), FBinaryMode, true, false);
}

void TOrlCustomMemo::DuplicateCurrentLine() {
  if (FReadOnly || FSyncEdit) return;
  TOrlMemoStrings& lines = InternalLines();
  if (FCurY < 0 || FCurY >= lines.Count() || IsClosedFoldHead(lines.ReadLineAttribute(FCurY))) return;
  if (Hooks.RecordMacro) Hooks.RecordMacro(9, 0);
  if (!HasSelection()) {
    InsertLine(FCurY + 1, lines.GetLineString(FCurY));
    return;
  }
  const TOrderedSelection s = GetSelection();
  const bool bEndsAtRowStart = s.EndX == 0 && s.EndY > s.StartY;
  const int last = bEndsAtRowStart ? s.EndY - 1 : s.EndY;
  if (HasFillerRow(s.StartY, last)) return;
  const std::u16string rows = RowsText(s.StartY, last);
  if (bEndsAtRowStart) {
    SetCursor(0, s.EndY, false);
    ReplaceSelectionText(rows + u"\r\n", false, true, false, false, false);
  } else {
    SetCursor(lines.GetLineLength(last), last, false);
    ReplaceSelectionText(u"\r\n" + rows, false, false, false, false, false);
    SetSelection2(0, last + 1, FCurX, FCurY, true);
  }
}

void TOrlCustomMemo::DeleteCurrentLine() {
  if (FReadOnly || FSyncEdit) return;
  TOrlMemoStrings& lines = InternalLines();
  if (FCurY < 0 || FCurY >= lines.Count()) return;
  const TTextAttribute& row = lines.ReadLineAttribute(FCurY);
  if (IsClosedFoldHead(row) || (FTextDiffMode && !row.Enabled)) return;
  if (Hooks.RecordMacro) Hooks.RecordMacro(10, 0);
  DeleteLine(-1);
}

void TOrlCustomMemo::DeleteLine(int index) {
  if (FReadOnly || FSyncEdit) return;
  TOrlMemoStrings& lines = InternalLines();
  if (lines.Count() == 0 || index >= lines.Count()) return;
  int first = index, last = index;
  if (index < 0 && HasSelection()) {
    const TOrderedSelection s = GetSelection();
    first = s.StartY;
    last = s.EndX == 0 && s.EndY > s.StartY ? s.EndY - 1 : s.EndY;
  } else if (index < 0) {
    first = last = FCurY;
    FCurX = 0;
  }
  first = GetWrapStartLine(first);
  if (HasFillerRow(first, last)) return;
  const bool bWasHalted = SuspendThread(true);
  auto record = std::make_unique<TDeleteLineUndo>();
  record->SetSelection(*this, FSelStartX, FSelStartY, FSelEndX, FSelEndY);
  // The rows go back in at UndoCurY0.
  FillUndo(*record, 0, first, 0, first, RowsText(first, last));
  AddUndo(std::move(record));
  const bool bAllRows = first == 0 && last == lines.Count() - 1;
  // The store keeps one row: deleting every row empties the first instead.
  lines.DeleteLinesSilent(bAllRows ? first + 1 : first, last, false);
  if (bAllRows) lines.Put(0, u"");
  FCurY = std::min(first, lines.Count() - 1);
  ClearSelection(false);
  ChangeLineHistory(FCurY);
  ClearLineStylesFrom(FCurY);
  if (!bWasHalted) SuspendThread(false);
  if (FNoUpdate) return;
  InvalidateLines(FCurY, std::max(LastVisibleLine(), FCurY));
  LinesChanged(true, false, true);
}

void TOrlCustomMemo::InsertLine(int line, std::u16string_view Text) {
  if (FReadOnly || FSyncEdit) return;
  TOrlMemoStrings& lines = InternalLines();
  line = std::clamp(line, 0, lines.Count());
  // One row: a line end in the text would hide inside it.
  Text = Text.substr(0, Text.find_first_of(u"\r\n"));
  const bool bWasHalted = SuspendThread(true);
  lines.InsertSilent(line, Text);
  RaiseMaxLength(int(Text.size()));
  ClearSelection(true);
  auto record = std::make_unique<TInsertLineUndo>();
  FillUndo(*record, FCurX, FCurY, FCurX, line, std::u16string(Text));
  AddUndo(std::move(record));
  ChangeLineHistory(line);
  ClearLineStylesFrom(line);
  if (!bWasHalted) SuspendThread(false);
  InvalidateLines(line, std::max(LastVisibleLine(), line));
  LinesChanged(true, false, true);
}

void TOrlCustomMemo::RemoveTrailing(int line) {
  TOrlMemoStrings& lines = InternalLines();
  if (FReadOnly || line < 0 || line >= lines.Count()) return;
  const TTextAttribute& row = lines.ReadLineAttribute(line);
  // Only a row edited since the last save: the user's own blanks stay.
  if (!row.Changed() || row.ChangeSaved()) return;
  const std::u16string_view text = lines.GetLineString(line);
  if (text.empty() || (text.back() != u' ' && text.back() != u'\t')) return;
  const int length = int(text.size());
  std::u16string cut = lines.RemoveTrailingBlanks(line, false);
  if (cut.empty()) return;
  auto record = std::make_unique<TRemoveTrailingUndo>();
  const int kept = length - int(cut.size());
  FillUndo(*record, length, line, kept, line, std::move(cut));
  AddUndo(std::move(record));
  RowEdited(line);
}

} // namespace orl
