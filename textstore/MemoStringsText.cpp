// Whole texts into rows: the Text setter that reuses rows, the parser that
// keeps each line's own ending, and Assign.

#include <algorithm>
#include <filesystem>
#include <mutex>

#include "platform/CharCase.h"
#include "textstore/OrlMemoStrings.h"

namespace orl {

namespace {

constexpr char16_t kLineSeparator = 0x2028;
constexpr char16_t kParagraphSeparator = 0x2029;
constexpr size_t kBinaryRowLength = 80;
constexpr size_t kShortestMaxLength = 80;
constexpr size_t kMaxLengthMargin = 100;
constexpr size_t kProgressThreshold = 100000;
constexpr size_t kProgressStep = 10000;
// Characters a file load reads at a time: large enough to make reads cheap,
// small beside any text worth measuring.
constexpr size_t kLoadPiece = size_t(1) << 20;

// Bits of a pending line ending, in the order of TFreshState::Ending.
enum TEndingMark : int8_t { emCR = 1, emLF = 2 };

struct TEndingCounts {
  int CR = 0;
  int LF = 0;
  int CRLF = 0;
};

bool IsLineBreak(char16_t c) { return c == u'\r' || c == u'\n'; }

bool IsParsedBreak(char16_t c) { return IsLineBreak(c) || c == kLineSeparator || c == kParagraphSeparator; }

// Position of the next CR or LF from `from`, or the text's size. Most
// characters lie above CR, which makes the test short.
size_t NextLineBreak(std::u16string_view text, size_t from) {
  while (from < text.size() && (text[from] > u'\r' || !IsLineBreak(text[from]))) ++from;
  return from;
}

// The same in a delimited file, where a break inside double quotes is part
// of its field; `bInString` carries the quoting from line to line.
size_t NextLineBreakOutsideQuotes(std::u16string_view text, size_t from, bool& bInString) {
  for (; from < text.size(); ++from) {
    if (text[from] == u'"') bInString = !bInString;
    if (!bInString && IsLineBreak(text[from])) break;
  }
  return from;
}

// End of the line that starts at `pos`: the next break, outside double
// quotes in a delimited file. Each double quote toggles the quoting, in any
// text, so that it carries over to the next chunk of a load.
size_t EndOfParsedLine(std::u16string_view text, size_t pos, bool bDelimited, bool& bInString, bool& bTab) {
  for (; pos < text.size(); ++pos) {
    const char16_t c = text[pos];
    if (c > u'"' && c != kLineSeparator && c != kParagraphSeparator) continue;  // the common case
    if (c == u'"')
      bInString = !bInString;
    else if (c == u'\t')
      bTab = true;
    else if (IsParsedBreak(c) && !(bDelimited && bInString))
      break;
  }
  return pos;
}

// Consumes the terminator at `at`, noting it; returns where the next line starts.
size_t ConsumeEnding(std::u16string_view text, size_t at, TEndingCounts& counts, int8_t& pending) {
  if (text[at] == u'\r') {
    pending |= emCR;
    if (at + 1 < text.size() && text[at + 1] == u'\n') {
      pending |= emLF;
      ++counts.CRLF;
      return at + 2;
    }
    ++counts.CR;
    return at + 1;
  }
  if (text[at] == u'\n') {
    pending |= emLF;
    ++counts.LF;
  }
  return at + 1;
}

// The document's type from the endings of one parse; the most frequent
// ending names it, any other makes it mixed.
TSysTextType TypeFromCounts(const TEndingCounts& n, TSysTextType current) {
  const bool bAnyCR = n.CR > 0 || n.CRLF > 0;
  const bool bAnyLF = n.LF > 0 || n.CRLF > 0;
  if (n.CR > n.LF && n.CR > n.CRLF) return bAnyLF ? sttMixedMac : sttMac;
  if (n.LF > n.CR && n.LF > n.CRLF) return bAnyCR ? sttMixedUnix : sttUnix;
  if (n.CR > 0 || n.LF > 0) return sttMixedWindows;
  if (n.CRLF > 0) return sttWindows;
  return current;
}

// Calls onLine(line, length with its ending) for each line of `value`: lines
// end at CR, LF or CR LF, and a final LF adds an empty line; binary text is
// cut into pieces of 80 instead.
template <class TOnLine>
void WalkLines(std::u16string_view value, bool bBinary, bool bDelimited, bool& bInString, TOnLine&& onLine) {
  if (bBinary) {
    for (size_t p = 0; p < value.size(); p += kBinaryRowLength) onLine(value.substr(p, kBinaryRowLength), kBinaryRowLength);
    return;
  }
  size_t start = 0;
  for (size_t i = 0; i < value.size(); ++i) {
    i = bDelimited ? NextLineBreakOutsideQuotes(value, i, bInString) : NextLineBreak(value, i);
    if (i == value.size()) break;
    const size_t end = i;
    if (value[i] == u'\r' && i + 1 < value.size() && value[i + 1] == u'\n') ++i;
    onLine(value.substr(start, end - start), i + 1 - start);
    start = i + 1;
  }
  if (start < value.size())
    onLine(value.substr(start), value.size() - start);
  else if (value.back() == u'\n')
    onLine(std::u16string_view(), 0);
}

std::u16string LowerAscii(std::u16string s) {
  std::ranges::transform(s, s.begin(), AsciiLowerChar);
  return s;
}

} // namespace

/// What a parse carries from one piece of a text to the next.
struct TOrlMemoStrings::TLineParse {
  TLineParse(bool silent, const TMemoStoreSettings& settings, const TFreshState& rowState, bool delimited)
      : bSilent(silent), Settings(settings), RowState(rowState), bDelimited(delimited) {}

