#include "textstore/SharedWideString.h"

#include <algorithm>
#include <cstring>
#include <new>

#include "textstore/WideStringArena.h"

namespace orl {

namespace {

// An edited row is likely to be edited again (typing), so it gets room to
// grow; a loaded row gets exactly its length.
size_t GrownCapacity(size_t length) { return length + length / 2 + 8; }

void CopyChars(char16_t* to, const char16_t* from, size_t count) {
  if (count) std::memmove(to, from, count * sizeof(char16_t));
}

} // namespace

size_t SimpleCellRun(std::u16string_view text) {
  // Four characters are tested at once: a high byte set, or a unit equal to
  // a tab (a zero lane after the exclusive or).
  constexpr uint64_t kHighBytes = 0xFF00FF00FF00FF00ull, kTabs = 0x0009000900090009ull;
  constexpr uint64_t kLaneLow = 0x0001000100010001ull, kLaneTop = 0x8000800080008000ull;
  size_t i = 0;
  for (; i + 4 <= text.size(); i += 4) {
    uint64_t word;
    std::memcpy(&word, text.data() + i, sizeof word);
    const uint64_t tabs = word ^ kTabs;
    if ((word & kHighBytes) || ((tabs - kLaneLow) & ~tabs & kLaneTop)) break;
  }
  while (i < text.size() && text[i] < 256 && text[i] != u'\t') ++i;
  return i;
}

TSharedWideString::TSharedWideString(std::u16string_view s) {
  if (s.empty()) return;
  FRep = NewRep(s.size(), s.size());
  CopyChars(FRep->Chars(), s.data(), s.size());
}

TSharedWideString::TRep* TSharedWideString::NewRep(size_t length, size_t capacity) {
  void* block = ::operator new(sizeof(TRep) + capacity * sizeof(char16_t));
  return new (block) TRep{{1}, uint32_t(length), uint32_t(capacity), {0}};
}

void TSharedWideString::FreeRep(TRep* rep) {
  const bool bInArena = rep->InArena();
  rep->~TRep();
  if (bInArena)
    TWideStringArena::Release(rep);
  else
    ::operator delete(rep);
}

bool TSharedWideString::IsWritableFor(size_t length) const {
  return FRep && FRep->FRefCount.load(std::memory_order_acquire) == 1 && FRep->Capacity() >= length;
}

bool TSharedWideString::Holds(std::u16string_view s) const {
  return FRep && s.data() >= FRep->Chars() && s.data() < FRep->Chars() + FRep->Capacity();
}

void TSharedWideString::Assign(std::u16string_view s) {
  if (s.empty() || !IsWritableFor(s.size()) || Holds(s)) {
    *this = TSharedWideString(s);
    return;
  }
  CopyChars(FRep->Chars(), s.data(), s.size());
  FRep->FLength = uint32_t(s.size());
  FRep->FSimplePrefix.store(0, std::memory_order_relaxed);
}

void TSharedWideString::Splice(size_t pos, size_t erased, std::u16string_view text) {
  const size_t old = size();
  const size_t tail = old - pos - erased;
  const size_t length = old - erased + text.size();
  if (length == 0) {
    *this = TSharedWideString();
    return;
  }
  const auto simple = uint32_t(SimplePrefixAfterSplice(pos, erased, text));
  if (IsWritableFor(length) && !Holds(text)) {
    char16_t* chars = FRep->Chars();
    CopyChars(chars + pos + text.size(), chars + pos + erased, tail);
    CopyChars(chars + pos, text.data(), text.size());
    FRep->FLength = uint32_t(length);
    FRep->FSimplePrefix.store(simple, std::memory_order_relaxed);
    return;
  }
  TRep* fresh = NewRep(length, GrownCapacity(length));
  CopyChars(fresh->Chars(), data(), pos);
  CopyChars(fresh->Chars() + pos, text.data(), text.size());
  CopyChars(fresh->Chars() + pos + text.size(), data() + pos + erased, tail);
  fresh->FSimplePrefix.store(simple, std::memory_order_relaxed);
  Release();
  FRep = fresh;
}

size_t TSharedWideString::SimplePrefixAfterSplice(size_t pos, size_t erased, std::u16string_view text) const {
  const size_t known = FRep ? FRep->FSimplePrefix.load(std::memory_order_relaxed) : 0;
  if (known < pos) return known;  // the edit lies past what was counted
  const size_t run = SimpleCellRun(text);
  if (run < text.size()) return pos + run;
  // The new text is simple: the counted part of the tail follows it.
  const size_t tailEnd = pos + erased;
  return pos + text.size() + (known > tailEnd ? known - tailEnd : 0);
}

size_t TSharedWideString::SimpleCellPrefix(size_t limit) const {
  limit = std::min(limit, size());
  if (limit == 0) return 0;
  size_t known = FRep->FSimplePrefix.load(std::memory_order_relaxed);
  if (known < limit) {
    known += SimpleCellRun(std::u16string_view(FRep->Chars() + known, limit - known));
    FRep->FSimplePrefix.store(uint32_t(known), std::memory_order_relaxed);
  }
  return std::min(known, limit);
}

void TSharedWideString::Overwrite(size_t pos, std::u16string_view s) {
  Splice(pos, std::min(s.size(), size() - pos), s);
}

size_t TSharedWideString::AllocatedBytes() const {
  return FRep ? sizeof(TRep) + FRep->Capacity() * sizeof(char16_t) : 0;
}

} // namespace orl
