#pragma once
// The recognisers both passes of the tokeniser share: tests on a line at a
// 1-based position, the character classes of a style set, and the block,
// string and comment tests that must answer the same in the state pass and
// the colouring pass. Nothing here copies the line.

#include <bitset>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "syntax/OrlMemoStyles.h"
#include "syntax/RegexBudget.h"
#include "syntax/TokeniserHost.h"

namespace orl::tok {

constexpr char16_t kMiddleDot = 183;
constexpr char16_t kNoBreakSpace = 160;

// Nesting is counted as deep as the stored counters reach, the same in both
// passes, so that the state a line ends in and its colours agree.
constexpr int kMaxCommentNesting = std::numeric_limits<decltype(TStyleProperties::NestedCommentIndex)>::max();
constexpr size_t kMaxBlockNesting = size_t(std::numeric_limits<decltype(TBlockStyle::Id)>::max());

/// Opens block `nr`, remembering the one it interrupts while the nesting limit allows.
void PushBlock(TBlockStyle& block, int8_t nr);
/// Ends the live block: the one it interrupted goes on, else none.
void PopBlock(TBlockStyle& block);

/// ASCII-only comparison, for the fixed names a set or block is known by.
bool SameName(std::u16string_view name, std::u16string_view lowerAscii);

inline bool IsBlank(char16_t c) { return c == u' ' || c == u'\t'; }
inline char16_t UpperAscii(char16_t c) { return c >= u'a' && c <= u'z' ? char16_t(c - 32) : c; }

/// A set of characters, a table for the first 256.
class TCharSet {
public:
  TCharSet() = default;
  explicit TCharSet(std::u16string_view chars) { Add(chars); }
  void Add(std::u16string_view chars);
  bool Has(char16_t c) const { return c < 256 ? FLow[c] : FHigh.find(c) != std::u16string::npos; }

private:
  std::bitset<256> FLow;
  std::u16string FHigh;
};

/// One line, read at 1-based positions; 0 outside it.
class TLineText {
public:
  explicit TLineText(std::u16string_view s) : S(s), Len(int(s.size())) {}
  char16_t At(int p) const { return p >= 1 && p <= Len ? S[size_t(p - 1)] : 0; }
  std::u16string_view From(int p) const { return p >= 1 && p <= Len ? S.substr(size_t(p - 1)) : std::u16string_view(); }

  /// `d` stands at p and fits before the line end.
  bool MatchAt(int p, std::u16string_view d) const;
  bool MatchAtNoCase(int p, std::u16string_view d) const;
  bool MatchAt(int p, std::u16string_view d, bool bCase) const { return bCase ? MatchAt(p, d) : MatchAtNoCase(p, d); }
  /// Position of `d` at or behind p, exact case; 0 for none.
  int Find(int p, std::u16string_view d) const;
  int FindNoCase(int p, std::u16string_view d) const;
  /// Position of the last `d` in the line, any case; 0 for none.
  int FindLastNoCase(std::u16string_view d) const;
  int Find(int p, std::u16string_view d, bool bCase) const { return bCase ? Find(p, d) : FindNoCase(p, d); }
  /// p moved over blanks and tabs.
  int SkipBlanks(int p) const;
  /// The first character that is no blank or tab (Len + 1 for none).
  int FirstNonBlank() const;
  /// Only blanks, tabs and middle dots stand before p.
  bool OnlyBlanksBefore(int p) const;
  /// A block delimiter at p: its leading blanks must stand right before p.
  /// The length matched at p, 0 for none.
  int BlockMatchAt(int p, std::u16string_view d) const;
  /// The first block delimiter at or behind p; its length in `length`.
  int BlockFind(int p, std::u16string_view d, int& length) const;

  std::u16string_view S;
  int Len;

private:
  // Found once per line: rules ask at many positions.
  mutable int FFirstNonBlank = 0, FFirstNonLead = 0;
};

/// Which pass a regular-expression error is reported for.
enum TScanPass : uint8_t { spassState, spassColour };

/// The derived strings of a style set, refreshed when the set changes.
struct TSetClasses {
  const TOrlCustomMemoStyles* For = nullptr;
  std::u16string FtmpNoStart, FtmpNo, FtmpNoHex, FTempdelimiters;
  TCharSet NumberStart;   // FtmpNoStart + "." + "-"
  TCharSet DecimalChars;  // FtmpNo + "." + FDigitSeparator + "_"
  TCharSet HexChars;      // FtmpNo + "ABCDEFabcdef_"
  TCharSet Symbols;       // FTempdelimiters
  TCharSet NumericChars;  // FNumericChars as written

