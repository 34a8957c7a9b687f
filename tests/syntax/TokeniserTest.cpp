#include <gtest/gtest.h>

#include "TokeniserTestKit.h"

namespace orl {
namespace {

using test::kCLike;
using test::TTokeniserDoc;

bool InComment(const TStyle& s) { return s.Properties.Get(spInComment); }

TEST(StyleCache, InvalidationsCoverRowsBelowThemUntilTheRecordIsSetAgain) {
  TOrlMemoStrings store;
  for (int i = 0; i < 10; ++i) store.DoAdd(u"x");
  TStyle cached;
  cached.Set(sfCached, true);
  for (int i = 0; i < 10; ++i) store.SetLineStyle(i, cached);
  store.ClearLineStylesFrom(6);
  store.ClearLineStylesFrom(8);  // a later one further down adds nothing for rows 6 and 7
  EXPECT_TRUE(store.LineStyleValid(5));
  EXPECT_FALSE(store.LineStyleValid(6));
  EXPECT_FALSE(store.LineStyleValid(9));
  EXPECT_FALSE(store.ReadLineStyle(7).Get(sfCached));

  store.SetLineStyle(7, cached);  // set after invalidation is valid
  EXPECT_TRUE(store.LineStyleValid(7));
  store.ClearLineStylesFrom(3);   // covers the older ones
  EXPECT_EQ(store.PendingStyleInvalidations(), 1u);
  EXPECT_FALSE(store.LineStyleValid(7));
  EXPECT_TRUE(store.LineStyleValid(2));
  store.SetLineStyle(4, cached);
  store.ClearLineStylesFrom(8);   // an older invalidation above still applies to row 6
  EXPECT_TRUE(store.LineStyleValid(4));
  EXPECT_FALSE(store.LineStyleValid(6));

  store.DoInsert(9, u"new");      // a fresh row below the watermark has no record
  EXPECT_FALSE(store.LineStyleValid(9));
  EXPECT_TRUE(store.LineStyleValid(2));
  store.ClearLineStylesFrom(-5);  // below 0 counts as 0
  EXPECT_FALSE(store.LineStyleValid(0));
}

TEST(StyleCache, ManyInvalidationsFoldIntoTheRowsWithTheSameAnswers) {
  TOrlMemoStrings store;
  for (int i = 0; i < 6000; ++i) store.DoAdd(u"x");
  TStyle cached;
  cached.Set(sfCached, true);
  store.SetLineStyle(0, cached);
  store.SetLineStyle(10, cached);
  for (int i = 1; i < 5000; ++i) {
    store.ClearLineStylesFrom(i);  // each further down: the list grows until it folds
    if (i == 20) store.SetLineStyle(5000, cached);
  }
  EXPECT_LT(store.PendingStyleInvalidations(), 5000u);
  EXPECT_TRUE(store.LineStyleValid(0));
  EXPECT_FALSE(store.LineStyleValid(10));
  EXPECT_FALSE(store.LineStyleValid(5000));  // stamped at 20, reached by the invalidation from 4999
  store.SetLineStyle(5999, cached);
  EXPECT_TRUE(store.LineStyleValid(5999));
}

TEST(Tokeniser, GetUpStyleStartsFromTheNearestValidRecordOrABlankLineFarAbove) {
  TTokeniserDoc doc(kCLike);
  std::vector<std::u16string> text = {u"/* open"};
  for (int i = 1; i < 200; ++i) text.push_back(i == 30 ? u"" : u"still in the comment");
  doc.SetText(text);
  // 150 lines up crosses the 100-line limit: the blank line 30 restarts from nothing.
  EXPECT_FALSE(InComment(doc.Tokeniser.GetUpStyle(150, false)));
  EXPECT_TRUE(doc.Lines.LineStyleValid(150));
  // Near the top the walk reaches line 0 and gets it right.
  EXPECT_TRUE(InComment(doc.Tokeniser.GetUpStyle(20, false)));
  // Valid records above are used as they stand, without a walk past them.
  EXPECT_TRUE(InComment(doc.Tokeniser.GetUpStyle(25, false)));
  doc.Tokeniser.ClearLineStylesFrom(0);
  bool bCashed = true;
  doc.Tokeniser.GetLineStyle(25, bCashed);
  EXPECT_FALSE(bCashed);
  // Without a blank line the walk goes all the way up.
  text[30] = u"x";
  doc.SetText(text);
  EXPECT_TRUE(InComment(doc.Tokeniser.GetUpStyle(199, false)));
}

TEST(Tokeniser, CommentsNeedBothKindsWholeAndNestOnlyWhenAllowed) {
  TTokeniserDoc halfB(u"[Options]\nCommentStartA=/*\nCommentEndA=*/\nCommentStartB=(*\n");
  halfB.SetText({u"/* not a comment"});
  EXPECT_FALSE(InComment(halfB.EndState()));

  TTokeniserDoc nested(u"[Options]\nCommentStartA=/*\nCommentEndA=*/\nAllowNestedComments=1\n");
  nested.SetText({u"a /* b /* c", u"d */ e", u"f */ g /* h */"});
  const auto states = nested.States();
  EXPECT_TRUE(InComment(states[0]));
  EXPECT_EQ(states[0].Properties.NestedCommentIndex, 2);
  EXPECT_TRUE(InComment(states[1]));
  EXPECT_EQ(states[1].Properties.NestedCommentIndex, 1);
  EXPECT_FALSE(InComment(states[2]));

  TTokeniserDoc flat(kCLike);
  flat.SetText({u"a /* b /* c */ d"});
  EXPECT_FALSE(InComment(flat.EndState()));
  EXPECT_EQ(flat.Runs(u"a /* b /* c */ d"), "text:a  comment:/* b /* c */ text: d");
}

TEST(Tokeniser, StringsEscapesAndStringOnLine) {
  TTokeniserDoc doc(kCLike);
  doc.SetText({u"s = \"a \\\" b", u"x = 1'000; y = '\\'' + \"c\""});
  const auto states = doc.States();
  EXPECT_EQ(states[0].Properties.BracketId, -1);  // StringOnLine closes it at the line end
  EXPECT_EQ(states[1].Properties.BracketId, -1);  // a digit separator opens nothing
  EXPECT_EQ(doc.Runs(u"x = 1'000;"), "text:x  symbol:= text:  number:1'000 symbol:;");
  EXPECT_EQ(doc.Runs(u"'\\'' \"a\\\"\""), "char:'\\'' text:  string:\"a\\\"\"");

  TTokeniserDoc open(u"[Options]\nString=\"\nEscape=\\\nAllowEscapeOutsideString=1\n");
  open.SetText({u"\\\"not a string", u"\"runs on"});
  const auto openStates = open.States();
  EXPECT_EQ(openStates[0].Properties.BracketId, -1);
  EXPECT_EQ(openStates[1].Properties.BracketId, 1);  // no StringOnLine: it goes on

  // "1" stands for the double quote: it goes on with a string but opens none in colour.
  TTokeniserDoc digit(u"[Options]\nString=1\n");
  digit.SetText({u"a \"b"});
  TStyle inString = digit.EndState();
  EXPECT_EQ(inString.Properties.BracketId, 1);
  EXPECT_EQ(digit.Runs(u"x\" y", inString), "string:x\" text: y");
  EXPECT_EQ(digit.Runs(u"\"y\""), "text:\"y\"");
}

TEST(Tokeniser, BlockEndsOverlapsOpenBlocksAndLineBlocks) {
  TTokeniserDoc doc(
      u"[Options]\nSymbols=;\n\n[Block]\n1_Name=Attr\n1_Start=[[\n1_End=]]\n1_OnLine=0\n"
      u"2_Name=Var\n2_Start=@\n2_End=\n2_AsString=1\n3_Name=Line\n3_Start=%%\n3_End=%%\n3_OnLine=1\n"
      u"4_Name=#Long\n4_Start=a[0-9]+b[0-9]+c\n4_End=QQ\n");
  doc.SetText({u"[[ x ]]] y", u"@name_1;z", u"%% open"});
  const auto states = doc.States();
  EXPECT_EQ(states[0].Block.Id, -1);
  EXPECT_EQ(doc.Runs(u"[[ x ]]] y"), "block:[[ x ]]] text: y");
  EXPECT_EQ(doc.Runs(u"@name_1;z"), "block:@name_1 symbol:; text:z");
  EXPECT_EQ(states[2].Block.Id, -1);  // a line block ends with its line

  TStyle partial;
  doc.Tokeniser.GetUpLineStyle(2, 0, 4, partial, false);
  EXPECT_EQ(partial.Block.Id, 3);     // a partial scan keeps it
  EXPECT_TRUE(partial.Block.IsLine);

  // The expression's text is longer than the line: no match.
  doc.SetText({u"a1b2c"});
  EXPECT_EQ(doc.EndState().Block.Id, -1);
  doc.SetText({u"a1b2c and much more text behind it"});
  EXPECT_EQ(doc.EndState().Block.Id, 4);
}

TEST(Tokeniser, HereDocumentEndsOnItsWordAndNothingElseThere) {
  TTokeniserDoc doc(u"[Options]\nHereDocSymbol=<<<\nString=\"\n", u"PHP");
  doc.SetText({u"$a = <<<\"EOT\"", u"text \" here", u"EOT; \"open", u"after"});
  const auto states = doc.States();
  EXPECT_EQ(states[0].Block.Id, -2);
  EXPECT_EQ(states[0].Block.HereDocString, u"EOT");
  EXPECT_EQ(states[1].Block.Id, -2);
  EXPECT_EQ(states[1].Properties.BracketId, -1);
  EXPECT_EQ(states[2].Block.Id, -1);
  EXPECT_EQ(states[2].Properties.BracketId, -1);  // the quote behind the end word is not scanned
}

TEST(Tokeniser, KeywordsFirstGroupWinsLongWordsAndPatterns) {
  TTokeniserDoc doc(kCLike);
  EXPECT_EQ(doc.Runs(u"int x; return 0x1F;"),
            "keyword:int text: x symbol:; text:  keyword:return text:  number:0x1F symbol:;");
  const std::u16string longWord(51, u'a');
  TTokeniserDoc big(u"[Keywords]\nLong=" + longWord + u"|" + longWord.substr(1) + u"|\n");
  EXPECT_EQ(big.Runs(longWord), "text:" + std::string(51, 'a'));
  EXPECT_EQ(big.Runs(longWord.substr(1)), "keyword:" + std::string(50, 'a'));
  TTokenRunList runs;
  doc.Tokeniser.DrawSegments(u"  #include <x>", TStyle(), runs);
  ASSERT_GE(runs.Runs.size(), 2u);
  EXPECT_EQ(ClassifyRun(runs.Runs[1], doc.Memo.FStyles).Group, u"#Pre");
  EXPECT_EQ(ClassifyRun(runs.Runs[1], doc.Memo.FStyles).Class, rcKeyword);
}

TEST(Tokeniser, RegularExpressionFailuresAreReportedAndCountAsNoMatch) {
  TTokeniserDoc doc(u"[Block]\n1_Name=#Bad\n1_Start=(a+)+$\n1_End=c\n");
  const std::u16string row = std::u16string(40, u'a') + u"!";
  doc.SetText({row});
  EXPECT_EQ(doc.EndState().Block.Id, -1);
  ASSERT_FALSE(doc.Host.Debug.empty());
  EXPECT_EQ(doc.Host.Debug.front().rfind("GetUpStyleFromThread.IsBlockRegEx() - ", 0), 0u) << doc.Host.Debug.front();
  doc.Host.Debug.clear();
  EXPECT_EQ(doc.Runs(row), "text:" + std::string(40, 'a') + "!");
  ASSERT_FALSE(doc.Host.Debug.empty());
  EXPECT_EQ(doc.Host.Debug.front().rfind("DrawSegments.IsBlockRegEx() 1 - ", 0), 0u) << doc.Host.Debug.front();
}

TEST(Tokeniser, LineCommentGoesOnAcrossWrappedRowsAndEndsAtTheRealLineEnd) {
  TTokeniserDoc doc(kCLike);
  doc.Host.bWrapOn = true;
  doc.SetText({u"x = 1; // a comment that", u"wraps on \"here", u"int y;"});
  doc.Lines.GetLineAttribute(1)->SetWrapped(true);
  const auto states = doc.States();
  EXPECT_TRUE(states[0].Properties.Get(spInLineComment));
  EXPECT_FALSE(states[1].Properties.Get(spInLineComment));
  EXPECT_EQ(states[1].Properties.BracketId, -1);
  EXPECT_EQ(doc.Runs(u"wraps on \"here", states[0]), "comment:wraps on \"here");
  doc.Host.bWrapOn = false;
  EXPECT_FALSE(doc.States()[0].Properties.Get(spInLineComment));
}

TEST(Tokeniser, ScansThatMustNotTouchTheRecordOrTheRow) {
  TTokeniserDoc doc(kCLike);
  doc.SetText({u"/* x"});
  TStyle style;
  style.Properties.TagNr = 5;
  doc.Host.bHalt = true;  // a halted thread leaves the state as it came
  doc.Tokeniser.GetUpLineStyleFromThread(0, 0, -1, style, false, true, true, false);
  EXPECT_FALSE(InComment(style));
  doc.Host.bHalt = false;
  doc.Tokeniser.GetUpLineStyleFromThread(0, 0, -1, style, false, true, true, false);
  EXPECT_TRUE(InComment(style));
  EXPECT_EQ(style.Properties.TagNr, 5);  // kept outside a tag
  EXPECT_FALSE(doc.Host.Spelled.empty());

  doc.Host.Spelled.clear();
  TStyle partial;
  doc.Tokeniser.GetUpLineStyleFromThread(0, 0, 2, partial, false, true, false, false);
  EXPECT_TRUE(InComment(partial));
  EXPECT_TRUE(doc.Host.Spelled.empty());  // partial scans spell nothing
  doc.Memo.FreeSyntaxStyles();            // without a style set nothing is scanned
  TStyle none;
  doc.Tokeniser.GetUpLineStyle(0, 0, -1, none, false);
  EXPECT_FALSE(InComment(none));
  EXPECT_EQ(doc.Runs(u"/* x"), "text:/* x");
}

TEST(Tokeniser, MarkupTagsStringsInsideTagsAndEntities) {
  TTokeniserDoc doc(
      u"[Options]\nCommentStartA=<!--\nCommentEndA=-->\nString=\"\nChar='\nSymbols=<>/=\n\n"
      u"[Keywords]\nAttributes=href|\n\n[Tags]\nTags=a|p|\n");
  doc.SetText({u"<p>\"quoted\" text <a href=\"x", u"y\">link</a> &amp; <!-- c", u"--> <b>"});
  const auto states = doc.States();
  EXPECT_TRUE(states[0].Properties.Get(spInTag));
  EXPECT_EQ(states[0].Properties.BracketId, 1);
  EXPECT_FALSE(states[1].Properties.Get(spInTag));
  EXPECT_TRUE(InComment(states[1]));
  EXPECT_FALSE(InComment(states[2]));
  EXPECT_EQ(doc.Runs(u"<a href=\"x\">l</a>"), "tag:<a tag: href= string:\"x\" tag:> text:l tag:</a tag:>");
  EXPECT_EQ(doc.Runs(u"x &amp; y", states[2]), "text:x  keyword:&amp; text: y");
}

TEST(Tokeniser, RunsCoverTheRowAndLongRunsComeInPieces) {
  TTokeniserDoc doc(kCLike);
  const std::u16string row = u"/* " + std::u16string(3000, u'x') + u" */ int a = \"s\"; // end";
  TTokenRunList runs;
  doc.Tokeniser.DrawSegments(row, TStyle(), runs);
  int next = 1;
  for (const TTokenRun& run : runs.Runs) {
    EXPECT_EQ(run.Start, next);
    EXPECT_GT(run.Length, 0);
    EXPECT_LE(run.Length, 1024);
    next += run.Length;
  }
  EXPECT_EQ(next, int(row.size()) + 1);
  EXPECT_GE(runs.Runs.size(), 3u);
}

TEST(Tokeniser, SymbolBoundariesAndUrlRows) {
  TTokeniserDoc doc(kCLike);
  EXPECT_TRUE(doc.Tokeniser.IsSymbolBoundary(u';'));
  EXPECT_TRUE(doc.Tokeniser.IsSymbolBoundary(u'\''));
  EXPECT_FALSE(doc.Tokeniser.IsSymbolBoundary(u'a'));
  doc.Host.bAllowURLClick = true;
  EXPECT_EQ(doc.Runs(u"  http://x.org/a b"), "url:  http://x.org/a b");
  doc.Host.bWrapOn = true;
  doc.SetText({u"see http://x.org/a", u"/b c", u"d"});
  doc.Lines.GetLineAttribute(1)->SetWrapped(true);
  doc.States();
  EXPECT_TRUE(doc.Lines.ReadLineAttribute(1).URL());
  EXPECT_FALSE(doc.Lines.ReadLineAttribute(2).URL());
  doc.Memo.FreeSyntaxStyles();
  EXPECT_TRUE(doc.Tokeniser.IsSymbolBoundary(u'"'));
}

} // namespace
} // namespace orl

