// A keystroke must cost the same at the end of a 2M-line text as near its
// top, and typing a long row must stay linear in the characters typed:
// nothing an edit does may walk the text from its first row.

#include <benchmark/benchmark.h>

#include <map>
#include <memory>
#include <string>

#include "editing/HeadlessWindow.h"
#include "editing/OrlMemo.h"

namespace {
using namespace orl;

constexpr int kLines = 2'000'000;

struct TBenchMemo {
  THeadlessWindow Window;
  std::unique_ptr<TOrlMemo> Memo;
};

/// One memo of kLines lines, built once: filling it is not what is measured.
TOrlMemo& BigMemo() {
  static std::unique_ptr<TBenchMemo> slot;
  if (!slot) {
    slot = std::make_unique<TBenchMemo>();
    slot->Window.Client = {0, 0, 81 * THeadlessWindow::kCellW + 1, 40 * THeadlessWindow::kCellH};
    slot->Memo = std::make_unique<TOrlMemo>(&slot->Window);
    std::u16string text;
    text.reserve(size_t(kLines) * 34);
    for (int i = 0; i < kLines; ++i) text += u"    some text on line number abcd\r\n";
    slot->Memo->SetText(text);
    slot->Memo->ResizeEditor();
    slot->Memo->FocusGained();
  }
  return *slot->Memo;
}

void Press(TOrlMemo& memo, int key, char16_t ch = 0) {
  int k = key;
  memo.KeyDown(k, 0);
  if (ch) memo.KeyPress(ch);
  memo.KeyUp(key, 0);
}

/// The records pile up while the benchmark runs; emptying the list now and
/// then keeps memory flat and costs the same at every row.
void TrimUndo(TOrlMemo& memo, int64_t iteration) {
  if ((iteration & 255) == 0) memo.FUndoList->Clear();
}

/// A character typed and taken back by Backspace, at row range(0).
void BM_KeystrokeAtRow(benchmark::State& state) {
  TOrlMemo& memo = BigMemo();
  const int row = int(state.range(0));
  memo.SetTextCursor(10, row, true);
  int64_t n = 0;
  for (auto _ : state) {
    memo.KeyPress(u'x');
    Press(memo, vkBack);
    TrimUndo(memo, ++n);
  }
}
BENCHMARK(BM_KeystrokeAtRow)->Arg(20)->Arg(kLines - 20);

/// Enter and Backspace: a row is inserted and joined again at row range(0).
void BM_EnterAtRow(benchmark::State& state) {
  TOrlMemo& memo = BigMemo();
  const int row = int(state.range(0));
  memo.FAutoIndent = false;  // the join below must give back the row as it was
  memo.SetTextCursor(10, row, true);
  int64_t n = 0;
  for (auto _ : state) {
    Press(memo, vkReturn, u'\r');
    memo.SetTextCursor(0, row + 1, true);
    Press(memo, vkBack);
    TrimUndo(memo, ++n);
  }
}
BENCHMARK(BM_EnterAtRow)->Arg(20)->Arg(kLines - 20);

/// range(0) lines pasted into the middle of the big text and deleted again as a selection.
void BM_PasteLines(benchmark::State& state) {
  TOrlMemo& memo = BigMemo();
  std::u16string text;
  for (int64_t i = 0; i < state.range(0); ++i) text += u"pasted line\r\n";
  const int row = kLines / 2;
  for (auto _ : state) {
    memo.SetTextCursor(4, row, true);
    memo.InsertText(text, false);
    memo.SetSelection2(4, row, 4, row + int(state.range(0)), false);
    memo.DeleteSelection(true, true, false, false);
    memo.FUndoList->Clear();
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_PasteLines)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

/// range(0) characters typed into one empty row.
void BM_TypeLongRow(benchmark::State& state) {
  THeadlessWindow window;
  window.Client = {0, 0, 81 * THeadlessWindow::kCellW + 1, 40 * THeadlessWindow::kCellH};
  TOrlMemo memo(&window);
  memo.ResizeEditor();
  memo.FocusGained();
  for (auto _ : state) {
    memo.SetText(u"");
    memo.FUndoList->Clear();
    for (int64_t i = 0; i < state.range(0); ++i) {
      memo.KeyPress(char16_t(u'a' + i % 26));
      TrimUndo(memo, i);
    }
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_TypeLongRow)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
