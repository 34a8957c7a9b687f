#pragma once
// Static helpers over UTF-16 strings and buffers that the whole engine shares:
// searching with and without case, tab expansion, case conversion, removal of
// characters, and the substitution of characters for display.
//
// Positions are 1-based and count UTF-16 units; a result of 0 means "not
// found". A character is one UTF-16 unit, and its case is the system's simple
// per-unit mapping. The "Buffer" and "B" forms work on a caller's scratch
// buffer with an explicit length, so that a row can be searched or prepared
// for painting without a new string per call.

#include <cstdint>
#include <filesystem>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace orl {

enum TReplaceFlags : uint8_t { rfNone = 0, rfReplaceAll = 1, rfIgnoreCase = 2 };
constexpr TReplaceFlags operator|(TReplaceFlags a, TReplaceFlags b) { return TReplaceFlags(uint8_t(a) | uint8_t(b)); }

/// Regular-expression search that a host registers: position of the first
/// match at or after Offset (0 for none), its length in MatchLen.
using TPosRegExFunc =
    std::function<int(std::u16string_view Pattern, std::u16string_view S, int Offset, bool bCase, int& MatchLen)>;
/// Regular-expression replacement of every match that a host registers.
using TRegExReplaceFunc = std::function<std::u16string(std::u16string_view S, std::u16string_view Pattern,
                                                       std::u16string_view Replacement, bool bCase)>;

class TOrlUniUtils {
public:
  TOrlUniUtils() = delete;

  // Byte strings ------------------------------------------------------------

  /// Each byte as the character of the same value.
  static std::u16string ASCIITostring(std::string_view s);
  /// The low byte of each character.
  static std::string stringToASCII(std::u16string_view s);

  // Comparison --------------------------------------------------------------

  /// True when both strings hold the stretch of len characters from Index and
  /// the stretches are equal; without bCase they are compared lower-cased.
  static bool CompInStrings(std::u16string_view s1, std::u16string_view s2, int Index, int len, bool bCase);
  /// Equal and not empty.
  static bool OrlWideStrComp(std::u16string_view s1, std::u16string_view s2);
  /// s1 is a prefix of s2 and not empty.
  static bool OrlWideLStrComp(std::u16string_view s1, std::u16string_view s2);
  /// The first len characters of both are equal (fewer where a string is
  /// shorter, as long as both end there); without bCase compared lower-cased.
  static bool OrlWStrLComp(std::u16string_view s1, std::u16string_view s2, int len, bool bCase);

  // Classification ----------------------------------------------------------

  /// Whether a file without a byte-order mark is more likely UTF-8 than not;
  /// false for a missing file, true for one without any multi-byte pattern.
  static bool FileMayBeUTF8(const std::filesystem::path& FileName);
  /// True if w has a tab, a blank, a digit or an ASCII letter.
  static bool IsAlphaNumeric(std::u16string_view w);
  /// No character of 256 or above among the first len.
  static bool IsAnsi(std::u16string_view w, int len);
  /// Every character from 32 to 255.
  static bool IsStringAnsi(std::u16string_view s);
  static bool IsBufferAnsi(const char16_t* Buffer, int len) { return IsStringAnsi(View(Buffer, len)); }
  /// No character above 255 and no tab from x1 to x2; x1 below 1 means 1,
  /// x2 below 1 or past the end means the end.
  static bool IsStringAnsiBetween(std::u16string_view s, int x1, int x2);
  static bool IsBufferAnsiBetween(const char16_t* Buffer, int len, int x1, int x2) {
    return IsStringAnsiBetween(View(Buffer, len), x1, x2);
  }

  // Searching ---------------------------------------------------------------

  /// Case-sensitive search from Offset (below 1 counts as 1). With
  /// bWildcards a "?" in S matches any character of SubStr.
  static int WPosEx(std::u16string_view SubStr, std::u16string_view S, int Offset = 1, bool bWildcards = false);
  static int WPosExBuffer(std::u16string_view SubStr, const char16_t* Buffer, int len, int Offset,
                          bool bWildcards = false) {
    return WPosEx(SubStr, View(Buffer, len), Offset, bWildcards);
  }
  static int WPosEx2(std::u16string_view SubStr, std::u16string_view S, int StartIndex) {
    return WPosEx(SubStr, S, StartIndex);
  }
  /// Case-insensitive search from Offset: a character of S matches when it
  /// equals the upper- or the lower-cased character of SubStr.
  static int WNCPosEx(std::u16string_view SubStr, std::u16string_view S, int Offset = 1);
  static int NCPosEx(std::u16string_view SubStr, std::u16string_view S, int Offset = 1) {
    return WNCPosEx(SubStr, S, Offset);
  }
  static int WNCPosExBuffer(std::u16string_view SubStr, const char16_t* Buffer, int len, int Offset) {
    return WNCPosEx(SubStr, View(Buffer, len), Offset);
  }
  /// Backward search: the last match that starts at or before Offset.
  static int WRPosExBuffer(std::u16string_view SubStr, const char16_t* Buffer, int len, int Offset);
  static int WNCRPosExBuffer(std::u16string_view SubStr, const char16_t* Buffer, int len, int Offset);
  /// Forward search from Offset for a match lying within max characters;
  /// bLowerCase searches without regard to case.
  static int WTextPos(std::u16string_view SubStr, std::u16string_view S, int Offset, int max, bool bLowerCase);
  /// Position of the next CR or LF from Offset; len takes 2 for CR LF, 1 for
  /// another ending and 0 when there is none.
  static int WPosLFCR(std::u16string_view S, int Offset, int& len);
  /// Occurrences of sub in s, without overlap.
  static int WCountStringsInString(std::u16string_view sub, std::u16string_view s);

