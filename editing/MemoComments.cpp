// Commenting and uncommenting rows or a selection with the marks of the
// style set: a line comment at the head of each row, or a block pair around
// the text.

#include <algorithm>

#include "editing/OrlMemo.h"
#include "editing/UndoRecords.h"
#include "syntax/OrlMemoStyles.h"

namespace orl {

namespace {

/// A line comment may list alternatives after "|"; the first is used.
std::u16string FirstAlternative(std::u16string_view marks) {
  return std::u16string(marks.substr(0, marks.find(u'|')));
}

bool IsCss(const TOrlCustomMemoStyles& styles) {
  return styles.ScriptType == scCSS || TOrlUniUtils::OrlWideLowercase(styles.FSyntaxName) == u"css";
}

} // namespace

bool TOrlCustomMemo::CommentMarks(std::u16string& start, std::u16string& end, bool& bWholeRows) {
  if (!FStyles) return false;
  const TOrlCustomMemoStyles& styles = *FStyles;
  bWholeRows = styles.ScriptType == scHtml || FXML;
  const std::u16string line = FirstAlternative(styles.FLineCommentA.empty() ? styles.FLineCommentB : styles.FLineCommentA);
  if (bWholeRows || IsCss(styles) || line.empty()) {
    start = styles.FCommentStartA;
    end = styles.FCommentEndA;
  } else {
    start = line;
    end.clear();
  }
  return !start.empty();
}

bool TOrlCustomMemo::CanUseBlockComment() const {
  return FStyles && !FStyles->FCommentStartA.empty() && !FStyles->FCommentEndA.empty();
}

TOrderedSelection TOrlCustomMemo::CommentRange() {
  if (HasSelection()) return GetSelection();
  const std::u16string_view row = InternalLines().GetLineString(FCurY);
  const size_t first = row.find_first_not_of(u" \t");
  const size_t last = row.find_last_not_of(u" \t");
  if (first == std::u16string_view::npos) return {FCurX, FCurY, FCurX, FCurY};
  return {int(first), FCurY, int(last) + 1, FCurY};
}

void TOrlCustomMemo::ToggleCommentBlock() {
  std::u16string start, end;
  bool bWholeRows = false;
  if (FReadOnly || !CommentMarks(start, end, bWholeRows)) return;
  TOrlMemoStrings& lines = InternalLines();
  if (bWholeRows) {
    const TBlockRows block = SelectedBlockRows();
    const std::u16string_view first = lines.GetLineString(block.First);
    const size_t text = std::min(first.find_first_not_of(u" \t"), first.size());
    SetSelectionSilent(int(text), block.First, lines.GetLineLength(block.Last), block.Last);
  }
  bool bMarked = false;
  if (end.empty()) {
    bMarked = lines.GetLineString(SelectedBlockRows().First).starts_with(start);
  } else {
    const TOrderedSelection range = CommentRange();
    bMarked = lines.GetLineString(range.StartY).substr(std::min<size_t>(size_t(range.StartX), lines.GetLineString(range.StartY).size())).starts_with(start);
  }
  if (bMarked) UnCommentBlock(start, end);
  else CommentBlock(start, end);
}

void TOrlCustomMemo::CommentBlock(std::u16string_view Value, std::u16string_view value2) {
  if (FReadOnly || FSyncEdit || Value.empty()) return;
  TOrlMemoStrings& lines = InternalLines();
  auto record = std::make_unique<TBlockCommentUndo>();
  record->FStartString = Value;
  record->FEndString = value2;
  // A block pair keeps where it went; line comments keep the caret and the rows.
  int x0 = FCurX, y0 = FCurY;
  const bool bSelection = HasSelection();
  int firstRow = FCurY, lastRow = FCurY;
  if (value2.empty() && bSelection) {
    const TBlockRows block = SelectedBlockRows();
    firstRow = block.First;
    lastRow = block.Last;
    std::vector<int> shifts;
    for (int line = block.First; line <= block.Last; ++line) {
      const bool bTakesPart = !lines.ReadLineAttribute(line).Wrapped();
      shifts.push_back(bTakesPart ? int(Value.size()) : 0);
      if (!bTakesPart) continue;
      lines.InsertAt(line, Value, 1);
      ChangeLineHistory(line);
    }
    ShiftSelectionColumns(shifts, block.First, false);
  } else if (value2.empty()) {
    lines.InsertAt(FCurY, Value, 1);
    ChangeLineHistory(FCurY);
    SetCursor(FCurX + int(Value.size()), FCurY, false);
    MoveCursor(0, 1, 0);
  } else {
    const TOrderedSelection range = CommentRange();
    firstRow = range.StartY;
    lastRow = range.EndY;
    x0 = range.StartX;
    y0 = range.StartY;
    // The end goes in first, so that the start's place still holds.
    lines.InsertAt(range.EndY, value2, range.EndX + 1);
    lines.InsertAt(range.StartY, Value, range.StartX + 1);
    const int endX = range.EndX + int(value2.size()) + (range.EndY == range.StartY ? int(Value.size()) : 0);
    ChangeLineHistory(range.StartY);
    if (range.EndY != range.StartY) ChangeLineHistory(range.EndY);
    SetCursor(endX, range.EndY, false);
    if (bSelection) SetSelectionSilent(range.StartX, range.StartY, endX, range.EndY);
  }
  AddBlockUndo(std::move(record), x0, y0, firstRow, lastRow, u"");
}

void TOrlCustomMemo::UnCommentBlock(std::u16string_view Value, std::u16string_view value2) {
  if (FReadOnly || FSyncEdit || Value.empty()) return;
  TOrlMemoStrings& lines = InternalLines();
  auto record = std::make_unique<TBlockUnCommentUndo>();
  record->FStartString = Value;
  record->FEndString = value2;
  const int x0 = FCurX, y0 = FCurY;
  int firstRow = FCurY, lastRow = FCurY;
  if (value2.empty()) {
    const TBlockRows block = SelectedBlockRows();
    firstRow = block.First;
    lastRow = block.Last;
    std::vector<int> shifts;
    for (int line = block.First; line <= block.Last; ++line) {
      const bool bMarked = lines.GetLineString(line).starts_with(Value);
      shifts.push_back(bMarked ? -int(Value.size()) : 0);
      if (!bMarked) continue;
      lines.DeleteAt(line, 1, int(Value.size()));
      record->FLines.push_back(line);
      ChangeLineHistory(line);
    }
    if (record->FLines.empty()) return;
    ShiftSelectionColumns(shifts, block.First, false);
  } else {
    const TOrderedSelection range = CommentRange();
    const std::u16string text =
        lines.GetText(range.StartY, range.EndY, range.StartX + 1, range.EndX, FBinaryMode, true, false);
    if (text.size() < Value.size() + value2.size() || !text.starts_with(Value) || !text.ends_with(value2)) return;
    firstRow = range.StartY;
    lastRow = range.EndY;
    lines.DeleteAt(range.EndY, range.EndX - int(value2.size()) + 1, int(value2.size()));
    lines.DeleteAt(range.StartY, range.StartX + 1, int(Value.size()));
    const int endX = range.EndX - int(value2.size()) - (range.EndY == range.StartY ? int(Value.size()) : 0);
    record->FStartX = range.StartX;
    record->FStartY = range.StartY;
    record->FEndX = endX;
    record->FEndY = range.EndY;
    ChangeLineHistory(range.StartY);
    if (range.EndY != range.StartY) ChangeLineHistory(range.EndY);
    const bool bSelection = HasSelection();
    SetCursor(endX, range.EndY, false);
    if (bSelection) SetSelectionSilent(range.StartX, range.StartY, endX, range.EndY);
  }
  AddBlockUndo(std::move(record), x0, y0, firstRow, lastRow, u"");
}

} // namespace orl
