#include <gtest/gtest.h>

#include <array>
#include <chrono>

#include "TempFolder.h"
#include "definition/DefinitionFormat.h"
#include "definition/DefinitionPages.h"
#include "definition/IniWriteBuffer.h"
#include "definition/LegacyConversion.h"
#include "platform/FileIO.h"
#include "BuildPaths.h"

using namespace orl;
using namespace orl::legacy;
namespace fs = std::filesystem;

namespace {

constexpr std::u16string_view kMissing = u"<missing>";

/// Both stores of one conversion.
struct TConverted {
  explicit TConverted(std::initializer_list<std::u16string_view> lines) {
    TStringList list;
    for (std::u16string_view line : lines) list.Add(std::u16string(line));
    ConvertLinesToNew(list, Gdx, Ini);
  }
  TMemIniFile Gdx, Ini;
};

std::vector<std::u16string> SectionOf(TMemIniFile& store, std::u16string_view section) {
  TStringList lines;
  store.ReadSectionValues(section, lines);
  std::vector<std::u16string> result;
  for (int i = 0; i < lines.Count(); ++i) result.push_back(lines.Strings(i));
  return result;
}

using TLines = std::vector<std::u16string>;

} // namespace

TEST(LegacyText, CommentsAreCutOutsideTheQuotesOnly) {
  EXPECT_EQ(StripComment(u"  Symbols = ;:  "), u"Symbols =");
  EXPECT_EQ(StripComment(u"Numbers = \"0;9\" ; digits"), u"Numbers = \"0;9\" ; digits");  // the first `;` decides
  EXPECT_EQ(StripComment(u"x = \"//\" // note"), u"x = \"//\" // note");
  EXPECT_EQ(StripComment(u"x = \"a\" // note"), u"x = \"a\"");
  EXPECT_EQ(StripComment(u"x = \"a // b"), u"x = \"a");  // one quote protects nothing
  EXPECT_EQ(StripComment(u"a; b // c"), u"a");
}

TEST(LegacyText, ValuesWordsAndHintsLoseQuotesAndEscapes) {
  EXPECT_EQ(KeyOf(u"  BlockName  = x = y"), u"BlockName");
  EXPECT_EQ(KeyOf(u">HTML"), u">");
  EXPECT_EQ(KeyOf(u"no key"), u"");
  EXPECT_EQ(ValueOf(u"Escape = \"\\t\""), u"t");
  EXPECT_EQ(ValueOf(u"Escape = \\"), u"\\");
  EXPECT_EQ(ValueOf(u"String = \"\\\"\""), u"\"");
  EXPECT_EQ(ValueOf(u"x = a = b"), u"a = b");
  EXPECT_EQ(ValueOf(u"> Named group "), u"Named group");
  EXPECT_EQ(ValueOf(u"no value"), u"");

  EXPECT_EQ(WordOf(u">anything"), u">");
  EXPECT_EQ(WordOf(u"\"\\<br\\>\""), u"<br>");
  EXPECT_EQ(WordOf(u"\\\"x\\y\""), u"\\xy");  // a backslash ahead of the quotes stays
  EXPECT_EQ(WordOf(u"a\\b"), u"a\\b");
  EXPECT_EQ(WordOf(u"\"\""), u"");

  EXPECT_EQ(HintOf(u"\" f(a; b) \""), u"f(a; b)");
  EXPECT_EQ(HintOf(u"\\\\x"), u"\\x");
  EXPECT_EQ(GroupName(u" \"Str\\ings\" tail"), u"Strings");
  EXPECT_EQ(GroupName(u"\"open"), u"open");
}

TEST(LegacyText, ItemLinesSplitIntoCaptionInsertTextAndImage) {
  EXPECT_EQ(ItemName(u"->\"a+b\"|\"x\"+m"), u"a");
  EXPECT_EQ(ItemName(u"-> plain \\name |x"), u"plain name");
  EXPECT_EQ(ItemName(u"->\"\"|x"), u"");

  EXPECT_EQ(ItemData(u"->\"a\"+m"), u"");
  EXPECT_EQ(ItemData(u"->\"a\"|\"if ()#12{#12}\"+m"), u"if ()\f{\f}");
  EXPECT_EQ(ItemData(u"->\"a\"|\"line#12\"+m"), u"line");  // trimming takes an outer line break
  EXPECT_EQ(ItemData(u"->\"a\"|\"x\\#12y\"+m"), u"x\fy");

  EXPECT_EQ(ItemImage(u"->\"a\"|\"b+c\"+m"), u'm');
  EXPECT_EQ(ItemImage(u"->\"a\"|\"b\""), u'p');
  EXPECT_EQ(ItemImage(u"->\"a\"|\"b\"+mx"), u'p');
  EXPECT_EQ(ItemImage(u"->a|b+ v "), u'v');
}

