#include "definition/StringList.h"

#include <algorithm>

#include "platform/CodePages.h"
#include "platform/Collation.h"
#include "platform/FileIO.h"

namespace orl {

namespace {
const std::u16string kEmpty;
}

const std::u16string& TStringList::Strings(int index) const { return ValidIndex(index) ? FItems[size_t(index)].Text : kEmpty; }

TObject* TStringList::Objects(int index) const { return ValidIndex(index) ? FItems[size_t(index)].Object : nullptr; }

void TStringList::Put(int index, std::u16string s) {
  if (!ValidIndex(index)) return;
  FItems[size_t(index)].Text = std::move(s);
  Changed();
}

void TStringList::PutObject(int index, TObject* object) {
  if (ValidIndex(index)) FItems[size_t(index)].Object = object;
}

int TStringList::AddObject(std::u16string s, TObject* object) {
  InsertObject(Count(), std::move(s), object);
  return Count() - 1;
}

void TStringList::InsertObject(int index, std::u16string s, TObject* object) {
  if (index < 0 || index > Count()) return;
  FItems.insert(FItems.begin() + index, TItem{std::move(s), object});
  Changed();
}

void TStringList::Delete(int index) {
  if (!ValidIndex(index)) return;
  FItems.erase(FItems.begin() + index);
  Changed();
}

void TStringList::Move(int curIndex, int newIndex) {
  if (curIndex == newIndex || !ValidIndex(curIndex) || !ValidIndex(newIndex)) return;
  TItem item = std::move(FItems[size_t(curIndex)]);
  FItems.erase(FItems.begin() + curIndex);
  FItems.insert(FItems.begin() + newIndex, std::move(item));
  Changed();
}

void TStringList::Exchange(int index1, int index2) {
  if (!ValidIndex(index1) || !ValidIndex(index2)) return;
  std::swap(FItems[size_t(index1)], FItems[size_t(index2)]);
  Changed();
}

void TStringList::Assign(const TStringList& source) {
  if (&source == this) return;
  FItems = source.FItems;
  Changed();
}

void TStringList::AddStrings(const TStringList& source) {
  const std::vector<TItem> copy = source.FItems;
  FItems.insert(FItems.end(), copy.begin(), copy.end());
  Changed();
}

void TStringList::Clear() {
  if (FItems.empty()) return;
  FItems.clear();
  Changed();
}

void TStringList::Sort() {
  std::stable_sort(FItems.begin(), FItems.end(),
                   [this](const TItem& a, const TItem& b) { return CompareStrings(a.Text, b.Text) < 0; });
  Changed();
}

int TStringList::CompareStrings(std::u16string_view a, std::u16string_view b) const {
  return CompareTextLocale(a, b, FCaseSensitive);
}

int TStringList::IndexOf(std::u16string_view s) {
  for (int i = 0; i < Count(); ++i)
    if (CompareStrings(FItems[size_t(i)].Text, s) == 0) return i;
  return -1;
}

int TStringList::IndexOfName(std::u16string_view name) {
  for (int i = 0; i < Count(); ++i) {
    const std::u16string& line = FItems[size_t(i)].Text;
    const size_t eq = NameValueSeparator(line);
    if (eq != std::u16string::npos && CompareStrings(std::u16string_view(line).substr(0, eq), name) == 0) return i;
  }
  return -1;
}

int TStringList::IndexOfObject(const TObject* object) const {
  for (int i = 0; i < Count(); ++i)
    if (FItems[size_t(i)].Object == object) return i;
  return -1;
}

std::u16string TStringList::Names(int index) const {
  const std::u16string& line = Strings(index);
  const size_t eq = NameValueSeparator(line);
  return eq == std::u16string::npos ? std::u16string() : line.substr(0, eq);
}

std::u16string TStringList::ValueFromIndex(int index) const {
  const std::u16string& line = Strings(index);
  const size_t eq = NameValueSeparator(line);
  return eq == std::u16string::npos ? std::u16string() : line.substr(eq + 1);
}

void TStringList::SetCaseSensitive(bool value) {
  if (value == FCaseSensitive) return;
  FCaseSensitive = value;
  Changed();
}

void TStringList::EndUpdate() {
  if (FUpdateCount > 0 && --FUpdateCount == 0) Changed();
}

std::u16string TStringList::Text() const {
  std::u16string text;
  for (const TItem& item : FItems) {
    text += item.Text;
    text += u"\r\n";
  }
  return text;
}

void TStringList::LoadFromFile(const std::filesystem::path& path, unsigned codePageWithoutBom) {
  std::vector<std::u16string> lines = SplitLines(DecodeText(ReadFileBytes(path), codePageWithoutBom));
  FItems.clear();
  FItems.reserve(lines.size());
  for (std::u16string& line : lines) FItems.push_back(TItem{std::move(line), nullptr});
  Changed();
}

void TStringList::SaveToFile(const std::filesystem::path& path) const { WriteFileAtomic(path, FileImage()); }

std::string TStringList::FileImage() const { return EncodeUtf16LE(Text(), true); }

} // namespace orl
