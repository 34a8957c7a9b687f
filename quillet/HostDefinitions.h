#pragma once
// The definitions of the host folder and the file extensions they claim, so
// that each opened file is coloured by the definition of its language.

#include <filesystem>
#include <vector>

#include "syntax/ExtensionIndex.h"

namespace orl {

class THostDefinitions {
public:
  /// Indexes `<host>/syntax/User defined` before `<host>/syntax`, so that a
  /// user's definition wins over the host's for the same extension. Within a
  /// folder the definitions its version list names come first, in the
  /// list's order, then any other `.gdx` of the folder by name. A definition
  /// that cannot be read claims nothing.
  explicit THostDefinitions(const std::filesystem::path& hostFolder);

  /// The definition for `file` by its extension, empty when none claims it.
  std::filesystem::path ForFile(const std::filesystem::path& file) const { return FIndex.ForFile(file); }
  /// Every definition found, in the order they claimed extensions.
  const std::vector<std::filesystem::path>& Definitions() const { return FDefinitions; }

private:
  void AddFolder(const std::filesystem::path& folder);
  void AddDefinition(const std::filesystem::path& gdx);

  TExtensionIndex FIndex;
  std::vector<std::filesystem::path> FDefinitions;
};

} // namespace orl
