#include "definition/VersionList.h"

#include "platform/FileIO.h"

namespace orl {
// An empty value reads as missing in these lists, so it shows the default too.
TVersionInfo ReadVersionInfo(TMemIniFileUTF16& list, std::u16string_view baseName, std::u16string_view dateDefault) {
  const TVersionInfo defaults;
  TVersionInfo info;
  info.Author = list.ReadString(baseName, u"Author", defaults.Author);
  info.Date = list.ReadString(baseName, u"VersionString", dateDefault);
  info.Version = list.ReadString(baseName, u"Version", defaults.Version);
  return info;
}

void WriteVersionInfo(TMemIniFileUTF16& list, std::u16string_view baseName, const TVersionInfo& info) {
  list.WriteString(baseName, u"Author", info.Author);
  list.WriteString(baseName, u"VersionString", info.Date);
  list.WriteString(baseName, u"Version", info.Version);
}

TVersionLists::TVersionLists(const std::filesystem::path& hostFolder)
    : FUserFolder(hostFolder / "syntax" / "User defined"),
      FVerList(std::make_unique<TMemIniFileUTF16>(hostFolder / "syntax" / "_list.ver")),
      FUserVerList(std::make_unique<TMemIniFileUTF16>(FUserFolder / "_list.ver")) {}

TMemIniFileUTF16& TVersionLists::ListFor(const std::filesystem::path& fileName) {
  return fileName.parent_path().native() == FUserFolder.native() ? *FUserVerList : *FVerList;
}

} // namespace orl