TEST(LegacyText, ContentAheadSkipsCommentsAndStopsAtMarkers) {
  TStringList lines;
  for (const char16_t* line : {u"[tags]", u"{ comment", u"[end] }", u"", u">", u"; x", u"// y", u">T",  //
                               u"[keywords]", u"  [END]  ",                                              //
                               u"[usermenu]", u"[end] ; not a marker here",                              //
                               u"[autohint]", u"{ never closed", u"text"})
    lines.Add(line);
  const TContentLookahead ahead(lines);
  EXPECT_TRUE(ahead.NextHasContent(0));
  EXPECT_FALSE(ahead.NextHasContent(8));
  EXPECT_TRUE(ahead.NextHasContent(10));
  EXPECT_FALSE(ahead.NextHasContent(12));
  EXPECT_FALSE(ahead.NextHasContent(14));  // end of file
  EXPECT_EQ(MarkerOf(u"[TagComplete]"), TMarker::mkTagComplete);
  EXPECT_EQ(MarkerOf(u"[tags] x"), TMarker::mkNone);
}

TEST(LegacyConversion, HeadLineNamesTheMultiHighlighterOnlyWhenComplete) {
  TConverted full({u" {$html;web.ini} ", u"{ info }", u"{$x;y}", u"[beginsample]", u"last"});
  EXPECT_EQ(SectionOf(full.Ini, sections::MultiHighlight), (TLines{u"Syntax=html", u"File=web.ini"}));
  EXPECT_EQ(SectionOf(full.Ini, sections::Comment), (TLines{u"1= info ", u"2=$x"}));
  EXPECT_EQ(SectionOf(full.Ini, sections::Sample), (TLines{u"1=last"}));

  TConverted open({u"{$html;web.ini", u"[beginsample]", u"last"});
  EXPECT_EQ(SectionOf(open.Ini, sections::MultiHighlight), (TLines{u"Syntax=html"}));
  EXPECT_EQ(SectionOf(open.Ini, sections::Comment), (TLines{u"1=$html"}));
  EXPECT_EQ(SectionOf(open.Ini, sections::Sample), (TLines{u"1=last"}));

  TConverted none({u"{$html}", u"text outside"});
  EXPECT_EQ(SectionOf(none.Ini, sections::MultiHighlight), TLines{});
  EXPECT_EQ(SectionOf(none.Ini, sections::Comment), (TLines{u"1=$html"}));
}

TEST(LegacyConversion, EmptySectionsLeaveTheModeAndEndClosesIt) {
  // The empty [autohint] leaves the tags mode on, so [end] still writes the group.
  TConverted kept({u"[tags]", u">T", u"a", u"[autohint]", u"; nothing", u"[end]", u"b", u"[end]"});
  EXPECT_EQ(SectionOf(kept.Gdx, sections::Tags), (TLines{u"T=a|"}));
  EXPECT_EQ(SectionOf(kept.Ini, sections::Hints), TLines{});

  // A group that never got a name is not written, and its [end] still ends the section.
  TConverted unnamed({u"[tags]", u"\"\"", u"[end]", u">X", u"y", u"[end]"});
  EXPECT_EQ(SectionOf(unnamed.Gdx, sections::Tags), TLines{});

  // Brace lines are comments ahead of the first section only; inside one they are words.
  TConverted braces({u"[keywords]", u"{ a }", u"w", u"[end]", u"[tags]", u"{ b }", u"[end]", u"[tags]", u"t",
                     u"[end]"});
  EXPECT_EQ(SectionOf(braces.Gdx, sections::Keywords), (TLines{u"1={ a }|w|"}));
  EXPECT_EQ(SectionOf(braces.Gdx, sections::Tags), (TLines{u"1=t|"}));

  // [end] ends a sample too; the text behind it is dropped.
  TConverted sample({u"[beginsample]", u"  a ; b", u"[end]", u"dropped", u"[endsample]", u"[beginsample]", u"c"});
  EXPECT_EQ(SectionOf(sample.Ini, sections::Sample), (TLines{u"1=c"}));
}

TEST(LegacyConversion, CompletionGroupsAreWrittenByTheNextGroupOrByEnd) {
  TConverted groups({u"[autocomplete]", u"->\"orphan\"", u"\"A\"", u"\"B\"", u"->\"b\"|\"b()\"+f", u"\"C\"", u"[end]",
                     u"[tagcomplete]", u"\"lost\"", u"->\"x\"", u"[usermenu]", u"->\"m\"", u"xy", u"->\"n\"|\"n\"+o",
                     u"[end]"});
  EXPECT_EQ(SectionOf(groups.Ini, sections::AutoComplete), (TLines{u"A=", u"B=b|b()+f##"}));
  EXPECT_EQ(SectionOf(groups.Ini, sections::TagComplete), TLines{});
  EXPECT_EQ(SectionOf(groups.Ini, sections::UserMenu), (TLines{u"1=m|m+p", u"2=n|n+o"}));
}

