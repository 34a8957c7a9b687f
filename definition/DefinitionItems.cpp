#include "definition/DefinitionItems.h"

#include "definition/DefinitionFormat.h"
#include "platform/Blanks.h"

namespace orl {
namespace {

std::u16string EscapedToLineBreaks(std::u16string_view s) {
  std::u16string out;
  out.reserve(s.size());
  for (size_t i = 0; i < s.size(); ++i) {
    if (s[i] == u'\\' && i + 1 < s.size() && s[i + 1] == u'n') {
      out.push_back(u'\n');
      ++i;
    } else {
      out.push_back(s[i]);
    }
  }
  return out;
}

TCompletionItem ParseCompletionItem(std::u16string_view item) {
  TCompletionItem result;
  if (item.starts_with(u'@')) {
    result.IsGroupReference = true;
    result.Caption = item.substr(0, item.find(u'|'));
    result.ImageLetter = u'@';
    return result;
  }
  const size_t bar = item.find(u'|');
  const size_t textStart = bar == std::u16string_view::npos ? 0 : bar + 1;
  if (bar != std::u16string_view::npos) result.Caption = item.substr(0, bar);
  const size_t plus = item.find(u'+', textStart);
  result.InsertText = item.substr(textStart, plus == std::u16string_view::npos ? item.npos : plus - textStart);
  if (plus != std::u16string_view::npos) {
    const std::u16string_view letter = TrimBlanks(item.substr(plus + 1));
    if (!letter.empty()) result.ImageLetter = letter.back();
  }
  return result;
}

} // namespace

bool IsRegexGroup(std::u16string_view groupName) { return groupName.starts_with(u'#'); }

std::vector<std::u16string> SplitWords(std::u16string_view value) {
  std::vector<std::u16string> words;
  size_t start = 0;
  while (start <= value.size()) {
    size_t bar = value.find(u'|', start);
    if (bar == std::u16string_view::npos) bar = value.size();
    if (bar > start) words.emplace_back(value.substr(start, bar - start));
    start = bar + 1;
  }
  return words;
}

std::vector<TCompletionItem> SplitCompletionItems(std::u16string_view value) {
  std::vector<TCompletionItem> items;
  int previousIndex = 0;
  size_t pos = 0;
  while (pos < value.size()) {
    size_t end = value.find(u'#', pos);
    if (end == std::u16string_view::npos) end = value.size();
    TCompletionItem item = ParseCompletionItem(value.substr(pos, end - pos));
    item.ImageIndex = item.ImageLetter ? ImageIndexOfLetter(item.ImageLetter) : previousIndex;
    previousIndex = item.ImageIndex;
    items.push_back(std::move(item));
    pos = end + 2;
  }
  return items;
}

TUserMenuEntry SplitUserMenuEntry(std::u16string_view value) {
  TUserMenuEntry entry;
  const size_t bar = value.find(u'|');
  entry.Caption = value.substr(0, bar);
  if (bar == std::u16string_view::npos) return entry;
  const std::u16string_view rest = value.substr(bar + 1);
  const size_t plus = rest.rfind(u'+');
  entry.InsertText = rest.substr(0, plus);
  if (plus != std::u16string_view::npos) {
    const std::u16string_view letter = TrimBlanks(rest.substr(plus + 1));
    if (!letter.empty()) entry.ImageLetter = letter.front();
  }
  entry.ImageIndex = ImageIndexOfLetter(entry.ImageLetter);
  return entry;
}

THint SplitHint(std::u16string_view line) {
  THint hint;
  const size_t eq = line.find(u'=');
  const std::u16string_view key = eq == std::u16string_view::npos ? std::u16string_view() : line.substr(0, eq);
  hint.Type = key == u"1" ? 1 : key == u"3" ? 3 : 2;
  const std::u16string_view value = eq == std::u16string_view::npos ? line : line.substr(eq + 1);
  const size_t sep = value.find(kHintSeparator);
  hint.Identifier = EscapedToLineBreaks(value.substr(0, sep));
  if (sep != std::u16string_view::npos) hint.Description = EscapedToLineBreaks(value.substr(sep + 1));
  return hint;
}

} // namespace orl
