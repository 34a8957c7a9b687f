// gdtool check: what a definition holds and what is wrong with it.

#include <ostream>

#include "Console.h"
#include "definition/DefinitionCheck.h"
#include "definition/DefinitionFormat.h"
#include "definition/DefinitionItems.h"
#include "definition/DefinitionPages.h"
#include "platform/FileIO.h"
#include "platform/OrlError.h"

namespace gdtool {

const char* const kCheckHelp =
    "usage: gdtool check FILE.gdx...\n"
    "\n"
    "Loads each definition with its companion file and prints what it holds:\n"
    "file extensions, the options that are set, block and fold rules, keyword\n"
    "and tag groups with their word counts, completion groups, user menu,\n"
    "hints and sample. Then its problems, one a line as FILE:LINE: message:\n"
    "rules behind a gap in the numbering, empty lines inside a section, unknown\n"
    "sections and keys, values outside their kind, a missing companion file.\n"
    "\n"
    "Exit status: 0 no problems, 1 problems, 2 a file could not be read.\n";

namespace {
using namespace orl;

std::string SetCells(std::span<const TKeySpec> keys, const std::vector<std::u16string>& cells) {
  std::string names;
  int count = 0;
  for (size_t i = 0; i < keys.size(); ++i) {
    if (cells[i].empty()) continue;
    names += (count++ ? ", " : "") + Out(keys[i].RowName);
  }
  return std::to_string(count) + " of " + std::to_string(keys.size()) + " set" + (count ? ": " + names : "");
}

void PrintWordGroups(TMemIniFile& store, std::u16string_view section, const char* label, std::ostream& out) {
  TStringList lines;
  store.ReadSectionValues(section, lines);
  out << "  " << label << ": " << lines.Count() << (lines.Count() == 1 ? " group" : " groups") << "\n";
  for (int i = 0; i < lines.Count(); ++i) {
    const std::u16string name = lines.Names(i);
    if (section == sections::Keywords && IsRegexGroup(name))
      out << "    " << Out(name) << ": regular expression\n";
    else
      out << "    " << Out(name) << ": " << SplitWords(lines.ValueFromIndex(i)).size() << " words\n";
  }
}

void PrintCompletionGroups(TMemIniFile& store, std::u16string_view section, const char* label, std::ostream& out) {
  TStringList lines;
  store.ReadSectionValues(section, lines);
  if (lines.Count() == 0) return;
  out << "  " << label << ": " << lines.Count() << (lines.Count() == 1 ? " group" : " groups") << "\n";
  for (int i = 0; i < lines.Count(); ++i)
    out << "    " << Out(lines.Names(i)) << ": " << SplitCompletionItems(lines.ValueFromIndex(i)).size() << " items\n";
}

template <typename TRule, typename TName>
void PrintRules(const std::vector<TRule>& rules, const char* label, TName nameOf, std::ostream& out) {
  out << "  " << label << ": " << rules.size();
  for (size_t i = 0; i < rules.size(); ++i) out << (i ? ", " : ": ") << Out(nameOf(rules[i]));
  out << "\n";
}

void PrintSummary(const std::filesystem::path& file, std::ostream& out) {
  TDefinitionStores stores = LoadDefinitionStores(file);
  const TDefinitionPages pages = ReadDefinitionPages(*stores.Gdx, *stores.Ini);
  out << "  extensions:";
  for (const std::u16string& e : pages.FileExtensions) out << " " << Out(e);
  out << "\n  options: " << SetCells(OptionKeys(), pages.SyntaxOptions) << "\n";
  out << "  fold options: " << SetCells(FoldOptionKeys(), pages.FoldOptions) << "\n";
  out << "  region: " << SetCells(RegionKeys(), pages.RegionOptions) << "\n";
  PrintRules(pages.Blocks, "block rules", [](const TBlockObject& b) { return b.BlockName; }, out);
  PrintRules(pages.Folds, "fold rules", [](const TFoldObject& f) { return f.Fold_Id; }, out);
  PrintWordGroups(*stores.Gdx, sections::Keywords, "keyword groups", out);
  PrintWordGroups(*stores.Gdx, sections::Tags, "tag groups", out);
  PrintCompletionGroups(*stores.Ini, sections::AutoComplete, "class completion", out);
  PrintCompletionGroups(*stores.Ini, sections::TagComplete, "tag completion", out);
  TStringList menu;
  stores.Ini->ReadSectionValues(sections::UserMenu, menu);
  out << "  user menu: " << menu.Count() << " entries, hints: " << pages.Hints.size()
      << ", sample: " << pages.Sample.size() << " lines, info: " << pages.Info.size() << " lines\n";
}

int CheckOne(const std::filesystem::path& file, std::ostream& out) {
  out << file.string() << "\n";
  RequireReadable(file);
  const std::vector<TDefinitionProblem> problems = CheckDefinition(file);
  if (RecogniseDefinitionFile(file).IsCurrentLayout()) PrintSummary(file, out);
  out << "  problems: " << (problems.empty() ? "none" : std::to_string(problems.size())) << "\n";
  for (const TDefinitionProblem& p : problems)
    out << p.File.string() << ":" << (p.Line ? std::to_string(p.Line) + ":" : "") << " " << p.Message << "\n";
  return problems.empty() ? exOk : exProblems;
}

} // namespace

int RunCheck(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
  if (WantsHelp(args)) {
    out << kCheckHelp;
    return exOk;
  }
  if (args.empty()) {
    err << kCheckHelp;
    return exUnusable;
  }
  int status = exOk;
  for (const std::string& arg : args) {
    try {
      status = std::max(status, CheckOne(arg, out));
    } catch (const EOrlError& e) {
      err << "gdtool: " << e.what() << "\n";
      status = exUnusable;
    }
  }
  return status;
}

} // namespace gdtool
