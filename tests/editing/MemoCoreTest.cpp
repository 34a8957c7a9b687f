// The memo's state, change handling, update brackets, modified state, split
// views, timers and life cycle.

#include <gtest/gtest.h>

#include "BundledDefinitions.h"
#include "editing/HeadlessWindow.h"
#include "editing/OrlMemo.h"
#include "syntax/OrlSyntax.h"
#include "BuildPaths.h"

namespace orl {
namespace {

TEST(MemoCore, StartsWithOneEmptyLineAndItsDefaults) {
  THeadlessWindow window;
  TOrlMemo memo(&window);
  EXPECT_EQ(memo.Lines().Count(), 1);
  EXPECT_EQ(memo.Lines().Get(0), u"");
  EXPECT_EQ(memo.CurX(), 0);
  EXPECT_EQ(memo.CurY(), 0);
  EXPECT_FALSE(memo.Modified());
  EXPECT_TRUE(memo.FLetRefresh);
  EXPECT_EQ(memo.FFont.Name, u"COURIER NEW");
  EXPECT_EQ(memo.FFont.Height, -13);
  // The cell comes from the window's measure of the font.
  EXPECT_EQ(memo.CellSize(), (TCellSize{THeadlessWindow::kCellW, THeadlessWindow::kCellH}));
  EXPECT_TRUE(memo.FMonospacedFont);
  EXPECT_EQ(memo.FTabInt, 4 * THeadlessWindow::kCellW);
  EXPECT_EQ(memo.FTagHighlightColor, 0xFFC800);  // red 0, green 200, blue 255
  EXPECT_EQ(memo.FBookmarkColor, 0xFFDCC8);
  EXPECT_EQ(memo.FTaglines[20], -1);
  EXPECT_EQ(memo.FSelectDelimiters, memo.FCachedDelimiters + u" \t");
  EXPECT_EQ(memo.FMacroHolder->Folder(), u"/Data/Macros/");
  EXPECT_TRUE(memo.FBkThread->Suspended());
  // A stretch of text that reaches painting never needs a scratch string to grow.
  EXPECT_GE(memo.FS.capacity(), size_t(memo.FForcewrapLength + 100));
  EXPECT_GE(memo.FBuffer.capacity(), size_t(4106));
}

TEST(MemoCore, LinesChangedKeepsALineAndFiresOnChangeOutsideBrackets) {
  TOrlMemo memo;
  int changes = 0;
  memo.OnChange = [&] { ++changes; };
  memo.SetText(u"one\r\ntwo\r\nthree");
  EXPECT_EQ(memo.Lines().Count(), 3);
  const int afterSet = changes;
  EXPECT_GE(afterSet, 1);

  // The store emptied behind the memo's back: the memo restores its line.
  memo.Lines().Clear();
  memo.LinesChanged(false, false, true);
  EXPECT_EQ(memo.Lines().Count(), 1);
  EXPECT_EQ(memo.CurY(), 0);

  // Brackets hold change handling back; two Begin and one End leave refresh on.
  memo.BeginUpdate();
  memo.BeginUpdate();
  EXPECT_FALSE(memo.FLetRefresh);
  const int beforeEdits = changes;
  memo.Lines().Add(u"x");
  memo.Lines().Add(u"y");
  EXPECT_EQ(changes, beforeEdits);
  memo.EndUpdate();
  EXPECT_TRUE(memo.FLetRefresh);
  EXPECT_FALSE(memo.FNoUpdate);
  EXPECT_EQ(changes, beforeEdits + 1);
}

TEST(MemoCore, CaretIsClampedToTheStoreWhenRowsGo) {
  TOrlMemo memo;
  memo.SetText(u"a\r\nb\r\nc\r\nd");
  memo.SetCurY(3);
  EXPECT_EQ(memo.CurY(), 3);
  memo.Lines().DeleteLinesSilent(1, 3, false);
  memo.LinesChanged(false, false, true);
  EXPECT_EQ(memo.CurY(), 0);
  memo.SetCurY(-5);
  EXPECT_EQ(memo.CurY(), 0);
}

TEST(MemoCore, ModifiedFollowsTheSaveMarkAndASlaveAnswersForItsMaster) {
  TOrlMemo master;
  TOrlMemo slave;
  slave.AssignSplitMemo(&master, true);
  EXPECT_TRUE(slave.FSplitSlave);
  EXPECT_FALSE(master.FSplitSlave);
  EXPECT_EQ(&slave.InternalLines(), &master.Lines());
  EXPECT_EQ(slave.FMacroHolder, master.FMacroHolder);

  master.FUndoList->FSavePosIndex = 3;  // three steps away from the saved text
  EXPECT_TRUE(master.Modified());
  EXPECT_TRUE(slave.Modified());
  slave.SetModified(false);  // goes to the master
  EXPECT_FALSE(master.Modified());
  slave.SetModified(true);
  EXPECT_TRUE(master.Modified());

  // A slave that gets the focus hears the shared store's changes itself.
  int slaveChanges = 0;
  slave.OnChange = [&] { ++slaveChanges; };
  slave.DoEnter();
  master.Lines().Add(u"shared");
  EXPECT_EQ(slaveChanges, 1);
}

TEST(MemoCore, ASplitPartnersSelectionOutlivesTheOtherViewsRepaintsAndStaysInTheText) {
  TOrlMemo master;
  TOrlMemo slave;
  slave.AssignSplitMemo(&master, true);
  master.SetText(u"one\r\ntwo\r\nthree");
  slave.SetSelection2(1, 0, 3, 2, false);
  master.DoEnter();  // the master becomes the active view
  ASSERT_TRUE(master.FActiveSplitView);
  master.Invalidate();
  EXPECT_EQ(slave.GetSelection(), (TOrderedSelection{1, 0, 3, 2}));
  master.Lines().DeleteLinesSilent(1, 2, false);  // the other view's edit shortens the text
  master.Invalidate();
  EXPECT_TRUE(slave.HasSelection());
  EXPECT_EQ(slave.GetSelection().EndY, 0);
}

TEST(MemoCore, TimersRunAtTheirIntervalsAndStopWhenTheMemoCloses) {
  THeadlessWindow window;
  {
    TOrlMemo memo(&window);
    EXPECT_EQ(TOrlCustomMemo::TimerInterval(TMemoTimer::AutoComplete), 1000);
    EXPECT_EQ(TOrlCustomMemo::TimerInterval(TMemoTimer::MultiCursor), 500);
    EXPECT_EQ(TOrlCustomMemo::TimerInterval(TMemoTimer::ScrollVOff), 3000);

    // The outline timer asks for one update and stops itself.
    window.StartTimer(TMemoTimer::JSON, TOrlCustomMemo::TimerInterval(TMemoTimer::JSON));
    window.Advance(4999);
    EXPECT_FALSE(memo.FUpdateCodeExplorer);
    window.Advance(1);
    EXPECT_TRUE(memo.FUpdateCodeExplorer);
    EXPECT_FALSE(window.TimerRunning(TMemoTimer::JSON));

    // An auto-hiding bar goes after its delay.
    memo.FAutoHideVertScrollBar = true;
    window.ShowScrollBar(TScrollBarKind::sbVertical, true);
    window.StartTimer(TMemoTimer::ScrollVOff, 3000);
    window.Advance(3000);
    EXPECT_FALSE(window.ScrollBarVisible(TScrollBarKind::sbVertical));

    window.StartTimer(TMemoTimer::AutoComplete, 1000);
    window.StartTimer(TMemoTimer::MultiCursor, 500);
  }
  // Closing stopped the timers and let go of the window.
  EXPECT_FALSE(window.TimerRunning(TMemoTimer::AutoComplete));
  EXPECT_FALSE(window.TimerRunning(TMemoTimer::MultiCursor));
  window.StartTimer(TMemoTimer::ColorHint, 10);
  window.Advance(100);  // no memo to call: must not crash
}

TEST(MemoCore, FontMetricsFollowTheFaceAndColumnMode) {
  THeadlessWindow window;
  TOrlMemo memo(&window);
  TMemoFont tahoma;
  tahoma.Name = u"Tahoma";
  memo.SetFont(tahoma);
  EXPECT_FALSE(memo.FMonospacedFont);
  EXPECT_EQ(memo.CellSize().W, window.GetTextMetrics(tahoma).AveCharWidth);

  // Column mode cannot work with a proportional face: it measures a monospaced one.
  memo.SetColumnMode(true);
  EXPECT_TRUE(memo.FMonospacedFont);
  EXPECT_EQ(memo.FMeasureFont.Name, u"Consolas");
  EXPECT_EQ(memo.CellSize().W, THeadlessWindow::kCellW - 1);
  window.MajorVersion = 5;
  memo.FontChanged();
  EXPECT_EQ(memo.FMeasureFont.Name, u"Courier New");

  // A bold face wider than the plain one turns bold and italic off.
  window.bBoldWider = true;
  memo.SetFont(memo.FFont);
  EXPECT_TRUE(memo.FDisableBoldItalic);

  // Extra line spacing goes into the row height, half of it above the text.
  memo.FCharSpaceEx = 4;
  memo.FontChanged();
  EXPECT_EQ(memo.CellSize().H, THeadlessWindow::kCellH + 4);
  EXPECT_EQ(memo.FTextLead, 2);
}

TEST(MemoCore, NothingIsMeasuredBeforeTheWindowExists) {
  THeadlessWindow window;
  window.bHandleAllocated = false;
  TOrlMemo memo(&window);
  EXPECT_EQ(memo.CellSize(), TCellSize{});
  EXPECT_EQ(memo.VisibleRowMax(), 0);
  EXPECT_EQ(memo.VisiblePosCount(), 0);
  EXPECT_EQ(memo.CharXYFromPos(100, 100, false), (TFullPos{0, 0}));
  // Once it does, the caret paths assign the font themselves.
  window.bHandleAllocated = true;
  memo.SetCurY(0);
  EXPECT_EQ(memo.CellSize().W, THeadlessWindow::kCellW);
}

TEST(MemoCore, UpdateDPIScalesOnlyOnARealChange) {
  THeadlessWindow window;
  TOrlMemo memo(&window);
  memo.UpdateDPI(96, 96);
  EXPECT_EQ(memo.FCurrentDPI, 96);
  memo.UpdateDPI(192, 96);
  EXPECT_EQ(memo.FCurrentDPI, 192);
  EXPECT_EQ(memo.FMeasureFont.Height, -26);
}

TEST(MemoCore, DefinitionsComeAndGoAThousandTimesWithoutLeaks) {
  const std::u16string definition = (orl::test::HostDir() / "syntax" / "C++.gdx").u16string();
  for (int i = 0; i < 1000; ++i) {
    TOrlMemo memo;
    memo.SetText(u"int main() {\r\n  return 0; /* done */\r\n}");
    TOrlSyntax syntax;
    std::u16string asp;
    syntax.LoadStyleFromFile(&memo, definition, u"C++", 0, asp);
    ASSERT_NE(memo.FStyles, nullptr);
    // Rows carry the attribute class a style set needs.
    ASSERT_TRUE(memo.Lines().ReadLineAttribute(2).IsAttribute());
    if (i % 2) memo.FreeSyntaxStyles();
  }
}

} // namespace
} // namespace orl

