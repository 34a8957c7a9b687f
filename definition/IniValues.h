#pragma once
// How the ini stores turn value texts into numbers, dates and booleans and
// back. Every store reads the same way: bad text gives the default.

#include <string>
#include <string_view>

#include "platform/FormatSettings.h"

namespace orl {

/// 0-15 for a hexadecimal digit, -1 for anything else.
int HexDigitValue(char16_t c);

/// Decimal text, or hexadecimal behind `0x`/`0X` (a text longer than 2
/// characters); anything else gives `def`.
int IniTextToInt(std::u16string_view text, int def);
std::u16string IntToIniText(int value);
/// "1" or "0".
inline std::u16string_view BoolToIniText(bool value) { return value ? u"1" : u"0"; }

/// An empty or unconvertible text gives `def`.
double IniTextToFloat(std::u16string_view text, double def);
TDateTime IniTextToDate(std::u16string_view text, TDateTime def);
TDateTime IniTextToTime(std::u16string_view text, TDateTime def);
TDateTime IniTextToDateTime(std::u16string_view text, TDateTime def);

} // namespace orl
