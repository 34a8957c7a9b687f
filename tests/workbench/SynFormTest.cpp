// The main form over a real definition, on the offscreen platform.

#include <gtest/gtest.h>

#include <QApplication>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QTabWidget>

#include "TempFolder.h"
#include "definition/DefinitionFormat.h"
#include "platform/FileIO.h"
#include "widgets/NameValueGrid.h"
#include "workbench/GrammarDeskMain.h"

using namespace orl;
namespace fs = std::filesystem;

namespace {

int RowNamed(const TNameValueGrid& grid, const QString& name) {
  for (int row = 0; row < grid.rowCount(); ++row)
    if (grid.item(row, 0)->text() == name) return row;
  return -1;
}

class SynFormTest : public ::testing::Test {
protected:
  SynFormTest() {
    fs::create_directories(FDir / "syntax");
    fs::copy_file(fs::path(HOST_DIR) / "syntax" / "C++.gdx", FFile);
    fs::copy_file(fs::path(HOST_DIR) / "syntax" / "C++.ini", fs::path(FFile).replace_extension(".ini"));
    FHost.HostFolder = FDir.Path();
    FForm = std::make_unique<TSynForm>(FHost);
  }

  test::TTempFolder FDir;
  fs::path FFile = FDir / "syntax" / "C.gdx";
  THostEnvironment FHost;
  std::unique_ptr<TSynForm> FForm;
};

} // namespace

TEST_F(SynFormTest, LoadingFillsThePagesWithoutCountingAsAnEdit) {
  EXPECT_FALSE(FForm->SyntaxOptionTree->isEnabled());
  FForm->Document().OpenFile(FFile);
  EXPECT_TRUE(FForm->SyntaxOptionTree->isEnabled());
  EXPECT_EQ(FForm->windowTitle(), "Orl GrammarDesk - C");
  EXPECT_EQ(FForm->SyntaxOptionTree->Value(RowNamed(*FForm->SyntaxOptionTree, "LineCommentA")), "//");
  EXPECT_EQ(FForm->SyntaxOptionTree->Value(RowNamed(*FForm->SyntaxOptionTree, "CaseSensitive")), "Yes");
  EXPECT_EQ(FForm->SyntaxOptionTree->Value(RowNamed(*FForm->SyntaxOptionTree, "AllowNestedComments")), "");
  EXPECT_EQ(FForm->BlockNames->count(), int(FForm->Document().Pages().Blocks.size()));
  EXPECT_GT(FForm->lbFileExtensions->count(), 0);
  EXPECT_FALSE(FForm->SampleMemo->toPlainText().isEmpty());
  EXPECT_FALSE(FForm->Document().Modified());

  FForm->MainPages->setCurrentIndex(mpKeywords);
  auto* groups = FForm->findChild<QListWidget*>("KeywordGroupList");
  auto* words = FForm->findChild<QListWidget*>("KeywordList");
  ASSERT_TRUE(groups && words);
  ASSERT_GT(groups->count(), 0);
  groups->setCurrentRow(0);
  EXPECT_GT(words->count(), 10);
}

TEST_F(SynFormTest, EditsReachTheSavedFileWithTheirOwnYesRules) {
  FForm->Document().OpenFile(FFile);
  TNameValueGrid& options = *FForm->SyntaxOptionTree;
  options.EditValue(RowNamed(options, "AllowNestedComments"), "yes");
  EXPECT_TRUE(FForm->Document().Modified());
  EXPECT_EQ(FForm->Document().StatusText(1), u"Modified");

  FForm->BlockNames->setCurrentRow(0);
  TNameValueGrid& block = *FForm->BlockTree;
  block.EditValue(RowNamed(block, "HighlightKeywords"), "yes");
  block.EditValue(RowNamed(block, "HighlightNumbers"), "Yes");
  block.EditValue(RowNamed(block, "BlockName"), "Renamed");
  EXPECT_EQ(FForm->BlockNames->item(0)->text(), "Renamed");
  FForm->InfoMemo->setPlainText("only line");
  FForm->Document().FileSave();
  EXPECT_FALSE(FForm->Document().Modified());

  TMemIniFile saved(StringFromPath(FFile));
  EXPECT_EQ(saved.ReadString(sections::Options, u"AllowNestedComments", u""), u"1");
  EXPECT_EQ(saved.ReadString(sections::Block, u"1_Name", u""), u"Renamed");
  EXPECT_EQ(saved.ReadString(sections::Block, u"1_HighlightKeywords", u""), u"0");
  EXPECT_EQ(saved.ReadString(sections::Block, u"1_HighlightNumbers", u""), u"1");
  TMemIniFile companion(StringFromPath(fs::path(FFile).replace_extension(".ini")));
  EXPECT_EQ(companion.ReadString(sections::Comment, u"1", u""), u"only line");

  FForm->Document().FileClose();
  EXPECT_FALSE(FForm->SyntaxOptionTree->isEnabled());
  EXPECT_EQ(FForm->BlockNames->count(), 0);
  EXPECT_EQ(FForm->windowTitle(), "Orl GrammarDesk");
}

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
