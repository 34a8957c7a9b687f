// Words and tokens at a position, as completion, copying without a
// selection, the next-occurrence commands and highlighting ask for them.
// A word is a run of characters that are not symbol boundaries (the set
// IsSymbolBoundary tests); a position touches the run it stands in or ends.

#include "editing/OrlMemo.h"

namespace orl {
namespace {

struct TSpan {
  int Start = 0, End = 0;
  bool Empty() const { return End <= Start; }
};

template <typename Pred>
TSpan RunAround(std::u16string_view row, int x, Pred belongs) {
  const int n = int(row.size());
  if (x < 0 || x > n) return {};
  int start = x;
  if (!(x < n && belongs(row[size_t(x)]))) {
    if (x == 0 || !belongs(row[size_t(x - 1)])) return {};
  }
  while (start > 0 && belongs(row[size_t(start - 1)])) --start;
  int end = x;
  while (end < n && belongs(row[size_t(end)])) ++end;
  return {start, end};
}

std::u16string SpanText(std::u16string_view row, TSpan s) {
  return s.Empty() ? std::u16string() : std::u16string(row.substr(size_t(s.Start), size_t(s.End - s.Start)));
}

bool IsNumberChar(char16_t ch) {
  return (ch >= u'0' && ch <= u'9') || (ch >= u'a' && ch <= u'f') || (ch >= u'A' && ch <= u'F') || ch == u'x' ||
         ch == u'X' || ch == u'.';
}

} // namespace

std::u16string TOrlCustomMemo::WordAtXY(int x, int y) {
  if (y < 0 || y >= InternalLines().Count()) return {};
  const std::u16string_view row = InternalLines().GetLineString(y);
  return SpanText(row, RunAround(row, x, [this](char16_t ch) { return !IsSymbolBoundary(ch); }));
}

std::u16string TOrlCustomMemo::FullWordAtCursor() {
  const std::u16string_view row = InternalLines().GetLineString(FCurY);
  return SpanText(row, RunAround(row, FCurX, [](char16_t ch) { return !CharIsWhiteSpace(ch, true); }));
}

std::u16string TOrlCustomMemo::TokenAtXY(int x, int y) {
  std::u16string word = WordAtXY(x, y);
  if (!word.empty()) return word;
  const char16_t ch = CharAtPosX(x, y);
  if (ch == 0 || CharIsWhiteSpace(ch, true)) return {};
  return std::u16string(1, ch);
}

std::u16string TOrlCustomMemo::LeftWordAtCursor() {
  const std::u16string_view row = InternalLines().GetLineString(FCurY);
  const TSpan word = RunAround(row, FCurX, [this](char16_t ch) { return !IsSymbolBoundary(ch); });
  if (word.Empty() || word.Start >= FCurX) return {};
  return SpanText(row, {word.Start, FCurX});
}

std::u16string TOrlCustomMemo::NumberAtCursor() {
  const std::u16string_view row = InternalLines().GetLineString(FCurY);
  const TSpan span = RunAround(row, FCurX, IsNumberChar);
  const std::u16string text = SpanText(row, span);
  if (text.empty() || text[0] < u'0' || text[0] > u'9') return {};
  const bool bHex = text.size() > 2 && text[0] == u'0' && (text[1] == u'x' || text[1] == u'X');
  int dots = 0;
  for (size_t i = bHex ? 2 : 0; i < text.size(); ++i) {
    const char16_t ch = text[i];
    if (ch == u'.') ++dots;
    const bool bDigit = ch >= u'0' && ch <= u'9';
    const bool bAllowed = bHex ? bDigit || (IsNumberChar(ch) && ch != u'.' && ch != u'x' && ch != u'X')
                               : bDigit || ch == u'.';
    if (!bAllowed || dots > 1) return {};
  }
  return text;
}

char16_t TOrlCustomMemo::CharAtPosX(int x, int y) {
  if (y < 0 || y >= InternalLines().Count() || x < 0) return 0;
  const std::u16string_view row = InternalLines().GetLineString(y);
  return size_t(x) < row.size() ? row[size_t(x)] : 0;
}

} // namespace orl
