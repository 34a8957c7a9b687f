#include <gtest/gtest.h>

#include <set>

#include "ScriptedUi.h"
#include "TempFolder.h"
#include "definition/DefinitionFormat.h"
#include "platform/FileIO.h"
#include "platform/OrlError.h"
#include "workbench/SynDocument.h"
#include "BuildPaths.h"

using namespace orl;
namespace fs = std::filesystem;

namespace {

class SynDocumentTest : public ::testing::Test {
protected:
  SynDocumentTest() {
    fs::create_directories(FHostDir / "syntax" / "User defined");
    FHost.HostFolder = FHostDir.Path();
    FDocument = std::make_unique<TSynDocument>(FHost, FUi);
  }

  fs::path UserFile(const char* name) const { return FHostDir / "syntax" / "User defined" / name; }

  /// A definition on disk with one option set.
  fs::path MakeDefinition(const char* name) {
    const fs::path file = FHostDir / "syntax" / name;
    test::WriteBytes(file, ";{}\r\n\r\n[Options]\r\nLineCommentA=//\r\n\r\n");
    return file;
  }

  void Edit() {
    FDocument->Pages().SyntaxOptions[0] = u"#";
    FDocument->SetModified();
  }

  test::TTempFolder FHostDir;
  THostEnvironment FHost;
  test::TScriptedUi FUi;
  std::unique_ptr<TSynDocument> FDocument;
};

} // namespace

TEST_F(SynDocumentTest, SaveAsOnANewDocumentThenSaveWritesWithoutAsking) {
  FDocument->FileNew();
  EXPECT_TRUE(FDocument->Modified());
  EXPECT_EQ(FDocument->StatusText(0), u"*New");
  FUi.Files.push_back(UserFile("Mine.gdx"));
  FDocument->FileSave();  // no name yet: Save As
  EXPECT_EQ(FDocument->CurrentFileName(), UserFile("Mine.gdx"));
  EXPECT_FALSE(FDocument->Modified());
  EXPECT_EQ(FDocument->Caption(), u"Orl GrammarDesk - Mine");
  Edit();
  FDocument->FileSave();
  EXPECT_EQ(FUi.Dialogs.size(), 1u);
  EXPECT_EQ(FDocument->StatusText(1), u"Saved!");
  TMemIniFile saved(StringFromPath(UserFile("Mine.gdx")));
  EXPECT_EQ(saved.ReadString(sections::Options, u"LineCommentA", u""), u"#");
  // The entry went to the user's list, since the folder is the user's folder.
  TMemIniFileUTF16 userList(StringFromPath(UserFile("_list.ver")));
  EXPECT_EQ(userList.ReadString(u"Mine", u"Version", u""), u"1000");
}

TEST_F(SynDocumentTest, SaveQuestionsFollowTheDocumentsName) {
  FDocument->FileNew();
  FUi.Answers = {TMsgResult::mrYes};  // at 204, then cancel the Save As dialog
  FUi.Files = {std::nullopt};
  FDocument->FileClose();             // goes on without saving
  EXPECT_FALSE(FDocument->HasDocument());
  EXPECT_FALSE(FDocument->PagesEnabled());
  ASSERT_EQ(FUi.Asked.size(), 1u);
  EXPECT_NE(FUi.Asked[0].find(u"new syntax definition"), std::u16string::npos);

  FDocument->FileNew();
  FUi.Files = {FHostDir / "syntax" / "Named.gdx"};
  FDocument->FileSaveAs();
  Edit();
  FUi.Answers = {TMsgResult::mrNo};
  FDocument->FileClose();
  ASSERT_EQ(FUi.Asked.size(), 2u);
  EXPECT_NE(FUi.Asked[1].find(u"has been modified"), std::u16string::npos);
}

TEST_F(SynDocumentTest, CancelLeavesTheModifiedDocumentAsItWas) {
  FUi.Files = {MakeDefinition("A.gdx")};
  FDocument->FileOpen();
  EXPECT_EQ(FDocument->Pages().SyntaxOptions[0], u"//");
  Edit();
  const int reloads = FUi.Reloads;
  FUi.Answers = {TMsgResult::mrCancel};
  FDocument->FileOpen();
  FDocument->FileNew();
  FUi.Answers = {TMsgResult::mrCancel};
  EXPECT_FALSE(FDocument->CanClose());
  EXPECT_EQ(FUi.Dialogs.size(), 1u);
  EXPECT_EQ(FUi.Reloads, reloads);
  EXPECT_TRUE(FDocument->Modified());
  EXPECT_EQ(FDocument->Pages().SyntaxOptions[0], u"#");
  EXPECT_EQ(FDocument->CurrentFileName(), FHostDir / "syntax" / "A.gdx");
}

