#include "platform/FormatSettings.h"

#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdio>

#include "platform/Blanks.h"
#include "platform/CodePages.h"

namespace orl {
namespace {

constexpr int kDaysFrom1899To1970 = 25569;
constexpr double kMsecPerDay = 86400000.0;

// Reads up to `maxDigits` digits at `pos`; false when there is none.
bool ReadNumber(std::u16string_view s, size_t& pos, int maxDigits, int& value) {
  value = 0;
  int digits = 0;
  while (pos < s.size() && digits < maxDigits && s[pos] >= u'0' && s[pos] <= u'9') {
    value = value * 10 + (s[pos++] - u'0');
    ++digits;
  }
  return digits > 0;
}

bool Expect(std::u16string_view s, size_t& pos, char16_t c) {
  if (pos >= s.size() || s[pos] != c) return false;
  ++pos;
  return true;
}

std::u16string Digits(int value, int width) {
  char buffer[16];
  std::snprintf(buffer, sizeof buffer, "%0*d", width, value);
  return Utf8ToUtf16(buffer);
}

} // namespace

const TFormatSettings& SystemFormatSettings() {
  static const TFormatSettings settings;
  return settings;
}

bool TryStrToFloat(std::u16string_view text, double& value) {
  text = TrimBlanks(text);
  if (text.empty() || text.size() > 64) return false;
  std::string ascii;
  for (char16_t c : text) {
    if (c == SystemFormatSettings().DecimalSeparator) c = u'.';
    if (c > 0x7F) return false;
    ascii.push_back(char(c));
  }
  const char* first = ascii.data();
  if (*first == '+') ++first;
  auto [end, ec] = std::from_chars(first, ascii.data() + ascii.size(), value);
  return ec == std::errc() && end == ascii.data() + ascii.size() && std::isfinite(value);
}

std::u16string FloatToStr(double value) {
  char buffer[40];
  std::snprintf(buffer, sizeof buffer, "%.15g", value);
  std::u16string text = Utf8ToUtf16(buffer);
  for (char16_t& c : text)
    if (c == u'.') c = SystemFormatSettings().DecimalSeparator;
  return text;
}

TDateTime EncodeDate(int year, int month, int day) {
  using namespace std::chrono;
  const sys_days d{std::chrono::year(year) / std::chrono::month(unsigned(month)) / std::chrono::day(unsigned(day))};
  return double(d.time_since_epoch().count() + kDaysFrom1899To1970);
}

TDateTime EncodeTime(int hour, int minute, int second, int msec) {
  return ((hour * 60.0 + minute) * 60.0 + second + msec / 1000.0) * 1000.0 / kMsecPerDay;
}

bool TryStrToDate(std::u16string_view text, TDateTime& value) {
  text = TrimBlanks(text);
  const char16_t sep = SystemFormatSettings().DateSeparator;
  size_t pos = 0;
  int y, m, d;
  if (!ReadNumber(text, pos, 4, y) || !Expect(text, pos, sep) || !ReadNumber(text, pos, 2, m) ||
      !Expect(text, pos, sep) || !ReadNumber(text, pos, 2, d) || pos != text.size())
    return false;
  const std::chrono::year_month_day ymd{std::chrono::year(y), std::chrono::month(unsigned(m)),
                                        std::chrono::day(unsigned(d))};
  if (!ymd.ok() || y < 1) return false;
  value = EncodeDate(y, m, d);
  return true;
}

bool TryStrToTime(std::u16string_view text, TDateTime& value) {
  text = TrimBlanks(text);
  const char16_t sep = SystemFormatSettings().TimeSeparator;
  size_t pos = 0;
  int h, mi, s = 0;
  if (!ReadNumber(text, pos, 2, h) || !Expect(text, pos, sep) || !ReadNumber(text, pos, 2, mi)) return false;
  if (pos < text.size() && (!Expect(text, pos, sep) || !ReadNumber(text, pos, 2, s))) return false;
  if (pos != text.size() || h > 23 || mi > 59 || s > 59) return false;
  value = EncodeTime(h, mi, s, 0);
  return true;
}

bool TryStrToDateTime(std::u16string_view text, TDateTime& value) {
  text = TrimBlanks(text);
  const size_t blank = text.find(u' ');
  if (blank == std::u16string_view::npos) return TryStrToDate(text, value) || TryStrToTime(text, value);
  TDateTime date, time;
  if (!TryStrToDate(text.substr(0, blank), date) || !TryStrToTime(text.substr(blank + 1), time)) return false;
  value = date + time;
  return true;
}

std::u16string DateToStr(TDateTime value) {
  using namespace std::chrono;
  const year_month_day ymd{sys_days{days{int(std::floor(value)) - kDaysFrom1899To1970}}};
  const std::u16string sep(1, SystemFormatSettings().DateSeparator);
  return Digits(int(ymd.year()), 4) + sep + Digits(int(unsigned(ymd.month())), 2) + sep +
         Digits(int(unsigned(ymd.day())), 2);
}

std::u16string TimeToStr(TDateTime value) {
  const long long msecs = std::llround((value - std::floor(value)) * kMsecPerDay);
  const int seconds = int((msecs / 1000) % 86400);
  const std::u16string sep(1, SystemFormatSettings().TimeSeparator);
  return Digits(seconds / 3600, 2) + sep + Digits(seconds / 60 % 60, 2) + sep + Digits(seconds % 60, 2);
}

std::u16string DateTimeToStr(TDateTime value) {
  if (value == std::floor(value)) return DateToStr(value);
  return DateToStr(value) + u" " + TimeToStr(value);
}

} // namespace orl
