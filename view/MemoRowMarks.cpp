// Marks the row's own attribute asks for: the marker of a closed fold and
// the wavy lines under misspelt words.

#include <cmath>

#include "syntax/OrlMemoStyles.h"
#include "view/MemoPainter.h"

namespace orl {

namespace {

constexpr int kFoldMarkerGap = 20;
constexpr TColor kFoldMarkerText = 0x333333, kFoldMarkerBack = 0x66CC66;

} // namespace

void TMemoPainter::FoldMarker(IMemoCanvas& canvas, const TRowPaint& row) {
  if (row.Line < 0) return;
  const TTextAttribute& attribute = M.InternalLines().ReadLineAttribute(row.Line);
  if (!(attribute.NodeClosed() || attribute.SelNodeClosed() || attribute.Rgn_Closed())) return;
  const int x = row.TextRight + kFoldMarkerGap;
  if (x >= row.Rect.Right) return;
  TTextOut t;
  t.X = x;
  t.Top = row.Rect.Top + M.FTextLead;
  t.Row = row.Rect;
  t.TabWidth = M.FTabInt;
  if (const TOrlCustomMemoStyles* S = M.FStyles) {
    t.Text = u"{...}";
    t.Fg = Rgb(S->FFoldMarkStyle.FTextColor);
    t.Bg = Rgb(S->FFoldMarkStyle.FBkColor);
    t.Style = M.FDisableBoldItalic ? 0 : S->FFoldMarkStyle.FStyle;
    t.Width = 5 * M.CellSize().W;
    canvas.TextOut(t);
    return;
  }
  // Without a style set: dots in a framed box, the frame a pen width by the screen's scale.
  t.Text = u"...";
  t.Fg = Rgb(kFoldMarkerText);
  t.Bg = Rgb(kFoldMarkerBack);
  t.Width = 3 * M.CellSize().W + 2;
  const int right = x + t.Width, pen = std::max(int(std::nearbyint(M.FCurrentDPI / 96.0)), 1);
  const TRgb frame = Rgb(kFoldMarkerText);
  canvas.FillRect({x, row.Rect.Top, right, row.Rect.Bottom}, t.Bg);
  t.X = x + 1;
  t.Width -= 2;
  canvas.TextOut(t);
  canvas.Line({x, row.Rect.Top}, {right, row.Rect.Top}, frame, pen);
  canvas.Line({x, row.Rect.Bottom - 1}, {right, row.Rect.Bottom - 1}, frame, pen);
  canvas.Line({x, row.Rect.Top}, {x, row.Rect.Bottom}, frame, pen);
  canvas.Line({right, row.Rect.Top}, {right, row.Rect.Bottom}, frame, pen);
}

void TMemoPainter::SpellingMarks(IMemoCanvas& canvas, const TRowPaint& row) {
  if (row.Line < 0) return;
  const TTextAttribute& attribute = M.InternalLines().ReadLineAttribute(row.Line);
  const TRgb color = Rgb(M.FSpellLineColor);
  for (const TSpellRec& word : attribute.SpellList.Items()) {
    if (word.nx < 1 || word.nl <= 0) continue;
    const int x1 = FTabOrigin + M.TextLength(row.Line, word.nx - 1, false, false);
    const int x2 = FTabOrigin + M.TextLength(row.Line, word.nx - 1 + word.nl, false, false);
    if (x2 > row.Rect.Left && x1 < row.Rect.Right)
      canvas.ZigZag(x1, x2, row.Rect.Bottom - 2, color, M.FSpellLineWidth);
  }
}

} // namespace orl
