#include "editing/UndoRecords.h"

namespace orl {

namespace {

/// The end position of `into` becomes that of `next`, which it has taken in.
void TakeEnd(TUndo& into, const TUndo& next) {
  into.FUndoCurX = into.FOldUndoCurX = next.FUndoCurX;
  into.FUndoCurY = into.FOldUndoCurY = next.FUndoCurY;
  into.FUndoPos = next.FUndoPos;
}

bool StartsAtEnd(const TUndo& record, const TUndo& next) {
  return next.FUndoCurX0 == record.FUndoCurX && next.FUndoCurY0 == record.FUndoCurY;
}

} // namespace

bool TInsertCharUndo::Append(TUndo& next) {
  if (next.Kind() != TUndoKind::InsertChar || !StartsAtEnd(*this, next)) return false;
  FUndoText += next.FUndoText;
  TakeEnd(*this, next);
  return true;
}

bool TDeleteCharUndo::Append(TUndo& next) {
  if (next.Kind() != TUndoKind::DeleteChar || !StartsAtEnd(*this, next)) return false;
  auto& deletion = static_cast<TDeleteCharUndo&>(next);
  // Offsets tell apart two deletions that the same wrapped position could name.
  if (deletion.FIsBackspace != FIsBackspace || deletion.FUndoPos0 != FUndoPos) return false;
  FUndoText = FIsBackspace ? deletion.FUndoText + FUndoText : FUndoText + deletion.FUndoText;
  FDiffSyncChange = FDiffSyncChange || deletion.FDiffSyncChange;
  TakeEnd(*this, next);
  return true;
}

std::u16string TBlockUnIndentUndo::EntriesText() const {
  std::u16string text;
  for (const int removed : FRemoved) {
    if (removed == kTab) {
      text += u'$';
    } else {
      const std::string count = std::to_string(removed);
      text.append(count.begin(), count.end());
    }
    text += u';';
  }
  return text;
}

} // namespace orl
