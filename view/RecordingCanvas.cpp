#include "view/RecordingCanvas.h"

namespace orl {

TPaintItem& TRecordingCanvas::Add(TPaintKind kind) {
  TPaintItem& item = Items.emplace_back();
  item.Kind = kind;
  item.Line = FLine;
  return item;
}

void TRecordingCanvas::FillRect(const TRect& r, TRgb color) {
  if (r.Width() <= 0 || r.Height() <= 0) return;
  TPaintItem& item = Add(TPaintKind::Fill);
  item.R = r;
  item.Bg = color;
}

int TRecordingCanvas::TextOut(const TTextOut& t) {
  int width = t.Width;
  if (t.bComplex) {
    TMemoFont font = FFont;
    font.Style = t.Style;
    width = FMeasurer.CharTrailingX(font, t.Text, int(t.Text.size()), t.TabWidth);
  }
  TPaintItem& item = Add(TPaintKind::Text);
  item.R = {t.X, t.Row.Top, t.X + width, t.Row.Bottom};
  item.Text = t.Text;
  item.Fg = t.Fg;
  item.Bg = t.Bg;
  item.Style = t.Style;
  item.bComplex = t.bComplex;
  item.SelStart = t.SelStart;
  item.SelEnd = t.SelEnd;
  item.Width = width;
  return width;
}

void TRecordingCanvas::AddStroke(TPaintKind kind, const TRect& span, TRgb color, int width) {
  TPaintItem& item = Add(kind);
  item.R = span;
  item.Fg = color;
  item.Width = width;
}

void TRecordingCanvas::Line(TPoint from, TPoint to, TRgb color, int width) {
  AddStroke(TPaintKind::Line, {from.X, from.Y, to.X, to.Y}, color, width);
}

void TRecordingCanvas::Hatch(const TRect& r, TRgb color) {
  TPaintItem& item = Add(TPaintKind::Hatch);
  item.R = r;
  item.Fg = color;
}

void TRecordingCanvas::ZigZag(int x1, int x2, int y, TRgb color, int width) {
  AddStroke(TPaintKind::ZigZag, {x1, y, x2, y}, color, width);
}

void TRecordingCanvas::MarginLine(int x, const TRect& row, TRgb color, int width, TMarginLineType, int,
                                  std::span<const TRgb>) {
  AddStroke(TPaintKind::Margin, {x, row.Top, x + width, row.Bottom}, color, width);
}

void TRecordingCanvas::ScrollRows(const TRect& area, int dy) {
  TPaintItem& item = Add(TPaintKind::Scroll);
  item.R = area;
  item.Width = dy;
}

std::vector<const TPaintItem*> TRecordingCanvas::TextOf(int line) const {
  std::vector<const TPaintItem*> texts;
  for (const TPaintItem& item : Items)
    if (item.Kind == TPaintKind::Text && item.Line == line) texts.push_back(&item);
  return texts;
}

} // namespace orl