namespace orl::test {
namespace {

TEST(Tokeniser, ScriptMarksOfAnAspOrPhpSetAndCssDeclarations) {
  const std::u16string gdx = u"[Options]\nSymbols=;<>?%:{}\n\n[Keywords]\nKeywords=echo|color|\n";
  TTokeniserDoc php(gdx, u"PHP");
  EXPECT_EQ(php.Runs(u"<?php echo $a; ?>"), "symbol:<?php text:  keyword:echo text: $a symbol:; text:  symbol:?>");
  TTokeniserDoc other(gdx, u"Lang");
  EXPECT_EQ(other.Runs(u"<?php"), "symbol:<? text:php");

  TTokeniserDoc css(u"[Options]\nSymbols=;:{}\nOnlyHighlightInBlock=1\n\n[Keywords]\nKeywords=color|red|\n\n"
                    u"[Block]\n1_Name=css\n1_Start={\n1_End=}\n");
  // Inside the block a property name is a keyword, a value after ":" is not, until ";".
  EXPECT_EQ(css.Runs(u"{ color: red; color }"),
            "block:{  keyword:color symbol:: block: red symbol:; block:  keyword:color block: }");
  EXPECT_EQ(css.Runs(u"x: y"), "text:x: y");  // outside any block symbols are not highlighted
}

} // namespace
} // namespace orl::test