TEST_F(SynDocumentTest, CommandLineOpensExistingFilesAndShowsTheLast) {
  const fs::path a = MakeDefinition("A.gdx"), b = MakeDefinition("B.gdx");
  FDocument->ProcessCommandLine({(FHostDir / "missing.gdx").string()});
  EXPECT_FALSE(FDocument->HasDocument());
  FDocument->ProcessCommandLine({a.string(), (FHostDir / "missing.gdx").string(), b.string()});
  EXPECT_EQ(FDocument->CurrentFileName(), b);
  EXPECT_EQ(FDocument->Caption(), u"Orl GrammarDesk - B");
  EXPECT_EQ(FDocument->StatusText(0), u"B.gdx");
  EXPECT_TRUE(FDocument->PagesEnabled());
  EXPECT_FALSE(FDocument->Modified());
  const TStringList& recent = FDocument->RecentFiles().Strings();
  ASSERT_EQ(recent.Count(), 2);
  EXPECT_EQ(recent.Strings(0), StringFromPath(b));
  EXPECT_EQ(recent.Strings(1), StringFromPath(a));

  // A recent-file entry opens its file; the last entry of the menu clears the list.
  FDocument->RecentMenuClick(1, 4, u"&1 " + StringFromPath(a));
  EXPECT_EQ(FDocument->CurrentFileName(), a);
  FDocument->RecentMenuClick(3, 4, u"Clear");
  EXPECT_EQ(recent.Count(), 0);
}

TEST_F(SynDocumentTest, VersionListIsChosenByTheExactFolder) {
  fs::create_directories(FHostDir / "syntax" / "user defined");
  FDocument->FileNew();
  FDocument->Pages().Version.Author = u"Me";
  FUi.Files = {FHostDir / "syntax" / "user defined" / "X.gdx"};
  FDocument->FileSaveAs();
  TMemIniFileUTF16 hostList(StringFromPath(FHostDir / "syntax" / "_list.ver"));
  EXPECT_EQ(hostList.ReadString(u"X", u"Author", u""), u"Me");
  EXPECT_FALSE(FileExists(UserFile("_list.ver")));

  FUi.Files = {UserFile("X.gdx")};
  FDocument->FileOpen();
  EXPECT_EQ(FDocument->Pages().Version.Author, u"<Name>");
  EXPECT_EQ(FDocument->Pages().Version.Date, u"2009-01-01");
}

TEST_F(SynDocumentTest, FailuresKeepStateAndLeaveNoHalfOpenDocument) {
  FUi.Files = {MakeDefinition("A.gdx")};
  FDocument->FileOpen();
  Edit();
  FUi.Files = {FHostDir / "no such folder" / "A.gdx"};
  EXPECT_THROW(FDocument->FileSaveAs(), EFileError);
  EXPECT_TRUE(FDocument->Modified());
  EXPECT_EQ(FDocument->CurrentFileName(), FHostDir / "syntax" / "A.gdx");

  fs::create_directories(FHostDir / "Folder.gdx");
  FUi.Answers = {TMsgResult::mrNo};
  FUi.Files = {FHostDir / "Folder.gdx"};
  EXPECT_THROW(FDocument->FileOpen(), EFileError);
  EXPECT_FALSE(FDocument->HasDocument());
  EXPECT_FALSE(FDocument->PagesEnabled());
  EXPECT_TRUE(FDocument->CurrentFileName().empty());
  FDocument->FileSave();  // nothing to save: no crash, no dialog
  EXPECT_EQ(FUi.Dialogs.size(), 3u);
}

