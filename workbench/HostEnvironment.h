#pragma once
// What the workbench finds before its first form exists: the host folder, the
// host editor's settings and the language file.

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "definition/MemIni.h"

namespace orl {

/// Texts of the user interface by section and id, with a fallback.
class TLanguageTexts {
public:
  TLanguageTexts() = default;
  explicit TLanguageTexts(std::unique_ptr<TMemIniFileW> file) : FFile(std::move(file)) {}

  /// The text, or `fallback` when the file is missing or the text empty.
  std::u16string Text(std::u16string_view section, std::u16string_view id, std::u16string_view fallback = {}) const;
  /// The same without `&`, for tool tips.
  std::u16string Hint(std::u16string_view section, std::u16string_view id, std::u16string_view fallback = {}) const;
  /// A text of the workbench's own section.
  std::u16string GrammarDesk(std::u16string_view id, std::u16string_view fallback = {}) const {
    return Text(u"GrammarDesk", id, fallback);
  }
  bool IsOpen() const { return FFile != nullptr; }
  /// The language file's own text, without any fallback.
  std::optional<std::u16string> FileText(std::u16string_view section, std::u16string_view id) const;

private:
  std::unique_ptr<TMemIniFileW> FFile;
};

struct THostEnvironment {
  std::filesystem::path ProgramFile;
  bool InstallDataPresent = false;
  std::filesystem::path HostFolder;
  std::unique_ptr<TMemIniFileUTF16> SettingsIni;  ///< Quillet.ini, null when missing
  TLanguageTexts Language;

  std::filesystem::path SyntaxFolder() const { return HostFolder / "syntax"; }
  std::filesystem::path UserSyntaxFolder() const { return HostFolder / "syntax" / "User defined"; }
  std::filesystem::path CrashDataFolder() const { return HostFolder / "temp"; }
};

/// The per-user data folder + "Orl Quillet" when `InstallData` stands beside
/// the program, else the parent of the program's folder.
std::filesystem::path GetHostFolder(const std::filesystem::path& programFile, bool bInstallDataPresent);

/// Finds the host folder of `programFile` and opens its settings and language
/// file. Files that are missing or unreadable leave their store closed.
THostEnvironment InitialiseHost(const std::filesystem::path& programFile);
/// Opens the settings and the language file of `host.HostFolder`, as
/// InitialiseHost does, for a program that lives in the host folder itself.
void OpenHostFiles(THostEnvironment& host);

} // namespace orl
