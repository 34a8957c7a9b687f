#pragma once
// An array of items with a gap where the last insertion or deletion took
// place, so that repeated edits near one place move nothing but the items
// between the old and the new place: inserting or deleting rows at the same
// spot over and over is O(1) amortised, whatever the array's size.
//
// Invariant: FItems has FPhysical slots; the slots [FGapStart, FGapStart +
// FGapLength) hold no item and every other slot holds a live one, in order;
// Count() == FPhysical - FGapLength.
//
// Items are relocated bytewise. T must be trivially relocatable: a handle
// that owns what it points to and points at nothing inside itself (the row
// items are two such pointers).

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <new>
#include <utility>

#include "textstore/HugePages.h"

namespace orl {

template <class T>
class TGapArray {
public:
  TGapArray() = default;
  TGapArray(const TGapArray&) = delete;
  TGapArray& operator=(const TGapArray&) = delete;
  ~TGapArray() { Clear(); }

  size_t Count() const { return FPhysical - FGapLength; }
  /// Slots allocated, the gap included.
  size_t Physical() const { return FPhysical; }
  T& operator[](size_t index) { return FItems[Slot(index)]; }
  const T& operator[](size_t index) const { return FItems[Slot(index)]; }

  /// Room for `count` items without another allocation.
  void Reserve(size_t count) {
    if (count > FPhysical) Reallocate(count);
  }

  /// Inserts `count` items before `index`; `make(i)` builds the i-th.
  template <class TMake>
  void InsertN(size_t index, size_t count, TMake&& make) {
    if (count == 0) return;
    OpenGapAt(index, count);
    for (size_t i = 0; i < count; ++i) {
      new (&FItems[FGapStart]) T(make(i));
      ++FGapStart;
      --FGapLength;
    }
  }
  void Insert(size_t index, T item) {
    InsertN(index, 1, [&](size_t) { return std::move(item); });
  }

  /// Destroys the `count` items from `index`; they become part of the gap.
  void Erase(size_t index, size_t count) {
    if (count == 0) return;
    MoveGapTo(index + count);
    for (size_t i = index; i < index + count; ++i) FItems[i].~T();
    FGapStart -= count;
    FGapLength += count;
    ShrinkIfSparse();
  }

  /// Destroys every item and frees the storage.
  void Clear() {
    for (size_t i = 0; i < Count(); ++i) (*this)[i].~T();
    std::free(FItems);
    FItems = nullptr;
    FPhysical = FGapStart = FGapLength = 0;
  }

  /// The items as one block, for whole-array work such as sorting; moves the
  /// gap behind the last item.
  T* Contiguous() {
    MoveGapTo(Count());
    return FItems;
  }

private:
  static constexpr size_t kMinimumSlots = 64;

  size_t Slot(size_t index) const { return index < FGapStart ? index : index + FGapLength; }

  static void Relocate(T* to, const T* from, size_t count) {
    if (count) std::memmove(static_cast<void*>(to), static_cast<const void*>(from), count * sizeof(T));
  }

  void MoveGapTo(size_t index) {
    if (index < FGapStart)
      Relocate(FItems + index + FGapLength, FItems + index, FGapStart - index);
    else if (index > FGapStart)
      Relocate(FItems + FGapStart, FItems + FGapStart + FGapLength, index - FGapStart);
    FGapStart = index;
  }

  void OpenGapAt(size_t index, size_t count) {
    if (FGapLength < count) Reallocate(std::max(Count() + count, FPhysical + FPhysical / 2));
    MoveGapTo(index);
  }

  // Geometric growth keeps loading linear; the new gap opens where the old
  // one was, so the next insertion there moves nothing. With the gap at the
  // end, as while loading, the allocator may move a large array by
  // remapping its pages: no copy, and never the old and the new array at once.
  void Reallocate(size_t physical) {
    physical = std::max(physical, kMinimumSlots);
    const size_t tail = FPhysical - FGapStart - FGapLength;
    T* items = nullptr;
    if (tail == 0 && physical >= FGapStart) {
      items = static_cast<T*>(std::realloc(static_cast<void*>(FItems), physical * sizeof(T)));
      if (!items) throw std::bad_alloc();
    } else {
      items = static_cast<T*>(std::malloc(physical * sizeof(T)));
      if (!items) throw std::bad_alloc();
      Relocate(items, FItems, FGapStart);
      Relocate(items + physical - tail, FItems + FGapStart + FGapLength, tail);
      std::free(FItems);
    }
    AdviseHugePages(items, physical * sizeof(T));
    FItems = items;
    FGapLength = physical - FGapStart - tail;
    FPhysical = physical;
  }

  // Give memory back after mass deletions, keeping room to grow again.
  void ShrinkIfSparse() {
    if (FPhysical > 4 * kMinimumSlots && Count() < FPhysical / 4) Reallocate(2 * Count());
  }

  T* FItems = nullptr;
  size_t FPhysical = 0;
  size_t FGapStart = 0;
  size_t FGapLength = 0;
};

} // namespace orl
