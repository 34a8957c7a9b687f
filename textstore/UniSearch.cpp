#include "textstore/OrlUniUtils.h"

#include <algorithm>

namespace orl {

namespace {

// The 0-based start of a forward search, or npos when no match can fit.
size_t SearchStart(std::u16string_view sub, std::u16string_view s, int Offset) {
  const size_t from = size_t(std::max(Offset, 1) - 1);
  if (sub.empty() || from + sub.size() > s.size()) return std::u16string_view::npos;
  return from;
}

int ToPosition(size_t index) { return index == std::u16string_view::npos ? 0 : int(index) + 1; }

// The pattern folded both ways once, so that each character of the text is
// compared as it stands: "ä" finds "Ä" and "ä" without lowering the text.
class TCaseFreePattern {
public:
  explicit TCaseFreePattern(std::u16string_view sub)
      : FUpper(TOrlUniUtils::OrlWideUppercase(sub)), FLower(TOrlUniUtils::OrlWideLowercase(sub)) {}

  size_t Size() const { return FUpper.size(); }
  bool MatchesAt(std::u16string_view s, size_t start) const {
    for (size_t i = 0; i < FUpper.size(); ++i) {
      const char16_t c = s[start + i];
      if (c != FUpper[i] && c != FLower[i]) return false;
    }
    return true;
  }
  size_t FindForward(std::u16string_view s, size_t from) const {
    for (size_t start = from; start + Size() <= s.size(); ++start)
      if (MatchesAt(s, start)) return start;
    return std::u16string_view::npos;
  }
  size_t FindBackward(std::u16string_view s, size_t last) const {
    if (Size() > s.size()) return std::u16string_view::npos;
    for (size_t start = std::min(last, s.size() - Size()) + 1; start-- > 0;)
      if (MatchesAt(s, start)) return start;
    return std::u16string_view::npos;
  }

private:
  std::u16string FUpper;
  std::u16string FLower;
};

size_t FindWithWildcards(std::u16string_view sub, std::u16string_view s, size_t from) {
  const auto hit = std::search(s.begin() + std::ptrdiff_t(from), s.end(), sub.begin(), sub.end(),
                               [](char16_t text, char16_t pattern) { return text == u'?' || text == pattern; });
  return hit == s.end() ? std::u16string_view::npos : size_t(hit - s.begin());
}

struct TRegExHandlers {
  TPosRegExFunc Pos;
  TRegExReplaceFunc Replace;
};

TRegExHandlers& RegExHandlers() {
  static TRegExHandlers handlers;
  return handlers;
}

} // namespace

int TOrlUniUtils::WPosEx(std::u16string_view SubStr, std::u16string_view S, int Offset, bool bWildcards) {
  const size_t from = SearchStart(SubStr, S, Offset);
  if (from == std::u16string_view::npos) return 0;
  return ToPosition(bWildcards ? FindWithWildcards(SubStr, S, from) : S.find(SubStr, from));
}

int TOrlUniUtils::WNCPosEx(std::u16string_view SubStr, std::u16string_view S, int Offset) {
  const size_t from = SearchStart(SubStr, S, Offset);
  if (from == std::u16string_view::npos) return 0;
  return ToPosition(TCaseFreePattern(SubStr).FindForward(S, from));
}

int TOrlUniUtils::WRPosExBuffer(std::u16string_view SubStr, const char16_t* Buffer, int len, int Offset) {
  if (SubStr.empty() || Offset < 1) return 0;
  return ToPosition(View(Buffer, len).rfind(SubStr, size_t(Offset - 1)));
}

int TOrlUniUtils::WNCRPosExBuffer(std::u16string_view SubStr, const char16_t* Buffer, int len, int Offset) {
  if (SubStr.empty() || Offset < 1) return 0;
  return ToPosition(TCaseFreePattern(SubStr).FindBackward(View(Buffer, len), size_t(Offset - 1)));
}

int TOrlUniUtils::WTextPos(std::u16string_view SubStr, std::u16string_view S, int Offset, int max,
                           bool bLowerCase) {
  const size_t from = size_t(std::max(Offset, 1) - 1);
  if (from >= S.size() || max < 1) return 0;
  const std::u16string_view window = S.substr(from, size_t(max));
  const int found = bLowerCase ? WNCPosEx(SubStr, window) : WPosEx(SubStr, window);
  return found == 0 ? 0 : found + int(from);
}

int TOrlUniUtils::WPosLFCR(std::u16string_view S, int Offset, int& len) {
  const size_t from = size_t(std::max(Offset, 1) - 1);
  const size_t at = from < S.size() ? S.find_first_of(u"\r\n", from) : std::u16string_view::npos;
  if (at == std::u16string_view::npos) {
    len = 0;
    return 0;
  }
  len = S.substr(at, 2) == u"\r\n" ? 2 : 1;
  return int(at) + 1;
}

int TOrlUniUtils::WCountStringsInString(std::u16string_view sub, std::u16string_view s) {
  if (sub.empty()) return 0;
  int count = 0;
  for (size_t at = s.find(sub); at != std::u16string_view::npos; at = s.find(sub, at + sub.size())) ++count;
  return count;
}

int TOrlUniUtils::PosRegEx(std::u16string_view Pattern, std::u16string_view S, int Offset, bool bCase,
                           int& MatchLen) {
  MatchLen = 0;
  const TPosRegExFunc& handler = RegExHandlers().Pos;
  return handler ? handler(Pattern, S, Offset, bCase, MatchLen) : -1;
}

std::u16string TOrlUniUtils::RegExReplace(std::u16string_view S, std::u16string_view Pattern,
                                          std::u16string_view Replacement, bool bCase) {
  const TRegExReplaceFunc& handler = RegExHandlers().Replace;
  return handler ? handler(S, Pattern, Replacement, bCase) : std::u16string(S);
}

void TOrlUniUtils::SetRegExHandlers(TPosRegExFunc posRegEx, TRegExReplaceFunc regExReplace) {
  RegExHandlers() = {std::move(posRegEx), std::move(regExReplace)};
}

} // namespace orl
