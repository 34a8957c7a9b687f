#pragma once
// Where the program and the user's data live.

#include <filesystem>

namespace orl {

/// The running program's own file.
std::filesystem::path ProgramFilePath();
/// The per-user roaming data folder: $XDG_DATA_HOME, else ~/.local/share.
std::filesystem::path UserRoamingDataFolder();

} // namespace orl
