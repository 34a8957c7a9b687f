// The memo widget's pixels, with a pinned monospaced face: colours reach the
// screen in the right byte order, the selection and the right margin keep
// their rules, and shown tabs draw their mark. Set ORL_SAVE_GRABS to a folder
// to keep the grabbed images.

#include <gtest/gtest.h>

#include <QFontDatabase>
#include <QApplication>
#include <QImage>
#include <QScreen>

#include <climits>
#include <filesystem>

#include "syntax/OrlSyntax.h"
#include "view/MemoColors.h"
#include "widgets/MemoWidget.h"
#include "widgets/QtMemoCanvas.h"
#include "BuildPaths.h"

namespace orl {
namespace {

class WidgetPaint : public ::testing::Test {
protected:
  WidgetPaint() {
    static const int pinned = QFontDatabase::addApplicationFont("/usr/share/fonts/truetype/dejavu/DejaVuSansMono.ttf");
    EXPECT_GE(pinned, 0) << "fonts-dejavu-core is missing";
    widget.resize(760, 220);
    TMemoFont font;
    font.Name = u"DejaVu Sans Mono";
    font.Height = -14;
    memo.SetFont(font);
    TOrlSyntax syntax;
    std::u16string asp;
    syntax.LoadStyleFromFile(&memo, (orl::test::HostDir() / "syntax" / "C++.gdx").u16string(), u"C++", 0, asp);
    EXPECT_NE(memo.FStyles, nullptr);
    // Red 255, green 128, blue 0: the same bytes read the other way round are a blue.
    for (auto& group : memo.FStyles->FKeyWords) group->Color = 0x0080FF;
    memo.SetText(u"int main() {\r\n\treturn 0; // done\r\n// " + std::u16string(72, u'x') + std::u16string(10, u'\u2588') +
                 u"\r\nchar* s = selected;\r\n");
    memo.SetSelection2(10, 3, 18, 3, false);
  }
  QImage Grab(const char* name) {
    const QImage image = widget.grab().toImage().convertToFormat(QImage::Format_RGB32);
    if (const char* folder = std::getenv("ORL_SAVE_GRABS")) image.save(QString(folder) + "/" + name + ".png");
    return image;
  }
  QRect Cells(int col, int row, int count) const {
    const TRect area = const_cast<TOrlMemo&>(memo).EditorRect(true, -1);
    const TCellSize cell = memo.CellSize();
    return QRect(area.Left + col * cell.W, area.Top + row * cell.H, count * cell.W, cell.H);
  }
  static QColor Q(TColor c) {
    const TRgb rgb = ColorToRgb(c);
    return QColor(rgb.R, rgb.G, rgb.B);
  }
  static int CountPixels(const QImage& image, const QRect& r, const QColor& c) {
    int n = 0;
    for (int y = r.top(); y <= r.bottom(); ++y)
      for (int x = r.left(); x <= r.right(); ++x) n += image.pixelColor(x, y) == c;
    return n;
  }

