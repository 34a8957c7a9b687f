// Where the tokeniser stops counting and where it stops looking: hexadecimal
// numbers that run into other text, nesting deeper than the stored counters,
// here-documents outside PHP, and lines built to make a recogniser or a
// definition's pattern work without end. The passes must agree with each
// other and every line must come back in time.

#include <gtest/gtest.h>

#include <chrono>

#include "TokeniserTestKit.h"

namespace orl {
namespace {

using namespace std::chrono_literals;

bool InComment(const TStyle& s) { return s.Properties.Get(spInComment); }

std::u16string Repeat(std::u16string_view piece, size_t times) {
  std::u16string out;
  out.reserve(piece.size() * times);
  for (size_t i = 0; i < times; ++i) out += piece;
  return out;
}

/// Runs `scan` and tells whether it took less than `limit`.
template <typename TScan>
bool EndsWithin(std::chrono::steady_clock::duration limit, TScan scan) {
  const auto started = std::chrono::steady_clock::now();
  scan();
  return std::chrono::steady_clock::now() - started < limit;
}

TEST(TokeniserLimits, HexNumberEndsOnlyAtTheLineEndOrASymbolBoundary) {
  test::TTokeniserDoc doc(test::kCLike);  // the double quote is no symbol here
  EXPECT_EQ(doc.Runs(u"0x1F;"), "number:0x1F symbol:;");
  EXPECT_EQ(doc.Runs(u"0x1F"), "number:0x1F");
  EXPECT_EQ(doc.Runs(u"0x1F 2"), "number:0x1F text:  number:2");
  EXPECT_EQ(doc.Runs(u"0x1F\"s\"").find("number"), std::string::npos) << doc.Runs(u"0x1F\"s\"");
  const std::u16string noBreak = u"0x1F\u00A0z";
  EXPECT_EQ(doc.Runs(noBreak).find("number"), std::string::npos) << doc.Runs(noBreak);
}

TEST(TokeniserLimits, CommentNestingIsCountedAlikeInBothPasses) {
  test::TTokeniserDoc doc(u"[Options]\nCommentStartA=/*\nCommentEndA=*/\nAllowNestedComments=1\n"
                          u"Symbols=;\n\n[Keywords]\nKeywords=int|\n");
  // One opener more than closers: the comment goes on, in the state and in the colours.
  const std::u16string deeper = Repeat(u"/* ", 101) + Repeat(u"*/ ", 100) + u"int";
  doc.SetText({deeper, u"int"});
  auto states = doc.States();
  EXPECT_TRUE(InComment(states[0]));
  EXPECT_EQ(states[0].Properties.NestedCommentIndex, 1);
  EXPECT_EQ(doc.Runs(deeper).find("keyword"), std::string::npos);
  EXPECT_EQ(doc.Runs(u"int", states[0]), "comment:int");

  // Past the counter's range openers are counted no further, by both passes.
  const std::u16string beyond = Repeat(u"/* ", 130) + Repeat(u"*/ ", 127) + u"int";
  doc.SetText({beyond});
  EXPECT_FALSE(InComment(doc.EndState()));
  const std::string runs = doc.Runs(beyond);
  EXPECT_EQ(runs.substr(runs.size() - 11), "keyword:int");
}

TEST(TokeniserLimits, BlocksNestAsDeepAsABlockNumberReaches) {
  test::TTokeniserDoc doc(u"[Options]\nSymbols=;\n\n[Block]\n1_Name=Paren\n1_Start=(\n1_End=)\n1_OnLine=0\n");
  doc.SetText({Repeat(u"(", 70) + Repeat(u")", 66)});
  EXPECT_EQ(doc.EndState().Block.Id, 1);
  EXPECT_EQ(doc.EndState().Block.Cache.size(), 3u);
  doc.SetText({Repeat(u"(", 70) + Repeat(u")", 70)});
  EXPECT_EQ(doc.EndState().Block.Id, -1);
}

TEST(TokeniserLimits, HereDocumentsOpenOnlyInPhp) {
  const std::u16string_view gdx = u"[Options]\nHereDocSymbol=<<<\nString=\"\n";
  const std::vector<std::u16string> text = {u"$a = <<<EOT", u"text \" here", u"EOT;"};
  test::TTokeniserDoc other(gdx, u"Lang");
  other.SetText(text);
  EXPECT_EQ(other.States()[0].Block.Id, -1);
  EXPECT_EQ(other.Runs(text[0]), "text:$a = <<<EOT");

  test::TTokeniserDoc php(gdx, u"PHP");
  php.SetText(text);
  const auto states = php.States();
  EXPECT_EQ(states[0].Block.Id, -2);
  EXPECT_EQ(php.Runs(text[0]), "text:$a =  string:<<<EOT");
  EXPECT_EQ(php.Runs(text[1], states[0]), "string:text \" here");
  EXPECT_EQ(states[2].Block.Id, -1);
}

// Each of these lines took one search to the line's end per opener or per
// position; now a scan of a megabyte takes milliseconds.
TEST(TokeniserLimits, HostileLinesCostLinearTime) {
  struct TCase {
    std::u16string_view Gdx;
    std::u16string Line;
  };
  const TCase cases[] = {
      {u"[Options]\nCommentStartA=/*\nCommentEndA=*/\nAllowNestedComments=1\n", Repeat(u"/* ", 700'000)},
      {u"[Options]\nCommentStartA=/*\nCommentEndA=*/\n", Repeat(u"/**/", 500'000)},
      {u"[Options]\nLineCommentA=//\nOnlyLineCommentIfFirstCharA=1\nSymbols=/\n",
       std::u16string(1'000'000, u' ') + u"x" + Repeat(u" /", 200'000)},
      {u"[Options]\nString=\"\n\n[Block]\n1_Name=Outer\n1_Start=[\n1_End=]\n1_OnLine=0\n"
       u"2_Name=Inner\n2_Start=(\n2_End=)\n2_OnLine=0\n",
       u"[" + Repeat(u"() ", 300'000)},
  };
  for (const TCase& c : cases) {
    test::TTokeniserDoc doc(c.Gdx);
    doc.SetText({c.Line});
    TStyle style;
    // The background thread's path, which also looks for to-do words behind each comment.
    const auto threadScan = [&] { doc.Tokeniser.GetUpLineStyleFromThread(0, 0, -1, style, false, true, true, false); };
    EXPECT_TRUE(EndsWithin(10s, threadScan)) << Utf16ToUtf8(c.Gdx);
    TTokenRunList runs;
    EXPECT_TRUE(EndsWithin(10s, [&] { doc.Tokeniser.DrawSegments(c.Line, TStyle(), runs); }))
        << Utf16ToUtf8(c.Gdx);
    EXPECT_TRUE(runs.CoversRow(c.Line.size()));
  }
}

TEST(TokeniserLimits, APatternThatBacktracksWithoutEndSpendsTheLinesBudgetAndSaysSo) {
  test::TTokeniserDoc doc(u"[Block]\n1_Name=#Open\n1_Start=<<\n1_End=(a+)+$\n");
  const std::u16string row = u"<< " + std::u16string(5000, u'a') + u"b";
  doc.SetText({row, u"<< aaa"});
  std::vector<TStyle> states;
  EXPECT_TRUE(EndsWithin(2s, [&] { states = doc.States(); }));
  EXPECT_EQ(states[0].Block.Id, 1);  // the line ended in the state it had reached
  TStyle fresh;
  doc.Tokeniser.GetUpLineStyle(1, 0, -1, fresh, false);
  EXPECT_EQ(fresh.Block.Id, -1);  // where the pattern matches, the budget is enough
  ASSERT_FALSE(doc.Host.Debug.empty());
  EXPECT_NE(doc.Host.Debug.front().find("budget"), std::string::npos) << doc.Host.Debug.front();
  doc.Host.Debug.clear();
  TTokenRunList runs;
  EXPECT_TRUE(EndsWithin(2s, [&] { doc.Tokeniser.DrawSegments(row, states[0], runs); }));
  EXPECT_TRUE(runs.CoversRow(row.size()));
  EXPECT_FALSE(doc.Host.Debug.empty());
}

} // namespace
} // namespace orl