TEST_F(SynDocumentTest, AnOlderDefinitionOpensConvertedAndUnmodified) {
  const fs::path old = FHostDir / "syntax" / "Old.gdx";
  test::WriteBytes(old, "[Syntax]\r\n");
  const std::string bytes = test::ReadBytes(old);
  FUi.Files = {old};
  FDocument->FileOpen();
  EXPECT_TRUE(FDocument->HasDocument());
  EXPECT_FALSE(FDocument->Modified());
  ASSERT_EQ(FUi.Asked.size(), 1u);
  EXPECT_EQ(FUi.Asked[0], FDocument->Text(u"200") + u"\n" + FDocument->Text(u"201"));
  EXPECT_EQ(test::ReadBytes(old), bytes);  // the file stays as it is until saved
  FDocument->FileSave();
  EXPECT_TRUE(RecogniseDefinitionFile(old).IsUtf16);
}

TEST_F(SynDocumentTest, CrashDataBringsTheDocumentBackUnderItsOwnName) {
  const fs::path a = MakeDefinition("A.gdx");
  FUi.Files = {a};
  FDocument->FileOpen();
  Edit();
  FDocument->Pages().Sample = {u"unsaved sample"};
  FDocument->SaveRecovery();
  EXPECT_TRUE(FileExists(FDocument->CrashDataFile(".ini")));

  test::TScriptedUi restartedUi;
  TSynDocument restarted(FHost, restartedUi);
  restarted.ProcessCommandLine({"/RESTART"});
  EXPECT_EQ(restarted.CurrentFileName(), a);
  EXPECT_EQ(restarted.Caption(), u"Orl GrammarDesk - A");
  EXPECT_EQ(restarted.Pages().SyntaxOptions[0], u"#");
  EXPECT_EQ(restarted.Pages().Sample, std::vector<std::u16string>{u"unsaved sample"});
  TMemIniFile original(StringFromPath(a));
  EXPECT_EQ(original.ReadString(sections::Options, u"LineCommentA", u""), u"//");
  // The restored edits are unsaved: closing asks, and the crash data stays until the answer is No.
  EXPECT_TRUE(restarted.Modified());
  EXPECT_EQ(restarted.StatusText(1), u"Modified");
  restartedUi.Answers = {TMsgResult::mrCancel};
  EXPECT_FALSE(restarted.CanClose());
  EXPECT_TRUE(restarted.CrashDataPresent());
  restartedUi.Answers = {TMsgResult::mrNo};
  EXPECT_TRUE(restarted.CanClose());
  EXPECT_FALSE(restarted.CrashDataPresent());

  // No document at the crash: no crash data, and the restart shows no document.
  TSynDocument empty(FHost, restartedUi);
  empty.SaveRecovery();
  TSynDocument third(FHost, restartedUi);
  third.ProcessCommandLine({"/RESTART"});
  EXPECT_FALSE(third.HasDocument());
}

TEST_F(SynDocumentTest, SavingTheRestoredDocumentEndsItsCrashData) {
  const fs::path a = MakeDefinition("A.gdx");
  FDocument->OpenFile(a);
  Edit();
  FDocument->SaveRecovery();
  test::TScriptedUi restartedUi;
  TSynDocument restarted(FHost, restartedUi);
  restarted.ProcessCommandLine({"/RESTART"});
  restarted.FileSave();
  EXPECT_FALSE(restarted.Modified());
  EXPECT_FALSE(restarted.CrashDataPresent());
  EXPECT_EQ(TMemIniFile(a).ReadString(sections::Options, u"LineCommentA", u""), u"#");
}

TEST_F(SynDocumentTest, ANormalStartOffersCrashDataThatNoRestartTook) {
  const fs::path a = MakeDefinition("A.gdx"), b = MakeDefinition("B.gdx");
  FDocument->OpenFile(a);
  Edit();
  FDocument->SaveRecovery();

  test::TScriptedUi cancelUi;  // no answer: the question is put off, the data kept
  TSynDocument later(FHost, cancelUi);
  later.ProcessCommandLine({});
  ASSERT_EQ(cancelUi.Asked.size(), 1u);
  EXPECT_FALSE(later.HasDocument());
  EXPECT_TRUE(later.CrashDataPresent());

  test::TScriptedUi yesUi;
  yesUi.Answers = {TMsgResult::mrYes};
  TSynDocument restored(FHost, yesUi);
  restored.ProcessCommandLine({});
  EXPECT_EQ(restored.CurrentFileName(), a);
  EXPECT_EQ(restored.Pages().SyntaxOptions[0], u"#");
  EXPECT_TRUE(restored.Modified());

  test::TScriptedUi noUi;
  noUi.Answers = {TMsgResult::mrNo};
  TSynDocument declined(FHost, noUi);
  declined.ProcessCommandLine({b.string()});
  EXPECT_FALSE(declined.CrashDataPresent());
  EXPECT_EQ(declined.CurrentFileName(), b);
}

