#pragma once
// Everything the memo needs of the window it lives in, kept to one narrow
// interface so that the memo runs headless in tests and tools, and a toolkit
// widget only forwards its events and answers these calls.

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>
#include <thread>

#include "editing/MemoGeometry.h"
#include "syntax/CharStyle.h"

namespace orl {

/// The memo's timers; each runs at the interval the memo starts it with.
enum class TMemoTimer : uint8_t {
  Scroll,
  AutoComplete,
  AutoCompletionHint,
  AbbreviationHint,
  ColorHint,
  DocumentMapPreview,
  JSON,
  MultiCursor,
  ScrollVOff,
  ScrollHOff,
  Pan,
};
inline constexpr int kMemoTimerCount = int(TMemoTimer::Pan) + 1;

enum class TScrollBarKind : uint8_t { sbHorizontal, sbVertical };

struct TScrollInfo {
  int Min = 0;
  int Max = 0;
  int Page = 0;
  int Pos = 0;
  bool operator==(const TScrollInfo&) const = default;
};

enum class TCursorShape : uint8_t { crIBeam, crArrow, crHandPoint, crDrag, crSizeWE };

/// A font as the memo asks for it. Height in pixels, negative for the height
/// of the characters without internal leading, as toolkits count it.
struct TMemoFont {
  std::u16string Name = u"Courier New";
  int Size = 10;     ///< points
  int Height = -13;  ///< pixels
  TFontStyles Style = 0;
  int Quality = 6;
  int Charset = 1;
  bool operator==(const TMemoFont&) const = default;
};

/// A font's measures as the window's toolkit reports them.
struct TTextMetrics {
  int Height = 0;
  int Ascent = 0;
  int InternalLeading = 0;
  int AveCharWidth = 0;
  int Overhang = 0;
  /// Bit 0 set means variable pitch.
  uint8_t PitchAndFamily = 0;
};

/// Where a pixel column falls in a laid-out text.
struct TCharHit {
  int Index = 0;     ///< 0-based first character of the cluster hit
  int Trailing = 0;  ///< in its right half: the cluster's length, else 0
};

/// What the memo puts on the clipboard or finds there.
struct TMemoClipboard {
  /// Plain text: what other programs see and paste.
  std::u16string Text;
  /// The text is a whole line with its end: pasted at the head of the
  /// caret's row. Carried apart from the text, so other programs never see it.
  bool bWholeLine = false;
  /// An HTML document or fragment that another program put there; read only.
  std::u16string Html;
  bool operator==(const TMemoClipboard&) const = default;
};

/// What the window tells the memo.
class IMemoWindowClient {
public:
  virtual void TimerFired(TMemoTimer timer) = 0;

protected:
  ~IMemoWindowClient() = default;
};

class IMemoWindow {
public:
  virtual ~IMemoWindow() = default;

  virtual void Attach(IMemoWindowClient* client) = 0;
  /// False until the window exists; font metrics wait for it.
  virtual bool HandleAllocated() const = 0;
  virtual TRect ClientRect() const = 0;
  virtual int ScreenDPI() const = 0;
  /// The major version of the system; some font choices depend on it.
  virtual int SystemMajorVersion() const = 0;

  virtual void Invalidate(const TRect& r) = 0;
  virtual void InvalidateAll() = 0;
  /// Draws `r` now and shows it, without waiting for a paint; a window that
  /// keeps no back buffer repaints it later instead.
  virtual void RedrawRect(const TRect& r) { Invalidate(r); }

  virtual void SetScrollInfo(TScrollBarKind bar, const TScrollInfo& info) = 0;
  virtual void ShowScrollBar(TScrollBarKind bar, bool bVisible) = 0;
  virtual bool ScrollBarVisible(TScrollBarKind bar) const = 0;
  /// Width of the vertical bar, height of the horizontal one.
  virtual int ScrollBarExtent() const = 0;

  virtual void CreateCaret(int width, int height) = 0;
  virtual void SetCaretPos(int x, int y) = 0;
  virtual void ShowCaret(bool bShow) = 0;
  virtual void DestroyCaret() = 0;

  virtual void StartTimer(TMemoTimer timer, int intervalMs) = 0;
  virtual void StopTimer(TMemoTimer timer) = 0;
  virtual bool TimerRunning(TMemoTimer timer) const = 0;

  virtual void SetCursorShape(TCursorShape shape) = 0;
  virtual void Beep() = 0;
  virtual int DoubleClickTime() const = 0;
  /// Milliseconds on a clock that only moves forward; times double and triple clicks.
  virtual int64_t TickCount() const = 0;

  virtual std::u16string ClipboardText() const = 0;
  virtual void SetClipboardText(std::u16string_view text) = 0;
  /// Opens the clipboard and reads every form the memo knows; false when
  /// the clipboard can't be opened now (another program holds it).
  virtual bool ReadClipboard(TMemoClipboard& data) {
    data = {};
    data.Text = ClipboardText();
    return true;
  }
  /// Opens the clipboard and replaces what it holds; false when it can't be opened now.
  virtual bool WriteClipboard(const TMemoClipboard& data) {
    SetClipboardText(data.Text);
    return true;
  }
  /// Waits on the calling thread, as the clipboard's retry does.
  virtual void Sleep(int ms) { std::this_thread::sleep_for(std::chrono::milliseconds(ms)); }
  /// A message to the user with an OK button.
  virtual void ShowMessage(std::u16string_view text) { (void)text; }

  virtual TTextMetrics GetTextMetrics(const TMemoFont& font) = 0;
  /// Width of `text` drawn plainly, tabs as ordinary characters.
  virtual int TextExtent(const TMemoFont& font, std::u16string_view text) = 0;
  /// Laid out with tab stops every `tabWidth` pixels: the trailing edge of
  /// character `index`, or the whole width for an index past the end.
  virtual int CharTrailingX(const TMemoFont& font, std::u16string_view text, int index, int tabWidth) = 0;
  /// The inverse: the character under pixel column x.
  virtual TCharHit XToChar(const TMemoFont& font, std::u16string_view text, int x, int tabWidth) = 0;
};

} // namespace orl
