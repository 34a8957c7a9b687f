// The text functions that take one line of an older definition apart.

#include "definition/DefinitionItems.h"
#include "definition/IniLines.h"
#include "definition/LegacyConversion.h"

namespace orl::legacy {
namespace {

constexpr size_t npos = std::u16string_view::npos;
constexpr char16_t kQuote = u'"';
constexpr char16_t kBackslash = u'\\';

// The text up to the first `mark`, all of it when there is none.
std::u16string_view CutAt(std::u16string_view text, char16_t mark) { return text.substr(0, text.find(mark)); }

// One quote alone is both the first and the last, and goes once.
void RemoveFirstAndLastQuote(std::u16string& text) {
  const size_t first = text.find(kQuote);
  if (first == npos) return;
  const size_t last = text.rfind(kQuote);
  if (last != first) text.erase(last, 1);
  text.erase(first, 1);
}

void RemoveFirstBackslash(std::u16string& text) {
  const size_t at = text.find(kBackslash);
  if (at != npos) text.erase(at, 1);
}

void RemoveAll(std::u16string& text, char16_t c) { std::erase(text, c); }

// Quotes off, then the escape of a one-character value such as "\t"; a value
// that is a backslash alone stays as it is.
std::u16string UnquoteValue(std::u16string_view text) {
  std::u16string value(text);
  RemoveFirstAndLastQuote(value);
  value = TrimmedCopy(value);
  if (value.size() > 1) RemoveFirstBackslash(value);
  return TrimmedCopy(value);
}

// The older layout wrote a line break inside an insert text as `#12`.
std::u16string WithStoredLineBreaks(std::u16string_view text) {
  constexpr std::u16string_view kOlderLineBreak = u"#12";
  std::u16string result;
  result.reserve(text.size());
  for (size_t at = text.find(kOlderLineBreak); at != npos; at = text.find(kOlderLineBreak)) {
    result.append(text.substr(0, at));
    result += kStoredLineBreak;
    text.remove_prefix(at + kOlderLineBreak.size());
  }
  result.append(text);
  return result;
}

} // namespace

// Only the first `;` and the first `//` are looked at: a later one outside
// the quotes does not cut when the first lies inside them.
std::u16string StripComment(std::u16string_view line) {
  const size_t first = line.find(kQuote), last = line.rfind(kQuote);
  const auto bProtected = [&](size_t at) { return first != last && at > first && at < last; };
  for (std::u16string_view mark : {std::u16string_view(u";"), std::u16string_view(u"//")}) {
    const size_t at = line.find(mark);
    if (at != npos && !bProtected(at)) line = line.substr(0, at);
  }
  return TrimmedCopy(line);
}

std::u16string KeyOf(std::u16string_view line) {
  line = TrimBlanks(line);
  const size_t eq = line.find(u'=');
  if (eq != npos) return TrimmedCopy(line.substr(0, eq));
  return line.starts_with(u'>') ? u">" : u"";
}

std::u16string ValueOf(std::u16string_view line) {
  line = TrimBlanks(line);
  const size_t eq = line.find(u'=');
  if (eq != npos) return UnquoteValue(line.substr(eq + 1));
  return line.starts_with(u'>') ? TrimmedCopy(line.substr(1)) : u"";
}

// A backslash ahead of the quotes is kept: mode code drops a leading one, so
// that `\>` stays a word instead of naming the group. Without quotes there is
// nothing to unescape.
std::u16string WordOf(std::u16string_view line) {
  line = TrimBlanks(line);
  if (line.starts_with(u'>')) return u">";
  const size_t first = line.find(kQuote);
  if (first == npos) return std::u16string(line);
  std::u16string quoted(line.substr(first + 1));
  const size_t last = quoted.rfind(kQuote);
  if (last != npos) quoted.erase(last, 1);
  RemoveAll(quoted, kBackslash);
  return TrimmedCopy(std::u16string(line.substr(0, first)) + quoted);
}

std::u16string HintOf(std::u16string_view line) { return UnquoteValue(TrimBlanks(line)); }

// The `->` in front is the item mark, not part of the caption; for a quoted
// caption the quote cut below removes it anyway.
std::u16string ItemName(std::u16string_view line) {
  std::u16string_view name = CutAt(CutAt(TrimBlanks(line), u'|'), u'+');
  if (name.starts_with(u"->")) name.remove_prefix(2);
  if (const size_t first = name.find(kQuote); first != npos) name.remove_prefix(first + 1);
  if (const size_t last = name.rfind(kQuote); last != npos) name = name.substr(0, last);
  std::u16string result = TrimmedCopy(name);
  RemoveAll(result, kBackslash);
  return TrimmedCopy(result);
}

std::u16string ItemData(std::u16string_view line) {
  line = TrimBlanks(line);
  const size_t bar = line.find(u'|');
  if (bar == npos) return {};
  std::u16string data(CutAt(line.substr(bar + 1), u'+'));
  RemoveFirstAndLastQuote(data);
  data = WithStoredLineBreaks(TrimBlanks(data));
  RemoveAll(data, kBackslash);
  return TrimmedCopy(data);
}

// Without a quote the whole line is searched for the `+`.
char16_t ItemImage(std::u16string_view line) {
  constexpr char16_t kDefaultImage = u'p';
  line = TrimBlanks(line);
  if (const size_t last = line.rfind(kQuote); last != npos) line.remove_prefix(last);
  const size_t plus = line.find(u'+');
  if (plus == npos) return kDefaultImage;
  const std::u16string_view letter = TrimBlanks(line.substr(plus + 1));
  return letter.size() == 1 ? letter.front() : kDefaultImage;
}

std::u16string GroupName(std::u16string_view line) {
  std::u16string name = TrimmedCopy(line);
  if (const size_t first = name.find(kQuote); first != npos) name.erase(first, 1);
  if (const size_t last = name.rfind(kQuote); last != npos) name.erase(last);
  RemoveAll(name, kBackslash);
  return name;
}

} // namespace orl::legacy