  TOrlMemoWidget widget;
  TOrlMemo& memo = widget.Memo();
};

TEST_F(WidgetPaint, KeywordsTakeTheDefinitionsColourAndSelectedCellsTheSelectionColour) {
  const QImage image = Grab("keyword");
  const QRect keyword = Cells(0, 0, 3);
  EXPECT_GT(CountPixels(image, keyword, QColor(255, 128, 0)), 0);
  EXPECT_EQ(CountPixels(image, keyword, QColor(0, 128, 255)), 0);
  // The selected cells' corners are the selection's background, the cells beside them are not.
  const QColor selection = Q(memo.FStyles->FSelBkColor);
  const QRect selected = Cells(10, 3, 8);
  EXPECT_EQ(image.pixelColor(selected.topLeft()), selection);
  EXPECT_EQ(image.pixelColor(selected.bottomRight()), selection);
  EXPECT_NE(image.pixelColor(Cells(9, 3, 1).topLeft()), selection);
  EXPECT_NE(image.pixelColor(Cells(18, 3, 1).bottomRight()), selection);
}

TEST_F(WidgetPaint, TheRightMarginCrossesNoGlyph) {
  memo.FRightMarginLine = mNone;
  const QImage plain = Grab("no-margin");
  memo.FRightMarginLine = mSolid;
  widget.update();
  const QImage margin = Grab("margin");
  const int x = Cells(memo.FRightMargin, 0, 1).left() - 1;
  const QColor line = Q(memo.FRightMarginColor);
  int glyphPixels = 0;
  for (int y = Cells(0, 0, 1).top(); y < Cells(0, 6, 1).bottom(); ++y) {
    const QColor before = plain.pixelColor(x, y);
    const bool bBackground = before == Q(memo.FStyles->FBkColor) || before == Q(memo.FLineHighlightColor);
    if (bBackground) {
      EXPECT_EQ(margin.pixelColor(x, y), line) << y;
    } else {
      ++glyphPixels;
      EXPECT_EQ(margin.pixelColor(x, y), before) << y;
    }
  }
  EXPECT_GT(glyphPixels, 0);  // the block characters of row 2 stand on the margin's column
}

TEST_F(WidgetPaint, AShownTabDrawsItsMarkInTheTabsCells) {
  const QRect tab = Cells(0, 1, 4);
  const QColor background = Q(memo.FStyles->FBkColor);
  EXPECT_EQ(CountPixels(Grab("tab-hidden"), tab, background), tab.width() * tab.height());
  memo.FShowTabs = true;
  widget.update();
  const QImage shown = Grab("tab-shown");
  EXPECT_LT(CountPixels(shown, tab, background), tab.width() * tab.height());
  // The mark stays in the tab's first cell; the keyword still starts at column 4.
  EXPECT_EQ(CountPixels(shown, Cells(2, 1, 2), background), 2 * tab.width() / 4 * tab.height());
  EXPECT_GT(CountPixels(shown, Cells(4, 1, 6), QColor(255, 128, 0)), 0);
}

TEST_F(WidgetPaint, ComplexTextIsLaidOutWithTabStopsOnTheDocumentsGridAndSelectsInTheMemosColours) {
  // Whether the face gives the three characters one cell or two, the tab
  // behind them goes on to the stop at column 8.
  memo.SetText(u"x\u65E5\u672C\u8A9E\ty\r\nplain");
  memo.SetSelection2(1, 0, 3, 0, false);
  const QImage image = Grab("complex");
  const int cellW = memo.CellSize().W;
  int glyphLeft = INT_MAX;
  const QRect row = Cells(0, 0, 20);
  for (int x = Cells(8, 0, 1).left() - 2 * cellW; x <= row.right(); ++x)
    for (int y = row.top(); y <= row.bottom(); ++y)
      if (image.pixelColor(x, y).lightness() < 100) glyphLeft = std::min(glyphLeft, x);
  EXPECT_GE(glyphLeft, Cells(8, 0, 1).left());
  EXPECT_LT(glyphLeft, Cells(9, 0, 1).left());
  EXPECT_GT(CountPixels(image, Cells(1, 0, 3), Q(memo.FStyles->FSelBkColor)), 0);
}

TEST_F(WidgetPaint, ScrollingByBlitShowsWhatAWholePaintShows) {
  std::u16string text;
  for (int i = 0; i < 100; ++i) text += u"int v" + std::u16string(size_t(i % 7 + 1), u'x') + u"; // " + char16_t(u'a' + i % 26) + u"\r\n";
  memo.SetText(text);
  memo.SetTextCursor(2, 5, true);
  Grab("before-scroll");
  for (const auto& [lines, distance] : {std::pair{1, 1}, {3, 3}, {-2, 1}, {-1, 3}}) {
    memo.FCaretScrollVDistance = distance;
    memo.FOffsetScrollMode = osmAllow;
    memo.SetTopLine(memo.TopLine() + lines + (lines < 0 ? 0 : 2));
    const QImage blitted = Grab(("blitted" + std::to_string(lines)).c_str());
    memo.FOffsetScrollMode = osmNone;
    widget.update();
    const QImage whole = Grab(("whole" + std::to_string(lines)).c_str());
    EXPECT_EQ(blitted, whole) << lines;
  }
  // Two scrolls before one paint: the blit is measured from what the buffer shows.
  memo.FOffsetScrollMode = osmAllow;
  memo.SetTopLine(memo.TopLine() + 2);
  memo.FOffsetScrollMode = osmAllow;
  memo.SetTopLine(memo.TopLine() + 1);
  const QImage blitted = Grab("blitted-twice");
  widget.update();
  EXPECT_EQ(blitted, Grab("whole-twice"));
}

TEST_F(WidgetPaint, ARedrawnRowReachesTheScreenWithoutAPaintOfTheView) {
  widget.show();
  QApplication::processEvents();
  const auto screen = [&] { return widget.screen()->grabWindow(widget.winId()).toImage().convertToFormat(QImage::Format_RGB32); };
  const QImage before = screen();
  memo.SetLineText(0, u"int changed() {");
  const QImage after = screen();  // no event loop ran: only the redraw reached the screen
  EXPECT_NE(after.copy(Cells(0, 0, 20)), before.copy(Cells(0, 0, 20)));
  EXPECT_EQ(after.copy(Cells(0, 0, 20)), Grab("redrawn").copy(Cells(0, 0, 20)));
}

TEST(QtMemoCanvas, TheBufferIsInDevicePixelsWhileTheMemoDrawsInLogicalOnes) {
  QImage image(200, 200, QImage::Format_RGB32);
  image.fill(Qt::white);
  image.setDevicePixelRatio(2);
  const TRgb red{255, 0, 0}, grey{200, 200, 200};
  {
    TQtMemoCanvas canvas(image, QPalette());
    canvas.FillRect({10, 10, 20, 15}, red);  // logical: device 20..40 by 20..30
  }
  EXPECT_EQ(image.pixelColor(20, 20), QColor(255, 0, 0));
  EXPECT_EQ(image.pixelColor(39, 29), QColor(255, 0, 0));
  EXPECT_EQ(image.pixelColor(40, 29), QColor(Qt::white));
  {
    // Up by 5 logical pixels, 10 device rows; the margin line two device pixels wide, over white only.
    TQtMemoCanvas canvas(image, QPalette());
    canvas.ScrollRows({0, 0, 100, 100}, -5);
    const TRgb white{255, 255, 255};
    canvas.MarginLine(15, {0, 0, 100, 10}, grey, 1, mSolid, 0, std::span(&white, 1));
  }
  EXPECT_EQ(image.pixelColor(20, 10), QColor(255, 0, 0));
  EXPECT_EQ(image.pixelColor(39, 19), QColor(255, 0, 0));
  EXPECT_EQ(image.pixelColor(39, 20), QColor(Qt::white));
  EXPECT_EQ(image.pixelColor(30, 5), QColor(200, 200, 200));   // the line over the background
  EXPECT_EQ(image.pixelColor(31, 5), QColor(200, 200, 200));
  EXPECT_EQ(image.pixelColor(30, 12), QColor(255, 0, 0));      // not over the red
  EXPECT_EQ(image.pixelColor(32, 5), QColor(Qt::white));
}

} // namespace
} // namespace orl
