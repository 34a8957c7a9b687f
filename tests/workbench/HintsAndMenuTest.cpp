// The hints, user menu, author and sample pages, help and the word-file import,
// worked through the document as the user works them.

#include <gtest/gtest.h>

#include <sys/stat.h>

#include "ScriptedUi.h"
#include "TempFolder.h"
#include "definition/DefinitionFormat.h"
#include "platform/FileIO.h"
#include "workbench/SynDocument.h"

using namespace orl;
namespace fs = std::filesystem;

namespace {

class PagesTest : public ::testing::Test {
protected:
  PagesTest() {
    fs::create_directories(FDir / "syntax");
    fs::create_directories(FDir / "GrammarDesk");
    FHost.HostFolder = FDir.Path();
    FHost.ProgramFile = FDir / "GrammarDesk" / "grammardesk";
    FDocument = std::make_unique<TSynDocument>(FHost, FUi);
    FDocument->FileNew();
  }

  void WriteConverter(const std::string& body) {
    const fs::path converter = FDir / "GrammarDesk" / "ultraedit2OrlQuillet";
    test::WriteBytes(converter, "#!/bin/sh\n" + body);
    ::chmod(converter.c_str(), 0755);
  }

  test::TTempFolder FDir;
  THostEnvironment FHost;
  test::TScriptedUi FUi;
  std::unique_ptr<TSynDocument> FDocument;
};

} // namespace

TEST(Signature, PastedDeclarationsTurnRound) {
  EXPECT_EQ(CleanUpSignature(u"void bar();", false), u"bar(): void");
  EXPECT_EQ(CleanUpSignature(u"static int foo (int a, char b);", false), u"foo(int a, char b): static int");
  EXPECT_EQ(CleanUpSignature(u"foo(int a);", false), u"foo(int a);");
  EXPECT_EQ(CleanUpSignature(u"no parenthesis;", false), u"no parenthesis;");
  EXPECT_EQ(CleanUpSignature(u"(a b)", false), u"(a b)");
}

TEST_F(PagesTest, HintRowsFollowTheBoxesAndTheirType) {
  THintsPage& hints = FDocument->Hints();
  EXPECT_EQ(hints.TypeIndex(), 1);  // an empty list starts with type 2
  hints.SetType(0, false);
  hints.New();
  EXPECT_EQ(hints.Rows().back(), u"1=");
  hints.SetEditText(u"text");
  EXPECT_EQ(hints.Rows().back(), u"1=\u00A6text");
  hints.SetMemoText(u"f(a,\nb)");
  EXPECT_EQ(hints.Rows().back(), u"1=f(a,\\nb)\u00A6text");
  EXPECT_EQ(hints.LabelId(), FDocument->Text(u"102"));
  hints.PasteIntoEdit(u"describes f");  // type 1: the one-line box holds the description
  EXPECT_EQ(hints.Rows().back(), u"1=f(a,\\nb)\u00A6Describes f");

  hints.SetType(1, false);
  hints.New();
  hints.PasteIntoEdit(u"void bar();");
  EXPECT_EQ(hints.Rows().back(), u"2=bar(): void\u00A6");
  hints.SetType(2, true);
  EXPECT_EQ(hints.Rows().back(), u"3=bar(): void\u00A6");

  // Reselecting a row shows it as stored: the memo holds real line breaks.
  hints.Select({0}, 0);
  EXPECT_EQ(hints.TypeIndex(), 0);
  EXPECT_EQ(hints.MemoText(), u"f(a,\nb)");
  EXPECT_EQ(hints.EditText(), u"Describes f");
}

TEST_F(PagesTest, HintCommandsConvertSortAndDelete) {
  FDocument->Pages().Hints = {u"2=b()\u00A6two", u"1=a()\u00A6one", u"3=c()\u00A6three", u"7=d"};
  FDocument->FileSave();  // named, saved: not modified
  FUi.Files.clear();
  THintsPage& hints = FDocument->Hints();
  hints.Reload();
  EXPECT_EQ(hints.TypeIndex(), 1);
  hints.Select({0, 1, 2, 3}, 1);
  hints.ConvertToType1();  // type 2 rows only: keys 2 and 7
  EXPECT_EQ(FDocument->Pages().Hints,
            (std::vector<std::u16string>{u"1=b()\u00A6two", u"1=a()\u00A6one", u"3=c()\u00A6three", u"1=d"}));
  EXPECT_EQ(hints.Selected(), std::set<int>{1});
  hints.Select({0, 1, 2}, 0);
  hints.ConvertToType3();
  EXPECT_EQ(FDocument->Pages().Hints[0], u"3=b()\u00A6two");
  EXPECT_EQ(FDocument->Pages().Hints[1], u"3=a()\u00A6one");  // type 3 rows stay as they are
  hints.Sort();
  EXPECT_EQ(FDocument->Pages().Hints.front(), u"1=d");

  FUi.Answers = {TMsgResult::mrNo, TMsgResult::mrYes};
  hints.Select({0, 3}, 0);
  hints.Delete();
  EXPECT_EQ(FDocument->Pages().Hints.size(), 4u);
  hints.Delete();
  EXPECT_EQ(FDocument->Pages().Hints, (std::vector<std::u16string>{u"3=a()\u00A6one", u"3=b()\u00A6two"}));
  EXPECT_EQ(FUi.Asked.back(), FDocument->Text(u"205"));
}

