#pragma once
// A fresh folder per test, removed afterwards.

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include <unistd.h>

namespace orl::test {

class TTempFolder {
public:
  TTempFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "orltest.XXXXXX").string();
    FPath = ::mkdtemp(pattern.data());
  }
  ~TTempFolder() {
    std::error_code ec;
    std::filesystem::remove_all(FPath, ec);
  }
  const std::filesystem::path& Path() const { return FPath; }
  std::filesystem::path operator/(std::string_view name) const { return FPath / name; }

private:
  std::filesystem::path FPath;
};

inline void WriteBytes(const std::filesystem::path& path, std::string_view bytes) {
  std::ofstream(path, std::ios::binary).write(bytes.data(), std::streamsize(bytes.size()));
}

inline std::string ReadBytes(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  return std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
}

} // namespace orl::test