  /// The host's search; -1 (and MatchLen 0) while none is registered.
  static int PosRegEx(std::u16string_view Pattern, std::u16string_view S, int Offset, bool bCase, int& MatchLen);
  /// The host's replacement; S unchanged while none is registered.
  static std::u16string RegExReplace(std::u16string_view S, std::u16string_view Pattern,
                                     std::u16string_view Replacement, bool bCase);
  /// Registers the host's functions; call before any thread uses them.
  static void SetRegExHandlers(TPosRegExFunc posRegEx, TRegExReplaceFunc regExReplace);

  // Case --------------------------------------------------------------------

  static std::u16string OrlWideLowercase(std::u16string_view s);
  static std::u16string OrlWideUppercase(std::u16string_view s);
  static std::u16string OrlWideInvertCase(std::u16string_view s);
  /// sReplace with the case pattern of sFind, letter by letter; letters of a
  /// longer replacement take the case of the last letter found.
  static std::u16string MatchCase(std::u16string_view sFind, std::u16string_view sReplace);

  // Distance ----------------------------------------------------------------

  /// Insertions, deletions and substitutions that turn s into t.
  static int LevenshteinDistance(std::u16string_view s, std::u16string_view t);
  /// True if the characters of sub occur in s in order, without regard to
  /// case. On success eDistance takes LevenshteinDistance(sub, s) and inList,
  /// if given, the 1-based positions found.
  static bool WNCFuzzyFind(std::u16string_view sub, std::u16string_view s, int& eDistance,
                           std::vector<int>* inList = nullptr);

  // Lines and tabs ----------------------------------------------------------

  /// 1 plus one for each CR, LF or CR LF.
  static int WCalcLines(std::u16string_view s);
  static int WCalcTabs(std::u16string_view s);
  /// Tabs expanded to the next stop of TabSize with SpaceChar; bChanged when
  /// a tab was expanded. A TabSize below 1 leaves the text as it is.
  static std::u16string WConvertTabToSpace(std::u16string_view S, int TabSize, bool& bChanged,
                                           char16_t SpaceChar = u' ');
  /// The same into Target, grown to the need plus 200 when too short;
  /// returns the expanded length.
  static int WConvertTabToSpaceB(std::u16string_view S, std::u16string& Target, int TabSize,
                                 char16_t SpaceChar = u' ');
  /// Tabs for runs of at least two blanks that reach a tab stop, after
  /// expanding the tabs there are; with bLeading only among the leading
  /// blanks. Text shorter than TabSize is returned as it is.
  static std::u16string WConvertSpaceToTab(std::u16string_view S, int TabSize, bool bLeading, bool& bChanged);

  // Removal and replacement -------------------------------------------------

  /// S without its trailing characters below 33 and U+00A0.
  static std::u16string WRemoveTrailing(std::u16string_view S, bool& bChanged);
  /// S without U+200B, U+200C, U+200D and U+FEFF.
  static std::u16string WRemoveZeroWidthSpaces(std::u16string_view S, bool& bChanged);
  /// The first (with rfReplaceAll every) occurrence of Search replaced.
  static std::u16string WStringReplace(std::u16string_view S, std::u16string_view Search,
                                       std::u16string_view Replace, TReplaceFlags Flags);
  /// The buffer without tab, blank and U+00A0 at both ends.
  static std::u16string_view WideTrimBuffer(std::u16string_view Buffer);

  // Buffers with an explicit length -----------------------------------------

  static void FillWideChar(char16_t* Buffer, int Count, char16_t Value);
  /// The buffer without its last Count characters.
  static std::u16string_view StrRemoveRight(std::u16string_view Buffer, int Count);
  /// Count characters from Index, clipped to the buffer.
  static std::u16string WBCopy(std::u16string_view Buffer, int Index, int Count);
  /// Deletes Count characters at Index from the len characters in Buffer;
  /// returns the new length.
  static int WDelete(std::u16string& Buffer, int len, int Index, int Count);
  /// Inserts Source before Index (appends past the end), growing Buffer when
  /// needed; returns the new length.
  static int WInsert(std::u16string_view Source, std::u16string& Buffer, int len, int Index);
  /// Copies Count characters; the ranges may overlap.
  static void WMove(const char16_t* Source, char16_t* Dest, int Count);

  // Display substitution ----------------------------------------------------

  static void WSubstituteCharsB(std::span<char16_t> Buffer, char16_t From, char16_t To);
  /// Every white-space character but a tab becomes To.
  static void WSubstituteWhiteSpace(std::span<char16_t> Buffer, char16_t To);
  /// Control characters as the glyphs of code page 437; with bViewSpaces a
  /// blank as U+00B7 and U+00A0 as U+00A6; a tab only with bViewTab; with
  /// bAscii also 128 to 255 as the code page 437 glyph of that byte.
  static void WSubstituteControlCharsB(std::span<char16_t> Buffer, bool bViewSpaces, bool bAscii, bool bViewTab);

private:
  static std::u16string_view View(const char16_t* Buffer, int len) {
    return len > 0 ? std::u16string_view(Buffer, size_t(len)) : std::u16string_view();
  }
};

} // namespace orl
