// The memo's side of undo: the commands, what they may do, the host's
// notice of a change, and the modified state that edits leave behind.

#include "editing/OrlMemo.h"

namespace orl {

void TOrlCustomMemo::Undo() {
  if (!CanUndo()) return;
  InternalUndoList().Undo();
}

void TOrlCustomMemo::Redo() {
  if (!CanRedo()) return;
  InternalUndoList().Redo();
}

bool TOrlCustomMemo::CanUndo() { return !FClosing && !FReadOnly && InternalUndoList().CanUndo(); }

bool TOrlCustomMemo::CanRedo() { return !FClosing && !FReadOnly && InternalUndoList().CanRedo(); }

void TOrlCustomMemo::ClearUndoList() { InternalUndoList().Clear(); }

void TOrlCustomMemo::UndoChange() {
  // The host's buttons follow the list itself: a read-only memo still shows what it holds.
  if (!OnUndoChange) return;
  const TOrlUndoList& list = InternalUndoList();
  OnUndoChange(list.CanUndo(), list.CanRedo());
}

void TOrlCustomMemo::NoteTextEdited() {
  if (FSplitSlave && FSplitMemo) return FSplitMemo->NoteTextEdited();
  FNewAtStartup = false;
  InternalUndoList().NoteEdit();
}

void TOrlMemo::RevertTo(int n) {
  TOrlUndoList& list = InternalUndoList();
  if (n < 0 || n > list.Count() || n == list.Pos()) return;
  BeginUpdate();
  try {
    // Each step moves the position by at least one, so the walk ends.
    while (list.Pos() < n && list.CanUndo()) list.Undo();
    while (list.Pos() > n && list.CanRedo()) list.Redo();
  } catch (...) {
    EndUpdate();
    throw;
  }
  EndUpdate();
}

} // namespace orl
