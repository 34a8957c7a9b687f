#pragma once
// The scan state at a row's end: what the tokeniser needs to go on with the
// next row without rescanning from the top. The tokeniser gives these members
// their meaning; the store only keeps, copies and clears the record.
//
// A plain value: copying it copies every string and stack in it.

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "textstore/CodeExplorerKind.h"

namespace orl {

enum TScriptType : uint8_t { scNone, scASP, scPHP, scJS, scVB, scCSS, scCF, scHtml, scSVG };

/// Bits of TStyle::FBooleanArray.
enum TStyleFlag : uint8_t { sfCached, sfScriptNodeStart, sfScriptNodeEnd };

/// Bits of TStyleProperties::FBooleanArray.
enum TStylePropertyFlag : uint8_t {
  spStringClosed, spStringOpened, spInComment, spIsSymbol, spIsHexNumber, spInTag, spIsKeyword, spInLineComment,
  spStringOnLine, spIsNumber, spInScript, spIsTagWord, spLineIsUrl, spVerbatimString, spSavedInTag
};

namespace detail {
inline void SetFlagBit(uint16_t& word, unsigned bit, bool value) {
  word = value ? uint16_t(word | (1u << bit)) : uint16_t(word & ~(1u << bit));
}
} // namespace detail

struct TStyleProperties {
  bool Get(TStylePropertyFlag flag) const { return (FBooleanArray >> flag) & 1u; }
  void Set(TStylePropertyFlag flag, bool value) { detail::SetFlagBit(FBooleanArray, flag, value); }

  uint16_t FBooleanArray = 0;
  TScriptType ScriptType = scNone;
  TScriptType ScriptTypeOld = scNone;
  int8_t BracketId = -1;
  int8_t CachedBracketId = 0;
  int8_t Index = -1;
  int8_t TagNr = 0;
  int8_t CommentStyle = 0;
  int8_t NestedCommentIndex = 0;
  int8_t ScriptStringId = -1;
  bool operator==(const TStyleProperties&) const = default;
};

struct TBlockStyle {
  std::u16string HereDocString;
  std::vector<int8_t> Cache;  // stack of interrupted block numbers
  int8_t Id = -1;
  bool Force = false;
  bool IsLine = false;
  bool HighlightKeywords = false;
  bool HighlightSymbols = false;
  bool HighlightBlocks = false;
  bool HighlightNumbers = false;
  bool HighlightStrings = false;
  bool HighlightChars = false;
  bool operator==(const TBlockStyle&) const = default;
};

struct TNodeStyle {
  uint16_t FBooleanArray = 0;
  int EndBegin = 0;
  int nIndent = 0;
  int nr = 0;
  std::u16string sTag;
  TCEListItemType ceListItem = ceNone;
  TScriptType scType = scNone;
  int NodeEndBefore = 0;
  int Id = 0;
  int Start = 0;
  int Stop = 0;
  bool operator==(const TNodeStyle&) const = default;
};

struct TRegionStyle {
  int nBegin = 0;
  int nEnd = 0;
  int8_t nr = 0;
  bool NodeHead = false;
  bool NodeEnd = false;
  bool operator==(const TRegionStyle&) const = default;
};

/// Default-constructed, the record is in its cleared state.
struct TStyle {
  bool Get(TStyleFlag flag) const { return (FBooleanArray >> flag) & 1u; }
  void Set(TStyleFlag flag, bool value) { detail::SetFlagBit(FBooleanArray, flag, value); }

  uint16_t FBooleanArray = 0;
  int NodeSection = -1;
  TStyleProperties Properties;
  TBlockStyle Block;
  std::vector<TNodeStyle> NodeStyles;
  std::vector<TRegionStyle> RegionStyles;

  /// Resets the flags, section, string, comment, script and block state; with
  /// bFolding also empties the stacks of open folds and regions. Members not
  /// named here keep their values.
  void Clear(bool bFolding);
  /// The state only: the store's stamp below takes no part.
  bool operator==(const TStyle& other) const;
  /// A hash of the state and the stamp.
  size_t Hash() const;

  /// When the store took the record; with the store's invalidations it says
  /// whether Cached still holds (see TOrlMemoStrings::LineStyleValid).
  uint64_t Generation = 0;
};

/// A stored record: immutable, shared by the rows that end in the same state.
using TStyleRef = std::shared_ptr<const TStyle>;

} // namespace orl
