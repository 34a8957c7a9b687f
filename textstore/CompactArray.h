#pragma once
// A dynamic array that costs one pointer while it is empty, which most rows'
// lists are; the store holds millions of rows, so a std::vector's three words
// per list would dominate a row's size.
//
// Invariant: FBlock is null exactly when the array is empty; otherwise it
// points at a header followed by Capacity items, Count of them in use.
// Copies are deep.

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <new>
#include <span>
#include <string_view>
#include <type_traits>
#include <utility>

namespace orl {

template <class T>
  requires std::is_trivially_copyable_v<T> && (alignof(T) <= 8)
class TCompactArray {
public:
  TCompactArray() = default;
  TCompactArray(const TCompactArray& other) { Assign(other.Items()); }
  TCompactArray(TCompactArray&& other) noexcept : FBlock(std::exchange(other.FBlock, nullptr)) {}
  TCompactArray& operator=(const TCompactArray& other) {
    if (this != &other) Assign(other.Items());
    return *this;
  }
  TCompactArray& operator=(TCompactArray&& other) noexcept {
    std::swap(FBlock, other.FBlock);
    return *this;
  }
  ~TCompactArray() { Clear(); }

  bool IsEmpty() const { return FBlock == nullptr; }
  int Count() const { return FBlock ? int(FBlock->Count) : 0; }
  std::span<const T> Items() const { return {begin(), end()}; }
  const T* begin() const { return FBlock ? Data(FBlock) : nullptr; }
  const T* end() const { return begin() + Count(); }
  const T& operator[](int index) const { return Data(FBlock)[index]; }

  void Add(const T& item) {
    const T copy = item;  // item may live in this array, which may move
    Reserve(uint32_t(Count()) + 1);
    Data(FBlock)[FBlock->Count++] = copy;
  }
  /// Frees the block: an emptied list costs no more than one never filled.
  void Clear() {
    ::operator delete(FBlock);
    FBlock = nullptr;
  }
  void Assign(std::span<const T> items) {
    if (items.empty()) return Clear();
    if (FBlock && items.data() >= begin() && items.data() < end()) {
      // A slice of this very array: the overlap-safe move keeps it readable.
      std::memmove(Data(FBlock), items.data(), items.size_bytes());
    } else {
      Reserve(uint32_t(items.size()));
      std::memcpy(Data(FBlock), items.data(), items.size_bytes());
    }
    FBlock->Count = uint32_t(items.size());
  }

  friend bool operator==(const TCompactArray& a, const TCompactArray& b) {
    return std::ranges::equal(a.Items(), b.Items());
  }

private:
  // Eight bytes, so that items behind it keep the allocation's alignment.
  struct THeader {
    uint32_t Count;
    uint32_t Capacity;
  };
  static T* Data(THeader* block) { return reinterpret_cast<T*>(block + 1); }
  static const T* Data(const THeader* block) { return reinterpret_cast<const T*>(block + 1); }

  void Reserve(uint32_t needed) {
    if (FBlock && FBlock->Capacity >= needed) return;
    const uint32_t capacity = std::max<uint32_t>(needed, FBlock ? FBlock->Capacity * 2 : 2);
    auto* block = static_cast<THeader*>(::operator new(sizeof(THeader) + capacity * sizeof(T)));
    block->Count = uint32_t(Count());
    block->Capacity = capacity;
    if (FBlock) std::memcpy(Data(block), Data(FBlock), FBlock->Count * sizeof(T));
    ::operator delete(FBlock);
    FBlock = block;
  }

  THeader* FBlock = nullptr;
};

/// A row's text-like list (brace characters) read as a string.
inline std::u16string_view AsStringView(const TCompactArray<char16_t>& a) {
  return {a.begin(), size_t(a.Count())};
}

} // namespace orl
