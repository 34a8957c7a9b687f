#include "quillet/HostDefinitions.h"

#include <algorithm>

#include "definition/DefinitionFormat.h"
#include "definition/MemIni.h"
#include "definition/StringList.h"
#include "definition/VersionList.h"
#include "platform/FileIO.h"
#include "platform/OrlError.h"
#include "syntax/OrlSyntax.h"

namespace orl {
namespace fs = std::filesystem;

namespace {

/// The definitions a version list names, in its order, that exist as files.
std::vector<fs::path> ListedDefinitions(const fs::path& folder) {
  std::vector<fs::path> listed;
  TStringList names;
  try {
    TMemIniFileUTF16 list(folder / PathFromString(kVersionListName));
    list.ReadSections(names);
  } catch (const EOrlError&) {
    return listed;  // an unreadable list names nothing; the folder's files still count
  }
  for (int i = 0; i < names.Count(); ++i) {
    const fs::path gdx = folder / PathFromString(names.Strings(i) + u".gdx");
    if (FileExists(gdx)) listed.push_back(gdx);
  }
  return listed;
}

std::vector<fs::path> DefinitionFiles(const fs::path& folder) {
  std::vector<fs::path> files;
  std::error_code ec;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder, ec))
    if (entry.path().extension() == ".gdx" && entry.is_regular_file(ec)) files.push_back(entry.path());
  std::sort(files.begin(), files.end());
  return files;
}

/// The [StandardExtensions] list, read without building a style set.
std::u16string ExtensionsOf(const fs::path& gdx) {
  TOrlSyntax syntax;
  syntax.OnDebugWrite = [](const std::u16string&, bool) {};
  std::u16string noASP;
  syntax.LoadStyleFromFile(nullptr, StringFromPath(gdx), BaseNameOf(gdx), 1, noASP);
  return syntax.FStandardFileExtensions;
}

} // namespace

THostDefinitions::THostDefinitions(const fs::path& hostFolder) {
  AddFolder(hostFolder / "syntax" / "User defined");
  AddFolder(hostFolder / "syntax");
}

void THostDefinitions::AddFolder(const fs::path& folder) {
  for (const fs::path& gdx : ListedDefinitions(folder)) AddDefinition(gdx);
  for (const fs::path& gdx : DefinitionFiles(folder))
    if (std::find(FDefinitions.begin(), FDefinitions.end(), gdx) == FDefinitions.end()) AddDefinition(gdx);
}

void THostDefinitions::AddDefinition(const fs::path& gdx) {
  FDefinitions.push_back(gdx);
  FIndex.Add(gdx, ExtensionsOf(gdx));
}

} // namespace orl
