// What painting costs on a text of 1M lines: a keystroke-sized redraw deep in
// the file touches one row, and a full paint of a 60-row view costs the view,
// not the file. Headless on the recording canvas, and on the Qt back buffer
// on the offscreen platform.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QImage>

#include <filesystem>
#include <memory>
#include <set>
#include <string>

#include "editing/HeadlessWindow.h"
#include "syntax/OrlSyntax.h"
#include "view/MemoPainter.h"
#include "view/RecordingCanvas.h"
#include "widgets/MemoWidget.h"
#include "widgets/QtMemoCanvas.h"
#include "BuildPaths.h"

namespace {
using namespace orl;

constexpr int kLines = 1'000'000;
constexpr int kEditLine = 500'000;

void FillAndStyle(TOrlMemo& memo) {
  TOrlSyntax syntax;
  std::u16string asp;
  syntax.LoadStyleFromFile(&memo, (orl::test::HostDir() / "syntax" / "C++.gdx").u16string(), u"C++", 0, asp);
  std::u16string text;
  text.reserve(size_t(kLines) * 40);
  for (int i = 0; i < kLines; ++i) text += u"\tint value = 42; /* note */ call(\"s\");\r\n";
  memo.SetText(text);
  memo.ResizeEditor();
  memo.SetTextCursor(3, kEditLine, true);
}

struct THeadlessSetup {
  THeadlessWindow Window;
  TOrlMemo Memo{&Window};
  TRecordingCanvas Canvas{Window};
  TMemoPainter Painter{Memo};
  THeadlessSetup() {
    Window.Client = {0, 0, 121 * THeadlessWindow::kCellW + 1, 60 * THeadlessWindow::kCellH};
    FillAndStyle(Memo);
    Painter.Paint(Canvas, {});
  }
};

THeadlessSetup& Headless() {
  static THeadlessSetup setup;
  return setup;
}

/// Distinct rows the canvas was given.
int RowsDrawn(const TRecordingCanvas& canvas) {
  std::set<int> rows;
  for (const TPaintItem& item : canvas.Items)
    if (item.Kind == TPaintKind::Text) rows.insert(item.Line);
  return int(rows.size());
}

// One typed character: the row changes, its end state is compared, the row is drawn again.
void BM_KeystrokeRedrawAtRow500k(benchmark::State& state) {
  THeadlessSetup& s = Headless();
  const std::u16string a = u"\tint value = 42; /* note */ call(\"s\");x", b = u"\tint value = 42; /* note */ call(\"s\");";
  bool bToggle = false;
  int rows = 0;
  for (auto _ : state) {
    s.Window.Redrawn.clear();
    s.Memo.SetLineText(kEditLine, (bToggle = !bToggle) ? a : b);
    s.Canvas.Clear();
    s.Painter.PaintLine(s.Canvas, kEditLine);
    rows = RowsDrawn(s.Canvas);
    if (s.Window.Redrawn.size() != 1 || !s.Window.Invalidated.empty()) state.SkipWithError("not a one-row redraw");
  }
  state.counters["rows_drawn"] = rows;
}
BENCHMARK(BM_KeystrokeRedrawAtRow500k)->Unit(benchmark::kMicrosecond);

void BM_FullPaint60Rows(benchmark::State& state) {
  THeadlessSetup& s = Headless();
  int rows = 0;
  for (auto _ : state) {
    s.Canvas.Clear();
    s.Painter.Paint(s.Canvas, {});
    rows = RowsDrawn(s.Canvas);
  }
  state.counters["rows_drawn"] = rows;
}
BENCHMARK(BM_FullPaint60Rows)->Unit(benchmark::kMicrosecond);

TOrlMemoWidget& QtWidget() {
  static TOrlMemoWidget* widget = [] {
    auto* w = new TOrlMemoWidget;
    w->resize(1000, 60 * 17);
    FillAndStyle(w->Memo());
    return w;
  }();
  return *widget;
}

void BM_FullPaint60RowsQt(benchmark::State& state) {
  TOrlMemoWidget* widget = &QtWidget();
  TOrlMemo& memo = widget->Memo();
  const TRect client = widget->ClientRect();
  QImage image(client.Width(), client.Height(), QImage::Format_RGB32);
  TMemoPainter painter(memo);
  for (auto _ : state) {
    TQtMemoCanvas canvas(image, widget->palette());
    painter.Paint(canvas, {});
  }
  state.counters["rows"] = memo.VisibleRowMax();
}
BENCHMARK(BM_FullPaint60RowsQt)->Unit(benchmark::kMicrosecond);

// The keystroke's row drawn into the Qt back buffer.
void BM_RedrawRowAt500kQt(benchmark::State& state) {
  TOrlMemoWidget& widget = QtWidget();
  TOrlMemo& memo = widget.Memo();
  QImage image(widget.width(), widget.height(), QImage::Format_RGB32);
  TMemoPainter painter(memo);
  for (auto _ : state) {
    TQtMemoCanvas canvas(image, widget.palette());
    painter.PaintLine(canvas, kEditLine);
  }
}
BENCHMARK(BM_RedrawRowAt500kQt)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
