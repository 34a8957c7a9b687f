#include "textstore/OrlUniUtils.h"

#include <algorithm>
#include <cstring>

namespace orl {

namespace {

bool IsTrailingBlank(char16_t c) { return c < 33 || c == 0xA0; }
bool IsTrimmed(char16_t c) { return c == u'\t' || c == u' ' || c == 0xA0; }
bool IsZeroWidth(char16_t c) { return (c >= 0x200B && c <= 0x200D) || c == 0xFEFF; }

// 0-based starts of the occurrences to replace, found without overlap.
std::vector<size_t> ReplacementSites(std::u16string_view S, std::u16string_view Search, TReplaceFlags Flags) {
  std::vector<size_t> sites;
  const bool bIgnoreCase = Flags & rfIgnoreCase;
  for (int at = 1;;) {
    const int found = bIgnoreCase ? TOrlUniUtils::WNCPosEx(Search, S, at) : TOrlUniUtils::WPosEx(Search, S, at);
    if (found == 0) break;
    sites.push_back(size_t(found - 1));
    if (!(Flags & rfReplaceAll)) break;
    at = found + int(Search.size());
  }
  return sites;
}

} // namespace

std::u16string TOrlUniUtils::WRemoveTrailing(std::u16string_view S, bool& bChanged) {
  const auto kept = std::ranges::find_if_not(S.rbegin(), S.rend(), IsTrailingBlank);
  const std::u16string_view result = S.substr(0, size_t(S.rend() - kept));
  bChanged = result.size() != S.size();
  return std::u16string(result);
}

std::u16string TOrlUniUtils::WRemoveZeroWidthSpaces(std::u16string_view S, bool& bChanged) {
  std::u16string result(S);
  bChanged = std::erase_if(result, IsZeroWidth) > 0;
  return result;
}

std::u16string TOrlUniUtils::WStringReplace(std::u16string_view S, std::u16string_view Search,
                                            std::u16string_view Replace, TReplaceFlags Flags) {
  const std::vector<size_t> sites = ReplacementSites(S, Search, Flags);
  std::u16string result;
  result.reserve(S.size() + sites.size() * Replace.size() - sites.size() * Search.size());
  size_t copied = 0;
  for (size_t site : sites) {
    result.append(S.substr(copied, site - copied)).append(Replace);
    copied = site + Search.size();
  }
  result.append(S.substr(copied));
  return result;
}

std::u16string_view TOrlUniUtils::WideTrimBuffer(std::u16string_view Buffer) {
  while (!Buffer.empty() && IsTrimmed(Buffer.front())) Buffer.remove_prefix(1);
  while (!Buffer.empty() && IsTrimmed(Buffer.back())) Buffer.remove_suffix(1);
  return Buffer;
}

void TOrlUniUtils::FillWideChar(char16_t* Buffer, int Count, char16_t Value) {
  std::fill_n(Buffer, std::max(Count, 0), Value);
}

std::u16string_view TOrlUniUtils::StrRemoveRight(std::u16string_view Buffer, int Count) {
  Buffer.remove_suffix(std::min(size_t(std::max(Count, 0)), Buffer.size()));
  return Buffer;
}

std::u16string TOrlUniUtils::WBCopy(std::u16string_view Buffer, int Index, int Count) {
  const size_t from = size_t(std::max(Index, 1) - 1);
  if (from >= Buffer.size() || Count < 1) return {};
  return std::u16string(Buffer.substr(from, size_t(Count)));
}

int TOrlUniUtils::WDelete(std::u16string& Buffer, int len, int Index, int Count) {
  if (Index < 1 || Index > len || Count < 1) return len;
  const int removed = std::min(Count, len - Index + 1);
  std::copy(Buffer.begin() + Index - 1 + removed, Buffer.begin() + len, Buffer.begin() + Index - 1);
  return len - removed;
}

int TOrlUniUtils::WInsert(std::u16string_view Source, std::u16string& Buffer, int len, int Index) {
  const size_t at = size_t(std::clamp(Index, 1, len + 1) - 1);
  const size_t newLength = size_t(len) + Source.size();
  if (Buffer.size() < newLength) Buffer.resize(newLength);
  const auto begin = Buffer.begin();
  std::copy_backward(begin + std::ptrdiff_t(at), begin + len, begin + std::ptrdiff_t(newLength));
  std::ranges::copy(Source, begin + std::ptrdiff_t(at));
  return int(newLength);
}

void TOrlUniUtils::WMove(const char16_t* Source, char16_t* Dest, int Count) {
  if (Count > 0) std::memmove(Dest, Source, size_t(Count) * sizeof(char16_t));
}

} // namespace orl
