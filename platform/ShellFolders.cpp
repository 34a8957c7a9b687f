#include "platform/ShellFolders.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>

namespace orl {

std::filesystem::path ProgramFilePath() {
  std::error_code ec;
  return std::filesystem::read_symlink("/proc/self/exe", ec);
}

std::filesystem::path UserRoamingDataFolder() {
  if (const char* xdg = std::getenv("XDG_DATA_HOME"); xdg && *xdg == '/') return xdg;
  const char* home = std::getenv("HOME");
  if (!home || !*home) {
    const passwd* pw = ::getpwuid(::getuid());
    home = pw ? pw->pw_dir : "/tmp";
  }
  return std::filesystem::path(home) / ".local" / "share";
}

} // namespace orl
