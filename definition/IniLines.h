#pragma once
// The shape of ini lines, shared by the stores: blanks, section headers and
// `name=value` lines.

#include <filesystem>
#include <string>
#include <string_view>

#include "platform/Blanks.h"

namespace orl {

inline std::u16string TrimmedCopy(std::u16string_view s) { return std::u16string(TrimBlanks(s)); }

/// `[...]` opens a section: the first character is `[` and the last `]`.
inline bool IsSectionHeader(std::u16string_view line) {
  return line.size() >= 2 && line.front() == u'[' && line.back() == u']';
}

/// The trimmed name of a section header line.
inline std::u16string SectionNameOf(std::u16string_view header) {
  return TrimmedCopy(header.substr(1, header.size() - 2));
}

/// Takes a new file name and, with `bReload`, loads from it; a load that
/// fails keeps the old name, so the store stays as it was.
template <typename TLoad>
void RenameFile(std::filesystem::path& fileName, std::filesystem::path newName, bool bReload, TLoad load) {
  std::filesystem::path previous = std::move(fileName);
  fileName = std::move(newName);
  if (!bReload) return;
  try {
    load();
  } catch (...) {
    fileName = std::move(previous);
    throw;
  }
}

inline std::u16string KeyLine(std::u16string_view ident, std::u16string_view value) {
  std::u16string line(ident);
  line += u'=';
  line += value;
  return line;
}

} // namespace orl
