// The option, rule and group pages as the user works them: through the page
// models, answering their questions from a script.

#include <gtest/gtest.h>

#include "ScriptedUi.h"
#include "TempFolder.h"
#include "definition/DefinitionFormat.h"
#include "platform/CodePages.h"
#include "platform/FileIO.h"
#include "platform/OrlError.h"
#include "workbench/SynDocument.h"
#include "BuildPaths.h"

using namespace orl;
namespace fs = std::filesystem;

namespace {

class PageModelsTest : public ::testing::Test {
protected:
  PageModelsTest() {
    fs::create_directories(FDir / "syntax");
    FHost.HostFolder = FDir.Path();
    FDocument = std::make_unique<TSynDocument>(FHost, FUi);
  }

  void OpenCopyOf(const char* bundled) {
    for (const char* extension : {".gdx", ".ini"})
      fs::copy_file(orl::test::HostDir() / "syntax" / (std::string(bundled) + extension),
                    fs::path(FFile).replace_extension(extension), fs::copy_options::overwrite_existing);
    FDocument->OpenFile(FFile);
  }

  TGroupPage& Page(int mainPage) {
    FDocument->SetActivePage(mainPage);
    return *FDocument->GroupPageOf(mainPage);
  }

  std::vector<std::u16string> Texts(const TGroupPage& page) {
    std::vector<std::u16string> texts;
    for (const TItemRow& row : page.Items()) texts.push_back(row.Text);
    return texts;
  }

  test::TTempFolder FDir;
  fs::path FFile = FDir / "syntax" / "Lang.gdx";
  THostEnvironment FHost;
  test::TScriptedUi FUi;
  std::unique_ptr<TSynDocument> FDocument;
};

/// Every line of every section of a store, as "[section] line".
std::multiset<std::u16string> Lines(TMemIniFile& store) {
  TStringList image;
  store.GetStrings(image);
  std::multiset<std::u16string> lines;
  std::u16string section;
  for (int i = 0; i < image.Count(); ++i) {
    const std::u16string& line = image.Strings(i);
    if (line.starts_with(u'[')) section = line;
    else if (!line.empty()) lines.insert(section + u" " + line);
  }
  return lines;
}

} // namespace

TEST_F(PageModelsTest, RuleListsAddEditMoveSortAndDelete) {
  FDocument->FileNew();
  TBlockListPage& blocks = FDocument->BlockNames();
  FUi.PromptAnswers = {u"", std::nullopt, u"Str", u"Alpha"};
  blocks.Add();
  blocks.Add();
  EXPECT_TRUE(blocks.RowTexts().empty());
  blocks.Add();
  blocks.Add();
  ASSERT_EQ(blocks.RowTexts(), (std::vector<std::u16string>{u"Str", u"Alpha"}));
  EXPECT_EQ(blocks.Selected(), 1);
  EXPECT_TRUE(blocks.SelectedRule()->HighlightChars);
  EXPECT_FALSE(blocks.SelectedRule()->BlockOnLine);

  blocks.EditCell(7, u"yes");  // HighlightKeywords: only "Yes" with its case is true
  blocks.EditCell(1, u"Yes");  // BlockOnLine
  EXPECT_FALSE(blocks.SelectedRule()->HighlightKeywords);
  EXPECT_TRUE(blocks.SelectedRule()->BlockOnLine);
  blocks.EditCell(0, u"Beta");
  EXPECT_EQ(blocks.RowTexts()[1], u"Beta");

  blocks.Select(0);
  blocks.Up();  // the first row stays
  EXPECT_EQ(blocks.RowTexts()[0], u"Str");
  blocks.Sort();  // Beta, Str: the rules follow, and the next save numbers them so
  EXPECT_EQ(blocks.RowTexts(), (std::vector<std::u16string>{u"Beta", u"Str"}));
  EXPECT_EQ(blocks.Selected(), 1);
  EXPECT_EQ(FDocument->Pages().Blocks[0].BlockName, u"Beta");

  TFoldListPage& folds = FDocument->FoldNames();
  FUi.PromptAnswers = {u"{"};
  folds.Add();
  EXPECT_EQ(folds.RowTexts()[0], u"{");
  EXPECT_EQ(FUi.Prompted.back(), u"Name: (Fold_Id)");
  folds.EditCell(1, u"begin");  // the row keeps its text until the id changes
  EXPECT_EQ(folds.RowTexts()[0], u"{");
  folds.EditCell(0, u"~b");
  EXPECT_EQ(folds.RowTexts()[0], u"~b begin ... ");

  FUi.Answers = {TMsgResult::mrNo, TMsgResult::mrYes};
  folds.Select(0);
  folds.Delete();
  EXPECT_EQ(folds.RowTexts().size(), 1u);
  folds.Delete();
  EXPECT_TRUE(folds.RowTexts().empty());
  EXPECT_EQ(folds.SelectedRule(), nullptr);

  FUi.Files = {FFile};
  FDocument->FileSaveAs();
  TMemIniFile saved(StringFromPath(FFile));
  EXPECT_EQ(saved.ReadString(sections::Block, u"1_Name", u""), u"Beta");
  EXPECT_EQ(saved.ReadString(sections::Block, u"1_HighlightKeywords", u""), u"0");
  EXPECT_FALSE(saved.SectionExists(sections::Fold));
}

