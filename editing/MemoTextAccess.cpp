// The memo's text as a host reads and writes it: whole text, single rows,
// the selection as text offsets, and where a character stands on screen.

#include <algorithm>

#include "editing/OrlMemo.h"

namespace orl {

void TOrlCustomMemo::SetMemoLines(const TElWideStrings& Source) { SetMemoText(Source.GetTextStr()); }

std::u16string TOrlCustomMemo::MemoText() {
  TOrlMemoStrings& lines = InternalLines();
  if (lines.Count() == 0) return {};
  const int last = lines.Count() - 1;
  return lines.GetText(0, last, 1, lines.GetLineLength(last), FBinaryMode, true, false);
}

void TOrlCustomMemo::SetMemoText(std::u16string_view Value) {
  TOrlMemoStrings& lines = InternalLines();
  if (Value.empty()) {
    lines.Clear();  // the store's text setter leaves the rows of an empty value alone
  } else {
    lines.SetText(Value);
  }
  ClearLineStylesFrom(0);
  LinesChanged(true, false, true);
}

std::u16string TOrlCustomMemo::GetLineText(int line) { return InternalLines().Get(line); }

void TOrlCustomMemo::SetLineText(int line, std::u16string_view Value) {
  TOrlMemoStrings& lines = InternalLines();
  if (line < 0 || line >= lines.Count()) return;
  lines.SetLineString(line, Value);
  ChangeLineHistory(line);
  ClearLineStylesFrom(line);
}

std::u16string TOrlCustomMemo::GetMixedCRLFText(bool bSelection) {
  TOrlMemoStrings& lines = InternalLines();
  if (lines.Count() == 0) return {};
  if (!bSelection) {
    const int last = lines.Count() - 1;
    return lines.GetText(0, last, 1, lines.GetLineLength(last), FBinaryMode, false, false);
  }
  if (!HasSelection()) return {};
  // Columns of GetText are 1-based and inclusive: the selection's end column is its last character.
  const TOrderedSelection s = GetSelection();
  return lines.GetText(s.StartY, s.EndY, s.StartX + 1, s.EndX, FBinaryMode, false, false);
}

TPoint TOrlCustomMemo::TextPoints(int x, int y) {
  if (FCellSize.W <= 0 || FCellSize.H <= 0) FontChanged();
  const TRect area = EditorRect(true, y);
  return {area.Left + TextLength(y, x, false, false) - FLeftCol * FCellSize.W,
          area.Top + GetRowFromLine(y) * FCellSize.H};
}

int64_t TOrlCustomMemo::SelStart() {
  const TOrderedSelection s = GetSelection();
  return TextFromPos(s.StartX, s.StartY);
}

int64_t TOrlCustomMemo::SelLength() {
  const TOrderedSelection s = GetSelection();
  return TextFromPos(s.EndX, s.EndY) - TextFromPos(s.StartX, s.StartY);
}

void TOrlCustomMemo::SetSelStart(int64_t Value) { SetSelection(Value, 0, false); }

void TOrlCustomMemo::SetSelLength(int64_t Value) { SetSelection(SelStart(), Value, false); }

} // namespace orl
