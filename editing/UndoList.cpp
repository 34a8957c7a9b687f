#include "editing/UndoList.h"

namespace orl {

// For now the list keeps every record in order and walks them without the
// merge rules, groups and save-mark arithmetic.
int TOrlUndoList::Add(std::unique_ptr<TUndo> item) {
  if (FIsPerforming) return -1;
  if (!item->FMasterMemo) item->FMasterMemo = FMasterMemo;
  while (FPos > 0) {
    FItems.erase(FItems.begin());
    --FPos;
  }
  FItems.insert(FItems.begin(), std::move(item));
  ++FSavePosIndex;
  ++FSavePos;
  return 0;
}

void TOrlUndoList::Undo() {
  if (FPos >= Count() || !FMasterMemo) return;
  FIsPerforming = true;
  Get(FPos).Undo(*FMasterMemo);
  FIsPerforming = false;
  ++FPos;
  FSavePosIndex = FSavePosIndex == 0 ? -1000 : FSavePosIndex - 1;
}

void TOrlUndoList::Redo() {
  if (FPos <= 0 || !FMasterMemo) return;
  --FPos;
  FSavePosIndex = FSavePosIndex == -1000 ? 0 : FSavePosIndex + 1;
  FIsPerforming = true;
  Get(FPos).Redo(*FMasterMemo);
  FIsPerforming = false;
}

void TOrlUndoList::Clear() {
  FItems.clear();
  FPos = FSavePos = FSavePosIndex = 0;
}

void TOrlUndoList::SetLimit(int value) {
  value = value < 10 ? 10 : value;
  if (value == FLimit) return;
  FLimit = value;
  Clear();
}

} // namespace orl
