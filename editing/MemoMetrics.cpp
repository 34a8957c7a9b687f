// Fonts, the text area and pixel measures of the memo.

#include <algorithm>

#include "editing/OrlMemo.h"
#include "textstore/SharedWideString.h"
#include "textstore/OrlUniUtils.h"

namespace orl {
namespace {

/// Bit 0 of the pitch byte set means the face is not fixed-pitch.
bool IsFixedPitch(const TTextMetrics& m) { return (m.PitchAndFamily & 1) == 0; }

} // namespace

void TOrlCustomMemo::SetFont(const TMemoFont& font) {
  FFont = font;
  FontChanged();
}

void TOrlCustomMemo::SetAltFont(const TMemoFont& font) {
  FAltFont = font;
  AltFontChanged();
}

void TOrlCustomMemo::UseAltFont(bool Value) {
  FUseAltFont = Value;
  if (Value) AltFontChanged();
  else FontChanged();
}

void TOrlCustomMemo::SetColumnMode(bool Value) {
  if (Value == FColumnMode) return;
  FColumnMode = Value;
  FColumnModeRelease = false;
  if (OnColumnModeChange) OnColumnModeChange(Value);
  FontChanged();
  ResizeScrollBars(false, 0);
  Invalidate();
}

void TOrlCustomMemo::SetTabSize(int Value) {
  FTabSize = std::max(Value, 1);
  FTabInt = FTabSize * FCellSize.W;
}

void TOrlCustomMemo::FontChanged() {
  if (!FUseAltFont) MeasureFont(FFont);
}

void TOrlCustomMemo::AltFontChanged() {
  if (FUseAltFont) MeasureFont(FAltFont);
}

void TOrlCustomMemo::MeasureFont(const TMemoFont& font) {
  if (!FWindow->HandleAllocated()) return;
  TMemoFont measure = font;
  const int screenDPI = std::max(FWindow->ScreenDPI(), 1);
  measure.Height = font.Height * FCurrentDPI / screenDPI;
  measure.Style = 0;
  measure.Quality = FFontQuality;
  const bool bChanged = measure.Name != FMeasureFont.Name || measure.Height != FMeasureFont.Height;

  const TTextMetrics plain = FWindow->GetTextMetrics(measure);
  TMemoFont bold = measure;
  bold.Style = fsBold;
  const TTextMetrics boldMetrics = FWindow->GetTextMetrics(bold);
  // A bold face that is wider than the plain one would push cells apart.
  FDisableBoldItalic = boldMetrics.Overhang > 0 || boldMetrics.AveCharWidth > plain.AveCharWidth;

  if (IsFixedPitch(plain)) {
    TMemoFont italic = measure;
    italic.Style = fsItalic;
    FCellSize = {FWindow->TextExtent(measure, u"W"), FWindow->GetTextMetrics(italic).Height};
    FMonospacedFont = true;
  } else if (!FColumnMode && !FBinaryMode) {
    FCellSize = {plain.AveCharWidth + (plain.PitchAndFamily == 0x27 ? 1 : 0), plain.Height};
    FMonospacedFont = false;
  } else {
    // Columns need cells of one width: measure with a monospaced face instead.
    measure.Name = FWindow->SystemMajorVersion() < 6 ? u"Courier New" : u"Consolas";
    FCellSize = {FWindow->TextExtent(measure, u"W"), plain.Height};
    FMonospacedFont = true;
  }
  FMeasureFont = measure;
  FFontHeight = plain.Height;
  FTabInt = FTabSize * FCellSize.W;
  FTextLead = FCharSpaceEx / 2;
  FCellSize.H += FCharSpaceEx;
  FInternalFontLeading = plain.InternalLeading > 0;

  if (!bChanged) return;
  FDoThreadInvalidate = true;
  if (FLetRefresh) {
    ResizeScrollBars(false, 0);
    Invalidate();
    FWindow->CreateCaret(FCaretWidth < 0 && FMonospacedFont ? FCellSize.W : std::max(FCaretWidth, 1), FCellSize.H);
  }
}

void TOrlCustomMemo::UpdateDPI(int newDPI, int oldDPI) {
  if (newDPI == oldDPI || newDPI == FCurrentDPI) return;
  FCurrentDPI = newDPI;
  // The font in force is measured last, so that its cell stands.
  if (FUseAltFont) {
    MeasureFont(FFont);
    MeasureFont(FAltFont);
  } else {
    MeasureFont(FAltFont);
    MeasureFont(FFont);
  }
}

TRect TOrlCustomMemo::EditorRect(bool bMemoWindow, int line) {
  const int dpi = FCurrentDPI;
  const bool bVertBar = FWindow->ScrollBarVisible(TScrollBarKind::sbVertical);
  const int barExtent = FWindow->ScrollBarExtent();
  FDocumentMapInfo.Width = std::clamp(FDocumentMapWidth * dpi / 96, 100 * dpi / 96, 500 * dpi / 96) +
                           (bVertBar ? barExtent : 0);
  TRect r = FWindow->ClientRect();
  if (!bMemoWindow) {
    if (FShowDocumentMap) r.Right -= FDocumentMapInfo.Width;
  } else {
    if (FGutterWidth > 2) r.Left = FGutterWidth;
    if (FRuler->Visible) r.Top = FRuler->Height + 1;
  }
  TOrlMemoStrings& lines = InternalLines();
  FLineWrapIndent = 0;
  if (FIndentWrappedLines && !FBinaryMode && lines.IsLineWrapped(line)) {
    const int first = GetWrapStartLine(line);
    const std::u16string_view row = lines.GetLineString(first);
    const size_t lead = std::min(row.find_first_not_of(u" \t\u00A0"), row.size());
    FLineWrapIndent = std::max(TextLength(first, int(lead), false, false) - 1, 0);
    r.Left += FLineWrapIndent;
  }
  if (bVertBar) r.Right -= barExtent;
  if (FWindow->ScrollBarVisible(TScrollBarKind::sbHorizontal)) r.Bottom -= barExtent;
  r.Left += FMargin;
  return r;
}

int TOrlCustomMemo::VisibleCellCount(TVisibleCount what) {
  if (FCellSize.W <= 0 || FCellSize.H <= 0) return 0;
  const TRect area = EditorRect(true, -1);
  switch (what) {
    case vcPageWidth: {
      const int width = area.Width() - (FShowDocumentMap ? FDocumentMapInfo.Width : 0);
      return std::max(width / FCellSize.W - 1, 0);
    }
    case vcPageHeight: return std::max(area.Height() / FCellSize.H, 0);
    case vcLastVisiblePos: return FLeftCol + VisibleCellCount(vcPageWidth);
    case vcLastVisibleLine: return GetLineFromRow(std::max(VisibleCellCount(vcPageHeight) - 1, 0));
  }
  return 0;
}

bool TOrlCustomMemo::RowIsPlainAnsi(std::u16string_view row) const { return SimpleCellRun(row) == row.size(); }

std::u16string_view TOrlCustomMemo::PaddedRow(std::u16string_view row, int upTo) {
  FBuffer.assign(row);
  if (!(FIsASCII && FMeasureFont.Name == u"Terminal"))
    TOrlUniUtils::WSubstituteControlCharsB(FBuffer, false, FIsASCII, false);
  if (int(FBuffer.size()) < upTo) FBuffer.append(size_t(upTo) - FBuffer.size(), u' ');
  return FBuffer;
}

int TOrlCustomMemo::MeasureComplex(std::u16string_view row, int CharX) {
  const std::u16string_view buffer = PaddedRow(row, CharX);
  return FWindow->CharTrailingX(FMeasureFont, buffer, CharX - 1, FTabInt);
}

int TOrlCustomMemo::TextLength(int ALine, int CharX, bool bPrinter, bool bDocumentMap) {
  TOrlMemoStrings& lines = InternalLines();
  if (ALine < 0 || ALine >= lines.Count() || CharX < 1) return 0;
  const int cell = bDocumentMap ? FDocumentMapInfo.CharWidth : FCellSize.W;
  const std::u16string_view row = lines.GetLineString(ALine);
  if (row.empty() || FBinaryMode) return CharX * cell;
  // Only the characters before CharX decide where it stands; the row
  // remembers how far it is simple, so typing at its end costs no count.
  const int inRow = std::min(CharX, int(row.size()));
  if (FMonospacedFont && !FUseRTL && lines.SimpleCellPrefix(ALine, size_t(inRow)) == size_t(inRow)) {
    if (!bDocumentMap && !bPrinter) return CharX * cell;
    return FWindow->TextExtent(FMeasureFont, row.substr(0, size_t(inRow))) + (CharX - inRow) * cell;
  }
  return MeasureComplex(row, CharX);
}

TFullPos TOrlCustomMemo::CharXYFromPos(int x, int Y, bool bPrinter, std::u16string_view ws) {
  if (FCellSize.W <= 0 || FCellSize.H <= 0) FontChanged();
  if (FCellSize.W <= 0 || FCellSize.H <= 0) return {0, 0};
  const int row = Y / FCellSize.H;
  const int line = bPrinter ? row : GetLineFromRow(row);
  const int blanks = std::max(x / FCellSize.W, 0);
  TOrlMemoStrings& lines = InternalLines();
  if (line < 0 || line >= lines.Count()) {
    FBuffer.assign(size_t(std::min<int>(blanks, int(FBuffer.capacity()))), u' ');
  } else {
    const std::u16string_view text = ws.empty() ? lines.GetLineString(line) : ws;
    PaddedRow(text, int(text.size()) + (ws.empty() ? blanks : 5));
  }
  if (FBuffer.empty()) return {0, line};
  const TCharHit hit = FWindow->XToChar(FMeasureFont, FBuffer, x, FTabInt);
  return {hit.Index + hit.Trailing, line};
}

TFullPos TOrlCustomMemo::PointToCharPos(int x, int y) {
  if (FCellSize.W <= 0 || FCellSize.H <= 0) FontChanged();
  if (FCellSize.W <= 0 || FCellSize.H <= 0) return {0, 0};
  const TRect area = EditorRect(true, -1);
  const int px = x - area.Left + FLeftCol * FCellSize.W;
  const int py = y - area.Top;
  const int line = GetLineFromRow(std::max(py, 0) / FCellSize.H);
  if (FBinaryMode || InternalLines().GetLineLength(line) == 0) {
    const int column = px / FCellSize.W + (px % FCellSize.W > FCellSize.W / 2 ? 1 : 0);
    return {std::max(column, 0), line};
  }
  return CharXYFromPos(std::max(px, 0), std::max(py, 0), false);
}

} // namespace orl
