#include "workbench/HostEnvironment.h"

#include "platform/FileIO.h"
#include "platform/OrlError.h"
#include "platform/ShellFolders.h"
#include "workbench/EnglishTexts.h"

namespace orl {
namespace fs = std::filesystem;

namespace {
// What a text falls back to: the built-in English one, else the caller's.
std::u16string_view DefaultText(std::u16string_view section, std::u16string_view id, std::u16string_view fallback) {
  const std::u16string_view english = EnglishText(section, id);
  return english.empty() ? fallback : english;
}
} // namespace

std::u16string TLanguageTexts::Text(std::u16string_view section, std::u16string_view id,
                                    std::u16string_view fallback) const {
  const std::u16string_view def = DefaultText(section, id, fallback);
  std::u16string text(def);
  if (FFile) FFile->ReadWideString(section, id, def, text);
  return text;
}

std::optional<std::u16string> TLanguageTexts::FileText(std::u16string_view section, std::u16string_view id) const {
  std::u16string text;
  if (FFile && FFile->ReadWideString(section, id, u"", text)) return text;
  return std::nullopt;
}

std::u16string TLanguageTexts::Hint(std::u16string_view section, std::u16string_view id,
                                    std::u16string_view fallback) const {
  const std::u16string_view def = DefaultText(section, id, fallback);
  std::u16string text(def);
  if (FFile) FFile->ReadWideStringHint(section, id, def, text);
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
    return std::make_unique<TMemIniFileUTF16>(path);
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
  OpenHostFiles(host);
  return host;
}

void OpenHostFiles(THostEnvironment& host) {
  host.SettingsIni = OpenSettings(host.HostFolder / "Quillet.ini");
  if (host.SettingsIni) {
    const std::u16string language = host.SettingsIni->ReadString(u"Customize", u"Language", u"eng.ini");
    const fs::path languageFile = host.HostFolder / "Language" / PathFromString(language);
    if (FileExists(languageFile)) host.Language = TLanguageTexts(std::make_unique<TMemIniFileW>(languageFile));
  }
}

} // namespace orl
