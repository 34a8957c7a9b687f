// What the engine costs in memory on a document of 100 MB of C-like source in
// about 2.4M lines: the store after SetTextStr, a memo with the C++
// definition after a full state pass, a load of a UTF-16 file, and what goes
// back to the system when every row is deleted. Each figure is against the
// UTF-16 size of the text (the text with its line endings, two bytes a
// character): the growth of the resident set a row, and its peak over its
// level before the step.
//
// Run one benchmark per process (--benchmark_filter) for clean peaks: the
// generated text stays resident and counts in no figure.

#include <benchmark/benchmark.h>

#include <malloc.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <string>

#include "editing/OrlMemo.h"
#include "platform/FileIO.h"
#include "syntax/OrlSyntax.h"
#include "textstore/OrlMemoStrings.h"
#include "BuildPaths.h"

using namespace orl;

namespace {

constexpr size_t kCharacters = 100'000'000;

// Lines of a C header and its functions: comments, declarations, bodies,
// blank lines; identifiers and numbers vary so rows differ in length.
const std::u16string& DocumentText() {
  static const std::u16string text = [] {
    std::mt19937 random(7);
    const std::u16string names[] = {u"count", u"buffer_size", u"Window", u"next_item", u"flags", u"value",
                                    u"OrlHandle", u"i", u"result", u"text_length"};
    const auto name = [&] { return names[random() % std::size(names)]; };
    const auto number = [&] { return std::u16string(1, char16_t(u'0' + random() % 10)); };
    std::u16string t;
    t.reserve(kCharacters + 200);
    while (t.size() < kCharacters) {
      switch (random() % 16) {
        case 0: t += u"/* " + name() + u" of the " + name() + u" that the caller passes in"; break;
        case 1: t += u"   and keeps until it is freed again. */"; break;
        case 2: t += u"#define ORL_" + name() + u"_MAX " + number() + number() + number(); break;
        case 3: t += u"static int " + name() + u"_" + name() + u"(const char* " + name() + u", size_t n) {"; break;
        case 4: t += u"  for (int " + name() + u" = 0; i < n; ++i) " + name() + u" += " + number() + u";"; break;
        case 5: t += u"  if (" + name() + u" > " + number() + u" && " + name() + u" != NULL) return -1;"; break;
        case 6: t += u"  const char* s = \"" + name() + u" \\\"quoted\\\"\";"; break;
        case 7: t += u"}"; break;
        case 8: t += u""; break;
        case 9: t += u"typedef struct " + name() + u"_s { int " + name() + u"; long " + name() + u"; } " + name() + u"_t;"; break;
        case 10: t += u"extern void " + name() + u"(struct " + name() + u"* p, unsigned " + name() + u");"; break;
        case 11: t += u"  return " + name() + u" * " + number() + u" + " + name() + u"[" + number() + u"];  // " + name(); break;
        case 12: t += u"#include <" + name() + u".h>"; break;
        case 13: t += u"  " + name() + u"->" + name() + u" = " + name() + u"(" + name() + u", " + number() + u");"; break;
        case 14: t += u"  /* " + name() + u" */ " + name() + u" = 0x" + number() + u"F;"; break;
        default: t += u"  switch (" + name() + u") { case " + number() + u": break; default: " + name() + u"(); }"; break;
      }
      t += u"\r\n";
    }
    return t;
  }();
  return text;
}

double TextBytes() { return double(DocumentText().size() * sizeof(char16_t)); }

// Resident set and its peak from /proc, in bytes.
size_t StatusField(const char* field) {
  std::ifstream status("/proc/self/status");
  std::string line;
  while (std::getline(status, line))
    if (line.rfind(field, 0) == 0) return size_t(std::stoull(line.substr(std::string(field).size()))) * 1024;
  return 0;
}
size_t Resident() { return StatusField("VmRSS:"); }
size_t PeakResident() { return StatusField("VmHWM:"); }

/// Starts a measurement: what earlier steps left in the allocator's free
/// lists goes back, and the peak is reset to the current level.
size_t StartMeasuring() {
  malloc_trim(0);
  std::ofstream("/proc/self/clear_refs") << "5";
  return Resident();
}

// Text blocks are mapped from the system, past the allocator's figures: the
// resident set is what counts.
void Report(benchmark::State& state, size_t residentBefore, int rows) {
  const double resident = double(Resident() - residentBefore);
  state.counters["rows"] = rows;
  state.counters["bytes_per_row"] = resident / rows;
  state.counters["rss_x_utf16"] = resident / TextBytes();
  state.counters["peak_rss_x_utf16"] = double(PeakResident() - residentBefore) / TextBytes();
  state.counters["utf16_bytes_per_row"] = TextBytes() / rows;
}

void BM_StoreAfterSetTextStr(benchmark::State& state) {
  DocumentText();
  for (auto _ : state) {
    const size_t resident = StartMeasuring();
    TOrlMemoStrings store;
    store.SetTextStr(DocumentText());
    Report(state, resident, store.Count());
  }
}
BENCHMARK(BM_StoreAfterSetTextStr)->Iterations(1)->Unit(benchmark::kMillisecond);

// As a host has it: the memo given its text and the bundled C++ definition,
// then one full state pass over every row.
void BM_MemoWithStylesAfterFullPass(benchmark::State& state) {
  DocumentText();
  const std::u16string definition = StringFromPath(orl::test::HostDir() / "syntax" / "C++.gdx");
  for (auto _ : state) {
    const size_t resident = StartMeasuring();
    TOrlMemo memo;
    memo.SetText(DocumentText());
    TOrlSyntax syntax;
    std::u16string asp;
    syntax.LoadStyleFromFile(&memo, definition, u"C++", 0, asp);
    memo.RescanLineStyles();
    bool bCached = false;
    memo.GetLineStyle(memo.Lines().Count() - 1, bCached);
    if (!bCached) state.SkipWithError("the full pass left the last line without a state");
    Report(state, resident, memo.Lines().Count());
  }
}
BENCHMARK(BM_MemoWithStylesAfterFullPass)->Iterations(1)->Unit(benchmark::kMillisecond);

std::filesystem::path WriteUtf16File() {
  const std::filesystem::path file = std::filesystem::temp_directory_path() / "orl_engine_memory_bench.txt";
  std::ofstream out(file, std::ios::binary);
  const char16_t mark = 0xFEFF;
  out.write(reinterpret_cast<const char*>(&mark), 2);
  out.write(reinterpret_cast<const char*>(DocumentText().data()), std::streamsize(TextBytes()));
  return file;
}

void BM_LoadUtf16File(benchmark::State& state) {
  const std::filesystem::path file = WriteUtf16File();
  for (auto _ : state) {
    const size_t resident = StartMeasuring();
    TOrlMemoStrings store;
    store.LoadFromFile(file);
    Report(state, resident, store.Count());
  }
  std::filesystem::remove(file);
}
BENCHMARK(BM_LoadUtf16File)->Iterations(1)->Unit(benchmark::kMillisecond);

// Every row deleted from a loaded store: what stays resident, against the
// text's UTF-16 size, with no help from malloc_trim.
void BM_ResidentAfterDeletingEveryRow(benchmark::State& state) {
  DocumentText();
  for (auto _ : state) {
    const size_t resident = StartMeasuring();
    TOrlMemoStrings store;
    store.SetTextStr(DocumentText());
    const double loaded = double(Resident() - resident);
    store.DeleteLinesSilent(0, store.Count() - 1, false);
    state.counters["loaded_rss_x_utf16"] = loaded / TextBytes();
    state.counters["kept_rss_x_utf16"] = double(Resident() - std::min(Resident(), resident)) / TextBytes();
  }
}
BENCHMARK(BM_ResidentAfterDeletingEveryRow)->Iterations(1)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
