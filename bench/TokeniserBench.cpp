// The line tokeniser under the bundled definitions: both passes over 10 MB of
// C-like source and of HTML with embedded script and style text; the cost of
// one keystroke near the top of a 1M-line and of a 1k-line file (invalidate
// from that line, then bring the ~50 visible rows up to date), which must not
// depend on the file's length; and GetUpStyle on a cold file, which the
// 100-line walk bounds where blank lines stand and a file without any does not.

#include <benchmark/benchmark.h>

#include <filesystem>
#include <memory>

#include "platform/FileIO.h"
#include "syntax/LineTokeniser.h"
#include "syntax/OrlSyntax.h"
#include "BuildPaths.h"

using namespace orl;

namespace {

constexpr size_t kTenMegabytes = 10u << 20;
constexpr int kVisibleRows = 50;

const std::u16string_view kCLines[] = {
    u"/* A comment block that explains the function below",
    u"   and goes on over a second line */",
    u"static int Compute(const std::vector<int>& items, double factor) {",
    u"  int total = 0x1F + 1'000;  // running sum",
    u"  for (size_t i = 0; i < items.size(); ++i) total += items[i] * 2;",
    u"  const char* text = \"a \\\"quoted\\\" string\";",
    u"  if (total > 100 && factor != 0.5) return total;",
    u"#include <algorithm>",
    u"  [[nodiscard]] auto raw = R\"(raw text)\";",
    u"}",
};

const std::u16string_view kHtmlLines[] = {
    u"<div class=\"row\" id=\"item-42\">",
    u"  <p>Some text with an entity &amp; a <a href=\"https://example.com/\">link</a>.</p>",
    u"  <!-- a comment",
    u"       over two lines -->",
    u"  <script>",
    u"    var x = 1 + 2; if (x < 3) { document.write('<b>bold</b>'); }",
    u"  </script>",
    u"  <style> body { color: #333; margin: 0 auto; } </style>",
    u"  <img src=\"a.png\" alt=\"picture\"/> {{ template }}",
    u"</div>",
};

/// A bundled definition loaded as a memo loads it.
struct TLoaded {
  explicit TLoaded(const char* name) {
    const std::filesystem::path gdx = orl::test::HostDir() / "syntax" / (std::string(name) + ".gdx");
    TStringList sample, info;
    Syntax.LoadStyleFromFile(Memo, StringFromPath(gdx), u"Bench", sample, info);
  }
  TOrlSyntax Syntax;
  TOrlMemoStyleSlots Memo;
};

/// A document of `rows` lines repeating `lines`; returns its size in bytes of UTF-16.
template <size_t N>
size_t Fill(TOrlMemoStrings& store, const std::u16string_view (&lines)[N], size_t bytes, int rows = 0) {
  size_t total = 0;
  for (size_t i = 0; rows ? int(i) < rows : total < bytes; ++i) {
    store.DoAdd(lines[i % N]);
    total += lines[i % N].size() * 2;
  }
  return total;
}

/// A repeated text under a bundled definition, with its tokeniser.
struct TDocument {
  template <size_t N>
  TDocument(const char* definition, const std::u16string_view (&lines)[N], size_t bytes, int rows = 0)
      : Loaded(definition), Bytes(Fill(Store, lines, bytes, rows)), Tokeniser(Store, Loaded.Memo, Host) {}

  /// Bytes and lines a pass over the whole document goes through.
  void ReportThroughput(benchmark::State& state) const {
    state.SetBytesProcessed(int64_t(state.iterations() * Bytes));
    state.counters["lines/s"] = benchmark::Counter(double(Store.Count()), benchmark::Counter::kIsIterationInvariantRate);
  }

