// gdtool test: runs definition test files, source files of a language whose
// assertion comments state the class the editor engine must give each marked
// column, so that a definition author can prove a change breaks nothing.

#include <algorithm>
#include <map>
#include <ostream>

#include "Console.h"
#include "TestAssertions.h"
#include "platform/CodePages.h"
#include "platform/FileIO.h"
#include "platform/OrlError.h"
#include "syntax/ExtensionIndex.h"
#include "syntax/LoadedSyntax.h"
#include "syntax/OrlMemoStyles.h"

namespace gdtool {

const char* const kTestHelp =
    "usage: gdtool test [--syntax DEF.gdx] [--host DIR] FILE|DIR...\n"
    "\n"
    "Runs definition test files: source files whose assertion comments say which\n"
    "class the editor engine must give the columns of the line above, e.g.\n"
    "  int main() { return 0x1F; }\n"
    "  // <- keyword.Types\n"
    "  //                  ^^^^ number !symbol\n"
    "An assertion is a comment in the definition's LineCommentA (else LineCommentB,\n"
    "else its block comment) whose text starts with carets '^' or with '<-' (the\n"
    "first column). Carets point at the columns of the nearest line above that is no\n"
    "assertion; columns are UTF-16 characters, a tab is one column. Behind the\n"
    "carets stand one or more classes as 'gdtool tokens' names them (text, keyword,\n"
    "comment, string, char, number, symbol, block, tag, url), each optionally with\n"
    "its group ('keyword.Types', 'block.#RawString') or negated ('!comment').\n"
    "\n"
    "The definition of a file is DEF.gdx when given; else the one named by a first\n"
    "line holding 'syntax: NAME'; else the one whose extensions hold the file's.\n"
    "Definitions are looked up in DIR/syntax with --host, else in the nearest folder\n"
    "above the file that holds definitions. A folder is searched recursively.\n"
    "\n"
    "Each failure prints as FILE:LINE:COL: expected CLASS, got CLASS, with the line\n"
    "and a caret. Exit status: 0 all assertions hold, 1 some failed, 2 a test file,\n"
    "definition or argument is unusable.\n";

namespace {
namespace fs = std::filesystem;
using namespace orl;

struct TTestArgs {
  fs::path Syntax, Host;
  std::vector<fs::path> Inputs;
};

bool ParseArgs(const std::vector<std::string>& args, TTestArgs& parsed) {
  for (size_t i = 0; i < args.size(); ++i) {
    const bool bHasValue = i + 1 < args.size();
    if (args[i] == "--syntax" && bHasValue)
      parsed.Syntax = args[++i];
    else if (args[i] == "--host" && bHasValue)
      parsed.Host = args[++i];
    else if (args[i].starts_with("--"))
      return false;
    else
      parsed.Inputs.emplace_back(args[i]);
  }
  return !parsed.Inputs.empty();
}

/// What a run of tests came to.
struct TTally {
  int Files = 0, FilesFailing = 0, Passed = 0, Failed = 0, Unusable = 0;
};

/// A file of the run could not be tested at all.
struct ETestUnusable {
  std::string Message;
};

bool HasDefinitions(const fs::path& folder) {
  std::error_code ec;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder, ec))
    if (entry.path().extension() == ".gdx") return true;
  return false;
}

/// Definitions, each loaded once for the whole run, and the extensions each
/// definitions folder claims.
class TSyntaxCache {
public:
  TLoadedSyntax& Get(const fs::path& gdx) {
    auto [it, bNew] = FLoaded.try_emplace(gdx.lexically_normal());
    if (bNew) {
      try {
        it->second = LoadSyntax(gdx);
      } catch (const EOrlError& e) {
        FLoaded.erase(it);  // so that every file it should test says why
        throw ETestUnusable{e.what()};
      }
    }
    if (!it->second) throw ETestUnusable{gdx.string() + ": no style set could be loaded"};
    return *it->second;
  }

  /// The nearest folder at or above `dir` that holds definitions.
  const fs::path& FolderAbove(const fs::path& dir) {
    auto [it, bNew] = FFolderAbove.try_emplace(dir);
    if (bNew) {
      for (fs::path p = dir;; p = p.parent_path()) {
        if (HasDefinitions(p)) {
          it->second = p;
          break;
        }
        if (p == p.parent_path()) break;
      }
    }
    return it->second;
  }

  /// The first definition of `folder`, in name order, that claims `extension`.
  fs::path ForExtension(const fs::path& folder, const std::u16string& extension) {
    auto [it, bNew] = FExtensions.try_emplace(folder);
    if (bNew) it->second = IndexExtensions(folder);
    return it->second.ForExtension(extension);
  }

private:
  TExtensionIndex IndexExtensions(const fs::path& folder) {
    std::vector<fs::path> files;
    std::error_code ec;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder, ec))
      if (entry.path().extension() == ".gdx") files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    TExtensionIndex index;
    for (const fs::path& gdx : files) {
      try {
        index.Add(gdx, Get(gdx).Extensions);
      } catch (const ETestUnusable&) {
        continue;  // a broken definition claims nothing; the files it should test report no definition
      }
    }
    return index;
  }

  std::map<fs::path, std::unique_ptr<TLoadedSyntax>> FLoaded;
  std::map<fs::path, fs::path> FFolderAbove;
  std::map<fs::path, TExtensionIndex> FExtensions;
};

