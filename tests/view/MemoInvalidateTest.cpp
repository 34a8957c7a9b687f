// Which rows an edit has drawn again: the row alone when its end state held,
// everything below it when the change runs on.

#include "view/PaintFixture.h"

#include <set>

namespace orl {
namespace {

using test::PaintFixture;

class Invalidation : public PaintFixture {
protected:
  Invalidation() {
    LoadCpp();
    std::u16string text;
    for (int i = 0; i < 100; ++i) text += u"int v" + std::u16string(1, char16_t(u'0' + i % 10)) + u";\r\n";
    memo.SetText(text);
    memo.SetTextCursor(0, 20, true);
    PaintAll();
    Forget();
  }
  void Forget() {
    window.Invalidated.clear();
    window.Redrawn.clear();
    window.InvalidatedAll = 0;
  }
  /// Screen rows covered by the rectangles.
  static std::set<int> Rows(const std::vector<TRect>& rects) {
    std::set<int> rows;
    for (const TRect& r : rects)
      for (int y = r.Top; y < r.Bottom; y += H) rows.insert(y / H);
    return rows;
  }
  /// An edit as the text commands make it: the row changes, then its line is invalidated.
  void Edit(int line, std::u16string_view text) {
    Forget();
    memo.SetLineText(line, text);
  }
  TRgb ForegroundAt(int line, size_t item) {
    PaintAll();
    return Texts(line).at(item)->Fg;
  }
};

TEST_F(Invalidation, AnEditThatKeepsTheEndStateRedrawsOnlyItsRow) {
  Edit(3, u"int v3x;");
  EXPECT_EQ(Rows(window.Redrawn), (std::set<int>{3}));
  EXPECT_TRUE(window.Invalidated.empty());
  EXPECT_EQ(window.InvalidatedAll, 0);
  // The redrawn row is what a full paint draws.
  {
    TRecordingCanvas one(window);
    EXPECT_EQ(painter.PaintLine(one, 3), window.Redrawn[0]);
    PaintAll();
    ASSERT_EQ(one.TextOf(3).size(), Texts(3).size());
    for (size_t i = 0; i < Texts(3).size(); ++i) EXPECT_EQ(one.TextOf(3)[i]->Text, Texts(3)[i]->Text);
  }
}

TEST_F(Invalidation, OpeningACommentInvalidatesToTheBottomAndClosingItRestores) {
  const TRgb comment = ColorToRgb(memo.FStyles->FCommentStyle.FTextColor);
  const TRgb keyword = ForegroundAt(10, 0);
  Edit(3, u"int v3; /*");
  EXPECT_TRUE(window.Redrawn.empty());
  std::set<int> below;
  for (int row = 3; row < 25; ++row) below.insert(row);
  EXPECT_EQ(Rows(window.Invalidated), below);
  EXPECT_EQ(ForegroundAt(10, 0), comment);
  // A row inside the comment keeps the end state: only it is redrawn.
  Edit(5, u"still comment");
  EXPECT_EQ(Rows(window.Redrawn), (std::set<int>{5}));
  Edit(3, u"int v3; /* */");
  EXPECT_EQ(Rows(window.Invalidated), below);
  EXPECT_EQ(ForegroundAt(10, 0), keyword);
}

TEST_F(Invalidation, ChangesOutsideTheViewOrInsideAnUpdateDrawNothing) {
  Edit(60, u"/*");  // below the view: its rows come when they are shown
  EXPECT_TRUE(window.Invalidated.empty());
  EXPECT_TRUE(window.Redrawn.empty());
  memo.BeginUpdate();
  Edit(2, u"x");
  EXPECT_TRUE(window.Redrawn.empty());
  memo.EndUpdate();
  EXPECT_GT(window.InvalidatedAll, 0);
}

TEST_F(Invalidation, InvalidateLinesTakesTheViewsEndsForNegativeBoundsAndClampsToIt) {
  memo.SetTopLine(20);
  Forget();
  memo.InvalidateLines(-1, -1);
  std::set<int> all;
  for (int row = 0; row < 25; ++row) all.insert(row);
  EXPECT_EQ(Rows(window.Invalidated), all);
  Forget();
  memo.InvalidateLines(10, 22);  // starts above the view
  EXPECT_EQ(Rows(window.Invalidated), (std::set<int>{0, 1, 2}));
  EXPECT_EQ(window.Invalidated[0].Left, 1);
  Forget();
  memo.InvalidateLines(90, -1);  // below the view
  EXPECT_TRUE(window.Invalidated.empty());
}

} // namespace
} // namespace orl