  TLoaded Loaded;
  TOrlMemoStrings Store;
  size_t Bytes;
  TPlainTokeniserHost Host;
  TLineTokeniser Tokeniser;
};

template <size_t N>
void StatePass(benchmark::State& state, const char* definition, const std::u16string_view (&lines)[N]) {
  TDocument doc(definition, lines, kTenMegabytes);
  for (auto _ : state) {
    TStyle style;
    for (int i = 0; i < doc.Store.Count(); ++i) doc.Tokeniser.GetUpLineStyle(i, 0, -1, style, false);
    benchmark::DoNotOptimize(style);
  }
  doc.ReportThroughput(state);
}

template <size_t N>
void ColourPass(benchmark::State& state, const char* definition, const std::u16string_view (&lines)[N]) {
  TDocument doc(definition, lines, kTenMegabytes);
  TOrlMemoStrings& store = doc.Store;
  TLineTokeniser& tokeniser = doc.Tokeniser;
  std::vector<TStyle> starts(size_t(store.Count()));
  TStyle style;
  for (int i = 0; i + 1 < store.Count(); ++i) {
    tokeniser.GetUpLineStyle(i, 0, -1, style, false);
    starts[size_t(i + 1)] = style;
  }
  TTokenRunList runs;
  runs.Runs.reserve(256);
  for (auto _ : state) {
    size_t count = 0;
    for (int i = 0; i < store.Count(); ++i) {
      runs.Clear();
      tokeniser.DrawSegments(store.GetLineString(i), starts[size_t(i)], runs);
      count += runs.Runs.size();
    }
    benchmark::DoNotOptimize(count);
  }
  doc.ReportThroughput(state);
}

void BM_StatePass_C(benchmark::State& state) { StatePass(state, "C++", kCLines); }
void BM_StatePass_Html(benchmark::State& state) { StatePass(state, "HTML", kHtmlLines); }
void BM_ColourPass_C(benchmark::State& state) { ColourPass(state, "C++", kCLines); }
void BM_ColourPass_Html(benchmark::State& state) { ColourPass(state, "HTML", kHtmlLines); }

// One character typed on line 10, then the visible rows 0..49 repainted: each
// row's start state through GetUpStyle, its record stored as the painter does.
void BM_KeystrokeNearTop(benchmark::State& state) {
  TDocument doc("C++", kCLines, 0, int(state.range(0)));
  TOrlMemoStrings& store = doc.Store;
  TLineTokeniser& tokeniser = doc.Tokeniser;
  tokeniser.GetUpStyle(kVisibleRows, false);
  TTokenRunList runs;
  for (auto _ : state) {
    tokeniser.ClearLineStylesFrom(10);
    for (int row = 0; row < kVisibleRows; ++row) {
      bool bCashed = false;
      TStyle start = row > 0 ? tokeniser.GetLineStyle(row - 1, bCashed) : TStyle();
      if (row > 0 && !bCashed) start = tokeniser.GetUpStyle(row - 1, false);
      runs.Clear();
      tokeniser.DrawSegments(store.GetLineString(row), start, runs);
    }
    benchmark::DoNotOptimize(runs.Runs.data());
  }
  state.counters["rows"] = double(store.Count());
}

// The state of a line far down a 1M-line file that was never scanned: with a
// blank line every range(0) lines the walk stops at the first one beyond 100
// lines up; with none (0) it has to start at line 0.
void BM_GetUpStyleCold(benchmark::State& state) {
  TLoaded loaded("C++");
  TOrlMemoStrings store;
  const int blankEvery = int(state.range(0));
  for (int i = 0; i < 1'000'000; ++i)
    store.DoAdd(blankEvery && i % blankEvery == 0 ? std::u16string_view() : kCLines[size_t(i) % std::size(kCLines)]);
  TPlainTokeniserHost host;
  TLineTokeniser tokeniser(store, loaded.Memo, host);
  int line = 500'000;
  for (auto _ : state) {
    tokeniser.ClearLineStylesFrom(0);
    benchmark::DoNotOptimize(tokeniser.GetUpStyle(line, false));
    line = line == 500'000 ? 900'000 : 500'000;
  }
}

} // namespace

BENCHMARK(BM_StatePass_C)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_StatePass_Html)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ColourPass_C)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ColourPass_Html)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_KeystrokeNearTop)->Arg(1'000)->Arg(1'000'000)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_GetUpStyleCold)->Arg(0)->Arg(150)->Unit(benchmark::kMicrosecond);

BENCHMARK_MAIN();
