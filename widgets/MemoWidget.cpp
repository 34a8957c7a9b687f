#include "widgets/MemoWidget.h"

#include <QPaintEvent>

#include <QApplication>
#include <QClipboard>
#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetrics>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMessageBox>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QLabel>
#include <QScrollBar>
#include <QStyleHints>
#include <QTextLayout>
#include <QTimer>

#include <cmath>

#include "widgets/QtMemoCanvas.h"

namespace orl {
namespace {

QString ToQString(std::u16string_view s) { return QString::fromUtf16(s.data(), qsizetype(s.size())); }

/// Lays `text` out on one line with tab stops every `tabWidth` pixels.
class TOneLineLayout {
public:
  TOneLineLayout(const TMemoFont& font, std::u16string_view text, int tabWidth)
      : FLayout(ToQString(text), TOrlMemoWidget::ToQFont(font)) {
    QTextOption option;
    if (tabWidth > 0) option.setTabStopDistance(tabWidth);
    option.setWrapMode(QTextOption::NoWrap);
    FLayout.setTextOption(option);
    FLayout.beginLayout();
    FLine = FLayout.createLine();
    if (FLine.isValid()) FLine.setLineWidth(1e9);
    FLayout.endLayout();
  }
  const QTextLine& Line() const { return FLine; }

private:
  QTextLayout FLayout;
  QTextLine FLine;
};

TShiftState ShiftOf(Qt::KeyboardModifiers mods) {
  TShiftState shift = 0;
  if (mods & Qt::ShiftModifier) shift |= ssShift;
  if (mods & Qt::ControlModifier) shift |= ssCtrl;
  if (mods & Qt::AltModifier) shift |= ssAlt;
  return shift;
}

/// The memo's code for a Qt key; vkNone for keys the memo has no row for.
int MemoKey(int key, Qt::KeyboardModifiers mods) {
  if ((mods & Qt::KeypadModifier) && key >= Qt::Key_0 && key <= Qt::Key_9) return vkNumpad0 + (key - Qt::Key_0);
  if ((key >= Qt::Key_A && key <= Qt::Key_Z) || (key >= Qt::Key_0 && key <= Qt::Key_9)) return key;
  if (key >= Qt::Key_F1 && key <= Qt::Key_F12) return vkF1 + (key - Qt::Key_F1);
  switch (key) {
    case Qt::Key_Left: return vkLeft;
    case Qt::Key_Right: return vkRight;
    case Qt::Key_Up: return vkUp;
    case Qt::Key_Down: return vkDown;
    case Qt::Key_Home: return vkHome;
    case Qt::Key_End: return vkEnd;
    case Qt::Key_PageUp: return vkPrior;
    case Qt::Key_PageDown: return vkNext;
    case Qt::Key_Tab:
    case Qt::Key_Backtab: return vkTab;
    case Qt::Key_Return:
    case Qt::Key_Enter: return vkReturn;
    case Qt::Key_Backspace: return vkBack;
    case Qt::Key_Delete: return vkDelete;
    case Qt::Key_Insert: return vkInsert;
    case Qt::Key_Escape: return vkEscape;
    case Qt::Key_Space: return vkSpace;
    case Qt::Key_Alt: return vkMenu;
    default: return vkNone;
  }
}

TMouseButton ButtonOf(Qt::MouseButton button) {
  if (button == Qt::RightButton) return TMouseButton::mbRight;
  if (button == Qt::MiddleButton) return TMouseButton::mbMiddle;
  return TMouseButton::mbLeft;
}

} // namespace

TOrlMemoWidget::TOrlMemoWidget(QWidget* parent, const QString& dataFolder) : QWidget(parent) {
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setCursor(Qt::IBeamCursor);
  setMouseTracking(true);
  setAttribute(Qt::WA_InputMethodEnabled);
  FClock.start();
  FBlink = new QTimer(this);
  connect(FBlink, &QTimer::timeout, this, [this] {
    FBlinkOn = !FBlinkOn;
    update(FCaret);
  });
  FVertBar = new QScrollBar(Qt::Vertical, this);
  FHorzBar = new QScrollBar(Qt::Horizontal, this);
  FVertBar->hide();
  FHorzBar->hide();
  connect(FVertBar, &QScrollBar::valueChanged, this, &TOrlMemoWidget::VerticalScrolled);
  FLinePanel = new QLabel(this);
  FLinePanel->setFrameShape(QFrame::Box);
  FLinePanel->setAlignment(Qt::AlignCenter);
  FLinePanel->setAutoFillBackground(true);
  FLinePanel->hide();
  connect(FVertBar, &QScrollBar::sliderPressed, this, [this] { FMemo->ScrollThumbTracking(true); });
  connect(FVertBar, &QScrollBar::sliderReleased, this, [this] {
    FMemo->ScrollThumbTracking(false);
    UpdateLinePanel();
  });
  connect(FHorzBar, &QScrollBar::valueChanged, this, &TOrlMemoWidget::HorizontalScrolled);
  for (int i = 0; i < kMemoTimerCount; ++i) {
    FTimers[size_t(i)] = new QTimer(this);
    connect(FTimers[size_t(i)], &QTimer::timeout, this, [this, i] {
      if (FClient) FClient->TimerFired(TMemoTimer(i));
    });
  }
  FMemo = std::make_unique<TOrlMemo>(this, dataFolder.toStdU16String());
  FPainter = std::make_unique<TMemoPainter>(*FMemo);
}

TOrlMemoWidget::~TOrlMemoWidget() {
  for (QTimer* timer : FTimers) timer->stop();
  FBlink->stop();
  FPainter.reset();
  FMemo.reset();
}

QFont TOrlMemoWidget::ToQFont(const TMemoFont& font) {
  QFont f(QString::fromStdU16String(font.Name));
  const QString name = f.family().toLower();
  const bool bFixedFace =
      name.contains(u"courier") || name.contains(u"consolas") || name.contains(u"mono") || name.contains(u"terminal");
  if (bFixedFace) f.setStyleHint(QFont::TypeWriter);
  // A fixed face the system lacks can resolve to a proportional one; the
  // toolkit's fixed font keeps the editor fixed-pitch instead.
  if (bFixedFace && !QFontInfo(f).fixedPitch()) f.setFamily(QFontDatabase::systemFont(QFontDatabase::FixedFont).family());
  f.setPixelSize(std::max(std::abs(font.Height), 1));
  // Whole-pixel advances keep a monospaced row on the memo's cell grid.
  f.setHintingPreference(QFont::PreferFullHinting);
  f.setBold(font.Style & fsBold);
  f.setItalic(font.Style & fsItalic);
  f.setUnderline(font.Style & fsUnderline);
  return f;
}

TRect TOrlMemoWidget::ClientRect() const { return {0, 0, width(), height()}; }

int TOrlMemoWidget::ScreenDPI() const { return std::max(logicalDpiY(), 1); }

void TOrlMemoWidget::Invalidate(const TRect& r) { update(QRect(r.Left, r.Top, r.Width(), r.Height())); }

void TOrlMemoWidget::SetScrollInfo(TScrollBarKind bar, const TScrollInfo& info) {
  QScrollBar* scroll = Bar(bar);
  FUpdatingBars = true;
  scroll->setRange(info.Min, std::max(info.Min, info.Max - std::max(info.Page, 1) + 1));
  scroll->setPageStep(std::max(info.Page, 1));
  scroll->setValue(info.Pos);
  FUpdatingBars = false;
}

void TOrlMemoWidget::ShowScrollBar(TScrollBarKind bar, bool bVisible) {
  Bar(bar)->setVisible(bVisible);
  PlaceScrollBars();
}

bool TOrlMemoWidget::ScrollBarVisible(TScrollBarKind bar) const { return !Bar(bar)->isHidden(); }

int TOrlMemoWidget::ScrollBarExtent() const { return (17 * ScreenDPI() + 48) / 96; }

void TOrlMemoWidget::PlaceScrollBars() {
  const int extent = ScrollBarExtent();
  const bool bVert = ScrollBarVisible(TScrollBarKind::sbVertical);
  const bool bHorz = ScrollBarVisible(TScrollBarKind::sbHorizontal);
  FVertBar->setGeometry(width() - extent, 0, extent, height() - (bHorz ? extent : 0));
  FHorzBar->setGeometry(0, height() - extent, width() - (bVert ? extent : 0), extent);
}

void TOrlMemoWidget::CreateCaret(int width, int height) {
  FCaret.setSize(QSize(width, height));
  FCaretExists = true;
  FCaretShown = false;
}

void TOrlMemoWidget::SetCaretPos(int x, int y) {
  update(FCaret);
  FCaret.moveTo(x, y);
  RestartBlink();
}

void TOrlMemoWidget::ShowCaret(bool bShow) {
  FCaretShown = bShow && FCaretExists;
  RestartBlink();
}

void TOrlMemoWidget::RestartBlink() {
  FBlinkOn = true;
  // Half the platform's flash time on, half off; 0 means a steady caret.
  const int flash = QGuiApplication::styleHints()->cursorFlashTime();
  if (FCaretShown && flash > 0) FBlink->start(flash / 2);
  else FBlink->stop();
  update(FCaret);
}

void TOrlMemoWidget::DestroyCaret() {
  FCaretExists = FCaretShown = false;
  update(FCaret);
}

void TOrlMemoWidget::StartTimer(TMemoTimer timer, int intervalMs) { FTimers[size_t(timer)]->start(intervalMs); }
void TOrlMemoWidget::StopTimer(TMemoTimer timer) { FTimers[size_t(timer)]->stop(); }
bool TOrlMemoWidget::TimerRunning(TMemoTimer timer) const { return FTimers[size_t(timer)]->isActive(); }

void TOrlMemoWidget::SetCursorShape(TCursorShape shape) {
  switch (shape) {
    case TCursorShape::crIBeam: setCursor(Qt::IBeamCursor); break;
    case TCursorShape::crArrow: setCursor(Qt::ArrowCursor); break;
    case TCursorShape::crHandPoint: setCursor(Qt::PointingHandCursor); break;
    case TCursorShape::crDrag: setCursor(Qt::DragMoveCursor); break;
    case TCursorShape::crSizeWE: setCursor(Qt::SizeHorCursor); break;
  }
}

void TOrlMemoWidget::Beep() { QApplication::beep(); }
int TOrlMemoWidget::DoubleClickTime() const { return QGuiApplication::styleHints()->mouseDoubleClickInterval(); }

std::u16string TOrlMemoWidget::ClipboardText() const { return QGuiApplication::clipboard()->text().toStdU16String(); }
void TOrlMemoWidget::SetClipboardText(std::u16string_view text) { QGuiApplication::clipboard()->setText(ToQString(text)); }

bool TOrlMemoWidget::ReadClipboard(TMemoClipboard& data) {
  data = {};
  const QMimeData* mime = QGuiApplication::clipboard()->mimeData();
  if (!mime) return true;
  data.Text = mime->text().toStdU16String();
  data.bWholeLine = mime->hasFormat(kWholeLineMimeType);
  if (mime->hasHtml()) data.Html = mime->html().toStdU16String();
  return true;
}

bool TOrlMemoWidget::WriteClipboard(const TMemoClipboard& data) {
  auto* mime = new QMimeData;
  mime->setText(ToQString(data.Text));
  if (data.bWholeLine) mime->setData(kWholeLineMimeType, QByteArray("1"));
  QGuiApplication::clipboard()->setMimeData(mime);  // the clipboard owns it
  return true;
}

void TOrlMemoWidget::ShowMessage(std::u16string_view text) {
  QMessageBox::warning(this, QApplication::applicationName(), ToQString(text));
}

TTextMetrics TOrlMemoWidget::GetTextMetrics(const TMemoFont& font) {
  const QFont f = ToQFont(font);
  const QFontMetrics metrics(f);
  TTextMetrics m;
  m.Height = metrics.height();
  m.Ascent = metrics.ascent();
  m.InternalLeading = std::max(metrics.height() - f.pixelSize(), 0);
  m.AveCharWidth = metrics.averageCharWidth();
  m.PitchAndFamily = QFontInfo(f).fixedPitch() ? 0x30 : 0x31;
  return m;
}

int TOrlMemoWidget::TextExtent(const TMemoFont& font, std::u16string_view text) {
  return QFontMetrics(ToQFont(font)).horizontalAdvance(ToQString(text));
}

int TOrlMemoWidget::CharTrailingX(const TMemoFont& font, std::u16string_view text, int index, int tabWidth) {
  const TOneLineLayout layout(font, text, tabWidth);
  if (!layout.Line().isValid() || index < 0) return 0;
  if (size_t(index) >= text.size()) return int(std::ceil(layout.Line().naturalTextWidth()));
  return int(std::lround(layout.Line().cursorToX(index + 1)));
}

TCharHit TOrlMemoWidget::XToChar(const TMemoFont& font, std::u16string_view text, int x, int tabWidth) {
  const TOneLineLayout layout(font, text, tabWidth);
  if (!layout.Line().isValid() || x <= 0) return {0, 0};
  // The nearest boundary already counts a character's right half as behind it.
  return {layout.Line().xToCursor(x, QTextLine::CursorBetweenCharacters), 0};
}

bool TOrlMemoWidget::EnsureBuffer() {
  const qreal ratio = devicePixelRatioF();
  const QSize device = (QSizeF(size()) * ratio).toSize();
  if (FBuffer.size() == device && FBuffer.devicePixelRatio() == ratio) return false;
  FBuffer = QImage(device, QImage::Format_RGB32);
  FBuffer.setDevicePixelRatio(ratio);
  FBuffer.fill(palette().color(QPalette::Base));
  return true;
}

void TOrlMemoWidget::paintEvent(QPaintEvent* event) {
  // A new buffer holds nothing to scroll: it is drawn whole.
  const bool bFresh = EnsureBuffer();
  if (bFresh) FMemo->FOffsetScrollMode = osmNone;
  const QRect dirty = bFresh ? rect() : event->rect();
  // A row RedrawRect just drew needs only showing.
  const bool bDrawn = !bFresh && FJustDrawn.contains(dirty);
  if (!bDrawn) {
    TQtMemoCanvas canvas(FBuffer, palette());
    FPainter->Paint(canvas, {dirty.left(), dirty.top(), dirty.right() + 1, dirty.bottom() + 1});
  }
  QPainter painter(this);
  painter.drawImage(QPoint(0, 0), FBuffer);
  if (FCaretShown && FBlinkOn && hasFocus()) painter.fillRect(FCaret, Qt::black);
}

void TOrlMemoWidget::RedrawRect(const TRect& r) {
  const QRect target(r.Left, r.Top, r.Width(), r.Height());
  // Before the first paint, or with a scroll the buffer has not followed yet,
  // only a paint can bring the buffer up to date.
  const bool bScrollPending = FPainter->ScrollPending();
  if (FBuffer.size() != (QSizeF(size()) * devicePixelRatioF()).toSize() || bScrollPending) {
    if (bScrollPending) FMemo->FOffsetScrollMode = osmNone;
    update(target);
    return;
  }
  const TRect area = FMemo->EditorRect(true, -1);
  const int H = std::max(FMemo->CellSize().H, 1);
  {
    TQtMemoCanvas canvas(FBuffer, palette());
    FPainter->PaintLine(canvas, FMemo->GetLineFromRow((r.Top - area.Top) / H));
  }
  FJustDrawn = target;
  repaint(target);
  FJustDrawn = {};  // a hidden widget paints nothing now; a later paint of the row must draw it
}

void TOrlMemoWidget::resizeEvent(QResizeEvent*) {
  PlaceScrollBars();
  FMemo->ResizeEditor();
}

void TOrlMemoWidget::focusInEvent(QFocusEvent*) { FMemo->FocusGained(); }

void TOrlMemoWidget::focusOutEvent(QFocusEvent*) { FMemo->FocusLost(); }

bool TOrlMemoWidget::focusNextPrevChild(bool next) {
  // Tab belongs to the text while the memo wants it.
  return FMemo->FWantTab ? false : QWidget::focusNextPrevChild(next);
}

void TOrlMemoWidget::keyPressEvent(QKeyEvent* event) {
  const TShiftState shift = ShiftOf(event->modifiers());
  int key = MemoKey(event->key(), event->modifiers());
  if (key != vkNone) FMemo->KeyDown(key, shift);
  // One key, one action: the key-down above acted for control keys, whose
  // characters KeyPress drops. Ctrl or Alt alone make shortcuts, not text;
  // both together are AltGr, whose characters are text.
  const bool bCtrl = shift & ssCtrl, bAlt = shift & ssAlt;
  if (bCtrl == bAlt) {
    for (const QChar ch : event->text()) FMemo->KeyPress(ch.unicode());
  }
  event->accept();
}

void TOrlMemoWidget::keyReleaseEvent(QKeyEvent* event) {
  if (event->isAutoRepeat()) return;
  FMemo->KeyUp(MemoKey(event->key(), event->modifiers()), ShiftOf(event->modifiers()));
}

void TOrlMemoWidget::inputMethodEvent(QInputMethodEvent* event) {
  // The composition in progress is the input method's to show; the memo takes what it commits.
  for (const QChar ch : event->commitString()) FMemo->KeyPress(ch.unicode());
  event->accept();
}

QVariant TOrlMemoWidget::inputMethodQuery(Qt::InputMethodQuery query) const {
  if (query == Qt::ImCursorRectangle) return FCaret;
  if (query == Qt::ImEnabled) return !FMemo->FReadOnly;
  return QWidget::inputMethodQuery(query);
}

void TOrlMemoWidget::mousePressEvent(QMouseEvent* event) {
  setFocus(Qt::MouseFocusReason);
  const QPoint p = event->position().toPoint();
  FMemo->MouseDown(ButtonOf(event->button()), ShiftOf(event->modifiers()), p.x(), p.y());
}

void TOrlMemoWidget::mouseMoveEvent(QMouseEvent* event) {
  const QPoint p = event->position().toPoint();
  FMemo->MouseMove(ShiftOf(event->modifiers()), p.x(), p.y());
}

void TOrlMemoWidget::mouseReleaseEvent(QMouseEvent* event) {
  const QPoint p = event->position().toPoint();
  FMemo->MouseUp(ButtonOf(event->button()), ShiftOf(event->modifiers()), p.x(), p.y());
}

void TOrlMemoWidget::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return mousePressEvent(event);
  const QPoint p = event->position().toPoint();
  FMemo->DblClick(ShiftOf(event->modifiers()), p.x(), p.y());
}

