#include "textstore/OrlUniUtils.h"

#include <algorithm>
#include <array>
#include <fstream>

#include "platform/FileIO.h"

namespace orl {

namespace {

bool IsContinuationByte(uint8_t b) { return (b & 0xC0) == 0x80; }
bool IsLeadByte(uint8_t b) { return (b & 0xC0) == 0xC0; }

// Continuation bytes after a lead byte count for UTF-8, after a 7-bit byte
// against it. Pairs are not looked for across the edge of a block.
void CountPairs(std::span<const char> block, int& good, int& bad) {
  for (size_t i = 1; i < block.size(); ++i) {
    const auto previous = uint8_t(block[i - 1]);
    if (!IsContinuationByte(uint8_t(block[i]))) continue;
    if (IsLeadByte(previous))
      ++good;
    else if (previous < 0x80)
      ++bad;
  }
}

bool IsAnsiChar(char16_t c) { return c >= 32 && c <= 255; }

} // namespace

std::u16string TOrlUniUtils::ASCIITostring(std::string_view s) {
  std::u16string result(s.size(), u'\0');
  std::ranges::transform(s, result.begin(), [](char c) { return char16_t(uint8_t(c)); });
  return result;
}

std::string TOrlUniUtils::stringToASCII(std::u16string_view s) {
  std::string result(s.size(), '\0');
  std::ranges::transform(s, result.begin(), [](char16_t c) { return char(uint8_t(c)); });
  return result;
}

bool TOrlUniUtils::FileMayBeUTF8(const std::filesystem::path& FileName) {
  if (!FileExists(FileName)) return false;
  std::ifstream in(FileName, std::ios::binary);
  std::array<char, 128> block;
  int good = 0;
  int bad = 0;
  while (in.read(block.data(), block.size()) || in.gcount() > 0)
    CountPairs(std::span<const char>(block.data(), size_t(in.gcount())), good, bad);
  return good >= bad;
}

bool TOrlUniUtils::IsAlphaNumeric(std::u16string_view w) {
  return std::ranges::any_of(w, [](char16_t c) {
    return c == u'\t' || c == u' ' || (c >= u'0' && c <= u'9') || (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z');
  });
}

bool TOrlUniUtils::IsAnsi(std::u16string_view w, int len) {
  return std::ranges::none_of(w.substr(0, size_t(std::max(len, 0))), [](char16_t c) { return c >= 256; });
}

bool TOrlUniUtils::IsStringAnsi(std::u16string_view s) { return std::ranges::all_of(s, IsAnsiChar); }

bool TOrlUniUtils::IsStringAnsiBetween(std::u16string_view s, int x1, int x2) {
  const size_t first = size_t(std::max(x1, 1) - 1);
  const size_t last = x2 < 1 ? s.size() : std::min(size_t(x2), s.size());
  if (first >= last) return true;
  return std::ranges::none_of(s.substr(first, last - first), [](char16_t c) { return c > 255 || c == u'\t'; });
}

} // namespace orl
