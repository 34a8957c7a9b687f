// Offsets in the whole text and the rows they fall on.

#include <algorithm>

#include "textstore/OrlMemoStrings.h"

namespace orl {
namespace {

/// Characters that the ending after a row adds: 2 when the next row starts a real line.
int EndingLength(const TOrlMemoStrings& store, int row, bool bBinary) {
  if (bBinary || row + 1 >= store.Count()) return 0;
  return store.IsLineWrapped(row + 1) ? 0 : 2;
}

} // namespace

int64_t TOrlMemoStrings::GetCharPosFromXY(int x, int y) const {
  if (GetCount() == 0) return 0;
  const bool bBinary = Settings().bBinaryMode;
  y = std::clamp(y, 0, GetCount() - 1);
  int64_t pos = 0;
  for (int row = 0; row < y; ++row) pos += GetLineLength(row) + EndingLength(*this, row, bBinary);
  return pos + std::clamp(x, 0, GetLineLength(y));
}

void TOrlMemoStrings::GetXYFromCharPos(int64_t pos, int& x, int& y, bool bStartFromXY, int64_t nStartPos) const {
  const int startRow = bStartFromXY ? y : 0;
  x = y = 0;
  if (GetCount() == 0) return;
  const bool bBinary = Settings().bBinaryMode;
  int row = std::clamp(startRow, 0, GetCount() - 1);
  int64_t rest = pos - (bStartFromXY ? nStartPos : 0);
  while (row < GetCount() && rest > GetLineLength(row)) {
    rest -= GetLineLength(row) + EndingLength(*this, row, bBinary);
    ++row;
  }
  if (row >= GetCount()) {
    y = GetCount() - 1;
    x = std::max(GetLineLength(y) - 1, 0);
    return;
  }
  y = row;
  x = int(std::max<int64_t>(rest, 0));
}

} // namespace orl
