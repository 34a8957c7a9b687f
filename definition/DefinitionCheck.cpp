#include "definition/DefinitionCheck.h"

#include <algorithm>
#include <map>
#include <optional>
#include <set>

#include "definition/DefinitionFormat.h"
#include "definition/DefinitionItems.h"
#include "definition/DefinitionPages.h"
#include "platform/Blanks.h"
#include "platform/CodePages.h"
#include "platform/Collation.h"
#include "platform/FileIO.h"

namespace orl {
namespace {

std::string Narrow(std::u16string_view s) { return Utf16ToUtf8(s); }

/// One key line of a section as it stands in the file.
struct TRawKey {
  int Line;
  std::u16string Name;
  std::u16string Value;
};

struct TRawSection {
  int Line;
  std::u16string Name;
  std::vector<TRawKey> Keys;
};

bool HasUtf16Mark(std::string_view bytes) { return bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF"); }

/// Walks the file's lines the way the store loads them, keeping line numbers,
/// and notes what the store or the engine would drop.
class TRawScan {
public:
  TRawScan(const std::filesystem::path& path, std::span<const std::u16string_view> knownSections) : FPath(path) {
    const std::string bytes = ReadFileBytes(path);
    if (HasUtf16Mark(bytes) && bytes.size() % 2 != 0)
      Report(0, "odd number of bytes in a UTF-16 file: the last byte belongs to no character and is dropped");
    const std::vector<std::u16string> lines = SplitLines(DecodeText(bytes, SystemAnsiCodePage()));
    for (size_t i = 0; i < lines.size(); ++i) Take(int(i) + 1, lines[i], knownSections);
  }

  const std::vector<TRawSection>& Sections() const { return FSections; }
  std::vector<TDefinitionProblem>& Problems() { return FProblems; }
  void Report(int line, std::string message) { FProblems.push_back({FPath, line, std::move(message)}); }

  const TRawSection* Find(std::u16string_view name) const {
    for (const TRawSection& s : FSections)
      if (s.Name == name) return &s;
    return nullptr;
  }

private:
  void Take(int number, const std::u16string& line, std::span<const std::u16string_view> known) {
    if (line.empty()) {
      if (!FSections.empty()) FEmptyLineAt = number;
      return;
    }
    if (line.front() == u';') return;
    if (line.size() >= 2 && line.front() == u'[' && line.back() == u']') {
      OpenSection(number, std::u16string(TrimBlanks(std::u16string_view(line).substr(1, line.size() - 2))), known);
      return;
    }
    if (FSections.empty()) {
      Report(number, "line stands before any section and is dropped");
      return;
    }
    if (FEmptyLineAt) {
      Report(*FEmptyLineAt, "empty line inside [" + Narrow(FSections.back().Name) +
                                "]: the engine stops reading the section here");
      FEmptyLineAt.reset();
    }
    const size_t eq = line.find(u'=');
    if (eq == std::u16string::npos) {
      Report(number, "line without '=' in [" + Narrow(FSections.back().Name) + "] is ignored by the engine");
      return;
    }
    FSections.back().Keys.push_back(
        {number, std::u16string(TrimBlanks(std::u16string_view(line).substr(0, eq))), line.substr(eq + 1)});
  }

  void OpenSection(int number, std::u16string name, std::span<const std::u16string_view> known) {
    FEmptyLineAt.reset();
    if (const TRawSection* earlier = Find(name))
      Report(number, "section [" + Narrow(name) + "] appears again (first at line " + std::to_string(earlier->Line) +
                         ")");
    if (std::find(known.begin(), known.end(), name) == known.end()) {
      std::string hint;
      for (std::u16string_view k : known)
        if (SameTextFolded(k, name)) hint = "; section names are matched with case: [" + Narrow(k) + "]?";
      Report(number, "unknown section [" + Narrow(name) + "]" + hint);
    }
    FSections.push_back({number, std::move(name), {}});
  }

  std::filesystem::path FPath;
  std::vector<TRawSection> FSections;
  std::vector<TDefinitionProblem> FProblems;
  std::optional<int> FEmptyLineAt;
};

const TKeySpec* FindSpec(std::span<const TKeySpec> keys, std::u16string_view key) {
  for (const TKeySpec& row : keys)
    if (row.Key == key) return &row;
  return nullptr;
}

void CheckValue(TRawScan& scan, const TRawKey& key, const TKeySpec& row, std::u16string_view section) {
  const std::string where = Narrow(key.Name) + " in [" + Narrow(section) + "]";
  switch (row.Kind) {
  case TValueKind::vkFlag:
    if (key.Value != u"0" && key.Value != u"1")
      scan.Report(key.Line, "flag " + where + " is \"" + Narrow(key.Value) + "\"; flags are \"1\" or \"0\"");
    break;
  case TValueKind::vkLevel:
    if (!key.Value.empty() && key.Value != u"0" && key.Value != u"1" && key.Value != u"2")
      scan.Report(key.Line, where + " is \"" + Narrow(key.Value) + "\"; levels are \"0\", \"1\" or \"2\"");
    break;
  case TValueKind::vkChar:
    if (key.Value.size() > 1)
      scan.Report(key.Line, where + " holds \"" + Narrow(key.Value) + "\"; only its first character counts");
    break;
  case TValueKind::vkList:
    if (key.Value.ends_with(u'|')) scan.Report(key.Line, "list " + where + " ends with '|'");
    break;
  case TValueKind::vkText:
    break;
  }
}

void CheckTable(TRawScan& scan, std::u16string_view section, std::span<const TKeySpec> keys,
                std::span<const std::u16string_view> extraKeys = {}) {
  const TRawSection* raw = scan.Find(section);
  if (!raw) return;
  for (const TRawKey& key : raw->Keys) {
    if (const TKeySpec* row = FindSpec(keys, key.Name)) CheckValue(scan, key, *row, section);
    else if (std::find(extraKeys.begin(), extraKeys.end(), key.Name) == extraKeys.end())
      scan.Report(key.Line, "unknown key " + Narrow(key.Name) + " in [" + Narrow(section) + "]");
  }
}

// Splits `12_Name` into 12 and `_Name`; no number gives 0.
int RuleNumberOf(std::u16string_view key, std::u16string_view& suffix) {
  int n = 0;
  size_t i = 0;
  while (i < key.size() && i < 9 && key[i] >= u'0' && key[i] <= u'9') n = n * 10 + (key[i++] - u'0');
  suffix = key.substr(i);
  return i == 0 ? 0 : n;
}

void CheckRules(TRawScan& scan, std::u16string_view section, std::span<const TKeySpec> keys) {
  const TRawSection* raw = scan.Find(section);
  if (!raw) return;
  std::set<int> opened;
  std::map<int, int> firstLine;
  for (const TRawKey& key : raw->Keys) {
    std::u16string_view suffix;
    const int n = RuleNumberOf(key.Name, suffix);
    const TKeySpec* row = n > 0 ? FindSpec(keys, suffix) : nullptr;
    if (!row) {
      scan.Report(key.Line, "unknown key " + Narrow(key.Name) + " in [" + Narrow(section) + "]");
      continue;
    }
    CheckValue(scan, key, *row, section);
    if (row->Row == 1) opened.insert(n);
    firstLine.emplace(n, key.Line);
  }
  int read = 0;
  while (opened.count(read + 1)) ++read;
  for (const auto& [n, line] : firstLine)
    if (n > read)
      scan.Report(line, "rule " + std::to_string(n) + " of [" + Narrow(section) + "] is never read: the rules stop at " +
                            std::to_string(read) + " since " + Narrow(RuleKey(read + 1, keys[0].Key)) + " is missing");
}

void CheckListItems(TRawScan& scan) {
  const TRawSection* raw = scan.Find(sections::Fold);
  if (!raw) return;
  for (const TRawKey& key : raw->Keys) {
    std::u16string_view suffix;
    const int rule = RuleNumberOf(key.Name, suffix);
    if (rule <= 0 || key.Value.empty()) continue;
    if (suffix == u"_ListItem" && ListItemIndex(key.Value) < 0)
      scan.Report(key.Line, Narrow(key.Name) + " \"" + Narrow(key.Value) + "\" is no list item and reads as none");
    // A list-item word as a section name is a value typed into the wrong row.
    if (suffix == u"_Section" && ListItemIndex(key.Value) >= 0)
      scan.Report(key.Line, Narrow(key.Name) + " \"" + Narrow(key.Value) + "\" is a list item; it belongs in " +
                                std::to_string(rule) + "_ListItem");
  }
}

void CheckWordGroups(TRawScan& scan, std::u16string_view section, bool bRegexAllowed) {
  const TRawSection* raw = scan.Find(section);
  if (!raw) return;
  for (const TRawKey& key : raw->Keys) {
    if (bRegexAllowed && IsRegexGroup(key.Name)) {
      if (key.Value.empty()) scan.Report(key.Line, "regular-expression group " + Narrow(key.Name) + " is empty");
      continue;
    }
    if (!key.Value.empty() && !key.Value.ends_with(u'|'))
      scan.Report(key.Line, "group " + Narrow(key.Name) + " in [" + Narrow(section) +
                                "] does not end with '|'; every word is followed by one");
  }
}

void CheckHeaderComment(TRawScan& gdxScan, const std::filesystem::path& fileName) {
  TDefinitionStores stores = LoadDefinitionStores(fileName);
  const std::u16string expected = ReadDefinitionPages(*stores.Gdx, *stores.Ini).HeaderComment();
  const std::vector<std::u16string> lines = SplitLines(DecodeText(ReadFileHead(fileName, 4096), SystemAnsiCodePage()));
  const std::u16string first = lines.empty() ? std::u16string() : lines.front();
  if (first.starts_with(u";{") && first != expected)
    gdxScan.Report(1, "header comment " + Narrow(first) + " does not match [MultiHighlight] of the companion; " +
                          "a save writes " + Narrow(expected));
}

} // namespace

std::vector<TDefinitionProblem> CheckDefinition(const std::filesystem::path& fileName) {
  const TFileRecognition recognition = RecogniseDefinitionFile(fileName);
  if (!recognition.Exists) ReadFileBytes(fileName);  // raises the file error
  if (!recognition.IsCurrentLayout())
    return {{fileName, 1, "older layout (no UTF-16 mark and no ';{' header): the file needs conversion"}};

  TRawScan gdx(fileName, GdxSections());
  CheckTable(gdx, sections::Options, OptionKeys(), ExtraOptionKeys());
  CheckTable(gdx, sections::FoldOptions, FoldOptionKeys());
  CheckTable(gdx, sections::Region, RegionKeys());
  CheckRules(gdx, sections::Block, BlockKeys());
  CheckRules(gdx, sections::Fold, FoldKeys());
  CheckListItems(gdx);
  CheckWordGroups(gdx, sections::Keywords, true);
  CheckWordGroups(gdx, sections::Tags, false);
  const std::filesystem::path companion = CompanionPath(fileName);
  const bool bCompanion = FileExists(companion);
  if (bCompanion) CheckHeaderComment(gdx, fileName);

  std::vector<TDefinitionProblem> problems = std::move(gdx.Problems());
  std::stable_sort(problems.begin(), problems.end(), [](const auto& a, const auto& b) { return a.Line < b.Line; });
  if (!bCompanion) {
    problems.push_back({companion, 0, "companion file is missing"});
    return problems;
  }
  TRawScan ini(companion, IniSections());
  CheckTable(ini, sections::MultiHighlight, MultiHighlightKeys());
  problems.insert(problems.end(), ini.Problems().begin(), ini.Problems().end());
  return problems;
}

} // namespace orl
