#pragma once
// The history marks of a real line, kept on its first row: Changed for a line
// edited since the load, ChangeSaved for one whose current state was saved.
// ChangeHistory counts the edits between the row and the text as loaded, and
// ChangeLastSavedAt remembers that count at the last save, so that undo and
// redo can tell when they bring the line back to its saved or loaded state.

#include "textstore/LineAttribute.h"

namespace orl {

enum THistoryStep : uint8_t { hsEdit, hsUndo, hsRedo };

/// Moves the history of a real line one step; `lineHead` is the attribute of
/// the line's first row.
void ChangeLineHistory(TTextAttribute& lineHead, THistoryStep step);
/// After a save: a changed row's current state becomes its saved state.
void MarkLineSaved(TTextAttribute& row);
/// Forgets the row's history, as after the undo list was cleared.
void ClearLineHistory(TTextAttribute& row);

} // namespace orl
