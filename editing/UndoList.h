#pragma once
// The undo history of one document: records newest first, walked by Undo
// and Redo. Typed characters merge into one record, group brackets make a
// macro run, a multi-caret edit or a script one step, and a save mark tells
// when the text is back in its saved state.
//
// Invariants: records [0, FPos) are undone and wait for Redo, record FPos is
// the next to undo; FBytes is the sum of the records' sizes as last
// measured; the count stays within FLimit, and the bytes within
// FByteBudget unless a single record is larger.
//
// The save mark FSavePosIndex is 0 in the saved state and counts steps
// away from it: an addition or merge adds 1, an undo subtracts 1 (from 0 it
// falls to -1000), a redo adds 1 (from -1000 back to 0); an addition at
// -1000 or below sets -10000, from which no walk comes back. A record that
// took n merges moves the mark by n more when undone or redone, so that the
// mark counts characters; the list does this, not the records. An undo
// that passes the saved state inside a merged record lands below it.

#include <cstddef>
#include <deque>
#include <memory>

#include "editing/UndoRecord.h"

namespace orl {

class TOrlCustomMemo;
class TScriptStartUndo;

class TOrlUndoList {
public:
  /// Undo memory that a list may hold before the oldest records go.
  static constexpr size_t kDefaultByteBudget = size_t(512) << 20;

  explicit TOrlUndoList(TOrlCustomMemo* master) : FMasterMemo(master) {}

  /// Takes over `item`. Gives -1 when it merged into the newest record (or
  /// was dropped because a record is running), else 0.
  int Add(std::unique_ptr<TUndo> item);
  /// One step back or on; a group counts as one step.
  void Undo();
  void Redo();
  /// Frees every record and the save mark.
  void Clear();

  int Count() const { return static_cast<int>(FItems.size()); }
  /// Record `index`, 0 the newest.
  TUndo& Get(int index) const { return *FItems[static_cast<size_t>(index)].Record; }
  int Pos() const { return FPos; }
  bool CanUndo() const { return FPos < Count(); }
  bool CanRedo() const { return FPos > 0; }
  /// The memo a step runs in: a focused or selecting split view of the
  /// owner, else the owner.
  TOrlCustomMemo* Memo() const;

  /// The text differs from its saved state: the save mark is away from 0,
  /// or the text was edited outside any record since the last step.
  bool HasUnsavedSteps() const { return FSavePosIndex != 0 || FEditedOutsideSteps; }
  /// The document was saved: this state is the saved one.
  void MarkSaved();
  /// The document counts as unchanged (Modified set false).
  void ClearSaveMark();
  /// The document counts as changed without an undo step.
  void MarkChangedWithoutSteps();
  /// An edit changed the text; the record that covers it, if any, follows
  /// or came just before. Edits that a record performs don't count.
  void NoteEdit() {
    if (!FIsPerforming) FEditedOutsideSteps = true;
  }

  /// Highest record count, at least 10; a change empties the list.
  void SetLimit(int value);
  /// Undo memory before the oldest records go; the newest always stays.
  void SetByteBudget(size_t bytes);
  size_t ByteSize() const { return FBytes; }

  TOrlCustomMemo* FMasterMemo;
  /// The memo that ran the last step.
  TOrlCustomMemo* FMemo = nullptr;
  int FPos = 0;
  /// Counts additions and merges; set to FPos when the document is saved.
  /// A save may be skipped only while it equals FPos.
  int FSavePos = 0;
  int FSavePosIndex = 0;
  int FLimit = 100;
  size_t FByteBudget = kDefaultByteBudget;
  bool FIsPerforming = false;
  bool FScriptUndo = false;
  bool FTextDiffInSync = false;

private:
  struct TEntry {
    std::unique_ptr<TUndo> Record;
    size_t Bytes = 0;
  };

  /// Step 3 of Add: an edit made while a snippet's tab stops are stepped through.
  void MarkSnippetEdit(TUndo& item) const;
  /// Merges into the newest record; true when it took the item.
  bool MergeIntoNewest(TUndo& item);
  /// Drops the records that wait for Redo.
  void CutRedoTail();
  /// Puts the item in the list or into the open script group; false when
  /// the item closed the group and is not kept.
  bool Place(std::unique_ptr<TUndo> item);
  void DropOldest();
  void StepMarkForAddition();
  /// An undo (negative) or redo of so many characters.
  void MoveMark(int characters);
  void Remeasure(int index);
  void RaiseUndoChange() const;
  /// The debug line of a step, when the memo has a listener.
  void TraceStep(const char* direction, const TUndo& record, TOrlCustomMemo& memo) const;

  /// One record back or on, with the save mark; brackets don't run. Gives
  /// the record.
  TUndo& UndoStep();
  TUndo& RedoStep();
  /// A group's members undone (bUndo) or redone, each a full step, up to
  /// and including the record of kind `until`; gives that record, or null
  /// when the list ran out.
  TUndo* WalkUntil(TUndoKind until, bool bUndo);
  /// A multi-caret group from its bracket to its partner, with the carets
  /// of each bracket restored as it is reached.
  void WalkMultiEdit(TUndo& bracket, bool bUndo);
  void UndoScript(TScriptStartUndo& script, TOrlCustomMemo& memo);
  void RedoScript(TScriptStartUndo& script, TOrlCustomMemo& memo);

  std::deque<TEntry> FItems;  // index 0 is the newest record
  size_t FBytes = 0;
  bool FEditedOutsideSteps = false;
};

} // namespace orl
