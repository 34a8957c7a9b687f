// Conversions between character, visual and pixel columns, lines and screen
// rows, rows and real lines, and text offsets.

#include <gtest/gtest.h>

#include "editing/HeadlessWindow.h"
#include "editing/OrlMemo.h"

namespace orl {
namespace {

constexpr int W = THeadlessWindow::kCellW;
constexpr int H = THeadlessWindow::kCellH;

class MemoCoordinates : public ::testing::Test {
protected:
  THeadlessWindow window;
  TOrlMemo memo{&window};
};

TEST_F(MemoCoordinates, VisualColumnsExpandTabsOnlyInsideTheRow) {
  memo.SetText(u"\tA\r\nab\tc");
  // A click in the left half of a tab's cell lands before it.
  EXPECT_EQ(memo.ToRealCursorPos(0, 1), 0);
  EXPECT_EQ(memo.ToRealCursorPos(0, 2), 0);
  EXPECT_EQ(memo.ToRealCursorPos(0, 3), 1);
  EXPECT_EQ(memo.ToRealCursorPos(0, 4), 1);
  EXPECT_EQ(memo.ToRealCursorPos(0, 5), 2);
  EXPECT_EQ(memo.ToRealCursorPos(0, 8), 5);  // past the end, one column each
  EXPECT_EQ(memo.ToRealCursorPos(0, 0), 0);
  EXPECT_EQ(memo.ToRealCursorPos(7, 9), 9);  // no such line: the column as it is
  EXPECT_EQ(memo.ToRealCursorPos(7, 3, u"\tA"), 1);

  EXPECT_EQ(memo.FromRealCursorPos(1, 2), 2);
  EXPECT_EQ(memo.FromRealCursorPos(1, 3), 4);  // "ab" then the tab to column 4
  EXPECT_EQ(memo.FromRealCursorPos(1, 6), 7);  // past the end, one column each
  EXPECT_EQ(memo.FromRealCursorPos(1, -3), -3);

  // Every caret position of a row with tabs survives the round trip.
  memo.SetText(u"a\t\tbc\td\t");
  for (int x = 0; x <= 8; ++x) EXPECT_EQ(memo.ToRealCursorPos(0, memo.FromRealCursorPos(0, x)), x) << x;

  EXPECT_EQ(memo.ToRealStringPos(5, u"xx\tA\tB", 2, -1), 2);  // over "\tA\tB": tab to 4, then A, then the next tab
  EXPECT_EQ(memo.ToRealStringPos(9, u"\tA", 0, 1), 6);        // only the tab is looked at

  EXPECT_EQ(TOrlCustomMemo::StringToVisual(u" \t\u00A0\tx\ty", 4), u"    \u00A0   x\ty");
  EXPECT_EQ(TOrlCustomMemo::StringToVisual(u"", 4), u"");
}

TEST_F(MemoCoordinates, PixelsAndCharactersRoundTripOverTabsPairsAndWideCharacters) {
  const std::u16string row = u"a\tb\U0001F600c\u4E2D\u6587e\u0301f";
  memo.SetText(row);
  // Plain monospaced rows take the multiplication path.
  memo.SetText(u"plain text");
  EXPECT_EQ(memo.TextLength(0, 4, false, false), 4 * W);
  EXPECT_EQ(memo.TextLength(0, 0, false, false), 0);
  EXPECT_EQ(memo.TextLength(5, 3, false, false), 0);

  memo.SetText(row);
  EXPECT_EQ(memo.TextLength(0, 2, false, false), 4 * W);  // "a" and the tab to its stop
  int previous = 0;
  for (int x = 1; x <= int(row.size()); ++x) {
    const int edge = memo.TextLength(0, x, false, false);
    ASSERT_GE(edge, previous) << x;
    const bool bInsideCluster = edge == previous;
    previous = edge;
    if (bInsideCluster || x == int(row.size())) continue;
    // Just right of the left edge of the next cluster lies character x.
    EXPECT_EQ(memo.CharXYFromPos(edge + 1, 0, false).x, x) << x;
  }
  // Past the end of the row clicks resolve to virtual columns.
  const int end = memo.TextLength(0, int(row.size()), false, false);
  EXPECT_EQ(memo.CharXYFromPos(end + 3 * W + 1, 0, false).x, int(row.size()) + 3);
  // A printed line past the end is blanks; on screen rows clamp to the last line.
  EXPECT_EQ(memo.CharXYFromPos(5 * W + 1, 10 * H, true), (TFullPos{5, 10}));
  EXPECT_EQ(memo.CharXYFromPos(1, 10 * H, false), (TFullPos{0, 0}));
}

TEST_F(MemoCoordinates, PointToCharacterCountsTheTextAreaAndScroll) {
  memo.SetText(u"abcdef\r\n\r\nxyz");
  memo.FGutterWidth = 30;
  const TRect area = memo.EditorRect(true, -1);
  EXPECT_EQ(area.Left, 30 + memo.FMargin);
  EXPECT_EQ(memo.PointToCharPos(area.Left + 2 * W + 1, H / 2), (TFullPos{2, 0}));
  memo.FLeftCol = 3;
  EXPECT_EQ(memo.PointToCharPos(area.Left + 1, H / 2), (TFullPos{3, 0}));
  // An empty row rounds by half cells.
  memo.FLeftCol = 0;
  EXPECT_EQ(memo.PointToCharPos(area.Left + 2 * W + W / 2 + 1, H + 1), (TFullPos{3, 1}));
  EXPECT_EQ(memo.PointToCharPos(area.Left + 2 * W + W / 2 - 1, H + 1), (TFullPos{2, 1}));
}

TEST_F(MemoCoordinates, TextOffsetsCountTwoPerRealLineEnd) {
  memo.SetText(u"ab\ncd\r\nef");
  EXPECT_EQ(memo.TextFromPos(0, 1), 4);  // an LF ending counts 2 like every ending
  EXPECT_EQ(memo.TextFromPos(9, 1), 6);  // the column clamps to the row
  EXPECT_EQ(memo.TextFromPos(1, 9), 9);  // a row past the end is the last
  for (int64_t pos : {0, 1, 2, 4, 5, 6, 8, 9, 10}) {
    const TFullPos p = memo.PosFromText(pos);
    EXPECT_EQ(memo.TextFromPos(p.x, p.Y), pos) << pos;
  }
  EXPECT_EQ(memo.PosFromText(50), (TFullPos{1, 2}));  // past the end: last row, length less 1

  // A continuation row adds no ending.
  memo.Lines().AddWrapped(u"gh");
  EXPECT_EQ(memo.TextFromPos(1, 3), 11);
  EXPECT_EQ(memo.PosFromText(11), (TFullPos{1, 3}));
  int x = 0, y = 2;
  memo.Lines().GetXYFromCharPos(11, x, y, true, 8);
  EXPECT_EQ((TFullPos{x, y}), (TFullPos{1, 3}));
}

TEST_F(MemoCoordinates, RowsSkipHiddenLinesAndRealLinesSkipContinuations) {
  memo.SetText(u"0\r\n1\r\n2\r\n3\r\n4\r\n5");
  EXPECT_EQ(memo.GetRowFromLine(4), 4);
  memo.FAllowNodes = true;
  memo.Lines().SetHiddenLine(2, true);
  memo.Lines().SetHiddenLine(3, true);
  EXPECT_EQ(memo.GetRowFromLine(4), 2);
  EXPECT_EQ(memo.GetLineFromRow(2), 4);
  EXPECT_EQ(memo.GetLineFromRow(40), 5);  // clamped to the last line
  EXPECT_EQ(memo.GetVisibleLines(0, 5), 4);
  EXPECT_EQ(memo.GetVisibleLines(5, 0), -4);
  EXPECT_EQ(memo.GetNextVisibleLine(1, 2), 4);
  memo.FTopLine = 4;
  EXPECT_EQ(memo.GetRowFromLine(1), -1);
  memo.FHexView = true;
  EXPECT_EQ(memo.GetRowFromLine(3), 3);
  memo.FHexView = false;
  memo.FTopLine = 0;

  // A caret sent to a hidden row stops on the shown row above it.
  memo.SetCurY(3);
  EXPECT_EQ(memo.CurY(), 1);

  memo.SetText(u"first");
  memo.Lines().AddWrapped(u"cont");
  memo.Lines().Add(u"second");
  memo.Lines().AddWrapped(u"cont");
  EXPECT_EQ(memo.GetRealLine(3), 3);  // nothing wraps: rows are lines
  memo.FWordWrap = true;
  EXPECT_EQ(memo.GetRealLine(1), 0);
  EXPECT_EQ(memo.GetRealLine(2), 1);
  EXPECT_EQ(memo.GetRealLine(3), 1);
  EXPECT_EQ(memo.GetWrapStartLine(3), 2);
  memo.FTopLine = 3;
  memo.FRealTopLine = 1;
  EXPECT_EQ(memo.GetRealLine(0), 0);
  EXPECT_EQ(memo.GetRealLine(-4), 0);
}

TEST_F(MemoCoordinates, TheCaretNeverSplitsAClusterButPlainRowsStepByOne) {
  const std::u16string row = u"ae\u0301b\U0001F600c";  // a, e + acute, b, a pair, c
  memo.SetText(row);
  memo.SetCurX(2);  // between e and its mark, moving right
  EXPECT_EQ(memo.CurX(), 3);
  memo.SetCurX(2);  // moving left from 3
  EXPECT_EQ(memo.CurX(), 1);
  memo.SetCurX(5);  // inside the pair
  EXPECT_EQ(memo.CurX(), 6);
  memo.SetCurX(5);
  EXPECT_EQ(memo.CurX(), 4);

  memo.SetText(u"plain");
  memo.SetCurX(3);
  EXPECT_EQ(memo.CurX(), 3);
  memo.SetCurX(40);  // virtual space is allowed without wrap
  EXPECT_EQ(memo.CurX(), 40);
  memo.FNotepadCursor = true;
  memo.SetCurX(40);
  EXPECT_EQ(memo.CurX(), 5);
}

TEST_F(MemoCoordinates, SelectionsOrderIntoStreamsOrRectangles) {
  EXPECT_EQ(OrderSelection(5, 3, 2, 1, false), (TOrderedSelection{2, 1, 5, 3}));
  EXPECT_EQ(OrderSelection(5, 1, 2, 3, false), (TOrderedSelection{5, 1, 2, 3}));
  EXPECT_EQ(OrderSelection(5, 1, 2, 3, true), (TOrderedSelection{2, 1, 5, 3}));
  EXPECT_EQ(OrderSelection(4, 2, 1, 2, false), (TOrderedSelection{1, 2, 4, 2}));
}

TEST_F(MemoCoordinates, TheTextAreaLeavesRoomForGutterRulerBarsAndMap) {
  window.Client = {0, 0, 800, 600};
  memo.FGutterWidth = 40;
  memo.FRuler->Visible = true;
  memo.FRuler->Height = 20;
  window.ShowScrollBar(TScrollBarKind::sbVertical, true);
  window.ShowScrollBar(TScrollBarKind::sbHorizontal, true);
  const TRect r = memo.EditorRect(true, -1);
  EXPECT_EQ(r, (TRect{41, 21, 800 - 17, 600 - 17}));
  EXPECT_EQ(memo.FDocumentMapInfo.Width, 180 + 17);
  memo.FShowDocumentMap = true;
  EXPECT_EQ(memo.EditorRect(false, -1).Right, 800 - 197 - 17);
  memo.FDocumentMapWidth = 20;  // at least 100 pixels
  memo.EditorRect(false, -1);
  EXPECT_EQ(memo.FDocumentMapInfo.Width, 100 + 17);

  memo.FShowDocumentMap = false;
  EXPECT_EQ(memo.VisibleRowMax(), (600 - 17 - 21) / H);
  EXPECT_EQ(memo.VisiblePosCount(), (800 - 17 - 41) / W - 1);

  // A continuation row is indented like the leading white space of its line.
  memo.SetText(u"\t  text");
  memo.Lines().AddWrapped(u"more");
  EXPECT_EQ(memo.EditorRect(true, 1).Left, 41 + 6 * W - 1);
  EXPECT_EQ(memo.EditorRect(true, 0).Left, 41);
}

TEST_F(MemoCoordinates, WordCharacters) {
  EXPECT_TRUE(memo.IsSymbolBoundary(u'('));
  EXPECT_TRUE(memo.IsSymbolBoundary(u'\u00B7'));
  EXPECT_FALSE(memo.IsSymbolBoundary(u'_'));
  memo.FUserDelimiters.push_back(u'_');
  EXPECT_TRUE(memo.IsSymbolBoundary(u'_'));
  EXPECT_TRUE(TOrlCustomMemo::CharIsWhiteSpace(u'\u2003', false));
  EXPECT_FALSE(TOrlCustomMemo::CharIsWhiteSpace(u'\t', false));
  EXPECT_TRUE(TOrlCustomMemo::CharIsWhiteSpace(u'\t', true));
  EXPECT_FALSE(TOrlCustomMemo::CharIsWhiteSpace(u'x', true));
}

} // namespace
} // namespace orl