namespace orl {
namespace {

TEST(MemoCore, EveryBundledDefinitionLoadsIntoTheMemo) {
  int loaded = 0;
  for (const std::filesystem::path& gdx : test::BundledDefinitions(orl::test::HostDir())) {
    TOrlMemo memo;
    TOrlSyntax syntax;
    std::u16string asp;
    syntax.LoadStyleFromFile(&memo, gdx.u16string(), gdx.stem().u16string(), 0, asp);
    ASSERT_NE(memo.FStyles, nullptr) << gdx;
    EXPECT_EQ(memo.FStyles, memo.FStylesThread);
    EXPECT_FALSE(memo.FStyles->FSyntaxName.empty());
    EXPECT_TRUE(memo.Lines().ReadLineAttribute(0).IsAttribute());
    ++loaded;
  }
  EXPECT_EQ(loaded, 10);
}

TEST(MemoCore, TheStoreWritesItsCodingWithEachLinesEnding) {
  TOrlMemo memo;
  TOrlMemoStrings& lines = memo.Lines();
  lines.SetTextStr(u"a\u00E9\r\nb\nc");
  auto saved = [&lines](bool bRowByRow) {
    TMemoryStream stream;
    if (bRowByRow) lines.SaveTextToStream(stream);
    else lines.SaveToStream(stream);
    return std::string(stream.Data().begin(), stream.Data().end());
  };
  lines.FSysTextType = sttUnix;
  lines.FSaveUTF = true;
  lines.FUseBOM = true;
  EXPECT_EQ(saved(false), "\xEF\xBB\xBF" "a\xC3\xA9\nb\nc");
  EXPECT_EQ(lines.FCurrentStreamPos, 10);
  // A mixed document keeps every line's own ending.
  lines.FSysTextType = sttMixedWindows;
  lines.FUseBOM = false;
  EXPECT_EQ(saved(true), "a\xC3\xA9\r\nb\nc");
  EXPECT_EQ(saved(false), saved(true));
  lines.FSaveUTF = false;
  lines.FSaveBigUnicode = true;
  lines.FSysTextType = sttMac;
  EXPECT_EQ(saved(true), std::string("\0a\0\xE9\0\r\0b\0\r\0c", 12));
  // Continuation rows and filler rows add no ending and no text.
  lines.FSaveBigUnicode = false;
  lines.FCodePage = 1252;
  lines.AddWrapped(u"d");
  lines.Add(u"filler");
  lines.GetLineAttribute(lines.Count() - 1)->Enabled = false;
  EXPECT_EQ(saved(true), "a\xE9\rb\rcd\r");
}

} // namespace
} // namespace orl

