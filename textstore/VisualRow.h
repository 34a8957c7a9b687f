#pragma once
// A row's text as it is painted: blanks shown as dots, tabs expanded, a sign
// for the line ending and glyphs for control characters, or the byte tables
// of binary and DOS documents. The store gathers what a row's look depends on
// (the row after it, the memo's modes); the painter draws what comes out.

#include <string>
#include <string_view>

#include "textstore/LineAttribute.h"

namespace orl {

/// What of the document's state the painted text of a row depends on.
struct TVisualMode {
  bool bBinaryMode = false;
  bool bHexTextAsAscii = false;  // binary mode shows DOS glyphs, not Windows ones
  bool bIsASCII = false;         // rows hold the bytes of DOS code page CodePage
  unsigned CodePage = 437;
  int TabSize = 8;
};

/// The sign for the ending stored on the row after a row: U+00A4 for CR
/// alone, U+00AC for LF alone, U+00B6 otherwise; 0 when there is no next row
/// or it continues the same real line.
char16_t LineBreakSign(const TTextAttribute* nextRow);

/// Writes the painted form of `row` into `buffer`, grown to the need plus 200
/// when too short, and returns its length. `lineBreakSign` (0 for none) goes
/// behind the text. Binary and DOS documents show their rows through a glyph
/// table and nothing else.
int GetVisualRow(std::u16string& buffer, std::u16string_view row, char16_t lineBreakSign, bool bShowSpaces,
                 bool bTabExpanded, bool bSubCtrl, const TVisualMode& mode);

} // namespace orl
