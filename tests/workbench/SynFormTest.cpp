// The main form over a real definition, on the offscreen platform.

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QToolBar>

#include "SynFormFixture.h"
#include "TempFolder.h"
#include "definition/DefinitionFormat.h"
#include "platform/FileIO.h"
#include "widgets/NameValueGrid.h"
#include "workbench/AddKeywordsDialog.h"
#include "workbench/GrammarDeskMain.h"
#include "BuildPaths.h"

using namespace orl;
namespace fs = std::filesystem;

namespace {

int RowNamed(const TNameValueGrid& grid, const QString& name) {
  for (int row = 0; row < grid.rowCount(); ++row)
    if (grid.item(row, 0)->text() == name) return row;
  return -1;
}

class SynFormTest : public test::TSynFormFixture {};

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
  EXPECT_FALSE(FForm->SampleLines().empty());
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

TEST_F(SynFormTest, EnterInTheAddDialogAddsAndDeletesNothing) {
  TAddForm dialog(FHost.Language, FForm.get());
  dialog.show();
  dialog.List->addItem("kept");
  dialog.List->setCurrentRow(0);
  dialog.Edit->setText("added");
  dialog.Edit->setFocus();
  QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
  QApplication::sendEvent(dialog.Edit, &enter);
  ASSERT_EQ(dialog.List->count(), 2);
  EXPECT_EQ(dialog.List->item(0)->text(), "kept");
  EXPECT_EQ(dialog.List->item(1)->text(), "added");
  EXPECT_TRUE(dialog.isVisible());  // neither OK nor Cancel took the key
}

TEST_F(SynFormTest, NewHintLeavesTheFocusInTheHintsEdit) {
  FForm->Document().OpenFile(FFile);
  FForm->MainPages->setCurrentIndex(mpHints);
  QPushButton* newButton = nullptr;
  for (QPushButton* button : FForm->MainPages->currentWidget()->findChildren<QPushButton*>())
    if (button->text() == "New") newButton = button;
  ASSERT_TRUE(newButton);
  newButton->setFocus();
  newButton->click();
  EXPECT_EQ(FForm->focusWidget(), FForm->HintsEdit);
}

TEST(SynFormFilter, FileDialogFiltersTakeQtsForm) {
  EXPECT_EQ(QtFileFilter({u"Word Files (*.txt;*.uew)", u"*.txt;*.uew", u"uew", {}, {}}), "Word Files (*.txt *.uew)");
  EXPECT_EQ(QtFileFilter({u"Syntax Files (*.gdx)", u"*.gdx", u"gdx", {}, {}}), "Syntax Files (*.gdx)");
}

TEST_F(SynFormTest, WithoutADocumentNoControlOfAnyPageTakesInput) {
  auto inputs = [this] {
    QList<QWidget*> found;
    for (int page = 0; page < FForm->MainPages->count(); ++page)
      for (QWidget* w : FForm->MainPages->widget(page)->findChildren<QWidget*>())
        if (qobject_cast<QLineEdit*>(w) || qobject_cast<QAbstractButton*>(w) || qobject_cast<QPlainTextEdit*>(w) ||
            qobject_cast<QAbstractItemView*>(w) || qobject_cast<QComboBox*>(w) || qobject_cast<QToolBar*>(w))
          found << w;
    return found;
  };
  ASSERT_GT(inputs().size(), 30);
  for (QWidget* w : inputs()) EXPECT_FALSE(w->isEnabled()) << w->metaObject()->className() << " " << w->objectName().toStdString();
  FForm->Document().FileNew();
  EXPECT_TRUE(FForm->txtAuthor->isEnabled());
  EXPECT_TRUE(FForm->HintsEdit->isEnabled());
  EXPECT_TRUE(FForm->MainPages->isEnabled());
}

TEST_F(SynFormTest, TheTitleSaysWhenTheDocumentIsModified) {
  FForm->Document().OpenFile(FFile);
  FForm->Document().SetModified();
  EXPECT_EQ(FForm->windowTitle(), "Orl GrammarDesk - C *");
  FForm->Document().FileSave();
  EXPECT_EQ(FForm->windowTitle(), "Orl GrammarDesk - C");
}

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
