// How a run reaches the canvas: cut at shown tabs and into pieces of at most
// 1024 characters, coloured by the precedence of brace marks, line marks and
// token classes, split at the selection, and drawn on the cell grid or laid
// out by the canvas.

#include <algorithm>

#include "syntax/OrlMemoStyles.h"
#include "textstore/OrlUniUtils.h"
#include "view/MemoPainter.h"

namespace orl {

namespace {

constexpr int kMaxPiece = 1024;
constexpr int kPieceLookBack = 20;
constexpr char16_t kTabMark = 0x00BB;
constexpr TColor kWindowText = TColor(0xFF000008u);

bool IsBlankOrTab(char16_t c) { return c == u' ' || c == u'\t'; }

/// Where a piece of a long run ends: behind a blank near the limit, else at it.
int PieceLength(std::u16string_view text, int start, int left) {
  if (left <= kMaxPiece) return left;
  for (int back = 0; back < kPieceLookBack; ++back)
    if (IsBlankOrTab(text[size_t(start + kMaxPiece - 1 - back)])) return kMaxPiece - back;
  return kMaxPiece;
}

template <class TList>
const auto* ItemAt(const TList& list, int index) {
  return index >= 0 && size_t(index) < list.size() ? list[size_t(index)].get() : nullptr;
}

} // namespace

void TMemoPainter::OutputRun(IMemoCanvas& canvas, const TTokenRun& run) {
  if (M.FClosing) return;
  const std::u16string_view text(FVisual.data(), size_t(FVisualLength));
  int start = run.Start - 1;
  const int end = std::min(start + run.Length, FVisualLength);
  while (start < end) {
    int length = end - start;
    if (M.FShowTabs) {
      // A shown tab is a run of its own, so that its mark takes the tab's cell.
      const size_t tab = text.substr(size_t(start), size_t(length)).find(u'\t');
      if (tab == 0) length = 1;
      else if (tab != std::u16string_view::npos) length = int(tab);
    }
    length = PieceLength(text, start, length);
    OutputPiece(canvas, run, start, length);
    start += length;
  }
}

bool TMemoPainter::BraceColours(int start, TRunColours& c) const {
  const TOrlCustomMemoStyles* S = M.FStyles;
  const int line = FRow.Line;
  const bool bLeftBrace = M.FLeftBrace.Y == line && M.FLeftBrace.x == start + 1;
  const bool bRightBrace = M.FRightBrace.Y == line && M.FRightBrace.x == start + 1;
  if (!S || !(bLeftBrace || bRightBrace)) return false;
  // Both ends known: the match; one alone: the error look.
  const bool bPair = M.FLeftBrace.Y >= 0 && M.FRightBrace.Y >= 0;
  c.Bg = bPair ? S->FBraceHighlightColor : S->FBraceHighlightColorE;
  c.Fg = bPair ? S->FBraceHighlightTextColor : S->FBraceHighlightTextColorE;
  c.Style = bPair ? S->FBraceHighlightStyle : S->FBraceHighlightStyleE;
  if (c.Bg == clNoColor) c.Bg = FRow.Background;
  return true;
}

TMemoPainter::TRunColours TMemoPainter::RunColours(const TTokenRun& run, int start) const {
  const TOrlCustomMemoStyles* S = M.FStyles;
  TRunColours c;
  c.Fg = S ? S->FTextColor : kWindowText;
  c.Style = S ? S->FTextStyle : M.FFont.Style;
  if (BraceColours(start, c)) return c;
  // A marked row (sync block, current line, diff) keeps its background under every token.
  const int line = FRow.Line;
  const bool bMarkedRow = (M.FSyncEdit && FDeco.InSyncBlock(line)) || (M.FHighlightLine && line == M.FCurY) ||
                          FRow.Background != RowBackground(line);
  c.Bg = bMarkedRow ? FRow.Background : S ? S->FTextColorBK : M.FBkColor;
  if (run.BlockId == kLineEndMark) {
    if (S) c.Take(S->FControlCharColor, S->FControlCharColorBk, 0, bMarkedRow);
    else c.Fg = 0x808080;
  } else if (S) {
    TokenColours(*S, run, bMarkedRow, c);
  } else if (run.Is(spLineIsUrl)) {
    c.Take(M.FUrlStyle.FTextColor, M.FUrlStyle.FBkColor, M.FUrlStyle.FStyle, bMarkedRow);
  }
  return c;
}

void TMemoPainter::TokenColours(const TOrlCustomMemoStyles& S, const TTokenRun& run, bool bKeepBackground,
                                TRunColours& c) const {
  const auto take = [&](const TCharStyle& style) { c.Take(style.FTextColor, style.FBkColor, style.FStyle, bKeepBackground); };
  const auto takeGroup = [&](const auto& group) { c.Take(group.Color, group.ColorBk, group.Style, bKeepBackground); };
  const TBlock* block = run.BlockId >= 1 ? ItemAt(S.FBlocks, run.BlockId - 1) : nullptr;
  const TStyleProperties& p = run.Properties;
  // The first test that holds decides; a forced block comes before them all.
  if (block && block->ForceColor) takeGroup(*block);
  else if (run.Is(spLineIsUrl)) take(M.FUrlStyle);
  else if (run.Is(spInLineComment)) take(S.FLineCommentStyle);
  else if (run.Is(spInComment)) take(S.FCommentStyle);
  else if (p.BracketId == 0) take(S.FCharStyle);
  else if (p.BracketId == 1 || run.BlockId == -2) take(S.FStringStyle);
  else if (run.Is(spInTag) && M.FHtml && run.TagPart != tpNone)
    take(run.TagPart == tpAttributeName ? S.FAttributeName : S.FAttributeValue);
  else if (run.Is(spIsNumber)) take(S.FNumberStyle);
  else if (run.Is(spIsHexNumber)) take(S.FHexNumberStyle);
  else if (run.Is(spIsSymbol)) take(p.Index == 10   ? S.FSymbolWordsAStyle
                                    : p.Index == 11 ? S.FSymbolWordsBStyle
                                    : p.Index == 12 ? S.FSymbolWordsCStyle
                                                    : S.FSymbolsStyle);
  else if (run.Is(spIsTagWord)) {
    if (const TKeyWord* group = ItemAt(S.FTags, p.TagNr)) takeGroup(*group);
    else c.Take(S.FTagColor, S.FTagColorBk, S.FTagStyle, bKeepBackground);
  } else if (run.Is(spIsKeyword)) {
    if (const TKeyWord* group = ItemAt(S.FKeyWords, p.Index)) takeGroup(*group);
  } else if (block) {
    takeGroup(*block);
  }
}

void TMemoPainter::OutputPiece(IMemoCanvas& canvas, const TTokenRun& run, int start, int length) {
  TRunColours colours = RunColours(run, start);
  if (M.FDisableBoldItalic) colours.Style &= TFontStyles(~(fsBold | fsItalic));
  const std::u16string_view piece(FVisual.data() + start, size_t(length));
  const bool bComplex = !M.FBinaryMode && (!M.FMonospacedFont || M.FUseRTL || !TOrlUniUtils::IsAnsi(piece, length));
  // Beyond the row's right edge, or on the grid wholly left of it, a piece is
  // only measured: a long row costs what shows of it.
  const bool bBeyond = FPen >= FRow.Rect.Right;
  if (bBeyond || (!bComplex && FPen + GridWidth(start, length) <= FRow.Rect.Left)) {
    FPen += GridWidth(start, length);
    return;
  }
  if (bComplex) {
    FPen += OutputComplex(canvas, start, length, colours);
  } else if (M.FShowTabs && length == 1 && piece[0] == u'\t') {
    FPen += TabMark(canvas, start, colours, start >= FRow.SelStart && start < FRow.SelEnd);
  } else {
    // Before, inside and behind the selection, each in its own colours.
    const int end = start + length;
    const int a = std::clamp(FRow.SelStart, start, end), b = std::clamp(FRow.SelEnd, start, end);
    if (a > start) FPen += OutputText(canvas, start, a - start, colours, false);
    if (b > a) FPen += OutputText(canvas, a, b - a, colours, true);
    if (end > b) FPen += OutputText(canvas, b, end - b, colours, false);
  }
  if ((colours.Style & fsItalic) && !IsBlankOrTab(piece.back())) ++FPen;
}

int TMemoPainter::GridWidth(int start, int length) const {
  const int W = M.CellSize().W, tab = std::max(M.FTabSize, 1);
  const int first = (FPen - FTabOrigin) / std::max(W, 1);
  int column = first;
  for (int i = start; i < start + length; ++i) column = FVisual[size_t(i)] == u'\t' ? (column / tab + 1) * tab : column + 1;
  return (column - first) * W;
}

TTextOut TMemoPainter::TextOutAt(int start, int length, const TRunColours& colours, bool bSelected) const {
  TTextOut t;
  t.X = FPen;
  t.Top = FRow.Rect.Top + M.FTextLead;
  t.Row = FRow.Rect;
  t.Text = std::u16string_view(FVisual.data() + start, size_t(length));
  t.Fg = Rgb(bSelected ? SelFg() : colours.Fg);
  t.Bg = Rgb(bSelected ? SelBg() : colours.Bg);
  t.Style = colours.Style;
  t.TabOrigin = FTabOrigin;
  t.TabWidth = M.FTabInt;
  return t;
}

int TMemoPainter::OutputText(IMemoCanvas& canvas, int start, int length, const TRunColours& colours, bool bSelected) {
  TTextOut t = TextOutAt(start, length, colours, bSelected);
  t.Width = GridWidth(start, length);
  return canvas.TextOut(t);
}

int TMemoPainter::OutputComplex(IMemoCanvas& canvas, int start, int length, const TRunColours& colours) {
  TTextOut t = TextOutAt(start, length, colours, false);
  t.bComplex = true;
  t.bRightToLeft = M.FUseRTL;
  t.SelStart = std::clamp(FRow.SelStart - start, 0, length);
  t.SelEnd = std::clamp(FRow.SelEnd - start, 0, length);
  t.SelFg = Rgb(SelFg());
  t.SelBg = Rgb(SelBg());
  return canvas.TextOut(t);
}

int TMemoPainter::TabMark(IMemoCanvas& canvas, int start, const TRunColours& colours, bool bSelected) {
  static constexpr char16_t kMark[] = {kTabMark, 0};
  TTextOut t = TextOutAt(start, 1, colours, bSelected);
  t.Width = GridWidth(start, 1);
  t.Text = std::u16string_view(kMark, 1);
  return canvas.TextOut(t);
}

} // namespace orl
