// The running sums over the rows (offsets, real-line starts, shown rows) and
// how they follow the changes of the rows.

#include <algorithm>
#include <mutex>

#include "textstore/OrlMemoStrings.h"

namespace orl {
namespace {

// Rows whose attribute went out for writing are re-read before the next
// question; beyond this many (a whole pass over the text) the sums are
// rebuilt instead, once.
constexpr size_t kMaxRowsToRecheck = 64;

} // namespace

int64_t TOrlMemoStrings::OffsetValue(int row, bool bBinary) const {
  return GetLineLength(row) + LineEndBefore(row, bBinary);
}

int TOrlMemoStrings::CountValue(TRowCount which, int row) const {
  const TTextAttribute& a = ReadLineAttribute(row);
  switch (which) {
    case rcLineStarts: return a.Wrapped() ? 0 : 1;
    case rcRealLines: return !a.Wrapped() && a.Enabled ? 1 : 0;
    default: return a.Hidden() ? 0 : 1;
  }
}

bool TOrlMemoStrings::AnyPartitionBuilt() const {
  return FOffsets.Built() || std::ranges::any_of(FCounts, &TRowPartition<int>::Built);
}

void TOrlMemoStrings::DropPartitions() const {
  FOffsets.Reset();
  for (TRowPartition<int>& counts : FCounts) counts.Reset();
  FRowsToRecheck.clear();
}

void TOrlMemoStrings::RecheckRow(int row) const {
  if (!ValidIndex(row)) return;
  if (FOffsets.Built()) FOffsets.SetValue(row, OffsetValue(row, FOffsetsBinary));
  for (int k = 0; k < rcCounts; ++k)
    if (FCounts[size_t(k)].Built()) FCounts[size_t(k)].SetValue(row, CountValue(TRowCount(k), row));
}

void TOrlMemoStrings::RecheckRows() const {
  for (const int row : FRowsToRecheck) RecheckRow(row);
  FRowsToRecheck.clear();
}

void TOrlMemoStrings::NoteAttributeWrite(int row) {
  if (!AnyPartitionBuilt() || std::ranges::find(FRowsToRecheck, row) != FRowsToRecheck.end()) return;
  if (FRowsToRecheck.size() == kMaxRowsToRecheck)
    DropPartitions();
  else
    FRowsToRecheck.push_back(row);
}

void TOrlMemoStrings::RowsReplaced(int Index, int Removed, int Added) {
  if (!AnyPartitionBuilt()) return;
  if (GetCount() == 0) {
    // A cleared store: a new text gets its sums when they are first asked for.
    DropPartitions();
    return;
  }
  if (Removed == Added) {
    for (int row = Index; row < Index + Added; ++row) RecheckRow(row);
    return;
  }
  // Noted rows keep pointing at the same rows; those removed need no check.
  std::erase_if(FRowsToRecheck, [&](int row) { return row >= Index && row < Index + Removed; });
  for (int& row : FRowsToRecheck)
    if (row >= Index) row += Added - Removed;
  if (FOffsets.Built()) {
    FOffsets.EraseRows(Index, Removed);
    FOffsets.InsertRows(Index, Added, [&](int i) { return OffsetValue(Index + i, FOffsetsBinary); });
  }
  for (int k = 0; k < rcCounts; ++k) {
    TRowPartition<int>& counts = FCounts[size_t(k)];
    if (!counts.Built()) continue;
    counts.EraseRows(Index, Removed);
    counts.InsertRows(Index, Added, [&](int i) { return CountValue(TRowCount(k), Index + i); });
  }
}

const TRowPartition<int64_t>& TOrlMemoStrings::Offsets(bool bBinary) const {
  RecheckRows();
  if (!FOffsets.Built() || FOffsetsBinary != bBinary) {
    FOffsetsBinary = bBinary;
    FOffsets.Build(GetCount(), [&](int row) { return OffsetValue(row, bBinary); });
  }
  return FOffsets;
}

const TRowPartition<int>& TOrlMemoStrings::Counts(TRowCount which) const {
  RecheckRows();
  TRowPartition<int>& counts = FCounts[size_t(which)];
  if (!counts.Built()) counts.Build(GetCount(), [&](int row) { return CountValue(which, row); });
  return counts;
}

int TOrlMemoStrings::CountIn(TRowCount which, int from, int to) const {
  from = std::clamp(from, 0, GetCount());
  to = std::clamp(to, from, GetCount());
  if (from == to) return 0;
  const TRowPartition<int>& counts = Counts(which);
  return counts.Start(to) - counts.Start(from);
}

int TOrlMemoStrings::RowsStartingRealLines(int from, int to) const { return CountIn(rcRealLines, from, to); }

int TOrlMemoStrings::RowsStartingLines(int from, int to) const { return CountIn(rcLineStarts, from, to); }

int TOrlMemoStrings::ShownRowsIn(int from, int to) const {
  from = std::clamp(from, 0, GetCount());
  to = std::clamp(to, from, GetCount());
  if (from == to) return 0;
  if (FVisibleCount == GetCount()) return to - from;
  const TRowPartition<int>& shown = Counts(rcShown);
  return shown.Start(to) - shown.Start(from);
}

int TOrlMemoStrings::StepShownRows(int from, int count) const {
  const int last = std::max(GetCount() - 1, 0);
  from = std::clamp(from, 0, last);
  if (GetCount() == 0 || count == 0) return from;
  if (FVisibleCount == GetCount()) return std::clamp(from + count, 0, last);
  const TRowPartition<int>& shown = Counts(rcShown);
  if (count > 0) {
    // The shown row that completes `count` shown rows after `from`.
    const int k = shown.LowerBound(shown.Start(from + 1) + count);
    return k > GetCount() ? last : k - 1;
  }
  // Going up: the shown row that has -count shown rows from it up to `from`.
  const int target = shown.Start(from) + count;
  if (target < 0) return 0;
  return shown.LowerBound(target + 1) - 1;
}

} // namespace orl