  bool bSilent;
  TMemoStoreSettings Settings;
  TFreshState RowState;
  bool bDelimited;
  TEndingCounts Counts;
  int8_t Pending = 0;  // the ending before the next row
  bool bTab = false;
  bool bTrailingEnding = false;
  size_t Longest = kShortestMaxLength;
  size_t Done = 0;  // characters parsed in earlier pieces
  size_t Total = 0;
  size_t Reported = 0;
};

bool TOrlMemoStrings::IsDelimitedFile(const TMemoStoreSettings& settings) const {
  if (FMemo && !settings.bHandleCSV) return false;
  const std::u16string extension = LowerAscii(std::filesystem::path(FFileName).extension().u16string());
  return extension == u".csv" || extension == u".psv" || extension == u".tsv";
}

void TOrlMemoStrings::SetText(std::u16string_view value) {
  if (value.empty()) return;
  const TMemoStoreSettings settings = Settings();
  const bool bDelimited = IsDelimitedFile(settings);
  std::lock_guard lock(FLock);
  const TBulkLoad bulk(*this);
  BeginUpdate();
  TFreshState added = NewRowState(settings);
  added.Flags = 1u << lfChanged;  // new rows are edits of the text as it was
  added.ChangeHistory = 1;
  int row = 0;
  size_t longest = kShortestMaxLength;
  const auto putLine = [&](std::u16string_view line, size_t withEnding) {
    longest = std::max(longest, withEnding);
    if (row < GetCount()) {
      SetWrappedFlag(row, false);
      row = PutQuickLine(row, line);
    } else {
      row = AddQuickLineWith(line, settings, added);
    }
  };
  FInString = false;
  WalkLines(value, settings.bBinaryMode, bDelimited, FInString, putLine);
  for (int r = GetCount() - 1; r >= row; --r) DoDelete(r);
  if (FMemo) FMemo->RaiseMaxLength(int(longest + kMaxLengthMargin));
  EndUpdate();
}

void TOrlMemoStrings::SetTextStr(std::u16string_view Value) { ParseRows(Value, false); }

void TOrlMemoStrings::SetTextStrSilent(std::u16string_view Value) { ParseRows(Value, true); }

void TOrlMemoStrings::ParseRows(std::u16string_view Value, bool bSilent) {
  const TMemoStoreSettings settings = Settings();
  std::lock_guard lock(FLock);
  const TBulkLoad bulk(*this);
  BeginUpdate();
  const std::vector<TRowMark> marks = bSilent ? NoteMarks() : std::vector<TRowMark>();
  if (!FAddToStringList && !FMonitorLogFile) Clear();
  if (bSilent && settings.bBinaryMode)
    AddQuickLineWith(Value, settings, NewRowState(settings));
  else if (!Value.empty())
    ParseLines(Value, bSilent, settings);
  RestoreMarks(marks);
  EndUpdate();
}

void TOrlMemoStrings::ParseLines(std::u16string_view Value, bool bSilent, const TMemoStoreSettings& settings) {
  TLineParse parse(bSilent, settings, NewRowState(settings), IsDelimitedFile(settings));
  parse.Total = Value.size();
  ParsePiece(Value, true, parse);
  FinishParse(parse);
}

size_t TOrlMemoStrings::ParsePiece(std::u16string_view Value, bool bFinal, TLineParse& parse) {
  const auto addRow = [&](std::u16string_view piece) {
    if (FAddToLastLine && GetCount() > 0) {
      FAddToLastLine = false;
      InsertAt(GetCount() - 1, piece, GetLineLength(GetCount() - 1) + 1);
      return;
    }
    TFreshState state = parse.RowState;
    state.Ending = parse.Pending;
    if (parse.bSilent)
      InsertRow(GetCount(), Tabbed(piece, parse.Settings), FreshAttribute(state));
    else
      AddQuickLineWith(piece, parse.Settings, state);
  };
  size_t pos = 0;
  while (pos < Value.size()) {
    const bool bWasInString = FInString;
    const size_t end = EndOfParsedLine(Value, pos, parse.bDelimited, FInString, parse.bTab);
    // A line whose end the next piece holds (a CR may yet be followed by its
    // LF) is parsed again with that piece.
    if (!bFinal && (end == Value.size() || (Value[end] == u'\r' && end + 1 == Value.size()))) {
      FInString = bWasInString;
      break;
    }
    addRow(Value.substr(pos, end - pos));
    parse.Pending = 0;
    parse.bTrailingEnding = false;
    if (end == Value.size()) {
      pos = end;
      break;
    }
    const size_t next = ConsumeEnding(Value, end, parse.Counts, parse.Pending);
    if (Value[end] == kParagraphSeparator) addRow(u"");
    parse.bTrailingEnding = next == Value.size() && IsLineBreak(Value[end]);
    parse.Longest = std::max(parse.Longest, next - pos);
    pos = next;
    ReportParseProgress(parse, parse.Done + pos);
  }
  parse.Done += pos;
  return pos;
}

void TOrlMemoStrings::ReportParseProgress(TLineParse& parse, size_t pos) {
  if (!FOnProgress || parse.Total <= kProgressThreshold || pos - parse.Reported <= kProgressStep) return;
  parse.Reported = pos;
  FOnProgress(int(pos), int(parse.Total));
}

void TOrlMemoStrings::FinishParse(const TLineParse& parse) {
  if (parse.bTrailingEnding) {
    TFreshState state = parse.RowState;
    state.Ending = parse.Pending;
    InsertRow(GetCount(), u"", FreshAttribute(state));
  }
  FSysTextType = TypeFromCounts(parse.Counts, FSysTextType);
  if (FMemo) {
    FMemo->RaiseMaxLength(int(parse.Longest + kMaxLengthMargin));
    FMemo->SetHasTabs(parse.bTab);
  }
}

void TOrlMemoStrings::LoadFromFile(const std::filesystem::path& FileName) {
  TUtf16FileReader reader(FileName);
  if ((reader.HasMark() || FSaveUnicode) && !Settings().bBinaryMode)
    LoadUtf16File(reader);
  else
    TElWideStringListOf<TAttributePtr>::LoadFromFile(FileName);
}

void TOrlMemoStrings::LoadUtf16File(TUtf16FileReader& reader) {
  const TMemoStoreSettings settings = Settings();
  std::lock_guard lock(FLock);
  const TBulkLoad bulk(*this);
  BeginUpdate();
  if (!FAddToStringList && !FMonitorLogFile) Clear();
  TLineParse parse(false, settings, NewRowState(settings), IsDelimitedFile(settings));
  parse.Total = reader.Characters();
  FInString = false;
  std::u16string piece;
  // A line longer than a piece makes the next read as large as what is held,
  // so that rescanning it stays linear.
  while (reader.ReadPiece(piece, std::max(kLoadPiece, piece.size()))) piece.erase(0, ParsePiece(piece, false, parse));
  if (!piece.empty()) ParsePiece(piece, true, parse);
  FinishParse(parse);
  EndUpdate();
}

std::vector<TOrlMemoStrings::TRowMark> TOrlMemoStrings::NoteMarks() const {
  std::vector<TRowMark> marks;
  for (int i = 0; i < GetCount(); ++i) {
    const TTextAttribute& a = ReadLineAttribute(i);
    if (a.Linemark() || a.Bookmark >= 0) marks.push_back({i, a.Linemark(), a.Bookmark});
  }
  return marks;
}

void TOrlMemoStrings::RestoreMarks(const std::vector<TRowMark>& marks) {
  for (const TRowMark& mark : marks) {
    TTextAttribute* a = ValidIndex(mark.Row) ? OwnAttribute(mark.Row) : nullptr;
    if (!a) continue;
    a->SetLinemark(mark.bLinemark);
    a->Bookmark = mark.Bookmark;
    if (mark.Bookmark >= 0 && FMemo) FMemo->SetBookmarkListValue(mark.Bookmark, mark.Row);
  }
}

std::u16string TOrlMemoStrings::GetTextStr() const {
  if (GetCount() == 0) return {};
  return GetText(0, GetCount() - 1, 1, GetLineLength(GetCount() - 1), false, true, false);
}

void TOrlMemoStrings::Assign(const TElWideStrings& Source) {
  if (FMemo)
    AddStrings(Source);
  else
    TElWideStrings::Assign(Source);
  FVisibleCount = GetCount();
  if (FMemo) FMemo->LinesAssigned();
}

void TOrlMemoStrings::AssignSilent(const TElWideStrings& Source) {
  if (&Source == this) return;
  Clear();
  AddStrings(Source);
  FVisibleCount = GetCount();
}

} // namespace orl
