#pragma once
// Definition pairs written into a temporary folder, as the workbench saves them.

#include <string>

#include "TempFolder.h"
#include "platform/CodePages.h"

namespace orl::test {

/// Writes `text` (lines joined by "\n") as UTF-16LE with a mark and CR LF endings.
inline std::filesystem::path WriteDefinitionFile(const TTempFolder& folder, std::string_view name,
                                                 std::u16string_view text) {
  std::u16string crlf;
  for (char16_t c : text) {
    if (c == u'\n') crlf += u'\r';
    crlf += c;
  }
  const std::filesystem::path path = folder / name;
  WriteBytes(path, EncodeUtf16LE(crlf, true));
  return path;
}

inline std::u16string U16(const std::filesystem::path& path) { return path.u16string(); }

} // namespace orl::test
