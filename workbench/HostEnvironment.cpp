#include "workbench/HostEnvironment.h"

#include "platform/FileIO.h"
#include "platform/OrlError.h"
#include "platform/ShellFolders.h"

namespace orl {
namespace fs = std::filesystem;

std::u16string TLanguageTexts::Text(std::u16string_view section, std::u16string_view id,
                                    std::u16string_view fallback) const {
  std::u16string text = FFile ? FFile->ReadString(section, id, u"") : std::u16string();
  return text.empty() ? std::u16string(fallback) : text;
}

fs::path GetHostFolder(const fs::path& programFile, bool bInstallDataPresent) {
  if (bInstallDataPresent) return UserRoamingDataFolder() / "Orl Quillet";
  return programFile.parent_path().parent_path();
}

namespace {

// A settings or language file that cannot be read counts as missing.
std::unique_ptr<TMemIniFile> OpenIfPresent(const fs::path& path) {
  if (!FileExists(path)) return nullptr;
  try {
    return std::make_unique<TMemIniFile>(StringFromPath(path));
  } catch (const EOrlError&) {
    return nullptr;
  }
}

} // namespace

THostEnvironment InitialiseHost(const fs::path& programFile) {
  THostEnvironment host;
  host.ProgramFile = programFile;
  std::error_code ec;
  host.InstallDataPresent = fs::is_directory(programFile.parent_path() / "InstallData", ec);
  host.HostFolder = GetHostFolder(programFile, host.InstallDataPresent);
  host.SettingsIni = OpenIfPresent(host.HostFolder / "Quillet.ini");
  if (host.SettingsIni) {
    const std::u16string language = host.SettingsIni->ReadString(u"Customize", u"Language", u"eng.ini");
    host.Language = TLanguageTexts(OpenIfPresent(host.HostFolder / "Language" / PathFromString(language)));
  }
  return host;
}

} // namespace orl
