// Pasting with the indentation of the place: each further line of the text
// starts at the column where the paste begins, and a snippet's selection
// variable takes the selected text.

#include <algorithm>

#include "editing/OrlMemo.h"

namespace orl {

namespace {

constexpr std::u16string_view kLineEnd = u"\r\n";

/// Every line after the first starts `column` blanks in; tabs become blanks.
std::u16string IndentFollowingLines(std::u16string_view text, int column, int tabSize) {
  std::u16string result;
  const std::u16string indent(size_t(std::max(column, 0)), u' ');
  size_t start = 0;
  for (bool bFirst = true;; bFirst = false) {
    const size_t end = text.find(kLineEnd, start);
    const std::u16string_view line = text.substr(start, end == std::u16string_view::npos ? end : end - start);
    if (!bFirst) result += kLineEnd;
    if (!bFirst) result += indent;
    result += TOrlCustomMemo::StringToVisual(line, tabSize);
    if (end == std::u16string_view::npos) break;
    start = end + kLineEnd.size();
  }
  return result;
}

/// Replaces "[[sel]]", or failing that "%sel%", by the selected text.
void PutSelectionIn(std::u16string& text, std::u16string_view selected) {
  for (const std::u16string_view variable : {std::u16string_view(u"[[sel]]"), std::u16string_view(u"%sel%")}) {
    if (text.find(variable) == std::u16string::npos) continue;
    std::u16string result;
    size_t start = 0;
    for (size_t at = text.find(variable); at != std::u16string::npos; at = text.find(variable, start)) {
      result.append(text, start, at - start);
      result += selected;
      start = at + variable.size();
    }
    text = result + text.substr(start);
    return;
  }
}

} // namespace

void TOrlCustomMemo::SmartPasteText(std::u16string str, bool bInsertAtBOL, bool bForce, int nCurPos,
                                    bool bReplaceSelVariable) {
  if (FReadOnly || FSyncEdit) return;
  if (FOverwrite && FOverwritePasteMode && !HasSelection()) {
    OverwriteWithString(str);
    return;
  }
  if (FBinaryMode || (!bForce && !FSmartPaste) || FColumnMode) {
    ReplaceSelectionText(str, false, false, bInsertAtBOL, false, false);
    return;
  }
  const TOrderedSelection s = HasSelection() ? GetSelection() : TOrderedSelection{FCurX, FCurY, FCurX, FCurY};
  std::u16string text = IndentFollowingLines(str, FromRealCursorPos(s.StartY, s.StartX), FTabSize);
  if (bReplaceSelVariable) PutSelectionIn(text, SelectedText());
  ReplaceSelectionText(text, false, false, false, false, false);
  if (nCurPos < 0) return;
  // The offset counts 2 for each line end of the inserted text.
  const std::u16string_view inserted = std::u16string_view(text).substr(0, std::min<size_t>(size_t(nCurPos), text.size()));
  int row = s.StartY, column = s.StartX;
  for (size_t start = 0;;) {
    const size_t end = inserted.find(kLineEnd, start);
    if (end == std::u16string_view::npos) {
      column += int(inserted.size() - start);
      break;
    }
    ++row;
    column = 0;
    start = end + kLineEnd.size();
  }
  SetTextCursor(column, row, true);
}

void TOrlCustomMemo::OverwriteWithString(std::u16string_view s) {
  if (FReadOnly || FSyncEdit) return;
  // As many characters as the text has, within the caret's row.
  const int length = InternalLines().GetLineLength(FCurY);
  const int end = std::min(FCurX + int(s.size()), std::max(length, FCurX));
  if (end > FCurX) SetSelectionSilent(FCurX, FCurY, end, FCurY);
  ReplaceSelectionText(s, false, false, false, false, false);
}

} // namespace orl
