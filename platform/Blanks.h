#pragma once
// Trimming as the stores do it: every character up to and including U+0020
// counts as blank.

#include <string_view>

namespace orl {

constexpr bool IsBlankChar(char16_t c) { return c <= u' '; }

constexpr std::u16string_view TrimBlanks(std::u16string_view s) {
  while (!s.empty() && IsBlankChar(s.front())) s.remove_prefix(1);
  while (!s.empty() && IsBlankChar(s.back())) s.remove_suffix(1);
  return s;
}

} // namespace orl
