#include "platform/Collation.h"
#include "textstore/LineAttribute.h"
#include "textstore/OrlUnicodeStrings.h"

namespace orl {

namespace {

int CompareText(std::u16string_view a, std::u16string_view b) { return CompareTextLocale(a, b, false); }

} // namespace

template <class TSlot>
TElWideStringListOf<TSlot>::~TElWideStringListOf() {
  StoreClear();
}

template <class TSlot>
void TElWideStringListOf<TSlot>::SetCapacity(int NewCapacity) {
  if (NewCapacity < GetCount()) return;
  FCapacity = NewCapacity;
  std::lock_guard lock(FLock);
  FList.Reserve(size_t(NewCapacity));
}

template <class TSlot>
void TElWideStringListOf<TSlot>::Grow() {
  FCapacity += FCapacity < 2048 ? 16 : 64;
}

template <class TSlot>
void TElWideStringListOf<TSlot>::CheckIndex(int Index) const {
  if (!ValidIndex(Index)) throw EStringListError(SListIndexError);
}

template <class TSlot>
std::u16string TElWideStringListOf<TSlot>::Get(int Index) const {
  CheckIndex(Index);
  return Item(Index).FString.ToString();
}

template <class TSlot>
void TElWideStringListOf<TSlot>::Put(int Index, std::u16string_view S) {
  if (FSorted) throw EStringListError(SSortedListError);
  CheckIndex(Index);
  Changing();
  {
    std::lock_guard lock(FLock);
    Item(Index).FString.Assign(S);
    RowsReplaced(Index, 1, 1);
  }
  Changed();
}

template <class TSlot>
void TElWideStringListOf<TSlot>::Clear() {
  if (GetCount() == 0) return;
  Changing();
  StoreClear();
  FCapacity = 0;
  Changed();
}

template <class TSlot>
void TElWideStringListOf<TSlot>::Delete(int Index) {
  CheckIndex(Index);
  Changing();
  StoreErase(Index, 1);
  Changed();
}

template <class TSlot>
void TElWideStringListOf<TSlot>::Exchange(int Index1, int Index2) {
  CheckIndex(Index1);
  CheckIndex(Index2);
  Changing();
  StoreSwap(Index1, Index2);
  Changed();
}

template <class TSlot>
void TElWideStringListOf<TSlot>::Move(int CurIndex, int NewIndex) {
  if (CurIndex == NewIndex) return;
  if (FSorted) throw EStringListError(SSortedListError);
  CheckIndex(CurIndex);
  CheckIndex(NewIndex);
  Changing();
  {
    std::lock_guard lock(FLock);
    TItem moved = std::move(Item(CurIndex));
    FList.Erase(size_t(CurIndex), 1);
    FList.Insert(size_t(NewIndex), std::move(moved));
    RowsReplaced(CurIndex, 1, 0);
    RowsReplaced(NewIndex, 0, 1);
  }
  Changed();
}

template <class TSlot>
int TElWideStringListOf<TSlot>::IndexOf(std::u16string_view S) const {
  if (!FSorted) return TElWideStrings::IndexOf(S);
  int index = -1;
  return Find(S, index) ? index : -1;
}

template <class TSlot>
typename TElWideStringListOf<TSlot>::TObjectPtr TElWideStringListOf<TSlot>::GetObject(int Index) const {
  CheckIndex(Index);
  return Item(Index).FObject.get();
}

template <class TSlot>
void TElWideStringListOf<TSlot>::PutObject(int Index, TSlot AObject) {
  CheckIndex(Index);
  Changing();
  TSlot replaced;
  {
    std::lock_guard lock(FLock);
    replaced = std::exchange(Item(Index).FObject, std::move(AObject));
  }
  Changed();
}

template <class TSlot>
int TElWideStringListOf<TSlot>::AddObject(std::u16string_view S, TSlot AObject) {
  int index = GetCount();
  if (FSorted && Find(S, index)) {
    if (FDuplicates == dupIgnore) return index;
    if (FDuplicates == dupError) throw EStringListError(SDuplicateString);
  }
  InsertItem(index, S, std::move(AObject));
  return index;
}

template <class TSlot>
void TElWideStringListOf<TSlot>::InsertObject(int Index, std::u16string_view S, TSlot AObject) {
  if (FSorted) throw EStringListError(SSortedListError);
  if (Index < 0 || Index > GetCount()) throw EStringListError(SListIndexError);
  InsertItem(Index, S, std::move(AObject));
}

template <class TSlot>
int TElWideStringListOf<TSlot>::IndexOfObject(const void* AObject) const {
  for (int i = 0; i < GetCount(); ++i)
    if (Item(i).FObject.get() == AObject) return i;
  return -1;
}

template <class TSlot>
void TElWideStringListOf<TSlot>::InsertItem(int Index, std::u16string_view S, TSlot AObject) {
  Changing();
  if (GetCount() == FCapacity) Grow();
  StoreInsert(Index, 1, [&](size_t) { return TItem{TSharedWideString(S), std::move(AObject)}; });
  Changed();
}

template <class TSlot>
void TElWideStringListOf<TSlot>::SetSorted(bool Value) {
  if (Value == FSorted) return;
  if (Value) Sort();
  FSorted = Value;
}

template <class TSlot>
bool TElWideStringListOf<TSlot>::Find(std::u16string_view S, int& Index) const {
  bool found = false;
  int low = 0;
  int high = GetCount() - 1;
  while (low <= high) {
    const int middle = (low + high) / 2;
    const int c = CompareText(Item(middle).FString, S);
    if (c < 0) {
      low = middle + 1;
      continue;
    }
    high = middle - 1;
    if (c == 0) {
      found = true;
      if (FDuplicates != dupAccept) low = middle;  // the first hit ends the search
    }
  }
  Index = low;
  return found;
}

template <class TSlot>
void TElWideStringListOf<TSlot>::Sort() {
  CustomSort([](TElWideStringListOf& list, int a, int b) {
    return CompareText(list.Item(a).FString, list.Item(b).FString);
  });
}

template <class TSlot>
void TElWideStringListOf<TSlot>::CustomSort(const TStringListSortCompare& Compare) {
  if (FSorted || GetCount() < 2) return;
  Changing();
  {
    std::lock_guard lock(FLock);
    QuickSort(0, GetCount() - 1, Compare);
    RowsReplaced(0, GetCount(), GetCount());
  }
  Changed();
}

template <class TSlot>
void TElWideStringListOf<TSlot>::QuickSort(int L, int R, const TStringListSortCompare& Compare) {
  int i = L;
  do {
    i = L;
    int j = R;
    int pivot = (L + R) / 2;
    do {
      while (Compare(*this, i, pivot) < 0) ++i;
      while (Compare(*this, j, pivot) > 0) --j;
      if (i > j) break;
      if (i != j) std::swap(Item(i), Item(j));
      // The pivot is followed by index, so it moves with the item it names.
      if (pivot == i)
        pivot = j;
      else if (pivot == j)
        pivot = i;
      ++i;
      --j;
    } while (i <= j);
    if (L < j) QuickSort(L, j, Compare);
    L = i;
  } while (i < R);
}

template <class TSlot>
void TElWideStringListOf<TSlot>::SetUpdateState(bool Updating) {
  if (Updating)
    Changing();
  else
    Changed();
}

template <class TSlot>
bool TElWideStringListOf<TSlot>::SameLine(std::u16string_view a, std::u16string_view b) const {
  return FCaseSensitive ? a == b : CompareText(a, b) == 0;
}

template <class TSlot>
void TElWideStringListOf<TSlot>::Changed() {
  if (FUpdateCount == 0 && OnChange) OnChange(*this);
}

template <class TSlot>
void TElWideStringListOf<TSlot>::Changing() {
  if (FUpdateCount == 0 && OnChanging) OnChanging(*this);
}

template class TElWideStringListOf<std::unique_ptr<TObject>>;
template class TElWideStringListOf<TAttributePtr>;

} // namespace orl
