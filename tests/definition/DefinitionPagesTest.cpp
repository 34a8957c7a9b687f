#include <gtest/gtest.h>

#include "TempFolder.h"
#include "definition/DefinitionFormat.h"
#include "definition/DefinitionPages.h"
#include "definition/VersionList.h"
#include "platform/CodePages.h"
#include "platform/FileIO.h"

using namespace orl;

namespace {

std::u16string FileText(const std::filesystem::path& path) { return DecodeText(test::ReadBytes(path), 1252); }

std::vector<std::u16string> SectionNames(TMemIniFile& ini) {
  TStringList list;
  ini.ReadSections(list);
  std::vector<std::u16string> names;
  for (int i = 0; i < list.Count(); ++i) names.push_back(list.Strings(i));
  return names;
}

size_t Row(std::span<const TKeySpec> keys, std::u16string_view key) {
  for (size_t i = 0; i < keys.size(); ++i)
    if (keys[i].Key == key) return i;
  return keys.size();
}

} // namespace

TEST(DefinitionPages, NewDefinitionSavesFlagsOnlyAndNoEmptySections) {
  test::TTempFolder dir;
  TMemIniFile gdx, ini;
  TDefinitionPages pages = ReadDefinitionPages(gdx, ini);
  EXPECT_EQ(pages.Info, InfoTemplate());
  SaveDefinitionFiles(pages, gdx, ini, dir / "New.gdx", false);

  TDefinitionStores saved = LoadDefinitionStores(dir / "New.gdx");
  EXPECT_EQ(SectionNames(*saved.Gdx),
            (std::vector<std::u16string>{u"StandardExtensions", u"Options", u"FoldOptions"}));
  TStringList options;
  saved.Gdx->ReadSectionValues(sections::Options, options);
  for (int i = 0; i < options.Count(); ++i) EXPECT_EQ(options.ValueFromIndex(i), u"0");
  EXPECT_EQ(SectionNames(*saved.Ini), (std::vector<std::u16string>{u"Comment", u"Sample", u"Hints"}));
  EXPECT_TRUE(FileText(dir / "New.gdx").starts_with(u";{}\r\n\r\n[StandardExtensions]\r\n"));
  EXPECT_EQ(test::ReadBytes(dir / "New.gdx").substr(0, 2), "\xFF\xFE");
}

TEST(DefinitionPages, FlagsAtTheEdgesOfGridsAndRules) {
  test::TTempFolder dir;
  TMemIniFile gdx, ini;
  TDefinitionPages pages = ReadDefinitionPages(gdx, ini);
  pages.SyntaxOptions[Row(OptionKeys(), u"Case")] = u"yes";          // grids: lower-cased compare
  pages.SyntaxOptions[Row(OptionKeys(), u"StringOnLine")] = u"No";
  pages.SyntaxOptions[Row(OptionKeys(), u"LineCommentA")] = u"//";
  pages.SyntaxOptions[Row(OptionKeys(), u"OnlyLineCommentIfFirstCharA")] = u"7";  // kept as typed
  TBlockObject block;
  block.BlockName = u"#Str";
  block.HighlightNumbers = false;
  TBlockObject second;
  second.BlockName = u"Second";
  pages.Blocks = {block, second};
  TFoldObject fold;
  fold.Fold_Id = u"~id";
  fold.Fold_NotAlwaysEnded = true;
  fold.Fold_List_Item = u"ceClass";
  pages.Folds = {fold};
  SaveDefinitionFiles(pages, gdx, ini, dir / "F.gdx", false);

  TDefinitionStores saved = LoadDefinitionStores(dir / "F.gdx");
  EXPECT_EQ(saved.Gdx->ReadString(sections::Options, u"Case", u""), u"1");
  EXPECT_EQ(saved.Gdx->ReadString(sections::Options, u"OnlyLineCommentIfFirstCharA", u""), u"7");
  EXPECT_EQ(saved.Gdx->ReadString(sections::Block, u"2_Start", u"missing"), u"");  // rule text keys always written
  const TDefinitionPages back = ReadDefinitionPages(*saved.Gdx, *saved.Ini);
  EXPECT_EQ(back.SyntaxOptions[Row(OptionKeys(), u"Case")], u"Yes");
  EXPECT_EQ(back.SyntaxOptions[Row(OptionKeys(), u"StringOnLine")], u"");
  EXPECT_EQ(back.Blocks, pages.Blocks);
  EXPECT_EQ(back.Folds, pages.Folds);
  EXPECT_EQ(FoldRowText(back.Folds[0]), u"~id  ... ");
}

