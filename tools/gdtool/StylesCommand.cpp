// gdtool styles: what the engine makes of a definition, so that its author
// sees which options, rules and groups take effect, with their colours.

#include <cstdio>
#include <ostream>

#include "Console.h"
#include "definition/DefinitionFormat.h"
#include "platform/FileIO.h"
#include "platform/OrlError.h"
#include "syntax/OrlSyntax.h"
#include "syntax/StyleScheme.h"

namespace gdtool {

const char* const kStylesHelp =
    "usage: gdtool styles FILE.gdx [--dark]\n"
    "\n"
    "Loads a definition as the editor engine does and prints the style set it\n"
    "yields: comment, string and number options as the engine reads them, block\n"
    "rules, fold rules, keyword and tag groups with their word counts, and the\n"
    "colour each group and block gets in the built-in light (or --dark) scheme.\n"
    "Problems the engine meets while loading (a regular expression that does not\n"
    "compile, a value it cannot read) follow as 'problem:' lines.\n"
    "\n"
    "Exit status: 0 no problems, 1 problems, 2 the file could not be read.\n";

namespace {
using namespace orl;

std::string Colour(TColor c) {
  if (c == clNoColor) return "none";
  char text[8];
  std::snprintf(text, sizeof text, "#%02X%02X%02X", c & 0xFF, (c >> 8) & 0xFF, (c >> 16) & 0xFF);
  return text;
}

std::string Char(char16_t c) { return c ? Out(std::u16string(1, c)) : std::string(); }

void PrintOptions(const TOrlCustomMemoStyles& s, std::ostream& out) {
  out << "  comments: line '" << Out(s.FLineCommentA) << "' '" << Out(s.FLineCommentB) << "', block '"
      << Out(s.FCommentStartA) << "'..'" << Out(s.FCommentEndA) << "' '" << Out(s.FCommentStartB) << "'..'"
      << Out(s.FCommentEndB) << "'" << (s.FAllowNestedComments ? ", nested" : "") << "\n";
  out << "  strings: '" << Char(s.FStringSymbol) << "', chars '" << Char(s.FCharSymbol) << "', escape '"
      << Out(s.FEscape) << "'" << (s.FStringLine ? ", end at line end" : "") << "\n";
  out << "  numbers: '" << Out(s.FNumericChars) << "', hex prefix '" << Out(s.FHexIdentifier) << "'\n";
  out << "  symbols: '" << Out(s.FSymbols) << "'\n";
  out << "  case: keywords " << (s.FKeywordCase ? "sensitive" : "ignored") << ", tags "
      << (s.FTagCase ? "sensitive" : "ignored") << "\n";
}

void PrintGroups(const std::vector<std::unique_ptr<TKeyWord>>& groups, const char* label, std::ostream& out) {
  out << "  " << label << ": " << groups.size() << "\n";
  for (const auto& group : groups) {
    out << "    " << Out(group->Name) << ": ";
    if (group->RegEx) out << "regular expression" << (group->Pattern ? "" : " (never matches)");
    else out << group->KeyWords.Count() << " words";
    out << ", colour " << Colour(group->Color) << "\n";
  }
}

void PrintRules(const TOrlCustomMemoStyles& s, std::ostream& out) {
  out << "  blocks: " << s.FBlocks.size() << "\n";
  for (const auto& block : s.FBlocks) {
    out << "    " << Out(block->Name) << ": '" << Out(block->Start) << "'..'" << Out(block->Stop) << "'";
    if (block->IsRegEx() && (!block->StartPattern || !block->StopPattern)) out << " (never matches)";
    out << ", colour " << Colour(block->Color) << "\n";
  }
  out << "  folds: " << s.FNodes.size() << "\n";
  for (const auto& node : s.FNodes)
    out << "    " << Out(node->wId) << ": '" << Out(node->wStart) << "' .. '" << Out(node->wEnd) << "'\n";
}

} // namespace

int RunStyles(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
  if (WantsHelp(args) || args.empty() || args.size() > 2 || (args.size() == 2 && args[1] != "--dark")) {
    (WantsHelp(args) ? out : err) << kStylesHelp;
    return WantsHelp(args) ? exOk : exUnusable;
  }
  const std::filesystem::path file = args[0];
  try {
    if (!FileExists(file)) ReadFileBytes(file);  // raises the file error
  } catch (const EOrlError& e) {
    err << "gdtool: " << e.what() << "\n";
    return exUnusable;
  }
  std::vector<std::u16string> problems;
  TOrlMemoStyleSlots memo;
  TOrlSyntax syntax;
  syntax.OnDebugWrite = [&](const std::u16string& text, bool) { problems.push_back(text); };
  TStringList sample, info;
  syntax.LoadStyleFromFile(memo, StringFromPath(file), BaseNameOf(file), sample, info);
  if (!memo.FStyles) {
    err << "gdtool: " << file.string() << ": no style set could be loaded\n";
    return exUnusable;
  }
  ApplyStyleScheme(*memo.FStyles, args.size() == 2 ? DarkStyleScheme() : LightStyleScheme());
  out << file.string() << "\n";
  PrintOptions(*memo.FStyles, out);
  PrintRules(*memo.FStyles, out);
  PrintGroups(memo.FStyles->FKeyWords, "keyword groups", out);
  PrintGroups(memo.FStyles->FTags, "tag groups", out);
  for (const std::u16string& problem : problems) out << "  problem: " << Out(problem) << "\n";
  return problems.empty() ? exOk : exProblems;
}

} // namespace gdtool
