// The memo's text access, selection offsets, real-line mapping, modified
// state and line history.

#include <gtest/gtest.h>

#include "editing/HeadlessWindow.h"
#include "editing/OrlMemo.h"

namespace orl {
namespace {

class MemoCoreItems : public ::testing::Test {
protected:
  THeadlessWindow window;
  TOrlMemo memo{&window};
};

TEST_F(MemoCoreItems, ModifiedInTextDiffModeReadsTheListItWrites) {
  memo.FTextDiffMode = true;
  memo.FDiffModeUndoList = std::make_unique<TOrlUndoList>(&memo);
  memo.SetModified(true);
  EXPECT_TRUE(memo.Modified());
  EXPECT_FALSE(memo.FUndoList->HasUnsavedSteps());  // the ordinary list is not the one changed
  memo.SetModified(false);
  EXPECT_FALSE(memo.Modified());
}

TEST_F(MemoCoreItems, TheFirstEditEndsTheNewStartState) {
  memo.SetText(u"one\r\ntwo");
  EXPECT_TRUE(memo.NewAtStartup());
  memo.SetLineText(1, u"TWO");
  EXPECT_FALSE(memo.NewAtStartup());
  EXPECT_TRUE(memo.Modified());
  memo.SetModified(false);
  EXPECT_FALSE(memo.NewAtStartup());  // it does not come back
}

TEST_F(MemoCoreItems, TextAccessKeepsEachLinesOwnEnding) {
  memo.SetText(u"ab\ncd\r\nef");
  EXPECT_EQ(memo.MemoText(), u"ab\r\ncd\r\nef");  // as the offsets count it
  EXPECT_EQ(memo.GetMixedCRLFText(false), u"ab\ncd\r\nef");
  EXPECT_EQ(memo.GetLineText(1), u"cd");
  EXPECT_EQ(memo.GetLineText(7), u"");
  memo.SetLineText(7, u"lost");  // a bad line changes nothing
  EXPECT_EQ(memo.Lines().Count(), 3);

  memo.FSelStartX = 1;  // selection from the user's motion, end before start
  memo.FSelStartY = 2;
  memo.FSelEndX = 1;
  memo.FSelEndY = 0;
  EXPECT_EQ(memo.GetMixedCRLFText(true), u"b\ncd\r\ne");
  EXPECT_EQ(memo.SelStart(), 1);
  EXPECT_EQ(memo.SelLength(), 8);

  memo.SetMemoText(u"x\r\ny");
  EXPECT_EQ(memo.Text(), u"x\r\ny");
  memo.SetMemoText(u"");
  EXPECT_EQ(memo.Lines().Count(), 1);  // a memo never has zero lines
  EXPECT_EQ(memo.MemoText(), u"");
}

TEST_F(MemoCoreItems, SelectionOffsetsSetTheFieldsAndTheCaret) {
  memo.SetText(u"0123\r\nabcd\r\nwxyz");
  int selectionChanges = 0;
  memo.OnSelectionChange = [&](bool) { ++selectionChanges; };
  memo.SetSelStart(7);
  EXPECT_EQ((TFullPos{memo.CurX(), memo.CurY()}), (TFullPos{1, 1}));
  EXPECT_FALSE(memo.HasSelection());
  memo.SetSelLength(6);  // "bcd", the line end, "w"
  EXPECT_EQ(memo.GetSelection(), (TOrderedSelection{1, 1, 1, 2}));
  EXPECT_EQ(memo.SelStart(), 7);
  EXPECT_EQ(memo.SelLength(), 6);
  EXPECT_EQ((TFullPos{memo.CurX(), memo.CurY()}), (TFullPos{1, 2}));
  EXPECT_EQ(selectionChanges, 2);
  memo.SetSelLength(-50);  // clamped to the text's start
  EXPECT_EQ(memo.SelStart(), 0);
  EXPECT_EQ(memo.SelLength(), 7);
}

TEST_F(MemoCoreItems, RealLinesMapBothWaysAndFillerRowsHaveNoNumber) {
  memo.SetText(u"zero");
  memo.Lines().AddWrapped(u"cont");
  memo.Lines().Add(u"one");
  memo.SetWrapped(2, true);  // "one" joins line 0 ...
  EXPECT_TRUE(memo.GetWrapped(2));
  memo.SetWrapped(2, false);  // ... and leaves it again
  int offReal = -1, offWrapped = -1;
  EXPECT_EQ(memo.GetUnwrappedLine(1, offReal, offWrapped), 1);  // no wrap: rows are lines
  EXPECT_EQ((TFullPos{offReal, offWrapped}), (TFullPos{0, 0}));
  memo.FWordWrap = true;
  EXPECT_EQ(memo.GetUnwrappedLine(1, offReal, offWrapped), 0);
  EXPECT_EQ((TFullPos{offReal, offWrapped}), (TFullPos{4, 1}));
  int offWrap = -1;
  EXPECT_EQ(memo.FindRealLine(0, 6, offWrap), 1);
  EXPECT_EQ(offWrap, 2);
  EXPECT_EQ(memo.FindRealLine(1, 2, offWrap), 2);
  EXPECT_EQ(offWrap, 2);
  memo.FWordWrap = false;

  memo.FTextDiffMode = true;
  memo.SetText(u"a\r\n\r\n\r\nb");
  memo.Lines().GetLineAttribute(1)->Enabled = false;
  memo.Lines().GetLineAttribute(2)->Enabled = false;
  EXPECT_EQ(memo.GetRealLine(3), 1);  // numbered by this side's own text
  EXPECT_EQ(memo.GetRealLine(2), 0);
  memo.Lines().GetLineAttribute(2)->Enabled = true;
  EXPECT_EQ(memo.GetRealLine(3), 2);
}

TEST_F(MemoCoreItems, TextPointsIsWherePointToCharPosFindsTheCharacter) {
  memo.SetText(u"first\r\nsecond\r\nthird");
  memo.FLeftCol = 1;
  const TPoint p = memo.TextPoints(3, 2);
  EXPECT_EQ(memo.PointToCharPos(p.X + 1, p.Y + 1), (TFullPos{3, 2}));
  EXPECT_EQ(memo.TextPoints(4, 2).X - p.X, THeadlessWindow::kCellW);
}

TEST_F(MemoCoreItems, LineHistoryFollowsEditsSavesAndItsClearing) {
  memo.SetText(u"a\r\nb");
  memo.ChangeLineHistory(1);
  const TTextAttribute& row = memo.Lines().ReadLineAttribute(1);
  EXPECT_TRUE(row.Changed());
  EXPECT_EQ(row.ChangeHistory, 1);
  memo.Saved();
  EXPECT_TRUE(memo.Lines().ReadLineAttribute(1).ChangeSaved());
  EXPECT_TRUE(memo.ModifiedAndSaved());
  memo.FChangeHistoryUndo = true;  // undoing the edit steps the history back
  memo.ChangeLineHistory(1);
  memo.FChangeHistoryUndo = false;
  EXPECT_EQ(memo.Lines().ReadLineAttribute(1).ChangeHistory, 0);
  memo.ChangeLineHistory(0);
  memo.ClearUndoRedoAndLineHistory();
  EXPECT_FALSE(memo.Modified());
  for (int i = 0; i < 2; ++i) {
    const TTextAttribute& a = memo.Lines().ReadLineAttribute(i);
    EXPECT_FALSE(a.Changed() || a.ChangeSaved() || a.ChangeHistory != 0) << i;
  }
}

} // namespace
} // namespace orl