TEST_F(PageModelsTest, WordGroupsWriteThroughToTheStore) {
  FDocument->FileNew();
  TGroupPage& keywords = Page(mpKeywords);
  FUi.PromptAnswers = {u"Words", u"#Regex"};
  keywords.GroupAdd();
  EXPECT_EQ(FDocument->SynGdx()->ReadString(sections::Keywords, u"Words", u"missing"), u"");
  FUi.Words = {std::vector<std::u16string>{u"fooBar", u"b"}};
  keywords.SelectGroup(0);
  keywords.ItemAdd();
  EXPECT_EQ(FDocument->SynGdx()->ReadString(sections::Keywords, u"Words", u""), u"fooBar|b|");
  keywords.SelectItems({1}, 1);
  keywords.ItemUppercase();  // every row, not only the selected one
  EXPECT_EQ(Texts(keywords), (std::vector<std::u16string>{u"FOOBAR", u"B"}));
  keywords.ItemCapitalize();
  EXPECT_EQ(Texts(keywords), (std::vector<std::u16string>{u"Foobar", u"B"}));

  FUi.Clipboard = u"x\r\n\r\ny|z\r\n";
  keywords.ItemPaste();
  EXPECT_EQ(FDocument->SynGdx()->ReadString(sections::Keywords, u"Words", u""), u"Foobar|B|x|y|z|");
  keywords.SelectItems({0, 1}, 0);
  keywords.ItemCut();
  EXPECT_EQ(FUi.Clipboard, u"Foobar\r\nB\r\n");
  EXPECT_EQ(Texts(keywords).front(), u"x");
  EXPECT_EQ(keywords.ItemIndex(), 0);

  // A group of one regular expression takes one row.
  keywords.GroupAdd();
  keywords.SelectGroup(1);
  FUi.Words = {std::vector<std::u16string>{u"\\d+"}};
  keywords.ItemAdd();
  EXPECT_FALSE(keywords.ItemAddEnabled());
  keywords.ItemAdd();
  EXPECT_EQ(FDocument->SynGdx()->ReadString(sections::Keywords, u"#Regex", u""), u"\\d+");
  keywords.SelectItems({0}, 0);
  FUi.Answers = {TMsgResult::mrYes};
  keywords.ItemDelete();
  EXPECT_TRUE(keywords.ItemAddEnabled());

  // Renaming onto an existing name leaves two lines; the lookup finds the last.
  keywords.SelectGroup(1);
  FUi.PromptAnswers = {u"Words"};
  keywords.GroupEdit();
  TStringList lines;
  FDocument->SynGdx()->ReadSectionValues(sections::Keywords, lines);
  EXPECT_EQ(lines.Count(), 2);
  EXPECT_EQ(FDocument->SynGdx()->ReadString(sections::Keywords, u"Words", u"?"), u"");

  FUi.Files = {FFile};
  FDocument->FileSave();  // gives the document a name, clearing the modified state
  keywords.RefreshGroups();
  keywords.SelectGroup(0);
  const bool bBefore = FDocument->Modified();
  keywords.GroupUp();
  EXPECT_NE(bBefore, FDocument->Modified());  // nothing moved, yet it counts
  FUi.Answers = {TMsgResult::mrYes};
  keywords.GroupDelete();
  EXPECT_EQ(keywords.Groups().size(), 1u);  // one of the two lines named Words
  EXPECT_TRUE(keywords.Items().empty());
}

