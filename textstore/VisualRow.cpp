#include "textstore/VisualRow.h"

#include <algorithm>

#include "textstore/DisplayGlyphs.h"
#include "textstore/OrlUniUtils.h"

namespace orl {

namespace {

constexpr char16_t kMiddleDot = 0x00B7;

void EnsureRoom(std::u16string& buffer, size_t need) {
  if (buffer.size() < need) buffer.resize(need + 200);
}

int CopyInto(std::u16string& buffer, std::u16string_view row) {
  EnsureRoom(buffer, row.size());
  std::ranges::copy(row, buffer.begin());
  return int(row.size());
}

const TGlyphTable& ByteTable(const TVisualMode& mode) {
  if (!mode.bBinaryMode) return DosGlyphTable(mode.CodePage);
  return mode.bHexTextAsAscii ? DosGlyphTable(437) : WindowsGlyphTable();
}

// Blanks become dots before tabs are expanded, so that the fill of a tab stays
// blank for the tab mark the painter draws there.
int ShownText(std::u16string& buffer, std::u16string_view row, bool bShowSpaces, bool bTabExpanded, int TabSize) {
  const bool bExpand = bTabExpanded && row.find(u'\t') != std::u16string_view::npos;
  if (!bExpand) {
    const int len = CopyInto(buffer, row);
    if (bShowSpaces) TOrlUniUtils::WSubstituteWhiteSpace({buffer.data(), size_t(len)}, kMiddleDot);
    return len;
  }
  if (!bShowSpaces) return TOrlUniUtils::WConvertTabToSpaceB(row, buffer, TabSize);
  std::u16string dotted(row);
  TOrlUniUtils::WSubstituteWhiteSpace(dotted, kMiddleDot);
  return TOrlUniUtils::WConvertTabToSpaceB(dotted, buffer, TabSize);
}

} // namespace

char16_t LineBreakSign(const TTextAttribute* nextRow) {
  if (!nextRow || nextRow->Wrapped()) return 0;
  if (nextRow->LinefeedCR() && !nextRow->LinefeedLF()) return 0x00A4;
  if (nextRow->LinefeedLF() && !nextRow->LinefeedCR()) return 0x00AC;
  return 0x00B6;
}

int GetVisualRow(std::u16string& buffer, std::u16string_view row, char16_t lineBreakSign, bool bShowSpaces,
                 bool bTabExpanded, bool bSubCtrl, const TVisualMode& mode) {
  if (row.empty() && lineBreakSign == 0) return 0;
  if (mode.bBinaryMode || mode.bIsASCII) {
    const int len = CopyInto(buffer, row);
    ApplyGlyphTable({buffer.data(), size_t(len)}, ByteTable(mode));
    return len;
  }
  int len = ShownText(buffer, row, bShowSpaces, bTabExpanded, mode.TabSize);
  if (lineBreakSign != 0) {
    EnsureRoom(buffer, size_t(len) + 1);
    buffer[size_t(len++)] = lineBreakSign;
  }
  if (bSubCtrl) TOrlUniUtils::WSubstituteControlCharsB({buffer.data(), size_t(len)}, false, false, false);
  return len;
}

} // namespace orl