TEST(DefinitionPages, MissingRuleKeysReadTheirDefaultsAndTheOlderLineCommentKeyIsRead) {
  TMemIniFile gdx, ini;
  TStringList lines;
  for (const char16_t* l : {u"[Options]", u"OnlyLineCommentIfFirstChar=2", u"[Block]", u"1_Name=B", u"2_Name=C",
                            u"2_OnLine=1", u"4_Name=after a gap", u"[Fold]", u"1_Begin=no id"})
    lines.Add(l);
  gdx.SetStrings(lines);
  const TDefinitionPages pages = ReadDefinitionPages(gdx, ini);
  EXPECT_EQ(pages.SyntaxOptions[7], u"2");
  ASSERT_EQ(pages.Blocks.size(), 2u);
  EXPECT_TRUE(pages.Blocks[0].HighlightChars);
  EXPECT_FALSE(pages.Blocks[0].BlockOnLine);
  EXPECT_TRUE(pages.Blocks[1].BlockOnLine);
  EXPECT_TRUE(pages.Folds.empty());
}

TEST(DefinitionPages, SaveKeepsForeignSectionsInFrontAndRewritesTheRest) {
  test::TTempFolder dir;
  test::WriteBytes(dir / "L.gdx",
                   ";{$Old;x}\r\n\r\n[Block]\r\n1_Name=B\r\n1_Foreign=z\r\n\r\n[Mine]\r\na=1\r\n\r\n"
                   "[Keywords]\r\nK=a|b|\r\n\r\n[Options]\r\nSymbolWordsA=x\r\n\r\n");
  test::WriteBytes(dir / "L.ini",
                   "[Sample]\r\n1=line one\r\n2=;not a comment behind a key\r\n\r\n[MultiHighlight]\r\nSyntax=Old\r\n"
                   "File=x\r\n\r\n[Hints]\r\n2=f()\xA6" "desc\r\n\r\n[Comment]\r\n1=only line\r\n\r\n");
  TDefinitionStores stores = LoadDefinitionStores(dir / "L.gdx");
  TDefinitionPages pages = ReadDefinitionPages(*stores.Gdx, *stores.Ini);
  EXPECT_EQ(pages.Info, InfoTemplate());  // one info line gives the template
  EXPECT_EQ(pages.Sample, (std::vector<std::u16string>{u"line one", u";not a comment behind a key"}));
  pages.Sample = {u"a", u"", u";dropped", u"b"};
  pages.MultiHighlight = {u"", u"Html.gdx", u""};
  SaveDefinitionFiles(pages, *stores.Gdx, *stores.Ini, dir / "L.gdx", false);

  TDefinitionStores saved = LoadDefinitionStores(dir / "L.gdx");
  EXPECT_EQ(SectionNames(*saved.Gdx), (std::vector<std::u16string>{u"Mine", u"Keywords", u"StandardExtensions",
                                                                   u"Options", u"FoldOptions", u"Block"}));
  EXPECT_FALSE(saved.Gdx->ValueExists(sections::Block, u"1_Foreign"));
  EXPECT_FALSE(saved.Gdx->ValueExists(sections::Options, u"SymbolWordsA"));
  EXPECT_EQ(SectionNames(*saved.Ini),
            (std::vector<std::u16string>{u"MultiHighlight", u"Comment", u"Sample", u"Hints"}));
  EXPECT_EQ(saved.Ini->ReadString(sections::MultiHighlight, u"Syntax", u"cleared"), u"cleared");
  EXPECT_EQ(saved.Ini->ReadString(sections::Sample, u"2", u""), u"b");
  EXPECT_EQ(saved.Ini->ReadString(sections::Hints, u"2", u""), u"f()\u00A6desc");
  EXPECT_TRUE(FileText(dir / "L.gdx").starts_with(u";{Html.gdx}\r\n\r\n[Mine]"));
}