void TOrlMemoWidget::wheelEvent(QWheelEvent* event) {
  FWheelRest += event->angleDelta();
  const int notchesY = FWheelRest.y() / 120, notchesX = FWheelRest.x() / 120;
  FWheelRest -= QPoint(notchesX * 120, notchesY * 120);
  const int lines = QApplication::wheelScrollLines();
  if (notchesY != 0) FMemo->MouseWheel(ShiftOf(event->modifiers()), notchesY, lines);
  if (notchesX != 0) FMemo->ScrollBarMoved(TScrollBarKind::sbHorizontal, FMemo->LeftCol() - notchesX * lines);
  event->accept();
}

void TOrlMemoWidget::VerticalScrolled(int value) {
  if (FUpdatingBars) return;
  FMemo->ScrollBarMoved(TScrollBarKind::sbVertical, value);
  UpdateLinePanel();
}

void TOrlMemoWidget::UpdateLinePanel() {
  if (!FMemo->FLinePanelVisible) return FLinePanel->hide();
  const TRect& r = FMemo->FLinePanel;
  const int right = FVertBar->isVisible() ? FVertBar->x() : width();
  FLinePanel->setGeometry(right - (r.Right - r.Left), 0, r.Right - r.Left, r.Bottom - r.Top);
  FLinePanel->setText(QString::fromStdU16String(FMemo->LinePanelText()));
  FLinePanel->show();
  FLinePanel->raise();
}

void TOrlMemoWidget::HorizontalScrolled(int value) {
  if (!FUpdatingBars) FMemo->ScrollBarMoved(TScrollBarKind::sbHorizontal, value);
}

} // namespace orl
