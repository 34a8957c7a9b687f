#include <gtest/gtest.h>

#include "TempFolder.h"
#include "textstore/OrlUniUtils.h"

using namespace orl;
using U = TOrlUniUtils;

TEST(OrlUniUtils, ForwardSearchesCountFromOffsetAndFoldCaseOnThePatternSide) {
  EXPECT_EQ(U::WPosEx(u"ab", u"xabab"), 2);
  EXPECT_EQ(U::WPosEx(u"ab", u"xabab", 3), 4);
  EXPECT_EQ(U::WPosEx(u"ab", u"xabab", 0), 2);
  EXPECT_EQ(U::WPosEx(u"ab", u"xabab", 5), 0);
  EXPECT_EQ(U::WPosEx(u"", u"xabab"), 0);

  // A "?" in the text stands for any character of the pattern, not the other way round.
  EXPECT_EQ(U::WPosEx(u"abc", u"xa?c", 1, true), 2);
  EXPECT_EQ(U::WPosEx(u"a?c", u"xabc", 1, true), 0);
  EXPECT_EQ(U::WPosEx(u"abc", u"xa?c", 1, false), 0);

  EXPECT_EQ(U::WNCPosEx(u"\u00C4bC", u"xx\u00E4BcY"), 3);
  const std::u16string buffer = u"one Two three";
  EXPECT_EQ(U::WNCPosExBuffer(u"two", buffer.data(), 7, 1), 5);
  EXPECT_EQ(U::WNCPosExBuffer(u"three", buffer.data(), 7, 1), 0);  // lies past the length given
}

TEST(OrlUniUtils, BackwardSearchesFindTheLastMatchStartingAtOrBeforeOffset) {
  const std::u16string s = u"abXabxAB";
  const int len = int(s.size());
  EXPECT_EQ(U::WRPosExBuffer(u"ab", s.data(), len, len), 4);
  EXPECT_EQ(U::WRPosExBuffer(u"ab", s.data(), len, 3), 1);
  EXPECT_EQ(U::WNCRPosExBuffer(u"ab", s.data(), len, len), 7);
  EXPECT_EQ(U::WNCRPosExBuffer(u"ab", s.data(), len, 6), 4);
  EXPECT_EQ(U::WNCRPosExBuffer(u"abxabxabx", s.data(), len, len), 0);
}

TEST(OrlUniUtils, TextPosSearchesAWindowAndLineEndsAreFound) {
  const std::u16string s = u"<script language=VBScript>";
  EXPECT_EQ(U::WTextPos(u"vbscript", s, 9, 100, true), 18);
  EXPECT_EQ(U::WTextPos(u"vbscript", s, 9, 100, false), 0);
  EXPECT_EQ(U::WTextPos(u"vbscript", s, 9, 16, true), 0);  // would end one past the window
  EXPECT_EQ(U::WTextPos(u"vbscript", s, 9, 17, true), 18);

  int len = -1;
  EXPECT_EQ(U::WPosLFCR(u"ab\r\ncd\ne", 1, len), 3);
  EXPECT_EQ(len, 2);
  EXPECT_EQ(U::WPosLFCR(u"ab\r\ncd\ne", 5, len), 7);
  EXPECT_EQ(len, 1);
  EXPECT_EQ(U::WPosLFCR(u"ab", 1, len), 0);
  EXPECT_EQ(len, 0);

  EXPECT_EQ(U::WCalcLines(u"a\r\nb\nc\rd\n\r"), 6);
  EXPECT_EQ(U::WCountStringsInString(u"aa", u"aaaaa"), 2);
}

TEST(OrlUniUtils, TabsExpandToTheNextStopCountingEarlierExpansion) {
  bool bChanged = false;
  EXPECT_EQ(U::WConvertTabToSpace(u"\tx", 4, bChanged), u"    x");
  EXPECT_TRUE(bChanged);
  EXPECT_EQ(U::WConvertTabToSpace(u"a\tb\tc", 4, bChanged, u'.'), u"a...b...c");
  EXPECT_EQ(U::WConvertTabToSpace(u"plain", 4, bChanged), u"plain");
  EXPECT_FALSE(bChanged);
  EXPECT_EQ(U::WConvertTabToSpace(u"a\tb", 0, bChanged), u"a\tb");

  std::u16string target(2, u'#');
  const int n = U::WConvertTabToSpaceB(u"a\tb", target, 8);
  EXPECT_EQ(n, 9);
  EXPECT_EQ(target.size(), 209u);
  EXPECT_EQ(target.substr(0, 9), u"a       b");
}

