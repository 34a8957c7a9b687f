// The line store on a document of 2M lines (about 100 MB of UTF-16): loading
// through the Text setter and the parser against a plain copy of the text,
// rows inserted and deleted at the top, the background thread's reads while
// the text is edited, and the memory the store takes per row.

#include <benchmark/benchmark.h>

#include <malloc.h>

#include <atomic>
#include <cstring>
#include <memory>
#include <random>
#include <thread>

#include "textstore/OrlMemoStrings.h"

using namespace orl;

namespace {

constexpr int kRows = 2'000'000;

// Source-like lines of 0 to 48 characters, 24 on average, ended by CR LF.
const std::u16string& DocumentText() {
  static const std::u16string text = [] {
    std::mt19937 random(42);
    const std::u16string alphabet = u"abcdefghijklmnopqrstuvwxyz_(){};=+ ";
    std::u16string t;
    t.reserve(size_t(kRows) * 26);
    for (int i = 0; i < kRows; ++i) {
      const int length = int(random() % 49);
      for (int c = 0; c < length; ++c) t.push_back(alphabet[random() % alphabet.size()]);
      t.append(u"\r\n");
    }
    t.pop_back();
    t.pop_back();
    return t;
  }();
  return text;
}

// A memo that keeps tabs and wraps nothing: what a typical document costs.
class TPlainMemo : public IMemoStringsOwner {
public:
  TMemoStoreSettings StoreSettings() const override { return {}; }
  TFullPos CaretPos() const override { return {}; }
  void SetCaretPos(TFullPos) override {}
  TMemoSelection Selection() const override { return {}; }
  void LayoutLine(std::u16string_view, TQuickLineCall, std::vector<int>&) override {}
  void RaiseMaxLength(int) override {}
  int GetVisibleLines(int from, int to) override { return to - from + 1; }
  void SetHasTabs(bool) override {}
  void SetBookmarkListValue(int, int) override {}
  void LinesAssigned() override {}
};

// Heap in use, large blocks that the allocator maps on their own included.
size_t HeapInUse() {
  const struct mallinfo2 info = mallinfo2();
  return info.uordblks + info.hblkhd;
}

void SetTextBytes(benchmark::State& state) {
  state.SetBytesProcessed(int64_t(state.iterations()) * int64_t(DocumentText().size() * sizeof(char16_t)));
}

void BM_CopyText(benchmark::State& state) {
  const std::u16string& text = DocumentText();
  std::unique_ptr<char16_t[]> copy(new char16_t[text.size()]);
  for (auto _ : state) {
    std::memcpy(copy.get(), text.data(), text.size() * sizeof(char16_t));
    benchmark::DoNotOptimize(copy.get());
  }
  SetTextBytes(state);
}
BENCHMARK(BM_CopyText)->Unit(benchmark::kMillisecond);

// The same copy into memory the system has not handed out yet, as a load has to.
void BM_CopyTextToFreshMemory(benchmark::State& state) {
  const std::u16string& text = DocumentText();
  for (auto _ : state) {
    std::unique_ptr<char16_t[]> copy(new char16_t[text.size()]);
    std::memcpy(copy.get(), text.data(), text.size() * sizeof(char16_t));
    benchmark::DoNotOptimize(copy.get());
  }
  SetTextBytes(state);
}
BENCHMARK(BM_CopyTextToFreshMemory)->Unit(benchmark::kMillisecond);

// range(0): 1 with a memo attached, 0 as a plain list.
void BM_LoadSetText(benchmark::State& state) {
  TPlainMemo memo;
  const std::u16string& text = DocumentText();
  for (auto _ : state) {
    TOrlMemoStrings store(state.range(0) ? &memo : nullptr);
    store.SetText(text);
    benchmark::DoNotOptimize(store.Count());
    state.PauseTiming();  // freeing 2M rows is not part of the load
    store.Clear();
    state.ResumeTiming();
  }
  SetTextBytes(state);
}
BENCHMARK(BM_LoadSetText)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

void BM_LoadSetTextStr(benchmark::State& state) {
  TPlainMemo memo;
  const std::u16string& text = DocumentText();
  for (auto _ : state) {
    TOrlMemoStrings store(&memo);
    store.SetTextStr(text);
    benchmark::DoNotOptimize(store.Count());
    state.PauseTiming();
    store.Clear();
    state.ResumeTiming();
  }
  SetTextBytes(state);
}
BENCHMARK(BM_LoadSetTextStr)->Unit(benchmark::kMillisecond);

// Heap taken by a loaded store, against the UTF-16 size of its text.
void BM_MemoryAfterLoad(benchmark::State& state) {
  TPlainMemo memo;
  const double textBytes = double(DocumentText().size() * sizeof(char16_t));
  for (auto _ : state) {
    const size_t before = HeapInUse();
    TOrlMemoStrings store(&memo);
    store.SetText(DocumentText());
    const double heap = double(HeapInUse() - before);
    state.counters["heap_per_row"] = heap / store.Count();
    state.counters["heap_x_text"] = heap / textBytes;
    state.counters["store_bytes_per_row"] = double(store.AllocatedBytes()) / store.Count();
    state.counters["text_per_row"] = textBytes / store.Count();
    if (state.range(0)) {  // every row with an attribute of its own, as after a full scan
      for (int i = 0; i < store.Count(); ++i) store.GetLineAttribute(i);
      const double owned = double(HeapInUse() - before);
      state.counters["owned_heap_per_row"] = owned / store.Count();
      state.counters["owned_heap_x_text"] = owned / textBytes;
    }
  }
}
BENCHMARK(BM_MemoryAfterLoad)->Arg(0)->Arg(1)->Iterations(1)->Unit(benchmark::kMillisecond);

TOrlMemoStrings& LoadedStore(IMemoStringsOwner* memo) {
  static TOrlMemoStrings store(memo);
  if (store.Count() == 0) store.SetText(DocumentText());
  return store;
}

// Enter typed again and again at the top: one new row each time.
void BM_InsertRowAtTop(benchmark::State& state) {
  static TPlainMemo memo;
  TOrlMemoStrings& store = LoadedStore(&memo);
  int inserted = 0;
  for (auto _ : state) {
    store.DoInsert(0, u"");
    ++inserted;
  }
  store.DeleteLinesSilent(0, inserted - 1, false);  // after the loop: not timed
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_InsertRowAtTop)->Iterations(200000);

void BM_InsertDeleteRowAtTop(benchmark::State& state) {
  static TPlainMemo memo;
  TOrlMemoStrings& store = LoadedStore(&memo);
  for (auto _ : state) {
    store.DoInsert(0, u"new row");
    store.DoDelete(0);
  }
  state.SetItemsProcessed(state.iterations() * 2);
}
BENCHMARK(BM_InsertDeleteRowAtTop);

// The worst case of the gap: edits alternating between both ends of the text.
void BM_InsertAtAlternateEnds(benchmark::State& state) {
  static TPlainMemo memo;
  TOrlMemoStrings& store = LoadedStore(&memo);
  bool bTop = true;
  for (auto _ : state) {
    const int at = bTop ? 0 : store.Count();
    store.DoInsert(at, u"x");
    store.DoDelete(at);
    bTop = !bTop;
  }
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_InsertAtAlternateEnds)->Unit(benchmark::kMicrosecond);

// 1M reads by the background thread's accessor; with range(0) another
// thread types rows and characters near the top meanwhile.
void BM_ThreadReadsWhileEditing(benchmark::State& state) {
  static TPlainMemo memo;
  TOrlMemoStrings& store = LoadedStore(&memo);
  std::atomic<bool> stop = !state.range(0);
  std::atomic<long> edits = 0;
  std::thread editor([&] {
    for (int step = 0; !stop; ++step) {
      store.DoInsert(step % 100, u"typed");
      store.InsertAt(step % 100 + 1, u"x", 1);
      store.DoDelete(step % 100 + 2);
      ++edits;
    }
  });
  std::mt19937 random(1);
  for (auto _ : state) {
    size_t characters = 0;
    for (int i = 0; i < 1'000'000; ++i) {
      const TSharedWideString row = store.GetLineStringFromThread(int(random() % kRows));
      characters += row.size();
    }
    benchmark::DoNotOptimize(characters);
  }
  stop = true;
  editor.join();
  state.counters["edits"] = double(edits);
  state.SetItemsProcessed(state.iterations() * 1'000'000);
}
BENCHMARK(BM_ThreadReadsWhileEditing)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

BENCHMARK_MAIN();
