// Completion data of the host's script language, added to a memo's style set
// so that scripts for the host get menu, member lists and parameter hints.

#include "definition/DefinitionFormat.h"
#include "definition/IniValues.h"
#include "syntax/OrlSyntax.h"
#include "syntax/ScriptLanguage.h"

namespace orl {
namespace {

using script::TScriptMember;
using script::TScriptObject;

std::u16string_view NameOf(std::u16string_view signature) {
  return signature.substr(0, signature.find_first_of(u"([:"));
}

// Pascal calls a routine without parameters by its bare name.
std::u16string InsertOf(std::u16string_view signature) {
  const std::u16string_view name = NameOf(signature);
  return std::u16string(name) + (signature.substr(name.size()).starts_with(u'(') ? u"()" : u"");
}

std::u16string MethodItem(std::u16string_view signature) {
  return std::u16string(signature) + u"|" + InsertOf(signature) + u"+m";
}

std::u16string MemberItem(const TScriptMember& member) {
  if (member.Kind == script::mkMethod) return MethodItem(member.Signature);
  const std::u16string name(NameOf(member.Signature));
  return name + u"|" + name + u"+p";
}

// Writes `values` as the numbered keys 1, 2, ... of `section`.
class TNumberedWriter {
public:
  TNumberedWriter(TCompanionIni& ini, std::u16string_view section) : FIni(ini), FSection(section) {}
  void Write(std::u16string_view value) { FIni.WriteString(FSection, IntToIniText(++FCount), value); }

private:
  TCompanionIni& FIni;
  std::u16string_view FSection;
  int FCount = 0;
};

void WriteScriptMenu(TCompanionIni& ini) {
  TNumberedWriter menu(ini, sections::UserMenu);
  for (const TScriptObject& object : script::kObjects)
    menu.Write(std::u16string(object.Name) + u"|" + std::u16string(object.Name) + u"+3");
  for (std::u16string_view routine : script::kRoutines) menu.Write(MethodItem(routine));
}

void WriteScriptMembers(TCompanionIni& ini) {
  for (const TScriptObject& object : script::kObjects) {
    std::u16string items;
    for (const TScriptMember& member : object.Members)
      items += (items.empty() ? u"" : u"##") + MemberItem(member);
    ini.WriteString(sections::AutoComplete, std::u16string(object.Name) + u".", items);
  }
}

void WriteScriptHints(TCompanionIni& ini) {
  TNumberedWriter hints(ini, sections::Hints);
  for (const TScriptObject& object : script::kObjects)
    for (const TScriptMember& member : object.Members)
      hints.Write(std::u16string(object.Name) + u"." + std::u16string(member.Signature));
  for (std::u16string_view routine : script::kRoutines) hints.Write(routine);
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
    WriteScriptMembers(*styles->SynIni);
    WriteScriptHints(*styles->SynIni);
  }
  // The menu may have been read already; the next LoadUserMenu reads it again.
  styles->FMenuList.Clear();
  if (styles != Memo.FStyles) Memo.SetStyles(styles);
}

} // namespace orl
