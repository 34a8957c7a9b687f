// gdtool tokens: how the editor engine cuts a source file into coloured runs
// under a definition, line by line, with the state each line ends in, so that
// a definition author sees what a rule does to real text.

#include <ostream>

#include "Console.h"
#include "platform/CodePages.h"
#include "platform/FileIO.h"
#include "platform/OrlError.h"
#include "syntax/LoadedSyntax.h"
#include "syntax/OrlMemoStyles.h"

namespace gdtool {

const char* const kTokensHelp =
    "usage: gdtool tokens FILE --syntax DEF.gdx [--format text|json]\n"
    "\n"
    "Tokenises FILE (UTF-8 with or without mark, or UTF-16 with mark) with the\n"
    "definition DEF.gdx as the editor engine does, and prints for each line its\n"
    "runs with their classes (text, keyword, comment, string, char, number,\n"
    "symbol, block, tag, url) and group names, and the state the line ends in.\n"
    "--format json prints one JSON object per line:\n"
    "  {\"line\": 0, \"runs\": [{\"start\": 1, \"length\": 2, \"class\": \"comment\",\n"
    "   \"group\": null}], \"state\": {\"comment\": 0, \"string\": -1, \"block\": -1,\n"
    "   \"tag\": false, \"script\": \"scNone\"}}\n"
    "Positions are 1-based in UTF-16 units; lines are counted from 0.\n"
    "\n"
    "Exit status: 0 fine, 1 a file could not be read, 2 bad arguments.\n";

namespace {
using namespace orl;

struct TTokensArgs {
  std::filesystem::path File, Syntax;
  bool bJson = false;
};

bool ParseArgs(const std::vector<std::string>& args, TTokensArgs& parsed) {
  bool bFile = false;
  for (size_t i = 0; i < args.size(); ++i) {
    const std::string& a = args[i];
    const bool bHasValue = i + 1 < args.size();
    if (a == "--syntax" && bHasValue) {
      parsed.Syntax = args[++i];
    } else if (a == "--format" && bHasValue && (args[i + 1] == "text" || args[i + 1] == "json")) {
      parsed.bJson = args[++i] == "json";
    } else if (!a.starts_with("--") && !bFile) {
      parsed.File = a;
      bFile = true;
    } else {
      return false;
    }
  }
  return bFile && !parsed.Syntax.empty();
}

constexpr const char* kScriptNames[] = {"scNone", "scASP", "scPHP", "scJS", "scVB", "scCSS", "scCF", "scHtml", "scSVG"};

/// Runs named by class and group, neighbours of the same name joined.
struct TNamedRun {
  int Start, Length;
  TRunName Name;
};

std::vector<TNamedRun> NamedRuns(const std::vector<TTokenRun>& runs, const TOrlCustomMemoStyles* styles) {
  std::vector<TNamedRun> named;
  for (const TTokenRun& run : runs) {
    const TRunName name = ClassifyRun(run, styles);
    if (!named.empty() && named.back().Name.Class == name.Class && named.back().Name.Group == name.Group &&
        named.back().Start + named.back().Length == run.Start)
      named.back().Length += run.Length;
    else
      named.push_back({run.Start, run.Length, name});
  }
  return named;
}

void PrintJson(int line, const std::vector<TNamedRun>& runs, const TStyle& state, std::ostream& out) {
  out << "{\"line\": " << line << ", \"runs\": [";
  for (size_t i = 0; i < runs.size(); ++i) {
    const TNamedRun& r = runs[i];
    out << (i ? ", " : "") << "{\"start\": " << r.Start << ", \"length\": " << r.Length << ", \"class\": \""
        << RunClassName(r.Name.Class) << "\", \"group\": " << (r.Name.Group.empty() ? "null" : JsonString(r.Name.Group))
        << "}";
  }
  out << "], \"state\": {\"comment\": " << int(state.Properties.CommentStyle)
      << ", \"string\": " << int(state.Properties.BracketId) << ", \"block\": " << int(state.Block.Id)
      << ", \"tag\": " << (state.Properties.Get(spInTag) ? "true" : "false") << ", \"script\": \""
      << kScriptNames[state.Properties.ScriptType] << "\"}}\n";
}

void PrintText(int line, std::u16string_view text, const std::vector<TNamedRun>& runs, const TStyle& state,
               std::ostream& out) {
  out << line << ":";
  for (const TNamedRun& r : runs) {
    out << " " << RunClassName(r.Name.Class);
    if (!r.Name.Group.empty()) out << "(" << Out(r.Name.Group) << ")";
    out << " '" << Out(text.substr(size_t(r.Start - 1), size_t(r.Length))) << "'";
  }
  out << "  | comment " << int(state.Properties.CommentStyle) << ", string " << int(state.Properties.BracketId)
      << ", block " << int(state.Block.Id) << ", tag " << (state.Properties.Get(spInTag) ? "yes" : "no") << ", "
      << kScriptNames[state.Properties.ScriptType] << "\n";
}

} // namespace

int RunTokens(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
  TTokensArgs parsed;
  if (WantsHelp(args) || !ParseArgs(args, parsed)) {
    (WantsHelp(args) ? out : err) << kTokensHelp;
    return WantsHelp(args) ? exOk : exUnusable;
  }
  std::u16string text;
  std::unique_ptr<TLoadedSyntax> loaded;
  try {
    loaded = LoadSyntax(parsed.Syntax);
    text = DecodeText(ReadFileBytes(parsed.File), 65001);
  } catch (const EOrlError& e) {
    err << "gdtool: " << e.what() << "\n";
    return exProblems;
  }
  if (!loaded) {
    err << "gdtool: " << parsed.Syntax.string() << ": no style set could be loaded\n";
    return exProblems;
  }
  const std::vector<std::u16string> lines = SplitLines(text);
  const TOrlCustomMemoStyles* styles = loaded->Memo.FStyles;
  ColourLines(*loaded, lines, [&](int i, const std::vector<TTokenRun>& runs, const TStyle& state) {
    const std::vector<TNamedRun> named = NamedRuns(runs, styles);
    if (parsed.bJson)
      PrintJson(i, named, state, out);
    else
      PrintText(i, lines[size_t(i)], named, state, out);
  });
  return exOk;
}

} // namespace gdtool