namespace orl {
namespace {

TEST(MemoCore, LineStatesComeFromTheDefinitionAndAreDroppedByAnEdit) {
  TOrlMemo memo;
  memo.SetText(u"int a; /* one\r\ntwo\r\nthree */ int b;\r\nint c;");
  TStyle style = memo.GetUpStyle(1, false);
  EXPECT_EQ(style.Properties.CommentStyle, 0);  // no definition: no state

  TOrlSyntax syntax;
  std::u16string asp;
  syntax.LoadStyleFromFile(&memo, (orl::test::HostDir() / "syntax" / "C++.gdx").u16string(), u"C++", 0, asp);
  style = memo.GetUpStyle(1, false);
  EXPECT_EQ(style.Properties.CommentStyle, 1);  // line 1 ends inside the block comment
  EXPECT_EQ(memo.GetUpStyle(2, false).Properties.CommentStyle, 0);

  memo.RescanLineStyles();
  bool bCached = false;
  memo.GetLineStyle(3, bCached);
  EXPECT_TRUE(bCached);
  // An edit drops every state from its line on, and nothing above it.
  memo.Lines().SetLineString(1, u"two */");
  memo.ClearLineStylesFrom(1);
  memo.GetLineStyle(3, bCached);
  EXPECT_FALSE(bCached);
  memo.GetLineStyle(0, bCached);
  EXPECT_TRUE(bCached);
  EXPECT_EQ(memo.GetUpStyle(1, false).Properties.CommentStyle, 0);
  EXPECT_EQ(memo.GetUpStyle(2, false).Properties.CommentStyle, 0);
}

} // namespace
} // namespace orl
