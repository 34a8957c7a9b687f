// What a paint draws: runs, their colours, the selection split, long runs,
// shown tabs and the measures it leaves for the scroll bars.

#include "view/PaintFixture.h"

#include <set>

#include "syntax/OrlMemoStyles.h"

namespace orl {
namespace {

using test::PaintFixture;
using Paint = PaintFixture;

TEST_F(Paint, RowsDrawTheirRunsInTheDefinitionsColoursOnTheCellGrid) {
  LoadCpp();
  for (auto& group : memo.FStyles->FKeyWords) group->Color = 0x0080FF;  // red 255, green 128: a swap shows blue
  memo.SetText(u"int x; // note\r\n\tint\r\nplain");
  memo.SetTextCursor(0, 2, true);
  PaintAll();
  EXPECT_EQ(Joined(0), u"int x; // note");
  const auto row0 = Texts(0);
  ASSERT_GE(row0.size(), 3u);
  EXPECT_EQ(row0[0]->Text, u"int");
  EXPECT_EQ(row0[0]->Fg, (TRgb{0xFF, 0x80, 0x00}));
  EXPECT_EQ(row0.back()->Text, u"// note");
  EXPECT_EQ(row0.back()->Fg, ColorToRgb(memo.FStyles->FLineCommentStyle.FTextColor));
  EXPECT_TRUE(Seamless(0));
  EXPECT_EQ(TotalWidth(0), 14 * W);
  // The tab expands to the document's grid: the keyword behind it starts at column 4.
  const auto row1 = Texts(1);
  ASSERT_EQ(row1.size(), 2u);
  EXPECT_EQ(row1[1]->R.Left - row1[0]->R.Left, 4 * W);
  // The caret's row takes the current-line colour; the others the text background.
  EXPECT_EQ(Texts(2)[0]->Bg, ColorToRgb(memo.FLineHighlightColor));
  EXPECT_EQ(row0[0]->Bg, ColorToRgb(memo.FStyles->FTextColorBK));
}

TEST_F(Paint, ASelectionInsideARunSplitsItIntoThreeOfTheSameWidth) {
  memo.SetText(u"abcdefghij\r\nnext");
  PaintAll();
  ASSERT_EQ(Texts(0).size(), 1u);
  const int whole = TotalWidth(0);
  memo.SetSelection2(3, 0, 6, 0, false);
  PaintAll();
  const auto parts = Texts(0);
  ASSERT_EQ(parts.size(), 3u);
  EXPECT_EQ(parts[0]->Text, u"abc");
  EXPECT_EQ(parts[1]->Text, u"def");
  EXPECT_EQ(parts[2]->Text, u"ghij");
  EXPECT_EQ(parts[1]->Bg, ColorToRgb(memo.FSelBkColor));
  EXPECT_EQ(parts[1]->Fg, ColorToRgb(memo.FSelColor));
  EXPECT_NE(parts[2]->Bg, ColorToRgb(memo.FSelBkColor));
  EXPECT_EQ(TotalWidth(0), whole);
  EXPECT_TRUE(Seamless(0));
  // A selection through the line end adds one selected cell behind the text.
  memo.SetSelection2(8, 0, 2, 1, false);
  PaintAll();
  bool bEndCell = false;
  for (const TPaintItem& item : canvas.Items)
    bEndCell |= item.Kind == TPaintKind::Fill && item.Line == 0 && item.R.Left == Texts(0).back()->R.Right &&
                item.R.Width() == W && item.Bg == ColorToRgb(memo.FSelBkColor);
  EXPECT_TRUE(bEndCell);
}

TEST_F(Paint, ALongRunGoesOutInPiecesWithoutASeam) {
  window.Client.Right = 3100 * W;  // the whole run in view
  memo.ResizeEditor();
  std::u16string row;
  for (int i = 0; i < 3000; ++i) row += char16_t(u'a' + i % 26);
  memo.SetText(row);
  PaintAll();
  const auto pieces = Texts(0);
  ASSERT_EQ(pieces.size(), 3u);
  for (const TPaintItem* piece : pieces) EXPECT_LE(piece->Text.size(), 1024u);
  EXPECT_EQ(Joined(0), row);
  EXPECT_TRUE(Seamless(0));
  EXPECT_EQ(TotalWidth(0), 3000 * W);
  // With blanks near the limit a piece ends behind one, between words.
  std::u16string words;
  while (words.size() < 3000) words += u"word ";
  memo.SetText(words);
  PaintAll();
  for (const TPaintItem* piece : Texts(0)) EXPECT_EQ(piece->Text.back(), u' ');
  EXPECT_EQ(Joined(0), words);
}

TEST_F(Paint, ARowWiderThanTheViewDrawsWhatShowsButMeasuresAll) {
  memo.SetText(std::u16string(100'000, u'a') + u"\r\nshort");
  PaintAll();
  ASSERT_EQ(Texts(0).size(), 1u);
  EXPECT_LT(Texts(0)[0]->R.Left, memo.EditorRect(true, 0).Right);
  EXPECT_GE(memo.FMaxTextWidth, 100'000 * W);
  // Scrolled far right, the pieces left of the view are skipped too.
  memo.SetLeftCol(50'000);
  PaintAll();
  ASSERT_FALSE(Texts(0).empty());
  EXPECT_LE(Texts(0).size(), 2u);
  EXPECT_GT(Texts(0)[0]->R.Right, memo.EditorRect(true, 0).Left);
}

TEST_F(Paint, ShownTabsDrawTheirMarkInTheTabsCellInSelectionColoursWhenSelected) {
  memo.FShowTabs = true;
  memo.SetText(u"a\tb\t\tc\r\n");
  memo.SetSelection2(3, 0, 4, 0, false);  // the first of the two tabs behind "b"
  PaintAll();
  const auto items = Texts(0);
  std::vector<const TPaintItem*> marks;
  for (const TPaintItem* item : items)
    if (item->Text == u"\u00BB") marks.push_back(item);
  ASSERT_EQ(marks.size(), 3u);
  EXPECT_EQ(marks[0]->Width, 3 * W);  // from column 1 to the stop at 4
  EXPECT_EQ(marks[1]->Bg, ColorToRgb(memo.FSelBkColor));
  EXPECT_EQ(marks[1]->Fg, ColorToRgb(memo.FSelColor));
  EXPECT_NE(marks[2]->Bg, ColorToRgb(memo.FSelBkColor));
  EXPECT_EQ(items.back()->Text, u"c");
  EXPECT_EQ(items.back()->R.Left - items.front()->R.Left, 12 * W);
}

TEST_F(Paint, ControlCharactersAndTheLineEndMarkShowAsGlyphs) {
  memo.FShowCRLF = true;
  memo.SetText(u"a\u0001b\r\nc");
  PaintAll();
  EXPECT_EQ(Joined(0), u"a\u263Ab\u00B6");
  EXPECT_EQ(Texts(0).back()->Fg, ColorToRgb(0x808080));  // the mark in the control-character colour
  EXPECT_EQ(Joined(1), u"c");  // the last row has no ending
}

TEST_F(Paint, BoldAndItalicAreDroppedWhenTheBoldFaceIsWider) {
  LoadCpp();
  for (auto& group : memo.FStyles->FKeyWords) group->Style = fsBold | fsItalic;
  memo.SetText(u"int");
  PaintAll();
  EXPECT_EQ(Texts(0)[0]->Style, fsBold | fsItalic);
  window.bBoldWider = true;
  memo.SetFont(TMemoFont{u"Courier New", 10, -14});
  ASSERT_TRUE(memo.FDisableBoldItalic);
  PaintAll();
  EXPECT_EQ(Texts(0)[0]->Style, 0);
  EXPECT_EQ(TotalWidth(0), 3 * memo.CellSize().W);
}

TEST_F(Paint, ABraceMarkAtARunsStartWinsOverTheCurrentLine) {
  LoadCpp();
  memo.SetText(u"f(x);");
  memo.SetTextCursor(1, 0, true);
  memo.FStyles->FBraceHighlightColor = 0x00FFFF;
  memo.FLeftBrace = {2, 0, 1};
  memo.FRightBrace = {4, 0, 1};
  PaintAll();
  // A run whose first character is a marked brace takes the mark.
  for (const TPaintItem* item : Texts(0)) {
    const int position = (item->R.Left - memo.EditorRect(true, 0).Left) / W + 1;
    const bool bBrace = position == 2 || position == 4;
    EXPECT_EQ(item->Bg, ColorToRgb(bBrace ? 0x00FFFF : memo.FLineHighlightColor)) << position;
  }
  // Only one brace known: the error colours.
  memo.FRightBrace = {};
  memo.FStyles->FBraceHighlightColorE = 0x0000FF;
  PaintAll();
  EXPECT_EQ(Texts(0)[1]->Bg, ColorToRgb(0x0000FF));
}

TEST_F(Paint, AForcedBlockColoursAllItHoldsWhileAPlainOneLetsKeywordsShow) {
  LoadDefinition(u"[Keywords]\nWords=if\n\n[Block]\n1_Name=Forced\n1_Start=<<\n1_End=>>\n1_AsString=1\n"
                 u"2_Name=Plain\n2_Start=[[\n2_End=]]\n");
  TOrlCustomMemoStyles& S = *memo.FStyles;
  ASSERT_EQ(S.FBlocks.size(), 2u);
  S.FBlocks[0]->Color = 0x0000FF;
  S.FBlocks[1]->Color = 0x00FF00;
  S.FKeyWords[0]->Color = 0xFF0000;
  memo.SetText(u"<< if >> [[ if ]]\r\nif");
  memo.SetTextCursor(0, 1, true);
  PaintAll();
  std::vector<TRgb> ifColours;
  for (const TPaintItem* item : Texts(0)) {
    if (item->Text.find(u"if") != std::u16string::npos) ifColours.push_back(item->Fg);
    if (item->Text.starts_with(u"[[")) {
      EXPECT_EQ(item->Fg, ColorToRgb(0x00FF00));
    }
  }
  ASSERT_EQ(ifColours.size(), 2u);
  EXPECT_EQ(ifColours[0], ColorToRgb(0x0000FF));  // inside the forced block
  EXPECT_EQ(ifColours[1], ColorToRgb(0xFF0000));  // a keyword inside the plain one
  EXPECT_EQ(Texts(1)[0]->Fg, ColorToRgb(0xFF0000));
}

/// A log of the row decorations on line 2.
class TLoggedDecorations final : public IRowDecorations {
public:
  void IndentGuides(IMemoCanvas&, const TRowPaint& row) override { Log("guides", row); }
  void Highlights(IMemoCanvas&, const TRowPaint& row) override { Log("highlights", row); }
  void ColorValueUnderlines(IMemoCanvas&, const TRowPaint& row) override { Log("colours", row); }
  void ClipTabStops(IMemoCanvas&, const TRowPaint& row) override { Log("tabstops", row); }
  void ExtraCaretSelections(IMemoCanvas&, const TRowPaint& row) override { Log("carets", row); }
  void Log(const std::string& what, const TRowPaint& row) {
    if (row.Line == 2) Calls += what + "@" + std::to_string(row.TextRight - row.TextLeft) + " ";
  }
  std::string Calls;
};

TEST_F(Paint, RowMarksFromTheAttributeAndDecorationsInTheirOrder) {
  TLoggedDecorations decorations;
  TMemoPainter decorated(memo, &decorations);
  memo.SetText(u"changed\r\nfiller\r\nplain wrod\r\nhead {\r\n}");
  memo.SetTextCursor(0, 4, true);
  TOrlMemoStrings& lines = memo.InternalLines();
  lines.GetLineAttribute(0)->TextDiffKind = 1;
  lines.GetLineAttribute(1)->TextDiffKind = 2;
  lines.GetLineAttribute(1)->Enabled = false;
  lines.GetLineAttribute(2)->SpellList.Add({4, 7, 0, 0});  // "wrod"
  lines.GetLineAttribute(3)->SetNodeClosed(true);
  canvas.Clear();
  decorated.Paint(canvas, {});
  // Red 177, green 177, blue 255 at 30 percent over white.
  const TRgb mixed = ColorToRgb(Blend(TOrlCustomMemo::RGB(177, 177, 255), memo.FBkColor, 30));
  EXPECT_EQ(mixed, (TRgb{231, 231, 255}));
  EXPECT_EQ(Texts(0)[0]->Bg, mixed);
  EXPECT_TRUE(Texts(1).empty());  // a filler row shows no text, only its hatch
  const auto itemOf = [&](TPaintKind kind, int line) {
    const auto it = std::find_if(canvas.Items.begin(), canvas.Items.end(),
                                 [&](const TPaintItem& i) { return i.Kind == kind && i.Line == line; });
    return it == canvas.Items.end() ? nullptr : &*it;
  };
  ASSERT_NE(itemOf(TPaintKind::Hatch, 1), nullptr);
  const int left = memo.EditorRect(true, 2).Left;
  const TPaintItem* wave = itemOf(TPaintKind::ZigZag, 2);
  ASSERT_NE(wave, nullptr);
  EXPECT_EQ(wave->R.Left, left + 6 * W);
  EXPECT_EQ(wave->R.Right, left + 10 * W);
  EXPECT_EQ(wave->R.Top, 3 * H - 2);
  // The closed head's marker: 20 pixels behind its six characters.
  const auto row3 = Texts(3);
  ASSERT_FALSE(row3.empty());
  EXPECT_EQ(row3.back()->Text, u"...");
  EXPECT_EQ(row3.back()->R.Left, left + 6 * W + 20 + 1);
  EXPECT_EQ(decorations.Calls, "guides@80 highlights@80 colours@80 tabstops@80 carets@80 ");
}

TEST_F(Paint, AddressesAreCutOutOfTheirRunsAndDrawnAsLinks) {
  memo.UrlAware = true;
  memo.FUrlStyle.Set(0xFF0000, clNoColor, fsUnderline);
  memo.SetText(u"see http://x.org/a?b=1 and (mailto:me@x.org) end\r\nno:link here");
  memo.SetTextCursor(0, 1, true);
  PaintAll();
  std::vector<std::u16string> links, plain;
  for (const TPaintItem* item : Texts(0))
    (item->Style == fsUnderline ? links : plain).push_back(item->Text);
  EXPECT_EQ(links, (std::vector<std::u16string>{u"http://x.org/a?b=1", u"mailto:me@x.org"}));
  EXPECT_EQ(Joined(0), u"see http://x.org/a?b=1 and (mailto:me@x.org) end");
  EXPECT_TRUE(Seamless(0));
  for (const TPaintItem* item : Texts(1)) EXPECT_EQ(item->Style, 0);
  // The continuation of an address wrapped from the row above starts in it.
  memo.InternalLines().GetLineAttribute(1)->SetURL(true);
  PaintAll();
  EXPECT_EQ(Texts(1)[0]->Text, u"no:link");
  EXPECT_EQ(Texts(1)[0]->Style, fsUnderline);
}

TEST_F(Paint, TheRightMarginRunsThroughEveryRowAndBelowTheText) {
  memo.SetText(u"short\r\nrow");
  PaintAll();
  const int x = memo.EditorRect(true, -1).Left + memo.FRightMargin * W - 1;
  int margins = 0;
  for (const TPaintItem& item : canvas.Items)
    if (item.Kind == TPaintKind::Margin) {
      EXPECT_EQ(item.R.Left, x);
      ++margins;
    }
  EXPECT_EQ(margins, 25);  // two rows of text and the rows below them
  memo.FRightMarginLine = mNone;
  PaintAll();
  EXPECT_TRUE(std::none_of(canvas.Items.begin(), canvas.Items.end(),
                           [](const TPaintItem& i) { return i.Kind == TPaintKind::Margin; }));
}

TEST_F(Paint, ALongTabbedRowWidensTheScrollRangeButNotForceWrap) {
  // 1100 tabs are 4400 columns on screen but only 1100 characters.
  memo.SetText(std::u16string(1100, u'\t') + u"x");
  PaintAll();
  EXPECT_GE(memo.FMaxTextWidth, 4400 * W);
  EXPECT_TRUE(window.ScrollVisible[size_t(TScrollBarKind::sbHorizontal)]);
  EXPECT_GE(window.Scroll[size_t(TScrollBarKind::sbHorizontal)].Max, 4400);
  memo.LinesChanged(true, false, true);
  EXPECT_FALSE(memo.FForceWrap);
  EXPECT_LT(memo.FMaxLength, memo.FForcewrapLength);
}

TEST_F(Paint, ScrollingBlitsAndDrawsOnlyTheUncoveredBand) {
  std::u16string text;
  for (int i = 0; i < 200; ++i) text += u"row\r\n";
  memo.SetText(text);
  PaintAll();
  const auto rowsDrawnAfterScroll = [&](int distance, int lines) {
    memo.FCaretScrollVDistance = distance;
    memo.SetTopLine(50);
    PaintAll();
    memo.FOffsetScrollMode = osmAllow;
    memo.SetTopLine(50 + lines);
    PaintAll();
    std::set<int> rows;
    int scrolls = 0;
    for (const TPaintItem& item : canvas.Items) {
      if (item.Kind == TPaintKind::Text) rows.insert(item.Line);
      scrolls += item.Kind == TPaintKind::Scroll && item.Width == -lines * H;
    }
    EXPECT_EQ(scrolls, 1);
    return rows;
  };
  // Down one line: the band of two rows, the row above it, and one row of the
  // scroll distance the caret keeps from the bottom.
  const std::set<int> near = rowsDrawnAfterScroll(1, 1);
  EXPECT_EQ(near.size(), 4u);
  EXPECT_EQ(*near.rbegin(), 51 + 24);
  // With a scroll distance of 3 the band is a row taller and steps back three rows: three rows more.
  const std::set<int> far = rowsDrawnAfterScroll(3, 1);
  EXPECT_EQ(far.size(), 7u);
  EXPECT_EQ(*far.rbegin(), 51 + 24);
}

} // namespace
} // namespace orl
