#include "definition/DefinitionPages.h"

#include <array>
#include <variant>

#include "definition/DefinitionFormat.h"
#include "definition/DefinitionItems.h"
#include "definition/LegacyConversion.h"
#include "platform/CharCase.h"
#include "platform/FileIO.h"

namespace orl {
namespace {

// The fields of a rule object in the row order of its key table.
template <typename TRule>
using TField = std::variant<std::u16string TRule::*, bool TRule::*>;

const std::array<TField<TBlockObject>, 13> kBlockFields = {
    &TBlockObject::BlockName,         &TBlockObject::BlockOnLine,      &TBlockObject::BlockAsString,
    &TBlockObject::BlockStart,        &TBlockObject::BlockEnd,         &TBlockObject::FirstOnLine,
    &TBlockObject::OnlyAfter,         &TBlockObject::HighlightKeywords, &TBlockObject::HighlightNumbers,
    &TBlockObject::HighlightSymbols,  &TBlockObject::HighlightBlocks,  &TBlockObject::HighlightStrings,
    &TBlockObject::HighlightChars};

const std::array<TField<TFoldObject>, 8> kFoldFields = {
    &TFoldObject::Fold_Id,         &TFoldObject::Fold_Begin,        &TFoldObject::Fold_End,
    &TFoldObject::Fold_EndBefore,  &TFoldObject::Fold_Section,      &TFoldObject::Fold_NoParentOfId,
    &TFoldObject::Fold_NotAlwaysEnded, &TFoldObject::Fold_List_Item};

constexpr std::u16string_view kYes = u"Yes";

bool CellIsYes(std::u16string_view cell) {
  if (cell.size() != 3) return false;
  for (size_t i = 0; i < 3; ++i)
    if (SysLowerChar(cell[i]) != u"yes"[i]) return false;
  return true;
}

std::vector<std::u16string> ReadGrid(TMemIniFile& store, std::u16string_view section, std::span<const TKeySpec> keys) {
  std::vector<std::u16string> cells;
  cells.reserve(keys.size());
  for (const TKeySpec& row : keys) {
    if (row.Kind == TValueKind::vkFlag) cells.emplace_back(store.ReadBool(section, row.Key, false) ? kYes : u"");
    else cells.push_back(store.ReadString(section, row.Key, u""));
  }
  return cells;
}

void WriteGrid(TMemIniFile& store, std::u16string_view section, std::span<const TKeySpec> keys,
               const std::vector<std::u16string>& cells) {
  store.EraseSection(section);
  for (size_t i = 0; i < keys.size() && i < cells.size(); ++i) {
    if (keys[i].Kind == TValueKind::vkFlag) store.WriteBool(section, keys[i].Key, CellIsYes(cells[i]));
    else if (!cells[i].empty()) store.WriteString(section, keys[i].Key, cells[i]);
  }
}

template <typename TRule, size_t N>
std::vector<TRule> ReadRules(TMemIniFile& store, std::u16string_view section, std::span<const TKeySpec> keys,
                             const std::array<TField<TRule>, N>& fields) {
  std::vector<TRule> rules;
  for (int n = 1; store.ValueExists(section, RuleKey(n, keys[0].Key)); ++n) {
    TRule rule;
    for (size_t i = 0; i < N; ++i) {
      const std::u16string key = RuleKey(n, keys[i].Key);
      if (auto text = std::get_if<std::u16string TRule::*>(&fields[i]))
        rule.*(*text) = store.ReadString(section, key, keys[i].Default);
      else
        rule.*std::get<bool TRule::*>(fields[i]) = store.ReadBool(section, key, keys[i].Default == u"1");
    }
    rules.push_back(std::move(rule));
  }
  return rules;
}

template <typename TRule, size_t N>
void WriteRules(TMemIniFile& store, std::u16string_view section, std::span<const TKeySpec> keys,
                const std::array<TField<TRule>, N>& fields, const std::vector<TRule>& rules) {
  store.EraseSection(section);
  for (size_t r = 0; r < rules.size(); ++r) {
    for (size_t i = 0; i < N; ++i) {
      const std::u16string key = RuleKey(int(r) + 1, keys[i].Key);
      if (auto text = std::get_if<std::u16string TRule::*>(&fields[i])) store.WriteString(section, key, rules[r].*(*text));
      else store.WriteBool(section, key, rules[r].*std::get<bool TRule::*>(fields[i]));
    }
  }
}

// The lines of a section, whole or only their values.
std::vector<std::u16string> SectionLinesOf(TMemIniFile& store, std::u16string_view section, bool bValuesOnly) {
  TStringList lines;
  store.ReadSectionValues(section, lines);
  std::vector<std::u16string> result;
  for (int i = 0; i < lines.Count(); ++i) result.push_back(bValuesOnly ? lines.ValueFromIndex(i) : lines.Strings(i));
  return result;
}

void SetSectionFrom(TMemIniFile& store, std::u16string_view section, const std::vector<std::u16string>& lines,
                    bool bAddKey) {
  TStringList list;
  for (const std::u16string& line : lines) list.Add(line);
  store.SetSection(section, list, bAddKey);
}

std::u16string JoinExtensions(const std::vector<std::u16string>& extensions) {
  std::u16string value;
  for (const std::u16string& e : extensions) (value += e) += u'|';
  return value;
}

// Row 8 falls back to the key's older name.
void ReadOlderLineCommentKey(TMemIniFile& gdx, TDefinitionPages& pages) {
  const TKeySpec& row8 = OptionKeys()[7];
  if (!gdx.ValueExists(sections::Options, row8.Key))
    pages.SyntaxOptions[7] = gdx.ReadString(sections::Options, kOlderLineCommentKey, u"");
}

// A cleared cell must clear the key too: this section is not erased before it is written.
void WriteMultiHighlight(TMemIniFile& ini, const std::vector<std::u16string>& cells) {
  const auto keys = MultiHighlightKeys();
  for (size_t i = 0; i < keys.size() && i < cells.size(); ++i) {
    if (cells[i].empty()) ini.DeleteKey(sections::MultiHighlight, keys[i].Key);
    else ini.WriteString(sections::MultiHighlight, keys[i].Key, cells[i]);
  }
}

template <typename TRule, size_t N>
std::u16string CellText(const TRule& rule, int row, const std::array<TField<TRule>, N>& fields) {
  if (row < 0 || size_t(row) >= N) return {};
  if (auto text = std::get_if<std::u16string TRule::*>(&fields[size_t(row)])) return rule.*(*text);
  return rule.*std::get<bool TRule::*>(fields[size_t(row)]) ? u"Yes" : u"No";
}

template <typename TRule, size_t N>
void SetCell(TRule& rule, int row, std::u16string_view text, const std::array<TField<TRule>, N>& fields) {
  if (row < 0 || size_t(row) >= N) return;
  if (auto field = std::get_if<std::u16string TRule::*>(&fields[size_t(row)])) rule.*(*field) = text;
  else rule.*std::get<bool TRule::*>(fields[size_t(row)]) = text == kYes;
}

} // namespace

std::u16string RuleCellText(const TBlockObject& rule, int row) { return CellText(rule, row, kBlockFields); }
std::u16string RuleCellText(const TFoldObject& rule, int row) { return CellText(rule, row, kFoldFields); }
void SetRuleCell(TBlockObject& rule, int row, std::u16string_view text) { SetCell(rule, row, text, kBlockFields); }
void SetRuleCell(TFoldObject& rule, int row, std::u16string_view text) { SetCell(rule, row, text, kFoldFields); }

std::u16string FoldRowText(const TFoldObject& fold) {
  return fold.Fold_Id + u" " + fold.Fold_Begin + u" ... " + fold.Fold_End;
}

TDefinitionPages::TDefinitionPages()
    : SyntaxOptions(OptionKeys().size()), FoldOptions(FoldOptionKeys().size()), RegionOptions(RegionKeys().size()),
      MultiHighlight(MultiHighlightKeys().size()) {}

std::u16string TDefinitionPages::HeaderComment() const {
  return BuildHeaderComment(MultiHighlight[0], MultiHighlight[1], MultiHighlight[2]);
}

std::vector<std::u16string> InfoTemplate() {
  return {u"<b>Syntax:</b> ", u"<b>Author:</b> ", u"<b>Version:</b> ", u"<b>Date:</b> ", u"",
          u"<b>Recommended colors:</b>"};
}

TDefinitionStores LoadDefinitionStores(const std::filesystem::path& fileName) {
  const TFileRecognition recognition = RecogniseDefinitionFile(fileName);
  TDefinitionStores stores;
  stores.Gdx = std::make_unique<TMemIniFile>(fileName);
  stores.Ini = std::make_unique<TMemIniFile>(CompanionPath(fileName));
  stores.Converted = recognition.Exists && !recognition.IsCurrentLayout();
  if (stores.Converted) {
    stores.Gdx->Clear();
    stores.Ini->Clear();
    ConvertToNew(fileName, *stores.Gdx, *stores.Ini);
  }
  return stores;
}

TDefinitionPages ReadDefinitionPages(TMemIniFile& gdx, TMemIniFile& ini) {
  TDefinitionPages pages;
  pages.SyntaxOptions = ReadGrid(gdx, sections::Options, OptionKeys());
  ReadOlderLineCommentKey(gdx, pages);
  pages.FoldOptions = ReadGrid(gdx, sections::FoldOptions, FoldOptionKeys());
  pages.RegionOptions = ReadGrid(gdx, sections::Region, RegionKeys());
  pages.Blocks = ReadRules(gdx, sections::Block, BlockKeys(), kBlockFields);
  pages.Folds = ReadRules(gdx, sections::Fold, FoldKeys(), kFoldFields);
  pages.MultiHighlight = ReadGrid(ini, sections::MultiHighlight, MultiHighlightKeys());
  pages.Info = SectionLinesOf(ini, sections::Comment, true);
  if (pages.Info.size() <= 1) pages.Info = InfoTemplate();
  pages.Hints = SectionLinesOf(ini, sections::Hints, false);
  pages.Sample = SectionLinesOf(ini, sections::Sample, true);
  pages.FileExtensions = SplitWords(gdx.ReadString(sections::StandardExtensions, kExtensionsKey, u""));
  return pages;
}

void WriteDefinitionStores(const TDefinitionPages& pages, TMemIniFile& gdx, TMemIniFile& ini,
                           const std::filesystem::path& fileName) {
  gdx.Rename(fileName, false);
  ini.Rename(CompanionPath(fileName), false);
  gdx.WriteString(sections::StandardExtensions, kExtensionsKey, JoinExtensions(pages.FileExtensions));
  SetSectionFrom(ini, sections::Comment, pages.Info, true);
  WriteMultiHighlight(ini, pages.MultiHighlight);
  WriteGrid(gdx, sections::Options, OptionKeys(), pages.SyntaxOptions);
  WriteGrid(gdx, sections::FoldOptions, FoldOptionKeys(), pages.FoldOptions);
  WriteGrid(gdx, sections::Region, RegionKeys(), pages.RegionOptions);
  WriteRules(gdx, sections::Block, BlockKeys(), kBlockFields, pages.Blocks);
  WriteRules(gdx, sections::Fold, FoldKeys(), kFoldFields, pages.Folds);
  SetSectionFrom(ini, sections::Sample, pages.Sample, true);
  SetSectionFrom(ini, sections::Hints, pages.Hints, false);
}

// The header comment is not part of the store (comments never are), so the
// file image gets it on top as it is written.
std::vector<TFileImage> DefinitionFileImages(const TDefinitionPages& pages, TMemIniFile& gdx, TMemIniFile& ini,
                                             const std::filesystem::path& fileName, bool bRecovery) {
  WriteDefinitionStores(pages, gdx, ini, fileName);
  TStringList gdxLines, iniLines;
  gdx.GetStrings(gdxLines);
  ini.GetStrings(iniLines);
  if (!bRecovery) {
    gdxLines.Insert(0, u"");
    gdxLines.Insert(0, pages.HeaderComment());
  }
  return {TFileImage{fileName, gdxLines.FileImage()}, TFileImage{CompanionPath(fileName), iniLines.FileImage()}};
}

void SaveDefinitionFiles(const TDefinitionPages& pages, TMemIniFile& gdx, TMemIniFile& ini,
                         const std::filesystem::path& fileName, bool bRecovery) {
  WriteFilesAtomic(DefinitionFileImages(pages, gdx, ini, fileName, bRecovery));
}

} // namespace orl
