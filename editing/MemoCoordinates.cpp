// Conversions between the memo's coordinate systems: character and visual
// columns, lines and screen rows, rows and real lines, text offsets.

#include <algorithm>

#include "editing/OrlMemo.h"

namespace orl {
namespace {

int TabAdvance(int column, int tabSize) { return tabSize > 0 ? tabSize - column % tabSize : 1; }

/// The character index that visual column vx falls on in `text`; a tab
/// whose cell holds vx counts as passed only from the middle of its cell on,
/// so that a click in its left half lands before it. Past the text every
/// column is one character.
int VisualToIndex(std::u16string_view text, int vx, int tabSize) {
  if (vx < 1) return vx;
  int index = 0;
  int column = 0;
  while (column < vx) {
    if (size_t(index) < text.size() && text[size_t(index)] == u'\t') {
      const int after = column + TabAdvance(column, tabSize);
      ++index;
      if (after > vx && after - tabSize / 2 >= vx) --index;
      column = after;
    } else {
      ++column;
      ++index;
    }
  }
  return index;
}

} // namespace

TOrderedSelection OrderSelection(int StartX, int StartY, int EndX, int EndY, bool bColumn) {
  TOrderedSelection s{StartX, StartY, EndX, EndY};
  if (s.EndY < s.StartY || (s.EndY == s.StartY && s.EndX < s.StartX)) {
    std::swap(s.StartX, s.EndX);
    std::swap(s.StartY, s.EndY);
  }
  if (bColumn && s.EndX < s.StartX) std::swap(s.StartX, s.EndX);
  return s;
}

TOrderedSelection TOrlCustomMemo::GetSelection() const {
  return OrderSelection(FSelStartX, FSelStartY, FSelEndX, FSelEndY, FColumnMode);
}

int TOrlCustomMemo::FromRealCursorPos(int line, int x) {
  if (x <= 0 || FClosing) return x;
  const std::u16string_view row = InternalLines().GetLineString(line);
  int column = 0;
  for (int i = 0; i < x; ++i)
    column += size_t(i) < row.size() && row[size_t(i)] == u'\t' ? TabAdvance(column, FTabSize) : 1;
  return column;
}

int TOrlCustomMemo::ToRealCursorPos(int line, int vx, std::u16string_view sv) {
  if (vx < 1) return vx;
  if (sv.empty() && line >= InternalLines().Count()) return vx;
  return VisualToIndex(sv.empty() ? InternalLines().GetLineString(line) : sv, vx, FTabSize);
}

int TOrlCustomMemo::ToRealStringPos(int vx, std::u16string_view W, int indx, int ALen) const {
  const size_t start = std::min(size_t(std::max(indx, 0)), W.size());
  const std::u16string_view piece = W.substr(start, ALen < 0 ? std::u16string_view::npos : size_t(ALen));
  return VisualToIndex(piece, vx, FTabSize);
}

std::u16string TOrlCustomMemo::StringToVisual(std::u16string_view W, int tabSize) {
  std::u16string result;
  result.reserve(W.size());
  size_t i = 0;
  for (; i < W.size(); ++i) {
    const char16_t ch = W[i];
    if (ch == u'\t')
      result.append(size_t(TabAdvance(int(result.size()), tabSize)), u' ');
    else if (ch == u' ' || ch == u'\u00A0')
      result.push_back(ch);
    else
      break;
  }
  result.append(W.substr(i));
  return result;
}

int64_t TOrlCustomMemo::TextFromPos(int x, int y) { return InternalLines().GetCharPosFromXY(x, y); }

TFullPos TOrlCustomMemo::PosFromText(int64_t pos) {
  TFullPos p;
  InternalLines().GetXYFromCharPos(pos, p.x, p.Y, false, 0);
  return p;
}

int TOrlCustomMemo::ShownRowsBetween(int from, int to) {
  if (to < from) return -InternalLines().ShownRowsIn(to, from);
  return InternalLines().ShownRowsIn(from, to);
}

int TOrlCustomMemo::StepShownLines(int from, int count) {
  TOrlMemoStrings& lines = InternalLines();
  const int last = std::max(lines.Count() - 1, 0);
  if (!FRegionNodes || !FAllowNodes) return std::clamp(std::clamp(from, 0, last) + count, 0, last);
  return lines.StepShownRows(from, count);
}

int TOrlCustomMemo::GetRowFromLine(int line) {
  if (FHexView) return line;
  if (InternalLines().Count() == 0) return 0;
  return ShownRowsBetween(FTopLine, line);
}

int TOrlCustomMemo::GetLineFromRow(int row) { return StepShownLines(FTopLine, row); }

int TOrlCustomMemo::GetNextVisibleLine(int from, int line) {
  if (FHexView) return line;
  return StepShownLines(from, line - from);
}

int TOrlCustomMemo::GetVisibleLines(int nFrom, int nTo) {
  if (nTo < nFrom) return -ShownRowsBetween(nTo, nFrom + 1);
  return ShownRowsBetween(nFrom, nTo + 1);
}

int TOrlCustomMemo::GetWrapStartLine(int line) {
  TOrlMemoStrings& lines = InternalLines();
  line = std::min(line, lines.Count() - 1);
  while (line > 0 && lines.IsLineWrapped(line)) --line;
  return std::max(line, 0);
}

int TOrlCustomMemo::GetRealLine(int line) {
  if (line < 0) return 0;
  if (FBinaryMode || FHexView) return line;
  if (!FWordWrap && !FForceWrap && !FTextDiffMode) {
    FRealTopLine = FTopLine;
    return line;
  }
  FRealTopLine = RealLineOfRow(FTopLine);
  return RealLineOfRow(line);
}

int TOrlCustomMemo::RealLineOfRow(int line) {
  // A continuation row belongs to the line its first row starts, and a filler
  // row to the line before it; rows past the end are one line each.
  TOrlMemoStrings& lines = InternalLines();
  const int inside = std::min(line, lines.Count() - 1);
  const int real = lines.RowsStartingRealLines(0, inside + 1) - 1 + (line - inside);
  return std::max(real, 0);
}

bool TOrlCustomMemo::RowsAreWrapped() const { return (FWordWrap || FForceWrap) && !FHardWrapAtRightMargin; }

void TOrlCustomMemo::GetUnwrappedPos(int& cx, int& cy) {
  if (FBinaryMode) {
    for (; cx > 79; cx -= 80) ++cy;
  }
  if (!RowsAreWrapped()) return;
  TOrlMemoStrings& lines = InternalLines();
  for (int row = GetWrapStartLine(cy); row < cy; ++row) cx += lines.GetLineLength(row);
  cy = GetRealLine(cy);
}

void TOrlCustomMemo::GetWrappedPos(int& cx, int& cy) {
  if (!RowsAreWrapped()) return;
  TOrlMemoStrings& lines = InternalLines();
  int row = lines.GetWrapIndex(cy);
  while (row + 1 < lines.Count() && cx > lines.GetLineLength(row) && lines.IsLineWrapped(row + 1)) {
    cx -= lines.GetLineLength(row);
    ++row;
  }
  cy = row;
}

void TOrlCustomMemo::SetWrapped(int index, bool Value) {
  TOrlMemoStrings& lines = InternalLines();
  if (index >= 0 && index < lines.Count()) lines.GetLineAttribute(index)->SetWrapped(Value);
}

int TOrlCustomMemo::GetUnwrappedLine(int line, int& OffsetReal, int& OffsetWrapped) {
  OffsetReal = OffsetWrapped = 0;
  if (FHardWrapAtRightMargin || !WrapOn()) return line;
  TOrlMemoStrings& lines = InternalLines();
  if (line >= 0 && line < lines.Count()) {
    const int first = GetWrapStartLine(line);
    for (int row = first; row < line; ++row) OffsetReal += lines.GetLineLength(row);
    OffsetWrapped = line - first;
  }
  return GetRealLine(line);
}

int TOrlCustomMemo::FindRealLine(int line, int OffReal, int& OffWrap) {
  int cx = OffReal;
  int cy = line;
  GetWrappedPos(cx, cy);
  OffWrap = cx;
  return cy;
}

} // namespace orl
