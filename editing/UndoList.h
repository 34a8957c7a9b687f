#pragma once
// The undo history of one document: records newest first, walked by Undo
// and Redo. Typed characters merge into one record, a script group makes a
// whole script one step, and a save mark tells when the text is back in its
// saved state.

#include <memory>
#include <vector>

#include "editing/UndoRecord.h"

namespace orl {

class TOrlCustomMemo;

class TOrlUndoList {
public:
  explicit TOrlUndoList(TOrlCustomMemo* master) : FMasterMemo(master) {}

  /// Takes over `item`. Gives -1 when it merged into the newest record (or
  /// was dropped because a record is running), else 0.
  int Add(std::unique_ptr<TUndo> item);
  void Undo();
  void Redo();
  /// Frees every record and the save mark.
  void Clear();

  int Count() const { return static_cast<int>(FItems.size()); }
  /// Record `index`, 0 the newest.
  TUndo& Get(int index) const { return *FItems[static_cast<size_t>(index)]; }
  bool CanUndo() const { return FPos < Count(); }
  bool CanRedo() const { return FPos > 0; }
  /// The text differs from its saved state while the save mark is not zero.
  bool HasUnsavedSteps() const { return FSavePosIndex != 0; }
  void MarkSaved() { FSavePos = FPos; FSavePosIndex = 0; }
  /// Highest record count, at least 10; a change empties the list.
  void SetLimit(int value);

  TOrlCustomMemo* FMasterMemo;
  int FPos = 0;
  int FSavePos = 0;
  int FSavePosIndex = 0;
  int FLimit = 100;
  bool FIsPerforming = false;
  bool FScriptUndo = false;

private:
  std::vector<std::unique_ptr<TUndo>> FItems;  // index 0 is the newest record
};

} // namespace orl
