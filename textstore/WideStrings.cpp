#include <algorithm>
#include <cstring>

#include "platform/CodePages.h"
#include "platform/Collation.h"
#include "platform/FileIO.h"
#include "textstore/OrlUnicodeStrings.h"

namespace orl {

namespace {

constexpr char16_t kByteOrderMark = 0xFEFF;
constexpr char16_t kSwappedMark = 0xFFFE;

bool OpensWithUtf16Mark(std::string_view bytes) {
  const TTextBom bom = DetectBom(bytes);
  return bom == TTextBom::tbUtf16LE || bom == TTextBom::tbUtf16BE;
}

std::u16string Utf16FromBytes(std::string_view bytes) {
  std::u16string text(bytes.size() / 2, u'\0');
  std::memcpy(text.data(), bytes.data(), text.size() * sizeof(char16_t));
  if (!text.empty() && text.front() == kSwappedMark)
    std::ranges::transform(text, text.begin(), [](char16_t c) { return char16_t((c << 8) | (c >> 8)); });
  const size_t marks = std::min(text.find_first_not_of(kByteOrderMark), text.size());
  return text.substr(marks);
}

std::string RestOf(TMemoryStream& Stream) {
  if (Stream.Size() < Stream.Position()) throw EReadError("Invalid string header read from the stream");
  std::string bytes(Stream.Size() - Stream.Position(), '\0');
  Stream.Read(reinterpret_cast<uint8_t*>(bytes.data()), bytes.size());
  return bytes;
}

void WriteBytes(TMemoryStream& Stream, std::string_view bytes) {
  Stream.Write(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size());
}

std::u16string_view NameOf(std::u16string_view line) {
  const size_t separator = NameValueSeparator(line);
  return separator == std::u16string_view::npos ? std::u16string_view() : line.substr(0, separator);
}

} // namespace

void TElWideStrings::AddStrings(const TElWideStrings& Strings) {
  BeginUpdate();
  for (int i = 0; i < Strings.GetCount(); ++i) Add(Strings.Get(i));
  EndUpdate();
}

void TElWideStrings::Assign(const TElWideStrings& Source) {
  if (&Source == this) return;
  BeginUpdate();
  Clear();
  AddStrings(Source);
  EndUpdate();
}

int TElWideStrings::IndexOf(std::u16string_view S) const {
  for (int i = 0; i < GetCount(); ++i)
    if (SameLine(Get(i), S)) return i;
  return -1;
}

int TElWideStrings::IndexOfName(std::u16string_view Name) const {
  for (int i = 0; i < GetCount(); ++i) {
    const std::u16string line = Get(i);
    if (NameValueSeparator(line) != std::u16string::npos && SameLine(NameOf(line), Name)) return i;
  }
  return -1;
}

std::u16string TElWideStrings::GetTextStr() const {
  std::u16string text;
  for (int i = 0; i < GetCount(); ++i) text.append(Get(i)).append(u"\r\n");
  return text;
}

void TElWideStrings::SetTextStr(std::u16string_view Value) {
  BeginUpdate();
  Clear();
  for (const std::u16string& line : SplitLines(Value)) Add(line);
  EndUpdate();
}

void TElWideStrings::LoadFromStream(TMemoryStream& Stream) { LoadFromBytes(RestOf(Stream)); }

void TElWideStrings::LoadFromBytes(std::string_view bytes) {
  if (FSaveUnicode || OpensWithUtf16Mark(bytes))
    SetTextStr(Utf16FromBytes(bytes));
  else
    SetTextStr(DecodeCodePage(bytes, SystemAnsiCodePage()));
}

void TElWideStrings::SaveToStream(TMemoryStream& Stream) {
  FSaved = false;
  const std::u16string text = GetTextStr();
  WriteBytes(Stream, FSaveUnicode ? EncodeUtf16LE(text, true) : EncodeCodePage(text, SystemAnsiCodePage()));
  FSaved = true;
}

void TElWideStrings::LoadFromFile(const std::filesystem::path& FileName) {
  LoadFromBytes(ReadFileBytes(FileName));
}

void TElWideStrings::SaveToFile(const std::filesystem::path& FileName) {
  TMemoryStream stream;
  SaveToStream(stream);
  const std::vector<uint8_t>& data = stream.Data();
  WriteFileAtomic(FileName, std::string_view(reinterpret_cast<const char*>(data.data()), data.size()));
}

void TElWideStrings::BeginUpdate() {
  if (FUpdateCount == 0) SetUpdateState(true);
  ++FUpdateCount;
}

void TElWideStrings::EndUpdate() {
  if (FUpdateCount > 0 && --FUpdateCount == 0) SetUpdateState(false);
}

bool TElWideStrings::Equals(const TElWideStrings& Strings) const {
  if (GetCount() != Strings.GetCount()) return false;
  for (int i = 0; i < GetCount(); ++i)
    if (Get(i) != Strings.Get(i)) return false;
  return true;
}

std::u16string TElWideStrings::GetName(int Index) const { return std::u16string(NameOf(Get(Index))); }

std::u16string TElWideStrings::GetValue(std::u16string_view Name) const {
  const int index = IndexOfName(Name);
  return index < 0 ? std::u16string() : Get(index).substr(Name.size() + 1);
}

void TElWideStrings::SetValue(std::u16string_view Name, std::u16string_view Value) {
  int index = IndexOfName(Name);
  if (Value.empty()) {
    if (index >= 0) Delete(index);
    return;
  }
  std::u16string line(Name);
  line.append(u"=").append(Value);
  if (index < 0)
    Add(line);
  else
    Put(index, line);
}

std::u16string TElWideStrings::GetValueFromIndex(int Index) const {
  if (Index < 0) return {};
  const std::u16string line = Get(Index);
  const size_t separator = NameValueSeparator(line);
  return separator == std::u16string::npos ? std::u16string() : line.substr(separator + 1);
}

bool TElWideStrings::SameLine(std::u16string_view a, std::u16string_view b) const {
  return CompareTextLocale(a, b, false) == 0;
}

} // namespace orl
