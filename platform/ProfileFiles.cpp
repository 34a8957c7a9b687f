#include "platform/ProfileFiles.h"

#include "platform/Blanks.h"
#include "platform/CodePages.h"
#include "platform/Collation.h"
#include "platform/FileIO.h"
#include "platform/OrlError.h"

namespace orl {
namespace {

/// The file's lines; a file that cannot be read has none.
std::vector<std::u16string> ProfileLines(const std::filesystem::path& file) {
  try {
    return SplitLines(DecodeText(ReadFileBytes(file), SystemAnsiCodePage()));
  } catch (const EOrlError&) {
    return {};
  }
}

bool IsHeader(std::u16string_view line) { return line.size() >= 2 && line.front() == u'[' && line.back() == u']'; }

/// Calls `take` with each trimmed line of the first section named `section`.
template <typename TTake>
void ForSectionLines(const std::vector<std::u16string>& lines, std::u16string_view section, TTake take) {
  bool bInside = false;
  for (const std::u16string& raw : lines) {
    const std::u16string_view line = TrimBlanks(raw);
    if (line.empty() || line.front() == u';') continue;
    if (IsHeader(line)) {
      if (bInside) return;
      bInside = SameTextFolded(TrimBlanks(line.substr(1, line.size() - 2)), section);
    } else if (bInside && !take(line)) {
      return;
    }
  }
}

std::u16string Unquoted(std::u16string_view value) {
  if (value.size() >= 2 && (value.front() == u'"' || value.front() == u'\'') && value.back() == value.front())
    value = value.substr(1, value.size() - 2);
  return std::u16string(value);
}

} // namespace

std::optional<std::u16string> GetPrivateProfileString(const std::filesystem::path& file, std::u16string_view section,
                                                      std::u16string_view key) {
  std::optional<std::u16string> result;
  ForSectionLines(ProfileLines(file), section, [&](std::u16string_view line) {
    const size_t eq = line.find(u'=');
    if (eq == std::u16string_view::npos || !SameTextFolded(TrimBlanks(line.substr(0, eq)), key)) return true;
    result = Unquoted(TrimBlanks(line.substr(eq + 1)));
    return false;
  });
  return result;
}

std::vector<std::u16string> GetPrivateProfileSection(const std::filesystem::path& file, std::u16string_view section) {
  std::vector<std::u16string> result;
  ForSectionLines(ProfileLines(file), section, [&](std::u16string_view line) {
    result.emplace_back(line);
    return true;
  });
  return result;
}

} // namespace orl
