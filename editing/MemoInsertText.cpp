// Insertion of text at the caret: the core that every paste, Enter and typed
// replacement goes through, and its wrappers.

#include <algorithm>

#include "editing/OrlMemo.h"
#include "editing/UndoRecords.h"
#include "platform/CodePages.h"

namespace orl {

namespace {

/// The lines of a text, split at CR LF, LF or CR; a final line end leaves an empty last line.
std::vector<std::u16string> LinesOf(std::u16string_view text) {
  std::vector<std::u16string> lines = SplitLines(text);
  if (text.empty() || text.back() == u'\r' || text.back() == u'\n') lines.emplace_back();
  return lines;
}

} // namespace

void TOrlCustomMemo::AddUndo(std::unique_ptr<TUndo> record) { InternalUndoList().Add(std::move(record)); }

void TOrlCustomMemo::FillUndo(TUndo& record, int x0, int y0, int x, int y, std::u16string text) {
  // Offsets only tell wrapped positions apart; without wrap the rows do.
  const bool bOffsets = WrapOn();
  const int pos0 = bOffsets ? int(TextFromPos(x0, y0)) : 0;
  const int pos = bOffsets ? int(TextFromPos(x, y)) : 0;
  record.SetUndoData(*this, pos0, pos, x0, y0, x, y, std::move(text), FColumnMode);
}

void TOrlCustomMemo::RowEdited(int line) {
  ChangeLineHistory(line);
  InvalidateLine(line);
}

std::u16string TOrlCustomMemo::SelectedText() {
  if (!HasSelection()) return {};
  const TOrderedSelection s = GetSelection();
  return InternalLines().GetText(s.StartY, s.EndY, s.StartX + 1, s.EndX, FBinaryMode, true, false);
}

std::u16string TOrlCustomMemo::TabsForInsert(std::u16string_view head, std::u16string_view piece) const {
  if (FPreserveTab || FBinaryMode || piece.find(u'\t') == std::u16string_view::npos) return std::u16string(piece);
  // Tab stops count from the row's start, so the head decides where the piece's tabs end.
  std::u16string whole(head);
  whole += piece;
  return StringToVisual(whole).substr(StringToVisual(head).size());
}

int TOrlCustomMemo::SpliceLines(int x, int y, std::u16string_view AValue, bool bEnter) {
  TOrlMemoStrings& lines = InternalLines();
  const std::vector<std::u16string> pieces = LinesOf(AValue);
  const std::u16string row(lines.GetLineString(y));
  std::u16string head = row.substr(0, std::min<size_t>(size_t(x), row.size()));
  if (size_t(x) > row.size() && !WrapOn() && !FNotepadCursor) head.append(size_t(x) - row.size(), u' ');
  const std::u16string tail = row.substr(std::min<size_t>(size_t(x), row.size()));
  const std::u16string first = TabsForInsert(head, pieces.front());
  if (pieces.size() == 1) {
    lines.Put(y, head + first + tail);
    RaiseMaxLength(lines.GetLineLength(y));
    RowEdited(y);
    FCurX = int(head.size() + first.size());
    return y;
  }
  const int last = y + int(pieces.size()) - 1;
  if (bEnter && x == 0 && pieces.size() == 2 && pieces.front().empty() && pieces.back().empty()) {
    // A line break before the row's text: the new row goes above, so the
    // row keeps its marks and the state cached at its end.
    lines.InsertSilent(y, u"");
    ChangeLineHistory(y);
    FCurX = 0;
    return last;
  }
  lines.Put(y, head + first);
  for (size_t i = 1; i < pieces.size(); ++i) {
    std::u16string text = TabsForInsert(u"", pieces[i]);
    if (i + 1 == pieces.size()) FCurX = int(text.size());
    lines.InsertSilent(y + int(i), i + 1 == pieces.size() ? text + tail : text);
  }
  for (int line = y; line <= last; ++line) {
    RaiseMaxLength(lines.GetLineLength(line));
    ChangeLineHistory(line);
  }
  return last;
}

void TOrlCustomMemo::ReplaceSelectionText(std::u16string_view AValue, bool bEnter, bool bSelectInserted,
                                          bool bInsertAtBOL, bool bKeepCursorInUndo, bool bNoUndo) {
  if (FReadOnly || FSyncEdit) return;
  FOffsetScrollMode = osmNotAllow;
  TOrlMemoStrings& lines = InternalLines();
  if (lines.Count() == 0) lines.DoAdd(u"");
  const bool bWasHalted = SuspendThread(true);
  const bool bReplace = HasSelection() || FReplaceAll;
  const bool bRecord = !FReplaceAll && !bNoUndo;
  const TOrderedSelection sel = HasSelection() ? GetSelection() : TOrderedSelection{FCurX, FCurY, FCurX, FCurY};
  const int caretX0 = FCurX, caretY0 = FCurY;
  std::unique_ptr<TUndo> record;
  if (bRecord && bReplace) {
    auto replace = std::make_unique<TReplaceUndo>();
    replace->FUnicodeText = SelectedText();
    replace->SetSelection(*this, FSelStartX, FSelStartY, FSelEndX, FSelEndY);
    replace->FOverwriteReplace = FOverwrite;
    replace->FOverwritePasteMode = FOverwritePasteMode;
    record = std::move(replace);
  } else if (bRecord) {
    record = std::make_unique<TPasteUndo>();
  }
  DeleteSelection(false, false, false, false);
  const int startX = bInsertAtBOL ? 0 : (WrapOn() ? std::min(sel.StartX, lines.GetLineLength(sel.StartY)) : sel.StartX);
  const int startY = std::clamp(sel.StartY, 0, lines.Count() - 1);
  const bool bEnterAtRowStart = bEnter && startX == 0 && AValue.find_first_not_of(u"\r\n") == std::u16string_view::npos;
  ClearLineStylesFrom(bEnterAtRowStart ? startY + 1 : startY);

  const bool bSavedRefresh = FLetRefresh;
  FLetRefresh = false;
  const int savedX = FCurX;
  const int endY = SpliceLines(startX, startY, AValue, bEnter);
  const int endX = FCurX;
  FLetRefresh = bSavedRefresh;
  // The record goes in before the caret moves: leaving the row may cut its
  // trailing blanks, and that record must come after this one.
  if (record) {
    const int x0 = bKeepCursorInUndo ? caretX0 : startX, y0 = bKeepCursorInUndo ? caretY0 : startY;
    if (record->Kind() == TUndoKind::Replace) {
      FillUndo(*record, x0, y0, endX, endY, std::u16string(AValue));
    } else {
      FillUndo(*record, x0, y0, endX, endY, u"");
      record->FUnicodeText = AValue;
    }
    record->FInsertAtBOL = bInsertAtBOL;
    AddUndo(std::move(record));
  }
  SetTextCursorValues(savedX, startY);
  // A whole line pasted above the caret's row leaves the caret in its column.
  if (bEnter || !FPasteDoNotMoveCursor) SetTextCursor(bInsertAtBOL ? savedX : endX, endY, false);
  ClearSelection(false);
  if (bSelectInserted) SetSelectionSilent(startX, startY, endX, endY);
  if (endY != startY) LinesChanged(false, false, true);
  if (!bSelectInserted) FOldCurX = TextLength(FCurY, FCurX, false, false);
  if (!bWasHalted) SuspendThread(false);
  if (!WrapOn() && FLetRefresh) {
    if (bEnter) InvalidateLines(startY, std::max(LastVisibleLine(), endY));
    else Invalidate();
  }
}

void TOrlCustomMemo::InsertText(std::u16string_view AValue, bool bInsertAtBOL) {
  ReplaceSelectionText(AValue, false, false, bInsertAtBOL, false, false);
}

void TOrlCustomMemo::InsertTextAtXY(std::u16string_view AValue, int x, int Y) {
  TOrlMemoStrings& lines = InternalLines();
  if (FReadOnly || Y < 0 || Y >= lines.Count() || x < 0) return;
  const bool bSavedRefresh = FLetRefresh;
  FLetRefresh = false;
  const int caretX = FCurX;
  const int endY = SpliceLines(x, Y, AValue, false);
  FCurX = caretX;
  FLetRefresh = bSavedRefresh;
  ClearLineStylesFrom(Y);
  if (endY != Y) LinesChanged(true, false, true);
  else InvalidateLine(Y);
}

void TOrlCustomMemo::InsertIndentedText(std::u16string_view s) {
  const std::u16string indent(size_t(std::max(FCurX, 0)), u' ');
  std::u16string text;
  const std::vector<std::u16string> pieces = LinesOf(s);
  for (size_t i = 0; i < pieces.size(); ++i) {
    if (i > 0) text += u"\r\n" + indent;
    text += pieces[i];
  }
  SetSelectionText(text);
}

void TOrlCustomMemo::InsertSelectionSilent(std::u16string_view AValue) {
  const bool bSavedRefresh = FLetRefresh;
  FLetRefresh = false;
  ReplaceSelectionText(AValue, false, false, false, false, true);
  FLetRefresh = bSavedRefresh;
}

void TOrlCustomMemo::SetSelectionText(std::u16string_view AValue) {
  ReplaceSelectionText(AValue, false, false, false, false, false);
}

} // namespace orl
