// Caret, selection, keys and mouse where a script cannot look: what is
// repainted, what reaches the text commands and how often, timers, words.

#include <gtest/gtest.h>

#include <set>

#include "HeadlessMemoTest.h"

namespace orl {
namespace {

constexpr int W = THeadlessWindow::kCellW;
constexpr int H = THeadlessWindow::kCellH;

class MemoCaret : public test::HeadlessMemoTest {};

TEST_F(MemoCaret, MovingBetweenRowsRepaintsExactlyTheTwoRows) {
  memo.SetText(u"one\r\ntwo\r\nthree\r\nfour");
  memo.SetTextCursor(1, 1, true);
  RepaintedRows();
  Press(vkDown);
  EXPECT_EQ(memo.CurY(), 2);
  EXPECT_EQ(RepaintedRows(), (std::set<int>{1, 2}));
  EXPECT_EQ(window.InvalidatedAll, 0);
  Press(vkUp);
  Press(vkUp);
  EXPECT_EQ(RepaintedRows(), (std::set<int>{0, 1, 2}));  // 2 to 1, then 1 to 0
  // Growing a selection repaints only the rows between its old and new end.
  memo.SetTextCursor(0, 0, true);
  RepaintedRows();
  Press(vkDown, ssShift);
  EXPECT_EQ(RepaintedRows(), (std::set<int>{0, 1}));
  Press(vkRight, ssShift);
  EXPECT_EQ(RepaintedRows(), (std::set<int>{1}));
  EXPECT_EQ(window.InvalidatedAll, 0);
}

TEST_F(MemoCaret, OneKeyReachesItsCommandOnceAndAltGrTypes) {
  int selectAll = 0;
  window.SetClipboardText(u"P");
  memo.SetText(u"");
  memo.SetTextCursor(0, 0, true);
  memo.FTabAsSpaces = false;
  memo.FAutoIndent = false;
  memo.FKeepTrailing = true;  // the tab stays on the row Enter leaves
  memo.Hooks.RecordMacro = [&](int code, int) { selectAll += code == 63; };
  memo.FProcessShortcuts = true;
  Press(vkTab, 0, u'\t');
  Press(vkReturn, 0, u'\r');
  Press('V', ssCtrl, 22);
  Press('Q', ssCtrl | ssAlt, u'@');  // AltGr+Q on a German layout
  Press('A', 0, u'a');
  EXPECT_EQ(memo.Text(), u"\t\r\nP@a");  // Ctrl+V pasted once
  Press('A', ssCtrl | ssAlt);  // not Ctrl+A
  EXPECT_EQ(selectAll, 0);
  // A read-only memo takes no typing and no pasting.
  memo.SetReadOnly(true);
  Press('V', ssCtrl, 22);
  Press('B', 0, u'b');
  EXPECT_EQ(memo.Text(), u"\t\r\nP@a");
  // Alt and keypad digits make a character when Alt goes up.
  memo.SetReadOnly(false);
  for (int digit : {6, 4}) Press(vkNumpad0 + digit, ssAlt);
  memo.KeyUp(vkMenu, 0);
  EXPECT_EQ(memo.Text(), u"\t\r\nP@a@");
}

TEST_F(MemoCaret, ShortcutsWaitForProcessShortcuts) {
  memo.SetText(u"abc\r\ndef");
  memo.SetTextCursor(1, 0, true);
  for (int key : {vkEnd, vkNext, vkHome}) Press(key);
  Press('A', ssCtrl, 1);
  Press(vkRight, ssCtrl);
  EXPECT_EQ(memo.CurX(), 1);
  EXPECT_FALSE(memo.HasSelection());
  memo.FProcessShortcuts = true;
  Press(vkEnd);
  EXPECT_EQ(memo.CurX(), 3);
  Press('A', ssCtrl, 1);
  EXPECT_EQ(memo.GetSelection(), (TOrderedSelection{0, 0, 3, 1}));
}

TEST_F(MemoCaret, TheScrollBarAndTheViewMoveTogether) {
  std::u16string text;
  for (int i = 0; i < 100; ++i) text += u"row\r\n";
  memo.SetText(text);  // 101 rows in a page of 10
  memo.ScrollBarMoved(TScrollBarKind::sbVertical, 40);
  EXPECT_EQ(memo.TopLine(), 40);
  EXPECT_EQ(window.Scroll[size_t(TScrollBarKind::sbVertical)].Pos, 40);
  EXPECT_EQ(memo.CurY(), 0);  // the caret stays, hidden above the view
  EXPECT_FALSE(window.bCaretShown);
  memo.ScrollBarMoved(TScrollBarKind::sbVertical, 500);
  EXPECT_EQ(memo.TopLine(), 92);  // the row count less the page plus 1
  memo.FGreedyVerticalScroll = true;
  memo.SetTopLine(1000);
  EXPECT_EQ(memo.TopLine(), 100);
}

TEST_F(MemoCaret, TheLinePanelNamesTheTopRealLineWhileTheThumbIsDragged) {
  std::u16string text;
  for (int i = 0; i < 100; ++i) text += u"row\r\n";
  memo.SetText(text);
  memo.ScrollThumbTracking(true);
  EXPECT_FALSE(memo.FLinePanelVisible);  // shown at the first motion
  memo.ScrollBarMoved(TScrollBarKind::sbVertical, 40);
  EXPECT_TRUE(memo.FLinePanelVisible);
  EXPECT_EQ(memo.LinePanelText(), u"Line: 41");
  memo.ScrollThumbTracking(false);
  EXPECT_FALSE(memo.FLinePanelVisible);
  memo.ScrollBarMoved(TScrollBarKind::sbVertical, 20);  // a click in the bar, no drag
  EXPECT_FALSE(memo.FLinePanelVisible);
}

TEST_F(MemoCaret, TheMiddleButtonPansTowardTheMouseUntilReleased) {
  std::u16string text;
  for (int i = 0; i < 200; ++i) text += u"row of some length that reaches beyond the right edge of the view\r\n";
  memo.SetText(text);
  memo.MouseDown(TMouseButton::mbMiddle, 0, 100, 50);
  ASSERT_TRUE(window.TimerRunning(TMemoTimer::Pan));
  memo.MouseMove(0, 100, 50 + H);  // within the resting distance
  window.Advance(400);
  EXPECT_EQ(memo.TopLine(), 0);
  memo.MouseMove(0, 100, 50 + 6 * H);  // three steps a tick, ten ticks
  window.Advance(400);
  EXPECT_EQ(memo.TopLine(), 30);
  memo.MouseMove(0, 100 + 4 * W, 50 - 4 * H);  // back up and to the right
  window.Advance(80);
  EXPECT_EQ(memo.TopLine(), 26);
  EXPECT_EQ(memo.LeftCol(), 4);
  memo.MouseUp(TMouseButton::mbMiddle, 0, 100, 50);
  EXPECT_FALSE(window.TimerRunning(TMemoTimer::Pan));
  window.Advance(400);
  EXPECT_EQ(memo.TopLine(), 26);
  EXPECT_EQ(memo.CurY(), 0);  // panning never moves the caret
}

TEST_F(MemoCaret, SelectionLengthCountsLineEndsAsTheDocumentWritesThem) {
  memo.SetText(u"abc\r\nde\r\nfghij");
  memo.SetSelection2(1, 0, 2, 2, false);  // "bc", "de", "fg"
  EXPECT_EQ(memo.GetSelectionLength(false), 6);
  EXPECT_EQ(memo.GetSelectionLength(true), 10);
  EXPECT_EQ(memo.GetSelectionLength(true, true), 10);  // a CR LF document
  memo.Lines().FSysTextType = sttUnix;
  EXPECT_EQ(memo.GetSelectionLength(true, true), 8);
  EXPECT_EQ(memo.GetSelectionLength(true, false), 10);
}

TEST_F(MemoCaret, VirtualSpaceIsCapped) {
  memo.SetText(u"ab");
  memo.FForcewrapLength = 20;
  for (int i = 0; i < 50; ++i) Press(vkRight);
  EXPECT_EQ(memo.CurX(), 20);
  EXPECT_LE(memo.FMaxTextWidth, 30 * W);
}

TEST_F(MemoCaret, DraggingPastTheEdgeScrollsAtTheTablesPace) {
  std::u16string text;
  for (int i = 0; i < 40; ++i) text += u"line with some words in it\r\n";
  memo.SetText(text);
  const TPoint start = Cell(2, 8);
  memo.MouseDown(TMouseButton::mbLeft, 0, start.X, start.Y);
  const TRect area = memo.EditorRect(true, -1);
  const int bottom = area.Top + memo.VisibleRowMax() * H;
  memo.MouseMove(0, start.X, bottom + 10);  // 10 pixels below the view
  ASSERT_TRUE(window.TimerRunning(TMemoTimer::Scroll));
  window.Advance(50);  // the press's first interval: one row, to the last in view
  EXPECT_EQ(window.TimerInterval(TMemoTimer::Scroll), 100);
  EXPECT_EQ(memo.CurY(), 9);
  EXPECT_EQ(memo.TopLine(), 0);
  window.Advance(100);
  EXPECT_EQ(memo.TopLine(), 1);
  EXPECT_EQ(memo.FSelStartY, 8);
  EXPECT_GT(memo.FSelEndY, memo.LastVisibleLine() - 1);
  memo.MouseMove(0, start.X, bottom + 60);  // far beyond: 4 rows every 40 ms
  window.Advance(100);
  EXPECT_EQ(window.TimerInterval(TMemoTimer::Scroll), 40);
  memo.MouseUp(TMouseButton::mbLeft, 0, start.X, bottom + 60);
  EXPECT_FALSE(window.TimerRunning(TMemoTimer::Scroll));
  EXPECT_TRUE(memo.HasSelection());
}

TEST_F(MemoCaret, DoubleClickDragGrowsByWordsAndTheCaretFollowsFocus) {
  memo.SetText(u"alpha beta gamma delta");
  const TPoint beta = Cell(7, 0);
  memo.MouseDown(TMouseButton::mbLeft, 0, beta.X, beta.Y);
  memo.MouseUp(TMouseButton::mbLeft, 0, beta.X, beta.Y);
  memo.DblClick(0, beta.X, beta.Y);
  EXPECT_EQ(memo.GetSelection(), (TOrderedSelection{6, 0, 10, 0}));
  const TPoint gamma = Cell(13, 0);
  memo.MouseMove(0, gamma.X, gamma.Y);
  EXPECT_EQ(memo.GetSelection(), (TOrderedSelection{6, 0, 16, 0}));
  const TPoint alpha = Cell(2, 0);
  memo.MouseMove(0, alpha.X, alpha.Y);
  EXPECT_EQ(memo.GetSelection(), (TOrderedSelection{0, 0, 10, 0}));
  memo.MouseUp(TMouseButton::mbLeft, 0, alpha.X, alpha.Y);
  // The system caret stands where the caret is and goes with the focus.
  memo.SetTextCursor(3, 0, true);
  EXPECT_EQ(window.CaretPos, (TPoint{memo.EditorRect(true, 0).Left + 3 * W, 0}));
  EXPECT_TRUE(window.bCaretShown);
  memo.FocusLost();
  EXPECT_FALSE(window.bCaretExists);
}

TEST_F(MemoCaret, WordsAndTokensComeFromTheSymbolBoundaries) {
  memo.SetText(u"  obj.member_1 += 0x1F + 3.25;");
  memo.SetTextCursor(9, 0, true);  // inside "member_1"
  EXPECT_EQ(memo.WordAtCursor(), u"member_1");
  EXPECT_EQ(memo.LeftWordAtCursor(), u"mem");
  EXPECT_EQ(memo.FullWordAtCursor(), u"obj.member_1");
  EXPECT_EQ(memo.WordAtXY(5, 0), u"obj");  // at the end of a word it still counts
  EXPECT_EQ(memo.TokenAtXY(15, 0), u"+");  // no word: the delimiter under the caret
  EXPECT_EQ(memo.TokenAtXY(1, 0), u"");    // blank
  EXPECT_EQ(memo.CharAtPosX(5, 0), u'.');
  EXPECT_EQ(memo.CharAtPosX(99, 0), 0);
  memo.SetTextCursor(20, 0, true);
  EXPECT_EQ(memo.NumberAtCursor(), u"0x1F");
  memo.SetTextCursor(26, 0, true);
  EXPECT_EQ(memo.NumberAtCursor(), u"3.25");
  memo.SetTextCursor(9, 0, true);
  EXPECT_EQ(memo.NumberAtCursor(), u"");
}

TEST_F(MemoCaret, WordMotionStopsAtClassChangesAndAtDictionaryWords) {
  memo.SetText(u"foo.bar  baz\r\n  next");
  std::vector<int> stops;
  for (TFullPos p{0, 0}; p.Y == 0; p = memo.WordRightPos(p.x, p.Y)) stops.push_back(p.x);
  EXPECT_EQ(stops, (std::vector<int>{0, 3, 4, 9, 12}));
  EXPECT_EQ(memo.WordRightPos(12, 0), (TFullPos{2, 1}));  // the next row's first non-blank
  EXPECT_EQ(memo.WordLeftPos(9, 0), (TFullPos{4, 0}));
  EXPECT_EQ(memo.WordLeftPos(4, 0), (TFullPos{3, 0}));
  EXPECT_EQ(memo.WordLeftPos(0, 1), (TFullPos{12, 0}));
  // A row of Chinese has no delimiters; the break analysis finds its words.
  memo.SetText(u"\u6211\u559C\u6B22\u5317\u4EAC");  // "I like Beijing"
  const int x = memo.WordRightPos(0, 0).x;
  EXPECT_GT(x, 0);
  EXPECT_LT(x, 5);
}

} // namespace
} // namespace orl
