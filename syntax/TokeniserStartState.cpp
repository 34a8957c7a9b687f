// Where a scan starts: the cached line-end records, the upward walk of
// GetUpStyle, and the row flags that are not part of a state (URL).

#include <algorithm>

#include "syntax/LineTokeniser.h"

namespace orl {

namespace {

// Beyond this many lines the walk up takes the next blank line as a fresh start.
constexpr int kUpwardWalkLimit = 100;

constexpr char16_t kUrlEnd[] = u"'\t\" <>(){}[]";
constexpr std::u16string_view kUrlStarts[] = {u"mailto:", u"ftp://", u"https://", u"file://", u"http://"};

// Whether a URL runs from `from` to the row's end.
bool UrlReachesEnd(const tok::TLineText& row, int from) {
  for (int q = from; q <= row.Len; ++q)
    if (std::u16string_view(kUrlEnd).find(row.At(q)) != std::u16string_view::npos) return false;
  return true;
}

// The last URL start of the row, 0 for none: the last place where any scheme starts.
int LastUrlStart(const tok::TLineText& row) {
  int last = 0;
  for (std::u16string_view scheme : kUrlStarts) last = std::max(last, row.FindLastNoCase(scheme));
  return last;
}

} // namespace

const TOrlCustomMemoStyles* TLineTokeniser::StylesFor(bool bThreadSet) const {
  return bThreadSet ? FSlots.FStylesThread : FSlots.FStyles;
}

const TOrlCustomMemoStyles* TLineTokeniser::UsableStyles(bool bThreadSet) const {
  const TOrlCustomMemoStyles* styles = StylesFor(bThreadSet);
  return styles && !styles->FSyntaxName.empty() ? styles : nullptr;
}

const tok::TSetClasses& TLineTokeniser::ClassesFor(const TOrlCustomMemoStyles& styles, bool bThread) {
  tok::TSetClasses& classes = bThread ? FThreadClasses : FMainClasses;
  if (classes.For != &styles) classes.Refresh(styles);
  return classes;
}

bool TLineTokeniser::NextRowWrapped(int LineNo, bool bThread) const {
  if (!FHost.WrapOn()) return false;
  if (!bThread) return FLines.IsLineWrapped(LineNo + 1);
  const TAttributePtr next = FLines.GetLineAttributeFromThread(LineNo + 1);
  return next->Wrapped();
}

TStyle TLineTokeniser::GetUpStyle(int stopat, bool bFolding) {
  TStyle result;
  result.Clear(bFolding);
  if (FHost.Closing() || FLines.Count() == 0 || !UsableStyles(false) || stopat < 0) return result;
  stopat = std::min(stopat, FLines.Count() - 1);
  int start = 0;
  for (int i = stopat, counted = 0; i >= 0; --i, ++counted) {
    if (FLines.LineStyleValid(i)) {
      result = FLines.ReadLineStyle(i);
      start = i + 1;
      break;
    }
    if (counted > kUpwardWalkLimit && FLines.IsLineBlank(i)) {
      start = i;
      bFolding = false;
      break;
    }
  }
  for (int line = start; line <= stopat; ++line) {
    if (FHost.Closing()) break;
    GetUpLineStyle(line, 0, -1, result, bFolding);
    if (FHost.Update() || !FLines.LineStyleValid(line)) SetLineStyle(line, result);
  }
  return result;
}

bool TLineTokeniser::GetUpLineStyle(int LineNo, int Start, int Stop, TStyle& Style, bool bCheckFolding) {
  return GetUpLineStyleFromThread(LineNo, Start, Stop, Style, bCheckFolding, false, false, false);
}

TStyle TLineTokeniser::GetLineStyle(int index, bool& bCashed) const {
  bCashed = false;
  while (index >= 0 && index < FLines.Count() && !FLines.ReadLineAttribute(index).Enabled) --index;
  if (index < 0 || index >= FLines.Count()) return TStyle();
  bCashed = FLines.LineStyleValid(index);
  return FLines.ReadLineStyle(index);
}

void TLineTokeniser::SetLineStyle(int index, TStyle& LineStyle) {
  LineStyle.Set(sfCached, true);
  FLines.SetLineStyle(index, LineStyle);
}

void TLineTokeniser::SetLineStyleFromThread(int index, TStyle& LineStyle) {
  LineStyle.Set(sfCached, true);
  FLines.SetLineStyleFromThread(index, LineStyle);
}

void TLineTokeniser::UpdateCachedLineStyle(int line, const TStyle& Style, bool bForce) {
  bool bValid = false;
  TStyle record = GetLineStyle(line, bValid);
  if (!bValid && !bForce) return;
  if (bForce) record = Style;
  record.NodeStyles = Style.NodeStyles;
  record.RegionStyles = Style.RegionStyles;
  SetLineStyle(line, record);
}

void TLineTokeniser::UrlCheck(int LineNo, TTextAttribute& la) {
  UrlCheckRow(LineNo, FLines.GetLineString(LineNo), la, false);
}

void TLineTokeniser::UrlCheckRow(int LineNo, std::u16string_view text, TTextAttribute& la, bool bThread) {
  if (!FHost.AllowURLClick() || !NextRowWrapped(LineNo, bThread)) return;
  const tok::TLineText row(text);
  const int from = la.URL() ? 1 : LastUrlStart(row);
  const bool bCarries = from > 0 && UrlReachesEnd(row, from);
  if (bThread)
    FLines.GetLineAttributeFromThread(LineNo + 1)->SetURL(bCarries);
  else
    FLines.GetLineAttribute(LineNo + 1)->SetURL(bCarries);
}

bool TLineTokeniser::IsSymbolBoundary(char16_t ch) const {
  if (ch == u' ' || ch == u'\t' || ch == tok::kMiddleDot) return true;
  if (const TOrlCustomMemoStyles* styles = FSlots.FStyles)
    return ch == u'\'' || styles->FSymbols.find(ch) != std::u16string::npos;
  return ch == u'"' || FSelectDelimiters.find(ch) != std::u16string::npos ||
         FSelectDelimitersAlt.find(ch) != std::u16string::npos;
}

} // namespace orl
