#include <gtest/gtest.h>

#include "platform/CodePages.h"
#include "platform/OrlError.h"

using namespace orl;

TEST(CodePages, DecodesByMarkElseInTheGivenCodePage) {
  EXPECT_EQ(DecodeText("\xEF\xBB\xBF\xC3\xA4x", 1252), u"\u00E4x");
  EXPECT_EQ(DecodeText(std::string("\xFF\xFE\xE4\x00x\x00", 6), 1252), u"\u00E4x");
  EXPECT_EQ(DecodeText(std::string("\xFE\xFF\x00\xE4\x00x", 6), 1252), u"\u00E4x");
  // No mark: the code page decides, so the UTF-8 bytes become two ANSI characters.
  EXPECT_EQ(DecodeText("\xC3\xA4", 1252), u"\u00C3\u00A4");
  EXPECT_EQ(DecodeText("\x80\xA6", 1252), u"\u20AC\u00A6");
  EXPECT_EQ(DecodeText("\x80", 1251), u"\u0402");
  EXPECT_THROW(DecodeCodePage("x", 99999), EOrlError);
}

TEST(CodePages, Utf16RoundTripKeepsSurrogatesAndUnmappedUnits) {
  const std::u16string text = u"a\U0001F600\u00A6\r\n";
  EXPECT_EQ(DecodeText(EncodeUtf16LE(text, true), 1252), text);
  EXPECT_EQ(EncodeUtf16LE(u"A", true), std::string("\xFF\xFE" "A\0", 4));
  EXPECT_EQ(Utf8ToUtf16(Utf16ToUtf8(text)), text);
  EXPECT_EQ(EncodeCodePage(u"\u20AC", 1252), "\x80");
}

TEST(CodePages, SplitLinesAtEveryEndingWithoutATrailingEmptyLine) {
  EXPECT_EQ(SplitLines(u"a\r\nb\rc\nd"), (std::vector<std::u16string>{u"a", u"b", u"c", u"d"}));
  EXPECT_EQ(SplitLines(u"a\r\n"), (std::vector<std::u16string>{u"a"}));
  EXPECT_EQ(SplitLines(u"\n\r\n"), (std::vector<std::u16string>{u"", u""}));
  EXPECT_TRUE(SplitLines(u"").empty());
  EXPECT_EQ(SplitLines(u"a\n\rb"), (std::vector<std::u16string>{u"a", u"", u"b"}));
}
