#pragma once
// The definitions bundled in the host folder, in name order.

#include <algorithm>
#include <filesystem>
#include <vector>

namespace orl::test {

inline std::vector<std::filesystem::path> BundledDefinitions(const std::filesystem::path& hostDir) {
  std::vector<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::directory_iterator(hostDir / "syntax"))
    if (entry.path().extension() == ".gdx") files.push_back(entry.path());
  std::sort(files.begin(), files.end());
  return files;
}

} // namespace orl::test
