#include "textstore/LineHistory.h"

namespace orl {

namespace {

void SetHistory(TTextAttribute& a, bool bChanged, bool bSaved, int history) {
  a.SetChanged(bChanged);
  a.SetChangeSaved(bSaved);
  a.ChangeHistory = history;
}

} // namespace

void ChangeLineHistory(TTextAttribute& lineHead, THistoryStep step) {
  const int n = step == hsUndo ? lineHead.ChangeHistory - 1 : lineHead.ChangeHistory + 1;
  const int savedAt = lineHead.ChangeLastSavedAt;
  if (n > 0) {
    SetHistory(lineHead, true, step != hsEdit && n == savedAt, n);
    // A new edit below the saved count cuts off the redo path to the saved state.
    if (step == hsEdit && n <= savedAt) lineHead.ChangeLastSavedAt = 0;
  } else if (n < savedAt) {
    SetHistory(lineHead, true, false, n);
  } else if (n == savedAt) {
    SetHistory(lineHead, false, true, n);
  } else {
    SetHistory(lineHead, false, false, 0);
  }
}

void MarkLineSaved(TTextAttribute& row) {
  if (!row.Changed()) return;
  row.SetChangeSaved(true);
  row.ChangeLastSavedAt = int8_t(row.ChangeHistory);
}

void ClearLineHistory(TTextAttribute& row) { SetHistory(row, false, false, 0); }

} // namespace orl
