#include <bit>

#include "definition/OrlIniFiles.h"
#include "platform/CharCase.h"

namespace orl {
namespace {

bool HasNonAscii(const char16_t* p, int len) {
  for (int i = 0; i < len; ++i)
    if (p[i] >= 0x80) return true;
  return false;
}

// Hash of a probe with ASCII letters lowered and the other units mapped by `mapOther`.
template <typename TMap>
uint32_t ProbeHash(const char16_t* p, int len, TMap mapOther) {
  uint32_t h = 0;
  for (int i = 0; i < len; ++i) {
    const char16_t c = p[i] < 0x80 ? AsciiLowerChar(p[i]) : mapOther(p[i]);
    h = std::rotl(h, 2) ^ c;
  }
  return h;
}

bool SameUnitIgnoringCase(char16_t stored, char16_t probe) {
  return stored == probe || SysLowerChar(stored) == probe || SysUpperChar(stored) == probe;
}

} // namespace

TStringHash::TStringHash(unsigned size) : FBuckets(size == 0 ? 1 : size, -1) {}

uint32_t TStringHash::HashOf(std::u16string_view key) {
  uint32_t h = 0;
  for (char16_t c : key) h = std::rotl(h, 2) ^ c;
  return h;
}

void TStringHash::Add(std::u16string key, int value) {
  int& head = FBuckets[HashOf(key) % FBuckets.size()];
  FItems.push_back(TItem{head, std::move(key), value});
  head = int(FItems.size()) - 1;
}

void TStringHash::Clear() {
  std::fill(FBuckets.begin(), FBuckets.end(), -1);
  FItems.clear();
}

int TStringHash::Find(std::u16string_view key) const {
  for (int i = FBuckets[HashOf(key) % FBuckets.size()]; i >= 0; i = FItems[size_t(i)].Next)
    if (FItems[size_t(i)].Key == key) return i;
  return -1;
}

void TStringHash::Remove(std::u16string_view key) {
  int* link = &FBuckets[HashOf(key) % FBuckets.size()];
  for (; *link >= 0; link = &FItems[size_t(*link)].Next) {
    if (FItems[size_t(*link)].Key == key) {
      *link = FItems[size_t(*link)].Next;
      return;
    }
  }
}

bool TStringHash::Modify(std::u16string_view key, int value) {
  const int i = Find(key);
  if (i < 0) return false;
  FItems[size_t(i)].Value = value;
  return true;
}

int TStringHash::ValueOf(std::u16string_view key) const {
  const int i = Find(key);
  return i < 0 ? -1 : FItems[size_t(i)].Value;
}

int TStringHash::FindInBucket(uint32_t hash, const char16_t* pKey, int len, bool bCase) const {
  for (int i = FBuckets[hash % FBuckets.size()]; i >= 0; i = FItems[size_t(i)].Next) {
    const std::u16string& key = FItems[size_t(i)].Key;
    if (int(key.size()) != len) continue;
    int k = 0;
    if (bCase)
      while (k < len && key[size_t(k)] == pKey[k]) ++k;
    else
      while (k < len && SameUnitIgnoringCase(key[size_t(k)], pKey[k])) ++k;
    if (k == len) return FItems[size_t(i)].Value;
  }
  return -1;
}

int TStringHash::PValueOf(const char16_t* pKey, int len, bool bCase) const {
  if (len < 0 || (len > 0 && pKey == nullptr)) return -1;
  if (bCase) return FindInBucket(HashOf(std::u16string_view(pKey, size_t(len))), pKey, len, true);
  const int found = FindInBucket(ProbeHash(pKey, len, [](char16_t c) { return c; }), pKey, len, false);
  if (found >= 0 || !HasNonAscii(pKey, len)) return found;
  // Stored keys keep their non-ASCII letters as written, so a probe in the other
  // case of such a key hashes elsewhere: look where its lower and upper forms fall.
  const int lower = FindInBucket(ProbeHash(pKey, len, SysLowerChar), pKey, len, false);
  return lower >= 0 ? lower : FindInBucket(ProbeHash(pKey, len, SysUpperChar), pKey, len, false);
}

} // namespace orl
