#include "textstore/OrlUniUtils.h"

#include <algorithm>

#include "platform/CharCase.h"

namespace orl {

namespace {

template <class TMap> std::u16string MapEach(std::u16string_view s, TMap map) {
  std::u16string result(s);
  std::ranges::transform(result, result.begin(), map);
  return result;
}

// Only a character with two cases carries a case to copy or to take.
bool HasCase(char16_t c) { return SysLowerChar(c) != SysUpperChar(c); }

bool EqualStretches(std::u16string_view a, std::u16string_view b, bool bCase) {
  if (bCase) return a == b;
  return std::ranges::equal(a, b, [](char16_t x, char16_t y) { return SysLowerChar(x) == SysLowerChar(y); });
}

} // namespace

std::u16string TOrlUniUtils::OrlWideLowercase(std::u16string_view s) { return MapEach(s, SysLowerChar); }

std::u16string TOrlUniUtils::OrlWideUppercase(std::u16string_view s) { return MapEach(s, SysUpperChar); }

std::u16string TOrlUniUtils::OrlWideInvertCase(std::u16string_view s) {
  return MapEach(s, [](char16_t c) { return SysIsUpperChar(c) ? SysLowerChar(c) : SysUpperChar(c); });
}

std::u16string TOrlUniUtils::MatchCase(std::u16string_view sFind, std::u16string_view sReplace) {
  std::u16string result(sReplace);
  size_t found = 0;
  bool bUpper = false;
  bool bAnyFound = false;
  for (char16_t& c : result) {
    if (!HasCase(c)) continue;
    while (found < sFind.size() && !HasCase(sFind[found])) ++found;
    if (found < sFind.size()) {
      bUpper = SysIsUpperChar(sFind[found++]);
      bAnyFound = true;
    }
    if (!bAnyFound) break;  // nothing in the found text has a case to give
    c = bUpper ? SysUpperChar(c) : SysLowerChar(c);
  }
  return result;
}

bool TOrlUniUtils::CompInStrings(std::u16string_view s1, std::u16string_view s2, int Index, int len, bool bCase) {
  if (Index < 1 || len < 0) return false;
  const size_t end = size_t(Index - 1) + size_t(len);
  if (s1.size() < end || s2.size() < end) return false;
  return EqualStretches(s1.substr(size_t(Index - 1), size_t(len)), s2.substr(size_t(Index - 1), size_t(len)), bCase);
}

bool TOrlUniUtils::OrlWideStrComp(std::u16string_view s1, std::u16string_view s2) {
  return !s1.empty() && s1 == s2;
}

bool TOrlUniUtils::OrlWideLStrComp(std::u16string_view s1, std::u16string_view s2) {
  return !s1.empty() && s2.starts_with(s1);
}

bool TOrlUniUtils::OrlWStrLComp(std::u16string_view s1, std::u16string_view s2, int len, bool bCase) {
  const size_t n = size_t(std::max(len, 0));
  return EqualStretches(s1.substr(0, n), s2.substr(0, n), bCase);
}

} // namespace orl