TEST_F(PageModelsTest, CompletionItemsThroughTheItemDialogAndTheClipboard) {
  FDocument->FileNew();
  TGroupPage& classes = Page(mpClassCompletion);
  FUi.PromptAnswers = {u"@shared", u"(string)."};
  classes.GroupAdd();
  classes.GroupAdd();
  EXPECT_EQ(FUi.Prompted.back(), FDocument->Text(u"315"));
  classes.SelectGroup(1);
  FUi.ItemDialog = [](TItemDialogData& item) {
    item.Caption = u"length";
    item.Text = u"length()\nnext";
    item.ImageIndex = 4;
    return true;
  };
  classes.ItemAdd();
  FUi.ItemDialog = [](TItemDialogData& item) {
    EXPECT_EQ(item.Variables, (std::vector<std::u16string>{u"@shared"}));
    EXPECT_EQ(item.ImageIndex, 4);  // the image last used
    item.Caption = u"@shared";
    item.Text.clear();
    item.ImageIndex = 21;
    item.bVariable = true;
    return true;
  };
  classes.ItemAdd();
  EXPECT_EQ(FDocument->SynIni()->ReadString(sections::AutoComplete, u"(string).", u""),
            u"length|length()\fnext+m##@shared|+@##");
  classes.SelectGroup(1);
  ASSERT_EQ(classes.Items().size(), 2u);
  EXPECT_EQ(classes.Items()[1].Object->nr, 21);

  classes.SelectItems({0, 1}, 0);
  classes.ItemCopy();
  EXPECT_EQ(FUi.Clipboard, u"length\r\n4\r\nlength()\fnext\r\n@shared\r\n21\r\n\r\n");
  classes.SelectGroup(0);
  classes.ItemPaste();
  classes.SelectGroup(0);
  EXPECT_EQ(classes.Items(), (std::vector<TItemRow>{{u"length", TOrlBitmap{4, u"length()\fnext"}},
                                                    {u"@shared", TOrlBitmap{21, u""}}}));
  classes.ItemSort();  // by image, then caption
  EXPECT_EQ(classes.Items().front().Text, u"length");
  classes.SelectItems({0}, 0);
  classes.ItemReplaceImages(9);
  EXPECT_EQ(classes.Items()[0], (TItemRow{u"length", TOrlBitmap{9, u"length()\fnext"}}));

  FUi.Clipboard = u"a\r\n1\r\ntext a\r\nb\r\nnot a number\r\ntext b\r\n";
  EXPECT_THROW(classes.ItemPaste(), EOrlError);
  EXPECT_EQ(classes.Items().back().Text, u"a");  // the triple before the bad one stays
}

