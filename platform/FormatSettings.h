#pragma once
// Number, date and time texts in the system locale. The locale here is a
// fixed, unambiguous one: '.' decimals, yyyy-mm-dd dates, 24-hour hh:mm:ss times.

#include <string>
#include <string_view>

namespace orl {

/// Days since 1899-12-30, the time of day as the fraction.
using TDateTime = double;

struct TFormatSettings {
  char16_t DecimalSeparator = u'.';
  char16_t DateSeparator = u'-';
  char16_t TimeSeparator = u':';
};

const TFormatSettings& SystemFormatSettings();

bool TryStrToFloat(std::u16string_view text, double& value);
std::u16string FloatToStr(double value);

TDateTime EncodeDate(int year, int month, int day);
TDateTime EncodeTime(int hour, int minute, int second, int msec);

bool TryStrToDate(std::u16string_view text, TDateTime& value);
bool TryStrToTime(std::u16string_view text, TDateTime& value);
/// A date, a time, or a date and a time separated by blanks.
bool TryStrToDateTime(std::u16string_view text, TDateTime& value);
std::u16string DateToStr(TDateTime value);
std::u16string TimeToStr(TDateTime value);
/// Date and time; a value at midnight shows the date alone.
std::u16string DateTimeToStr(TDateTime value);

} // namespace orl
