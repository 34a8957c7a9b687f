#pragma once
// The text of one row: an immutable, reference-counted UTF-16 string whose
// handle is one pointer, so that the background thread takes a row in O(1)
// (one atomic increment under the store's lock) and reads it after the lock
// is gone.
//
// Invariant: FRep is null exactly when the string is empty. A rep that more
// than one handle holds is never written; a writer that finds its rep shared
// builds a new one. Writers run under the owning store's lock, and a handle
// is copied to another thread only under that lock, so a rep that is unique
// under the lock cannot be read by anyone else and may be edited in place.

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace orl {

/// The length of the leading run of characters below U+0100 other than tab.
size_t SimpleCellRun(std::u16string_view text);

class TSharedWideString {
public:
  TSharedWideString() = default;
  explicit TSharedWideString(std::u16string_view s);
  TSharedWideString(const TSharedWideString& other) : FRep(other.FRep) { Acquire(); }
  TSharedWideString(TSharedWideString&& other) noexcept : FRep(std::exchange(other.FRep, nullptr)) {}
  TSharedWideString& operator=(TSharedWideString other) noexcept {
    std::swap(FRep, other.FRep);
    return *this;
  }
  ~TSharedWideString() { Release(); }

  size_t size() const { return FRep ? FRep->FLength : 0; }
  bool empty() const { return FRep == nullptr; }
  const char16_t* data() const { return FRep ? FRep->Chars() : u""; }
  char16_t operator[](size_t index) const { return FRep->Chars()[index]; }
  std::u16string_view View() const { return {data(), size()}; }
  operator std::u16string_view() const { return View(); }
  std::u16string ToString() const { return std::u16string(View()); }

  // Writers. Positions are 0-based and must lie within the text; the store
  // checks them before it calls.

  /// Replaces the whole text, reusing the rep when it is unique and large enough.
  void Assign(std::u16string_view s);
  /// Inserts `s` before `pos` (size() appends).
  void Insert(size_t pos, std::u16string_view s) { Splice(pos, 0, s); }
  /// Removes `count` characters from `pos`.
  void Erase(size_t pos, size_t count) { Splice(pos, count, {}); }
  /// Writes `s` over the characters from `pos`; the text grows if `s` runs past its end.
  void Overwrite(size_t pos, std::u16string_view s);

  /// Bytes taken for this text, header included (for memory figures).
  size_t AllocatedBytes() const;

  /// How many of the first `limit` characters are simple: below U+0100 and
  /// not a tab, so each takes one cell of a monospaced font. What was counted
  /// is remembered with the text, and edits keep what they can of it, so that
  /// measuring the caret at the end of a long row being typed does not count
  /// the row again at every key.
  size_t SimpleCellPrefix(size_t limit) const;

private:
  friend class TWideStringArena;

  struct TRep {
    static constexpr uint32_t kInArena = 1u << 31;  // cut from an arena block, not allocated alone

    std::atomic<uint32_t> FRefCount;
    uint32_t FLength;
    uint32_t FCapacity;  // with kInArena
    // The leading characters known to be simple (see SimpleCellPrefix); only
    // the main thread counts, but a rep may be read by the analysis thread.
    mutable std::atomic<uint32_t> FSimplePrefix;
    uint32_t Capacity() const { return FCapacity & ~kInArena; }
    bool InArena() const { return FCapacity & kInArena; }
    char16_t* Chars() { return reinterpret_cast<char16_t*>(this + 1); }
    const char16_t* Chars() const { return reinterpret_cast<const char16_t*>(this + 1); }
  };
  static_assert(sizeof(TRep) == 16 && alignof(TRep) >= alignof(char16_t));

  /// Adopts a rep whose one reference the new handle takes over.
  explicit TSharedWideString(TRep* rep) : FRep(rep) {}

  static TRep* NewRep(size_t length, size_t capacity);
  static void FreeRep(TRep* rep);
  /// Unique and with room for `length` characters: may be edited in place.
  bool IsWritableFor(size_t length) const;
  /// True when `s` lies in this text's own rep, which an in-place edit would overwrite.
  bool Holds(std::u16string_view s) const;
  /// The text with `erased` characters at `pos` replaced by `text`.
  void Splice(size_t pos, size_t erased, std::u16string_view text);
  /// The simple prefix that survives replacing `erased` characters at `pos` by `text`.
  size_t SimplePrefixAfterSplice(size_t pos, size_t erased, std::u16string_view text) const;

  void Acquire() {
    if (FRep) FRep->FRefCount.fetch_add(1, std::memory_order_relaxed);
  }
  void Release() {
    if (FRep && FRep->FRefCount.fetch_sub(1, std::memory_order_acq_rel) == 1) FreeRep(FRep);
  }

  TRep* FRep = nullptr;
};

} // namespace orl
