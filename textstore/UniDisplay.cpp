#include "textstore/OrlUniUtils.h"

#include <algorithm>

#include <unicode/uchar.h>

#include "textstore/DisplayGlyphs.h"

namespace orl {

void TOrlUniUtils::WSubstituteCharsB(std::span<char16_t> Buffer, char16_t From, char16_t To) {
  std::ranges::replace(Buffer, From, To);
}

void TOrlUniUtils::WSubstituteWhiteSpace(std::span<char16_t> Buffer, char16_t To) {
  std::ranges::replace_if(Buffer, [](char16_t c) { return c != u'\t' && u_isUWhiteSpace(c); }, To);
}

void TOrlUniUtils::WSubstituteControlCharsB(std::span<char16_t> Buffer, bool bViewSpaces, bool bAscii,
                                            bool bViewTab) {
  const TGlyphTable* dos = bAscii ? &DosGlyphTable(437) : nullptr;
  for (char16_t& c : Buffer) {
    if (bViewSpaces && c == u' ')
      c = 0x00B7;
    else if (bViewSpaces && c == 0xA0)
      c = 0x00A6;  // a no-break blank must look unlike a plain one
    else if (c < 32 && (c != u'\t' || bViewTab))
      c = ControlCharGlyph(c);
    else if (dos && c >= 128 && c <= 255)
      c = (*dos)[c];
  }
}

} // namespace orl
