// The completion and user-menu lists of a style set, read from its companion.

#include <set>

#include "definition/DefinitionFormat.h"
#include "definition/DefinitionItems.h"
#include "platform/Blanks.h"
#include "syntax/OrlMemoStyles.h"

namespace orl {
namespace {

constexpr char16_t kMenuOnlyMark = char16_t(187);
constexpr size_t kMinCapacity = 64;

bool IsTagComplete(std::u16string_view section) { return section == sections::TagComplete; }

// Drops what stands between the first `open` and the last `close`, keeping both.
std::u16string EmptyBrackets(std::u16string text, char16_t open, char16_t close) {
  const size_t first = text.find(open);
  const size_t last = text.rfind(close);
  if (first != std::u16string::npos && last != std::u16string::npos && last > first)
    text.erase(first + 1, last - first - 1);
  return text;
}

// A tag-completion key names one tag; "a.b(...)" falls back to the list of
// its bracket-free form, then of its last member.
std::u16string ReadTagCompleteValue(TCompanionIni& ini, std::u16string_view key) {
  const std::u16string bare = EmptyBrackets(EmptyBrackets(std::u16string(key), u'(', u')'), u'[', u']');
  std::u16string value = ini.ReadString(sections::TagComplete, u"*" + bare, u"");
  if (!value.empty() || bare.size() < 2) return value;
  const size_t dot = bare.rfind(u'.', bare.size() - 2);
  if (dot == std::u16string::npos || dot == 0) return value;
  value = ini.ReadString(sections::TagComplete, u"*" + bare.substr(dot), u"");
  if (value.empty()) value = ini.ReadString(sections::TagComplete, u"*" + bare.substr(dot + 1), u"");
  return value;
}

std::u16string ReadKeyListValue(TCompanionIni& ini, std::u16string_view section, std::u16string_view key) {
  const std::u16string name(key);
  std::u16string value = ini.ReadString(section, name, u"");
  if (!value.empty()) return value;
  if (IsTagComplete(section)) return ReadTagCompleteValue(ini, key);
  value = ini.ReadString(section, name + u"+", u"");
  if (value.empty()) value = ini.ReadString(section, name + u"*", u"");
  return value;
}

// `visited` keeps a group that refers to itself, directly or not, from recursing forever.
void AppendKeyList(TCompanionIni& ini, std::u16string_view section, std::u16string_view key,
                   TCompletionItems& items, std::set<std::u16string>& visited) {
  if (!visited.emplace(key).second) return;
  for (TCompletionItem& item : SplitCompletionItems(ReadKeyListValue(ini, section, key))) {
    if (item.IsGroupReference) {
      AppendKeyList(ini, section, item.Caption, items, visited);
      continue;
    }
    std::unique_ptr<TStyleBitmap> bitmap = CreateStyleBitmap(item.ImageLetter);
    if (bitmap) bitmap->Value = std::move(item.InsertText);
    items.Add(std::move(item.Caption), std::move(bitmap));
  }
}

// A trailing "+" or "*" of a tag name picks its image and is not part of the name.
std::pair<std::u16string_view, char16_t> TagNameAndKind(std::u16string_view entry) {
  if (entry.ends_with(u'+')) return {entry.substr(0, entry.size() - 1), u'u'};
  if (entry.ends_with(u'*')) return {entry.substr(0, entry.size() - 1), u'w'};
  return {entry, u't'};
}

void AddTagItem(TCompletionItems& items, std::u16string_view name, char16_t kind, std::u16string value) {
  std::unique_ptr<TStyleBitmap> bitmap = CreateStyleBitmap(kind);
  bitmap->Value = std::move(value);
  items.Add(std::u16string(name), std::move(bitmap));
}

} // namespace

void TOrlCustomMemoStyles::LoadKeyList(std::u16string_view section, std::u16string_view key,
                                       TCompletionItems& items) {
  if (!SynIni) return;
  std::set<std::u16string> visited;
  AppendKeyList(*SynIni, section, key, items, visited);
  if (!IsTagComplete(section)) items.SortOrdinal();
}

// The names of the [TagComplete] groups are the tags; they are read once per set.
void TOrlCustomMemoStyles::LoadTagCompleteOnce(TStringList& list) {
  if (list.Count() > 0) return;
  TStringList lines;
  LoadSection(sections::TagComplete, lines);
  for (int i = 0; i < lines.Count(); ++i)
    if (NameValueSeparator(lines.Strings(i)) != std::u16string::npos) list.Add(lines.Names(i));
}

void TOrlCustomMemoStyles::LoadTagList(TCompletionItems& items) {
  if (!SynIni) return;
  LoadTagCompleteOnce(FTagList);
  if (items.Capacity() < kMinCapacity) items.Reserve(kMinCapacity);
  for (int i = 0; i < FTagList.Count(); ++i) {
    const std::u16string& entry = FTagList.Strings(i);
    if (entry.starts_with(u'/') || entry.starts_with(u'@')) continue;
    const auto [name, kind] = TagNameAndKind(entry);
    AddTagItem(items, name, kind, std::u16string(name));
  }
}

void TOrlCustomMemoStyles::LoadStopTagList(TCompletionItems& items) {
  if (!SynIni) return;
  LoadTagCompleteOnce(FEndTagList);
  for (int i = 0; i < FEndTagList.Count(); ++i) {
    const std::u16string& entry = FEndTagList.Strings(i);
    if (entry.size() < 2 || !entry.starts_with(u'/')) continue;
    const auto [name, kind] = TagNameAndKind(std::u16string_view(entry).substr(1));
    AddTagItem(items, name, kind, std::u16string(name) + u">");
  }
}

void TOrlCustomMemoStyles::LoadUserMenu(TCompletionItems& items, bool bTagComplete) {
  items.Clear();
  if (!SynIni) return;
  if (FMenuList.Count() == 0) LoadSection(sections::UserMenu, FMenuList);
  if (items.Capacity() < size_t(FMenuList.Count())) items.Reserve(size_t(FMenuList.Count()) + 32);
  for (int i = 0; i < FMenuList.Count(); ++i) {
    std::u16string_view value = FMenuList.Strings(i);
    if (const size_t eq = NameValueSeparator(value); eq != std::u16string_view::npos) value.remove_prefix(eq + 1);
    if (bTagComplete && (value.starts_with(kMenuOnlyMark) || value.starts_with(u'&'))) continue;
    TUserMenuEntry entry = SplitUserMenuEntry(value);
    std::unique_ptr<TStyleBitmap> bitmap = CreateStyleBitmap(entry.ImageLetter);
    if (bitmap) bitmap->Value = std::move(entry.InsertText);
    items.Add(std::move(entry.Caption), std::move(bitmap));
  }
}

} // namespace orl
