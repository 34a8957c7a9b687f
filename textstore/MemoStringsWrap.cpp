// Rows of real lines: the quick family that lays a line out in rows as the
// memo wraps it, the wrapper's row tools, and the row of a real line.

#include <algorithm>
#include <mutex>
#include <numeric>

#include "textstore/OrlMemoStrings.h"

namespace orl {

namespace {

// Copy(S, x, len) with 1-based x, clamped to S.
std::u16string_view CopyOf(std::u16string_view S, int x, int len) {
  const size_t start = size_t(std::max(x, 1) - 1);
  if (start >= S.size() || len < 1) return {};
  return S.substr(start, size_t(len));
}

constexpr uint32_t FlagBit(TLineFlag flag) { return 1u << flag; }

// A line shorter than this never wraps when it is written over a row.
constexpr size_t kShortestWrappedLine = 9;

} // namespace

void TOrlMemoStrings::LayOut(std::u16string_view ws, TQuickLineCall call) {
  FPieces.clear();
  if (FMemo) FMemo->LayoutLine(ws, call, FPieces);
  if (FPieces.size() < 2) {  // the common case: one row
    FPieces.assign(1, int(ws.size()));
    return;
  }
  // Whatever the layout says, the rows hold the whole line and nothing more.
  size_t placed = 0;
  for (int& length : FPieces) {
    length = std::clamp(length, 0, int(ws.size() - placed));
    placed += size_t(length);
  }
  std::erase(FPieces, 0);
  if (FPieces.empty())
    FPieces.push_back(int(ws.size()));
  else
    FPieces.back() += int(ws.size() - placed);
}

void TOrlMemoStrings::InsertPieces(int row, std::u16string_view ws, const TMemoStoreSettings& settings,
                                   const TFreshState& firstRow) {
  TFreshState continuation = NewRowState(settings);
  continuation.Flags = FlagBit(lfWrapped);
  size_t start = 0;
  for (size_t k = 0; k < FPieces.size(); ++k) {
    const std::u16string_view piece = ws.substr(start, size_t(FPieces[k]));
    start += piece.size();
    InsertRow(row++, settings.bBinaryMode ? piece : Tabbed(piece, settings),
              FreshAttribute(k == 0 ? firstRow : continuation));
  }
}

int TOrlMemoStrings::AddQuickLineWith(std::u16string_view ws, const TMemoStoreSettings& settings,
                                      const TFreshState& firstRow) {
  LayOut(ws, qlAdd);
  InsertPieces(GetCount(), ws, settings, firstRow);
  return GetCount();
}

int TOrlMemoStrings::AddQuickLine(std::u16string_view ws) {
  const TMemoStoreSettings settings = Settings();
  return AddQuickLineWith(ws, settings, NewRowState(settings));
}

void TOrlMemoStrings::InsertQuickLine(int Index, std::u16string_view ws) {
  const TMemoStoreSettings settings = Settings();
  LayOut(ws, qlInsert);
  const int row = std::max(Index, 0);
  while (GetCount() < row) DoAdd(u"");
  InsertPieces(row, ws, settings, NewRowState(settings));
}

int TOrlMemoStrings::PutQuickLine(int Index, std::u16string_view ws) {
  if (Index < 0) return Index;
  const TMemoStoreSettings settings = Settings();
  while (GetCount() < Index) DoAdd(u"");
  if (ws.size() < kShortestWrappedLine) {
    if (Index < GetCount())
      WriteRow(Index, Tabbed(ws, settings));
    else
      InsertRow(Index, Tabbed(ws, settings), FreshAttribute(NewRowState(settings)));
    return Index + 1;
  }
  LayOut(ws, qlPut);
  int row = Index;
  size_t start = 0;
  for (size_t k = 0; k < FPieces.size(); ++k, ++row) {
    const std::u16string_view piece = Tabbed(ws.substr(start, size_t(FPieces[k])), settings);
    start += size_t(FPieces[k]);
    const bool bReuse = row < GetCount() && (k == 0 || IsLineWrapped(row));
    if (bReuse) {
      WriteRow(row, piece);
      if (k == 0) SetWrappedFlag(row, false);
    } else {
      k == 0 ? InsertRow(row, piece, NewRowAttribute()) : InsertWrapped(row, piece);
    }
  }
  while (row < GetCount() && IsLineWrapped(row)) DoDelete(row);
  return row;
}

void TOrlMemoStrings::AddWrapped(std::u16string_view S) {
  TFreshState state = NewRowState(Settings());
  state.Flags = FlagBit(lfWrapped);
  Changing();
  InsertRow(GetCount(), S, FreshAttribute(state));
  Changed();
}

void TOrlMemoStrings::AddWrappedFirst(std::u16string_view S, const TTextAttribute& A) {
  Changing();
  InsertRow(GetCount(), S, CopyAttribute(A));
  Changed();
}

void TOrlMemoStrings::InsertWrapped(int Index, std::u16string_view S) {
  InsertWrappedBuffer(Index, S, 1, int(S.size()));
}

void TOrlMemoStrings::InsertWrappedFirst(int Index, std::u16string_view S, TAttributePtr A) {
  Changing();
  InsertWrappedFirstBuffer(Index, S, 1, int(S.size()), std::move(A));
  Changed();
}

void TOrlMemoStrings::InsertWrappedBuffer(int Index, std::u16string_view S, int x, int len) {
  if (Index < 0 || Index > GetCount()) return;
  TFreshState state = NewRowState(Settings());
  state.Flags = FlagBit(lfWrapped) | FlagBit(lfSpellCheck);
  InsertRow(Index, CopyOf(S, x, len), FreshAttribute(state));
}

void TOrlMemoStrings::InsertWrappedFirstBuffer(int Index, std::u16string_view S, int x, int len, TAttributePtr A) {
  if (Index < 0 || Index > GetCount()) return;
  if (!A) A = CopyAttribute(*NewRowAttribute());
  A->RequestSpellCheck();
  InsertRow(Index, CopyOf(S, x, len), std::move(A));
}

void TOrlMemoStrings::PutWrapped(int Index, std::u16string_view S, bool) {
  PutWrappedBuffer(Index, S, 1, int(S.size()));
}

void TOrlMemoStrings::PutWrappedFirst(int Index, std::u16string_view S, const TTextAttribute* A) {
  if (!ValidIndex(Index)) return;
  WriteRow(Index, S);
  if (A) SetLineAttribute(Index, *A);
  if (TTextAttribute* row = OwnAttribute(Index)) row->SetSpellCheck(true);
}

void TOrlMemoStrings::PutWrappedBuffer(int Index, std::u16string_view S, int x, int len) {
  if (!ValidIndex(Index)) return;
  PutWrappedFirstBuffer(Index, S, x, len);
  SetWrappedFlag(Index, true);
}

void TOrlMemoStrings::PutWrappedFirstBuffer(int Index, std::u16string_view S, int x, int len) {
  if (!ValidIndex(Index)) return;
  WriteRow(Index, CopyOf(S, x, len));
  if (TTextAttribute* row = OwnAttribute(Index)) {
    row->RequestSpellCheck();
    row->Enabled = true;
  }
}

int TOrlMemoStrings::GetWrapIndex(int Index) {
  const TMemoStoreSettings settings = Settings();
  if (!settings.bWrapping || Index <= 0 || GetCount() == 0) return Index;
  // Row 0 is real line 0 whatever its flag; line n starts at the row where
  // the n-th later line start is reached.
  const TRowPartition<int>& starts = Counts(rcLineStarts);
  const int beforeFirst = starts.Start(1);
  const int lines = starts.Start(GetCount()) - beforeFirst;
  // Past the end every real line is one row.
  if (Index > lines) return GetCount() - 1 + Index - lines;
  return starts.LowerBound(beforeFirst + Index) - 1;
}

int TOrlMemoStrings::GetWrappedLineCount(int line) const {
  const TMemoStoreSettings settings = Settings();
  if (settings.bBinaryMode || settings.bHexView) return 1;
  int rows = 1;
  while (line + rows < GetCount() && IsLineWrapped(line + rows)) ++rows;
  return rows;
}

std::u16string TOrlMemoStrings::GetUnwrappedLine(int Index, int& nLines) const {
  nLines = 0;
  if (!ValidIndex(Index)) return {};
  int first = Index;
  while (first > 0 && IsLineWrapped(first)) --first;
  int last = Index;
  while (last + 1 < GetCount() && IsLineWrapped(last + 1)) ++last;
  std::u16string line;
  for (int i = first; i <= last; ++i) line.append(GetLineString(i));
  nLines = last - first + 1;
  return line;
}

} // namespace orl
