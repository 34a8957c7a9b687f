#include <gtest/gtest.h>

#include "SyntaxTestFiles.h"
#include "syntax/OrlSyntax.h"

namespace orl {
namespace {

using test::TTempFolder;
using test::U16;
using test::WriteDefinitionFile;

struct TCompanion {
  TTempFolder Folder;
  std::unique_ptr<TOrlCustomMemoStyles> Styles;

  explicit TCompanion(std::u16string_view ini) {
    WriteDefinitionFile(Folder, "Lang.ini", ini);
    Styles = std::make_unique<TOrlCustomMemoStyles>(nullptr, U16(Folder / "Lang.gdx"));
  }
};

std::u16string Rows(const TCompletionItems& items) {
  std::u16string out;
  for (int i = 0; i < items.Count(); ++i) {
    const TCompletionItems::TItem& item = items.Item(i);
    out += item.Display;
    if (item.Bitmap) out += u"=" + item.Bitmap->Value + u"/" + item.Bitmap->ch;
    out += u";";
  }
  return out;
}

TEST(CompletionLists, KeyListFollowsReferencesAndFallbacksAndSorts) {
  TCompanion c(u"[AutoComplete]\nobj.+=zeta|z()+m##@shared##plain##A|b+c+m##@obj.+##\n"
               u"@shared=beta|b+ p##\n\n[TagComplete]\n*a()=in|in+t##\n*.sub=dot|dot+t##\n");
  TCompletionItems items;
  c.Styles->LoadKeyList(u"AutoComplete", u"obj.", items);
  // "plain" has no "|" and no kind letter: no display text, no object. The self reference adds nothing.
  EXPECT_EQ(Rows(items), u";A=b/m;beta=b/p;zeta=z()/m;");
  TCompletionItems tag;
  c.Styles->LoadKeyList(u"TagComplete", u"a(long argument)", tag);
  EXPECT_EQ(Rows(tag), u"in=in/t;");
  TCompletionItems member;
  c.Styles->LoadKeyList(u"TagComplete", u"x.sub", member);
  EXPECT_EQ(Rows(member), u"dot=dot/t;");
}

TEST(CompletionLists, TagListsTakeTheGroupNames) {
  TCompanion c(u"[TagComplete]\ndiv=x##\nbr+=x##\nimg*=x##\n/div=x##\n/p+=x##\n/=x##\n@shared=x##\n");
  TCompletionItems open, close;
  c.Styles->LoadTagList(open);
  c.Styles->LoadStopTagList(close);
  EXPECT_EQ(Rows(open), u"div=div/t;br=br/u;img=img/w;");
  EXPECT_EQ(Rows(close), u"div=div>/t;p=p>/u;");
  EXPECT_GE(open.Capacity(), 64u);
}

TEST(CompletionLists, UserMenuSplitsAtTheLastPlusAndSkipsMenuOnlyEntries) {
  TCompanion c(u"[UserMenu]\n1=A|b+c+m\n2=&Menu only|x+f\n3=\u00BBAlso menu|y+f\n4=Caption only\n5=No kind|z+\n");
  TCompletionItems all, completion;
  c.Styles->LoadUserMenu(all, false);
  EXPECT_EQ(Rows(all), u"A=b+c/m;&Menu only=x/f;\u00BBAlso menu=y/f;Caption only;No kind;");
  c.Styles->LoadUserMenu(completion, true);
  EXPECT_EQ(Rows(completion), u"A=b+c/m;Caption only;No kind;");
}

TEST(CompletionLists, BitmapKindsFollowTheImageList) {
  EXPECT_EQ(CreateStyleBitmap(0), nullptr);
  EXPECT_EQ(CreateStyleBitmap(u'-'), nullptr);
  const std::u16string letters = u"lvpemfotnc0123456789xabghiuw";
  for (size_t i = 0; i < letters.size(); ++i) EXPECT_EQ(CreateStyleBitmap(letters[i])->nr, int(i)) << char(letters[i]);
  EXPECT_EQ(CreateStyleBitmap(u'@')->nr, -1);
  EXPECT_EQ(CreateStyleBitmap(u'q')->ch, u'q');
}

TEST(CompletionLists, HintsAndSetsWithoutCompanion) {
  TCompanion c(u"[Hints]\n1=f(a)\u00A6does f\n2=g\n");
  c.Styles->LoadHintList();
  EXPECT_EQ(c.Styles->FHintParameter.FParameters.Count(), 2);
  TOrlCustomMemoStyles bare(nullptr);
  TCompletionItems items;
  bare.LoadUserMenu(items, false);
  bare.LoadKeyList(u"AutoComplete", u"x", items);
  EXPECT_EQ(items.Count(), 0);
}

} // namespace
} // namespace orl
