#pragma once
// Case of single UTF-16 units, as the system maps them (simple mappings only:
// one unit in, one unit out, surrogates unchanged).

namespace orl {

char16_t SysLowerChar(char16_t c);
char16_t SysUpperChar(char16_t c);
bool SysIsUpperChar(char16_t c);

/// `A`-`Z` to `a`-`z`, every other unit unchanged.
constexpr char16_t AsciiLowerChar(char16_t c) { return (c >= u'A' && c <= u'Z') ? char16_t(c + 32) : c; }

} // namespace orl
