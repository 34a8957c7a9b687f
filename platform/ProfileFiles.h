#pragma once
// Direct reads of an ini file, as the system's profile functions give them:
// every call reads the file as it is now, names compare without case, and
// the first of several equal names wins.

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace orl {

/// The value of `key` in `section`, blanks trimmed and one pair of enclosing
/// quotes removed; nothing when the file, section or key is missing.
std::optional<std::u16string> GetPrivateProfileString(const std::filesystem::path& file, std::u16string_view section,
                                                      std::u16string_view key);
/// The lines of `section` in file order, comments and empty lines left out.
std::vector<std::u16string> GetPrivateProfileSection(const std::filesystem::path& file, std::u16string_view section);

} // namespace orl
