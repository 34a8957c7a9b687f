// One row on screen: its background, its text run by run, and what is drawn
// over it, in the order the row's steps give.

#include <algorithm>
#include <climits>
#include <cmath>
#include <string_view>

#include "view/MemoPainter.h"

namespace orl {

namespace {

constexpr TColor kBorderGrey = 0x808080;
/// The system's button shadow colour: the line under a closed fold head.
constexpr TColor kClosedFoldLine = TColor(0xFF000010u);
/// Text-diff row colours by kind (red, green, blue), mixed 30 percent into the background.
constexpr TColor kDiffColours[] = {TOrlCustomMemo::RGB(177, 177, 255), TOrlCustomMemo::RGB(255, 177, 177),
                                   TOrlCustomMemo::RGB(177, 255, 177)};
constexpr int kDiffPercent = 30;

constexpr std::u16string_view kUrlSchemes[] = {u"http://", u"https://", u"ftp://", u"mailto:", u"file://"};
constexpr std::u16string_view kUrlEnds = u"\u00B7'\t\" <>(){}[]";

/// Where a scheme stands whose ':' is at `colon`; npos when none does.
size_t SchemeBefore(std::u16string_view text, size_t colon) {
  for (const std::u16string_view scheme : kUrlSchemes) {
    const size_t at = colon + 1 - std::min(scheme.find(u':') + 1, colon + 1);
    if (text.substr(at).starts_with(scheme)) return at;
  }
  return std::u16string_view::npos;
}

} // namespace

void TMemoPainter::FindUrlSpans(std::u16string_view text, bool bStartsInUrl) {
  FUrlSpans.clear();
  size_t from = 0;
  if (bStartsInUrl) {
    from = std::min(text.find_first_of(kUrlEnds), text.size());
    FUrlSpans.push_back({0, int(from)});
  }
  for (size_t colon = text.find(u':', from); colon != std::u16string_view::npos; colon = text.find(u':', from)) {
    const size_t start = SchemeBefore(text, colon);
    from = colon + 1;
    if (start == std::u16string_view::npos || (!FUrlSpans.empty() && int(start) < FUrlSpans.back().second)) continue;
    from = std::min(text.find_first_of(kUrlEnds, colon), text.size());
    FUrlSpans.push_back({int(start), int(from)});
  }
}

void TMemoPainter::OutputRunWithUrls(IMemoCanvas& canvas, const TTokenRun& run) {
  int start = run.Start - 1;
  const int end = start + run.Length;
  for (const auto& [urlStart, urlEnd] : FUrlSpans) {
    if (urlEnd <= start || urlStart >= end) continue;
    TTokenRun piece = run;
    if (urlStart > start) {
      piece.Start = start + 1;
      piece.Length = urlStart - start;
      OutputRun(canvas, piece);
      start = urlStart;
    }
    piece.Start = start + 1;
    piece.Length = std::min(urlEnd, end) - start;
    piece.Properties.Set(spLineIsUrl, true);
    OutputRun(canvas, piece);
    start += piece.Length;
  }
  if (start >= end) return;
  TTokenRun rest = run;
  rest.Start = start + 1;
  rest.Length = end - start;
  OutputRun(canvas, rest);
}

TColor TMemoPainter::SelFg() const { return M.FStyles ? M.FStyles->FSelColor : M.FSelColor; }
TColor TMemoPainter::SelBg() const { return M.FStyles ? M.FStyles->FSelBkColor : M.FSelBkColor; }

TColor TMemoPainter::RowBackground(int line) const {
  const TOrlCustomMemoStyles* S = M.FStyles;
  const bool bSync = M.FSyncEdit && FDeco.InSyncBlock(line);
  if (M.FHighlightLine && line == M.FCurY && !bSync)
    return S && S->FLineHighlightColor != clNoColor ? S->FLineHighlightColor : M.FLineHighlightColor;
  if (bSync) return S && S->FSyncEditBkColor != clNoColor ? S->FSyncEditBkColor : M.FSyncEditBkColor;
  return S ? S->FBkColor : M.FBkColor;
}

void TMemoPainter::RowSelection(int line, int length, TRowPaint& row) {
  row.SelStart = row.SelEnd = 0;
  if (!M.HasSelection()) return;
  const TOrderedSelection sel = M.GetSelection();
  if (line < sel.StartY || line > sel.EndY) return;
  if (M.FColumnMode) {
    row.SelStart = M.ToRealCursorPos(line, sel.StartX);
    row.SelEnd = M.ToRealCursorPos(line, sel.EndX);
  } else {
    row.SelStart = line == sel.StartY ? sel.StartX : 0;
    // Through the line end: the shown line-end mark is selected too.
    row.SelEnd = line == sel.EndY ? sel.EndX : INT_MAX;
  }
  row.SelStart = std::min(row.SelStart, length);
}

void TMemoPainter::PaintRow(IMemoCanvas& canvas, int line, const TRect& rect, const TStyle& start) {
  canvas.BeginRow(line, rect);
  TOrlMemoStrings& lines = M.InternalLines();
  FRow = {};
  FRow.Line = line;
  FRow.Rect = rect;
  FRow.bContinuation = lines.IsLineWrapped(line);
  FRow.Background = RowBackground(line);
  // A row of text-diff mode: a changed row mixes its kind's colour in, a filler row is hatched.
  const TTextAttribute& attribute = lines.ReadLineAttribute(line);
  const int diffKind = attribute.TextDiffKind;
  const bool bDiffRow = diffKind >= 1 && diffKind <= 3;
  const bool bFiller = bDiffRow && !attribute.Enabled;
  if (bDiffRow && !bFiller) FRow.Background = Blend(kDiffColours[diffKind - 1], FRow.Background, kDiffPercent);
  canvas.FillRect(rect, Rgb(FRow.Background));
  if (bFiller) canvas.Hatch(rect, Rgb(kDiffColours[diffKind - 1]));

  const TRect textArea = M.EditorRect(true, line);  // shifted by the indent of a continuation row
  FTabOrigin = textArea.Left - M.FLeftCol * M.CellSize().W;
  FPen = FRow.TextLeft = FRow.TextRight = FTabOrigin;
  FVisualLength = 0;
  if (!bFiller) DrawRowText(canvas, line, start);
  M.FMaxTextWidth = std::max(M.FMaxTextWidth, FPen - FTabOrigin);
  BlockSelectionLines(canvas, line);
  EndOfRowSelection(canvas, line, FPen);
  ColumnSelectionBeyondText(canvas);
  CurrentLineBorder(canvas, FRow);
  Decorations(canvas, FRow);
  if (attribute.NodeClosed())
    canvas.Line({rect.Left, rect.Bottom - 1}, {rect.Right, rect.Bottom - 1}, Rgb(kClosedFoldLine), 1);
  FDeco.ExtraCaretSelections(canvas, FRow);
}

void TMemoPainter::DrawRowText(IMemoCanvas& canvas, int line, const TStyle& start) {
  TOrlMemoStrings& lines = M.InternalLines();
  const std::u16string_view text = lines.GetLineString(line);
  FVisualLength = lines.GetVisualBuffer(FVisual, line, M.FShowTabs, M.FShowCRLF, false, false, true);
  RowSelection(line, FVisualLength, FRow);
  FRuns.Clear();
  if (!text.empty()) M.Tokeniser().DrawSegments(text, start, FRuns);
  // Addresses in the text are runs of their own, in the link's colours.
  if (M.UrlAware) FindUrlSpans(text, lines.ReadLineAttribute(line).URL());
  else FUrlSpans.clear();
  for (const TTokenRun& run : FRuns.Runs) OutputRunWithUrls(canvas, run);
  if (FVisualLength > int(text.size())) {
    TTokenRun mark;
    mark.Start = int(text.size()) + 1;
    mark.Length = FVisualLength - int(text.size());
    mark.BlockId = kLineEndMark;
    OutputRun(canvas, mark);
  }
  FRow.TextRight = FPen;
}

void TMemoPainter::BlockSelectionLines(IMemoCanvas& canvas, int line) {
  if (M.BSelLine != line) return;
  const TRgb c = Rgb(M.FBlockLineColor);
  for (const int col : {M.BSelStart, M.BSelStart + M.BSelLen}) {
    const int x = FTabOrigin + col * M.CellSize().W;
    canvas.Line({x, FRow.Rect.Top}, {x, FRow.Rect.Bottom}, c, 1);
  }
}

void TMemoPainter::ColumnSelectionBeyondText(IMemoCanvas& canvas) {
  if (!M.FColumnMode || FRow.SelEnd <= FVisualLength) return;
  const TOrderedSelection sel = M.GetSelection();
  const int W = M.CellSize().W;
  const int left = std::max(FPen, FTabOrigin + sel.StartX * W);
  canvas.FillRect({left, FRow.Rect.Top, FTabOrigin + sel.EndX * W, FRow.Rect.Bottom}, Rgb(SelBg()));
}

void TMemoPainter::EndOfRowSelection(IMemoCanvas& canvas, int line, int& x) {
  if (M.FColumnMode || M.FShowCRLF || FRow.SelEnd != INT_MAX) return;
  TOrlMemoStrings& lines = M.InternalLines();
  if (line + 1 < lines.Count() && lines.IsLineWrapped(line + 1)) return;
  const int W = M.CellSize().W;
  const int left = x - FRow.Rect.Left <= 2 ? FRow.Rect.Left + (M.FMonospacedFont ? 0 : 1) : x;
  canvas.FillRect({left, FRow.Rect.Top, left + W, FRow.Rect.Bottom}, Rgb(SelBg()));
  x = left + W;
}

void TMemoPainter::CurrentLineBorder(IMemoCanvas& canvas, const TRowPaint& row) {
  if (!M.FHighlightLineBorder || row.Line != M.FCurY || M.FSyncEdit || M.HasSelection()) return;
  const TRgb c = Rgb(kBorderGrey);
  const int left = std::max(row.TextLeft, row.Rect.Left);
  canvas.Line({left, row.Rect.Top}, {row.Rect.Right, row.Rect.Top}, c, 1);
  canvas.Line({left, row.Rect.Bottom - 1}, {row.Rect.Right, row.Rect.Bottom - 1}, c, 1);
}

void TMemoPainter::RightMargin(IMemoCanvas& canvas, const TRowPaint& row) {
  if (M.FRightMargin <= 0 || M.FRightMarginLine == mNone) return;
  const TRect area = M.EditorRect(true, -1);
  const int x = area.Left + (M.FRightMargin - M.FLeftCol) * M.CellSize().W - 1;
  if (x < row.Rect.Left || x >= row.Rect.Right) return;
  const int width = std::max(int(std::nearbyint(M.FCurrentDPI / 96.0)), 1);
  const TOrlCustomMemoStyles* S = M.FStyles;
  // The line covers only what still shows a background, never a glyph.
  const TRgb under[] = {Rgb(row.Background), Rgb(RowBackground(M.FCurY)), Rgb(S ? S->FTextColorBK : M.FBkColor)};
  canvas.MarginLine(x, row.Rect, Rgb(M.FRightMarginColor), width, TMarginLineType(M.FRightMarginLine),
                    std::max(row.Line, 0) & 1, under);
}

void TMemoPainter::Decorations(IMemoCanvas& canvas, const TRowPaint& row) {
  RightMargin(canvas, row);
  FoldMarker(canvas, row);
  if (!row.bContinuation) FDeco.IndentGuides(canvas, row);
  SpellingMarks(canvas, row);
  FDeco.Highlights(canvas, row);
  FDeco.ColorValueUnderlines(canvas, row);
  FDeco.ClipTabStops(canvas, row);
}

} // namespace orl
