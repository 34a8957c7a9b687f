#include "editing/UndoRecord.h"

#include <array>

#include "editing/OrlMemo.h"

namespace orl {

namespace {

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

// For now the frame runs the record's own reversal; the conversion to the
// current wrapping and the caret placement come with the full undo list.
void TUndo::Undo(TOrlCustomMemo& memo) { PerformUndo(memo); }
void TUndo::Redo(TOrlCustomMemo& memo) { PerformRedo(memo); }

void TSelUndo::SetSelection(TOrlCustomMemo& memo, int StartX, int StartY, int EndX, int EndY) {
  if (StartY >= 0) memo.GetUnwrappedPos(StartX, StartY);
  if (EndY >= 0) memo.GetUnwrappedPos(EndX, EndY);
  FUndoSelStartX = FOldUndoSelStartX = StartX;
  FUndoSelStartY = FOldUndoSelStartY = StartY;
  FUndoSelEndX = FOldUndoSelEndX = EndX;
  FUndoSelEndY = FOldUndoSelEndY = EndY;
}

} // namespace orl
