// Offsets in the whole text and the rows they fall on, read from the running
// sums of the rows' lengths.

#include <algorithm>

#include "textstore/OrlMemoStrings.h"

namespace orl {

int TOrlMemoStrings::LineEndBefore(int row, bool bBinary) const { return bBinary || IsLineWrapped(row) ? 0 : 2; }

int64_t TOrlMemoStrings::RowStart(int y, bool bBinary) const {
  // Each row's sum counts the line end before it when it starts a real line;
  // the first row has none before it.
  return Offsets(bBinary).Start(y) + LineEndBefore(y, bBinary) - LineEndBefore(0, bBinary);
}

int64_t TOrlMemoStrings::GetCharPosFromXY(int x, int y) const {
  if (GetCount() == 0) return 0;
  y = std::clamp(y, 0, GetCount() - 1);
  return RowStart(y, Settings().bBinaryMode) + std::clamp(x, 0, GetLineLength(y));
}

void TOrlMemoStrings::GetXYFromCharPos(int64_t pos, int& x, int& y, bool bStartFromXY, int64_t nStartPos) const {
  const int startRow = bStartFromXY ? y : 0;
  x = y = 0;
  if (GetCount() == 0) return;
  const bool bBinary = Settings().bBinaryMode;
  const int first = std::clamp(startRow, 0, GetCount() - 1);
  // A walk from the given row and its given offset, whatever that row's real offset.
  if (bStartFromXY) pos += RowStart(first, bBinary) - nStartPos;
  // The walk stops at the first row whose end lies at or past pos. A row's
  // end is the next row's sum less the first row's line end, so the sums
  // alone find it.
  const TRowPartition<int64_t>& offsets = Offsets(bBinary);
  const int lo = std::max(offsets.LowerBound(pos + LineEndBefore(0, bBinary)) - 1, first);
  if (lo >= GetCount()) {
    y = GetCount() - 1;
    x = std::max(GetLineLength(y) - 1, 0);
    return;
  }
  y = lo;
  x = int(std::max<int64_t>(pos - RowStart(lo, bBinary), 0));
}

} // namespace orl
