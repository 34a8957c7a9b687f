// gdtool convert: definitions in the older layout, in bulk, to current pairs,
// each written exactly as the workbench writes it after opening and saving it.

#include <ostream>

#include "Console.h"
#include "definition/DefinitionFormat.h"
#include "platform/FileIO.h"
#include "platform/OrlError.h"

namespace gdtool {

const char* const kConvertHelp =
    "usage: gdtool convert OLD... [--out-dir DIR] [--force]\n"
    "\n"
    "Converts definitions in the older layout (one ANSI file whose sections are\n"
    "closed by [end]) to current pairs <name>.gdx and <name>.ini, <name> being\n"
    "OLD's file name without its extension. Each pair holds exactly what opening\n"
    "OLD in the workbench and saving it writes; version entries travel as with\n"
    "resave without --host. The pair goes beside OLD, or into DIR (created when\n"
    "missing).\n"
    "\n"
    "When the new <name>.gdx replaces OLD itself, OLD is kept as <name>.gdx.old.\n"
    "A file already in the current layout is left alone. Apart from <name>.ini,\n"
    "which belongs to the pair, nothing else is overwritten: another existing\n"
    "<name>.gdx or an earlier <name>.gdx.old makes the file fail. --force\n"
    "rewrites current files as resave does and overwrites what stands in the way.\n"
    "\n"
    "One line a file: converted, current (left alone), resaved, or failed with\n"
    "the reason.\n"
    "Exit status: 0 no file failed, 1 some failed, 2 bad arguments.\n";

namespace {
using namespace orl;
namespace fs = std::filesystem;

struct TConvertArgs {
  std::vector<fs::path> Files;
  fs::path OutDir;
  bool bForce = false;
};

bool ParseArgs(const std::vector<std::string>& args, TConvertArgs& parsed, std::ostream& err) {
  for (size_t i = 0; i < args.size(); ++i) {
    if (args[i] == "--force") parsed.bForce = true;
    else if (args[i] == "--out-dir" && i + 1 < args.size()) parsed.OutDir = args[++i];
    else if (args[i].starts_with("--")) {
      err << "gdtool convert: unknown or incomplete option " << args[i] << "\n";
      return false;
    } else parsed.Files.emplace_back(args[i]);
  }
  if (parsed.Files.empty()) {
    err << kConvertHelp;
    return false;
  }
  return true;
}

bool MakeOutDir(const fs::path& dir, std::ostream& err) {
  std::error_code ec;
  if (dir.empty() || fs::is_directory(dir, ec) || fs::create_directories(dir, ec)) return true;
  err << "gdtool convert: cannot use " << dir.string() << " as output folder: " << ec.message() << "\n";
  return false;
}

fs::path TargetOf(const fs::path& old, const TConvertArgs& a) {
  const fs::path folder = a.OutDir.empty() ? old.parent_path() : a.OutDir;
  return folder / fs::path(old.stem()).concat(".gdx");
}

bool SameFile(const fs::path& a, const fs::path& b) {
  std::error_code ec;
  return fs::equivalent(a, b, ec);
}

// Raises the reason a file fails when `path` is in the way and may not be overwritten.
void RequireFree(const fs::path& path, const TConvertArgs& a) {
  if (!a.bForce && FileExists(path)) throw EOrlError(path.string() + " exists (--force overwrites it)");
}

// The report line of one file; raises the reason it failed.
std::string ConvertOne(const fs::path& old, const TConvertArgs& a) {
  const TFileRecognition recognition = RecogniseDefinitionFile(old);
  RequireReadable(old);
  const bool bOlder = !recognition.IsCurrentLayout();
  if (!bOlder && !a.bForce) return "current " + old.string() + " (left alone)";
  const fs::path target = TargetOf(old, a);
  std::string kept;
  if (!SameFile(old, target)) RequireFree(target, a);
  else if (bOlder) {
    const fs::path backup = fs::path(old).concat(".old");
    RequireFree(backup, a);
    WriteFileAtomic(backup, ReadFileBytes(old));
    kept = " (original kept as " + backup.string() + ")";
  }
  try {
    ResaveDefinition(old, target, {});
  } catch (...) {
    // OLD still stands as it was; a backup left behind would block the next try.
    if (!kept.empty()) fs::remove(fs::path(old).concat(".old"));
    throw;
  }
  return (bOlder ? "converted " : "resaved ") + old.string() + " -> " + target.string() + kept;
}

} // namespace

int RunConvert(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
  if (WantsHelp(args)) {
    out << kConvertHelp;
    return exOk;
  }
  TConvertArgs parsed;
  if (!ParseArgs(args, parsed, err) || !MakeOutDir(parsed.OutDir, err)) return exUnusable;
  int status = exOk;
  for (const fs::path& old : parsed.Files) {
    try {
      out << ConvertOne(old, parsed) << "\n";
    } catch (const EOrlError& e) {
      out << "failed " << old.string() << ": " << e.what() << "\n";
      status = exProblems;
    }
  }
  return status;
}

} // namespace gdtool
