#include "definition/DefinitionFormat.h"

#include <array>

#include "platform/Collation.h"
#include "platform/FileIO.h"

namespace orl {
namespace {

using enum TValueKind;

constexpr std::array<std::u16string_view, 8> kGdxSections = {
    sections::StandardExtensions, sections::Options, sections::FoldOptions, sections::Region,
    sections::Block,              sections::Fold,    sections::Keywords,    sections::Tags};

constexpr std::array<std::u16string_view, 7> kIniSections = {
    sections::MultiHighlight, sections::Comment,      sections::Hints,      sections::Sample,
    sections::UserMenu,       sections::AutoComplete, sections::TagComplete};

constexpr std::array<TKeySpec, 39> kOptionKeys = {{
    {1, u"LineCommentA", vkText, u"", u"LineCommentA"},
    {2, u"LineCommentB", vkText, u"", u"LineCommentB"},
    {3, u"CommentStartA", vkText, u"", u"CommentStartA"},
    {4, u"CommentEndA", vkText, u"", u"CommentEndA"},
    {5, u"CommentStartB", vkText, u"", u"CommentStartB"},
    {6, u"CommentEndB", vkText, u"", u"CommentEndB"},
    {7, u"AllowNestedComments", vkFlag, u"0", u"AllowNestedComments"},
    {8, u"OnlyLineCommentIfFirstCharA", vkLevel, u"", u"OnlyLineCommentIfFirstCharA"},
    {9, u"OnlyLineCommentIfFirstCharB", vkLevel, u"", u"OnlyLineCommentIfFirstCharB"},
    {10, u"Char", vkChar, u"", u"Char"},
    {11, u"String", vkChar, u"", u"String"},
    {12, u"StringOnLine", vkFlag, u"0", u"StringOnLine"},
    {13, u"VerbatimStringStart", vkChar, u"", u"VerbatimStringStart"},
    {14, u"HexIdentifier", vkText, u"", u"HexIdentifier"},
    {15, u"Escape", vkText, u"", u"Escape"},
    {16, u"AllowEscapeOutsideString", vkFlag, u"0", u"AllowEscapeOutsideString"},
    {17, u"Symbols", vkText, u"", u"Symbols"},
    {18, u"Numbers", vkText, u"", u"Numbers"},
    {19, u"Case", vkFlag, u"0", u"CaseSensitive"},
    {20, u"CaseTags", vkFlag, u"0", u"TagsCaseSensitive"},
    {21, u"HighlightUrl", vkFlag, u"0", u"HighlightUrl"},
    {22, u"BlockEsc", vkText, u"", u"BlockEsc"},
    {23, u"CommentEsc", vkText, u"", u"CommentEsc"},
    {24, u"AutoCompleteTags", vkFlag, u"0", u"AutoCompleteTags"},
    {25, u"AddProjectClassesToCompletion", vkFlag, u"0", u"AddProjectClassesToCompletion"},
    {26, u"AutoCloseBraceStart", vkText, u"", u"AutoCloseBraceStart"},
    {27, u"AutoCloseBraceEnd", vkText, u"", u"AutoCloseBraceEnd"},
    {28, u"AutoCloseBlockStart", vkText, u"", u"AutoCloseBlockStart"},
    {29, u"AutoCloseBlockEnd", vkText, u"", u"AutoCloseBlockEnd"},
    {30, u"OnlyHighlightInBlock", vkFlag, u"0", u"OnlyHighlightInBlock"},
    {31, u"EndOpenBlockAt", vkText, u"", u"EndOpenBlockAt"},
    {32, u"AutoCompleteCharA", vkChar, u"", u"AutoCompleteCharA"},
    {33, u"AutoCompleteCharB", vkChar, u"", u"AutoCompleteCharB"},
    {34, u"AutoCompleteCharC", vkChar, u"", u"AutoCompleteCharC"},
    {35, u"HintCharStart", vkChar, u"", u"HintCharStart"},
    {36, u"HintCharEnd", vkChar, u"", u"HintCharEnd"},
    {37, u"AllowHighlightBetweenTags", vkFlag, u"0", u"AllowHighlightBetweenTags"},
    {38, u"HereDocSymbol", vkText, u"", u"HereDocSymbol"},
    {39, u"DigitSeparator", vkText, u"", u"DigitSeparator"},
}};

constexpr std::array<TKeySpec, 15> kFoldOptionKeys = {{
    {1, u"List_AsStruct", vkText, u"", u"List_AsStruct"},
    {2, u"List_AsEnum", vkText, u"", u"List_AsEnum"},
    {3, u"List_AsClass", vkText, u"", u"List_AsClass"},
    {4, u"List_AsNS", vkText, u"", u"List_AsNS"},
    {5, u"List_AsProperty", vkText, u"", u"List_AsProperty"},
    {6, u"List_AsMethod", vkText, u"", u"List_AsMethod"},
    {7, u"List_Exclude", vkList, u"", u"List_Exclude"},
    {8, u"List_ClassSeparator", vkText, u"", u"List_ClassSeparator"},
    {9, u"AsBegin", vkList, u"", u"AsBegin"},
    {10, u"Separators", vkText, u"", u"Separators"},
    {11, u"Sections", vkList, u"", u"Sections"},
    {12, u"AutoIdExcludes", vkList, u"", u"AutoIdExcludes"},
    {13, u"Case", vkFlag, u"0", u"Case"},
    {14, u"FoldAllTags", vkFlag, u"0", u"FoldAllTags"},
    {15, u"AlwaysAllowNesting", vkFlag, u"0", u"AlwaysAllowNesting"},
}};

constexpr std::array<TKeySpec, 3> kRegionKeys = {{
    {1, u"Start", vkList, u"", u"Start"},
    {2, u"End", vkList, u"", u"End"},
    {3, u"CommentStart", vkText, u"", u"CommentStart"},
}};

constexpr std::array<TKeySpec, 13> kBlockKeys = {{
    {1, u"_Name", vkText, u"", u"BlockName"},
    {2, u"_OnLine", vkFlag, u"0", u"BlockOnLine"},
    {3, u"_AsString", vkFlag, u"0", u"BlockAsString"},
    {4, u"_Start", vkText, u"", u"BlockStart"},
    {5, u"_End", vkText, u"", u"BlockEnd"},
    {6, u"_FirstOnLine", vkFlag, u"0", u"FirstOnLine"},
    {7, u"_OnlyAfter", vkText, u"", u"OnlyAfter"},
    {8, u"_HighlightKeywords", vkFlag, u"1", u"HighlightKeywords"},
    {9, u"_HighlightNumbers", vkFlag, u"1", u"HighlightNumbers"},
    {10, u"_HighlightSymbols", vkFlag, u"1", u"HighlightSymbols"},
    {11, u"_HighlightBlocks", vkFlag, u"1", u"HighlightBlocks"},
    {12, u"_HighlightStrings", vkFlag, u"1", u"HighlightStrings"},
    {13, u"_HighlightChars", vkFlag, u"1", u"HighlightChars"},
}};

constexpr std::array<TKeySpec, 8> kFoldKeys = {{
    {1, u"_Id", vkText, u"", u"Fold_Id"},
    {2, u"_Begin", vkList, u"", u"Fold_Begin"},
    {3, u"_End", vkList, u"", u"Fold_End"},
    {4, u"_EndBefore", vkText, u"", u"Fold_EndBefore"},
    {5, u"_Section", vkText, u"", u"Fold_Section"},
    {6, u"_NoParentOfId", vkFlag, u"0", u"Fold_NoParentOfId"},
    {7, u"_NotAlwaysEnded", vkFlag, u"0", u"Fold_NotAlwaysEnded"},
    {8, u"_ListItem", vkText, u"", u"Fold_List_Item"},
}};

constexpr std::array<TKeySpec, 3> kMultiHighlightKeys = {{
    {1, u"Syntax", vkText, u"", u"Syntax"},
    {2, u"File", vkText, u"", u"File"},
    {3, u"ASPLanguage", vkText, u"", u"<%...%> syntax"},
}};

constexpr std::array<std::u16string_view, 4> kExtraOptionKeys = {u"SymbolWordsA", u"SymbolWordsB", u"SymbolWordsC",
                                                                  kOlderLineCommentKey};

constexpr std::array<std::u16string_view, 16> kListItemWords = {
    u"ceStruct", u"ceEnum",   u"ceClass",   u"ceNS",      u"ceMethod",  u"ceConstructor", u"ceDestructor", u"ceProperty",
    u"ceTag",    u"ceTagStyle", u"ceTagScript", u"ceTagHead", u"ceTagBody", u"ceUnknown",     u"ceLine",       u"ceDefine"};

constexpr std::array<TImageLetter, 29> kImageLetters = {{
    {u'l', u"Load"},      {u'v', u"Variable"}, {u'p', u"Property"}, {u'e', u"Event"},    {u'm', u"Method"},
    {u'f', u"Function"},  {u'o', u"Procedure"}, {u't', u"Tag"},     {u'n', u"Method 2"}, {u'c', u"Class"},
    {u'0', u"misc 0"},    {u'1', u"misc 1"},   {u'2', u"misc 2"},   {u'3', u"misc 3"},   {u'4', u"misc 4"},
    {u'5', u"misc 5"},    {u'6', u"misc 6"},   {u'7', u"misc 7"},   {u'8', u"misc 8"},   {u'9', u"misc 9"},
    {u'x', u"TagX"},      {u'@', u"var"},      {u'a', u"Event"},    {u'b', u"Evenet"},   {u'g', u"Property"},
    {u'h', u"Property"},  {u'i', u"Property"}, {u'u', u"Tag"},      {u'w', u"Tag"},
}};

} // namespace

std::span<const std::u16string_view> GdxSections() { return kGdxSections; }
std::span<const std::u16string_view> IniSections() { return kIniSections; }
std::span<const TKeySpec> OptionKeys() { return kOptionKeys; }
std::span<const TKeySpec> FoldOptionKeys() { return kFoldOptionKeys; }
std::span<const TKeySpec> RegionKeys() { return kRegionKeys; }
std::span<const TKeySpec> BlockKeys() { return kBlockKeys; }
std::span<const TKeySpec> FoldKeys() { return kFoldKeys; }
std::span<const TKeySpec> MultiHighlightKeys() { return kMultiHighlightKeys; }
std::span<const std::u16string_view> ExtraOptionKeys() { return kExtraOptionKeys; }
std::span<const std::u16string_view> ListItemWords() { return kListItemWords; }
std::span<const TImageLetter> ImageLetters() { return kImageLetters; }

std::u16string RuleKey(int n, std::u16string_view suffix) {
  std::u16string key;
  for (char c : std::to_string(n)) key.push_back(char16_t(c));
  key += suffix;
  return key;
}

int ListItemIndex(std::u16string_view word) {
  for (size_t i = 0; i < kListItemWords.size(); ++i)
    if (SameTextFolded(kListItemWords[i], word)) return int(i);
  return -1;
}

int ImageIndexOfLetter(char16_t letter) {
  for (size_t i = 0; i < kImageLetters.size(); ++i)
    if (kImageLetters[i].Letter == letter) return int(i);
  return 0;
}

char16_t LetterOfImageIndex(int index) {
  return index >= 0 && size_t(index) < kImageLetters.size() ? kImageLetters[size_t(index)].Letter : u'l';
}

std::u16string BuildHeaderComment(std::u16string_view syntax, std::u16string_view file,
                                  std::u16string_view aspLanguage) {
  std::u16string header = u";{";
  if (!syntax.empty()) {
    header += u'$';
    header += syntax;
    header += u';';
  }
  header += file;
  if (!aspLanguage.empty()) {
    header += u'|';
    header += aspLanguage;
  }
  header += u'}';
  return header;
}

bool TFileRecognition::IsCurrentLayout() const { return IsUtf16 || FirstBytes.starts_with(";{"); }

TFileRecognition RecogniseDefinitionFile(const std::filesystem::path& path) {
  TFileRecognition r;
  r.Exists = FileExists(path);
  if (!r.Exists) return r;
  const std::string head = ReadFileHead(path, 10);
  if (head.size() >= 2) {
    const unsigned mark = uint8_t(head[0]) | (uint8_t(head[1]) << 8);
    r.IsUtf16 = mark == 0xFEFF || mark == 0xFFFE;
  }
  if (!r.IsUtf16) r.FirstBytes = head.substr(0, 5);
  return r;
}

std::filesystem::path CompanionPath(const std::filesystem::path& definition) {
  std::filesystem::path companion = definition;
  return companion.replace_extension(".ini");
}

std::u16string BaseNameOf(const std::filesystem::path& fileName) {
  const std::u16string name = StringFromPath(fileName.filename());
  return name.size() > 4 ? name.substr(0, name.size() - 4) : std::u16string();
}

} // namespace orl
