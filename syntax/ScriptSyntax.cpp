// Completion data of the host's script language, added to a memo's style set
// so that scripts for the host get menu, member lists and parameter hints.

#include <array>
#include <span>

#include "definition/DefinitionFormat.h"
#include "syntax/OrlSyntax.h"

namespace orl {
namespace {

struct TScriptMember {
  std::u16string_view Signature;  ///< as shown and as hinted
  std::u16string_view Insert;     ///< empty for a property: the name is inserted
};

struct TScriptObject {
  std::u16string_view Name;
  std::span<const TScriptMember> Members;
};

constexpr std::array<TScriptMember, 8> kDocumentMembers{{
    {u"CursorLeft(bSelect: Boolean)", u"CursorLeft()"},
    {u"CursorRight(bSelect: Boolean)", u"CursorRight()"},
    {u"CursorUp(bSelect: Boolean)", u"CursorUp()"},
    {u"CursorDown(bSelect: Boolean)", u"CursorDown()"},
    {u"InsertText(const s: string)", u"InsertText()"},
    {u"SelText", u""},
    {u"Text", u""},
    {u"FileName", u""},
}};
constexpr std::array<TScriptMember, 3> kMainAppMembers{{
    {u"OpenFile(const FileName: string)", u"OpenFile()"},
    {u"ActiveDocument", u""},
    {u"DocumentCount", u""},
}};
constexpr std::array<TScriptMember, 3> kWStringsMembers{{
    {u"Add(const s: string): Integer", u"Add()"},
    {u"Count", u""},
    {u"Text", u""},
}};
constexpr std::array<TScriptMember, 2> kScriptUtilsMembers{{
    {u"ShowMessage(const s: string)", u"ShowMessage()"},
    {u"InputBox(const Caption, Prompt, Default: string): string", u"InputBox()"},
}};
constexpr std::array<TScriptObject, 4> kObjects{{
    {u"Document", kDocumentMembers},
    {u"MainApp", kMainAppMembers},
    {u"WStrings", kWStringsMembers},
    {u"ScriptUtils", kScriptUtilsMembers},
}};

// Built-in routines; constants and routines without parameters insert no "()".
constexpr std::array<TScriptMember, 8> kRoutines{{
    {u"IntToStr(i: Integer): string", u"IntToStr()"},
    {u"StrToInt(const s: string): Integer", u"StrToInt()"},
    {u"Length(const s: string): Integer", u"Length()"},
    {u"Copy(const s: string; Index, Count: Integer): string", u"Copy()"},
    {u"Pos(const SubStr, s: string): Integer", u"Pos()"},
    {u"Date: TDateTime", u"Date"},
    {u"Pi: Extended", u"Pi"},
    {u"VarArrayCreate(const Bounds: array of Integer; VarType: Integer): Variant", u"VarArrayCreate()"},
}};

std::u16string Number(int n) {
  const std::string text = std::to_string(n);
  return std::u16string(text.begin(), text.end());
}

std::u16string NameOf(const TScriptMember& member) {
  const std::u16string_view s = member.Signature;
  return std::u16string(s.substr(0, s.find_first_of(u"(:")));
}

std::u16string MemberItem(const TScriptMember& member) {
  if (member.Insert.empty()) return NameOf(member) + u"|" + NameOf(member) + u"+p";
  return std::u16string(member.Signature) + u"|" + std::u16string(member.Insert) + u"+m";
}

void WriteScriptMenu(TCompanionIni& ini) {
  int n = 0;
  for (const TScriptObject& object : kObjects)
    ini.WriteString(sections::UserMenu, Number(++n), std::u16string(object.Name) + u"|" +
                                                         std::u16string(object.Name) + u"+3");
  for (const TScriptMember& routine : kRoutines)
    ini.WriteString(sections::UserMenu, Number(++n),
                    std::u16string(routine.Signature) + u"|" + std::u16string(routine.Insert) + u"+m");
}

void WriteScriptMembersAndHints(TCompanionIni& ini) {
  int hint = 0;
  for (const TScriptObject& object : kObjects) {
    std::u16string items;
    for (const TScriptMember& member : object.Members) {
      items += MemberItem(member) + u"##";
      ini.WriteString(sections::Hints, Number(++hint),
                      std::u16string(object.Name) + u"." + std::u16string(member.Signature));
    }
    ini.WriteString(sections::AutoComplete, std::u16string(object.Name) + u".", items);
  }
}

} // namespace

void TOrlSyntax::SetScriptSyntax(TOrlMemoStyleSlots& Memo, [[maybe_unused]] int nLanguage,
                                 const std::u16string& Filename) {
  TOrlCustomMemoStyles* styles = Memo.FStyles ? Memo.FStyles : new TOrlCustomMemoStyles(&Memo, Filename);
  styles->FAutoCompleteCharA = u'.';
  styles->FHintParameter.FStartchar = u'(';
  styles->FHintParameter.FEndchar = u')';
  if (styles->SynIni) {
    WriteScriptMenu(*styles->SynIni);
    WriteScriptMembersAndHints(*styles->SynIni);
  }
  // The menu may have been read already; the next LoadUserMenu reads it again.
  styles->FMenuList.Clear();
  if (styles != Memo.FStyles) Memo.SetStyles(styles);
}

} // namespace orl
