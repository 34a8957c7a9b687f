#include <gtest/gtest.h>

#include <algorithm>

#include "SyntaxTestFiles.h"
#include "definition/DefinitionFormat.h"
#include "syntax/OrlSyntax.h"
#include "syntax/ScriptLanguage.h"

namespace orl {
namespace {

using test::TTempFolder;
using test::U16;

constexpr std::array<std::u16string_view, 4> kObjectKeys{u"Document.", u"MainApp.", u"ScriptUtils.", u"WStrings."};

struct TScriptMemo {
  TTempFolder Folder;
  TOrlSyntax Syntax;
  TOrlMemoStyleSlots Memo;

  TScriptMemo() { Syntax.SetScriptSyntax(Memo, 0, U16(Folder / "Script.gdx")); }
  TOrlCustomMemoStyles& Styles() { return *Memo.FStyles; }
  std::u16string Read(std::u16string_view section, std::u16string_view key) {
    return Styles().SynIni->ReadString(section, key, u"");
  }
};

std::u16string_view NamePart(std::u16string_view display) { return display.substr(0, display.find_first_of(u"(:")); }

const TCompletionItems::TItem* Find(const TCompletionItems& items, std::u16string_view name) {
  for (int i = 0; i < items.Count(); ++i)
    if (NamePart(items.Item(i).Display) == name) return &items.Item(i);
  return nullptr;
}

void ExpectItem(const TCompletionItems& items, std::u16string_view name, char16_t kind, std::u16string_view value) {
  const TCompletionItems::TItem* item = Find(items, name);
  ASSERT_TRUE(item && item->Bitmap) << Utf16ToUtf8(std::u16string(name));
  EXPECT_EQ(item->Bitmap->ch, kind) << Utf16ToUtf8(std::u16string(name));
  EXPECT_EQ(item->Bitmap->Value, value);
}

TEST(ScriptSyntax, MenuOffersTheObjectsThenEveryRoutineWithItsSignature) {
  TScriptMemo memo;
  ASSERT_NE(memo.Memo.FStyles, nullptr);
  TCompletionItems menu;
  memo.Styles().LoadUserMenu(menu, false);
  ASSERT_EQ(menu.Count(), int(4 + script::kRoutines.size()));
  for (int i = 0; i < 4; ++i) {
    EXPECT_EQ(menu.Item(i).Display, script::kObjects[size_t(i)].Name);
    EXPECT_EQ(menu.Item(i).Bitmap->Value, menu.Item(i).Display);
    EXPECT_EQ(menu.Item(i).Bitmap->ch, u'3');
  }
  for (int i = 4; i < menu.Count(); ++i) {
    const TCompletionItems::TItem& item = menu.Item(i);
    const bool bParameters = item.Display.find(u'(') != std::u16string::npos;
    EXPECT_EQ(item.Bitmap->Value, std::u16string(NamePart(item.Display)) + (bParameters ? u"()" : u""))
        << Utf16ToUtf8(item.Display);
  }
  EXPECT_EQ(menu.Item(4).Bitmap->Value, u"IntToStr()");
  EXPECT_EQ(menu.Item(menu.Count() - 1).Bitmap->Value, u"VarArrayCreate()");
  ExpectItem(menu, u"Date", u'm', u"Date");
  ExpectItem(menu, u"Pi", u'm', u"Pi");
}

TEST(ScriptSyntax, MemberListsTellPropertiesFromMethods) {
  TScriptMemo memo;
  for (std::u16string_view key : kObjectKeys) {
    const std::u16string_view name = key.substr(0, key.size() - 1);
    EXPECT_TRUE(memo.Read(sections::AutoComplete, name).empty());
    TCompletionItems members;
    memo.Styles().LoadKeyList(sections::AutoComplete, key, members);
    const auto object = std::ranges::find(script::kObjects, name, &script::TScriptObject::Name);
    ASSERT_NE(object, script::kObjects.end());
    EXPECT_EQ(members.Count(), int(object->Members.size())) << Utf16ToUtf8(std::u16string(key));
  }
  TCompletionItems document, strings;
  memo.Styles().LoadKeyList(sections::AutoComplete, u"Document.", document);
  memo.Styles().LoadKeyList(sections::AutoComplete, u"WStrings.", strings);
  ExpectItem(document, u"Text", u'p', u"Text");
  EXPECT_EQ(Find(document, u"Text")->Display, u"Text");
  ExpectItem(document, u"CursorLeft", u'm', u"CursorLeft()");
  ExpectItem(document, u"SelectAll", u'm', u"SelectAll");
  ExpectItem(strings, u"Strings", u'p', u"Strings");  // an indexed property is named before its "["
}

TEST(ScriptSyntax, HintsRunFromOneTo135MembersFirst) {
  TScriptMemo memo;
  EXPECT_EQ(memo.Read(sections::Hints, u"1"), u"Document.CursorLeft(bSelect: Boolean)");
  EXPECT_TRUE(memo.Read(sections::Hints, u"135").starts_with(u"VarArrayCreate("));
  EXPECT_TRUE(memo.Read(sections::Hints, u"136").empty());
  memo.Styles().LoadHintList();
  ASSERT_EQ(memo.Styles().FHintParameter.FParameters.Count(), 135);
  const size_t members = script::MemberCount();
  for (size_t i = 0; i < members; ++i) {
    const std::u16string hint = memo.Styles().FHintParameter.FParameters.ValueFromIndex(int(i));
    EXPECT_TRUE(std::ranges::any_of(kObjectKeys, [&](std::u16string_view key) { return hint.starts_with(key); }))
        << Utf16ToUtf8(hint);
  }
  EXPECT_TRUE(memo.Styles().FHintParameter.FParameters.ValueFromIndex(int(members)).starts_with(u"IntToStr("));
}

TEST(ScriptSyntax, ASetWithoutCompanionStillGetsTheOptions) {
  TOrlSyntax syntax;
  TOrlMemoStyleSlots memo;
  auto* styles = new TOrlCustomMemoStyles(&memo);
  memo.SetStyles(styles);
  syntax.SetScriptSyntax(memo, 0, u"Unused.gdx");
  EXPECT_EQ(memo.FStyles, styles);
  EXPECT_EQ(styles->FAutoCompleteCharA, u'.');
  EXPECT_EQ(styles->FHintParameter.FStartchar, u'(');
  EXPECT_EQ(styles->FHintParameter.FEndchar, u')');
  TCompletionItems menu;
  styles->LoadUserMenu(menu, false);
  EXPECT_EQ(menu.Count(), 0);
}

TEST(ScriptSyntax, ACompanionMenuReadBeforeIsReadAgainAndItsFileStaysAsItIs) {
  TTempFolder folder;
  const auto ini = test::WriteDefinitionFile(folder, "Lang.ini", u"[UserMenu]\n1=Mine|mine+m\n200=Kept|kept+m\n");
  const std::string bytes = test::ReadBytes(ini);
  TOrlSyntax syntax;
  TOrlMemoStyleSlots memo;
  memo.SetStyles(new TOrlCustomMemoStyles(&memo, U16(folder / "Lang.gdx")));
  TCompletionItems menu;
  memo.FStyles->LoadUserMenu(menu, false);
  ASSERT_EQ(menu.Count(), 2);
  syntax.SetScriptSyntax(memo, 0, U16(folder / "Lang.gdx"));
  memo.FStyles->LoadUserMenu(menu, false);
  ASSERT_EQ(menu.Count(), int(4 + script::kRoutines.size()) + 1);
  EXPECT_EQ(menu.Item(0).Display, u"Document");
  EXPECT_EQ(menu.Item(1).Display, u"Kept");  // the file's key keeps its place; the new keys follow
  EXPECT_EQ(test::ReadBytes(ini), bytes);
}

} // namespace
} // namespace orl
