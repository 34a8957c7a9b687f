// The sample page's memo, coloured by the definition as the author edits it.

#include <gtest/gtest.h>

#include <QApplication>
#include <QElapsedTimer>

#include "SynFormFixture.h"
#include "TempFolder.h"
#include "definition/MemIni.h"
#include "syntax/StyleScheme.h"
#include "widgets/MemoWidget.h"
#include "workbench/GrammarDeskMain.h"

using namespace orl;
namespace fs = std::filesystem;

namespace {

class SampleMemoTest : public test::TSynFormFixture {
protected:
  SampleMemoTest() { FForm->Document().OpenFile(FFile); }

  TOrlMemo& Memo() { return FForm->SampleMemo->Memo(); }

  /// Lets the events run until `done` holds or a generous bound has passed.
  template <typename TDone>
  bool WaitFor(TDone done) {
    QElapsedTimer clock;
    clock.start();
    while (!done() && clock.elapsed() < 5000) QApplication::processEvents(QEventLoop::AllEvents, 20);
    return done();
  }

  TKeyWord* Group(std::u16string_view name) {
    if (!Memo().FStyles) return nullptr;
    for (const auto& group : Memo().FStyles->FKeyWords)
      if (group->Name == name) return group.get();
    return nullptr;
  }
};

TEST_F(SampleMemoTest, TheSampleIsTheDefinitionsAndColouredByIt) {
  EXPECT_EQ(FForm->SampleLines(), FForm->Document().Pages().Sample);
  EXPECT_EQ(Memo().GetLineText(0), u"#include <iostream>");
  ASSERT_TRUE(WaitFor([&] { return Memo().FStyles != nullptr; }));
  ASSERT_NE(Group(u"Keywords"), nullptr);
  EXPECT_GE(Group(u"Keywords")->KeyWords.IndexOf(u"return"), 0);
  EXPECT_FALSE(FForm->Document().Modified());
}

TEST_F(SampleMemoTest, AKeywordGroupAddedInMemoryColoursTheSampleOnceEditsPause) {
  ASSERT_TRUE(WaitFor([&] { return Memo().FStyles != nullptr; }));
  const std::string onDisk = test::ReadBytes(FFile);
  TOrlCustomMemoStyles* before = Memo().FStyles;
  FForm->Document().SynGdx()->WriteString(u"Keywords", u"Zoo", u"zebra|okapi|");
  FForm->Document().SetModified();
  // Debounced: the set is rebuilt once the edits pause, not at each one.
  EXPECT_EQ(Memo().FStyles, before);
  ASSERT_TRUE(WaitFor([&] { return Group(u"Zoo") != nullptr; }));
  TKeyWord& zoo = *Group(u"Zoo");
  EXPECT_GE(zoo.KeyWords.IndexOf(u"zebra"), 0);
  // The new group takes the scheme's colour for its place among the groups.
  const int place = int(Memo().FStyles->FKeyWords.size()) - 1;
  EXPECT_EQ(zoo.Color, LightStyleScheme().KeywordStyle(place).Text);
  EXPECT_NE(zoo.Color, Group(u"Keywords")->Color);
  EXPECT_EQ(test::ReadBytes(FFile), onDisk);  // built from memory, the file untouched
}

TEST_F(SampleMemoTest, ABlockRuleChangedOnItsPageReachesTheStyleSet) {
  ASSERT_TRUE(WaitFor([&] { return Memo().FStyles != nullptr; }));
  ASSERT_FALSE(FForm->Document().Pages().Blocks.empty());
  TBlockObject& block = FForm->Document().Pages().Blocks.front();
  block.BlockName = u"Heredoc";
  block.BlockStart = u"<<<";
  block.BlockEnd = u">>>";
  FForm->Document().SetModified();
  auto heredoc = [&]() -> const TBlock* {
    for (const auto& rule : Memo().FStyles->FBlocks)
      if (rule->Name == u"Heredoc") return rule.get();
    return nullptr;
  };
  ASSERT_TRUE(WaitFor([&] { return heredoc() != nullptr; }));
  EXPECT_EQ(heredoc()->Start, u"<<<");
  EXPECT_EQ(heredoc()->Color, LightStyleScheme().BlockStyle(0).Text);
}

TEST_F(SampleMemoTest, EditsOfTheSampleGoBackIntoTheDefinitionAsAnEdit) {
  Memo().SetText(u"int x;\n// note");
  EXPECT_EQ(FForm->Document().Pages().Sample, (std::vector<std::u16string>{u"int x;", u"// note"}));
  EXPECT_TRUE(FForm->Document().Modified());
  // Reloading the pages shows the sample without counting as an edit.
  FForm->Document().Pages().Sample = {u"reloaded"};
  FForm->PagesReloaded();
  EXPECT_EQ(Memo().GetLineText(0), u"reloaded");
  EXPECT_EQ(FForm->Document().Pages().Sample, std::vector<std::u16string>{u"reloaded"});
}

} // namespace