TEST(DefinitionPages, AnsiCurrentLayoutIsReadAsIsAndOlderLayoutIsConverted) {
  test::TTempFolder dir;
  test::WriteBytes(dir / "A.gdx", ";{}\r\n[Keywords]\r\nK=\xE9t\xE9|\r\n");
  EXPECT_TRUE(RecogniseDefinitionFile(dir / "A.gdx").IsCurrentLayout());
  TDefinitionStores stores = LoadDefinitionStores(dir / "A.gdx");
  EXPECT_FALSE(stores.Converted);
  EXPECT_EQ(stores.Gdx->ReadString(sections::Keywords, u"K", u""), u"\u00E9t\u00E9|");
  SaveDefinitionFiles(ReadDefinitionPages(*stores.Gdx, *stores.Ini), *stores.Gdx, *stores.Ini, dir / "A.gdx", false);
  EXPECT_TRUE(RecogniseDefinitionFile(dir / "A.gdx").IsUtf16);

  // None of these holds a marker of the older layout, so each converts to
  // nothing; what their companions hold is not taken over.
  test::WriteBytes(dir / "U8.gdx", "\xEF\xBB\xBF;{}\r\n");
  test::WriteBytes(dir / "Old.gdx", "[Syntax]\r\nx=1\r\n");
  test::WriteBytes(dir / "One.gdx", "\xFF");
  for (const char* name : {"U8.gdx", "Old.gdx", "One.gdx"}) {
    test::WriteBytes(CompanionPath(dir / name), "[Hints]\r\n1=from the companion\r\n");
    TDefinitionStores older = LoadDefinitionStores(dir / name);
    EXPECT_TRUE(older.Converted) << name;
    EXPECT_TRUE(SectionNames(*older.Gdx).empty()) << name;
    EXPECT_TRUE(SectionNames(*older.Ini).empty()) << name;
  }
  EXPECT_FALSE(RecogniseDefinitionFile(dir / "none.gdx").Exists);
  EXPECT_FALSE(LoadDefinitionStores(dir / "none.gdx").Converted);
}

TEST(DefinitionPages, RecoverySaveHasNoHeaderLine) {
  test::TTempFolder dir;
  TMemIniFile gdx, ini;
  SaveDefinitionFiles(ReadDefinitionPages(gdx, ini), gdx, ini, dir / "Crash.gdx", true);
  EXPECT_TRUE(FileText(dir / "Crash.gdx").starts_with(u"[StandardExtensions]"));
  EXPECT_TRUE(RecogniseDefinitionFile(dir / "Crash.gdx").IsCurrentLayout());
}

TEST(VersionLists, ChosenByTheExactFolderAndReadWithDefaults) {
  test::TTempFolder host;
  std::filesystem::create_directories(host / "syntax" / "User defined");
  TVersionLists lists(host.Path());
  EXPECT_EQ(&lists.ListFor(host / "syntax" / "User defined" / "A.gdx"), &lists.UserList());
  EXPECT_EQ(&lists.ListFor(host / "syntax" / "user defined" / "A.gdx"), &lists.HostList());
  EXPECT_EQ(&lists.ListFor(host / "elsewhere" / "A.gdx"), &lists.HostList());

  TVersionInfo info = ReadVersionInfo(lists.UserList(), u"A", kLoadingDateDefault);
  EXPECT_EQ(info, (TVersionInfo{u"<Name>", u"2010-01-01", u"1000"}));
  lists.UserList().WriteString(u"A", u"Author", u"");
  EXPECT_EQ(ReadVersionInfo(lists.UserList(), u"A", u"2009-01-01").Author, u"<Name>");
  WriteVersionInfo(lists.UserList(), u"A", {u"Me", u"2026-11-23", u"1001"});
  lists.UserList().UpdateFile();
  TVersionLists reopened(host.Path());
  EXPECT_EQ(ReadVersionInfo(reopened.UserList(), u"A", kLoadingDateDefault).Version, u"1001");
}