  void Refresh(const TOrlCustomMemoStyles& styles);
  /// A character of the symbols, blank, tab, "'" or the middle dot.
  bool IsSymbolBoundary(char16_t c) const { return IsBlank(c) || c == u'\'' || c == kMiddleDot || Symbols.Has(c); }
};

/// The recognisers over one style set for one line; cheap to make per scan.
/// Searches forward are remembered, so that asking again at every stop of a
/// long line stays linear in its length.
class TScanRules {
public:
  TScanRules(const TOrlCustomMemoStyles& styles, const TSetClasses& classes, ITokeniserHost& host, TScanPass pass,
             size_t lineLength)
      : Styles(styles), Classes(classes), Host(host), Pass(pass), FBudget(lineLength) {}

  /// Delimiter 0 is FCharSymbol, 1 FStringSymbol (the digit "1" stands for the double quote).
  char16_t Delimiter(int id) const;
  /// p is preceded by an odd number of escape characters; with FAllowEscapeOutsideString
  /// off and no string open nothing counts as escaped.
  bool IsEscaped(const TLineText& line, int p, bool bStringOpen) const;
  /// The delimiter `d` at or behind p that is not escaped (unless bVerbatim); 0 for none.
  int FindStringEnd(const TLineText& line, int p, char16_t d, bool bVerbatim, bool bStringOpen) const;
  /// The next `c` at or behind p; 0 for none.
  int NextChar(const TLineText& line, int p, char16_t c) const;
  /// An escape pair at p outside a string (two characters), as the state pass skips it.
  bool EscapePairAt(const TLineText& line, int p, bool bInString) const;

  /// Length of the line comment that may start at p, 0 for none.
  int LineCommentAt(const TLineText& line, int p, bool bCase) const;
  /// Both block comments are usable: A is set, and B either whole or absent.
  bool CommentsUsable() const;

  /// The first block whose Start passes at p (1-based number, 0 none); its match length in `length`.
  int BlockStartAt(const TLineText& line, int p, int& length) const;
  /// Length of `block`'s Stop matching at p, 0 for none.
  int BlockStopAt(const TBlock& block, const TLineText& line, int p) const;
  /// The first Stop of `block` at or behind p (0 none), with its length.
  int FindBlockStop(const TBlock& block, const TLineText& line, int p, int& length) const;
  /// The nearest position at or behind p where some block Start matches; 0 for none.
  int NextBlockStart(const TLineText& line, int p) const;
  /// Where a block without Stop ends, at or behind p.
  int OpenBlockEnd(const TLineText& line, int p) const;
  /// Here-documents open in PHP code only: a PHP island, or a set named PHP.
  bool HereDocsIn(TScriptType type) const;
  /// The start of a line: a URL scheme at p.
  static bool UrlSchemeAt(const TLineText& line, int p);

  /// A regular-expression group of `group` matching at p, its length or 0.
  int KeywordPatternAt(const TKeyWord& group, const TLineText& line, int p) const;
  /// The line's regular-expression budget is spent: the scan ends the line where it stands.
  bool BudgetSpent() const { return FBudget.Spent(); }

  const TOrlCustomMemoStyles& Styles;
  const TSetClasses& Classes;
  ITokeniserHost& Host;
  TScanPass Pass;

private:
  enum TRegexStep : uint8_t { rxFindStop, rxNextStart, rxStart, rxStop, rxKeyword };
  /// Reports a failed match on OnDebugWrite under the step's tag.
  void Report(TRegexStep step, const std::u16string& message) const;
  /// Reports a match's error, or once that the budget ran out.
  void Check(TRegexStep step, const TRegexMatch& m) const;
  int PatternAt(const TRegexPattern* pattern, const TLineText& line, int p, TRegexStep step) const;
  int PatternFind(const TRegexPattern* pattern, const TLineText& line, int p, int& length, TRegexStep step) const;
  bool BlockStartPasses(const TBlock& block, const TLineText& line, int p) const;
  int SearchBlockStop(const TBlock& block, const TLineText& line, int p, int& length) const;

  /// A forward search's answer, good for every later position up to what it found.
  struct TFound {
    int From = 0;  // 0: nothing known
    int At = 0;
    int Length = 0;
    uintptr_t Key = 0;  // what was searched for
    bool Covers(int p, uintptr_t key) const { return From > 0 && Key == key && From <= p && (At == 0 || At >= p); }
  };
  /// The answer of `search` (from p, length out) through `memo`.
  template <typename TSearch>
  int Remembered(TFound& memo, uintptr_t key, int p, int& length, TSearch search) const;
  /// The memo of the block at `index` in `memos`, made on first use.
  TFound& BlockMemo(std::vector<TFound>& memos, size_t index) const;

  mutable TRegexBudget FBudget;
  mutable bool bBudgetReported = false;
  mutable std::vector<TFound> FNextStarts, FNextStops;  // per block
  mutable TFound FNextChar[2], FStringEnd[2];
};

} // namespace orl::tok
