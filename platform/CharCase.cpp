#include "platform/CharCase.h"

#include <unicode/uchar.h>

namespace orl {

namespace {
bool IsSurrogate(char16_t c) { return c >= 0xD800 && c <= 0xDFFF; }
// A simple mapping may leave the BMP (rarely); such a unit keeps its case.
char16_t KeepInBmp(UChar32 mapped, char16_t original) { return mapped <= 0xFFFF ? char16_t(mapped) : original; }
} // namespace

char16_t SysLowerChar(char16_t c) {
  if (c < 0x80) return AsciiLowerChar(c);
  return IsSurrogate(c) ? c : KeepInBmp(u_tolower(c), c);
}

char16_t SysUpperChar(char16_t c) {
  if (c < 0x80) return (c >= u'a' && c <= u'z') ? char16_t(c - 32) : c;
  return IsSurrogate(c) ? c : KeepInBmp(u_toupper(c), c);
}

bool SysIsUpperChar(char16_t c) { return !IsSurrogate(c) && u_isupper(c); }

} // namespace orl
