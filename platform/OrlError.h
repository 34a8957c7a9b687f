#pragma once
// The one exception family of the project. File errors name their path so a
// message box or a command-line tool can say which file failed.

#include <filesystem>
#include <stdexcept>
#include <string>

namespace orl {

class EOrlError : public std::runtime_error {
public:
  using std::runtime_error::runtime_error;
};

class EFileError : public EOrlError {
public:
  /// `action` is what was attempted ("Cannot open", "Cannot write"), `reason` why it failed.
  EFileError(const std::filesystem::path& path, const std::string& action, const std::string& reason);
  const std::filesystem::path& Path() const { return FPath; }

private:
  std::filesystem::path FPath;
};

} // namespace orl