namespace orl {
namespace {

TEST_F(MemoCoordinates, WrappedAndRealPositionsConvertBothWays) {
  memo.SetText(u"zero");
  memo.Lines().AddWrapped(u"cont");
  memo.Lines().AddWrapped(u"more");
  memo.Lines().Add(u"one");
  int cx = 2, cy = 2;
  memo.GetUnwrappedPos(cx, cy);  // nothing wraps yet: rows are lines
  EXPECT_EQ((TFullPos{cx, cy}), (TFullPos{2, 2}));

  memo.FWordWrap = true;
  memo.GetUnwrappedPos(cx, cy);
  EXPECT_EQ((TFullPos{cx, cy}), (TFullPos{10, 0}));
  memo.GetWrappedPos(cx, cy);
  EXPECT_EQ((TFullPos{cx, cy}), (TFullPos{2, 2}));
  cx = 1;
  cy = 1;
  memo.GetWrappedPos(cx, cy);
  EXPECT_EQ((TFullPos{cx, cy}), (TFullPos{1, 3}));
  // Every row position of the wrapped line comes back where it was.
  for (int row = 0; row < 3; ++row)
    for (int x = 1; x <= 4; ++x) {
      int ux = x, uy = row;
      memo.GetUnwrappedPos(ux, uy);
      memo.GetWrappedPos(ux, uy);
      EXPECT_EQ((TFullPos{ux, uy}), (TFullPos{x, row})) << row << ' ' << x;
    }
  memo.FHardWrapAtRightMargin = true;  // hard wrap makes rows real lines
  cx = 3;
  cy = 2;
  memo.GetUnwrappedPos(cx, cy);
  EXPECT_EQ((TFullPos{cx, cy}), (TFullPos{3, 2}));
}

} // namespace
} // namespace orl
