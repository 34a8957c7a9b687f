// The built-in style set that highlights definition files themselves.

#include <algorithm>
#include <array>

#include "definition/DefinitionFormat.h"
#include "definition/IniValues.h"
#include "syntax/OrlSyntax.h"

namespace orl {
namespace {

constexpr std::array<std::u16string_view, 7> kFoldedSections{
    u"[options]", u"[keywords]", u"[tags]", u"[autocomplete]", u"[tagcomplete]", u"[usermenu]", u"[autohint]"};

constexpr std::array<std::u16string_view, 12> kSectionHeads{
    u"[autocomplete]", u"[autohint]", u"[block]", u"[end]", u"[fold]", u"[foldoptions]",
    u"[keywords]", u"[options]", u"[region]", u"[tagcomplete]", u"[tags]", u"[usermenu]"};

constexpr std::array<std::u16string_view, 10> kMenuHeads{
    u"[AutoComplete]", u"[AutoHint]", u"[BeginSample]", u"[End]", u"[EndSample]",
    u"[Keywords]", u"[Options]", u"[TagComplete]", u"[Tags]", u"[UserMenu]"};

constexpr std::array<std::u16string_view, 54> kOptionNames{
    u"AddProjectClassesToCompletion", u"AutoCompleteTags", u"BlockAsString", u"BlockEnd", u"BlockEsc",
    u"BlockName", u"BlockOnLine", u"BlockStart", u"CaseSensitive", u"Char", u"CommentEndA", u"CommentEndB",
    u"CommentEsc", u"CommentStartA", u"CommentStartB", u"Escape", u"Fold_Begin", u"Fold_End", u"Fold_Id",
    u"Fold_List_AsClass", u"Fold_List_AsEnum", u"Fold_List_AsMethod", u"Fold_List_AsNS", u"Fold_List_AsProperty",
    u"Fold_List_AsStruct", u"Fold_List_ClassSeparator", u"Fold_List_Exclude", u"Fold_List_Item",
    u"Fold_NoParentOfId", u"Fold_Opt_AsBegin", u"Fold_Opt_AutoIdExcludes", u"Fold_Opt_Case",
    u"Fold_Opt_FoldAllTags", u"Fold_Opt_Sections", u"Fold_Opt_Separators", u"Fold_Section", u"HexIdentifier",
    u"HighlightUrl", u"HtmlHighlightASP", u"HtmlHighlightCF", u"HtmlHighlightCSS", u"HtmlHighlightJS",
    u"HtmlHighlightPHP", u"HtmlHighlightVB", u"LineCommentA", u"LineCommentB", u"Numbers", u"Rgn_CommentStart",
    u"Rgn_End", u"Rgn_Start", u"String", u"StringOnLine", u"Symbols", u"TagsCaseSensitive"};

template <size_t N>
std::vector<std::u16string> Words(const std::array<std::u16string_view, N>& words) {
  return std::vector<std::u16string>(words.begin(), words.end());
}

void SetSynFileTokens(TOrlCustomMemoStyles& styles) {
  styles.FLineCommentA = u";";
  styles.FLineCommentB = u"//";
  styles.FCommentStartA = u"{";
  styles.FCommentEndA = u"}";
  styles.FCommentStartB = u"[BeginSample]";
  styles.FCommentEndB = u"[EndSample]";
  styles.FEscape = u"\\";
  styles.FCharSymbol = 0;
  styles.FStringSymbol = u'"';
  styles.FSymbols = u"=>#|";
  styles.FStringLine = true;
  styles.FHexIdentifier.clear();
  styles.FNumericChars.clear();
}

void SetSynFileColors(TOrlCustomMemoStyles& styles) {
  styles.FCommentStyle.Set(32768, 0xFFFFFF, 0);
  styles.FLineCommentStyle = styles.FCommentStyle;
  styles.FNumberStyle.FTextColor = 255;
  styles.FCharStyle.FTextColor = 0xFF0000;
  styles.FStringStyle.FTextColor = 0xFF00FF;
  styles.FSymbolsStyle.FTextColor = 255;
}

void AddSynFileFolds(TOrlCustomMemoStyles& styles) {
  for (std::u16string_view id : kFoldedSections) {
    auto node = std::make_unique<TNodes>();
    node->wId = id;
    node->wEnd = u"[end]";
    node->list_Item = ceProperty;
    styles.FNodes.push_back(std::move(node));
    styles.NodeIdList.Add(std::u16string(id));
  }
  styles.NodeIdList.Add(u"[end]");
  styles.NodeIdList.Sort();
}

void AddSynFileGroup(TOrlCustomMemoStyles& styles, std::u16string name, TColor color,
                     std::vector<std::u16string> words) {
  auto group = std::make_unique<TKeyWord>();
  group->Name = std::move(name);
  group->Color = color;
  group->SetWords(std::move(words));
  group->PrepareLookup(false);
  styles.FKeyWords.push_back(std::move(group));
}

// The menu offers every section head and option name of the format.
void WriteSynFileMenu(TCompanionIni& ini) {
  std::vector<std::u16string> entries{u"Document|?Document+3"};
  for (std::u16string_view head : kMenuHeads) {
    const bool bGroupSection = head == u"[Keywords]" || head == u"[Tags]";
    entries.push_back(std::u16string(head) + u"|" + std::u16string(head) + (bGroupSection ? u"\f>" : u"") + u"+2");
  }
  for (std::u16string_view name : kOptionNames)
    entries.push_back(std::u16string(name) + u"|" + std::u16string(name) + u" = \"\"+3");
  for (size_t i = 0; i < entries.size(); ++i) ini.WriteString(sections::UserMenu, IntToIniText(int(i) + 1), entries[i]);
}

} // namespace

void TOrlSyntax::SetSynFileSyntax(TOrlMemoStyleSlots& Memo, const std::u16string& Filename) {
  auto styles = std::make_unique<TOrlCustomMemoStyles>(&Memo, Filename);
  SetSynFileTokens(*styles);
  SetSynFileColors(*styles);
  AddSynFileFolds(*styles);
  AddSynFileGroup(*styles, u"SynFile Keywords", 0xFF0000, Words(kSectionHeads));
  AddSynFileGroup(*styles, u"SynFile Options", 32896, Words(kOptionNames));
  if (styles->SynIni) WriteSynFileMenu(*styles->SynIni);
  Memo.CaseSensitive = Memo.TagsCaseSensitive = false;
  Memo.UrlAware = true;
  styles->FAutoCompleteTags = styles->FAddProjectClassesToCompletion = false;
  styles->FSyntaxName = u"SynFile";
  Memo.FreeSyntaxStyles();
  Memo.SetStyles(styles.release());
}

} // namespace orl
