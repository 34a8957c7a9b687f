// The memo in its Qt widget, on the offscreen platform: the widget measures
// for the memo, runs its timers, shows its scroll bars and takes clicks.

#include <gtest/gtest.h>

#include <QApplication>
#include <QEventLoop>
#include <QImage>
#include <QInputMethodEvent>
#include <QClipboard>
#include <QKeyEvent>
#include <QLabel>
#include <QMimeData>
#include <QWheelEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTimer>

#include "widgets/MemoWidget.h"

namespace orl {
namespace {

TEST(MemoWidget, MeasuresTheMemosFontWithTheToolkit) {
  TOrlMemoWidget widget;
  TOrlMemo& memo = widget.Memo();
  const TCellSize cell = memo.CellSize();
  EXPECT_GT(cell.W, 3);
  EXPECT_GT(cell.H, cell.W);
  // The memo's face maps to a fixed-pitch one, so rows take the multiplication path.
  EXPECT_TRUE(memo.FMonospacedFont);
  memo.SetText(u"abc\tdef");
  const TMemoFont& font = memo.FMeasureFont;
  EXPECT_EQ(widget.TextExtent(font, u"abcd"), 4 * widget.TextExtent(font, u"a"));
  // Laid out with tab stops, each caret position maps back to itself.
  for (int x = 1; x < 7; ++x) {
    const int edge = memo.TextLength(0, x, false, false);
    EXPECT_EQ(memo.CharXYFromPos(edge + 1, 1, false).x, x) << x;
  }
  EXPECT_EQ(widget.CharTrailingX(font, u"a\tb", 1, memo.FTabInt), memo.FTabInt);
}

TEST(MemoWidget, ScrollBarsFollowTheTextAndScrollTheView) {
  TOrlMemoWidget widget;
  widget.resize(400, 300);
  TOrlMemo& memo = widget.Memo();
  std::u16string text;
  for (int i = 0; i < 200; ++i) text += u"line\r\n";
  memo.SetText(text);
  EXPECT_TRUE(widget.ScrollBarVisible(TScrollBarKind::sbVertical));
  EXPECT_FALSE(widget.ScrollBarVisible(TScrollBarKind::sbHorizontal));
  auto* bar = widget.findChildren<QScrollBar*>().front();
  if (bar->orientation() != Qt::Vertical) bar = widget.findChildren<QScrollBar*>().back();
  bar->setValue(50);
  EXPECT_EQ(memo.FTopLine, 50);
  // The memo's own setting of the bar does not scroll the view back.
  widget.SetScrollInfo(TScrollBarKind::sbVertical, {0, 200, 10, 7});
  EXPECT_EQ(memo.FTopLine, 50);
  // Dragging the thumb shows the line the view opens on; letting go hides it.
  auto* panel = widget.findChild<QLabel*>();
  ASSERT_NE(panel, nullptr);
  bar->setSliderDown(true);
  bar->setValue(120);
  EXPECT_TRUE(panel->isVisibleTo(&widget));
  EXPECT_EQ(panel->text(), "Line: 121");
  bar->setSliderDown(false);
  EXPECT_FALSE(panel->isVisibleTo(&widget));
}

TEST(MemoWidget, TimersRunThroughTheEventLoop) {
  TOrlMemoWidget widget;
  widget.StartTimer(TMemoTimer::JSON, 5);
  EXPECT_TRUE(widget.TimerRunning(TMemoTimer::JSON));
  QEventLoop loop;
  QTimer::singleShot(200, &loop, &QEventLoop::quit);
  loop.exec();
  EXPECT_TRUE(widget.Memo().FUpdateCodeExplorer);
  EXPECT_FALSE(widget.TimerRunning(TMemoTimer::JSON));  // it stops itself
}

TEST(MemoWidget, AClickPlacesTheCaretAndTheClipboardRoundTrips) {
  TOrlMemoWidget widget;
  widget.resize(300, 200);
  TOrlMemo& memo = widget.Memo();
  memo.SetText(u"first\r\nsecond");
  const TCellSize cell = memo.CellSize();
  const TRect area = memo.EditorRect(true, 0);
  const QPointF at(area.Left + 3 * cell.W + 1, area.Top + cell.H + 1);
  QMouseEvent press(QEvent::MouseButtonPress, at, widget.mapToGlobal(at), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&widget, &press);
  EXPECT_EQ(memo.CurY(), 1);
  EXPECT_EQ(memo.CurX(), 3);

  widget.SetClipboardText(u"\u00E9t\u00E9");
  EXPECT_EQ(widget.ClipboardText(), u"\u00E9t\u00E9");

  // The widget paints its background in the memo's colour.
  const QImage shot = widget.grab().toImage();
  EXPECT_EQ(shot.pixelColor(shot.width() / 2, shot.height() / 2), QColor(255, 255, 255));
}

void SendKey(QWidget& widget, int key, Qt::KeyboardModifiers mods, const QString& text = {}) {
  QKeyEvent press(QEvent::KeyPress, key, mods, text);
  QApplication::sendEvent(&widget, &press);
  QKeyEvent release(QEvent::KeyRelease, key, mods, text);
  QApplication::sendEvent(&widget, &release);
}

TEST(MemoWidget, KeysActOnceAndAltGrAndTheInputMethodType) {
  TOrlMemoWidget widget;
  widget.resize(300, 200);
  TOrlMemo& memo = widget.Memo();
  memo.SetText(u"first\r\nsecond");
  memo.FTabAsSpaces = false;
  widget.SetClipboardText(u"P");
  memo.FProcessShortcuts = true;
  SendKey(widget, Qt::Key_Down, Qt::NoModifier);
  SendKey(widget, Qt::Key_Right, Qt::ShiftModifier);
  EXPECT_EQ(memo.CurY(), 1);
  EXPECT_EQ(memo.GetSelection(), (TOrderedSelection{0, 1, 1, 1}));
  SendKey(widget, Qt::Key_Tab, Qt::NoModifier, "\t");  // replaces the selected "s"
  SendKey(widget, Qt::Key_V, Qt::ControlModifier, QString(QChar(22)));
  SendKey(widget, Qt::Key_Q, Qt::ControlModifier | Qt::AltModifier, "@");  // AltGr
  SendKey(widget, Qt::Key_X, Qt::AltModifier, "x");                        // Alt alone types nothing
  EXPECT_EQ(memo.GetLineText(1), u"\tP@econd");  // Ctrl+V pasted once
  QInputMethodEvent compose;
  compose.setCommitString(QString::fromUtf16(u"\u65E5\u672C"));
  QApplication::sendEvent(&widget, &compose);
  EXPECT_EQ(memo.GetLineText(1), u"\tP@\u65E5\u672Cecond");
  // An Alt code: keypad digits while Alt is held, the character when Alt goes up.
  QKeyEvent altDown(QEvent::KeyPress, Qt::Key_Alt, Qt::AltModifier);
  QApplication::sendEvent(&widget, &altDown);
  for (const Qt::Key digit : {Qt::Key_1, Qt::Key_3, Qt::Key_0})
    SendKey(widget, digit, Qt::AltModifier | Qt::KeypadModifier, QString(QChar(char16_t(u'0' + (digit - Qt::Key_0)))));
  QKeyEvent altUp(QEvent::KeyRelease, Qt::Key_Alt, Qt::NoModifier);
  QApplication::sendEvent(&widget, &altUp);
  EXPECT_EQ(memo.GetLineText(1), u"\tP@\u65E5\u672C\u00E9econd");
}

TEST(MemoWidget, DoubleClickSelectsAWordAndTheWheelScrollsBySystemLines) {
  TOrlMemoWidget widget;
  widget.resize(300, 100);
  TOrlMemo& memo = widget.Memo();
  std::u16string text = u"alpha beta gamma";
  for (int i = 0; i < 50; ++i) text += u"\r\nrow";
  memo.SetText(text);
  const TCellSize cell = memo.CellSize();
  const TRect area = memo.EditorRect(true, 0);
  const QPointF at(area.Left + 7 * cell.W + 1, area.Top + cell.H / 2);
  for (QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease, QEvent::MouseButtonDblClick,
                            QEvent::MouseButtonRelease}) {
    QMouseEvent event(type, at, widget.mapToGlobal(at), Qt::LeftButton,
                      type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
  }
  EXPECT_EQ(memo.GetSelection(), (TOrderedSelection{6, 0, 10, 0}));
  QWheelEvent wheel(at, widget.mapToGlobal(at), QPoint(), QPoint(0, -120), Qt::NoButton, Qt::NoModifier,
                    Qt::NoScrollPhase, false);
  QApplication::sendEvent(&widget, &wheel);
  EXPECT_EQ(memo.TopLine(), QApplication::wheelScrollLines());
  EXPECT_EQ(memo.CurY(), 0);  // the wheel moves the view, not the caret
}

TEST(MemoWidget, CopyGivesCleanTextAndMarksAWholeLineInItsOwnType) {
  TOrlMemoWidget widget;
  TOrlMemo& memo = widget.Memo();
  memo.SetText(u"one\r\ntwo");
  memo.FCopyLineToClipboard = true;
  memo.SetCursor(1, 1, false);
  memo.CopyToClipboard();
  const QMimeData* mime = QGuiApplication::clipboard()->mimeData();
  ASSERT_NE(mime, nullptr);
  EXPECT_EQ(mime->text(), QString("two\r\n"));
  EXPECT_TRUE(mime->hasFormat(TOrlMemoWidget::kWholeLineMimeType));
  memo.PasteFromClipboard(false);  // the mark came back: above the caret's row
  EXPECT_EQ(memo.Text(), u"one\r\ntwo\r\ntwo");

  // A selection is plain text; HTML that another program copied is read too.
  memo.SetSelection2(0, 0, 2, 0, false);
  memo.CopyToClipboard();
  EXPECT_EQ(QGuiApplication::clipboard()->text(), QString("on"));
  EXPECT_FALSE(QGuiApplication::clipboard()->mimeData()->hasFormat(TOrlMemoWidget::kWholeLineMimeType));
  auto* html = new QMimeData;
  html->setHtml("<html><body><!--StartFragment--><em>e</em><!--EndFragment--></body></html>");
  QGuiApplication::clipboard()->setMimeData(html);
  memo.PasteFromClipboardHTML();  // over the selected "on"
  EXPECT_EQ(memo.GetLineText(0), u"<em>e</em>e");
}

} // namespace
} // namespace orl

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
