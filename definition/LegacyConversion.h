#pragma once
// Conversion of a definition in the older layout into the two stores of the
// current one.
//
// The older layout is one ANSI text file: free comment lines in braces ahead
// of the first section, sections opened by a marker such as `[options]` or
// `[tags]` and closed by `[end]`, options as `key = value` in one section,
// and strings in double quotes with backslash escapes. The parser rejects
// nothing: what it does not recognise is dropped, and a file with no markers
// converts to two empty stores. Nothing is written to disk; the definition
// becomes current when it is saved.

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "definition/OrlIniFiles.h"

namespace orl {

/// Reads `fileName` as lines (by byte-order mark, else in the ANSI code page)
/// and converts it into `gdx` and `ini`, which are expected empty. `gdx`
/// receives Options, FoldOptions, Region, Block, Fold, Tags and Keywords;
/// `ini` receives MultiHighlight, Comment, Hints, UserMenu, AutoComplete,
/// TagComplete and Sample. Raises EFileError when the file cannot be read.
void ConvertToNew(const std::filesystem::path& fileName, TMemIniFile& gdx, TMemIniFile& ini);

/// The same over the lines of a file already read.
void ConvertLinesToNew(const TStringList& lines, TMemIniFile& gdx, TMemIniFile& ini);

namespace legacy {

// The text functions of the older layout. Each takes one line and trims it
// first; "quote" is the double quote, and trimming removes every character up
// to U+0020 as the stores do.

/// Cuts the line at its first `;`, then at its first `//`, unless that place
/// lies between the first and the last quote of the line; trimmed.
std::u16string StripComment(std::u16string_view line);
/// The trimmed name before `=`; `>` for a `>` line without `=`; else empty.
std::u16string KeyOf(std::u16string_view line);
/// The value behind `=` with its quotes and its first backslash removed; the
/// rest of a `>` line without `=`; else empty.
std::u16string ValueOf(std::u16string_view line);
/// A word of a tag section: `>` for a `>` line, else the line unquoted, with
/// the backslashes behind its first quote removed.
std::u16string WordOf(std::u16string_view line);
/// A hint line unquoted, with its first backslash removed.
std::u16string HintOf(std::u16string_view line);
/// The caption of a `->` item: the quoted text before `|` and `+`, without
/// backslashes.
std::u16string ItemName(std::u16string_view line);
/// The insert text of a `->` item, behind `|` and before `+`: unquoted, `#12`
/// as the stored line break U+000C, without backslashes; empty without `|`.
std::u16string ItemData(std::u16string_view line);
/// The image letter of a `->` item: the one character behind the `+` that
/// follows the last quote; `p` for anything else.
char16_t ItemImage(std::u16string_view line);
/// The name of a completion group line: unquoted, without backslashes.
std::u16string GroupName(std::u16string_view line);

/// The ten lines that open or close a part of an older file.
enum class TMarker {
  mkNone,
  mkOptions,
  mkTags,
  mkKeywords,
  mkAutoHint,
  mkEnd,
  mkAutoComplete,
  mkUserMenu,
  mkTagComplete,
  mkBeginSample,
  mkEndSample,
};

/// The marker that a trimmed line is, ignoring case; mkNone for any other line.
TMarker MarkerOf(std::u16string_view trimmedLine);

/// Whether a section marker at a line is followed by content before the next
/// marker. Brace comments (from a line beginning `{` to a line holding `}`),
/// empty lines, a lone `>` and lines beginning `;` or `//` are passed over;
/// the first other line decides, and the end of the file counts as no content.
///
/// Every answer is worked out in one backward pass over the file, so that a
/// file of markers each followed by an unclosed brace comment is not scanned
/// to its end once per marker.
class TContentLookahead {
public:
  explicit TContentLookahead(const TStringList& lines);
  /// True when the lines behind line `index` (0-based) start with content.
  bool NextHasContent(int index) const;

private:
  // FContentFrom[k]: a scan that starts at line k finds content; one extra
  // entry for the end of the file.
  std::vector<bool> FContentFrom;
};

} // namespace legacy
} // namespace orl
