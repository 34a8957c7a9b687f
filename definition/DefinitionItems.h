#pragma once
// The values of the group and entry sections split into their parts: words
// of a keyword or tag group, items of a completion group, a user-menu entry
// and a hint.

#include <string>
#include <string_view>
#include <vector>

namespace orl {

/// The separator of the two fields of a hint (U+00A6).
inline constexpr char16_t kHintSeparator = u'\u00A6';
/// How a line break inside an insert text is stored.
inline constexpr char16_t kStoredLineBreak = u'\f';

/// True for a `[Keywords]` group whose value is one regular expression.
bool IsRegexGroup(std::u16string_view groupName);
/// The words of a group value `a|b|c|`; empty pieces are not words.
std::vector<std::u16string> SplitWords(std::u16string_view value);

struct TCompletionItem {
  std::u16string Caption;
  std::u16string InsertText;  ///< as stored: line breaks as U+000C
  char16_t ImageLetter = 0;   ///< 0 when the item has none of its own
  int ImageIndex = 0;
  bool IsGroupReference = false;  ///< `@group`: pulls in that group; Caption holds the `@` name
};
/// Items of an `[AutoComplete]` or `[TagComplete]` value, each ended by `##`.
/// An item without a letter takes the image of the item before it.
std::vector<TCompletionItem> SplitCompletionItems(std::u16string_view value);

struct TUserMenuEntry {
  std::u16string Caption;
  std::u16string InsertText;  ///< as stored: line breaks as U+000C
  char16_t ImageLetter = 0;
  int ImageIndex = 0;
};
/// `caption|insert text+letter`: the insert text ends at the last `+`.
TUserMenuEntry SplitUserMenuEntry(std::u16string_view value);

struct THint {
  int Type = 2;               ///< 1, 2 or 3, from the key
  std::u16string Identifier;  ///< the first field: identifier or signature
  std::u16string Description; ///< the second field
};
/// A `[Hints]` line `key=first¦second`; `\n` in a field becomes a line break.
THint SplitHint(std::u16string_view line);

} // namespace orl
