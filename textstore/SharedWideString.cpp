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

TSharedWideString::TSharedWideString(std::u16string_view s) {
  if (s.empty()) return;
  FRep = NewRep(s.size(), s.size());
  CopyChars(FRep->Chars(), s.data(), s.size());
}

TSharedWideString::TRep* TSharedWideString::NewRep(size_t length, size_t capacity) {
  void* block = ::operator new(sizeof(TRep) + capacity * sizeof(char16_t));
  return new (block) TRep{{1}, uint32_t(length), uint32_t(capacity)};
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
}

void TSharedWideString::Splice(size_t pos, size_t erased, std::u16string_view text) {
  const size_t old = size();
  const size_t tail = old - pos - erased;
  const size_t length = old - erased + text.size();
  if (length == 0) {
    *this = TSharedWideString();
    return;
  }
  if (IsWritableFor(length) && !Holds(text)) {
    char16_t* chars = FRep->Chars();
    CopyChars(chars + pos + text.size(), chars + pos + erased, tail);
    CopyChars(chars + pos, text.data(), text.size());
    FRep->FLength = uint32_t(length);
    return;
  }
  TRep* fresh = NewRep(length, GrownCapacity(length));
  CopyChars(fresh->Chars(), data(), pos);
  CopyChars(fresh->Chars() + pos, text.data(), text.size());
  CopyChars(fresh->Chars() + pos + text.size(), data() + pos + erased, tail);
  Release();
  FRep = fresh;
}

void TSharedWideString::Overwrite(size_t pos, std::u16string_view s) {
  Splice(pos, std::min(s.size(), size() - pos), s);
}

size_t TSharedWideString::AllocatedBytes() const {
  return FRep ? sizeof(TRep) + FRep->Capacity() * sizeof(char16_t) : 0;
}

} // namespace orl
