#include <gtest/gtest.h>

#include <tuple>

#include "textstore/LineHistory.h"

using namespace orl;

namespace {

std::tuple<bool, bool, int> History(const TTextAttribute& a) {
  return {a.Changed(), a.ChangeSaved(), a.ChangeHistory};
}

} // namespace

TEST(LineHistory, AnUndoneEditLeavesTheLineClean) {
  TAttributePtr line = CreateTextAttribute(sttWindows);
  ChangeLineHistory(*line, hsEdit);
  EXPECT_EQ(History(*line), std::tuple(true, false, 1));
  ChangeLineHistory(*line, hsUndo);
  EXPECT_EQ(History(*line), std::tuple(false, false, 0));
  EXPECT_EQ(line->ChangeLastSavedAt, -100);
  ChangeLineHistory(*line, hsUndo);  // nothing lies below the loaded text
  EXPECT_EQ(History(*line), std::tuple(false, false, 0));
  ChangeLineHistory(*line, hsRedo);
  EXPECT_EQ(History(*line), std::tuple(true, false, 1));
}

TEST(LineHistory, UndoAndRedoFindTheSavedState) {
  TAttributePtr line = CreateTextAttribute(sttWindows);
  ChangeLineHistory(*line, hsEdit);
  MarkLineSaved(*line);
  EXPECT_EQ(History(*line), std::tuple(true, true, 1));
  EXPECT_EQ(line->ChangeLastSavedAt, 1);
  ChangeLineHistory(*line, hsEdit);
  EXPECT_EQ(History(*line), std::tuple(true, false, 2));
  ChangeLineHistory(*line, hsUndo);
  EXPECT_EQ(History(*line), std::tuple(true, true, 1));
  ChangeLineHistory(*line, hsUndo);  // back at the loaded text, which differs from the file now
  EXPECT_EQ(History(*line), std::tuple(true, false, 0));
  ChangeLineHistory(*line, hsRedo);
  EXPECT_EQ(History(*line), std::tuple(true, true, 1));
}

TEST(LineHistory, AtOrBelowTheLoadedTextTheLineComparesWithTheSave) {
  TAttributePtr line = CreateTextAttribute(sttWindows);
  ChangeLineHistory(*line, hsEdit);
  MarkLineSaved(*line);
  ChangeLineHistory(*line, hsUndo);
  MarkLineSaved(*line);  // the loaded text saved again
  EXPECT_EQ(History(*line), std::tuple(true, true, 0));
  EXPECT_EQ(line->ChangeLastSavedAt, 0);
  ChangeLineHistory(*line, hsUndo);
  EXPECT_EQ(History(*line), std::tuple(true, false, -1));
  ChangeLineHistory(*line, hsRedo);
  EXPECT_EQ(History(*line), std::tuple(false, true, 0));
  ChangeLineHistory(*line, hsRedo);
  EXPECT_EQ(History(*line), std::tuple(true, false, 1));
}

TEST(LineHistory, AnEditAfterUndoingPastTheSaveForgetsTheSave) {
  TAttributePtr line = CreateTextAttribute(sttWindows);
  for (int i = 0; i < 3; ++i) ChangeLineHistory(*line, hsEdit);
  MarkLineSaved(*line);
  ChangeLineHistory(*line, hsUndo);
  ChangeLineHistory(*line, hsUndo);
  ChangeLineHistory(*line, hsEdit);  // n = 2, not above the saved 3
  EXPECT_EQ(line->ChangeLastSavedAt, 0);
  EXPECT_EQ(History(*line), std::tuple(true, false, 2));
  ChangeLineHistory(*line, hsRedo);  // 3 is no saved state any more
  EXPECT_EQ(History(*line), std::tuple(true, false, 3));
}

TEST(LineHistory, SavingAndClearingTouchOnlyWhatTheyShould) {
  TAttributePtr clean = CreateTextAttribute(sttWindows);
  MarkLineSaved(*clean);
  EXPECT_EQ(History(*clean), std::tuple(false, false, 0));
  EXPECT_EQ(clean->ChangeLastSavedAt, -100);

  // The saved count is kept in 8 bits.
  TAttributePtr busy = CreateTextAttribute(sttWindows);
  for (int i = 0; i < 300; ++i) ChangeLineHistory(*busy, hsEdit);
  MarkLineSaved(*busy);
  EXPECT_EQ(busy->ChangeLastSavedAt, int8_t(300 - 256));

  ClearLineHistory(*busy);
  EXPECT_EQ(History(*busy), std::tuple(false, false, 0));
  EXPECT_EQ(busy->ChangeLastSavedAt, 44);
}
