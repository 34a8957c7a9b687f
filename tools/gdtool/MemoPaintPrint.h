#pragma once
// What `gdtool memo` shows of painting: the runs a paint draws per row
// (print paint) and the rows each command invalidates (--trace invalidate).

#include <ostream>

#include "editing/HeadlessWindow.h"
#include "editing/OrlMemo.h"

namespace gdtool {

/// Paints the whole view on a recording canvas and writes one JSON object per
/// screen row from `firstRow` to `lastRow` (-1: the last row that shows text).
void PrintPaint(orl::TOrlMemo& memo, std::ostream& out, int firstRow, int lastRow);
/// Writes the invalidations and immediate redraws the window recorded, and forgets them.
void PrintInvalidations(orl::TOrlMemo& memo, orl::THeadlessWindow& window, std::ostream& out);

} // namespace gdtool
