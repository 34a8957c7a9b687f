// gdtool resave: a definition read as the workbench opens it and written as
// the workbench saves it.

#include <ostream>

#include "Console.h"
#include "definition/DefinitionFormat.h"
#include "definition/DefinitionPages.h"
#include "definition/VersionList.h"
#include "platform/FileIO.h"
#include "platform/OrlError.h"

namespace gdtool {

const char* const kResaveHelp =
    "usage: gdtool resave IN.gdx [OUT.gdx] [--host DIR]\n"
    "\n"
    "Reads IN.gdx and IN.ini as the workbench opens them and writes OUT.gdx and\n"
    "OUT.ini (by default IN itself) exactly as the workbench saves them: UTF-16LE,\n"
    "sections and keys in their order, the header comment rebuilt. Comments,\n"
    "blank lines and unknown keys of the rewritten sections do not survive.\n"
    "\n"
    "Author, date and version travel through the version lists _list.ver. With\n"
    "--host DIR they are the host folder's lists, chosen as the workbench chooses\n"
    "them (DIR/syntax/User defined or DIR/syntax). Without it, the _list.ver\n"
    "beside IN is read and the _list.ver beside OUT is updated when it exists.\n"
    "\n"
    "An IN in the older layout is converted as the workbench converts it when it\n"
    "opens one, and written in the current layout; gdtool convert does the same\n"
    "for many files and keeps the originals.\n";

namespace {
using namespace orl;
namespace fs = std::filesystem;

struct TResaveArgs {
  fs::path In, Out, Host;
};

bool ParseArgs(const std::vector<std::string>& args, TResaveArgs& parsed, std::ostream& err) {
  std::vector<std::string> files;
  for (size_t i = 0; i < args.size(); ++i) {
    if (args[i] == "--host" && i + 1 < args.size()) parsed.Host = args[++i];
    else if (args[i].starts_with("--")) {
      err << "gdtool resave: unknown option " << args[i] << "\n";
      return false;
    } else files.push_back(args[i]);
  }
  if (files.empty() || files.size() > 2) {
    err << kResaveHelp;
    return false;
  }
  parsed.In = files[0];
  parsed.Out = files.size() == 2 ? files[1] : files[0];
  return true;
}

/// A folder's own list, beside the definition, for use without a host folder.
fs::path ListBeside(const fs::path& file) { return file.parent_path() / "_list.ver"; }

TVersionInfo ReadVersion(const TResaveArgs& a) {
  const std::u16string base = BaseNameOf(a.In);
  if (!a.Host.empty()) return ReadVersionInfo(TVersionLists(a.Host).ListFor(a.In), base, kLoadingDateDefault);
  TMemIniFileUTF16 list(ListBeside(a.In));
  return ReadVersionInfo(list, base, kLoadingDateDefault);
}

TFileImage VersionListImage(TMemIniFileUTF16& list, const fs::path& out, const TVersionInfo& info) {
  WriteVersionInfo(list, BaseNameOf(out), info);
  return list.FileImage();
}

// The version list joins the pair's files, so that a list that cannot be
// written stops the save before anything is replaced.
void AddVersionList(const TResaveArgs& a, const TVersionInfo& info, std::vector<TFileImage>& files) {
  if (!a.Host.empty()) {
    TVersionLists lists(a.Host);
    files.push_back(VersionListImage(lists.ListFor(a.Out), a.Out, info));
  } else if (FileExists(ListBeside(a.Out))) {
    TMemIniFileUTF16 list(ListBeside(a.Out));
    files.push_back(VersionListImage(list, a.Out, info));
  }
}

} // namespace

bool ResaveDefinition(const fs::path& in, const fs::path& out, const fs::path& host) {
  const TResaveArgs args{in, out, host};
  RequireReadable(in);
  TDefinitionStores stores = LoadDefinitionStores(in);
  TDefinitionPages pages = ReadDefinitionPages(*stores.Gdx, *stores.Ini);
  pages.Version = ReadVersion(args);
  std::vector<TFileImage> files = DefinitionFileImages(pages, *stores.Gdx, *stores.Ini, out, false);
  AddVersionList(args, pages.Version, files);
  WriteFilesAtomic(files);
  return stores.Converted;
}

int RunResave(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
  if (WantsHelp(args)) {
    out << kResaveHelp;
    return exOk;
  }
  TResaveArgs parsed;
  if (!ParseArgs(args, parsed, err)) return exUnusable;
  bool bConverted = false;
  try {
    bConverted = ResaveDefinition(parsed.In, parsed.Out, parsed.Host);
  } catch (const EOrlError& e) {
    err << "gdtool: " << e.what() << "\n";
    return exUnusable;
  }
  out << "saved " << parsed.Out.string() << (bConverted ? " (converted from the older layout)" : "") << "\n";
  return exOk;
}

} // namespace gdtool
