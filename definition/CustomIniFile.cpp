#include "definition/IniValues.h"
#include "definition/OrlIniFiles.h"
#include "platform/CodePages.h"
#include "platform/Collation.h"

namespace orl {

int TCustomIniFile::ReadInteger(std::u16string_view section, std::u16string_view ident, int def) {
  return IniTextToInt(ReadString(section, ident, u""), def);
}

void TCustomIniFile::WriteInteger(std::u16string_view section, std::u16string_view ident, int value) {
  WriteString(section, ident, IntToIniText(value));
}

bool TCustomIniFile::ReadBool(std::u16string_view section, std::u16string_view ident, bool def) {
  return ReadInteger(section, ident, def ? 1 : 0) != 0;
}

void TCustomIniFile::WriteBool(std::u16string_view section, std::u16string_view ident, bool value) {
  WriteString(section, ident, BoolToIniText(value));
}

int TCustomIniFile::ReadBinaryStream(std::u16string_view section, std::u16string_view name, TMemoryStream& value) {
  const std::u16string text = ReadString(section, name, u"");
  std::vector<uint8_t> bytes;
  bytes.reserve(text.size() / 2);
  for (size_t i = 0; i + 1 < text.size(); i += 2) {
    const int hi = HexDigitValue(text[i]), lo = HexDigitValue(text[i + 1]);
    if (hi < 0 || lo < 0) break;
    bytes.push_back(uint8_t(hi << 4 | lo));
  }
  const size_t position = value.Position();
  value.Write(bytes.data(), bytes.size());
  value.SetPosition(position);
  return int(bytes.size());
}

void TCustomIniFile::WriteBinaryStream(std::u16string_view section, std::u16string_view name, TMemoryStream& value) {
  static const char16_t kDigits[] = u"0123456789ABCDEF";
  std::u16string text;
  uint8_t byte;
  while (value.Read(&byte, 1) == 1) {
    text.push_back(kDigits[byte >> 4]);
    text.push_back(kDigits[byte & 15]);
  }
  WriteString(section, name, text);
}

TDateTime TCustomIniFile::ReadDate(std::u16string_view section, std::u16string_view name, TDateTime def) {
  return IniTextToDate(ReadString(section, name, u""), def);
}
TDateTime TCustomIniFile::ReadDateTime(std::u16string_view section, std::u16string_view name, TDateTime def) {
  return IniTextToDateTime(ReadString(section, name, u""), def);
}
double TCustomIniFile::ReadFloat(std::u16string_view section, std::u16string_view name, double def) {
  return IniTextToFloat(ReadString(section, name, u""), def);
}
TDateTime TCustomIniFile::ReadTime(std::u16string_view section, std::u16string_view name, TDateTime def) {
  return IniTextToTime(ReadString(section, name, u""), def);
}

void TCustomIniFile::WriteDate(std::u16string_view section, std::u16string_view name, TDateTime value) {
  WriteString(section, name, DateToStr(value));
}
void TCustomIniFile::WriteDateTime(std::u16string_view section, std::u16string_view name, TDateTime value) {
  WriteString(section, name, DateTimeToStr(value));
}
void TCustomIniFile::WriteFloat(std::u16string_view section, std::u16string_view name, double value) {
  WriteString(section, name, FloatToStr(value));
}
void TCustomIniFile::WriteTime(std::u16string_view section, std::u16string_view name, TDateTime value) {
  WriteString(section, name, TimeToStr(value));
}

void TCustomIniFile::ReadSections(std::u16string_view section, TStringList& strings) {
  TStringList all;
  ReadSections(all);
  strings.BeginUpdate();
  strings.Clear();
  for (int i = 0; i < all.Count(); ++i) {
    const std::u16string& name = all.Strings(i);
    if (name.size() >= section.size() && SameTextFolded(std::u16string_view(name).substr(0, section.size()), section))
      strings.Add(name);
  }
  strings.EndUpdate();
}

bool TCustomIniFile::ValueExists(std::u16string_view section, std::u16string_view ident) {
  TStringList names;
  ReadSection(section, names);
  for (int i = 0; i < names.Count(); ++i)
    if (SameTextFolded(names.Strings(i), ident)) return true;
  return false;
}

bool TCustomIniFile::SectionExists(std::u16string_view section) {
  TStringList names;
  ReadSection(section, names);
  return names.Count() > 0;
}

} // namespace orl
