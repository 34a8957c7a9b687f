#pragma once
// Which definition claims a file extension. Definitions name their extensions
// in lists like ".cpp|.h|"; the first definition added that lists an
// extension keeps it, and extensions compare without letter case.

#include <filesystem>
#include <map>
#include <string>
#include <string_view>

namespace orl {

class TExtensionIndex {
public:
  /// Lets `definition` claim each extension of `extensionList` that no
  /// definition added before claims.
  void Add(const std::filesystem::path& definition, std::u16string_view extensionList);
  /// The definition claiming `extension` (with its dot), empty when none does.
  std::filesystem::path ForExtension(std::u16string_view extension) const;
  /// The definition claiming the extension of `file`, empty when none does.
  std::filesystem::path ForFile(const std::filesystem::path& file) const;
  bool Empty() const { return FClaims.empty(); }

private:
  std::map<std::u16string, std::filesystem::path> FClaims;  ///< lower-cased extension -> definition
};

} // namespace orl
