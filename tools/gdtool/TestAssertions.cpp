#include "TestAssertions.h"

#include <algorithm>

#include "Console.h"
#include "syntax/OrlMemoStyles.h"

namespace gdtool {

namespace {
using namespace orl;

constexpr TRunClass kRunClasses[] = {rcText, rcKeyword, rcComment, rcString, rcChar,
                                     rcNumber, rcSymbol, rcBlock, rcTag, rcUrl};

bool IsBlank(char16_t c) { return c == u' ' || c == u'\t'; }

size_t SkipBlanks(std::u16string_view s, size_t p) {
  while (p < s.size() && IsBlank(s[p])) ++p;
  return p;
}

std::u16string_view FirstAlternative(std::u16string_view list) { return list.substr(0, list.find(u'|')); }

/// Where the carets or "<-" of an assertion line start, or npos for an ordinary line.
size_t MarkerAt(std::u16string_view line, const TAssertionComment& comment) {
  const size_t p = SkipBlanks(line, 0);
  if (!line.substr(p).starts_with(comment.Start)) return std::u16string_view::npos;
  const size_t q = SkipBlanks(line, p + comment.Start.size());
  const std::u16string_view body = line.substr(q);
  return body.starts_with(u'^') || body.starts_with(u"<-") ? q : std::u16string_view::npos;
}

/// The columns of "<-" or of one or more caret runs; `p` moves behind them.
std::vector<int> ReadColumns(std::u16string_view line, size_t& p) {
  if (line.substr(p).starts_with(u"<-")) {
    p += 2;
    return {1};
  }
  std::vector<int> columns;
  for (;;) {
    while (p < line.size() && line[p] == u'^') columns.push_back(int(++p));
    const size_t next = SkipBlanks(line, p);
    if (next >= line.size() || line[next] != u'^') return columns;
    p = next;
  }
}

std::vector<std::u16string_view> Words(std::u16string_view text) {
  std::vector<std::u16string_view> words;
  for (size_t p = SkipBlanks(text, 0); p < text.size(); p = SkipBlanks(text, p)) {
    const size_t end = std::find_if(text.begin() + std::ptrdiff_t(p), text.end(), IsBlank) - text.begin();
    words.push_back(text.substr(p, end - p));
    p = end;
  }
  return words;
}

template <class TList>
bool HasNamed(const TList& list, std::u16string_view name) {
  return std::any_of(list.begin(), list.end(), [&](const auto& item) { return item->Name == name; });
}

std::string KnownClasses() {
  std::string known;
  for (TRunClass c : kRunClasses) known += (known.empty() ? "" : ", ") + std::string(RunClassName(c));
  return known;
}

/// Reads one assertion line from its marker on.
class TAssertionLine {
public:
  TAssertionLine(const TOrlCustomMemoStyles& styles, const TAssertionComment& comment, TParsedTest& parsed)
      : FStyles(styles), FComment(comment), FParsed(parsed) {}

  void Read(const std::vector<std::u16string>& lines, int lineNo, size_t marker, int target) {
    const std::u16string_view line = lines[size_t(lineNo)];
    FLine = lineNo;
    FMarker = int(marker);
    TAssertion assertion{lineNo, target, ReadColumns(line, marker), {}};
    if (target < 0) return Error("the assertion has no line above to test");
    if (!ColumnsFit(assertion.Columns, lines[size_t(target)], target)) return;
    std::u16string_view body = line.substr(marker);
    if (!FComment.End.empty()) {
      const size_t end = body.find(FComment.End);
      if (end == std::u16string_view::npos) return Error("the assertion's comment is not closed on its line");
      body = body.substr(0, end);
    }
    for (std::u16string_view word : Words(body)) {
      TExpectation expected;
      if (!ReadExpectation(word, expected)) return;
      assertion.Expected.push_back(std::move(expected));
    }
    if (assertion.Expected.empty()) return Error("the assertion names no class");
    FParsed.Assertions.push_back(std::move(assertion));
  }

private:
  void Error(int column0, std::string message) { FParsed.Errors.push_back({FLine, column0 + 1, std::move(message)}); }
  void Error(std::string message) { Error(FMarker, std::move(message)); }

