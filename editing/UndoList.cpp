#include "editing/UndoList.h"

#include <algorithm>
#include <string>

#include "editing/OrlMemo.h"
#include "editing/UndoGroups.h"
#include "platform/CodePages.h"

namespace orl {
namespace {

/// A mark at or below this has left the saved state behind for good.
constexpr int kUndoneBelowSave = -1000;
constexpr int kSavedStateLost = -10000;

/// Group records carry no edit of their own: the list walks them.
bool IsBracket(TUndoKind kind) {
  switch (kind) {
    case TUndoKind::MacroStart:
    case TUndoKind::MacroEnd:
    case TUndoKind::ScriptStart:
    case TUndoKind::ScriptEnd:
    case TUndoKind::MultiEditStart:
    case TUndoKind::MultiEditEnd: return true;
    default: return false;
  }
}

/// A drag and drop is a deletion and a paste: undoing the paste undoes the
/// deletion too, redoing the deletion redoes the paste.
bool IsDropPaste(const TUndo& record) {
  return record.FDragDrop && (record.Kind() == TUndoKind::Paste || record.Kind() == TUndoKind::ColPaste);
}
bool IsDropDeletion(const TUndo& record) {
  return record.FDragDrop && (record.Kind() == TUndoKind::DeleteBuf || record.Kind() == TUndoKind::ColDeleteBuf);
}

/// While a record runs: the list is performing, so that the edits the record
/// makes record nothing, and auto-indent is off, so that a line break typed
/// again doesn't indent. Both come back on every path.
class TPerformingScope {
public:
  TPerformingScope(bool& bPerforming, TOrlCustomMemo& memo)
      : FPerforming(bPerforming), FMemo(memo), bAutoIndent(memo.FAutoIndent) {
    FPerforming = true;
    memo.FAutoIndent = false;
  }
  ~TPerformingScope() {
    FPerforming = false;
    FMemo.FAutoIndent = bAutoIndent;
  }
  TPerformingScope(const TPerformingScope&) = delete;
  TPerformingScope& operator=(const TPerformingScope&) = delete;

private:
  bool& FPerforming;
  TOrlCustomMemo& FMemo;
  bool bAutoIndent;
};

} // namespace

TOrlCustomMemo* TOrlUndoList::Memo() const { return FMasterMemo ? &RunningMemo(*FMasterMemo) : nullptr; }

int TOrlUndoList::Add(std::unique_ptr<TUndo> item) {
  if (!item || FIsPerforming) return -1;
  if (!item->FMasterMemo) item->FMasterMemo = FMasterMemo;
  MarkSnippetEdit(*item);
  if (MergeIntoNewest(*item)) return -1;
  CutRedoTail();
  item->UpdateActionText();
  if (!Place(std::move(item))) return 0;
  if (FLimit >= 1 && Count() > FLimit) DropOldest();
  while (Count() > 1 && FBytes > FByteBudget) DropOldest();
  RaiseUndoChange();
  StepMarkForAddition();
  return 0;
}

void TOrlUndoList::MarkSnippetEdit(TUndo& item) const {
  if (!FMasterMemo || !FMasterMemo->Hooks.AtSnippetTabStop) return;
  if (FMasterMemo->Hooks.AtSnippetTabStop()) item.FInsideAbbreviation = true;
}

bool TOrlUndoList::MergeIntoNewest(TUndo& item) {
  if (FItems.empty() || FPos != 0) return false;
  TUndo& newest = Get(0);
  if (!newest.Append(item)) return false;
  ++newest.FMergedSteps;
  Remeasure(0);
  StepMarkForAddition();
  return true;
}

void TOrlUndoList::CutRedoTail() {
  for (; FPos > 0; --FPos) {
    FBytes -= FItems.front().Bytes;
    FItems.pop_front();
  }
}

bool TOrlUndoList::Place(std::unique_ptr<TUndo> item) {
  const TUndoKind kind = item->Kind();
  if (kind == TUndoKind::ScriptEnd) {
    FScriptUndo = false;
    return false;
  }
  FEditedOutsideSteps = false;
  if (kind != TUndoKind::ScriptStart && FScriptUndo && !FItems.empty() && Get(0).Kind() == TUndoKind::ScriptStart) {
    static_cast<TScriptStartUndo&>(Get(0)).AddItem(std::move(item));
    Remeasure(0);
    return false;
  }
  if (kind == TUndoKind::ScriptStart) FScriptUndo = true;
  const size_t bytes = item->ByteSize();
  FItems.push_front({std::move(item), bytes});
  FBytes += bytes;
  return true;
}

void TOrlUndoList::DropOldest() {
  FBytes -= FItems.back().Bytes;
  FItems.pop_back();
}

void TOrlUndoList::Remeasure(int index) {
  TEntry& entry = FItems[static_cast<size_t>(index)];
  FBytes -= entry.Bytes;
  entry.Bytes = entry.Record->ByteSize();
  FBytes += entry.Bytes;
}

void TOrlUndoList::StepMarkForAddition() {
  FSavePosIndex = FSavePosIndex <= kUndoneBelowSave ? kSavedStateLost : FSavePosIndex + 1;
  ++FSavePos;
  FEditedOutsideSteps = false;
}

// The mark as a signed distance in characters from the saved state: n above
// it is n, n below it is -999 - n, so that one step below reads -1000.
// A distance that walks across the saved state inside one merged record
// lands below it, never on an unrelated 0.
void TOrlUndoList::MoveMark(int characters) {
  if (FSavePosIndex <= kSavedStateLost) return;
  int distance = FSavePosIndex > kUndoneBelowSave ? FSavePosIndex : FSavePosIndex - kUndoneBelowSave - 1;
  distance += characters;
  FSavePosIndex = distance >= 0 ? distance : std::max(kUndoneBelowSave + 1 + distance, kSavedStateLost);
}

void TOrlUndoList::MarkSaved() {
  FSavePos = FPos;
  ClearSaveMark();
}

void TOrlUndoList::ClearSaveMark() {
  FSavePosIndex = 0;
  FEditedOutsideSteps = false;
}

void TOrlUndoList::MarkChangedWithoutSteps() {
  // 100 lies away from 0 far enough that no short walk comes back to it.
  if (FSavePosIndex == 0) FSavePosIndex = 100;
}

void TOrlUndoList::RaiseUndoChange() const {
  if (FMasterMemo) FMasterMemo->UndoChange();
}

void TOrlUndoList::TraceStep(const char* direction, const TUndo& record, TOrlCustomMemo& memo) const {
  if (!memo.OnDebugWrite) return;
  const std::string head = std::string(direction) + UndoActionCode(record.Kind()) + " {x=" +
                           std::to_string(memo.CurX()) + ", y=" + std::to_string(memo.CurY()) + "} : ";
  memo.OnDebugWrite(Utf8ToUtf16(head) + record.FActionText, false);
}

void TOrlUndoList::Clear() {
  FItems.clear();
  FBytes = 0;
  FPos = FSavePos = FSavePosIndex = 0;
  FEditedOutsideSteps = false;
  if (FMasterMemo && !FMasterMemo->Closing()) FMasterMemo->UndoChange();
}

void TOrlUndoList::SetLimit(int value) {
  value = value < 10 ? 10 : value;
  if (value == FLimit) return;
  FLimit = value;
  Clear();
}

void TOrlUndoList::SetByteBudget(size_t bytes) {
  FByteBudget = bytes;
  while (Count() > 1 && FPos < Count() && FBytes > FByteBudget) DropOldest();
}

// ---- Walking ----

TUndo& TOrlUndoList::UndoStep() {
  TOrlCustomMemo& memo = *Memo();
  FMemo = &memo;
  TUndo& record = Get(FPos);
  record.FMasterMemo = &memo;
  {
    TPerformingScope performing(FIsPerforming, memo);
    if (record.Kind() == TUndoKind::ScriptStart) UndoScript(static_cast<TScriptStartUndo&>(record), memo);
    else if (!IsBracket(record.Kind())) record.Undo(memo);
  }
  Remeasure(FPos);
  ++FPos;
  MoveMark(-(1 + record.FMergedSteps));
  FEditedOutsideSteps = false;
  if (memo.FTextDiffMode && record.FDiffSyncChange) FTextDiffInSync = !FTextDiffInSync;
  TraceStep(">TUndo.Undo ", record, memo);
  return record;
}

TUndo& TOrlUndoList::RedoStep() {
  TOrlCustomMemo& memo = *Memo();
  FMemo = &memo;
  const int index = FPos - 1;
  TUndo& record = Get(index);
  record.FMasterMemo = &memo;
  if (memo.FTextDiffMode && record.FDiffSyncChange) FTextDiffInSync = !FTextDiffInSync;
  TraceStep(">TUndo.Redo ", record, memo);
  {
    TPerformingScope performing(FIsPerforming, memo);
    if (record.Kind() == TUndoKind::ScriptStart) RedoScript(static_cast<TScriptStartUndo&>(record), memo);
    else if (!IsBracket(record.Kind())) record.Redo(memo);
  }
  Remeasure(index);
  FPos = index;
  MoveMark(1 + record.FMergedSteps);
  FEditedOutsideSteps = false;
  return record;
}

void TOrlUndoList::UndoScript(TScriptStartUndo& script, TOrlCustomMemo& memo) {
  for (int i = script.ItemCount() - 1; i >= 0; --i) {
    script.Item(i).FMasterMemo = &memo;
    script.Item(i).Undo(memo);
  }
  script.RemeasureItems();
}

void TOrlUndoList::RedoScript(TScriptStartUndo& script, TOrlCustomMemo& memo) {
  for (int i = 0; i < script.ItemCount(); ++i) {
    script.Item(i).FMasterMemo = &memo;
    script.Item(i).Redo(memo);
  }
  script.RemeasureItems();
}

void TOrlUndoList::Undo() {
  if (!CanUndo() || !FMasterMemo) return;
  TUndo& record = UndoStep();
  if (record.Kind() == TUndoKind::MacroEnd) {
    WalkUntil(TUndoKind::MacroStart, true);
  } else if (record.Kind() == TUndoKind::MultiEditEnd) {
    WalkMultiEdit(record, true);
  } else {
    RaiseUndoChange();
    if (IsDropPaste(record) && CanUndo()) {
      UndoStep();
      RaiseUndoChange();
    }
  }
}

void TOrlUndoList::Redo() {
  if (!CanRedo() || !FMasterMemo) return;
  TUndo& record = RedoStep();
  if (record.Kind() == TUndoKind::MacroStart) {
    WalkUntil(TUndoKind::MacroEnd, false);
  } else if (record.Kind() == TUndoKind::MultiEditStart) {
    WalkMultiEdit(record, false);
  } else {
    RaiseUndoChange();
    if (IsDropDeletion(record) && CanRedo()) {
      RedoStep();
      RaiseUndoChange();
    }
  }
}

TUndo* TOrlUndoList::WalkUntil(TUndoKind until, bool bUndo) {
  while (bUndo ? CanUndo() : CanRedo()) {
    TUndo& member = Get(bUndo ? FPos : FPos - 1);
    const TUndoKind kind = member.Kind();
    if (bUndo) Undo();
    else Redo();
    if (kind == until) return &member;
  }
  return nullptr;
}

void TOrlUndoList::WalkMultiEdit(TUndo& bracket, bool bUndo) {
  TOrlCustomMemo& memo = *FMemo;
  memo.FMultiEditMode = true;
  static_cast<TMultiEditUndo&>(bracket).RestoreCursorList(memo);
  TUndo* partner = WalkUntil(bUndo ? TUndoKind::MultiEditStart : TUndoKind::MultiEditEnd, bUndo);
  if (partner) static_cast<TMultiEditUndo*>(partner)->RestoreCursorList(memo);
  else memo.Invalidate();
}

} // namespace orl
