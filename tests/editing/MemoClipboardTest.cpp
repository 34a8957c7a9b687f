// Copy, cut and paste through the headless window's clipboard: the
// whole-line mark beside the text, HTML fragments, the host's own
// clipboard, and the retry while another program holds the clipboard.

#include <gtest/gtest.h>

#include "editing/HeadlessWindow.h"
#include "editing/OrlMemo.h"

namespace orl {
namespace {

using namespace std::string_literals;

class MemoClipboard : public ::testing::Test {
protected:
  MemoClipboard() { memo.SetText(u"first line\r\nsecond\r\nthird"); }

  THeadlessWindow window;
  TOrlMemo memo{&window};
};

TEST_F(MemoClipboard, AWholeLineTravelsWithItsMarkBesideTheText) {
  memo.FCopyLineToClipboard = true;
  memo.SetCursor(3, 1, false);
  EXPECT_EQ(memo.CopyToClipboard(), u"second\r\n");
  EXPECT_EQ(window.Clipboard.Text, u"second\r\n");  // no control characters for other programs
  EXPECT_TRUE(window.Clipboard.bWholeLine);
  memo.SetCursor(2, 2, false);
  memo.PasteFromClipboard(false);  // above the caret's row, wherever the caret stands in it
  EXPECT_EQ(memo.Text(), u"first line\r\nsecond\r\nsecond\r\nthird");

  // Text that another program put there is pasted where the caret is.
  window.SetClipboardText(u"other");
  memo.SetCursor(3, 0, false);
  memo.PasteFromClipboard(true);
  EXPECT_EQ(memo.GetLineText(0), u"firother");
  EXPECT_EQ(memo.GetLineText(1), u"st line");

  // In binary mode a line carries no mark.
  memo.FBinaryMode = true;
  memo.CopyToClipboard();
  EXPECT_FALSE(window.Clipboard.bWholeLine);
}

TEST_F(MemoClipboard, CopyTakesTheSelectionElseTheToken) {
  memo.SetSelection2(6, 0, 3, 1, false);
  EXPECT_EQ(memo.CopyToClipboard(), u"line\r\nsec");
  EXPECT_FALSE(window.Clipboard.bWholeLine);
  memo.SetCursor(7, 0, false);
  EXPECT_EQ(memo.CopyToClipboard(), u"line");
  // Nothing at the caret leaves the clipboard as it was.
  memo.SetText(u"   ");
  memo.SetCursor(1, 0, false);
  EXPECT_EQ(memo.CopyToClipboard(), u"");
  EXPECT_EQ(window.Clipboard.Text, u"line");
}

TEST_F(MemoClipboard, CutDeletesTheSelectionOrTheWholeLine) {
  memo.SetSelection2(0, 0, 5, 0, false);
  EXPECT_EQ(memo.CutToClipboard(), u"first");
  EXPECT_EQ(memo.Text(), u" line\r\nsecond\r\nthird");
  memo.FCopyLineToClipboard = true;
  memo.SetCursor(2, 1, false);
  EXPECT_EQ(memo.CutToClipboard(), u"second\r\n");
  EXPECT_EQ(memo.Text(), u" line\r\nthird");  // the line with its end
  // Without the option and a selection a cut copies the token and deletes nothing.
  memo.FCopyLineToClipboard = false;
  memo.CutToClipboard();
  EXPECT_EQ(memo.Text(), u" line\r\nthird");
  memo.SetReadOnly(true);
  memo.SetSelection2(0, 0, 5, 0, false);
  EXPECT_EQ(memo.CutToClipboard(), u"");
  memo.PasteFromClipboard(false);
  EXPECT_EQ(memo.Text(), u" line\r\nthird");
}

TEST_F(MemoClipboard, HtmlPastesTheFragmentBetweenItsMarks) {
  const auto pasteHtml = [&](std::u16string html) {
    window.Clipboard = {};
    window.Clipboard.Html = std::move(html);
    memo.SetText(u"");
    memo.SetCursor(0, 0, false);
    memo.PasteFromClipboardHTML();
    return memo.Text().empty() ? std::u16string(u"<nothing>") : memo.Text();
  };
  const std::u16string head = u"Version:0.9\r\n<html><body>\r\n";
  EXPECT_EQ(pasteHtml(head + u"<!--StartFragment-->\r\n<b>x</b>\r\n<!--EndFragment-->\r\n</body>"), u"<b>x</b>");
  EXPECT_EQ(pasteHtml(head + u"<!--StartFragment-->\n<b>x</b>\n<!--EndFragment-->\n</body>"), u"<b>x</b>");
  EXPECT_EQ(pasteHtml(u"<p><!--StartFragment--><b>x</b><!--EndFragment--></p>"), u"<b>x</b>");
  EXPECT_EQ(pasteHtml(u"<!--StartFragment-->\r\n\r\n<i>y</i>\r\n\r\n<!--EndFragment-->"), u"\r\n<i>y</i>\r\n");
  EXPECT_EQ(pasteHtml(u"<meta charset=\"utf-8\"><b>whole</b>"), u"<meta charset=\"utf-8\"><b>whole</b>");
  EXPECT_EQ(pasteHtml(u"<b>cut</b>\0rest"s), u"<b>cut</b>");
  EXPECT_EQ(pasteHtml(u"<!--StartFragment-->\r\n<!--EndFragment-->"), u"<nothing>");  // an empty paste
  EXPECT_EQ(pasteHtml(u""), u"<nothing>");
}

TEST_F(MemoClipboard, AHeldClipboardIsTriedAgainThenReported) {
  window.SetClipboardText(u"text");
  window.ClipboardFailures = 3;
  memo.PasteFromClipboard(false);
  EXPECT_EQ(memo.GetLineText(0), u"textfirst line");
  EXPECT_EQ(window.Clock, 100 + 200 + 300);  // after failure n the memo waits n * 100 ms
  EXPECT_TRUE(window.Messages.empty());

  window.Clock = 0;
  window.ClipboardAccesses = 0;
  window.ClipboardFailures = 100;
  memo.PasteFromClipboard(false);
  EXPECT_EQ(memo.GetLineText(0), u"textfirst line");
  EXPECT_EQ(window.ClipboardAccesses, 8);
  EXPECT_EQ(window.Clock, 2800);  // 100 + 200 + ... + 700, no wait after the eighth
  EXPECT_EQ(window.Messages, std::vector<std::u16string>{u"Cannot access the clipboard!"});

  // A copy that can't get the clipboard leaves it alone.
  memo.SetSelection2(0, 0, 5, 0, false);
  EXPECT_EQ(memo.CopyToClipboard(), u"textf");
  EXPECT_EQ(window.Clipboard.Text, u"text");
  EXPECT_EQ(window.Messages.size(), 2u);
}

TEST_F(MemoClipboard, AHostMayKeepItsOwnClipboard) {
  std::u16string hostClipboard;
  memo.OnClipboard = [&](std::u16string& ws, bool& bUserClipboard) {
    if (ws.empty()) ws = hostClipboard;  // a paste asks
    else hostClipboard = ws;             // a copy gives
    bUserClipboard = true;
  };
  window.SetClipboardText(u"system");
  memo.FCopyLineToClipboard = true;
  memo.CopyToClipboard();
  EXPECT_EQ(hostClipboard, u"first line\r\n");
  EXPECT_EQ(window.Clipboard.Text, u"system");
  memo.SetCursor(3, 1, false);
  memo.PasteFromClipboard(false);  // the mark stays with the system's clipboard: pasted at the caret
  EXPECT_EQ(memo.Text(), u"first line\r\nsecfirst line\r\nond\r\nthird");
  EXPECT_EQ(window.ClipboardAccesses, 0);
}

} // namespace
} // namespace orl
