#include "definition/IniValues.h"

#include <climits>
#include <cstdint>

#include "platform/CodePages.h"

namespace orl {
int HexDigitValue(char16_t c) {
  if (c >= u'0' && c <= u'9') return c - u'0';
  if (c >= u'a' && c <= u'f') return c - u'a' + 10;
  if (c >= u'A' && c <= u'F') return c - u'A' + 10;
  return -1;
}

namespace {

// Up to eight hex digits; a value above 0x7FFFFFFF wraps to a negative Integer.
bool TryHexToInt(std::u16string_view digits, int& value) {
  if (digits.empty() || digits.size() > 8) return false;
  uint32_t v = 0;
  for (char16_t c : digits) {
    const int d = HexDigitValue(c);
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

template <typename TConvert>
double Converted(std::u16string_view text, double def, TConvert convert) {
  double value;
  return !text.empty() && convert(text, value) ? value : def;
}

} // namespace

int IniTextToInt(std::u16string_view text, int def) {
  int value = def;
  if (text.size() > 2 && text[0] == u'0' && (text[1] == u'x' || text[1] == u'X'))
    return TryHexToInt(text.substr(2), value) ? value : def;
  return TryDecimalToInt(text, value) ? value : def;
}

std::u16string IntToIniText(int value) { return Utf8ToUtf16(std::to_string(value)); }

double IniTextToFloat(std::u16string_view text, double def) { return Converted(text, def, TryStrToFloat); }
TDateTime IniTextToDate(std::u16string_view text, TDateTime def) { return Converted(text, def, TryStrToDate); }
TDateTime IniTextToTime(std::u16string_view text, TDateTime def) { return Converted(text, def, TryStrToTime); }
TDateTime IniTextToDateTime(std::u16string_view text, TDateTime def) {
  return Converted(text, def, TryStrToDateTime);
}

} // namespace orl