TEST(OrlUniUtils, BlankRunsReachingAStopBecomeTabs) {
  bool bChanged = true;
  EXPECT_EQ(U::WConvertSpaceToTab(u"ab", 4, false, bChanged), u"ab");
  EXPECT_FALSE(bChanged);
  EXPECT_EQ(U::WConvertSpaceToTab(u"a \tb", 8, false, bChanged), u"a \tb");  // shorter than TabSize
  EXPECT_EQ(U::WConvertSpaceToTab(u"        x", 4, false, bChanged), u"\t\tx");
  EXPECT_TRUE(bChanged);
  EXPECT_EQ(U::WConvertSpaceToTab(u"abc x   y", 4, false, bChanged), u"abc x\ty");  // one blank stays
  EXPECT_EQ(U::WConvertSpaceToTab(u"      x  y  z", 4, true, bChanged), u"\t  x  y  z");
  EXPECT_EQ(U::WConvertSpaceToTab(u"      x  y  z", 4, false, bChanged), u"\t  x  y\tz");
  EXPECT_EQ(U::WConvertSpaceToTab(u"\tabcd", 4, false, bChanged), u"\tabcd");  // expanded and tabbed again
  EXPECT_FALSE(bChanged);
  EXPECT_EQ(U::WConvertSpaceToTab(u"ab\t     x", 4, false, bChanged), u"ab\t\t x");
  EXPECT_TRUE(bChanged);
}

TEST(OrlUniUtils, CaseHelpersWorkPerCharacter) {
  EXPECT_EQ(U::OrlWideUppercase(u"stra\u00DFe \u00E4"), u"STRA\u00DFE \u00C4");
  EXPECT_EQ(U::OrlWideLowercase(u"\u0130X\u0391"), u"ix\u03B1");  // one unit for one unit
  EXPECT_EQ(U::OrlWideInvertCase(u"aB\u00C4\u00F61"), u"Ab\u00E4\u00D61");

  EXPECT_EQ(U::MatchCase(u"hELLO", u"World"), u"wORLD");
  EXPECT_EQ(U::MatchCase(u"Ab", u"xyz"), u"Xyz");                  // the rest follows the last letter
  EXPECT_EQ(U::MatchCase(u"aB", u"xyzw"), u"xYZW");
  EXPECT_EQ(U::MatchCase(u"A-b", u"x_Y"), u"X_y");                 // each side skips its own non-letters
  EXPECT_EQ(U::MatchCase(u"_a_B", u"--cd"), u"--cD");
  EXPECT_EQ(U::MatchCase(u"123", u"MiXed"), u"MiXed");             // no case to give
  EXPECT_EQ(U::MatchCase(u"\u00C4\u00E4", u"\u00F6\u00D6"), u"\u00D6\u00F6");

  EXPECT_TRUE(U::CompInStrings(u"xxAbc", u"yyaBcz", 3, 3, false));
  EXPECT_FALSE(U::CompInStrings(u"xxAbc", u"yyaBcz", 3, 3, true));
  EXPECT_FALSE(U::CompInStrings(u"xxAb", u"yyaBcz", 3, 3, false));  // first string too short
  EXPECT_TRUE(U::OrlWStrLComp(u"abcX", u"ABCy", 3, false));
  EXPECT_TRUE(U::OrlWStrLComp(u"ab", u"ab", 5, true));
  EXPECT_FALSE(U::OrlWStrLComp(u"ab", u"abc", 5, true));
}

TEST(OrlUniUtils, DistanceAndFuzzyFind) {
  EXPECT_EQ(U::LevenshteinDistance(u"kitten", u"sitting"), 3);
  EXPECT_EQ(U::LevenshteinDistance(u"abc", u""), 3);
  EXPECT_EQ(U::LevenshteinDistance(u"A", u"a"), 1);

  int distance = -1;
  std::vector<int> positions;
  ASSERT_TRUE(U::WNCFuzzyFind(u"gTL", u"getTextLength", distance, &positions));
  EXPECT_EQ(positions, (std::vector<int>{1, 3, 8}));  // the "t" of "get" already matches "T"
  EXPECT_EQ(distance, U::LevenshteinDistance(u"gTL", u"getTextLength"));
  EXPECT_EQ(distance, 10);
  EXPECT_TRUE(U::WNCFuzzyFind(u"abc", u"ABC", distance));
  EXPECT_EQ(distance, 3);
  distance = -1;
  EXPECT_FALSE(U::WNCFuzzyFind(u"hg", u"getTextLength", distance, &positions));  // out of order
  EXPECT_FALSE(U::WNCFuzzyFind(u"", u"abc", distance));
  EXPECT_FALSE(U::WNCFuzzyFind(u"abcd", u"abc", distance));
  EXPECT_EQ(distance, -1);
}

