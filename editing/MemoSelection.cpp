// The selection: setting it by offsets or positions, collapsing it, growing
// it behind the caret with only the rows that changed repainted, selecting
// everything, and the smart highlight of a selected word.

#include <algorithm>
#include <string>

#include "editing/OrlMemo.h"

namespace orl {

TFullPos TOrlCustomMemo::ClampToStore(TFullPos pos) {
  TOrlMemoStrings& lines = InternalLines();
  pos.Y = std::clamp(pos.Y, 0, std::max(lines.Count() - 1, 0));
  pos.x = std::max(pos.x, 0);
  if (NoVirtualSpace() && !FColumnMode) pos.x = std::min(pos.x, lines.GetLineLength(pos.Y));
  return pos;
}

void TOrlCustomMemo::ClearSelection(bool bRedraw) {
  FAutoHighlightWordString.clear();
  if (FSplitMemo) FSplitMemo->FAutoHighlightWordString.clear();
  const bool bHad = HasSelection();
  FSelStartX = FSelEndX = FPrevSelX = FCurX;
  FSelStartY = FSelEndY = FPrevSelY = FCurY;
  if (!bRedraw || !bHad) return;
  FOffsetScrollMode = osmNone;
  NotifySelectionChange();
  Invalidate();
}

// The split partner calls this when the other view repaints: both show one
// text, so an edit there may leave this selection past the text's end. The
// selection is kept and clamped, never dropped, so that scrolling or typing in
// one view leaves the other's selection where the user made it.
void TOrlCustomMemo::UpdateSelection(bool bRedraw) {
  if (!HasSelection()) return;
  const TFullPos start = ClampToStore({FSelStartX, FSelStartY});
  const TFullPos end = ClampToStore({FSelEndX, FSelEndY});
  if (start == TFullPos{FSelStartX, FSelStartY} && end == TFullPos{FSelEndX, FSelEndY}) return;
  SetSelectionSilent(start.x, start.Y, end.x, end.Y);
  if (bRedraw) Invalidate();
}

void TOrlCustomMemo::SetSelectionSilent(int StartX, int StartY, int EndX, int EndY) {
  FSelStartX = StartX;
  FSelStartY = StartY;
  FSelEndX = EndX;
  FSelEndY = EndY;
}

void TOrlCustomMemo::SetSelection2(int StartX, int StartY, int EndX, int EndY, bool bRedraw) {
  const TFullPos start = ClampToStore({StartX, StartY});
  const TFullPos end = ClampToStore({EndX, EndY});
  SetSelectionSilent(start.x, start.Y, end.x, end.Y);
  FMoveCaretXY = true;
  SetCurY(end.Y);
  SetCurX(end.x);
  FMoveCaretXY = false;
  ScrollToCaret(true, true);
  FSelEndX = FPrevSelX = FCurX;
  FSelEndY = FPrevSelY = FCurY;
  PlaceCaret(true);
  if (bRedraw) Invalidate();
  NotifySelectionChange();
}

void TOrlCustomMemo::SetSelection(int64_t Start, int64_t len, bool bSilent) {
  const TFullPos start = PosFromText(std::max<int64_t>(Start, 0));
  const TFullPos end = PosFromText(std::max<int64_t>(Start + len, 0));
  SetSelectionSilent(start.x, start.Y, end.x, end.Y);
  SetTextCursorValues(end.x, end.Y);
  FPrevSelX = end.x;
  FPrevSelY = end.Y;
  if (!bSilent) Invalidate();
  NotifySelectionChange();
}

void TOrlCustomMemo::SetSelStartPos(int line, int col, int length) {
  line = ClampToStore({0, line}).Y;
  const int x = ToRealCursorPos(line, col);
  FFindScroll = true;
  SetSelection2(x, line, x + length, line, true);
  FFindScroll = false;
}

void TOrlCustomMemo::SetLineSelection(int line, int ax, int ALen) { SetSelection2(ax, line, ax + ALen, line, true); }

int64_t TOrlCustomMemo::GetSelectionLength(bool bIncludeCRLF, bool bRealCRLF) {
  if (!HasSelection()) return 0;
  const TOrderedSelection s = GetSelection();
  if (FColumnMode) return int64_t(s.EndY - s.StartY + 1) * (s.EndX - s.StartX);
  TOrlMemoStrings& lines = InternalLines();
  const auto inRow = [&](int x, int y) { return std::min(x, lines.GetLineLength(y)); };
  // Offsets count 2 for each line end (none in binary mode); the line ends
  // inside the selection are counted from the store's running sums.
  const int64_t span = TextFromPos(inRow(s.EndX, s.EndY), s.EndY) - TextFromPos(inRow(s.StartX, s.StartY), s.StartY);
  if (FBinaryMode) return span;
  const int64_t ends = lines.RowsStartingLines(s.StartY + 1, s.EndY + 1);
  const int64_t characters = span - 2 * ends;
  if (!bIncludeCRLF) return characters;
  const bool bOneCharacterEnds = bRealCRLF && (lines.FSysTextType == sttUnix || lines.FSysTextType == sttMac);
  return characters + (bOneCharacterEnds ? 1 : 2) * ends;
}

int TOrlCustomMemo::GetSelectionRanges(std::vector<std::u16string>& ls) {
  if (!HasSelection()) return 0;
  const TOrderedSelection s = GetSelection();
  const std::string range = std::to_string(s.StartY) + "=" + std::to_string(s.EndY);
  ls.emplace_back(range.begin(), range.end());
  return s.EndY - s.StartY + 1;
}

void TOrlCustomMemo::ExpandSelection(bool bInvalidateAll, bool bSetOldCurX, bool bInvalidateOnly,
                                     bool bAllowSmartHighlight) {
  FSelEndX = FCurX;
  FSelEndY = FCurY;
  const bool bHadHighlight = !FAutoHighlightWordString.empty();
  FAutoHighlightWordString.clear();
  if (FSplitMemo) FSplitMemo->FAutoHighlightWordString.clear();
  bool bRepainted = false;
  if (bAllowSmartHighlight && FSmartHighlight) {
    FDocMapDrawType = dmrNone;
    const TOrderedSelection s = GetSelection();
    const std::u16string_view row = InternalLines().GetLineString(s.StartY);
    const auto isBound = [&](int i) {
      if (i < 0 || size_t(i) >= row.size()) return true;
      return FSelectDelimiters.find(row[size_t(i)]) != std::u16string::npos || CharIsWhiteSpace(row[size_t(i)], true);
    };
    const bool bOneRow = s.StartY == s.EndY && s.EndX > s.StartX && size_t(s.EndX) <= row.size();
    if (bOneRow && (!FSmartHighlightWholeWords || (isBound(s.StartX - 1) && isBound(s.EndX)))) {
      FAutoHighlightWordString = row.substr(size_t(s.StartX), size_t(s.EndX - s.StartX));
      if (FSplitMemo) FSplitMemo->FAutoHighlightWordString = FAutoHighlightWordString;
    }
    if (bHadHighlight || !FAutoHighlightWordString.empty()) {
      Invalidate();
      bRepainted = true;
    }
  }
  if (bInvalidateOnly && !bRepainted) {
    Invalidate();
    return;
  }
  if (bSetOldCurX) FOldCurX = TextLength(FCurY, FCurX, false, false);
  if (!bRepainted) {
    if (bInvalidateAll) {
      FOffsetScrollMode = osmNotAllow;
      Invalidate();
    } else if (FColumnMode) {
      InvalidateLines(std::min({FSelStartY, FSelEndY, FPrevSelY}), std::max({FSelStartY, FSelEndY, FPrevSelY}));
    } else {
      InvalidateLines(FPrevSelY, FSelEndY);
    }
  }
  FPrevSelX = FCurX;
  FPrevSelY = FCurY;
  NotifySelectionChange();
}

void TOrlCustomMemo::SelectAll(bool Silent) {
  if (FSyncEdit) return;
  FOffsetScrollMode = osmNotAllow;
  TOrlMemoStrings& lines = InternalLines();
  const int last = lines.Count() - 1;
  if (FColumnMode) {
    const int visual = FromRealCursorPos(FCurY, FCurX);
    SetSelectionSilent(0, 0, ToRealCursorPos(last, visual), last);
  } else {
    SetSelectionSilent(0, 0, lines.GetLineLength(last), last);
    if (!Silent) {
      FMoveCaretXY = true;
      SetCurY(last);
      SetCurX(lines.GetLineLength(last));
      FMoveCaretXY = false;
      ScrollToCaret(true, true);
      PlaceCaret(true);
    }
  }
  if (Silent) return;
  FPrevSelX = FCurX;
  FPrevSelY = FCurY;
  FOldCurX = TextLength(FCurY, FCurX, false, false);
  Invalidate();
  NotifySelectionChange();
  if (Hooks.RecordMacro) Hooks.RecordMacro(63, 0);
}

} // namespace orl