TEST_F(PageModelsTest, OneChangeOnEveryPageAndNothingElse) {
  OpenCopyOf("C++");
  TMemIniFile gdxBefore(StringFromPath(FFile)), iniBefore(StringFromPath(fs::path(FFile).replace_extension(".ini")));

  TDefinitionPages& pages = FDocument->Pages();
  pages.SyntaxOptions[1] = u"#";  // LineCommentB
  pages.FoldOptions[13] = u"Yes";  // FoldAllTags
  pages.RegionOptions[2] = u"//";  // Region CommentStart
  pages.MultiHighlight[0] = u"cpp";
  FDocument->BlockNames().Select(0);
  FDocument->BlockNames().EditCell(6, u"=");  // OnlyAfter
  FDocument->FoldNames().Select(0);
  FDocument->FoldNames().EditCell(5, u"Yes");  // NoParentOfId
  FDocument->SetModified();

  TGroupPage& keywords = Page(mpKeywords);
  keywords.SelectGroup(0);
  FUi.Words = {std::vector<std::u16string>{u"newword"}};
  keywords.ItemAdd();
  TGroupPage& classes = Page(mpClassCompletion);
  FUi.PromptAnswers = {u"(span)."};
  classes.GroupAdd();
  FDocument->FileSave();

  TMemIniFile gdxAfter(StringFromPath(FFile)), iniAfter(StringFromPath(fs::path(FFile).replace_extension(".ini")));
  auto diff = [](TMemIniFile& before, TMemIniFile& after) {
    std::multiset<std::u16string> gone = Lines(before), added = Lines(after);
    for (auto it = gone.begin(); it != gone.end();) {
      auto match = added.find(*it);
      if (match == added.end()) ++it;
      else {
        added.erase(match);
        it = gone.erase(it);
      }
    }
    return std::pair(gone, added);
  };
  const auto [gdxGone, gdxAdded] = diff(gdxBefore, gdxAfter);
  EXPECT_EQ(gdxAdded, (std::multiset<std::u16string>{
                          u"[Options] LineCommentB=#", u"[FoldOptions] FoldAllTags=1", u"[Region] CommentStart=//",
                          u"[Block] 1_OnlyAfter==", u"[Fold] 1_NoParentOfId=1",
                          u"[Keywords] " + gdxAfter.SectionLines(sections::Keywords)->Strings(0)}));
  EXPECT_EQ(gdxGone.size(), 4u);  // FoldAllTags=0, 1_OnlyAfter=, 1_NoParentOfId=0, the old first group
  const auto [iniGone, iniAdded] = diff(iniBefore, iniAfter);
  EXPECT_EQ(iniAdded, (std::multiset<std::u16string>{u"[MultiHighlight] Syntax=cpp", u"[AutoComplete] (span).="}));
  EXPECT_TRUE(iniGone.empty());
  EXPECT_TRUE(gdxAfter.SectionLines(sections::Keywords)->Strings(0).ends_with(u"|newword|"));
  EXPECT_EQ(DecodeText(test::ReadBytes(FFile), 1252).substr(0, 13), u";{$cpp;}\r\n\r\n[");
}

TEST_F(PageModelsTest, HintsMenuSampleInfoAndAuthorSurviveASaveAndReload) {
  OpenCopyOf("Python");
  const std::u16string longLine(5000, u'x');
  const std::u16string tricky = u"tab\there & \u00E4\u00DF\U0001F600 \u00A6 \\n end";
  FDocument->Hints().SetType(1, false);
  FDocument->Hints().New();
  FDocument->Hints().SetEditText(u"f(a & b)");
  FDocument->Hints().SetMemoText(u"first line\nsecond " + tricky);
  FUi.ItemDialog = [&](TItemDialogData& item) {
    item.Caption = u"Entry & more";
    item.Text = u"line 1\n\tline 2 " + longLine;
    item.ImageIndex = 7;
    return true;
  };
  FDocument->SetActivePage(mpUserMenu);
  FDocument->UserMenu().Add();
  FDocument->Pages().Sample.push_back(tricky);
  FDocument->Pages().Info.push_back(longLine);
  FDocument->Pages().Version = {u"A. Uth\u00F6r", u"2026-11-23", u"1001"};
  FDocument->SetModified();
  const TDefinitionPages before = FDocument->Pages();
  const std::vector<TItemRow> menuBefore = FDocument->UserMenu().Items();
  FDocument->FileSave();

  test::TScriptedUi otherUi;
  TSynDocument reopened(FHost, otherUi);
  reopened.OpenFile(FFile);
  reopened.LoadVersionInfo(BaseNameOf(FFile));
  EXPECT_EQ(reopened.Pages().Hints, before.Hints);
  EXPECT_EQ(reopened.Pages().Sample, before.Sample);
  EXPECT_EQ(reopened.Pages().Info, before.Info);
  EXPECT_EQ(reopened.Pages().Version, before.Version);
  reopened.SetActivePage(mpUserMenu);
  EXPECT_EQ(reopened.UserMenu().Items(), menuBefore);
  reopened.Hints().Select({int(before.Hints.size()) - 1}, int(before.Hints.size()) - 1);
  // The format writes a line break of a hint as the two characters \n, so typed ones come back as breaks.
  EXPECT_EQ(reopened.Hints().MemoText(), u"first line\nsecond tab\there & \u00E4\u00DF\U0001F600 \u00A6 \n end");
}
