#include "definition/VersionList.h"

#include "platform/FileIO.h"

namespace orl {
namespace {

std::u16string ReadOrDefault(TMemIniFile& list, std::u16string_view section, std::u16string_view key,
                             std::u16string_view def) {
  std::u16string value = list.ReadString(section, key, def);
  return value.empty() ? std::u16string(def) : value;
}

} // namespace

TVersionInfo ReadVersionInfo(TMemIniFile& list, std::u16string_view baseName, std::u16string_view dateDefault) {
  const TVersionInfo defaults;
  TVersionInfo info;
  info.Author = ReadOrDefault(list, baseName, u"Author", defaults.Author);
  info.Date = ReadOrDefault(list, baseName, u"VersionString", dateDefault);
  info.Version = ReadOrDefault(list, baseName, u"Version", defaults.Version);
  return info;
}

void WriteVersionInfo(TMemIniFile& list, std::u16string_view baseName, const TVersionInfo& info) {
  list.WriteString(baseName, u"Author", info.Author);
  list.WriteString(baseName, u"VersionString", info.Date);
  list.WriteString(baseName, u"Version", info.Version);
}

TVersionLists::TVersionLists(const std::filesystem::path& hostFolder)
    : FUserFolder(hostFolder / "syntax" / "User defined"),
      FVerList(std::make_unique<TMemIniFile>(StringFromPath(hostFolder / "syntax" / "_list.ver"))),
      FUserVerList(std::make_unique<TMemIniFile>(StringFromPath(FUserFolder / "_list.ver"))) {}

TMemIniFile& TVersionLists::ListFor(const std::filesystem::path& fileName) {
  return fileName.parent_path().native() == FUserFolder.native() ? *FUserVerList : *FVerList;
}

} // namespace orl