TEST(LegacyConversion, EveryFlagSaysYesOrYOnly) {
  TConverted flags({u"[options]", u"StringOnLine = yes", u"CaseSensitive = Y", u"TagsCaseSensitive = \"YES\"",
                    u"HighlightUrl = yEs", u"AutoCompleteTags = y", u"AddProjectClassesToCompletion = yes",
                    u"Fold_Opt_Case = yes", u"Fold_Opt_FoldAllTags = y", u"BlockName = B", u"BlockOnLine = 1",
                    u"BlockAsString = true", u"Fold_Id = F", u"Fold_NoParentOfId = no", u"[end]"});
  EXPECT_EQ(SectionOf(flags.Gdx, sections::Options),
            (TLines{u"StringOnLine=1", u"Case=1", u"CaseTags=1", u"HighlightUrl=1", u"AutoCompleteTags=1",
                    u"AddProjectClassesToCompletion=1"}));
  EXPECT_EQ(SectionOf(flags.Gdx, sections::FoldOptions), (TLines{u"Case=1", u"FoldAllTags=1"}));
  EXPECT_EQ(SectionOf(flags.Gdx, sections::Block),
            (TLines{u"1_Name=B", u"1_OnLine=0", u"1_AsString=0", u"1_Start=", u"1_End="}));
  EXPECT_EQ(SectionOf(flags.Gdx, sections::Fold), (TLines{u"1_Id=F", u"1_Begin=", u"1_End=", u"1_Section=",
                                                          u"1_ListItem=", u"1_NoParentOfId=0"}));
}

TEST(LegacyConversion, ForeignAndBrokenTextConvertsWithoutComplaint) {
  TConverted empty({});
  TStringList image;
  empty.Gdx.GetStrings(image);
  EXPECT_EQ(image.Count(), 0);

  const std::u16string hugeLine(200000, u'"');
  TConverted broken({u"\x01\xFFFD{", hugeLine, u"[tags", u"[tags]", u"\"unbalanced", u"\\", u"{", u"[end]",
                     u"[autohint]", u"\"", u"}"});
  EXPECT_EQ(SectionOf(broken.Gdx, sections::Tags), (TLines{u"1=unbalanced||{|"}));  // `\` leaves an empty word
  EXPECT_EQ(SectionOf(broken.Ini, sections::Hints), (TLines{u"1=}"}));
}

// Names with `=` and names that differ in case only are where the store's
// replace-or-append rule is easiest to get wrong.
TEST(IniWriteBuffer, LeavesTheStoreAsDirectWritesWould) {
  TMemIniFile direct, buffered;
  TIniWriteBuffer buffer(buffered);
  for (auto [section, ident, value] : std::initializer_list<std::array<std::u16string_view, 3>>{
           {u"S", u"X", u"1"}, {u"S", u"x=y", u"2"}, {u"s", u"x", u"3"}, {u"T", u";c", u"4"}, {u"S", u"A", u"5"},
           {u"S", u"a", u"6"}, {u"T", u"", u"7"}, {u"T", u"", u"8"}}) {
    direct.WriteString(section, ident, value);
    buffer.WriteString(section, ident, value);
  }
  EXPECT_TRUE(SectionOf(buffered, u"S").empty());
  buffer.Flush();
  TStringList expected, actual;
  direct.GetStrings(expected);
  buffered.GetStrings(actual);
  EXPECT_EQ(actual.Text(), expected.Text());
  EXPECT_EQ(SectionOf(buffered, u"S"), (TLines{u"X=1", u"x=3", u"a=6"}));
}

// Every marker followed by an unclosed brace comment: a look ahead per marker
// would scan to the end of the file each time.
TEST(LegacyConversion, LookAheadStaysLinear) {
  TStringList lines;
  for (int i = 0; i < 100000; ++i) {
    lines.Add(u"[tags]");
    lines.Add(u"{");
  }
  TMemIniFile gdx, ini;
  const auto start = std::chrono::steady_clock::now();
  ConvertLinesToNew(lines, gdx, ini);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
  EXPECT_FALSE(gdx.SectionExists(sections::Tags));
}

// Each older sample opened as the workbench opens it and saved as it saves
// it must give the reference pair beside it, byte for byte.
TEST(LegacyConversion, SampleFilesSaveAsTheirReferencePairs) {
  const fs::path data = orl::test::TestsDataDir() / "legacy";
  for (const char* name : {"options", "groups", "menus", "plain"}) {
    SCOPED_TRACE(name);
    test::TTempFolder dir;
    const fs::path file = dir / (std::string(name) + ".gdx");
    fs::copy_file(data / file.filename(), file);
    test::WriteBytes(CompanionPath(file), "[Sample]\r\n1=from an unrelated companion\r\n");
    const std::string original = test::ReadBytes(file);

    TDefinitionStores stores = LoadDefinitionStores(file);
    EXPECT_TRUE(stores.Converted);
    EXPECT_EQ(test::ReadBytes(file), original);
    SaveDefinitionFiles(ReadDefinitionPages(*stores.Gdx, *stores.Ini), *stores.Gdx, *stores.Ini, file, false);

    const fs::path expected = data / "expected" / file.filename();
    EXPECT_EQ(test::ReadBytes(file), test::ReadBytes(expected));
    EXPECT_EQ(test::ReadBytes(CompanionPath(file)), test::ReadBytes(CompanionPath(expected)));
    EXPECT_FALSE(LoadDefinitionStores(file).Converted);
  }
}