TEST_F(PagesTest, UserMenuEntriesInheritImagesAndRenumberWhenStored) {
  TStringList menu;
  for (const char16_t* line : {u"1=Open|open()+f", u"5=No letter|text", u"9=Caption only"}) menu.Add(line);
  FDocument->SynIni()->SetSection(sections::UserMenu, menu, false);
  FDocument->SynIni()->WriteString(sections::Sample, u"1", u"after");
  TUserMenuPage& page = FDocument->UserMenu();
  page.Refresh();
  ASSERT_EQ(page.Items().size(), 3u);
  EXPECT_EQ(page.Items()[1], (TItemRow{u"No letter", TOrlBitmap{5, u"text"}}));
  EXPECT_EQ(page.Items()[2], (TItemRow{u"Caption only", TOrlBitmap{5, u""}}));

  FUi.ItemDialog = [](TItemDialogData& item) {
    EXPECT_FALSE(item.bVariableAllowed);
    item.Caption = u"New";
    item.Text = u"a\nb";
    item.ImageIndex = 9;
    return true;
  };
  page.Add();
  TStringList stored;
  FDocument->SynIni()->ReadSectionValues(sections::UserMenu, stored);
  ASSERT_EQ(stored.Count(), 4);
  EXPECT_EQ(stored.Strings(1), u"2=No letter|text+f");
  EXPECT_EQ(stored.Strings(3), u"4=New|a\fb+c");
  TStringList sectionOrder;
  FDocument->SynIni()->ReadSections(sectionOrder);
  EXPECT_EQ(sectionOrder.Strings(sectionOrder.Count() - 1), sections::UserMenu);

  page.SelectItems({3}, 3);
  page.ItemCopy();
  FDocument->SetIconNr(0);
  page.Paste();
  EXPECT_EQ(page.Items().back(), page.Items()[3]);
  EXPECT_EQ(FDocument->IconNr(), 9);
}

TEST_F(PagesTest, ExtensionsHelpAndTheAuthorPage) {
  FUi.Files = {FDir / "syntax" / "X.gdx"};
  FDocument->FileSave();
  EXPECT_FALSE(FDocument->AddFileExtension(u"c"));
  EXPECT_TRUE(FDocument->AddFileExtension(u".c"));
  EXPECT_TRUE(FDocument->AddFileExtension(u"cpp"));
  EXPECT_EQ(FDocument->Pages().FileExtensions, (std::vector<std::u16string>{u".c", u".cpp"}));
  FDocument->DeleteFileExtension(0);
  FDocument->DeleteFileExtension(7);
  EXPECT_FALSE(FDocument->Modified());

  FDocument->OpenHelp(u"?Block.html", 51);  // offline and no local help: nothing
  EXPECT_TRUE(FUi.Opened.empty());
  fs::create_directories(FDir / "help");
  test::WriteBytes(FDir / "help" / "Quillet.chm", "help");
  FDocument->OpenHelp(u"?Block.html", 51);
  ASSERT_EQ(FUi.Opened.size(), 1u);
  EXPECT_TRUE(FUi.Opened[0].starts_with(u"file://") && FUi.Opened[0].ends_with(u"help/Quillet.chm"));
  FHost.SettingsIni = std::make_unique<TMemIniFileUTF16>();
  FHost.SettingsIni->WriteString(u"Customize", u"HelpOnline", u"1");
  FDocument->OpenHelp(u"?Folding.html", 52);
  FDocument->OpenHelp(u"", 0);
  EXPECT_TRUE(FUi.Opened[1].ends_with(u"/Help/Folding.html"));
  EXPECT_TRUE(FUi.Opened[2].ends_with(u"/Help/Quillet.html"));
  FDocument->HelpContent();
  EXPECT_TRUE(FUi.Opened[3].ends_with(u"/Help/Quillet.html?MultiHighlighterOptions.html"));
}

TEST_F(PagesTest, WordFileImportRunsTheConverterAndOpensWhatItLeaves) {
  FUi.Answers = {TMsgResult::mrNo};
  test::WriteBytes(FDir / "words.uew", "/L1\"Lang\"\n");
  FUi.Files = {FDir / "words.uew"};
  FDocument->FileImportWordfile();  // no converter beside the program
  EXPECT_TRUE(fs::exists(FDir / "words.txt"));  // renamed even though nothing converted it
  EXPECT_FALSE(fs::exists(FDir / "words.uew"));
  EXPECT_FALSE(FDocument->HasDocument());
  EXPECT_FALSE(FDocument->PagesEnabled());
  EXPECT_NE(FDocument->StatusText(0).find(u"could not be started"), std::u16string::npos);

  WriteConverter("exit 3\n");
  FUi.Files = {FDir / "words.txt"};
  FDocument->FileImportWordfile();
  EXPECT_NE(FDocument->StatusText(0).find(u"left no definition"), std::u16string::npos);

  // The converter gets the bare file name and runs in the file's folder.
  WriteConverter("sleep 0.1\nbase=$(basename \"$1\" .txt)\nprintf ';{}\\r\\n[Options]\\r\\nString=\"\\r\\n' > \"$base.gdx\"\n");
  FUi.Files = {FDir / "words.txt"};
  FDocument->FileImportWordfile();
  EXPECT_EQ(FDocument->CurrentFileName(), FDir / "words.gdx");
  EXPECT_EQ(FDocument->Pages().SyntaxOptions[10], u"\"");
  EXPECT_GE(FUi.Paused.count(), 2000);
}
