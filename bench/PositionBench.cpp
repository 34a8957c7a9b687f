// Positions on a document of 2.4M lines: text offsets to rows and back, and
// what a keystroke costs near the top and near the end of the document once
// folding and the scroll bars take part.

#include <benchmark/benchmark.h>

#include <memory>
#include <random>

#include "editing/HeadlessWindow.h"
#include "editing/OrlMemo.h"

using namespace orl;

namespace {

constexpr int kLines = 2'400'000;

// Lines as a C header has them, 0 to 60 characters.
std::u16string HeaderText() {
  static const std::u16string shapes[] = {
      u"#define ORL_FLAG_", u"typedef struct tag_node { int id; } node_t;", u"", u"/* keeps the order of the list */",
      u"extern int orl_count(const node_t* first, size_t n);", u"  unsigned long value;", u"};", u"#endif"};
  std::u16string text;
  text.reserve(size_t(kLines) * 32);
  for (int i = 0; i < kLines; ++i) {
    text.append(shapes[size_t(i) % std::size(shapes)]);
    if (i % 8 == 0) text.append(std::u16string(1, char16_t(u'A' + i % 26)));
    text.append(u"\r\n");
  }
  text.resize(text.size() - 2);
  return text;
}

/// One memo over the document, made once: loading it is not what is measured.
TOrlMemo& LoadedMemo() {
  static THeadlessWindow window;
  static const std::unique_ptr<TOrlMemo> memo = [] {
    auto m = std::make_unique<TOrlMemo>(&window);
    m->SetText(HeaderText());
    return m;
  }();
  return *memo;
}

void BM_RandomConversions(benchmark::State& state) {
  TOrlMemo& memo = LoadedMemo();
  const int64_t length = memo.TextFromPos(0, memo.Lines().Count());
  std::mt19937_64 random(5);
  for (auto _ : state) {
    int64_t sum = 0;
    for (int i = 0; i < 10'000; ++i) {
      const TFullPos p = memo.PosFromText(int64_t(random() % uint64_t(length)));
      sum += memo.TextFromPos(p.x, p.Y);
    }
    benchmark::DoNotOptimize(sum);
  }
  state.counters["rows"] = memo.Lines().Count();
}
BENCHMARK(BM_RandomConversions)->Unit(benchmark::kMillisecond);

// A pass that hands out every row's attribute for writing (a full scan
// does) makes the store rebuild its offsets at the next conversion.
void BM_RebuildAfterAttributePass(benchmark::State& state) {
  TOrlMemo& memo = LoadedMemo();
  TOrlMemoStrings& lines = memo.Lines();
  int64_t sum = 0;
  for (auto _ : state) {
    for (int row = 0; row < 100; ++row) lines.GetLineAttribute(row * 1000);
    sum += memo.TextFromPos(0, lines.Count() - 1);
  }
  benchmark::DoNotOptimize(sum);
}
BENCHMARK(BM_RebuildAfterAttributePass)->Unit(benchmark::kMillisecond);

// One typed character at row state.range(0): the text changes, the line's
// history moves, the view near the caret asks for its real line and the
// scroll bars for the shown rows above it, and the caret's offset is read.
// A closed fold near the top makes the shown-row counts real work.
void BM_Keystroke(benchmark::State& state) {
  TOrlMemo& memo = LoadedMemo();
  TOrlMemoStrings& lines = memo.Lines();
  memo.FAllowNodes = true;
  memo.FWordWrap = true;  // real lines are counted, not taken as rows
  lines.SetHiddenLine(100, true);
  const int row = int(state.range(0));
  memo.FTopLine = row - 20;
  memo.SetTextCursorValues(3, row);
  int64_t sum = 0;
  for (auto _ : state) {
    lines.InsertAt(row, u"x", 4);
    memo.ChangeLineHistory(row);
    memo.ResizeScrollBars(false, 0);
    sum += memo.GetRealLine(row) + memo.GetVisibleLines(0, memo.FTopLine) + memo.SelStart();
    lines.DeleteAt(row, 4, 1);
  }
  benchmark::DoNotOptimize(sum);
  memo.FWordWrap = false;
  lines.SetHiddenLine(100, false);
}
BENCHMARK(BM_Keystroke)->Arg(2'000)->Arg(2'000'000)->Unit(benchmark::kMicrosecond);

} // namespace

BENCHMARK_MAIN();
