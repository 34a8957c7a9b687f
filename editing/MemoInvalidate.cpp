// What the memo asks its window to draw again after a change: the whole
// control, a band of rows, or one row drawn at once.

#include <algorithm>

#include "editing/OrlMemo.h"

namespace orl {

void TOrlCustomMemo::Invalidate() {
  if (!FLetRefresh || FClosing || FNoUpdate) return;
  FWindow->InvalidateAll();
  if (FSplitMemo && FActiveSplitView) FSplitMemo->UpdateSelection(true);
}

void TOrlMemo::Invalidate() {
  TOrlCustomMemo::Invalidate();
  FUpdateAnnotationBar = true;
}

void TOrlCustomMemo::InvalidateLines(int from, int to) {
  if (!FLetRefresh || FClosing || FCellSize.H <= 0) return;
  TOrlMemoStrings& lines = InternalLines();
  if (lines.Count() == 0) return;
  const bool bToBottom = to < 0;
  if (from < 0) from = FTopLine;
  if (bToBottom) to = LastVisibleLine();
  if (to < from) {
    if (bToBottom) return;  // the range starts below the view
    std::swap(from, to);
  }
  from = std::clamp(from, FTopLine, lines.Count() - 1);
  to = std::clamp(to, from, lines.Count() - 1);
  // Under wrap a change may move text into the real line's later rows.
  if (WrapOn())
    while (to + 1 < lines.Count() && lines.IsLineWrapped(to + 1)) ++to;
  // A change of lines leaves the map as it is.
  if (FShowDocumentMap && FDocMapDrawType == dmrAllow) FDocMapDrawType = dmrNone;
  const TRect area = EditorRect(false, -1);
  const int top = area.Top + GetRowFromLine(from) * FCellSize.H;
  const int bottom = area.Top + (GetRowFromLine(to) + 1) * FCellSize.H;
  if (bottom <= area.Top || top >= area.Bottom) return;
  FWindow->Invalidate({1, std::max(top, area.Top), area.Right, std::min(bottom, area.Bottom)});
}

void TOrlCustomMemo::RedrawLine(int line) {
  if (!FLetRefresh || FClosing || FCellSize.H <= 0) return;
  const TRect area = EditorRect(true, -1);
  const int row = GetRowFromLine(line);
  const int top = area.Top + row * FCellSize.H;
  if (row < 0 || top >= area.Bottom) return;
  FWindow->RedrawRect({area.Left, top, area.Right, std::min(top + FCellSize.H, area.Bottom)});
}

void TOrlCustomMemo::InvalidateLine(int line) {
  TOrlMemoStrings& lines = InternalLines();
  if (lines.UpdateCount() > 0 || line < FTopLine || line >= lines.Count() || FClosing) return;
  // The state the row ends in now, against the one the rows below were drawn from.
  TStyle fresh = GetUpStyle(line - 1, false);
  GetUpLineStyle(line, 0, -1, fresh, false);
  const TStyleRef before = lines.ReadLineAttribute(line).Style();
  const TStyle cleared;
  const TStyle& old = before ? *before : cleared;
  const bool bSameEnd = fresh.Properties.FBooleanArray == old.Properties.FBooleanArray &&
                        fresh.Properties.BracketId == old.Properties.BracketId && fresh.Block.Id == old.Block.Id;
  if (bSameEnd) {
    SetLineStyle(line, fresh);
    const int width = TextLength(line, lines.GetLineLength(line), false, false);
    const bool bWiderThanPage = !FWindow->ScrollBarVisible(TScrollBarKind::sbHorizontal) && !WrapOn() &&
                                width > VisiblePosCount() * FCellSize.W;
    if (bWiderThanPage) {
      // The pixel measure only: the character count behind force wrap is the store's.
      FMaxTextWidth = std::max(FMaxTextWidth, width);
      ResizeScrollBars(false, 0);
      Invalidate();
    } else {
      RedrawLine(line);
    }
  } else {
    // The change runs on below: every row from here is drawn from new states.
    const bool bWasUpdate = FUpdate;
    FUpdate = true;
    ClearLineStylesFrom(line);
    SetLineStyle(line, fresh);
    InvalidateLines(line, -1);
    FUpdate = bWasUpdate;
  }
  if (FSplitMemo && FActiveSplitView) FSplitMemo->InvalidateLines(line, line);
}

} // namespace orl
