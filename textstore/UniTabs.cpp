#include "textstore/OrlUniUtils.h"

#include <algorithm>

namespace orl {

namespace {

// Fill characters for a tab whose 0-based visual column is `column`.
int TabWidth(size_t column, int TabSize) { return TabSize - int(column % size_t(TabSize)); }

size_t ExpandedLength(std::u16string_view s, int TabSize) {
  size_t column = 0;
  for (char16_t c : s) column += c == u'\t' ? size_t(TabWidth(column, TabSize)) : 1;
  return column;
}

// Writes s with its tabs expanded to `out`, which has room for ExpandedLength.
void ExpandInto(std::u16string_view s, int TabSize, char16_t SpaceChar, char16_t* out) {
  size_t column = 0;
  for (char16_t c : s) {
    if (c != u'\t') {
      out[column++] = c;
      continue;
    }
    const int width = TabWidth(column, TabSize);
    std::fill_n(out + column, width, SpaceChar);
    column += size_t(width);
  }
}

// One tab stop's stretch of expanded text, with the blanks that reach its stop
// turned into a tab when there are at least two.
void AppendStretch(std::u16string& out, std::u16string_view stretch, bool bMayTab) {
  const size_t kept = stretch.find_last_not_of(u' ') + 1;  // npos + 1 == 0: all blanks
  if (bMayTab && stretch.size() - kept >= 2) {
    out.append(stretch.substr(0, kept));
    out.push_back(u'\t');
  } else {
    out.append(stretch);
  }
}

} // namespace

int TOrlUniUtils::WCalcLines(std::u16string_view s) {
  int lines = 1;
  for (size_t i = 0; i < s.size(); ++i) {
    if (s[i] != u'\r' && s[i] != u'\n') continue;
    ++lines;
    if (s[i] == u'\r' && i + 1 < s.size() && s[i + 1] == u'\n') ++i;
  }
  return lines;
}

int TOrlUniUtils::WCalcTabs(std::u16string_view s) { return int(std::ranges::count(s, u'\t')); }

std::u16string TOrlUniUtils::WConvertTabToSpace(std::u16string_view S, int TabSize, bool& bChanged,
                                                char16_t SpaceChar) {
  bChanged = TabSize >= 1 && S.find(u'\t') != std::u16string_view::npos;
  if (!bChanged) return std::u16string(S);
  std::u16string result(ExpandedLength(S, TabSize), u'\0');
  ExpandInto(S, TabSize, SpaceChar, result.data());
  return result;
}

int TOrlUniUtils::WConvertTabToSpaceB(std::u16string_view S, std::u16string& Target, int TabSize,
                                      char16_t SpaceChar) {
  const size_t need = TabSize >= 1 ? ExpandedLength(S, TabSize) : S.size();
  if (Target.size() < need) Target.resize(need + 200);
  if (TabSize >= 1)
    ExpandInto(S, TabSize, SpaceChar, Target.data());
  else
    std::ranges::copy(S, Target.begin());
  return int(need);
}

std::u16string TOrlUniUtils::WConvertSpaceToTab(std::u16string_view S, int TabSize, bool bLeading,
                                                bool& bChanged) {
  bChanged = false;
  if (TabSize < 1 || S.size() < size_t(TabSize)) return std::u16string(S);
  bool bExpanded = false;
  const std::u16string expanded = WConvertTabToSpace(S, TabSize, bExpanded);
  const std::u16string_view text = expanded;
  // With bLeading only stretches that end inside the leading blanks may change.
  const size_t leadingEnd = bLeading ? std::min(text.find_first_not_of(u' '), text.size()) : text.size();
  std::u16string result;
  result.reserve(text.size());
  const size_t tab = size_t(TabSize);
  size_t stop = tab;
  for (; stop <= text.size(); stop += tab) AppendStretch(result, text.substr(stop - tab, tab), stop <= leadingEnd);
  result.append(text.substr(stop - tab));  // the tail reaches no stop
  bChanged = result != S;
  return result;
}

} // namespace orl
