// The key table of `[options]` in an older definition.

#include "definition/LegacyOptions.h"

#include <algorithm>
#include <array>
#include <span>

#include "definition/DefinitionFormat.h"
#include "definition/IniValues.h"
#include "platform/Collation.h"

namespace orl::legacy {
namespace {

enum class TOlderKeyKind {
  okText,      ///< the value as it is
  okFlag,      ///< "1" when the value says yes; nothing otherwise
  okRuleOpen,  ///< a new numbered rule, its keys at their starting values
  okRuleText,  ///< a text key of the latest rule
  okRuleFlag,  ///< a flag of the latest rule
};
using enum TOlderKeyKind;

struct TOlderKey {
  std::u16string_view Older;    ///< the key in the older file, lower case
  TOlderKeyKind Kind;
  std::u16string_view Section;  ///< the section it goes to
  std::u16string_view Key;      ///< the key there; a suffix such as `_Start` for rule keys
};

// Older keys with no place in the current layout (onlyhighlightinblock,
// endopenblockat, allowhighlightbetweentags, symbolwordsa to symbolwordsc,
// heredocsymbol, digitseparator) are left out: they are dropped like any
// unknown key.
constexpr std::array<TOlderKey, 48> kOlderKeys = {{
    {u"linecommenta", okText, sections::Options, u"LineCommentA"},
    {u"linecommentb", okText, sections::Options, u"LineCommentB"},
    {u"commentstarta", okText, sections::Options, u"CommentStartA"},
    {u"commentenda", okText, sections::Options, u"CommentEndA"},
    {u"commentstartb", okText, sections::Options, u"CommentStartB"},
    {u"commentendb", okText, sections::Options, u"CommentEndB"},
    {u"char", okText, sections::Options, u"Char"},
    {u"string", okText, sections::Options, u"String"},
    {u"hexidentifier", okText, sections::Options, u"HexIdentifier"},
    {u"escape", okText, sections::Options, u"Escape"},
    {u"symbols", okText, sections::Options, u"Symbols"},
    {u"numbers", okText, sections::Options, u"Numbers"},
    {u"blockesc", okText, sections::Options, u"BlockEsc"},
    {u"commentesc", okText, sections::Options, u"CommentEsc"},
    {u"stringonline", okFlag, sections::Options, u"StringOnLine"},
    {u"casesensitive", okFlag, sections::Options, u"Case"},
    {u"tagscasesensitive", okFlag, sections::Options, u"CaseTags"},
    {u"highlighturl", okFlag, sections::Options, u"HighlightUrl"},
    {u"autocompletetags", okFlag, sections::Options, u"AutoCompleteTags"},
    {u"addprojectclassestocompletion", okFlag, sections::Options, u"AddProjectClassesToCompletion"},
    {u"fold_list_asstruct", okText, sections::FoldOptions, u"List_AsStruct"},
    {u"fold_list_asenum", okText, sections::FoldOptions, u"List_AsEnum"},
    {u"fold_list_asclass", okText, sections::FoldOptions, u"List_AsClass"},
    {u"fold_list_asns", okText, sections::FoldOptions, u"List_AsNS"},
    {u"fold_list_asproperty", okText, sections::FoldOptions, u"List_AsProperty"},
    {u"fold_list_asmethod", okText, sections::FoldOptions, u"List_AsMethod"},
    {u"fold_list_exclude", okText, sections::FoldOptions, u"List_Exclude"},
    {u"fold_list_classseparator", okText, sections::FoldOptions, u"List_ClassSeparator"},
    {u"fold_opt_asbegin", okText, sections::FoldOptions, u"AsBegin"},
    {u"fold_opt_separators", okText, sections::FoldOptions, u"Separators"},
    {u"fold_opt_sections", okText, sections::FoldOptions, u"Sections"},
    {u"fold_opt_autoidexcludes", okText, sections::FoldOptions, u"AutoIdExcludes"},
    {u"fold_opt_case", okFlag, sections::FoldOptions, u"Case"},
    {u"fold_opt_foldalltags", okFlag, sections::FoldOptions, u"FoldAllTags"},
    {u"rgn_start", okText, sections::Region, u"Start"},
    {u"rgn_end", okText, sections::Region, u"End"},
    {u"rgn_commentstart", okText, sections::Region, u"CommentStart"},
    {u"blockname", okRuleOpen, sections::Block, u"_Name"},
    {u"blockonline", okRuleFlag, sections::Block, u"_OnLine"},
    {u"blockasstring", okRuleFlag, sections::Block, u"_AsString"},
    {u"blockstart", okRuleText, sections::Block, u"_Start"},
    {u"blockend", okRuleText, sections::Block, u"_End"},
    {u"fold_id", okRuleOpen, sections::Fold, u"_Id"},
    {u"fold_begin", okRuleText, sections::Fold, u"_Begin"},
    {u"fold_end", okRuleText, sections::Fold, u"_End"},
    {u"fold_section", okRuleText, sections::Fold, u"_Section"},
    {u"fold_list_item", okRuleText, sections::Fold, u"_ListItem"},
    {u"fold_noparentofid", okRuleFlag, sections::Fold, u"_NoParentOfId"},
}};

/// A key a new rule starts with, and its value.
struct TRuleStart {
  std::u16string_view Suffix;
  std::u16string_view Value;
};
constexpr std::array<TRuleStart, 4> kBlockStart = {
    {{u"_OnLine", u"0"}, {u"_AsString", u"0"}, {u"_Start", u""}, {u"_End", u""}}};
constexpr std::array<TRuleStart, 5> kFoldStart = {
    {{u"_Begin", u""}, {u"_End", u""}, {u"_Section", u""}, {u"_ListItem", u""}, {u"_NoParentOfId", u"0"}}};

std::span<const TRuleStart> RuleStartKeys(std::u16string_view section) {
  if (section == sections::Block) return kBlockStart;
  return kFoldStart;
}

const TOlderKey* FindOlderKey(std::u16string_view lowerKey) {
  const auto found = std::find_if(kOlderKeys.begin(), kOlderKeys.end(),
                                 [&](const TOlderKey& key) { return key.Older == lowerKey; });
  return found == kOlderKeys.end() ? nullptr : &*found;
}

bool SaysYes(std::u16string_view value) { return SameTextFolded(value, u"yes") || SameTextFolded(value, u"y"); }

void OpenRule(TIniWriteBuffer& gdx, const TOlderKey& key, int n, std::u16string_view value) {
  gdx.WriteString(key.Section, RuleKey(n, key.Key), value);
  for (const TRuleStart& start : RuleStartKeys(key.Section))
    gdx.WriteString(key.Section, RuleKey(n, start.Suffix), start.Value);
}

} // namespace

int& TOlderOptions::RuleNumber(std::u16string_view section) {
  return section == sections::Block ? FBlockNumber : FFoldNumber;
}

void TOlderOptions::Apply(std::u16string_view lowerKey, std::u16string_view value) {
  const TOlderKey* key = FindOlderKey(lowerKey);
  if (!key) return;
  switch (key->Kind) {
  case okText:
    FGdx.WriteString(key->Section, key->Key, value);
    break;
  case okFlag:
    if (SaysYes(value)) FGdx.WriteString(key->Section, key->Key, BoolToIniText(true));
    break;
  case okRuleOpen:
    OpenRule(FGdx, *key, ++RuleNumber(key->Section), value);
    break;
  case okRuleText:
    if (const int n = RuleNumber(key->Section); n > 0) FGdx.WriteString(key->Section, RuleKey(n, key->Key), value);
    break;
  case okRuleFlag:
    if (const int n = RuleNumber(key->Section); n > 0 && SaysYes(value))
      FGdx.WriteString(key->Section, RuleKey(n, key->Key), BoolToIniText(true));
    break;
  }
}

} // namespace orl::legacy
