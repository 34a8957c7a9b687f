#include <filesystem>

#include "definition/IniLines.h"
#include "definition/OrlIniFiles.h"
#include "platform/CodePages.h"
#include "platform/Collation.h"
#include "platform/FileIO.h"

namespace orl {

TMemIniFile::TMemIniFile(std::filesystem::path fileName) : TCustomIniFile(std::move(fileName)) { LoadValues(); }

TMemIniFile::~TMemIniFile() { Clear(); }

void TMemIniFile::LoadValues() {
  if (FFileName.empty() || !PathExists(FFileName)) {
    Clear();
    return;
  }
  TStringList lines;
  lines.LoadFromFile(FFileName, SystemAnsiCodePage());
  SetStrings(lines);
}

void TMemIniFile::Clear() {
  for (int i = 0; i < FSections.Count(); ++i) delete FSections.Objects(i);
  FSections.Clear();
}

void TMemIniFile::SetCaseSensitive(bool value) {
  if (value == FSections.CaseSensitive()) return;
  for (int i = 0; i < FSections.Count(); ++i) static_cast<THashedStringList*>(FSections.Objects(i))->SetCaseSensitive(value);
  FSections.SetCaseSensitive(value);
}

THashedStringList* TMemIniFile::AddSection(std::u16string name) {
  auto* lines = new THashedStringList;
  lines->SetCaseSensitive(FSections.CaseSensitive());
  FSections.AddObject(std::move(name), lines);
  return lines;
}

THashedStringList* TMemIniFile::SectionLines(std::u16string_view section) {
  const int i = FSections.IndexOf(section);
  return i < 0 ? nullptr : static_cast<THashedStringList*>(FSections.Objects(i));
}

std::u16string TMemIniFile::ReadString(std::u16string_view section, std::u16string_view ident, std::u16string_view def) {
  THashedStringList* lines = SectionLines(section);
  const int i = lines ? lines->IndexOfName(ident) : -1;
  if (i < 0) return std::u16string(def);
  return lines->Strings(i).substr(ident.size() + 1);
}

void TMemIniFile::WriteString(std::u16string_view section, std::u16string_view ident, std::u16string_view value) {
  THashedStringList* lines = SectionLines(section);
  if (!lines) lines = AddSection(std::u16string(section));
  const int i = lines->IndexOfName(ident);
  if (i >= 0) lines->Put(i, KeyLine(ident, value));
  else lines->Add(KeyLine(ident, value));
}

void TMemIniFile::DeleteKey(std::u16string_view section, std::u16string_view ident) {
  THashedStringList* lines = SectionLines(section);
  if (lines) lines->Delete(lines->IndexOfName(ident));
}

void TMemIniFile::EraseSection(std::u16string_view section) {
  const int i = FSections.IndexOf(section);
  if (i < 0) return;
  delete FSections.Objects(i);
  FSections.Delete(i);
}

void TMemIniFile::ReadSectionNames(std::u16string_view section, TStringList& strings, bool bAddToList) {
  strings.BeginUpdate();
  if (!bAddToList) strings.Clear();
  if (THashedStringList* lines = SectionLines(section))
    for (int i = 0; i < lines->Count(); ++i) strings.Add(lines->Names(i));
  strings.EndUpdate();
}

void TMemIniFile::ReadSection(std::u16string_view section, TStringList& strings) {
  ReadSectionNames(section, strings, false);
}

void TMemIniFile::ReadSections(TStringList& strings) { strings.Assign(FSections); }

void TMemIniFile::ReadSectionValues(std::u16string_view section, TStringList& strings) {
  strings.BeginUpdate();
  strings.Clear();
  if (THashedStringList* lines = SectionLines(section)) strings.Assign(*lines);
  strings.EndUpdate();
}

// The hash finds the usual case at once; the walk covers what ASCII lowering
// does not equate (other letters, a case-sensitive store).
bool TMemIniFile::ValueExists(std::u16string_view section, std::u16string_view ident) {
  THashedStringList* lines = SectionLines(section);
  if (!lines) return false;
  if (lines->IndexOfName(ident) >= 0) return true;
  for (int i = 0; i < lines->Count(); ++i)
    if (SameTextFolded(lines->Names(i), ident)) return true;
  return false;
}

void TMemIniFile::GetStrings(TStringList& list) const {
  list.BeginUpdate();
  list.Clear();
  for (int s = 0; s < FSections.Count(); ++s) {
    list.Add(u"[" + FSections.Strings(s) + u"]");
    const auto* lines = static_cast<const THashedStringList*>(FSections.Objects(s));
    for (int i = 0; i < lines->Count(); ++i) list.Add(lines->Strings(i));
    list.Add(u"");
  }
  list.EndUpdate();
}

void TMemIniFile::SetStrings(const TStringList& list) {
  Clear();
  THashedStringList* current = nullptr;
  for (int i = 0; i < list.Count(); ++i) {
    const std::u16string& line = list.Strings(i);
    if (line.empty() || line.front() == u';') continue;
    if (IsSectionHeader(line)) {
      current = AddSection(SectionNameOf(line));
      continue;
    }
    if (!current) continue;
    const size_t eq = NameValueSeparator(line);
    if (eq == std::u16string::npos) current->Add(line);
    else current->Add(KeyLine(TrimmedCopy(std::u16string_view(line).substr(0, eq)), std::u16string_view(line).substr(eq + 1)));
  }
}

void TMemIniFile::UpdateFile() {
  TStringList list;
  GetStrings(list);
  list.SaveToFile(FFileName);
}

void TMemIniFile::Rename(std::filesystem::path fileName, bool bReload) {
  RenameFile(FFileName, std::move(fileName), bReload, [this] { LoadValues(); });
}

void TMemIniFile::RenameSection(std::u16string_view oldName, std::u16string_view newName) {
  const int i = FSections.IndexOf(oldName);
  if (i >= 0) FSections.Put(i, std::u16string(newName));
}

void TMemIniFile::SetSection(std::u16string_view section, const TStringList& list, bool bAddKey) {
  EraseSection(section);
  THashedStringList* lines = AddSection(TrimmedCopy(section));
  int key = 0;
  for (int i = 0; i < list.Count(); ++i) {
    const std::u16string& line = list.Strings(i);
    if (line.empty() || line.front() == u';') continue;
    lines->Add(bAddKey ? Utf8ToUtf16(std::to_string(++key)) + u"=" + line : line);
  }
}

// Lines of one name collapse into one, at the place of the first with the value
// of the last, as WriteString rewrites them. A line without `=` has no name to
// collapse by, so it stays as it is, in its sorted place.
void TMemIniFile::SortSection(std::u16string_view section) {
  THashedStringList* lines = SectionLines(section);
  if (!lines) return;
  TStringList sorted;
  sorted.Assign(*lines);
  sorted.Sort();
  const std::u16string name(section);
  EraseSection(name);
  for (int i = 0; i < sorted.Count(); ++i) {
    const std::u16string& line = sorted.Strings(i);
    if (NameValueSeparator(line) != std::u16string::npos) WriteString(name, sorted.Names(i), sorted.ValueFromIndex(i));
    else (SectionLines(name) ? SectionLines(name) : AddSection(name))->Add(line);
  }
}

void TMemIniFile::MoveSectionUp(std::u16string_view section, int index) {
  THashedStringList* lines = SectionLines(section);
  if (lines && index >= 1 && index < lines->Count()) lines->Move(index, index - 1);
}

void TMemIniFile::MoveSectionDown(std::u16string_view section, int index) {
  THashedStringList* lines = SectionLines(section);
  if (lines && index >= 0 && index < lines->Count() - 1) lines->Move(index, index + 1);
}

} // namespace orl
