#include <algorithm>
#include <iterator>

#include "definition/OrlIniFiles.h"
#include "platform/CharCase.h"

namespace orl {

std::u16string THashedStringList::KeyOf(std::u16string_view s) const {
  std::u16string key(s);
  if (!CaseSensitive())
    for (char16_t& c : key) c = AsciiLowerChar(c);
  return key;
}

void THashedStringList::Changed() {
  TStringList::Changed();
  FValueHashValid = false;
  FNameHashValid = false;
}

namespace {
// Prime bucket counts: the rotate-and-xor hash moves the differences of keys
// such as `12_Name` and `13_Name` into high bits, which a power of two would drop.
unsigned PrimeBucketsFor(unsigned lines) {
  static const unsigned kPrimes[] = {251,     509,     1021,     2039,     4093,     8191,     16381,
                                     32749,   65521,   131071,   262139,   524287,   1048573,  2097143,
                                     4194301, 8388593, 16777213, 33554393, 67108859, 134217689, 268435399};
  for (unsigned prime : kPrimes)
    if (prime >= lines) return prime;
  return kPrimes[std::size(kPrimes) - 1];
}
} // namespace

// About one line per bucket, so a lookup in a long section stays short.
std::unique_ptr<TStringHash> THashedStringList::FreshTable(std::unique_ptr<TStringHash> table) const {
  const unsigned size = PrimeBucketsFor(unsigned(Count()));
  if (table && table->BucketCount() == size) {
    table->Clear();
    return table;
  }
  return std::make_unique<TStringHash>(size);
}

void THashedStringList::UpdateValueHash() {
  if (FValueHashValid) return;
  FValueHash = FreshTable(std::move(FValueHash));
  for (int i = 0; i < Count(); ++i) FValueHash->Add(KeyOf(Strings(i)), i);
  FValueHashValid = true;
}

void THashedStringList::UpdateNameHash() {
  if (FNameHashValid) return;
  FNameHash = FreshTable(std::move(FNameHash));
  for (int i = 0; i < Count(); ++i) {
    const std::u16string& line = Strings(i);
    const size_t eq = NameValueSeparator(line);
    if (eq != std::u16string::npos) FNameHash->Add(KeyOf(std::u16string_view(line).substr(0, eq)), i);
  }
  FNameHashValid = true;
}

void THashedStringList::BuildHashTables() {
  UpdateValueHash();
  UpdateNameHash();
}

// An appended line is the highest index, so adding its keys to valid tables
// gives the same tables a rebuild would. This keeps a run of writes, each
// followed by a lookup, linear.
void THashedStringList::InsertObject(int index, std::u16string s, TObject* object) {
  const bool bAppend = index == Count();
  const bool bValueValid = FValueHashValid, bNameValid = FNameHashValid;
  TStringList::InsertObject(index, std::move(s), object);
  if (!bAppend) return;
  FValueHashValid = bValueValid;
  FNameHashValid = bNameValid;
  AddKeys(Count() - 1);
}

void THashedStringList::AddKeys(int index) {
  // A table outgrown by appends is rebuilt larger at the next lookup.
  if (FValueHashValid && unsigned(Count()) > 2 * FValueHash->BucketCount()) FValueHashValid = false;
  if (FNameHashValid && unsigned(Count()) > 2 * FNameHash->BucketCount()) FNameHashValid = false;
  const std::u16string& line = Strings(index);
  if (FValueHashValid) FValueHash->Add(KeyOf(line), index);
  const size_t eq = NameValueSeparator(line);
  if (FNameHashValid && eq != std::u16string::npos)
    FNameHash->Add(KeyOf(std::u16string_view(line).substr(0, eq)), index);
}

int THashedStringList::IndexOf(std::u16string_view s) {
  UpdateValueHash();
  return FValueHash->ValueOf(KeyOf(s));
}

int THashedStringList::IndexOfName(std::u16string_view name) {
  UpdateNameHash();
  return FNameHash->ValueOf(KeyOf(name));
}

int THashedStringList::PIndexOf(const char16_t* p, int len) {
  UpdateValueHash();
  return FValueHash->PValueOf(p, len, CaseSensitive());
}

} // namespace orl
