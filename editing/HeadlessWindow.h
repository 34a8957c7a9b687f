#pragma once
// A window without a screen, for tests and tools: fonts measure in fixed
// cells, invalidations and caret calls are recorded, timers run on a clock
// that only moves when told, and the clipboard is a string.

#include <array>
#include <set>
#include <vector>

#include "editing/MemoWindow.h"

namespace orl {

class THeadlessWindow final : public IMemoWindow {
public:
  /// Cell of a fixed-pitch font; "Consolas" measures one pixel narrower so
  /// that a switch to it shows.
  static constexpr int kCellW = 8;
  static constexpr int kCellH = 16;

  THeadlessWindow();

  void Attach(IMemoWindowClient* client) override { FClient = client; }
  bool HandleAllocated() const override { return bHandleAllocated; }
  TRect ClientRect() const override { return Client; }
  int ScreenDPI() const override { return DPI; }
  int SystemMajorVersion() const override { return MajorVersion; }

  void Invalidate(const TRect& r) override { Invalidated.push_back(r); }
  void InvalidateAll() override { ++InvalidatedAll; }
  void RedrawRect(const TRect& r) override { Redrawn.push_back(r); }

  void SetScrollInfo(TScrollBarKind bar, const TScrollInfo& info) override { Scroll[size_t(bar)] = info; }
  void ShowScrollBar(TScrollBarKind bar, bool bVisible) override { ScrollVisible[size_t(bar)] = bVisible; }
  bool ScrollBarVisible(TScrollBarKind bar) const override { return ScrollVisible[size_t(bar)]; }
  int ScrollBarExtent() const override { return 17 * DPI / 96; }

  void CreateCaret(int width, int height) override;
  void SetCaretPos(int x, int y) override { CaretPos = {x, y}; }
  void ShowCaret(bool bShow) override { bCaretShown = bShow; }
  void DestroyCaret() override { bCaretExists = bCaretShown = false; }

  void StartTimer(TMemoTimer timer, int intervalMs) override;
  void StopTimer(TMemoTimer timer) override { Timers[size_t(timer)].bRunning = false; }
  bool TimerRunning(TMemoTimer timer) const override { return Timers[size_t(timer)].bRunning; }
  int TimerInterval(TMemoTimer timer) const { return Timers[size_t(timer)].Interval; }
  /// Moves the clock on, firing every timer that falls due on the way, in time order.
  void Advance(int ms);

  void SetCursorShape(TCursorShape shape) override { Cursor = shape; }
  void Beep() override { ++Beeps; }
  int DoubleClickTime() const override { return 500; }
  int64_t TickCount() const override { return Clock; }

  std::u16string ClipboardText() const override { return Clipboard.Text; }
  void SetClipboardText(std::u16string_view text) override;
  bool ReadClipboard(TMemoClipboard& data) override;
  bool WriteClipboard(const TMemoClipboard& data) override;
  /// Time passes on the window's clock; no timer fires, as none would while the thread waits.
  void Sleep(int ms) override { Clock += ms; }
  void ShowMessage(std::u16string_view text) override { Messages.emplace_back(text); }

  TTextMetrics GetTextMetrics(const TMemoFont& font) override;
  int TextExtent(const TMemoFont& font, std::u16string_view text) override;
  int CharTrailingX(const TMemoFont& font, std::u16string_view text, int index, int tabWidth) override;
  TCharHit XToChar(const TMemoFont& font, std::u16string_view text, int x, int tabWidth) override;

  /// Pixel width of one character in `font`; 0 for the trailing half of a
  /// surrogate pair and for combining marks, which join the one before.
  int CharWidth(const TMemoFont& font, char16_t ch) const;
  bool IsProportional(const TMemoFont& font) const { return ProportionalFonts.count(font.Name) > 0; }

  bool bHandleAllocated = true;
  TRect Client{0, 0, 640, 480};
  int DPI = 96;
  int MajorVersion = 10;
  std::set<std::u16string> ProportionalFonts{u"Tahoma", u"Arial", u"Segoe UI"};
  bool bBoldWider = false;  ///< the bold face reports an overhang

  std::vector<TRect> Invalidated;
  int InvalidatedAll = 0;
  std::vector<TRect> Redrawn;  ///< rows drawn at once, outside a paint
  std::array<TScrollInfo, 2> Scroll{};
  std::array<bool, 2> ScrollVisible{};
  TPoint CaretPos;
  TCellSize CaretSize;
  bool bCaretExists = false;
  bool bCaretShown = false;
  TCursorShape Cursor = TCursorShape::crIBeam;
  int Beeps = 0;
  TMemoClipboard Clipboard;
  /// The next so many clipboard accesses fail, as when another program holds it.
  int ClipboardFailures = 0;
  /// Clipboard accesses tried, failed ones included.
  int ClipboardAccesses = 0;
  std::vector<std::u16string> Messages;
  int64_t Clock = 0;

private:
  struct TTimerState {
    bool bRunning = false;
    int Interval = 0;
    int64_t Due = 0;
  };
  /// Counts an access; false while accesses are to fail.
  bool OpenClipboard();
  /// Start of each character laid out with tab stops; one entry more than characters.
  std::vector<int> LayOut(const TMemoFont& font, std::u16string_view text, int tabWidth) const;

  IMemoWindowClient* FClient = nullptr;
  std::array<TTimerState, kMemoTimerCount> Timers{};
};

} // namespace orl
