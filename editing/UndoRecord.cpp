#include "editing/UndoRecord.h"

#include <algorithm>
#include <array>
#include <utility>

#include "editing/OrlMemo.h"

namespace orl {

namespace {

/// The label's length before it is cut with "...".
constexpr size_t kActionTextLength = 16;

struct TUndoClassInfo {
  const char* Name;
  const char* Action;
};

constexpr std::array<TUndoClassInfo, static_cast<size_t>(TUndoKind::MultiEditEnd) + 1> kUndoClasses{{
    {"TInsertCharUndo", "008"},
    {"TOverwriteCharUndo", "014"},
    {"TDeleteCharUndo", "005"},
    {"TDeleteLineUndo", "006"},
    {"TInsertLineUndo", "009"},
    {"TDeleteBufUndo", "023"},
    {"TColDeleteBufUndo", "018"},
    {"TPasteUndo", "015"},
    {"TColPasteUndo", "019"},
    {"TReplaceUndo", "028"},
    {"TColReplaceUndo", "020"},
    {"TReplaceAllUndo", "016"},
    {"TBlockCommentUndo", "001"},
    {"TBlockUnCommentUndo", "003"},
    {"TBlockIndentUndo", "002"},
    {"TBlockUnIndentUndo", "004"},
    {"TMoveLinesUpUndo", "026"},
    {"TMoveLinesDownUndo", "025"},
    {"TSplitLinesUndo", "029"},
    {"TJoinLinesUndo", "024"},
    {"TDeleteBlankLinesUndo", "022"},
    {"TCompressLinesUndo", "030"},
    {"TDeleteTrailingBlankLinesUndo", "030"},
    {"TDeleteLinesUndo", "031"},
    {"TDelBookmarkedLinesUndo", "021"},
    {"TDuplicateLinesExUndo", "007"},
    {"TRemoveTrailingUndo", "027"},
    {"TAlignColumnsUndo", "017"},
    {"TIndentByFoldUndo", "041"},
    {"TSortUndo", "034"},
    {"TConvertCodepageUndo", "039"},
    {"TCopyDiffLinesUndo", "040"},
    {"TDiffModeUndo", ""},
    {"TEnterHexEditUndo", "040"},
    {"TMacroStartUndo", "032"},
    {"TMacroEndUndo", "033"},
    {"TScriptStartUndo", "035"},
    {"TScriptEndUndo", "036"},
    {"TMultiEditStartUndo", ""},
    {"TMultiEditEndUndo", ""},
}};

} // namespace

const char* UndoClassName(TUndoKind kind) { return kUndoClasses[static_cast<size_t>(kind)].Name; }
const char* UndoActionCode(TUndoKind kind) { return kUndoClasses[static_cast<size_t>(kind)].Action; }

void TUndo::SetUndoData(TOrlCustomMemo& memo, int APos0, int APos, int curx0, int cury0, int curx, int cury,
                        std::u16string AText, bool bColumn) {
  memo.GetUnwrappedPos(curx0, cury0);
  memo.GetUnwrappedPos(curx, cury);
  FUndoPos0 = APos0;
  FUndoPos = APos;
  FUndoCurX0 = FOldUndoCurX0 = curx0;
  FUndoCurY0 = FOldUndoCurY0 = cury0;
  FUndoCurX = FOldUndoCurX = curx;
  FUndoCurY = FOldUndoCurY = cury;
  FUndoText = std::move(AText);
  FColumn = bColumn;
}

namespace {

/// Sets a memo flag for the time of a scope and clears it on every path.
class TFlagScope {
public:
  explicit TFlagScope(bool& flag) : FFlag(flag) { FFlag = true; }
  ~TFlagScope() { FFlag = false; }
  TFlagScope(const TFlagScope&) = delete;
  TFlagScope& operator=(const TFlagScope&) = delete;

private:
  bool& FFlag;
};

/// Detaches the store's change handler for a scope: a record may change many
/// rows, and the memo follows once at the end.
class TChangeHandlerScope {
public:
  explicit TChangeHandlerScope(TOrlMemoStrings& lines) : FLines(lines), FSaved(std::exchange(lines.OnChange, {})) {}
  ~TChangeHandlerScope() { FLines.OnChange = std::move(FSaved); }
  TChangeHandlerScope(const TChangeHandlerScope&) = delete;
  TChangeHandlerScope& operator=(const TChangeHandlerScope&) = delete;

private:
  TOrlMemoStrings& FLines;
  TElWideStrings::TNotifyEvent FSaved;
};

/// Converts a stored (unwrapped) position to the current rows; a negative
/// row means "no position" and stays.
void WrapPosition(TOrlCustomMemo& memo, int& x, int& y) {
  if (y >= 0) memo.GetWrappedPos(x, y);
}

/// The caret on a stored position, converted to the current rows; column
/// records store visual columns.
void PutCaret(TOrlCustomMemo& memo, int x, int y, bool bColumn) {
  memo.GetWrappedPos(x, y);
  y = std::clamp(y, 0, std::max(memo.InternalLines().Count() - 1, 0));
  if (bColumn) x = memo.ToRealCursorPos(y, x);
  memo.SetCursor(x, y, true);
}

/// After an undo the caret goes to where the edit began; when a fold hides
/// that row, to the end of the nearest shown row above it.
void PutCaretOnStart(TOrlCustomMemo& memo, int x, int y, bool bColumn) {
  int wx = x, wy = y;
  memo.GetWrappedPos(wx, wy);
  if (wy < 0 || wy >= memo.InternalLines().Count() || !memo.IsLineHidden(wy)) return PutCaret(memo, x, y, bColumn);
  while (wy > 0 && memo.IsLineHidden(wy)) --wy;
  memo.SetCursor(memo.InternalLines().GetLineLength(wy), wy, true);
}

} // namespace

void TUndo::WrapPositions(TOrlCustomMemo& memo) {
  WrapPosition(memo, FUndoCurX0, FUndoCurY0);
  WrapPosition(memo, FUndoCurX, FUndoCurY);
  WrapPosition(memo, FUndoSelStartX, FUndoSelStartY);
  WrapPosition(memo, FUndoSelEndX, FUndoSelEndY);
}

void TUndo::RestorePositions() {
  FUndoCurX0 = FOldUndoCurX0;
  FUndoCurY0 = FOldUndoCurY0;
  FUndoCurX = FOldUndoCurX;
  FUndoCurY = FOldUndoCurY;
  FUndoSelStartX = FOldUndoSelStartX;
  FUndoSelStartY = FOldUndoSelStartY;
  FUndoSelEndX = FOldUndoSelEndX;
  FUndoSelEndY = FOldUndoSelEndY;
}

void TUndo::Perform(TOrlCustomMemo& memo, bool bUndo) {
  const bool bOldColumnMode = memo.ColumnMode();
  memo.SetColumnMode(FColumn);
  try {
    TFlagScope history(bUndo ? memo.FChangeHistoryUndo : memo.FChangeHistoryRedo);
    if (bUndo) PerformUndo(memo);
    else PerformRedo(memo);
  } catch (...) {
    memo.SetColumnMode(bOldColumnMode);
    throw;
  }
  memo.SetColumnMode(bOldColumnMode);
}

void TUndo::Undo(TOrlCustomMemo& memo) {
  if (!dynamic_cast<TOrlMemo*>(&memo)) return;
  TChangeHandlerScope detached(memo.InternalLines());
  try {
    WrapPositions(memo);
    if (FUndoCurY0 >= 0 && FUndoCurY0 < memo.InternalLines().Count() && memo.IsLineHidden(FUndoCurY0) &&
        FUndoText != u"\r" && memo.Hooks.OpenNodesOnHiddenLine)
      memo.Hooks.OpenNodesOnHiddenLine(FUndoCurY0);
    PutCaret(memo, FOldUndoCurX, FOldUndoCurY, FColumn);
    Perform(memo, true);
    if (!PlacesCaretItself()) PutCaretOnStart(memo, FOldUndoCurX0, FOldUndoCurY0, FColumn);
  } catch (...) {
    RestorePositions();
    throw;
  }
  RestorePositions();
  if (!PlacesCaretItself()) memo.ClearSelection(true);
}

void TUndo::Redo(TOrlCustomMemo& memo) {
  if (!dynamic_cast<TOrlMemo*>(&memo)) return;
  TChangeHandlerScope detached(memo.InternalLines());
  try {
    WrapPositions(memo);
    PutCaret(memo, FOldUndoCurX0, FOldUndoCurY0, FColumn);
    Perform(memo, false);
    PutCaret(memo, FOldUndoCurX, FOldUndoCurY, FColumn);
  } catch (...) {
    RestorePositions();
    throw;
  }
  RestorePositions();
  memo.ClearSelection(true);
}

void TUndo::UpdateActionText() {
  const std::u16string* source = &FUndoText;
  std::u16string joined;
  if (!FUnicodeText.empty()) {
    source = &FUnicodeText;
  } else if (!FEndString.empty()) {
    joined = FStartString + u" ... " + FEndString;
    source = &joined;
  } else if (!FStartString.empty()) {
    source = &FStartString;
  }
  size_t length = std::min(source->size(), kActionTextLength);
  // A surrogate pair is kept whole or left out whole.
  if (length < source->size() && length > 0 && (*source)[length - 1] >= 0xD800 && (*source)[length - 1] <= 0xDBFF)
    --length;
  std::u16string label;
  for (size_t i = 0; i < length; ++i) {
    const char16_t ch = (*source)[i];
    if (ch != u'\r') {
      label.push_back(ch);
      continue;
    }
    label += u"[CRLF]";
    if (i + 1 < length && (*source)[i + 1] == u'\n') ++i;
  }
  if (source->size() > kActionTextLength) label += u"...";
  FActionText = std::move(label);
}

size_t TUndo::ByteSize() const {
  size_t bytes = sizeof(*this) + FZipText.ByteSize() + FDisabledLines.capacity() * sizeof(TDiffInfo);
  for (const std::u16string* s : {&FUndoText, &FUnicodeText, &FStartString, &FEndString, &FActionText})
    bytes += s->capacity() * sizeof(char16_t);
  return bytes;
}

TOrlCustomMemo& RunningMemo(TOrlCustomMemo& master) {
  TOrlCustomMemo* split = master.FSplitMemo;
  if (split && (split->FFocused || split->CanCopy())) return *split;
  return master;
}

void TSelUndo::SetSelection(TOrlCustomMemo& memo, int StartX, int StartY, int EndX, int EndY) {
  if (StartY >= 0) memo.GetUnwrappedPos(StartX, StartY);
  if (EndY >= 0) memo.GetUnwrappedPos(EndX, EndY);
  FUndoSelStartX = FOldUndoSelStartX = StartX;
  FUndoSelStartY = FOldUndoSelStartY = StartY;
  FUndoSelEndX = FOldUndoSelEndX = EndX;
  FUndoSelEndY = FOldUndoSelEndY = EndY;
}

} // namespace orl