TEST_F(SynDocumentTest, NamesStayTheSystemsFromCommandLineToSaveAndCrashData) {
  const fs::path latin = MakeDefinition("caf\xe9.gdx");  // Latin-1, not UTF-8
  test::WriteBytes(fs::path(latin).replace_extension(".ini"), "[Sample]\r\n1=kept\r\n");
  const fs::path folder = latin.parent_path();
  const fs::path previous = fs::current_path();
  fs::current_path(folder);
  FDocument->ProcessCommandLine({latin.filename().string()});
  fs::current_path(previous);
  EXPECT_EQ(FDocument->CurrentFileName(), latin);  // absolute, before it reaches the recent files
  EXPECT_EQ(FDocument->RecentFiles().Strings().Strings(0), StringFromPath(latin));
  EXPECT_EQ(FDocument->Pages().Sample, std::vector<std::u16string>{u"kept"});

  Edit();
  FDocument->SaveRecovery();
  test::TScriptedUi restartedUi;
  TSynDocument restarted(FHost, restartedUi);
  restarted.ProcessCommandLine({"/RESTART"});
  EXPECT_EQ(restarted.CurrentFileName(), latin);
  restarted.FileSave();
  EXPECT_EQ(TMemIniFile(latin).ReadString(sections::Options, u"LineCommentA", u""), u"#");
  EXPECT_EQ(TMemIniFile(fs::path(latin).replace_extension(".ini")).ReadString(sections::Sample, u"1", u""), u"kept");
  std::set<fs::path> files;
  for (const auto& entry : fs::directory_iterator(folder))
    if (entry.is_regular_file()) files.insert(entry.path().filename());
  EXPECT_EQ(files, (std::set<fs::path>{latin.filename(), "caf\xe9.ini", "_list.ver"})) << "a file under another name appeared";
}

TEST_F(SynDocumentTest, ASaveThatCannotWriteBothFilesWritesNeither) {
  FDocument->OpenFile(MakeDefinition("A.gdx"));
  Edit();
  const fs::path target = FHostDir / "syntax" / "T.gdx";
  fs::create_directories(target);  // the definition cannot be written
  test::WriteBytes(fs::path(target).replace_extension(".ini"), "[Comment]\r\n1=the user's own\r\n");
  FUi.Files = {target};
  EXPECT_THROW(FDocument->FileSaveAs(), EFileError);
  EXPECT_EQ(test::ReadBytes(fs::path(target).replace_extension(".ini")), "[Comment]\r\n1=the user's own\r\n");
  EXPECT_TRUE(FDocument->Modified());
  for (const auto& entry : fs::directory_iterator(FHostDir / "syntax"))
    EXPECT_EQ(entry.path().filename().string().find(".tmp"), std::string::npos) << entry.path();
}

TEST_F(SynDocumentTest, WithoutADocumentNothingCountsAsModified) {
  FDocument->SetModified();
  EXPECT_FALSE(FDocument->Modified());
  FDocument->FileNew();
  EXPECT_TRUE(FUi.Asked.empty());
}

TEST_F(SynDocumentTest, TheConvertersMessagesComeFromTheLanguageFile) {
  THostEnvironment german;
  german.HostFolder = FHostDir.Path();
  german.ProgramFile = FHostDir / "GrammarDesk" / "grammardesk";
  german.Language = TLanguageTexts(std::make_unique<TMemIniFileW>(orl::test::HostDir() / "Language" / "deu.ini"));
  test::TScriptedUi ui;
  TSynDocument document(german, ui);
  test::WriteBytes(FHostDir / "words.txt", "/L1\"Lang\"\n");
  ui.Files = {FHostDir / "words.txt"};
  document.FileImportWordfile();  // no converter beside the program
  EXPECT_EQ(document.StatusText(0), u"Der Wortdatei-Konverter konnte nicht gestartet werden.");
}
