// Row attributes of the line store: the shared attributes of fresh rows, the
// copy a row gets when somebody writes to it, and the operations that keep
// the count of visible rows right.

#include <algorithm>
#include <memory>
#include <mutex>
#include <unordered_map>

#include "textstore/OrlMemoStrings.h"

namespace orl {

namespace {

// Most rows of a document are never written to between load and the first
// scan; beyond this many distinct fresh states a row simply gets its own.
constexpr size_t kMaxFreshStates = 16;

// Rows noted for sharing that the list keeps before it drops duplicates.
constexpr size_t kMinScannedRowsKept = 1 << 16;

// Beyond this many pending invalidations they are written into the rows.
constexpr size_t kMaxStyleInvalidations = 4096;

// Everything of `fresh` into `a`, in place, so that pointers to `a` stay good.
void ResetToFresh(TTextAttribute& a, const TTextAttribute& fresh) {
  SetLineAttribute(a, fresh);
  a.FBooleanArray = fresh.FBooleanArray.load();
  a.FBooleanArray2 = fresh.FBooleanArray2.load();
  a.Enabled = fresh.Enabled;
  a.TextDiffKind = fresh.TextDiffKind;
  a.ExpandingClip = fresh.ExpandingClip;
  a.SelNodeTopIdNr = fresh.SelNodeTopIdNr;
  a.ShareStyle(fresh);
}

} // namespace

TOrlMemoStrings::TFreshState TOrlMemoStrings::NewRowState(const TMemoStoreSettings& settings) const {
  TFreshState state;
  state.bFull = FullAttributes(settings);
  state.TextType = FSysTextType;
  return state;
}

TAttributePtr TOrlMemoStrings::FreshAttribute(const TFreshState& state) {
  if (FLastFresh < FFreshAttributes.size() && FFreshAttributes[FLastFresh].State == state)
    return FFreshAttributes[FLastFresh].Attribute;
  for (size_t i = 0; i < FFreshAttributes.size(); ++i) {
    if (!(FFreshAttributes[i].State == state)) continue;
    FLastFresh = i;
    return FFreshAttributes[i].Attribute;
  }
  TAttributePtr fresh = state.bFull ? CreateAttribute(state.TextType) : CreateTextAttribute(state.TextType);
  fresh->FBooleanArray |= state.Flags;
  if (state.Ending >= 0) {
    fresh->SetLinefeedCR(state.Ending & 1);
    fresh->SetLinefeedLF(state.Ending & 2);
  }
  fresh->ChangeHistory = state.ChangeHistory;
  if (FFreshAttributes.size() < kMaxFreshStates) {
    std::lock_guard lock(FLock);  // the background thread looks the list up under it
    fresh->MarkShared();
    FFreshAttributes.push_back({state, fresh});
    // Rows that a scan leaves as they were find their way back to it.
    FSharedAttributes.Intern(fresh);
  }
  return fresh;
}

TTextAttribute* TOrlMemoStrings::OwnAttribute(int Index) {
  TAttributePtr& slot = Item(Index).FObject;
  if (slot && slot->IsShared()) {
    // The other thread may have given the row its own in the meantime.
    std::lock_guard lock(FLock);
    if (slot->IsShared()) slot = CloneAttribute(*slot);
  }
  return slot.get();
}

void TOrlMemoStrings::WriteRowStyle(int Index, TStyle style) {
  TTextAttribute* row = OwnAttribute(Index);
  if (!row) return;
  style.Generation = FStyleGeneration;
  row->SetStyleRecord(style == TStyle() ? nullptr : FStyleRecords.Intern(std::make_shared<const TStyle>(std::move(style))));
}

void TOrlMemoStrings::ShareRowAttribute(int Index) {
  TAttributePtr& slot = Item(Index).FObject;
  // A second holder may write to the object: it stays the row's own.
  if (!slot || slot->IsShared() || slot.UseCount() != 1 || slot.get() == FNilAttribute.get()) return;
  TAttributePtr shared = FSharedAttributes.Intern(slot);
  shared->MarkShared();
  slot = std::move(shared);
}

void TOrlMemoStrings::SweepSharedRecords() {
  std::lock_guard lock(FLock);
  FSharedAttributes.Sweep();
  FStyleRecords.Sweep();
}

const TTextAttribute& TOrlMemoStrings::BlankAttribute() {
  static const TAttributePtr blank = CreateAttribute(sttWindows);
  return *blank;
}

TTextAttribute* TOrlMemoStrings::ResetNilAttribute() {
  TFreshState state;
  state.bFull = true;
  state.TextType = FSysTextType;
  const TAttributePtr fresh = FreshAttribute(state);
  if (!FNilAttribute)
    FNilAttribute = CopyAttribute(*fresh);
  else
    ResetToFresh(*FNilAttribute, *fresh);
  return FNilAttribute.get();
}

TTextAttribute* TOrlMemoStrings::GetLineAttribute(int Index) {
  TTextAttribute* own = ValidIndex(Index) ? OwnAttribute(Index) : nullptr;
  if (!own) return ResetNilAttribute();
  NoteAttributeWrite(Index);
  return own;
}

const TTextAttribute& TOrlMemoStrings::ReadLineAttribute(int Index) const {
  const TTextAttribute* a = ValidIndex(Index) ? Item(Index).FObject.get() : nullptr;
  return a ? *a : BlankAttribute();
}

TAttributePtr TOrlMemoStrings::GetLineAttributeObject(int Index) const {
  return CopyAttribute(ValidIndex(Index) && Item(Index).FObject ? *Item(Index).FObject : BlankAttribute());
}

void TOrlMemoStrings::SetLineAttribute(int Index, const TTextAttribute& Value) {
  std::lock_guard lock(FLock);
  TTextAttribute* row = ValidIndex(Index) ? OwnAttribute(Index) : nullptr;
  if (!row) return;
  const bool bWasHidden = row->Hidden();
  orl::SetLineAttribute(*row, Value);
  if (row->Hidden() != bWasHidden) FVisibleCount += bWasHidden ? 1 : -1;
  RowsReplaced(Index, 1, 1);
}

void TOrlMemoStrings::SetLineStyle(int Index, const TStyle& Value) {
  std::lock_guard lock(FLock);
  if (!ValidIndex(Index)) return;
  WriteRowStyle(Index, Value);
  // The state is the last thing a scan writes into a row: a good moment to
  // let the row share what it holds with equal rows.
  ShareRowAttribute(Index);
  ShareRowsScannedByThread();
}

void TOrlMemoStrings::SetLineStyleFromThread(int Index, const TStyle& Value) {
  std::lock_guard lock(FLock);
  if (!ValidIndex(Index)) return;
  WriteRowStyle(Index, Value);
  // Scan after scan may note the same rows while the main thread has no turn:
  // duplicates go when the list outgrows the rows, which bounds it at twice
  // the row count and costs O(log n) a row.
  if (FRowsScannedByThread.size() >= 2 * size_t(GetCount()) + kMinScannedRowsKept) {
    std::sort(FRowsScannedByThread.begin(), FRowsScannedByThread.end());
    FRowsScannedByThread.erase(std::unique(FRowsScannedByThread.begin(), FRowsScannedByThread.end()),
                               FRowsScannedByThread.end());
    std::erase_if(FRowsScannedByThread, [this](int row) { return row >= GetCount(); });
  }
  FRowsScannedByThread.push_back(Index);
}

void TOrlMemoStrings::ShareRowsScannedByThread() {
  std::lock_guard lock(FLock);
  // Rows may have moved since: sharing goes by content, so any row is right
  // to share, and one that moved away is simply left as it is.
  for (const int row : FRowsScannedByThread)
    if (ValidIndex(row)) ShareRowAttribute(row);
  FRowsScannedByThread.clear();
}

void TOrlMemoStrings::ClearLineStylesFrom(int index) {
  std::lock_guard lock(FLock);
  const int from = std::max(index, 0);
  while (!FStyleInvalidations.empty() && FStyleInvalidations.back().From >= from) FStyleInvalidations.pop_back();
  FStyleInvalidations.push_back({++FStyleGeneration, from});
  // Only edits that go further down each time make the list grow; folding it
  // now and then keeps lookups short at a cost of one pass per many edits.
  if (FStyleInvalidations.size() > kMaxStyleInvalidations) FoldStyleInvalidations();
}

bool TOrlMemoStrings::StampStillValid(uint64_t stamp, int Index) const {
  const auto newer = std::ranges::upper_bound(FStyleInvalidations, stamp, {}, &TStyleInvalidation::Generation);
  return newer == FStyleInvalidations.end() || Index < newer->From;
}

bool TOrlMemoStrings::LineStyleValid(int Index) const {
  std::lock_guard lock(FLock);
  if (!ValidIndex(Index)) return false;
  const TStyleRef style = ReadLineAttribute(Index).Style();
  return style->Get(sfCached) && StampStillValid(style->Generation, Index);
}

TStyle TOrlMemoStrings::ReadLineStyle(int Index) const {
  std::lock_guard lock(FLock);
  TStyle style = *ReadLineAttribute(Index).Style();
  if (style.Get(sfCached) && !StampStillValid(style.Generation, Index)) style.Set(sfCached, false);
  return style;
}

void TOrlMemoStrings::FoldStyleInvalidations() {
  for (int i = FStyleInvalidations.front().From; i < GetCount(); ++i) {
    const TStyleRef style = ReadLineAttribute(i).Style();
    if (!style->Get(sfCached) || StampStillValid(style->Generation, i)) continue;
    TStyle cleared = *style;
    cleared.Set(sfCached, false);
    WriteRowStyle(i, std::move(cleared));
    ShareRowAttribute(i);
  }
  FStyleInvalidations.clear();
}

void TOrlMemoStrings::SetHiddenLine(int index, bool value) {
  if (!ValidIndex(index) || !Item(index).FObject || GetHiddenLine(index) == value) return;
  OwnAttribute(index)->SetValue(lfHidden, value);
  FVisibleCount += value ? -1 : 1;
  RowsReplaced(index, 1, 1);
}

void TOrlMemoStrings::SetWrappedFlag(int Index, bool value) {
  if (!ValidIndex(Index) || !Item(Index).FObject || IsLineWrapped(Index) == value) return;
  OwnAttribute(Index)->SetWrapped(value);
  RowsReplaced(Index, 1, 1);
}

void TOrlMemoStrings::ConvertAttributes() {
  if (GetCount() == 0 || !Item(0).FObject) return;
  std::lock_guard lock(FLock);
  const bool bToAttribute = !Item(0).FObject->IsAttribute();
  // Rows that shared an attribute share its converted twin.
  std::unordered_map<const TTextAttribute*, TAttributePtr> converted;
  for (int i = 0; i < GetCount(); ++i) {
    TAttributePtr& slot = Item(i).FObject;
    if (!slot) continue;
    const auto fresh = std::ranges::find(FFreshAttributes, slot.get(), [](const TFreshEntry& e) { return e.Attribute.get(); });
    if (fresh != FFreshAttributes.end()) {
      TFreshState state = fresh->State;
      state.bFull = bToAttribute;
      slot = FreshAttribute(state);
    } else if (slot->IsShared()) {
      TAttributePtr& twin = converted[slot.get()];
      if (!twin) {
        twin = FSharedAttributes.Intern(ConvertAttribute(*slot, bToAttribute));
        twin->MarkShared();
      }
      slot = twin;
    } else {
      slot = ConvertAttribute(*slot, bToAttribute);
    }
  }
  // No row holds the shared attributes of the old class any more.
  std::erase_if(FFreshAttributes, [&](const TFreshEntry& e) { return e.State.bFull != bToAttribute; });
  converted.clear();
  SweepSharedRecords();
}

int TOrlMemoStrings::GetSpellList(int Index, TSpellList& aSpellList) const {
  if (!ValidIndex(Index)) return 0;
  aSpellList = ReadLineAttribute(Index).SpellList;
  return aSpellList.Count();
}

void TOrlMemoStrings::ClearSSA() {
  for (int i = 0; i < GetCount(); ++i)
    if (!ReadLineAttribute(i).SpellList.IsEmpty()) OwnAttribute(i)->SpellList.Clear();
}

int TOrlMemoStrings::CountVisibleRows() const {
  int visible = 0;
  for (int i = 0; i < GetCount(); ++i) visible += GetHiddenLine(i) ? 0 : 1;
  return visible;
}

void TOrlMemoStrings::SubtractVisible(int rows) {
  FVisibleCount -= rows;
  if (FVisibleCount >= 0) return;
  FVisibleCount = FMemo ? FMemo->GetVisibleLines(0, GetCount() - 1) : CountVisibleRows();
}

} // namespace orl
