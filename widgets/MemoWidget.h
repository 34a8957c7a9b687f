#pragma once
// The memo as a Qt widget: it owns a TOrlMemo, forwards the toolkit's events
// to it and answers the memo's window calls (measuring, scroll bars, caret,
// timers, cursor, clipboard). The logic stays in the memo; this class only
// translates.

#include <QElapsedTimer>
#include <QWidget>

#include <array>
#include <memory>

#include "editing/OrlMemo.h"
#include "view/MemoPainter.h"

class QLabel;
class QScrollBar;
class QTimer;

namespace orl {

class TOrlMemoWidget final : public QWidget, public IMemoWindow {
  Q_OBJECT
public:
  explicit TOrlMemoWidget(QWidget* parent = nullptr, const QString& dataFolder = {});
  ~TOrlMemoWidget() override;

  TOrlMemo& Memo() { return *FMemo; }
  /// The Qt font the memo's font maps to; faces the system lacks fall back
  /// to one of the same pitch.
  static QFont ToQFont(const TMemoFont& font);

  // IMemoWindow
  void Attach(IMemoWindowClient* client) override { FClient = client; }
  bool HandleAllocated() const override { return true; }
  TRect ClientRect() const override;
  int ScreenDPI() const override;
  int SystemMajorVersion() const override { return 10; }
  void Invalidate(const TRect& r) override;
  void InvalidateAll() override { update(); }
  void RedrawRect(const TRect& r) override;
  void SetScrollInfo(TScrollBarKind bar, const TScrollInfo& info) override;
  void ShowScrollBar(TScrollBarKind bar, bool bVisible) override;
  bool ScrollBarVisible(TScrollBarKind bar) const override;
  int ScrollBarExtent() const override;
  void CreateCaret(int width, int height) override;
  void SetCaretPos(int x, int y) override;
  void ShowCaret(bool bShow) override;
  void DestroyCaret() override;
  void StartTimer(TMemoTimer timer, int intervalMs) override;
  void StopTimer(TMemoTimer timer) override;
  bool TimerRunning(TMemoTimer timer) const override;
  void SetCursorShape(TCursorShape shape) override;
  void Beep() override;
  int DoubleClickTime() const override;
  int64_t TickCount() const override { return FClock.elapsed(); }
  std::u16string ClipboardText() const override;
  void SetClipboardText(std::u16string_view text) override;
  /// The clipboard's text, our whole-line mark and text/html. Qt opens the
  /// clipboard itself, so an access never fails here.
  bool ReadClipboard(TMemoClipboard& data) override;
  bool WriteClipboard(const TMemoClipboard& data) override;
  void ShowMessage(std::u16string_view text) override;
  /// The private type that marks copied text as a whole line; other
  /// programs see the text alone.
  static constexpr const char* kWholeLineMimeType = "application/x-grammardesk-whole-line";
  TTextMetrics GetTextMetrics(const TMemoFont& font) override;
  int TextExtent(const TMemoFont& font, std::u16string_view text) override;
  int CharTrailingX(const TMemoFont& font, std::u16string_view text, int index, int tabWidth) override;
  TCharHit XToChar(const TMemoFont& font, std::u16string_view text, int x, int tabWidth) override;

protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  bool focusNextPrevChild(bool next) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

private:
  QScrollBar* Bar(TScrollBarKind bar) const { return bar == TScrollBarKind::sbVertical ? FVertBar : FHorzBar; }
  void PlaceScrollBars();
  void VerticalScrolled(int value);
  void HorizontalScrolled(int value);
  /// Shows the line panel beside the vertical bar while its thumb is dragged.
  void UpdateLinePanel();
  /// Restarts the blink with the caret shown, as after every move.
  void RestartBlink();
  /// Sizes the back buffer to the widget in device pixels; true when it was
  /// made anew and holds nothing yet.
  bool EnsureBuffer();

  IMemoWindowClient* FClient = nullptr;
  QScrollBar* FVertBar;
  QScrollBar* FHorzBar;
  QLabel* FLinePanel;
  std::array<QTimer*, kMemoTimerCount> FTimers{};
  QRect FCaret;
  bool FCaretExists = false;
  bool FCaretShown = false;
  bool FUpdatingBars = false;  // the memo sets a bar: no scroll back into it
  bool FBlinkOn = true;
  QTimer* FBlink;
  QElapsedTimer FClock;
  QPoint FWheelRest;  // eighths of a degree not yet turned into notches
  QImage FBuffer;  // the back buffer: what the memo drew, kept between paints
  QRect FJustDrawn;  // drawn into the buffer by RedrawRect, waiting to be shown
  std::unique_ptr<TOrlMemo> FMemo;  // built once the window parts exist
  std::unique_ptr<TMemoPainter> FPainter;
};

} // namespace orl