  bool ColumnsFit(const std::vector<int>& columns, std::u16string_view target, int targetNo) {
    const int last = columns.empty() ? 0 : columns.back();
    if (last <= int(target.size())) return true;
    Error(last - 1, "column " + std::to_string(last) + " lies beyond the end of line " + std::to_string(targetNo + 1) +
                        ", which has " + std::to_string(target.size()) + " characters");
    return false;
  }

  bool ReadExpectation(std::u16string_view word, TExpectation& expected) {
    expected.bNegated = word.starts_with(u'!');
    if (expected.bNegated) word.remove_prefix(1);
    const size_t dot = word.find(u'.');
    const std::string className = Out(word.substr(0, dot));
    const auto* found = std::find_if(std::begin(kRunClasses), std::end(kRunClasses),
                                     [&](TRunClass c) { return RunClassName(c) == className; });
    if (found == std::end(kRunClasses)) {
      Error("unknown class '" + className + "'; the classes are " + KnownClasses());
      return false;
    }
    expected.Class = *found;
    if (dot != std::u16string_view::npos) expected.Group = word.substr(dot + 1);
    return expected.Group.empty() || GroupExists(expected);
  }

  bool GroupExists(const TExpectation& expected) {
    const bool bKnown = expected.Class == rcKeyword ? HasNamed(FStyles.FKeyWords, expected.Group)
                        : expected.Class == rcTag   ? HasNamed(FStyles.FTags, expected.Group)
                        : expected.Class == rcBlock ? HasNamed(FStyles.FBlocks, expected.Group)
                                                    : false;
    if (bKnown) return true;
    const std::string className(RunClassName(expected.Class));
    if (expected.Class != rcKeyword && expected.Class != rcTag && expected.Class != rcBlock)
      Error("class '" + className + "' has no groups");
    else
      Error("the definition has no " + className + " group '" + Out(expected.Group) + "'");
    return false;
  }

  const TOrlCustomMemoStyles& FStyles;
  const TAssertionComment& FComment;
  TParsedTest& FParsed;
  int FLine = 0;
  int FMarker = 0;  ///< 0-based column where the carets start
};

} // namespace

std::optional<TAssertionComment> AssertionCommentOf(const TOrlCustomMemoStyles& styles) {
  for (const std::u16string* list : {&styles.FLineCommentA, &styles.FLineCommentB}) {
    const std::u16string_view mark = FirstAlternative(*list);
    if (!mark.empty()) return TAssertionComment{std::u16string(mark), {}};
  }
  // The engine recognises block comment A only with both of its marks.
  if (!styles.FCommentStartA.empty() && !styles.FCommentEndA.empty())
    return TAssertionComment{styles.FCommentStartA, styles.FCommentEndA};
  return std::nullopt;
}

std::string TExpectation::Text() const {
  return (bNegated ? "not " : "") + RunNameText({Class, Group});
}

bool TExpectation::HeldBy(const TRunName& actual) const {
  const bool bMatches = actual.Class == Class && (Group.empty() || actual.Group == Group);
  return bMatches != bNegated;
}

TParsedTest ParseAssertions(const std::vector<std::u16string>& lines, const TAssertionComment& comment,
                            const TOrlCustomMemoStyles& styles) {
  TParsedTest parsed;
  TAssertionLine reader(styles, comment, parsed);
  int target = -1;
  for (size_t i = 0; i < lines.size(); ++i) {
    const size_t marker = MarkerAt(lines[i], comment);
    if (marker == std::u16string_view::npos)
      target = int(i);
    else
      reader.Read(lines, int(i), marker, target);
  }
  return parsed;
}

std::string RunNameText(const TRunName& name) {
  std::string text(RunClassName(name.Class));
  return name.Group.empty() ? text : text + "." + Out(name.Group);
}

} // namespace gdtool
