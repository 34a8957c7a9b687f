#include "editing/HeadlessWindow.h"

#include <algorithm>

namespace orl {
namespace {

bool IsLowSurrogate(char16_t ch) { return ch >= 0xDC00 && ch <= 0xDFFF; }
bool IsCombiningMark(char16_t ch) { return (ch >= 0x0300 && ch <= 0x036F) || ch == 0x200D; }
/// East Asian wide characters take two cells in any fixed font.
bool IsWide(char16_t ch) { return (ch >= 0x1100 && ch <= 0x115F) || (ch >= 0x2E80 && ch <= 0xA4CF) || (ch >= 0xAC00 && ch <= 0xD7A3) || (ch >= 0xF900 && ch <= 0xFAFF) || (ch >= 0xFF00 && ch <= 0xFF60); }

} // namespace

THeadlessWindow::THeadlessWindow() = default;

void THeadlessWindow::SetClipboardText(std::u16string_view text) {
  Clipboard = {};
  Clipboard.Text = text;
}

bool THeadlessWindow::OpenClipboard() {
  ++ClipboardAccesses;
  if (ClipboardFailures <= 0) return true;
  --ClipboardFailures;
  return false;
}

bool THeadlessWindow::ReadClipboard(TMemoClipboard& data) {
  if (!OpenClipboard()) return false;
  data = Clipboard;
  return true;
}

bool THeadlessWindow::WriteClipboard(const TMemoClipboard& data) {
  if (!OpenClipboard()) return false;
  Clipboard = data;
  return true;
}

void THeadlessWindow::CreateCaret(int width, int height) {
  CaretSize = {width, height};
  bCaretExists = true;
  bCaretShown = false;
}

void THeadlessWindow::StartTimer(TMemoTimer timer, int intervalMs) {
  Timers[size_t(timer)] = {true, intervalMs, Clock + std::max(intervalMs, 1)};
}

void THeadlessWindow::Advance(int ms) {
  const int64_t end = Clock + ms;
  for (;;) {
    auto due = std::min_element(Timers.begin(), Timers.end(), [](const TTimerState& a, const TTimerState& b) {
      if (a.bRunning != b.bRunning) return a.bRunning;
      return a.Due < b.Due;
    });
    if (!due->bRunning || due->Due > end) break;
    Clock = due->Due;
    due->Due += std::max(due->Interval, 1);
    if (FClient) FClient->TimerFired(TMemoTimer(due - Timers.begin()));
  }
  Clock = end;
}

int THeadlessWindow::CharWidth(const TMemoFont& font, char16_t ch) const {
  if (IsLowSurrogate(ch) || IsCombiningMark(ch)) return 0;
  const int cell = font.Name == u"Consolas" ? kCellW - 1 : kCellW;
  if (IsWide(ch)) return 2 * cell;
  if (!IsProportional(font)) return cell;
  if (std::u16string_view(u"il.,;:'|! ").find(ch) != std::u16string_view::npos) return cell / 2;
  if (ch == u'W' || ch == u'M' || ch == u'm' || ch == u'w') return cell + cell / 2;
  return cell;
}

TTextMetrics THeadlessWindow::GetTextMetrics(const TMemoFont& font) {
  TTextMetrics m;
  m.Height = kCellH;
  m.Ascent = kCellH - 3;
  m.InternalLeading = 2;
  const bool bBold = font.Style & fsBold;
  m.AveCharWidth = IsProportional(font) ? kCellW - 2 : CharWidth(font, u'x');
  if (bBold && bBoldWider) {
    m.Overhang = 1;
    m.AveCharWidth += 1;
  }
  m.PitchAndFamily = IsProportional(font) ? 0x23 : 0x30;
  return m;
}

int THeadlessWindow::TextExtent(const TMemoFont& font, std::u16string_view text) {
  int width = 0;
  for (char16_t ch : text) width += CharWidth(font, ch);
  return width;
}

std::vector<int> THeadlessWindow::LayOut(const TMemoFont& font, std::u16string_view text, int tabWidth) const {
  std::vector<int> starts(text.size() + 1, 0);
  int x = 0;
  for (size_t i = 0; i < text.size(); ++i) {
    starts[i] = x;
    if (text[i] == u'\t' && tabWidth > 0)
      x = (x / tabWidth + 1) * tabWidth;
    else
      x += CharWidth(font, text[i]);
  }
  starts[text.size()] = x;
  return starts;
}

int THeadlessWindow::CharTrailingX(const TMemoFont& font, std::u16string_view text, int index, int tabWidth) {
  const std::vector<int> starts = LayOut(font, text, tabWidth);
  if (index < 0) return 0;
  if (size_t(index) >= text.size()) return starts.back();
  // A character shares its trailing edge with the marks and halves that join it.
  size_t end = size_t(index) + 1;
  while (end < text.size() && CharWidth(font, text[end]) == 0 && text[end] != u'\t') ++end;
  return starts[end];
}

TCharHit THeadlessWindow::XToChar(const TMemoFont& font, std::u16string_view text, int x, int tabWidth) {
  const std::vector<int> starts = LayOut(font, text, tabWidth);
  if (text.empty() || x < 0) return {0, 0};
  for (size_t i = 0; i < text.size(); ++i) {
    const int left = starts[i];
    size_t next = i + 1;
    while (next < text.size() && starts[next] == left) ++next;  // joined characters
    const int right = starts[next];
    const bool bRightHalf = right > left && x - left >= (right - left + 1) / 2;
    if (x < right) return {int(i), bRightHalf ? int(next - i) : 0};
    i = next - 1;
  }
  return {int(text.size()), 0};
}

} // namespace orl