/// The NAME of a first line "... syntax: NAME ...", or empty.
std::u16string SyntaxNamed(const std::vector<std::u16string>& lines) {
  if (lines.empty()) return {};
  const std::u16string_view first = lines.front();
  const size_t at = first.find(u"syntax:");
  if (at == std::u16string_view::npos) return {};
  std::u16string_view rest = first.substr(at + 7);
  rest.remove_prefix(std::min(rest.find_first_not_of(u" \t"), rest.size()));
  return std::u16string(rest.substr(0, rest.find_first_of(u" \t")));
}

/// Picks and loads the definition a test file is run under.
class TDefinitionChooser {
public:
  TDefinitionChooser(const TTestArgs& args, TSyntaxCache& cache) : FArgs(args), FCache(cache) {}

  TLoadedSyntax& For(const fs::path& file, const std::vector<std::u16string>& lines) {
    if (!FArgs.Syntax.empty()) return FCache.Get(FArgs.Syntax);
    const fs::path folder = DefinitionsFolder(file);
    const std::u16string name = SyntaxNamed(lines);
    if (!name.empty()) return FCache.Get(Named(folder, name));
    const fs::path gdx = FCache.ForExtension(folder, StringFromPath(file.extension()));
    if (gdx.empty())
      throw ETestUnusable{"no definition in " + folder.string() + " claims the extension '" +
                          file.extension().string() + "'; name one with a first line 'syntax: NAME'"};
    return FCache.Get(gdx);
  }

private:
  fs::path DefinitionsFolder(const fs::path& file) {
    if (!FArgs.Host.empty()) return FArgs.Host / "syntax";
    const fs::path& folder = FCache.FolderAbove(fs::absolute(file).parent_path());
    if (folder.empty())
      throw ETestUnusable{"no folder of definitions lies above the file; name one with --host DIR or --syntax DEF.gdx"};
    return folder;
  }

  static fs::path Named(const fs::path& folder, const std::u16string& name) {
    const fs::path file = PathFromString(name + u".gdx");
    for (const fs::path& candidate : {folder / file, folder / "User defined" / file})
      if (fs::exists(candidate)) return candidate;
    throw ETestUnusable{"no definition named '" + Out(name) + "' in " + folder.string()};
  }

  const TTestArgs& FArgs;
  TSyntaxCache& FCache;
};

TRunName NameAt(const std::vector<TTokenRun>& runs, int column, const TOrlCustomMemoStyles* styles) {
  const auto run = std::find_if(runs.begin(), runs.end(),
                                [&](const TTokenRun& r) { return column >= r.Start && column < r.Start + r.Length; });
  return run == runs.end() ? TRunName{} : ClassifyRun(*run, styles);
}

/// Carets under `columns` of `line`; tabs are kept so that a terminal lines
/// them up, and a surrogate pair takes one place as it shows as one character.
std::string CaretLine(std::u16string_view line, const std::vector<int>& columns) {
  std::string carets;
  for (int column = 1; column <= columns.back(); ++column) {
    const char16_t c = line[size_t(column - 1)];
    if (c >= 0xDC00 && c <= 0xDFFF && column > 1) continue;
    if (std::find(columns.begin(), columns.end(), column) != columns.end())
      carets += '^';
    else
      carets += c == u'\t' ? '\t' : ' ';
  }
  return carets;
}

/// Runs one file's assertions against the runs of its lines.
class TFileRun {
public:
  TFileRun(const fs::path& file, std::ostream& out, TTally& tally) : FFile(file.string()), FOut(out), FTally(tally) {}

  void Check(TLoadedSyntax& syntax, const std::vector<std::u16string>& lines, const TParsedTest& parsed) {
    std::vector<std::vector<TTokenRun>> runs(lines.size());
    ColourLines(syntax, lines, [&](int i, const std::vector<TTokenRun>& lineRuns, const TStyle&) {
      runs[size_t(i)] = lineRuns;
    });
    const int failedBefore = FTally.Failed;
    for (const TAssertion& assertion : parsed.Assertions)
      for (const TExpectation& expected : assertion.Expected)
        Check(assertion, expected, lines[size_t(assertion.Target)], runs[size_t(assertion.Target)],
              syntax.Memo.FStyles);
    if (FTally.Failed > failedBefore) ++FTally.FilesFailing;
  }

private:
  void Check(const TAssertion& assertion, const TExpectation& expected, std::u16string_view line,
             const std::vector<TTokenRun>& runs, const TOrlCustomMemoStyles* styles) {
    std::vector<int> failing;
    TRunName firstActual;
    for (int column : assertion.Columns) {
      const TRunName actual = NameAt(runs, column, styles);
      if (expected.HeldBy(actual)) continue;
      if (failing.empty()) firstActual = actual;
      failing.push_back(column);
    }
    if (failing.empty()) {
      ++FTally.Passed;
      return;
    }
    ++FTally.Failed;
    FOut << FFile << ":" << assertion.Target + 1 << ":" << failing.front() << ": expected " << expected.Text()
         << ", got " << RunNameText(firstActual) << "\n"
         << Out(line) << "\n"
         << CaretLine(line, failing) << "\n";
  }

