#include <gtest/gtest.h>

#include <set>

#include "SyntaxTestFiles.h"
#include "syntax/OrlSyntax.h"
#include "BuildPaths.h"

namespace orl {
namespace {

using test::TTempFolder;
using test::U16;
using test::WriteDefinitionFile;

struct TLoad {
  TTempFolder Folder;
  TOrlSyntax Syntax;
  TOrlMemoStyleSlots Memo;
  std::vector<std::u16string> Messages;

  TLoad() {
    Syntax.OnDebugWrite = [this](const std::u16string& ws, bool) { Messages.push_back(ws); };
  }
  void LoadInto(std::u16string_view gdx, TOrlMemoStyleSlots* memo) {
    const auto path = WriteDefinitionFile(Folder, "Lang.gdx", gdx);
    std::u16string asp;
    Syntax.LoadStyleFromFile(memo, U16(path), u"Lang", 0, asp);
  }
  TOrlCustomMemoStyles& Load(std::u16string_view gdx) {
    LoadInto(gdx, &Memo);
    EXPECT_NE(Memo.FStyles, nullptr);
    return *Memo.FStyles;
  }
  bool Reported(std::u16string_view part) const {
    for (const std::u16string& m : Messages)
      if (m.find(part) != std::u16string::npos) return true;
    return false;
  }
};

TEST(DefinitionLoad, OptionsAndTheSectionRules) {
  TLoad t;
  const TOrlCustomMemoStyles& s = t.Load(
      u";{}\n\n[Options]\nLineCommentA=//\ncase=1\nChar=\nString=\"x\nSymbolWordsA=and or\n"
      u"OnlyLineCommentIfFirstChar=2\nOnlyLineCommentIfFirstCharB=7\nHighlightUrl=1\nAllowNestedComments=yes\n"
      u"no equals sign here\n\nEscape=\\\n[options]\nCommentStartA=(*\n\n[StandardExtensions]\ndefault=.x|.y|\n");
  EXPECT_EQ(s.FLineCommentA, u"//");
  EXPECT_TRUE(s.FKeywordCase);
  EXPECT_TRUE(t.Memo.CaseSensitive);
  EXPECT_EQ(s.FCharSymbol, 0);  // an empty Char changes nothing
  EXPECT_EQ(s.FStringSymbol, u'"');
  EXPECT_EQ(s.FSymbolWordsA, u" and or ");
  EXPECT_EQ(s.FOnlyLineCommentIfFirstChar, 2);
  EXPECT_EQ(s.FOnlyLineCommentIfFirstCharB, 0);
  EXPECT_TRUE(t.Memo.UrlAware);
  EXPECT_FALSE(s.FAllowNestedComments);  // only "1" is on
  EXPECT_TRUE(s.FEscape.empty());        // behind the blank line
  EXPECT_TRUE(s.FCommentStartA.empty()); // "[options]" is no head
  EXPECT_EQ(t.Syntax.FStandardFileExtensions, u".x|.y|");
  EXPECT_EQ(s.FSyntaxName, u"Lang");
  EXPECT_EQ(t.Memo.FStylesThread, t.Memo.FStyles);
}

TEST(DefinitionLoad, NumbersCountAsSymbolsOnlyAsOneRun) {
  TLoad t;
  EXPECT_TRUE(t.Load(u"[Options]\nNumbers=0123456789\nSymbols=+-0123456789*\n").FNumbersAsSymbols);
  EXPECT_FALSE(t.Load(u"[Options]\nNumbers=0123456789\nSymbols=9876543210+-\n").FNumbersAsSymbols);
  EXPECT_FALSE(t.Load(u"[Options]\nNumbers=\nSymbols=+-\n").FNumbersAsSymbols);
}

TEST(DefinitionLoad, BlocksActOnTheLastNamedRule) {
  TLoad t;
  const TOrlCustomMemoStyles& s = t.Load(
      u"[Block]\n1_Start=orphan\n1_Name=Str\n1_Start=\"\n1_End=\"\n1_OnLine=1\n1_HighlightKeywords=0\n"
      u"NoUnderscore=1\n2_Name=#Re\n2_Start=<[a-z]+\n2_End=>\n2_AsString=true\n");
  ASSERT_EQ(s.FBlocks.size(), 2u);
  const TBlock& str = *s.FBlocks[0];
  EXPECT_EQ(str.Start, u"\"");
  EXPECT_EQ(str.Stop, u"\"");
  EXPECT_TRUE(str.LineBlock);
  EXPECT_FALSE(str.HighlightKeywords);
  EXPECT_TRUE(str.HighlightStrings);
  EXPECT_EQ(str.StartPattern, nullptr);  // a plain block has no patterns
  const TBlock& re = *s.FBlocks[1];
  EXPECT_TRUE(re.ForceColor);
  ASSERT_NE(re.StartPattern, nullptr);
  EXPECT_EQ(re.StartPattern->MatchAt(u"x <DIV", 2, 6).Length, 4u);  // patterns ignore case
  EXPECT_TRUE(s.FHasRegExKeywords);
  EXPECT_EQ(t.Syntax.Blocks.Count(), 2);
  EXPECT_EQ(t.Syntax.Blocks.Strings(1), u"#Re");
}

TEST(DefinitionLoad, KeywordGroupsAreReadyForLookupUnderTheMemosCase) {
  TLoad t;
  const TOrlCustomMemoStyles& s = t.Load(
      u"[Keywords]\nReserved=end|begin|begin|\nno equals\n#Numbers=\\d+\n\n[Options]\nCase=0\n");
  ASSERT_EQ(s.FKeyWords.size(), 2u);
  TKeyWord& words = *s.FKeyWords[0];
  EXPECT_EQ(words.Info, u"Keywords0");
  EXPECT_EQ(words.KeyWords.Count(), 2);
  EXPECT_EQ(words.KeyWords.Strings(0), u"begin");
  EXPECT_FALSE(words.KeyWords.CaseSensitive());  // [Options] after [Keywords] still counts
  const std::u16string line = u"x BEGIN y";
  EXPECT_EQ(words.KeyWords.PIndexOf(line.data() + 2, 5), 0);
  const TKeyWord& regex = *s.FKeyWords[1];
  EXPECT_EQ(regex.Name, u"#Numbers");
  EXPECT_EQ(regex.Info, u"Keywords2");  // the line without "=" counts as a row
  EXPECT_TRUE(regex.RegEx);
  EXPECT_EQ(regex.KeyWords.Count(), 0);
  ASSERT_NE(regex.Pattern, nullptr);
  EXPECT_TRUE(s.FHasRegExKeywords);
}

TEST(DefinitionLoad, TagsMakeTheMemoAMarkupMemo) {
  TLoad t;
  const TOrlCustomMemoStyles& s = t.Load(u"[Options]\nCaseTags=1\n\n[Tags]\nBlock=div|p|\nInline=span|\n");
  EXPECT_TRUE(t.Memo.FHtml);
  EXPECT_EQ(t.Memo.FHtmlStyle, &s);
  ASSERT_EQ(s.FTags.size(), 2u);
  EXPECT_EQ(s.FTags[1]->Info, u"Tags1");
  EXPECT_TRUE(s.FTags[0]->KeyWords.CaseSensitive());
  EXPECT_EQ(s.FTags[0]->KeyWords.IndexOf(u"DIV"), -1);
  // The next definition without tags is plain text again; the old set is gone.
  t.Load(u"[Keywords]\nA=a|\n");
  EXPECT_FALSE(t.Memo.FHtml);
  EXPECT_EQ(t.Memo.FHtmlStyle, nullptr);
}

TEST(DefinitionLoad, FoldRulesAndTheirWords) {
  TLoad t;
  const TOrlCustomMemoStyles& s = t.Load(
      u"[Fold]\n1_Begin=orphan\n1_Id=~proc\n1_Begin=@procedure|function|\n1_End=end;\n"
      u"1_EndBefore=\\lf begin\n1_ListItem=CEMETHOD\n1_NotAlwaysEnded=1\n2_Id=class\n2_EndBefore=\\in\n"
      u"2_ListItem=ceNS\n\n[FoldOptions]\nList_AsClass=class\nAsBegin=begin|case\nList_Exclude=a|b\nCase=1\n"
      u"\n[Region]\nStart={$region|#region\nEnd={$endregion\nCommentStart=//\n");
  ASSERT_EQ(s.FNodes.size(), 2u);
  const TNodes& proc = *s.FNodes[0];
  EXPECT_EQ(proc.wId, u"~proc");
  EXPECT_EQ(proc.wStart, u"@procedure|function|");
  EXPECT_EQ(proc.wEndBefore, u"\\lf begin");
  EXPECT_EQ(proc.list_Item, ceMethod);
  EXPECT_TRUE(proc.bNotAlwaysEnded);
  EXPECT_EQ(s.FNodes[1]->list_Item, ceNS);
  EXPECT_TRUE(s.FAllowCmdLF);
  EXPECT_TRUE(s.FAllowCmdIN);
  EXPECT_FALSE(s.FAllowCmdEF);
  EXPECT_EQ(s.FFoldListExclude.Count(), 2);
  EXPECT_TRUE(s.FNodeOpt_Case);
  EXPECT_EQ(s.FRgn_Start.Count(), 2);
  // Each fold word once, "~" and "@" and the command word gone.
  std::set<std::u16string> ids;
  for (int i = 0; i < s.NodeIdList.Count(); ++i) ids.insert(s.NodeIdList.Strings(i));
  EXPECT_EQ(size_t(s.NodeIdList.Count()), ids.size());
  const std::set<std::u16string> expected{u"#region", u"//", u"{$endregion", u"{$region", u"begin", u"case",
                                             u"class", u"end;", u"function", u"proc", u"procedure"};
  EXPECT_EQ(ids, expected);
}

TEST(DefinitionLoad, BadValuesLoadNeutralAndAreReported) {
  TLoad t;
  const TOrlCustomMemoStyles& s = t.Load(
      u"[Keywords]\n#Empty=\n#Broken=([a-z\n\n[Block]\n1_Name=#Re\n1_Start=\n1_End=(?<\n1_OnLine=maybe\n\n"
      u"[Fold]\n1_Id=x\n1_ListItem=ceWidget\n1_NoParentOfId=2\n");
  ASSERT_EQ(s.FKeyWords.size(), 2u);
  EXPECT_EQ(s.FKeyWords[0]->Pattern, nullptr);
  EXPECT_EQ(s.FKeyWords[1]->Pattern, nullptr);
  EXPECT_EQ(s.FBlocks[0]->StartPattern, nullptr);
  EXPECT_EQ(s.FBlocks[0]->StopPattern, nullptr);
  EXPECT_FALSE(s.FBlocks[0]->LineBlock);
  EXPECT_EQ(s.FNodes[0]->list_Item, ceNone);
  EXPECT_TRUE(s.FNodes[0]->bNoParentOfId);  // any number but 0 is true
  EXPECT_TRUE(t.Reported(u"\"#Empty\": empty regular expression"));
  EXPECT_TRUE(t.Reported(u"\"#Broken\": regular expression \"([a-z\" does not compile"));
  EXPECT_TRUE(t.Reported(u"\"#Re\" start: empty"));
  EXPECT_TRUE(t.Reported(u"\"#Re\" end: regular expression"));
  EXPECT_TRUE(t.Reported(u"\"maybe\" is no flag"));
  EXPECT_TRUE(t.Reported(u"unknown list item \"ceWidget\""));
  EXPECT_EQ(t.Messages.size(), 6u);
}

TEST(DefinitionLoad, WithoutMemoOnlyNamesAndRulesAreRead) {
  TLoad t;
  t.LoadInto(u"[Options]\nCase=1\n\n[Keywords]\nK=a|\n\n[Tags]\nT=b|\n\n[Block]\n1_Name=B\n", nullptr);
  EXPECT_EQ(t.Memo.FStyles, nullptr);
  EXPECT_FALSE(t.Memo.CaseSensitive);
  EXPECT_EQ(t.Syntax.KeyWords.Strings(0), u"K");
  EXPECT_EQ(t.Syntax.Tags.Strings(0), u"T");
  EXPECT_EQ(t.Syntax.Blocks.Strings(0), u"B");
}

TEST(DefinitionLoad, MissingFileLeavesTheMemoWithoutSyntax) {
  TLoad t;
  t.Load(u"[Keywords]\nK=a|\n");
  ASSERT_NE(t.Memo.FStyles, nullptr);
  std::u16string asp;
  t.Syntax.LoadStyleFromFile(&t.Memo, U16(t.Folder / "Missing.gdx"), u"Missing", 0, asp);
  EXPECT_EQ(t.Memo.FStyles, nullptr);
  EXPECT_EQ(t.Memo.FStylesThread, nullptr);
  EXPECT_TRUE(t.Messages.empty());
}

TEST(DefinitionLoad, SampleAndInfoComeFromTheCompanion) {
  TLoad t;
  const auto gdx = WriteDefinitionFile(t.Folder, "Lang.gdx", u"[Keywords]\nK=a|\n");
  WriteDefinitionFile(t.Folder, "Lang.ini", u"[Comment]\n1=About\n2=More\n\n[Sample]\n1=first\n2=\n3=third\n5=gap\n");
  TStringList sample, info;
  t.Syntax.LoadStyleFromFile(t.Memo, U16(gdx), u"Lang", sample, info);
  EXPECT_NE(t.Memo.FStyles, nullptr);
  EXPECT_FALSE(t.Syntax.FHtmlMultiLoading);
  EXPECT_EQ(info.Text(), u"About\r\nMore\r\n");
  EXPECT_EQ(sample.Text(), u"first\r\n\r\nthird\r\n");
}

TEST(DefinitionLoad, EveryBundledDefinitionLoads) {
  const std::filesystem::path folder = orl::test::HostDir() / "syntax";
  int loaded = 0;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    if (entry.path().extension() != ".gdx") continue;
    TLoad t;
    std::u16string asp;
    t.Syntax.LoadStyleFromFile(&t.Memo, U16(entry.path()), u"Bundled", 0, asp);
    ASSERT_NE(t.Memo.FStyles, nullptr) << entry.path();
    EXPECT_GT(t.Memo.FStyles->FKeyWords.size() + t.Memo.FStyles->FTags.size(), 0u) << entry.path();
    EXPECT_TRUE(t.Messages.empty()) << entry.path() << ": " << (t.Messages.empty() ? std::string() : Utf16ToUtf8(t.Messages.front()));
    ++loaded;
  }
  EXPECT_GE(loaded, 10);
}

TEST(DefinitionLoad, ManyLoadsAndFreesLeaveNothingBehind) {
  TLoad t;
  const auto path = WriteDefinitionFile(
      t.Folder, "Lang.gdx", u"[Keywords]\nK=a|b|\n#R=\\w+\n\n[Tags]\nT=div|\n\n[Block]\n1_Name=#B\n1_Start=x\n1_End=y\n");
  for (int i = 0; i < 1000; ++i) {
    std::u16string asp;
    t.Syntax.LoadStyleFromFile(&t.Memo, U16(path), u"Lang", 0, asp);
    ASSERT_NE(t.Memo.FStyles, nullptr);
    if (i % 2) t.Memo.FreeSyntaxStyles();
  }
  t.Memo.FreeSyntaxStyles();
  EXPECT_EQ(t.Memo.FStyles, nullptr);
  EXPECT_EQ(t.Memo.FHtmlStyle, nullptr);
}

} // namespace
} // namespace orl
