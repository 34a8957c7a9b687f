// Typing: the way of a printable key from the character message to the
// text, and the commands it ends in: insert, overwrite, tab and Enter.

#include <algorithm>

#include "editing/OrlMemo.h"
#include "editing/UndoRecords.h"

namespace orl {

namespace {

constexpr char16_t kLiteralTab = 26;  // a tab that no tab handling touches

bool IsBlankOrTab(char16_t ch) { return ch == u' ' || ch == u'\t'; }

// How far up the smart tab looks for a row with text.
constexpr int kSmartTabSearchRows = 1000;

} // namespace

void TOrlCustomMemo::KeyPress(char16_t ch) {
  if (ch < 32 || ch == 127) return;  // its key already acted
  if (EncloseSelection(ch)) return;
  if (FReadOnly || FHexView || !FAltCode.empty()) return;
  if (ch == u' ') CompleteWord();
  const bool bHadSelection = HasSelection();
  FHighlightFinds.Clear();
  ClearLineStylesFrom(FCurY);
  if (Hooks.RecordMacro) Hooks.RecordMacro(FOverwrite ? 46 : 0, ch);
  if (!FRecordMacro && !bHadSelection && !FColumnMode && AutoCloseBraces(ch)) return;
  if (!bHadSelection && FOverwrite) OverwriteChar(ch);
  else InsertChar(ch);
  if (FStyles && !bHadSelection) AutoCloseBlocks(ch);
  if (bHadSelection) return;
  if (Hooks.ShowParameterHint && (ch == u'(' || ch == u')')) Hooks.ShowParameterHint();
}

void TOrlCustomMemo::CompleteWord() {
  if (FRecordMacro || !OnWordComplete || HasSelection()) return;
  const std::u16string word = LeftWordAtCursor();
  if (word.empty()) return;
  std::u16string NewWord = word;
  OnWordComplete(word, NewWord);
  if (NewWord == word) return;
  // Through the selection, so that the replacement is a step of its own to undo.
  SetSelectionSilent(FCurX - int(word.size()), FCurY, FCurX, FCurY);
  SetSelectionText(NewWord);
}

std::u16string TOrlCustomMemo::TypedText(char16_t C) const {
  if (FTabAsSpaces && C == u'\t' && !FBinaryMode) {
    const int tabSize = std::max(FTabSize, 1);
    // Counted in characters from the row's start, not in visual columns.
    return std::u16string(size_t(tabSize - FCurX % tabSize), u' ');
  }
  return std::u16string(1, C == kLiteralTab ? u'\t' : C);
}

int TOrlCustomMemo::InsertChar(char16_t C) {
  if (FReadOnly || FSyncEdit) return 0;
  TOrlMemoStrings& lines = InternalLines();
  if (lines.Count() == 0) lines.DoAdd(u"");
  if (!FColumnMode && !WrapOn() && FCurX > lines.GetLineLength(FCurY)) {
    // Virtual space: the core pads the row up to the caret.
    ReplaceSelectionText(TypedText(C), false, false, false, false, false);
    return 0;
  }
  const bool bSelection = HasSelection();
  std::unique_ptr<TReplaceUndo> replace;
  const bool bSavedRefresh = FLetRefresh;
  FLetRefresh = false;
  if (bSelection) {
    replace = std::make_unique<TReplaceUndo>();
    replace->FUnicodeText = SelectedText();
    replace->SetSelection(*this, FSelStartX, FSelStartY, FSelEndX, FSelEndY);
    DeleteSelection(false, false, false, false);
  }
  if (WrapOn()) FCurX = std::min(FCurX, lines.GetLineLength(FCurY));
  const std::u16string text = TypedText(C);
  const int x0 = FCurX, y = FCurY;
  lines.InsertAt(y, text, x0 + 1);
  ClearLineStylesFrom(y);
  RaiseMaxLength(lines.GetLineLength(y));
  FLetRefresh = bSavedRefresh;
  // The record ends behind the text even where the caret snaps past marks that follow it.
  const int x1 = x0 + int(text.size());
  SetCurX(x1);
  FOldCurX = TextLength(FCurY, FCurX, false, false);
  ClearSelection(false);
  if (bSelection) {
    const int firstRow = replace->FUndoSelStartY;
    FillUndo(*replace, x0, y, x1, y, text);
    AddUndo(std::move(replace));
    ClearLineStylesFrom(firstRow - 1);
    LinesChanged(true, false, true);
  } else if (C == u'\t') {
    auto paste = std::make_unique<TPasteUndo>();
    FillUndo(*paste, x0, y, x1, y, u"");
    paste->FUnicodeText = text;
    AddUndo(std::move(paste));
  } else {
    auto typed = std::make_unique<TInsertCharUndo>();
    FillUndo(*typed, x0, y, x1, y, text);
    AddUndo(std::move(typed));
  }
  RowEdited(y);
  return bSelection ? 1 : 0;
}

void TOrlCustomMemo::OverwriteChar(char16_t C) {
  if (FReadOnly || FSyncEdit) return;
  TOrlMemoStrings& lines = InternalLines();
  if (lines.Count() == 0) lines.DoAdd(u"");
  const int y = FCurY;
  int length = lines.GetLineLength(y);
  if (WrapOn()) FCurX = std::min(FCurX, length);
  if (FTabAsSpaces && C == u'\t') {
    // A tab writes nothing over: the caret goes to the next stop within the row.
    const int tabSize = std::max(FTabSize, 1);
    if (FCurX <= length) SetCurX(std::min(FCurX + tabSize - FCurX % tabSize, length));
    ClearSelection(true);
    return;
  }
  if (FCurX > length) {
    lines.InsertAt(y, std::u16string(size_t(FCurX - length), u' '), length + 1);
    length = FCurX;
  }
  const int x0 = FCurX;
  const char16_t written = C == kLiteralTab ? u'\t' : C;
  // A cluster (a letter with its marks, a surrogate pair) goes whole, as a
  // deletion of its own, and the character is inserted in its place: one
  // character written over half a pair would leave the other half.
  const int stop = x0 < length ? ClusterStop(y, x0, x0 + 1) : x0;
  const bool bCluster = stop > x0 + 1;
  if (bCluster) DeleteInRow(y, x0, std::min(stop, length) - x0, x0, y, false);
  std::unique_ptr<TUndo> record;
  if (x0 < length && !bCluster) {
    record = std::make_unique<TOverwriteCharUndo>();
    record->FUndoText = std::u16string(1, lines.GetCharAt(y, x0 + 1));
    lines.OverWriteAt(y, std::u16string(1, written), x0 + 1);
  } else {
    record = std::make_unique<TInsertCharUndo>();
    record->FUndoText = std::u16string(1, written);
    lines.InsertAt(y, std::u16string(1, written), x0 + 1);
    RaiseMaxLength(lines.GetLineLength(y));
  }
  SetCurX(x0 + 1);
  FOldCurX = TextLength(FCurY, FCurX, false, false);
  std::u16string text = std::move(record->FUndoText);
  FillUndo(*record, x0, y, x0 + 1, y, std::move(text));
  AddUndo(std::move(record));
  RowEdited(y);
  ClearSelection(true);
}

int TOrlCustomMemo::SmartTabTarget() {
  TOrlMemoStrings& lines = InternalLines();
  const int vx = FromRealCursorPos(FCurY, FCurX);
  for (int row = FCurY - 1, walked = 0; row >= 0 && walked < kSmartTabSearchRows; --row, ++walked) {
    if (lines.IsLineBlank(row)) continue;
    const std::u16string above = StringToVisual(lines.GetLineString(row));
    size_t p = size_t(vx) + 1;
    while (p < above.size() && !IsBlankOrTab(above[p])) ++p;
    while (p < above.size() && IsBlankOrTab(above[p])) ++p;
    return p < above.size() && int(p) > vx ? int(p) : -1;
  }
  return -1;
}

void TOrlCustomMemo::InsertTab() {
  if (FReadOnly || FSyncEdit) return;
  if (FSmartTab && FCurY > 0 && !FOverwrite && !HasSelection() && !FColumnMode) {
    const int target = SmartTabTarget();
    const int vx = FromRealCursorPos(FCurY, FCurX);
    if (target > vx) {
      SetSelectionText(std::u16string(size_t(target - vx), u' '));
      return;
    }
  }
  if (FOverwrite && !HasSelection()) OverwriteChar(u'\t');
  else InsertChar(u'\t');
}

std::u16string TOrlCustomMemo::AutoIndentText() {
  if (!FAutoIndent || FBinaryMode) return {};
  const int head = GetWrapStartLine(FCurY);
  const std::u16string_view row = InternalLines().GetLineString(head);
  size_t n = 0;
  const size_t limit = head == FCurY ? std::min(row.size(), size_t(FCurX)) : row.size();
  while (n < limit && IsBlankOrTab(row[n])) ++n;
  const std::u16string_view indent = row.substr(0, n);
  return FTabAsSpaces ? StringToVisual(indent) : std::u16string(indent);
}

void TOrlCustomMemo::EnterPress() {
  if (FReadOnly || FSyncEdit || (FColumnMode && HasSelection() && FSelStartY != FSelEndY)) return;
  if (FBinaryMode) {
    InsertChar(u'\r');
    InsertChar(u'\n');
    return;
  }
  FHideCaret = true;
  if (FOverwrite && !FChangeHistoryUndo) {
    // Overwrite mode never splits a row: Enter goes to the next one.
    if (HasSelection()) DeleteSelection(true, true, false, false);
    MoveCursor(0, 1, 0);
  } else {
    ReplaceSelectionText(u"\r\n" + AutoIndentText(), true, false, false, false, false);
  }
  FHideCaret = false;
  FMoveCaretXY = false;
  PlaceCaret(true);
}

} // namespace orl