  std::string FFile;
  std::ostream& FOut;
  TTally& FTally;
};

std::vector<std::u16string> ReadLines(const fs::path& file) {
  try {
    return SplitLines(DecodeText(ReadFileBytes(file), 65001));
  } catch (const EOrlError& e) {
    throw ETestUnusable{e.what()};
  }
}

TAssertionComment CommentOf(const TLoadedSyntax& syntax) {
  const std::optional<TAssertionComment> comment = AssertionCommentOf(*syntax.Memo.FStyles);
  if (!comment)
    throw ETestUnusable{"the definition " + Out(syntax.Memo.FStyles->FFileName) +
                        " has no comment syntax to write assertions in"};
  return *comment;
}

/// A file written with the wrong comment mark would otherwise pass without testing anything.
std::string NoAssertions(const TAssertionComment& comment) {
  return "no assertions: write them as '" + Out(comment.Start) + " ^ CLASS" +
         (comment.End.empty() ? "" : " " + Out(comment.End)) + "' under a line";
}

void ReportErrors(const fs::path& file, const std::vector<TFormatError>& errors, std::ostream& err, TTally& tally) {
  for (const TFormatError& e : errors)
    err << file.string() << ":" << e.Line + 1 << ":" << e.Column << ": error: " << e.Message << "\n";
  ++tally.Unusable;
}

void RunFile(const fs::path& file, TDefinitionChooser& chooser, std::ostream& out, std::ostream& err,
             TTally& tally) {
  ++tally.Files;
  try {
    const std::vector<std::u16string> lines = ReadLines(file);
    TLoadedSyntax& syntax = chooser.For(file, lines);
    const TAssertionComment comment = CommentOf(syntax);
    const TParsedTest parsed = ParseAssertions(lines, comment, *syntax.Memo.FStyles);
    if (!parsed.Errors.empty()) return ReportErrors(file, parsed.Errors, err, tally);
    if (parsed.Assertions.empty()) throw ETestUnusable{NoAssertions(comment)};
    TFileRun(file, out, tally).Check(syntax, lines, parsed);
  } catch (const ETestUnusable& e) {
    err << file.string() << ": error: " << e.Message << "\n";
    ++tally.Unusable;
  } catch (const fs::filesystem_error& e) {
    err << file.string() << ": error: " << e.what() << "\n";
    ++tally.Unusable;
  }
}

/// The files named, with the files below each folder named, in name order.
std::vector<fs::path> TestFiles(const std::vector<fs::path>& inputs, std::ostream& err, TTally& tally) {
  std::vector<fs::path> files;
  for (const fs::path& input : inputs) {
    std::error_code ec;
    if (fs::is_regular_file(input, ec)) {
      files.push_back(input);
      continue;
    }
    if (!fs::is_directory(input, ec)) {
      err << input.string() << ": error: no such file or folder\n";
      ++tally.Unusable;
      continue;
    }
    std::vector<fs::path> found;
    const auto options = fs::directory_options::skip_permission_denied;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(input, options, ec))
      if (entry.is_regular_file() && !entry.path().filename().string().starts_with("."))
        found.push_back(entry.path());
    std::sort(found.begin(), found.end());
    files.insert(files.end(), found.begin(), found.end());
  }
  return files;
}

} // namespace

int RunTest(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
  TTestArgs parsed;
  if (WantsHelp(args) || !ParseArgs(args, parsed)) {
    (WantsHelp(args) ? out : err) << kTestHelp;
    return WantsHelp(args) ? exOk : exUnusable;
  }
  TTally tally;
  const std::vector<fs::path> files = TestFiles(parsed.Inputs, err, tally);
  if (files.empty() && tally.Unusable == 0) {
    err << "gdtool: no test files found\n";
    return exUnusable;
  }
  TSyntaxCache cache;
  TDefinitionChooser chooser(parsed, cache);
  for (const fs::path& file : files) RunFile(file, chooser, out, err, tally);
  out << tally.Files << " test files, " << tally.FilesFailing << " with failures, " << tally.Unusable
      << " unusable\n"
      << "assertions: " << tally.Passed << " passed, " << tally.Failed << " failed\n";
  return tally.Unusable ? exUnusable : tally.Failed ? exProblems : exOk;
}

} // namespace gdtool
