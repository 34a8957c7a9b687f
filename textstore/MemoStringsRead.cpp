// Reads of the line store on the main thread: row text, ranges of the text,
// searches within a row, display forms and the length of a selection.

#include <algorithm>
#include <cstdlib>
#include <tuple>

#include <unicode/uchar.h>
#include <unicode/uscript.h>
#include <unicode/utf16.h>

#include "textstore/OrlMemoStrings.h"
#include "textstore/VisualRow.h"

namespace orl {

namespace {

constexpr char16_t kPilcrow = 0x00B6;

// Characters a layout engine must shape or reorder: right-to-left text,
// combining marks, joining scripts and the syllabic scripts of South and
// South-East Asia.
bool IsComplexChar(UChar32 c) {
  const UCharDirection direction = u_charDirection(c);
  if (direction == U_RIGHT_TO_LEFT || direction == U_RIGHT_TO_LEFT_ARABIC) return true;
  const int8_t type = u_charType(c);
  if (type == U_NON_SPACING_MARK || type == U_COMBINING_SPACING_MARK || type == U_ENCLOSING_MARK) return true;
  // Digits, punctuation and format characters shared by all scripts carry
  // these properties too, but are laid out plainly.
  UErrorCode status = U_ZERO_ERROR;
  const UScriptCode script = uscript_getScript(c, &status);
  if (U_FAILURE(status) || script == USCRIPT_COMMON || script == USCRIPT_INHERITED) return false;
  return u_getIntPropertyValue(c, UCHAR_JOINING_TYPE) != U_JT_NON_JOINING ||
         u_getIntPropertyValue(c, UCHAR_INDIC_SYLLABIC_CATEGORY) != U_INSC_OTHER;
}

// The ending that the flags of the row after a line name.
std::u16string_view EndingFrom(const TTextAttribute& next, bool bOnlyCRLF, bool bHexTextData) {
  if (bOnlyCRLF && !bHexTextData) return u"\r\n";
  if (next.LinefeedCR() && !next.LinefeedLF()) return u"\r";
  if (next.LinefeedLF() && !next.LinefeedCR()) return u"\n";
  return bHexTextData ? u"\f" : u"\r\n";
}

int VisualLength(std::u16string_view s, int TabSize) {
  int column = 0;
  for (char16_t c : s) column += c == u'\t' && TabSize > 0 ? TabSize - column % TabSize : 1;
  return column;
}

} // namespace

std::u16string TOrlMemoStrings::Get(int Index) const { return std::u16string(GetLineString(Index)); }

std::u16string_view TOrlMemoStrings::GetLineString(int index) const {
  return ValidIndex(index) ? Item(index).FString.View() : std::u16string_view();
}

size_t TOrlMemoStrings::SimpleCellPrefix(int index, size_t limit) const {
  return ValidIndex(index) ? Item(index).FString.SimpleCellPrefix(limit) : 0;
}

int TOrlMemoStrings::GetLineLength(int Index) const { return int(GetLineString(Index).size()); }

char16_t TOrlMemoStrings::GetCharAt(int line, int index) const {
  const std::u16string_view row = GetLineString(line);
  return index >= 1 && size_t(index) <= row.size() ? row[size_t(index - 1)] : u'\0';
}

std::u16string TOrlMemoStrings::GetStringAt(int line, int index, int len, bool bTrim) const {
  const std::u16string_view row = GetLineString(line);
  if (index < 1 || size_t(index) > row.size() || len < 1) return {};
  const std::u16string_view piece = row.substr(size_t(index - 1), size_t(len));
  return std::u16string(bTrim ? TOrlUniUtils::WideTrimBuffer(piece) : piece);
}

int TOrlMemoStrings::GetBuffer(int Index, std::u16string& s) const {
  if (!ValidIndex(Index)) return 0;
  const std::u16string_view row = GetLineString(Index);
  if (s.size() < row.size()) s.resize(row.size() + 100);
  std::ranges::copy(row, s.begin());
  return int(row.size());
}

const TOrlMemoStrings::TWideStringItem* TOrlMemoStrings::GetPointerToListItem(int index) const {
  return ValidIndex(index) ? &Item(index) : nullptr;
}

bool TOrlMemoStrings::IsLineBlank(int line) const {
  return std::ranges::all_of(GetLineString(line), [](char16_t c) { return u_isUWhiteSpace(c); });
}

bool TOrlMemoStrings::IsAnsiBetween(int line, int ns, int ne) const {
  return TOrlUniUtils::IsStringAnsiBetween(GetLineString(line), ns, ne);
}

bool TOrlMemoStrings::IsTextComplex(int Line) const { return IsTextComplex(GetLineString(Line)); }

bool TOrlMemoStrings::IsTextComplex(std::u16string_view s) {
  for (size_t i = 0; i < s.size();) {
    UChar32 c;
    U16_NEXT(s.data(), i, s.size(), c);
    if (IsComplexChar(c)) return true;
  }
  return false;
}

bool TOrlMemoStrings::CompareLines(int line1, int line2) const {
  if (!ValidIndex(line1) || !ValidIndex(line2)) return false;
  const std::u16string_view a = GetLineString(line1);
  return !a.empty() && a == GetLineString(line2);
}

std::u16string TOrlMemoStrings::GetTabExpanded(int Index) const {
  bool bChanged = false;
  return TOrlUniUtils::WConvertTabToSpace(GetLineString(Index), Settings().TabSize, bChanged);
}

int TOrlMemoStrings::GetVisualLength(int line) const { return VisualLength(GetLineString(line), Settings().TabSize); }

int TOrlMemoStrings::WPosAt(int line, std::u16string_view SubStr, int Offset, bool bWildcards) const {
  return TOrlUniUtils::WPosEx(SubStr, GetLineString(line), Offset, bWildcards);
}

int TOrlMemoStrings::WNCPosAt(int line, std::u16string_view SubStr, int Offset) const {
  return TOrlUniUtils::WNCPosEx(SubStr, GetLineString(line), Offset);
}

int TOrlMemoStrings::WRPosAt(int line, std::u16string_view SubStr, int Offset) const {
  const std::u16string_view row = GetLineString(line);
  return TOrlUniUtils::WRPosExBuffer(SubStr, row.data(), int(row.size()), Offset);
}

int TOrlMemoStrings::WNCRPosAt(int line, std::u16string_view SubStr, int Offset) const {
  const std::u16string_view row = GetLineString(line);
  return TOrlUniUtils::WNCRPosExBuffer(SubStr, row.data(), int(row.size()), Offset);
}

int TOrlMemoStrings::WTextPosAt(int line, std::u16string_view SubStr, int Offset, int max, bool bLowerCase) const {
  return TOrlUniUtils::WTextPos(SubStr, GetLineString(line), Offset, max, bLowerCase);
}

int TOrlMemoStrings::WRegexPosAt(int line, std::u16string_view Pattern, int Offset, bool bCase, int& MatchLen) const {
  MatchLen = 0;
  if (!FOnRegExFind || !ValidIndex(line)) return -1;
  return FOnRegExFind(Pattern, GetLineString(line), Offset, bCase, MatchLen);
}

int TOrlMemoStrings::VisualInto(std::u16string& s, int Index, bool bShowLinebreaks, bool bShowSpaces,
                                bool bTabExpanded, bool bSubCtrl, bool bOneSign) {
  if (!ValidIndex(Index)) return 0;
  const TMemoStoreSettings settings = Settings();
  const TVisualMode mode{settings.bBinaryMode, settings.bHexTextAsAscii, settings.bIsASCII, FCodePage,
                         settings.TabSize};
  const bool bNextRow = bShowLinebreaks && Index + 1 < GetCount();
  char16_t sign = bNextRow ? LineBreakSign(&ReadLineAttribute(Index + 1)) : u'\0';
  if (bOneSign && sign) sign = kPilcrow;
  return GetVisualRow(s, GetLineString(Index), sign, bShowSpaces, bTabExpanded, bSubCtrl, mode);
}

int TOrlMemoStrings::GetVisualBuffer(std::u16string& s, int Index, bool /*bShowTabs*/, bool bShowLinebreaks,
                                     bool bShowSpaces, bool bTabExpanded, bool bSubCtrl) {
  return VisualInto(s, Index, bShowLinebreaks, bShowSpaces, bTabExpanded, bSubCtrl, false);
}

std::u16string TOrlMemoStrings::GetVisual(int Index, bool /*bShowTabs*/, bool bShowLinebreaks, bool bShowSpaces,
                                          bool bTabExpanded, bool bSubCtrl) {
  std::u16string buffer;
  buffer.resize(size_t(VisualInto(buffer, Index, bShowLinebreaks, bShowSpaces, bTabExpanded, bSubCtrl, true)));
  return buffer;
}

void TOrlMemoStrings::AppendRange(std::u16string* out, size_t& length, int starty, int endy, int startx, int endx,
                                  bool bBinaryMode, bool bOnlyCRLF, bool bHexTextData) const {
  const auto emit = [&](std::u16string_view piece) {
    length += piece.size();
    if (out) out->append(piece);
  };
  for (int r = starty; r <= endy; ++r) {
    if (!ReadLineAttribute(r).Enabled) continue;
    std::u16string_view text = GetLineString(r);
    if (r == starty) text.remove_prefix(size_t(startx - 1));
    if (r == endy) text = text.substr(0, size_t(endx));
    emit(text);
    if (r < endy && !bBinaryMode && !IsLineWrapped(r + 1))
      emit(EndingFrom(ReadLineAttribute(r + 1), bOnlyCRLF, bHexTextData));
  }
}

std::u16string TOrlMemoStrings::GetText(int starty, int endy, int startx, int endx, bool bBinaryMode, bool bOnlyCRLF,
                                        bool bHexTextData) const {
  if (GetCount() == 0 || (starty == endy && startx == endx + 1)) return {};
  if (starty > endy) {
    std::swap(starty, endy);
    std::swap(startx, endx);
  }
  const int last = GetCount() - 1;
  starty = std::clamp(starty, 0, last);
  endy = std::clamp(endy, 0, last);
  startx = std::clamp(startx, 1, GetLineLength(starty) + 1);
  endx = std::clamp(endx, 0, GetLineLength(endy));
  if (starty == endy) {
    if (!ReadLineAttribute(starty).Enabled || endx < startx) return {};
    return std::u16string(GetLineString(starty).substr(size_t(startx - 1), size_t(endx - startx + 1)));
  }
  size_t length = 0;
  AppendRange(nullptr, length, starty, endy, startx, endx, bBinaryMode, bOnlyCRLF, bHexTextData);
  std::u16string text;
  text.reserve(length);
  AppendRange(&text, length, starty, endy, startx, endx, bBinaryMode, bOnlyCRLF, bHexTextData);
  return text;
}

int TOrlMemoStrings::SelectionLength(const IMemoStringsOwner& aMemo, bool bIncludeCRLF, bool bRealCRLF) const {
  const TMemoSelection selection = aMemo.Selection();
  if (selection.bHexView) return selection.HexSelectionLength;
  if (GetCount() == 0) return 0;
  TFullPos from = selection.Start;
  TFullPos to = selection.End;
  if (std::tie(to.Y, to.x) < std::tie(from.Y, from.x)) std::swap(from, to);
  const int last = GetCount() - 1;
  for (TFullPos* end : {&from, &to}) {
    end->Y = std::clamp(end->Y, 0, last);
    end->x = std::clamp(end->x, 0, GetLineLength(end->Y));
  }
  if (selection.bColumnMode) return std::abs(to.x - from.x) * (to.Y - from.Y + 1);
  const bool bEndings = bIncludeCRLF && !aMemo.StoreSettings().bBinaryMode;
  const int ending = bRealCRLF && (FSysTextType == sttUnix || FSysTextType == sttMac) ? 1 : 2;
  int length = to.x - from.x;
  for (int r = from.Y; r < to.Y; ++r) {
    length += GetLineLength(r);
    if (bEndings && !IsLineWrapped(r + 1)) length += ending;
  }
  return length;
}

} // namespace orl
