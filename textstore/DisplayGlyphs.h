#pragma once
// Glyphs that stand in for characters a font would not draw: control
// characters as code page 437 shows them, and byte values of binary and DOS
// documents as the glyphs of a code page.

#include <array>
#include <span>

namespace orl {

/// One glyph for each byte value.
using TGlyphTable = std::array<char16_t, 256>;

/// The code page 437 glyph of a control character below 32.
char16_t ControlCharGlyph(char16_t c);
/// Byte values as code page 1252 shows them; controls, 127 and the values
/// that code page leaves unassigned as ".".
const TGlyphTable& WindowsGlyphTable();
/// Byte values as DOS code page `codePage` shows them: control glyphs below
/// 32, the code page's own glyphs from 127 on, U+25A0 for an unassigned
/// value. An unknown code page gives the table of code page 437.
const TGlyphTable& DosGlyphTable(unsigned codePage);
/// Replaces each character below 256 by its entry in `table`.
void ApplyGlyphTable(std::span<char16_t> buffer, const TGlyphTable& table);

} // namespace orl