TEST(OrlUniUtils, RemovalTrimmingAndReplacement) {
  bool bChanged = false;
  EXPECT_EQ(U::WRemoveTrailing(u"a b \t\u00A0 \x01", bChanged), u"a b");
  EXPECT_TRUE(bChanged);
  EXPECT_EQ(U::WRemoveTrailing(u"ab", bChanged), u"ab");
  EXPECT_FALSE(bChanged);
  EXPECT_EQ(U::WRemoveZeroWidthSpaces(u"\uFEFFa\u200Bb\u200C\u200Dc\u200E", bChanged), u"abc\u200E");
  EXPECT_TRUE(bChanged);
  EXPECT_EQ(U::WideTrimBuffer(u"\t \u00A0x y\u00A0 "), u"x y");
  EXPECT_EQ(U::WideTrimBuffer(u"\r x"), u"\r x");

  EXPECT_EQ(U::WStringReplace(u"aXbxc", u"x", u"--", rfNone), u"aXb--c");
  EXPECT_EQ(U::WStringReplace(u"aXbxc", u"x", u"--", rfReplaceAll | rfIgnoreCase), u"a--b--c");
  EXPECT_EQ(U::WStringReplace(u"aaaa", u"aa", u"b", rfReplaceAll), u"bb");
  EXPECT_EQ(U::WStringReplace(u"abc", u"", u"z", rfReplaceAll), u"abc");

  const std::u16string mixed = u"\tab\u0100";
  EXPECT_TRUE(U::IsStringAnsiBetween(mixed, 2, 3));
  EXPECT_FALSE(U::IsStringAnsiBetween(mixed, 2, 0));  // to the end
  EXPECT_FALSE(U::IsBufferAnsiBetween(mixed.data(), 3, 0, 3));  // from 1
}

TEST(OrlUniUtils, BufferOperationsKeepTheirExplicitLength) {
  std::u16string buffer = u"abcdef####";
  int len = U::WDelete(buffer, 6, 2, 2);
  EXPECT_EQ(buffer.substr(0, size_t(len)), u"adef");
  len = U::WDelete(buffer, len, 3, 100);
  EXPECT_EQ(buffer.substr(0, size_t(len)), u"ad");
  len = U::WInsert(u"XYZ", buffer, len, 2);
  EXPECT_EQ(buffer.substr(0, size_t(len)), u"aXYZd");
  len = U::WInsert(u"!", buffer, len, 99);
  EXPECT_EQ(buffer.substr(0, size_t(len)), u"aXYZd!");
  std::u16string tight = u"ab";
  EXPECT_EQ(U::WInsert(u"0123456789", tight, 2, 1), 12);
  EXPECT_EQ(tight, u"0123456789ab");
  EXPECT_EQ(U::WBCopy(u"abcdef", 5, 9), u"ef");
}

TEST(OrlUniUtils, FileMayBeUTF8CountsPairsInsideBlocks) {
  test::TTempFolder folder;
  EXPECT_FALSE(U::FileMayBeUTF8(folder / "missing.txt"));
  test::WriteBytes(folder / "empty.txt", "");
  EXPECT_TRUE(U::FileMayBeUTF8(folder / "empty.txt"));
  test::WriteBytes(folder / "utf8.txt", "caf\xC3\xA9 na\xC3\xAFve");
  EXPECT_TRUE(U::FileMayBeUTF8(folder / "utf8.txt"));
  test::WriteBytes(folder / "ansi.txt", "a\x80 b\x99 c\xC3\xA9");  // two bad pairs, one good
  EXPECT_FALSE(U::FileMayBeUTF8(folder / "ansi.txt"));
  // A good pair split by the edge of a 128-byte block does not count, so the
  // one bad pair wins.
  std::string split(127, 'a');
  split += "\xC3\xA9 x\x80";
  test::WriteBytes(folder / "split.txt", split);
  EXPECT_FALSE(U::FileMayBeUTF8(folder / "split.txt"));
  split.insert(0, "a");  // the pair now lies inside the second block
  test::WriteBytes(folder / "whole.txt", split);
  EXPECT_TRUE(U::FileMayBeUTF8(folder / "whole.txt"));
}

TEST(OrlUniUtils, RegularExpressionsGoToTheHostsHandlers) {
  int len = 7;
  EXPECT_EQ(U::PosRegEx(u"a+", u"baa", 1, true, len), -1);
  EXPECT_EQ(len, 0);
  EXPECT_EQ(U::RegExReplace(u"baa", u"a+", u"x", true), u"baa");
  U::SetRegExHandlers(
      [](auto, auto S, int Offset, bool, int& MatchLen) { return MatchLen = 2, U::WPosEx(u"aa", S, Offset); },
      [](auto S, auto, auto, bool) { return std::u16string(S) + u"!"; });
  EXPECT_EQ(U::PosRegEx(u"a+", u"baa", 1, true, len), 2);
  EXPECT_EQ(len, 2);
  EXPECT_EQ(U::RegExReplace(u"baa", u"a+", u"x", true), u"baa!");
  U::SetRegExHandlers(nullptr, nullptr);
}
