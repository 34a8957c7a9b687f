#include <gtest/gtest.h>

#include "textstore/DisplayGlyphs.h"
#include "textstore/OrlUniUtils.h"
#include "textstore/VisualRow.h"

using namespace orl;

namespace {

std::u16string Visual(std::u16string_view row, char16_t sign, bool bShowSpaces, bool bTabExpanded, bool bSubCtrl,
                      const TVisualMode& mode = {}) {
  std::u16string buffer;
  const int len = GetVisualRow(buffer, row, sign, bShowSpaces, bTabExpanded, bSubCtrl, mode);
  return buffer.substr(0, size_t(len));
}

std::u16string Substituted(std::u16string s, bool bViewSpaces, bool bAscii, bool bViewTab) {
  TOrlUniUtils::WSubstituteControlCharsB(s, bViewSpaces, bAscii, bViewTab);
  return s;
}

} // namespace

TEST(DisplayGlyphs, WindowsTableShowsCodePage1252AndDotsForTheRest) {
  const TGlyphTable& w = WindowsGlyphTable();
  EXPECT_EQ(w[128], u'\u20AC');
  EXPECT_EQ(w[153], u'\u2122');
  EXPECT_EQ(w[159], u'\u0178');
  for (unsigned unassigned : {129u, 141u, 143u, 144u, 157u, 127u, 0u, 9u, 31u}) EXPECT_EQ(w[unassigned], u'.');
  EXPECT_EQ(w[233], u'\u00E9');
}

TEST(DisplayGlyphs, DosTablesFollowTheirCodePage) {
  const TGlyphTable& dos = DosGlyphTable(437);
  EXPECT_EQ(dos[1], u'\u263A');
  EXPECT_EQ(dos[26], u'.');
  EXPECT_EQ(dos[31], u'\u25BC');
  EXPECT_EQ(dos[127], u'\u2302');
  EXPECT_EQ(dos[128], u'\u00C7');
  EXPECT_EQ(dos[176], u'\u2591');
  EXPECT_EQ(DosGlyphTable(866)[128], u'\u0410');
  EXPECT_EQ(DosGlyphTable(12345), dos);
  EXPECT_EQ(&DosGlyphTable(866), &DosGlyphTable(866));  // built once
}

TEST(DisplayGlyphs, ControlCharactersBecomeGlyphs) {
  const std::u16string row = u"\x01\t \u00A0\u00E9\x1B";
  EXPECT_EQ(Substituted(row, false, false, false), u"\u263A\t \u00A0\u00E9\u2190");
  EXPECT_EQ(Substituted(row, true, false, true), u"\u263A\u25CB\u00B7\u00A6\u00E9\u2190");
  EXPECT_EQ(Substituted(row, false, true, false), u"\u263A\t \u00E1\u0398\u2190");
  std::u16string twice = u"a\tb\ta";
  TOrlUniUtils::WSubstituteCharsB(twice, u'\t', u'>');
  EXPECT_EQ(twice, u"a>b>a");
  std::u16string spaces = u"a \t\u00A0\u3000\u000Cb";
  TOrlUniUtils::WSubstituteWhiteSpace(spaces, u'_');
  EXPECT_EQ(spaces, u"a_\t___b");
}

TEST(VisualRow, LineEndSignsFollowTheNextRowsEnding) {
  EXPECT_EQ(LineBreakSign(nullptr), 0);
  TAttributePtr next = CreateTextAttribute(sttWindows);
  EXPECT_EQ(LineBreakSign(next.get()), u'\u00B6');
  next->SetLinefeedLF(false);
  EXPECT_EQ(LineBreakSign(next.get()), u'\u00A4');
  next->SetLinefeedCR(false);
  EXPECT_EQ(LineBreakSign(next.get()), u'\u00B6');
  next->SetLinefeedLF(true);
  EXPECT_EQ(LineBreakSign(next.get()), u'\u00AC');
  next->SetWrapped(true);
  EXPECT_EQ(LineBreakSign(next.get()), 0);
}

TEST(VisualRow, TextRowsShowSpacesTabsSignAndControls) {
  EXPECT_EQ(Visual(u"", 0, true, true, true), u"");
  EXPECT_EQ(Visual(u"", u'\u00B6', true, true, true), u"\u00B6");
  EXPECT_EQ(Visual(u"a b", 0, false, false, false), u"a b");
  // Blanks become dots, the fill of a tab stays blank for the tab mark.
  EXPECT_EQ(Visual(u"a \tb", u'\u00AC', true, true, false), u"a\u00B7      b\u00AC");
  EXPECT_EQ(Visual(u"\tb", 0, false, true, false), u"        b");
  EXPECT_EQ(Visual(u"\x01\tx", u'\u00B6', false, false, true), u"\u263A\tx\u00B6");

  std::u16string buffer(3, u'#');
  const std::u16string longRow(500, u'x');
  EXPECT_EQ(GetVisualRow(buffer, longRow, u'\u00B6', false, false, false, {}), 501);
  EXPECT_EQ(buffer.size(), 700u);
  EXPECT_EQ(buffer[500], u'\u00B6');
}

TEST(VisualRow, ByteDocumentsGoThroughTheirGlyphTableOnly) {
  const std::u16string bytes = u"\x01 \t\x80\x81";
  TVisualMode binary;
  binary.bBinaryMode = true;
  EXPECT_EQ(Visual(bytes, u'\u00B6', true, true, true, binary), u". .\u20AC.");
  binary.bHexTextAsAscii = true;
  EXPECT_EQ(Visual(bytes, 0, false, false, false, binary), u"\u263A \u25CB\u00C7\u00FC");

  TVisualMode dos;
  dos.bIsASCII = true;
  dos.CodePage = 866;
  EXPECT_EQ(Visual(bytes, u'\u00B6', true, true, true, dos), u"\u263A \u25CB\u0410\u0411");
}
