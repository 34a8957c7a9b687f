#include "workbench/HostEnvironment.h"

#include "platform/FileIO.h"
#include "platform/OrlError.h"
#include "platform/ShellFolders.h"

namespace orl {
namespace fs = std::filesystem;

std::u16string TLanguageTexts::Text(std::u16string_view section, std::u16string_view id,
                                    std::u16string_view fallback) const {
  std::u16string text(fallback);
  if (FFile) FFile->ReadWideString(section, id, fallback, text);
  return text;
}

std::u16string TLanguageTexts::Hint(std::u16string_view section, std::u16string_view id,
                                    std::u16string_view fallback) const {
  std::u16string text(fallback);
  if (FFile) FFile->ReadWideStringHint(section, id, fallback, text);
  else std::erase(text, u'&');
  return text;
}

fs::path GetHostFolder(const fs::path& programFile, bool bInstallDataPresent) {
  if (bInstallDataPresent) return UserRoamingDataFolder() / "Orl Quillet";
  return programFile.parent_path().parent_path();
}

namespace {

// A settings file that cannot be read counts as missing.
std::unique_ptr<TMemIniFileUTF16> OpenSettings(const fs::path& path) {
  if (!FileExists(path)) return nullptr;
  try {
    return std::make_unique<TMemIniFileUTF16>(StringFromPath(path));
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
  host.SettingsIni = OpenSettings(host.HostFolder / "Quillet.ini");
  if (host.SettingsIni) {
    const std::u16string language = host.SettingsIni->ReadString(u"Customize", u"Language", u"eng.ini");
    const fs::path languageFile = host.HostFolder / "Language" / PathFromString(language);
    if (FileExists(languageFile)) host.Language = TLanguageTexts(std::make_unique<TMemIniFileW>(StringFromPath(languageFile)));
  }
  return host;
}

} // namespace orl
