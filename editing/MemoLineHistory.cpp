// The history marks of edited lines (the gutter's change bar) and the memo's
// part in saving.

#include "editing/OrlMemo.h"
#include "textstore/LineHistory.h"

namespace orl {

void TOrlCustomMemo::ChangeLineHistory(int line) {
  TOrlMemoStrings& lines = InternalLines();
  if (line < 0 || line >= lines.Count()) return;
  NoteTextEdited();
  lines.GetLineAttribute(line)->RequestSpellCheck();
  const int head = WrapOn() ? GetWrapStartLine(line) : line;
  const THistoryStep step = FChangeHistoryUndo ? hsUndo : FChangeHistoryRedo ? hsRedo : hsEdit;
  orl::ChangeLineHistory(*lines.GetLineAttribute(head), step);
  InvalidateLine(line);
}

void TOrlCustomMemo::Saved() {
  TOrlMemoStrings& lines = InternalLines();
  for (int i = 0; i < lines.Count(); ++i)
    if (lines.ReadLineAttribute(i).Changed()) MarkLineSaved(*lines.GetLineAttribute(i));
  InternalUndoList().MarkSaved();
  FModifiedAndSaved = true;
  Invalidate();
}

void TOrlMemo::ClearUndoRedoAndLineHistory() {
  InternalUndoList().Clear();
  TOrlMemoStrings& lines = InternalLines();
  for (int i = 0; i < lines.Count(); ++i) {
    const TTextAttribute& row = lines.ReadLineAttribute(i);
    if (row.Changed() || row.ChangeSaved() || row.ChangeHistory != 0) ClearLineHistory(*lines.GetLineAttribute(i));
  }
  Invalidate();
}

} // namespace orl
