#include "syntax/DefinitionReader.h"

#include <array>
#include <optional>

#include "definition/DefinitionFormat.h"
#include "definition/DefinitionItems.h"
#include "platform/CharCase.h"

namespace orl {
namespace {

using S = TOrlCustomMemoStyles;

bool SameAsciiText(std::u16string_view a, std::u16string_view b) {
  if (a.size() != b.size()) return false;
  for (size_t i = 0; i < a.size(); ++i)
    if (AsciiLowerChar(a[i]) != AsciiLowerChar(b[i])) return false;
  return true;
}

template <typename TEntry, size_t N>
const TEntry* FindKey(const std::array<TEntry, N>& table, std::u16string_view key) {
  for (const TEntry& entry : table)
    if (SameAsciiText(entry.Key, key)) return &entry;
  return nullptr;
}

template <typename TField, typename TOwner = S>
struct TFieldKey {
  std::u16string_view Key;
  TField TOwner::*Field;
};

const std::array<TFieldKey<std::u16string>, 19> kTextOptions{{
    {u"LineCommentA", &S::FLineCommentA},   {u"LineCommentB", &S::FLineCommentB},
    {u"CommentStartA", &S::FCommentStartA}, {u"CommentEndA", &S::FCommentEndA},
    {u"CommentStartB", &S::FCommentStartB}, {u"CommentEndB", &S::FCommentEndB},
    {u"BlockEsc", &S::FBlockEsc},           {u"CommentEsc", &S::FCommentEsc},
    {u"Escape", &S::FEscape},               {u"Symbols", &S::FSymbols},
    {u"Numbers", &S::FNumericChars},        {u"HexIdentifier", &S::FHexIdentifier},
    {u"EndOpenBlockAt", &S::FEndOpenBlockAt}, {u"HereDocSymbol", &S::FHereDocSymbol},
    {u"DigitSeparator", &S::FDigitSeparator}, {u"AutoCloseBraceStart", &S::FAutoCloseBraceStart},
    {u"AutoCloseBraceEnd", &S::FAutoCloseBraceEnd}, {u"AutoCloseBlockStart", &S::FAutoCloseBlockStart},
    {u"AutoCloseBlockEnd", &S::FAutoCloseBlockEnd},
}};

const std::array<TFieldKey<bool>, 6> kFlagOptions{{
    {u"AllowNestedComments", &S::FAllowNestedComments},
    {u"StringOnLine", &S::FStringLine},
    {u"AllowEscapeOutsideString", &S::FAllowEscapeOutsideString},
    {u"AddProjectClassesToCompletion", &S::FAddProjectClassesToCompletion},
    {u"OnlyHighlightInBlock", &S::FOnlyHighlightInBlock},
    {u"AllowHighlightBetweenTags", &S::FAllowHighlightBetweenTags},
}};

const std::array<TFieldKey<char16_t>, 6> kCharOptions{{
    {u"Char", &S::FCharSymbol},
    {u"String", &S::FStringSymbol},
    {u"VerbatimStringStart", &S::FVerbatimStringStart},
    {u"AutoCompleteCharA", &S::FAutoCompleteCharA},
    {u"AutoCompleteCharB", &S::FAutoCompleteCharB},
    {u"AutoCompleteCharC", &S::FAutoCompleteCharC},
}};

const std::array<TFieldKey<std::u16string>, 3> kSymbolWordOptions{{
    {u"SymbolWordsA", &S::FSymbolWordsA},
    {u"SymbolWordsB", &S::FSymbolWordsB},
    {u"SymbolWordsC", &S::FSymbolWordsC},
}};

// Code-list words: each also a fold word.
const std::array<TFieldKey<std::u16string>, 6> kListWordFoldOptions{{
    {u"List_AsStruct", &S::FList_Struct},
    {u"List_AsEnum", &S::FList_Enum},
    {u"List_AsClass", &S::FList_Class},
    {u"List_AsNS", &S::FList_NS},
    {u"List_AsProperty", &S::FList_Property},
    {u"List_AsMethod", &S::FList_Method},
}};

const std::array<TFieldKey<std::u16string>, 2> kTextFoldOptions{{
    {u"List_ClassSeparator", &S::FList_Class_Separator},
    {u"Separators", &S::FNodeOpt_Seperators},
}};

const std::array<TFieldKey<bool>, 3> kFlagFoldOptions{{
    {u"Case", &S::FNodeOpt_Case},
    {u"FoldAllTags", &S::FNodeOpt_FoldAllTags},
    {u"AlwaysAllowNesting", &S::FNodeOpt_AlwaysAllowNesting},
}};

struct TListFoldOption {
  std::u16string_view Key;
  TStringList S::*Field;
  bool bFoldWords;  ///< the lines are fold words too
};
const std::array<TListFoldOption, 4> kListFoldOptions{{
    {u"List_Exclude", &S::FFoldListExclude, false},
    {u"AsBegin", &S::FNodeOpt_AsBegin, true},
    {u"Sections", &S::FNodeOpt_Sections, true},
    {u"AutoIdExcludes", &S::FNodeOpt_AutoIdExcludes, false},
}};

const std::array<TFieldKey<bool, TBlock>, 9> kBlockFlags{{
    {u"OnLine", &TBlock::LineBlock},
    {u"AsString", &TBlock::ForceColor},
    {u"FirstOnLine", &TBlock::FirstOnLine},
    {u"HighlightKeywords", &TBlock::HighlightKeywords},
    {u"HighlightSymbols", &TBlock::HighlightSymbols},
    {u"HighlightBlocks", &TBlock::HighlightBlocks},
    {u"HighlightNumbers", &TBlock::HighlightNumbers},
    {u"HighlightStrings", &TBlock::HighlightStrings},
    {u"HighlightChars", &TBlock::HighlightChars},
}};
const std::array<TFieldKey<std::u16string, TBlock>, 3> kBlockTexts{{
    {u"Start", &TBlock::Start},
    {u"End", &TBlock::Stop},
    {u"OnlyAfter", &TBlock::OnlyAfter},
}};

// The code-list kinds in the order of the fold rule's pick list.
constexpr std::array<TCEListItemType, 16> kListItemKinds{
    ceStruct, ceEnum, ceClass, ceNS, ceMethod, ceConstructor, ceDestructor, ceProperty,
    ceTag, ceTagStyle, ceTagScript, ceTagHead, ceTagBody, ceUnknown, ceLine, ceDefine};

// Options and fold options are on only for exactly "1".
bool IsOne(std::u16string_view value) { return value == u"1"; }

// A rule key is "<n>_<suffix>"; keys without "_" are no rule keys.
bool RuleSuffix(std::u16string_view key, std::u16string_view& suffix) {
  const size_t bar = key.find(u'_');
  if (bar == std::u16string_view::npos) return false;
  suffix = key.substr(bar + 1);
  return true;
}

void SetLines(TStringList& list, std::u16string_view value) {
  list.Clear();
  for (size_t start = 0;;) {
    const size_t bar = value.find(u'|', start);
    list.Add(std::u16string(value.substr(start, bar - start)));
    if (bar == std::u16string_view::npos) break;
    start = bar + 1;
  }
}

std::u16string WithoutChar(std::u16string_view text, char16_t c) {
  std::u16string out;
  for (char16_t ch : text)
    if (ch != c) out.push_back(ch);
  return out;
}

// The usual text-to-Boolean rule: a number is true when not zero; "true" and "false" in any case.
std::optional<bool> ParseBool(std::u16string_view value) {
  if (SameAsciiText(value, u"true")) return true;
  if (SameAsciiText(value, u"false")) return false;
  if (value.empty()) return std::nullopt;
  size_t i = value[0] == u'-' || value[0] == u'+' ? 1 : 0;
  if (i == value.size()) return std::nullopt;
  bool bNonZero = false;
  for (; i < value.size(); ++i) {
    if (value[i] < u'0' || value[i] > u'9') return std::nullopt;
    bNonZero = bNonZero || value[i] != u'0';
  }
  return bNonZero;
}

} // namespace

struct TDefinitionReader::TSectionHandler {
  std::u16string_view Head;
  bool bNeedsMemo;
  void (TDefinitionReader::*Enter)();
  void (TDefinitionReader::*Line)(std::u16string_view key, std::u16string_view value, int row);
  void (TDefinitionReader::*Leave)();
};

const std::vector<TDefinitionReader::TSectionHandler>& TDefinitionReader::Handlers() {
  using R = TDefinitionReader;
  static const std::vector<TSectionHandler> handlers{
      {u"[StandardExtensions]", false, nullptr, &R::ReadExtensions, nullptr},
      {u"[Options]", true, &R::EnterOptions, &R::ReadOption, nullptr},
      {u"[FoldOptions]", true, &R::EnterFoldOptions, &R::ReadFoldOption, &R::SortNodeIds},
      {u"[Region]", true, nullptr, &R::ReadRegion, &R::SortNodeIds},
      {u"[Block]", false, nullptr, &R::ReadBlock, nullptr},
      {u"[Fold]", true, nullptr, &R::ReadFold, nullptr},
      {u"[Tags]", false, &R::EnterTags, &R::ReadTagGroup, nullptr},
      {u"[Keywords]", false, nullptr, &R::ReadKeywordGroup, nullptr},
  };
  return handlers;
}

void TDefinitionReader::ReadLines(const std::vector<std::u16string>& lines) {
  for (size_t i = 0; i < lines.size(); ++i) {
    if (!lines[i].starts_with(u'[')) continue;
    for (const TSectionHandler& handler : Handlers()) {
      if (lines[i] != handler.Head) continue;
      if (handler.bNeedsMemo && !FMemo) break;
      i = ReadSection(handler, lines, i + 1);
      break;
    }
  }
}

// Returns the index of the line that ended the section (empty, or past the end).
size_t TDefinitionReader::ReadSection(const TSectionHandler& handler, const std::vector<std::u16string>& lines,
                                      size_t first) {
  if (handler.Enter) (this->*handler.Enter)();
  size_t i = first;
  for (int row = 0; i < lines.size() && !lines[i].empty(); ++i, ++row) {
    const std::u16string_view line = lines[i];
    const size_t eq = NameValueSeparator(line);
    if (eq != std::u16string_view::npos) (this->*handler.Line)(line.substr(0, eq), line.substr(eq + 1), row);
  }
  if (handler.Leave) (this->*handler.Leave)();
  return i;
}

void TDefinitionReader::ReadExtensions(std::u16string_view, std::u16string_view value, int row) {
  if (row == 0) FSyntax.FStandardFileExtensions = value;
}

void TDefinitionReader::EnterOptions() {
  FStyles.FCharSymbol = FStyles.FStringSymbol = FStyles.FVerbatimStringStart = 0;
  FStyles.FOnlyLineCommentIfFirstChar = FStyles.FOnlyLineCommentIfFirstCharB = 0;
  for (bool S::*flag : {&S::FAllowNestedComments, &S::FAllowEscapeOutsideString, &S::FKeywordCase, &S::FTagCase,
                        &S::FStringLine, &S::FAutoCompleteTags, &S::FAddProjectClassesToCompletion,
                        &S::FOnlyHighlightInBlock, &S::FAllowHighlightBetweenTags})
    FStyles.*flag = false;
  FStyles.FHereDocSymbol.clear();
  FMemo->CaseSensitive = FMemo->TagsCaseSensitive = FMemo->UrlAware = FMemo->XML = false;
}

void TDefinitionReader::ReadOption(std::u16string_view key, std::u16string_view value, int) {
  if (const auto* text = FindKey(kTextOptions, key)) {
    FStyles.*(text->Field) = value;
  } else if (const auto* flag = FindKey(kFlagOptions, key)) {
    FStyles.*(flag->Field) = IsOne(value);
  } else if (const auto* ch = FindKey(kCharOptions, key)) {
    if (!value.empty()) FStyles.*(ch->Field) = value.front();
  } else if (const auto* words = FindKey(kSymbolWordOptions, key)) {
    FStyles.*(words->Field) = u" " + std::u16string(value) + u" ";
  } else {
    ReadSpecialOption(key, value);
  }
}

// Options that also switch the memo, or that read their value in a way of their own.
bool TDefinitionReader::ReadSpecialOption(std::u16string_view key, std::u16string_view value) {
  auto level = [&](int& target) {
    if (value == u"1" || value == u"2") target = value[0] - u'0';
  };
  if (SameAsciiText(key, kOlderLineCommentKey) || SameAsciiText(key, u"OnlyLineCommentIfFirstCharA"))
    level(FStyles.FOnlyLineCommentIfFirstChar);
  else if (SameAsciiText(key, u"OnlyLineCommentIfFirstCharB"))
    level(FStyles.FOnlyLineCommentIfFirstCharB);
  else if (SameAsciiText(key, u"HintCharStart") && !value.empty())
    FStyles.FHintParameter.FStartchar = value.front();
  else if (SameAsciiText(key, u"HintCharEnd") && !value.empty())
    FStyles.FHintParameter.FEndchar = value.front();
  else if (SameAsciiText(key, u"Case"))
    FStyles.FKeywordCase = FMemo->CaseSensitive = IsOne(value);
  else if (SameAsciiText(key, u"CaseTags"))
    FStyles.FTagCase = FMemo->TagsCaseSensitive = IsOne(value);
  else if (SameAsciiText(key, u"HighlightUrl"))
    FMemo->UrlAware = IsOne(value);
  else if (SameAsciiText(key, u"AutoCompleteTags"))
    FStyles.FAutoCompleteTags = FMemo->XML = IsOne(value);
  else
    return false;
  return true;
}

void TDefinitionReader::EnterFoldOptions() {
  FStyles.FNodeOpt_Case = FStyles.FNodeOpt_FoldAllTags = FStyles.FNodeOpt_AlwaysAllowNesting = false;
}

void TDefinitionReader::ReadFoldOption(std::u16string_view key, std::u16string_view value, int) {
  if (const auto* word = FindKey(kListWordFoldOptions, key)) {
    FStyles.*(word->Field) = value;
    AddNodeId(value);
  } else if (const auto* list = FindKey(kListFoldOptions, key)) {
    TStringList& lines = FStyles.*(list->Field);
    SetLines(lines, value);
    if (list->bFoldWords) AddNodeIds(lines);
  } else if (const auto* text = FindKey(kTextFoldOptions, key)) {
    FStyles.*(text->Field) = value;
  } else if (const auto* flag = FindKey(kFlagFoldOptions, key)) {
    FStyles.*(flag->Field) = IsOne(value);
  }
}

void TDefinitionReader::ReadRegion(std::u16string_view key, std::u16string_view value, int) {
  TStringList* marks = SameAsciiText(key, u"Start") ? &FStyles.FRgn_Start
                       : SameAsciiText(key, u"End") ? &FStyles.FRgn_End
                                                    : nullptr;
  if (marks) {
    for (std::u16string& piece : SplitWords(value)) {
      AddNodeId(piece);
      marks->Add(std::move(piece));
    }
  } else if (SameAsciiText(key, u"CommentStart")) {
    FStyles.FRgn_CommentStart = value;
    AddNodeId(value);
  }
}

void TDefinitionReader::ReadBlock(std::u16string_view key, std::u16string_view value, int) {
  std::u16string_view suffix;
  if (!RuleSuffix(key, suffix)) return;
  if (SameAsciiText(suffix, u"Name")) {
    auto block = std::make_unique<TBlock>();
    block->Name = value;
    if (block->IsRegEx()) FStyles.FHasRegExKeywords = true;
    FSyntax.Blocks.Add(block->Name);
    FStyles.FBlocks.push_back(std::move(block));
    return;
  }
  if (FStyles.FBlocks.empty()) return;  // a rule key before any Name has no rule to act on
  TBlock& block = *FStyles.FBlocks.back();
  if (const auto* text = FindKey(kBlockTexts, suffix))
    block.*(text->Field) = value;
  else if (const auto* flag = FindKey(kBlockFlags, suffix))
    ReadRuleFlag(block.*(flag->Field), key, value);
}

void TDefinitionReader::ReadFold(std::u16string_view key, std::u16string_view value, int) {
  std::u16string_view suffix;
  if (!RuleSuffix(key, suffix)) return;
  if (SameAsciiText(suffix, u"Id")) {
    auto node = std::make_unique<TNodes>();
    node->wId = value;
    AddNodeId(value.starts_with(u'~') ? value.substr(1) : value);
    FStyles.FNodes.push_back(std::move(node));
    return;
  }
  if (FStyles.FNodes.empty()) return;
  TNodes& node = *FStyles.FNodes.back();
  if (SameAsciiText(suffix, u"Begin")) {
    node.wStart = value;
    for (const std::u16string& word : SplitWords(value)) AddNodeId(WithoutChar(word, u'@'));
  } else if (SameAsciiText(suffix, u"End")) {
    node.wEnd = value;
    for (const std::u16string& word : SplitWords(value)) AddNodeId(word);
  } else if (SameAsciiText(suffix, u"EndBefore")) {
    ReadFoldEndBefore(node, value);
  } else if (SameAsciiText(suffix, u"Section")) {
    node.wSection = value;
  } else if (SameAsciiText(suffix, u"NoParentOfId")) {
    ReadRuleFlag(node.bNoParentOfId, key, value);
  } else if (SameAsciiText(suffix, u"NotAlwaysEnded")) {
    ReadRuleFlag(node.bNotAlwaysEnded, key, value);
  } else if (SameAsciiText(suffix, u"ListItem")) {
    ReadFoldListItem(node, value);
  }
}

void TDefinitionReader::ReadFoldEndBefore(TNodes& node, std::u16string_view value) {
  node.wEndBefore = value;
  std::u16string_view rest = value;
  if (value.starts_with(u'\\')) {
    const size_t blank = value.find(u' ');
    const std::u16string_view command = value.substr(0, blank);
    if (command == u"\\lf") FStyles.FAllowCmdLF = true;
    if (command == u"\\ef") FStyles.FAllowCmdEF = true;
    if (command == u"\\in") FStyles.FAllowCmdIN = true;
    rest = blank == std::u16string_view::npos ? std::u16string_view() : value.substr(blank + 1);
  }
  AddNodeId(rest);
}

void TDefinitionReader::ReadFoldListItem(TNodes& node, std::u16string_view value) {
  const int index = ListItemIndex(value);
  node.list_Item = index >= 0 ? kListItemKinds[size_t(index)] : ceNone;
  if (index < 0 && !value.empty())
    Report(u"Fold rule \"" + node.wId + u"\": unknown list item \"" + std::u16string(value) + u"\" read as none");
}

TKeyWord& TDefinitionReader::AddGroup(std::vector<std::unique_ptr<TKeyWord>>& groups, TStringList& names,
                                      std::u16string_view name, std::u16string_view infoPrefix, int row) {
  names.Add(std::u16string(name));
  auto group = std::make_unique<TKeyWord>();
  group->Name = name;
  const std::string number = std::to_string(row);
  group->Info = std::u16string(infoPrefix) + std::u16string(number.begin(), number.end());
  groups.push_back(std::move(group));
  return *groups.back();
}

void TDefinitionReader::ReadKeywordGroup(std::u16string_view key, std::u16string_view value, int row) {
  TKeyWord& group = AddGroup(FStyles.FKeyWords, FSyntax.KeyWords, key, u"Keywords", row);
  if (!IsRegexGroup(key)) {
    group.SetWords(SplitWords(value));
    return;
  }
  group.RegEx = true;
  group.sRegEx = value;
  FStyles.FHasRegExKeywords = true;
}

void TDefinitionReader::EnterTags() {
  if (!FMemo) return;
  FMemo->FHtml = true;
  FMemo->FShowCompletionImages = true;
}

void TDefinitionReader::ReadTagGroup(std::u16string_view key, std::u16string_view value, int row) {
  AddGroup(FStyles.FTags, FSyntax.Tags, key, u"Tags", row).SetWords(SplitWords(value));
}

void TDefinitionReader::ReadRuleFlag(bool& target, std::u16string_view key, std::u16string_view value) {
  if (const std::optional<bool> flag = ParseBool(value)) {
    target = *flag;
    return;
  }
  Report(u"Rule key \"" + std::u16string(key) + u"\": \"" + std::u16string(value) + u"\" is no flag, default kept");
}

// The list keeps each word once; appends keep its hash valid, so this stays linear.
void TDefinitionReader::AddNodeId(std::u16string_view word) {
  if (word.empty() || FStyles.NodeIdList.IndexOf(word) >= 0) return;
  FStyles.NodeIdList.Add(std::u16string(word));
}

void TDefinitionReader::AddNodeIds(const TStringList& words) {
  for (int i = 0; i < words.Count(); ++i) AddNodeId(words.Strings(i));
}

void TDefinitionReader::SortNodeIds() { FStyles.NodeIdList.Sort(); }

void TDefinitionReader::Finish() {
  SortNodeIds();
  CompilePatterns();
  PrepareLookups();
}

// Returns the problem found, empty when the pattern compiled.
std::u16string TDefinitionReader::CompilePattern(std::u16string_view text, std::u16string_view where,
                                                 std::unique_ptr<TRegexPattern>& pattern) {
  if (text.empty()) return std::u16string(where) + u": empty regular expression, never matches";
  std::u16string error;
  pattern = TRegexPattern::Compile(text, true, error);
  if (pattern) return {};
  return std::u16string(where) + u": regular expression \"" + std::u16string(text) + u"\" does not compile (" +
         error + u"), never matches";
}

void TDefinitionReader::CompilePatterns() {
  auto compile = [this](std::u16string_view text, const std::u16string& where, std::unique_ptr<TRegexPattern>& p) {
    if (std::u16string problem = CompilePattern(text, where, p); !problem.empty()) Report(problem);
  };
  for (const auto& group : FStyles.FKeyWords)
    if (group->RegEx) compile(group->sRegEx, u"Keyword group \"" + group->Name + u"\"", group->Pattern);
  for (const auto& block : FStyles.FBlocks) {
    if (!block->IsRegEx()) continue;
    compile(block->Start, u"Block \"" + block->Name + u"\" start", block->StartPattern);
    compile(block->Stop, u"Block \"" + block->Name + u"\" end", block->StopPattern);
  }
}

// The tokeniser sets a list's case rule to the memo's before a lookup; set it
// here already, so that it finds the rule equal and never rebuilds a table
// while another thread reads it.
void TDefinitionReader::PrepareLookups() {
  const bool bKeywordCase = FMemo ? FMemo->CaseSensitive : FStyles.FKeywordCase;
  const bool bTagCase = FMemo ? FMemo->TagsCaseSensitive : FStyles.FTagCase;
  for (const auto& group : FStyles.FKeyWords) group->PrepareLookup(bKeywordCase);
  for (const auto& group : FStyles.FTags) group->PrepareLookup(bTagCase);
}

void TDefinitionReader::Report(const std::u16string& text) { FSyntax.DebugWrite(FMemo, text); }

} // namespace orl
