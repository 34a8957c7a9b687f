// Caret motion, paging and jumps to the ends must cost the same on a text of
// 2M lines as on one of 2k: nothing walks the text from its first row.

#include <benchmark/benchmark.h>

#include <map>
#include <memory>
#include <string>

#include "editing/HeadlessWindow.h"
#include "editing/OrlMemo.h"

namespace {
using namespace orl;

struct TBenchMemo {
  THeadlessWindow Window;
  std::unique_ptr<TOrlMemo> Memo;
};

/// One memo per size, built once: filling 2M lines is not what is measured.
TOrlMemo& MemoWithLines(int lines) {
  static std::map<int, std::unique_ptr<TBenchMemo>> memos;
  std::unique_ptr<TBenchMemo>& slot = memos[lines];
  if (!slot) {
    slot = std::make_unique<TBenchMemo>();
    slot->Window.Client = {0, 0, 81 * THeadlessWindow::kCellW + 1, 40 * THeadlessWindow::kCellH};
    slot->Memo = std::make_unique<TOrlMemo>(&slot->Window);
    std::u16string text;
    text.reserve(size_t(lines) * 32);
    for (int i = 0; i < lines; ++i) text += u"\tsome text on line number " + std::u16string(u"abcdefgh") + u"\r\n";
    slot->Memo->SetText(text);
    slot->Memo->FProcessShortcuts = true;
    slot->Memo->ResizeEditor();
    slot->Memo->FocusGained();
  }
  TOrlMemo& memo = *slot->Memo;
  memo.SetTextCursor(5, lines / 2, true);
  return memo;
}

void Press(TOrlMemo& memo, int key, TShiftState shift = 0) {
  int k = key;
  memo.KeyDown(k, shift);
  memo.KeyUp(key, shift);
}

void BM_ArrowKeys(benchmark::State& state) {
  TOrlMemo& memo = MemoWithLines(int(state.range(0)));
  for (auto _ : state) {
    Press(memo, vkDown);
    Press(memo, vkRight);
    Press(memo, vkUp);
    Press(memo, vkLeft);
    Press(memo, vkDown, ssShift);
    Press(memo, vkUp, ssShift);
  }
}
BENCHMARK(BM_ArrowKeys)->Arg(2'000)->Arg(2'000'000);

void BM_PageUpDown(benchmark::State& state) {
  TOrlMemo& memo = MemoWithLines(int(state.range(0)));
  for (auto _ : state) {
    Press(memo, vkNext);
    Press(memo, vkPrior);
  }
}
BENCHMARK(BM_PageUpDown)->Arg(2'000)->Arg(2'000'000);

void BM_CtrlEndAndHome(benchmark::State& state) {
  TOrlMemo& memo = MemoWithLines(int(state.range(0)));
  for (auto _ : state) {
    Press(memo, vkEnd, ssCtrl);
    Press(memo, vkHome, ssCtrl);
  }
}
BENCHMARK(BM_CtrlEndAndHome)->Arg(2'000)->Arg(2'000'000);

} // namespace

BENCHMARK_MAIN();
