#include <filesystem>

#include "definition/IniLines.h"
#include "definition/IniValues.h"
#include "definition/MemIni.h"
#include "platform/FileIO.h"

namespace orl {

namespace {
using TGuard = std::lock_guard<std::recursive_mutex>;
constexpr unsigned kUtf16LE = 1200;
} // namespace

TMemIniFileUTF16::TMemIniFileUTF16(std::filesystem::path fileName) : FFileName(std::move(fileName)) { LoadValues(); }

TMemIniFileUTF16::~TMemIniFileUTF16() { ClearSections(); }

void TMemIniFileUTF16::Notify() {
  if (OnChange) OnChange(*this);
}

void TMemIniFileUTF16::LoadValues() {
  TGuard guard(FLock);
  if (FFileName.empty() || !PathExists(FFileName)) {
    ClearSections();
    return;
  }
  TStringList lines;
  lines.LoadFromFile(FFileName, kUtf16LE);
  SetStrings(lines);
}

void TMemIniFileUTF16::ClearSections() {
  for (int i = 0; i < FSections.Count(); ++i) delete FSections.Objects(i);
  FSections.Clear();
}

void TMemIniFileUTF16::Clear() {
  const bool bHadSections = FSections.Count() > 0;
  ClearSections();
  if (bHadSections) Notify();
}

void TMemIniFileUTF16::SetCaseSensitive(bool value) {
  if (value == FSections.CaseSensitive()) return;
  for (int i = 0; i < FSections.Count(); ++i) static_cast<TWideHashedStringList*>(FSections.Objects(i))->SetCaseSensitive(value);
  FSections.SetCaseSensitive(value);
}

TWideHashedStringList* TMemIniFileUTF16::SectionLines(std::u16string_view section) {
  const int i = FSections.IndexOf(section);
  return i < 0 ? nullptr : static_cast<TWideHashedStringList*>(FSections.Objects(i));
}

TWideHashedStringList* TMemIniFileUTF16::AddSection(std::u16string name) {
  TGuard guard(FLock);
  auto* lines = new TWideHashedStringList;
  lines->SetCaseSensitive(FSections.CaseSensitive());
  FSections.AddObject(std::move(name), lines);
  return lines;
}

// Unlike the definition store, every line is trimmed first: blanks around
// values are lost and an indented `;` line is a comment.
void TMemIniFileUTF16::SetStrings(const TStringList& list) {
  ClearSections();
  TWideHashedStringList* current = nullptr;
  for (int i = 0; i < list.Count(); ++i) {
    const std::u16string line = TrimmedCopy(list.Strings(i));
    if (line.empty() || line.front() == u';') continue;
    if (IsSectionHeader(line)) {
      current = AddSection(SectionNameOf(line));
      continue;
    }
    if (!current) continue;
    const size_t eq = line.find(u'=');
    if (eq == std::u16string::npos) current->Add(line);
    else
      current->Add(KeyLine(TrimmedCopy(std::u16string_view(line).substr(0, eq)),
                           TrimmedCopy(std::u16string_view(line).substr(eq + 1))));
  }
}

void TMemIniFileUTF16::GetStrings(TStringList& list) {
  TGuard guard(FLock);
  list.BeginUpdate();
  list.Clear();
  for (int s = 0; s < FSections.Count(); ++s) {
    list.Add(u"[" + FSections.Strings(s) + u"]");
    const auto* lines = static_cast<const TWideHashedStringList*>(FSections.Objects(s));
    for (int i = 0; i < lines->Count(); ++i) list.Add(lines->Strings(i));
    list.Add(u"");
  }
  list.EndUpdate();
}

std::u16string TMemIniFileUTF16::ReadString(std::u16string_view section, std::u16string_view ident,
                                            std::u16string_view def) {
  TWideHashedStringList* lines = SectionLines(section);
  const int i = lines ? lines->IndexOfName(ident) : -1;
  std::u16string value = i < 0 ? std::u16string() : lines->ValueFromIndex(i);
  return value.empty() ? std::u16string(def) : value;
}

bool TMemIniFileUTF16::ReadWideString(std::u16string_view section, std::u16string_view ident, std::u16string_view def,
                                      std::u16string& value) {
  value = ReadString(section, ident, def);
  return true;
}

void TMemIniFileUTF16::WriteString(std::u16string_view section, std::u16string_view ident, std::u16string_view value) {
  TWideHashedStringList* lines = SectionLines(section);
  if (!lines) lines = AddSection(std::u16string(section));
  const int i = lines->IndexOfName(ident);
  if (i >= 0) lines->Put(i, KeyLine(ident, value));
  else lines->Add(KeyLine(ident, value));
  Notify();
}

void TMemIniFileUTF16::DeleteKey(std::u16string_view section, std::u16string_view ident) {
  TWideHashedStringList* lines = SectionLines(section);
  const int i = lines ? lines->IndexOfName(ident) : -1;
  if (i < 0) return;
  lines->Delete(i);
  Notify();
}

void TMemIniFileUTF16::EraseSection(std::u16string_view section) {
  {
    TGuard guard(FLock);
    const int i = FSections.IndexOf(section);
    if (i < 0) return;
    delete FSections.Objects(i);
    FSections.Delete(i);
  }
  Notify();
}

int TMemIniFileUTF16::ReadInteger(std::u16string_view section, std::u16string_view ident, int def) {
  return IniTextToInt(ReadString(section, ident, u""), def);
}
void TMemIniFileUTF16::WriteInteger(std::u16string_view section, std::u16string_view ident, int value) {
  WriteString(section, ident, IntToIniText(value));
}
bool TMemIniFileUTF16::ReadBool(std::u16string_view section, std::u16string_view ident, bool def) {
  return ReadInteger(section, ident, def ? 1 : 0) != 0;
}
void TMemIniFileUTF16::WriteBool(std::u16string_view section, std::u16string_view ident, bool value) {
  WriteString(section, ident, BoolToIniText(value));
}
double TMemIniFileUTF16::ReadFloat(std::u16string_view section, std::u16string_view ident, double def) {
  return IniTextToFloat(ReadString(section, ident, u""), def);
}
void TMemIniFileUTF16::WriteFloat(std::u16string_view section, std::u16string_view ident, double value) {
  WriteString(section, ident, FloatToStr(value));
}
TDateTime TMemIniFileUTF16::ReadDateTime(std::u16string_view section, std::u16string_view ident, TDateTime def) {
  return IniTextToDateTime(ReadString(section, ident, u""), def);
}
void TMemIniFileUTF16::WriteDateTime(std::u16string_view section, std::u16string_view ident, TDateTime value) {
  WriteString(section, ident, DateTimeToStr(value));
}

bool TMemIniFileUTF16::ValueExists(std::u16string_view section, std::u16string_view ident) {
  TStringList names;
  ReadSection(section, names);
  const std::u16string key = FullUpperCase(ident);
  for (int i = 0; i < names.Count(); ++i)
    if (FullUpperCase(names.Strings(i)) == key) return true;
  return false;
}

void TMemIniFileUTF16::ReadSection(std::u16string_view section, TStringList& strings) {
  if (FSections.Count() == 0) return;
  strings.BeginUpdate();
  strings.Clear();
  if (TWideHashedStringList* lines = SectionLines(section))
    for (int i = 0; i < lines->Count(); ++i) strings.Add(lines->Names(i));
  strings.EndUpdate();
}

void TMemIniFileUTF16::ReadSections(TStringList& strings) {
  TGuard guard(FLock);
  strings.BeginUpdate();
  strings.Clear();
  for (int i = 0; i < FSections.Count(); ++i)
    if (strings.IndexOf(FSections.Strings(i)) < 0) strings.Add(FSections.Strings(i));
  strings.Sort();
  strings.EndUpdate();
}

void TMemIniFileUTF16::ReadSectionValues(std::u16string_view section, TStringList& strings) {
  TGuard guard(FLock);
  strings.BeginUpdate();
  strings.Clear();
  if (TWideHashedStringList* lines = SectionLines(section)) strings.Assign(*lines);
  strings.EndUpdate();
}

void TMemIniFileUTF16::Rename(std::filesystem::path fileName, bool bReload) {
  TGuard guard(FLock);
  RenameFile(FFileName, std::move(fileName), bReload, [this] { LoadValues(); });
}

void TMemIniFileUTF16::RenameSection(std::u16string_view oldName, std::u16string_view newName) {
  const int i = FSections.IndexOf(oldName);
  if (i >= 0) FSections.Put(i, std::u16string(newName));
}

bool TMemIniFileUTF16::SectionExists(std::u16string_view section) { return FSections.IndexOf(section) >= 0; }

void TMemIniFileUTF16::UpdateFile() { WriteFileAtomic(FFileName, FileImage().Bytes); }

TFileImage TMemIniFileUTF16::FileImage() {
  TGuard guard(FLock);
  TStringList list;
  GetStrings(list);
  return {FFileName, list.FileImage()};
}

} // namespace orl
