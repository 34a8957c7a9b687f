#include <climits>

#include "definition/OrlIniFiles.h"
#include "platform/CodePages.h"
#include "platform/Collation.h"

namespace orl {
namespace {

int HexDigit(char16_t c) {
  if (c >= u'0' && c <= u'9') return c - u'0';
  if (c >= u'a' && c <= u'f') return c - u'a' + 10;
  if (c >= u'A' && c <= u'F') return c - u'A' + 10;
  return -1;
}

// Up to eight hex digits; a value above 0x7FFFFFFF wraps to a negative Integer.
bool TryHexToInt(std::u16string_view digits, int& value) {
  if (digits.empty() || digits.size() > 8) return false;
  uint32_t v = 0;
  for (char16_t c : digits) {
    const int d = HexDigit(c);
    if (d < 0) return false;
    v = (v << 4) | uint32_t(d);
  }
  value = int(v);
  return true;
}

bool TryDecimalToInt(std::u16string_view text, int& value) {
  size_t pos = 0;
  while (pos < text.size() && text[pos] == u' ') ++pos;
  bool bNegative = false;
  if (pos < text.size() && (text[pos] == u'-' || text[pos] == u'+')) bNegative = text[pos++] == u'-';
  if (pos == text.size()) return false;
  long long v = 0;
  for (; pos < text.size(); ++pos) {
    if (text[pos] < u'0' || text[pos] > u'9') return false;
    v = v * 10 + (text[pos] - u'0');
    if (v > 1LL + INT_MAX) return false;
  }
  v = bNegative ? -v : v;
  if (v > INT_MAX) return false;
  value = int(v);
  return true;
}

} // namespace

int TCustomIniFile::ReadInteger(std::u16string_view section, std::u16string_view ident, int def) {
  const std::u16string text = ReadString(section, ident, u"");
  int value = def;
  if (text.size() > 2 && text[0] == u'0' && (text[1] == u'x' || text[1] == u'X'))
    return TryHexToInt(std::u16string_view(text).substr(2), value) ? value : def;
  return TryDecimalToInt(text, value) ? value : def;
}

void TCustomIniFile::WriteInteger(std::u16string_view section, std::u16string_view ident, int value) {
  WriteString(section, ident, Utf8ToUtf16(std::to_string(value)));
}

bool TCustomIniFile::ReadBool(std::u16string_view section, std::u16string_view ident, bool def) {
  return ReadInteger(section, ident, def ? 1 : 0) != 0;
}

void TCustomIniFile::WriteBool(std::u16string_view section, std::u16string_view ident, bool value) {
  WriteString(section, ident, value ? u"1" : u"0");
}

int TCustomIniFile::ReadBinaryStream(std::u16string_view section, std::u16string_view name, TMemoryStream& value) {
  const std::u16string text = ReadString(section, name, u"");
  std::vector<uint8_t> bytes;
  bytes.reserve(text.size() / 2);
  for (size_t i = 0; i + 1 < text.size(); i += 2) {
    const int hi = HexDigit(text[i]), lo = HexDigit(text[i + 1]);
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

namespace {
// The typed reads share one rule: an empty or unconvertible text gives the default.
template <typename TConvert>
double ReadConverted(TCustomIniFile& ini, std::u16string_view section, std::u16string_view name, double def,
                     TConvert convert) {
  const std::u16string text = ini.ReadString(section, name, u"");
  double value;
  return !text.empty() && convert(text, value) ? value : def;
}
} // namespace

TDateTime TCustomIniFile::ReadDate(std::u16string_view section, std::u16string_view name, TDateTime def) {
  return ReadConverted(*this, section, name, def, TryStrToDate);
}
TDateTime TCustomIniFile::ReadDateTime(std::u16string_view section, std::u16string_view name, TDateTime def) {
  return ReadConverted(*this, section, name, def, TryStrToDateTime);
}
double TCustomIniFile::ReadFloat(std::u16string_view section, std::u16string_view name, double def) {
  return ReadConverted(*this, section, name, def, TryStrToFloat);
}
TDateTime TCustomIniFile::ReadTime(std::u16string_view section, std::u16string_view name, TDateTime def) {
  return ReadConverted(*this, section, name, def, TryStrToTime);
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
