// Changing the letter case of the selection, or of the character at the caret.

#include <unicode/uchar.h>

#include <algorithm>

#include "editing/OrlMemo.h"

namespace orl {

std::u16string TOrlCustomMemo::Capitalized(std::u16string_view text) const {
  std::u16string result(text);
  bool bWordStart = true;
  for (char16_t& ch : result) {
    if (IsSymbolBoundary(ch) || ch == u'\r' || ch == u'\n') {
      bWordStart = true;
      continue;
    }
    ch = bWordStart ? char16_t(u_totitle(ch)) : char16_t(u_tolower(ch));
    bWordStart = false;
  }
  return result;
}

void TOrlCustomMemo::SelToCase(TCaseType ctype) {
  if (FReadOnly || FTextDiffMode) return;
  if (!HasSelection()) {
    const int length = InternalLines().GetLineLength(FCurY);
    if (FCurX >= length) return;
    const int stop = std::max(ClusterStop(FCurY, FCurX, FCurX + 1), FCurX + 1);
    SetSelectionSilent(FCurX, FCurY, std::min(stop, length), FCurY);
  }
  const TOrderedSelection s = GetSelection();
  const bool bForward = FSelStartY < FSelEndY || (FSelStartY == FSelEndY && FSelStartX <= FSelEndX);
  const std::u16string text = SelectedText();
  std::u16string changed;
  switch (ctype) {
    case ctUpper: changed = TOrlUniUtils::OrlWideUppercase(text); break;
    case ctLower: changed = TOrlUniUtils::OrlWideLowercase(text); break;
    case ctInvert: changed = TOrlUniUtils::OrlWideInvertCase(text); break;
    case ctCapitalize: changed = Capitalized(text); break;
  }
  if (changed == text) return;
  SetSelectionText(changed);
  // The same characters stay selected, in the direction they were.
  if (bForward) SetSelectionSilent(s.StartX, s.StartY, FCurX, FCurY);
  else SetSelectionSilent(FCurX, FCurY, s.StartX, s.StartY);
  if (!bForward) SetTextCursorValues(s.StartX, s.StartY);
  Invalidate();
}

} // namespace orl
