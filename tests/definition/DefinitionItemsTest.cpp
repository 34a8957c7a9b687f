#include <gtest/gtest.h>

#include "definition/DefinitionFormat.h"
#include "definition/DefinitionItems.h"

using namespace orl;

TEST(DefinitionItems, CompletionItemsSplitAtHashAndTheFirstPlus) {
  const auto items = SplitCompletionItems(u"A|b+c+m##x|y##@Other##@Grp|+@##plain##L|l1\fl2+ v ##");
  ASSERT_EQ(items.size(), 6u);
  EXPECT_EQ(items[0].Caption, u"A");
  EXPECT_EQ(items[0].InsertText, u"b");
  EXPECT_EQ(items[0].ImageLetter, u'm');
  EXPECT_EQ(items[0].ImageIndex, 4);
  // No letter: the image of the item before.
  EXPECT_EQ(items[1].ImageLetter, 0);
  EXPECT_EQ(items[1].ImageIndex, 4);
  EXPECT_TRUE(items[2].IsGroupReference);
  EXPECT_EQ(items[2].Caption, u"@Other");
  EXPECT_EQ(items[2].ImageIndex, ImageIndexOfLetter(u'@'));
  EXPECT_EQ(ImageLetters()[size_t(items[2].ImageIndex)].Caption, u"var");
  EXPECT_EQ(items[3].Caption, u"@Grp");
  EXPECT_EQ(items[4].Caption, u"");
  EXPECT_EQ(items[4].InsertText, u"plain");
  EXPECT_EQ(items[5].InsertText, u"l1\fl2");
  EXPECT_EQ(items[5].ImageLetter, u'v');
  EXPECT_TRUE(SplitCompletionItems(u"").empty());
  EXPECT_EQ(SplitCompletionItems(u"#").size(), 1u);
}

TEST(DefinitionItems, UserMenuEntrySplitsAtTheLastPlus) {
  const TUserMenuEntry e = SplitUserMenuEntry(u"A|b+c+m");
  EXPECT_EQ(e.Caption, u"A");
  EXPECT_EQ(e.InsertText, u"b+c");
  EXPECT_EQ(e.ImageLetter, u'm');
  const TUserMenuEntry f = SplitUserMenuEntry(u"Cap|x\fy+ Q");
  EXPECT_EQ(f.InsertText, u"x\fy");
  EXPECT_EQ(f.ImageIndex, 0);  // not in the table
  EXPECT_EQ(SplitUserMenuEntry(u"only").Caption, u"only");
}

TEST(DefinitionItems, HintTypesComeFromTheKey) {
  const THint one = SplitHint(u"1=f(a,\\nb)");
  EXPECT_EQ(one.Type, 1);
  EXPECT_EQ(one.Identifier, u"f(a,\nb)");
  EXPECT_EQ(one.Description, u"");
  const THint two = SplitHint(u"2=g()\u00A6does\\nthings");
  EXPECT_EQ(two.Type, 2);
  EXPECT_EQ(two.Description, u"does\nthings");
  EXPECT_EQ(SplitHint(u"3=h\u00A6").Type, 3);
  EXPECT_EQ(SplitHint(u"17=h").Type, 2);
}

TEST(DefinitionFormat, TablesHeaderAndWords) {
  EXPECT_EQ(OptionKeys().size(), 39u);
  EXPECT_EQ(OptionKeys()[18].RowName, u"CaseSensitive");
  EXPECT_EQ(FoldOptionKeys().size(), 15u);
  EXPECT_EQ(BlockKeys()[7].Default, u"1");
  EXPECT_EQ(FoldKeys()[7].RowName, u"Fold_List_Item");
  EXPECT_EQ(RuleKey(12, u"_Name"), u"12_Name");
  EXPECT_EQ(ListItemIndex(u"CEMETHOD"), 4);
  EXPECT_EQ(ListItemIndex(u"ceNone"), -1);
  EXPECT_EQ(ImageIndexOfLetter(u'w'), 28);
  EXPECT_EQ(LetterOfImageIndex(15), u'5');
  EXPECT_EQ(BuildHeaderComment(u"", u"", u""), u";{}");
  EXPECT_EQ(BuildHeaderComment(u"HTML", u"Html.gdx", u"VBScript"), u";{$HTML;Html.gdx|VBScript}");
  EXPECT_EQ(BuildHeaderComment(u"", u"", u"JS"), u";{|JS}");
  EXPECT_EQ(BaseNameOf("/a/b/C++.gdx"), u"C++");
  EXPECT_EQ(CompanionPath("/a/C++.gdx"), std::filesystem::path("/a/C++.ini"));
  EXPECT_EQ(SplitWords(u"begin|end||x"), (std::vector<std::u16string>{u"begin", u"end", u"x"}));
}
