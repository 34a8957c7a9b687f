#pragma once
// The definition format as data: which sections the two files hold, the keys
// of each section in grid order with their kinds and defaults, the numbered
// rule keys, the words and letters with a fixed meaning, and the header
// comment that marks a current-layout file.

#include <filesystem>
#include <span>
#include <string>
#include <string_view>

namespace orl {

/// How a value is written and shown.
enum class TValueKind {
  vkText,  ///< any text; written only when not empty (rule keys: always)
  vkChar,  ///< text of which the engine takes the first character
  vkList,  ///< alternatives separated by `|`, none behind the last
  vkFlag,  ///< "1" or "0", always written; shown as Yes/No
  vkLevel, ///< "0", "1" or "2", written like text
};

/// One key of a section, in the order of its grid.
struct TKeySpec {
  int Row;                      ///< 1-based row in the grid
  std::u16string_view Key;      ///< key in the file (for rules: the suffix, `_Name`)
  TValueKind Kind;
  std::u16string_view Default;  ///< value when the key is missing
  std::u16string_view RowName;  ///< name shown in the grid's left column
};

namespace sections {
// <name>.gdx
inline constexpr std::u16string_view StandardExtensions = u"StandardExtensions";
inline constexpr std::u16string_view Options = u"Options";
inline constexpr std::u16string_view FoldOptions = u"FoldOptions";
inline constexpr std::u16string_view Region = u"Region";
inline constexpr std::u16string_view Block = u"Block";
inline constexpr std::u16string_view Fold = u"Fold";
inline constexpr std::u16string_view Keywords = u"Keywords";
inline constexpr std::u16string_view Tags = u"Tags";
// <name>.ini
inline constexpr std::u16string_view MultiHighlight = u"MultiHighlight";
inline constexpr std::u16string_view Comment = u"Comment";
inline constexpr std::u16string_view Hints = u"Hints";
inline constexpr std::u16string_view Sample = u"Sample";
inline constexpr std::u16string_view UserMenu = u"UserMenu";
inline constexpr std::u16string_view AutoComplete = u"AutoComplete";
inline constexpr std::u16string_view TagComplete = u"TagComplete";
} // namespace sections

/// Sections of `<name>.gdx` and of `<name>.ini`, in the order of the format.
std::span<const std::u16string_view> GdxSections();
std::span<const std::u16string_view> IniSections();

/// The key `default` of `[StandardExtensions]`.
inline constexpr std::u16string_view kExtensionsKey = u"default";

std::span<const TKeySpec> OptionKeys();         ///< [Options], 39 rows
std::span<const TKeySpec> FoldOptionKeys();     ///< [FoldOptions], 15 rows
std::span<const TKeySpec> RegionKeys();         ///< [Region], 3 rows
std::span<const TKeySpec> BlockKeys();          ///< [Block] suffixes, 13 rows
std::span<const TKeySpec> FoldKeys();           ///< [Fold] suffixes, 8 rows
std::span<const TKeySpec> MultiHighlightKeys(); ///< [MultiHighlight], 3 rows

/// Keys of `[Options]` that the engine reads and no grid row shows.
std::span<const std::u16string_view> ExtraOptionKeys();
/// The older name of `OnlyLineCommentIfFirstCharA`, read when that key is missing.
inline constexpr std::u16string_view kOlderLineCommentKey = u"OnlyLineCommentIfFirstChar";

/// Key of rule `n` with a suffix from BlockKeys or FoldKeys: `3_Name`.
std::u16string RuleKey(int n, std::u16string_view suffix);

/// The words of a fold's `_ListItem`, in pick-list order.
std::span<const std::u16string_view> ListItemWords();
/// Index of a `_ListItem` word, ignoring case; -1 (none) for anything else.
int ListItemIndex(std::u16string_view word);

/// One image of the menu image list.
struct TImageLetter {
  char16_t Letter;
  std::u16string_view Caption;
};
std::span<const TImageLetter> ImageLetters();
/// Image index of a letter; 0 for a letter outside the table.
int ImageIndexOfLetter(char16_t letter);
/// Letter of an image index; `l` for an index outside the table.
char16_t LetterOfImageIndex(int index);

/// `;{` + `$syntax;` + file + `|asp` + `}`, each part only when its value is not empty.
std::u16string BuildHeaderComment(std::u16string_view syntax, std::u16string_view file,
                                  std::u16string_view aspLanguage);

/// What the first bytes of a definition file say about it.
struct TFileRecognition {
  bool Exists = false;
  bool IsUtf16 = false;        ///< starts with a UTF-16 byte-order mark
  std::string FirstBytes;      ///< the first 5 bytes, kept for files that are not UTF-16
  /// Current layout: UTF-16, or ANSI text beginning `;{`. Anything else goes to conversion.
  bool IsCurrentLayout() const;
};
TFileRecognition RecogniseDefinitionFile(const std::filesystem::path& path);

/// The companion of a definition: the same name with the extension `.ini`.
std::filesystem::path CompanionPath(const std::filesystem::path& definition);
/// File name without folder and without its last four characters.
std::u16string BaseNameOf(const std::filesystem::path& fileName);

} // namespace orl
