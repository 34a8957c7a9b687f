#pragma once
// The version lists `_list.ver`: author, date and version of each definition,
// one list for the host's definitions and one for the user's.

#include <filesystem>
#include <memory>
#include <string>

#include "definition/DefinitionPages.h"
#include "definition/MemIni.h"

namespace orl {

inline constexpr std::u16string_view kVersionListName = u"_list.ver";
/// The date a definition shows while it is being loaded and has no entry.
inline constexpr std::u16string_view kLoadingDateDefault = u"2010-01-01";

/// Reads the entry `baseName`; a missing or empty value gives its default.
TVersionInfo ReadVersionInfo(TMemIniFileUTF16& list, std::u16string_view baseName, std::u16string_view dateDefault);
void WriteVersionInfo(TMemIniFileUTF16& list, std::u16string_view baseName, const TVersionInfo& info);

/// The two lists of a host folder, open for the whole run.
class TVersionLists {
public:
  /// Opens `<host>/syntax/_list.ver` and `<host>/syntax/User defined/_list.ver`;
  /// a missing file gives an empty list.
  explicit TVersionLists(const std::filesystem::path& hostFolder);

  /// The user's list when the folder of `fileName`, compared as an exact
  /// string, is `<host>/syntax/User defined`; the host's list otherwise.
  TMemIniFileUTF16& ListFor(const std::filesystem::path& fileName);
  TMemIniFileUTF16& HostList() { return *FVerList; }
  TMemIniFileUTF16& UserList() { return *FUserVerList; }

private:
  std::filesystem::path FUserFolder;
  std::unique_ptr<TMemIniFileUTF16> FVerList;
  std::unique_ptr<TMemIniFileUTF16> FUserVerList;
};

} // namespace orl
