#include "textstore/DisplayGlyphs.h"

#include <map>
#include <mutex>
#include <string>

#include "platform/CodePages.h"
#include "platform/OrlError.h"

namespace orl {

namespace {

constexpr char16_t kControlGlyphs[32] = {
    0x25AB, 0x263A, 0x263B, 0x2665, 0x2666, 0x2663, 0x2660, 0x25CF, 0x25D8, 0x25CB, 0x25D9,
    0x2642, 0x2640, 0x266A, 0x266B, 0x263C, 0x25BA, 0x25C4, 0x2195, 0x203C, 0x00B6, 0x00A7,
    0x2584, 0x21A8, 0x2191, 0x2193, u'.',   0x2190, 0x221F, 0x2194, 0x25B2, 0x25BC};
constexpr char16_t kHouseGlyph = 0x2302;  // what DOS code pages print for 127
constexpr char16_t kNoGlyph = 0x25A0;

bool IsControl(char16_t c) { return c < 32 || (c >= 127 && c < 160); }

// The code page's character for one byte, or `fallback` when it maps the byte
// to no printable character.
char16_t DecodedGlyph(unsigned byte, unsigned codePage, char16_t fallback) {
  const std::u16string decoded = DecodeCodePage(std::string(1, char(byte)), codePage);
  return decoded.size() == 1 && !IsControl(decoded[0]) && decoded[0] != 0xFFFD ? decoded[0] : fallback;
}

TGlyphTable IdentityTable() {
  TGlyphTable table;
  for (unsigned c = 0; c < 256; ++c) table[c] = char16_t(c);
  return table;
}

TGlyphTable BuildWindowsTable() {
  TGlyphTable table = IdentityTable();
  for (unsigned c = 0; c < 32; ++c) table[c] = u'.';
  table[127] = u'.';
  for (unsigned c = 128; c < 160; ++c) table[c] = DecodedGlyph(c, 1252, u'.');
  return table;
}

TGlyphTable BuildDosTable(unsigned codePage) {
  TGlyphTable table = IdentityTable();
  for (unsigned c = 0; c < 32; ++c) table[c] = kControlGlyphs[c];
  table[127] = kHouseGlyph;
  for (unsigned c = 128; c < 256; ++c) table[c] = DecodedGlyph(c, codePage, kNoGlyph);
  return table;
}

} // namespace

char16_t ControlCharGlyph(char16_t c) { return c < 32 ? kControlGlyphs[c] : c; }

const TGlyphTable& WindowsGlyphTable() {
  static const TGlyphTable table = BuildWindowsTable();
  return table;
}

const TGlyphTable& DosGlyphTable(unsigned codePage) {
  // Built once per code page; painting asks for a table on every row.
  static std::mutex guard;
  static std::map<unsigned, TGlyphTable> tables;
  const std::lock_guard lock(guard);
  auto found = tables.find(codePage);
  if (found != tables.end()) return found->second;
  TGlyphTable table;
  try {
    table = BuildDosTable(codePage);
  } catch (const EOrlError&) {
    table = BuildDosTable(437);
  }
  return tables.emplace(codePage, table).first->second;
}

void ApplyGlyphTable(std::span<char16_t> buffer, const TGlyphTable& table) {
  for (char16_t& c : buffer)
    if (c < 256) c = table[c];
}

} // namespace orl
