#include <gtest/gtest.h>

#include <cmath>
#include <set>

#include "SyntaxTestFiles.h"
#include "syntax/OrlSyntax.h"
#include "syntax/StyleScheme.h"

namespace orl {
namespace {

using test::TTempFolder;
using test::U16;

// Relative luminance contrast of two 0x00BBGGRR colours.
double Contrast(TColor a, TColor b) {
  auto luminance = [](TColor c) {
    auto lin = [](int v) {
      const double s = v / 255.0;
      return s <= 0.03928 ? s / 12.92 : std::pow((s + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * lin(c & 0xFF) + 0.7152 * lin((c >> 8) & 0xFF) + 0.0722 * lin((c >> 16) & 0xFF);
  };
  const double la = luminance(a), lb = luminance(b);
  return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

TEST(StyleScheme, BuiltInSchemesGiveEveryGroupAReadableColourOfItsOwn) {
  for (const TStyleScheme& scheme : {LightStyleScheme(), DarkStyleScheme()}) {
    const TColor background = scheme.Classes.at(u"Default").Back;
    std::set<TColor> keywordColours, tagColours, blockColours;
    for (int i = 0; i < 24; ++i) {
      keywordColours.insert(scheme.KeywordStyle(i).Text);
      tagColours.insert(scheme.TagStyle(i).Text);
      blockColours.insert(scheme.BlockStyle(i).Text);
      for (TColor c : {scheme.KeywordStyle(i).Text, scheme.TagStyle(i).Text, scheme.BlockStyle(i).Text})
        EXPECT_GE(Contrast(c, background), 3.0) << i;
    }
    EXPECT_EQ(keywordColours.size(), 24u);
    EXPECT_EQ(tagColours.size(), 24u);
    EXPECT_EQ(blockColours.size(), 24u);
    for (const auto& [name, style] : scheme.Classes) {
      if (style.Text != clNoColor && style.Back == clNoColor) {
        EXPECT_GE(Contrast(style.Text, background), 3.0) << Utf16ToUtf8(name);
      }
    }
  }
}

TEST(StyleScheme, SettingsOverrideTheBaseAndBadTextIsReported) {
  TTempFolder folder;
  test::WriteBytes(folder / "Quillet.ini",
                   EncodeUtf16LE(u"[Colors]\r\nBase=dark\r\nComment=#112233,,bi\r\nString=red,#000000\r\n"
                                 u"Keyword1=#0000FF,none,u\r\nKeyword3=#FFFFFF\r\n",
                                 true));
  TMemIniFileUTF16 settings(U16(folder / "Quillet.ini"));
  std::vector<std::u16string> messages;
  const TStyleScheme scheme =
      ReadStyleScheme(settings, u"Colors", [&](const std::u16string& ws, bool) { messages.push_back(ws); });
  EXPECT_TRUE(scheme.bDark);
  const TSchemeStyle comment = scheme.Classes.at(u"Comment");
  EXPECT_EQ(comment.Text, 0x332211);
  EXPECT_EQ(comment.Style, fsBold | fsItalic);
  EXPECT_EQ(comment.Back, DarkStyleScheme().Classes.at(u"Comment").Back);
  EXPECT_EQ(scheme.Classes.at(u"String").Text, DarkStyleScheme().Classes.at(u"String").Text);
  EXPECT_EQ(scheme.Classes.at(u"String").Back, 0);
  ASSERT_EQ(messages.size(), 1u);
  EXPECT_NE(messages[0].find(u"String=red"), std::u16string::npos);
  EXPECT_EQ(scheme.KeywordStyle(0).Text, 0xFF0000);
  EXPECT_EQ(scheme.KeywordStyle(0).Style, fsUnderline);
  EXPECT_EQ(scheme.KeywordStyle(2).Text, DarkStyleScheme().KeywordStyle(2).Text);  // numbering stops at a gap
}

TEST(StyleScheme, ApplyColoursALoadedSet) {
  TTempFolder folder;
  const auto gdx = test::WriteDefinitionFile(folder, "L.gdx",
                                             u"[Keywords]\nA=a|\nB=b|\n\n[Tags]\nT=t|\n\n[Block]\n1_Name=X\n");
  TOrlSyntax syntax;
  TOrlMemoStyleSlots memo;
  std::u16string asp;
  syntax.LoadStyleFromFile(&memo, U16(gdx), u"L", 0, asp);
  const TStyleScheme scheme = DarkStyleScheme();
  ApplyStyleScheme(*memo.FStyles, scheme);
  const TOrlCustomMemoStyles& s = *memo.FStyles;
  EXPECT_EQ(s.FKeyWords[1]->Color, scheme.KeywordStyle(1).Text);
  EXPECT_NE(s.FKeyWords[0]->Color, s.FKeyWords[1]->Color);
  EXPECT_EQ(s.FTags[0]->Color, scheme.TagStyle(0).Text);
  EXPECT_EQ(s.FBlocks[0]->Color, scheme.BlockStyle(0).Text);
  EXPECT_EQ(s.FBkColor, scheme.Classes.at(u"Default").Back);
  EXPECT_EQ(s.FStringStyle.FTextColor, scheme.Classes.at(u"String").Text);
}

TEST(BuiltInSyntax, DefinitionFilesHighlightThemselves) {
  TTempFolder folder;
  TOrlSyntax syntax;
  TOrlMemoStyleSlots memo;
  syntax.SetSynFileSyntax(memo, U16(folder / "Edited.gdx"));
  ASSERT_NE(memo.FStyles, nullptr);
  TOrlCustomMemoStyles& s = *memo.FStyles;
  EXPECT_EQ(s.FSyntaxName, u"SynFile");
  EXPECT_EQ(s.FNodes.size(), 7u);
  EXPECT_EQ(s.NodeIdList.Count(), 8);
  ASSERT_EQ(s.FKeyWords.size(), 2u);
  const std::u16string word = u"FOLD_OPT_CASE";
  EXPECT_GE(s.FKeyWords[1]->KeyWords.PIndexOf(word.data(), int(word.size())), 0);
  EXPECT_TRUE(memo.UrlAware);
  TCompletionItems menu;
  s.LoadUserMenu(menu, false);
  ASSERT_EQ(menu.Count(), 65);
  EXPECT_EQ(menu.Item(0).Bitmap->Value, u"?Document");
  EXPECT_EQ(menu.Item(6).Bitmap->Value, u"[Keywords]\f>");
  EXPECT_EQ(menu.Item(64).Display, u"TagsCaseSensitive");
  EXPECT_FALSE(std::filesystem::exists(folder / "Edited.ini"));  // the user's files stay untouched

  syntax.SetScriptSyntax(memo, 0, U16(folder / "Edited.gdx"));
  EXPECT_EQ(memo.FStyles, &s);
  EXPECT_EQ(s.FAutoCompleteCharA, u'.');
  TCompletionItems members;
  s.LoadKeyList(u"AutoComplete", u"Document.", members);
  EXPECT_GT(members.Count(), 0);
  s.LoadHintList();
  EXPECT_NE(s.FHintParameter.FParameters.Strings(0).find(u"Document.CursorLeft(bSelect: Boolean)"),
            std::u16string::npos);
}

TEST(StyleSlots, ASetInSeveralSlotsIsFreedOnce) {
  TOrlMemoStyleSlots memo;
  auto* host = new TOrlCustomMemoStyles(&memo);
  auto* member = new TOrlCustomMemoStyles(&memo);
  memo.SetStyles(host);
  memo.FHtmlStyle = host;
  memo.FHtmlStyleJS = member;
  memo.FHtmlStyleASP = member;
  memo.FStylesThread = member;
  memo.FreeSyntaxStyles();  // the sanitizer build catches a double free or a leak here
  EXPECT_EQ(memo.FHtmlStyleJS, nullptr);
  EXPECT_EQ(memo.FStylesThread, nullptr);
  EXPECT_EQ(memo.FFoldUpdatesStopped, 0);
}

} // namespace
} // namespace orl
