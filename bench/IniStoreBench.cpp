// The ini store on long sections: load, hashed lookups, the tokeniser's
// PIndexOf, writes followed by lookups, sorting, and writing the file.

#include <benchmark/benchmark.h>

#include <unistd.h>

#include <filesystem>

#include "definition/OrlIniFiles.h"
#include "platform/CodePages.h"
#include "platform/FileIO.h"

using namespace orl;

namespace {

std::u16string Num(int i) { return Utf8ToUtf16(std::to_string(i)); }

std::u16string KeyName(int i) { return u"key" + Num(i * 7919 % 1000003); }

/// A store with one section of `lines` lines, written to a file once per size.
std::filesystem::path SectionFile(int lines) {
  const auto path = std::filesystem::temp_directory_path() / ("orl_bench_" + std::to_string(::getpid()) + "_" +
                                                              std::to_string(lines) + ".ini");
  if (!FileExists(path)) {
    TMemIniFile ini;
    for (int i = 0; i < lines; ++i) ini.WriteString(u"Words", KeyName(i), u" value " + Num(i));
    ini.Rename(StringFromPath(path), false);
    ini.UpdateFile();
  }
  return path;
}

void BM_Load(benchmark::State& state) {
  const auto path = SectionFile(int(state.range(0)));
  for (auto _ : state) {
    TMemIniFile ini(StringFromPath(path));
    benchmark::DoNotOptimize(ini.SectionLines(u"Words"));
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_Load)->Arg(10000)->Arg(50000)->Arg(200000)->Unit(benchmark::kMillisecond);

// 10,000 lookups after a change, so each round pays one table build too.
void BM_Lookup10k(benchmark::State& state) {
  TMemIniFile ini(StringFromPath(SectionFile(int(state.range(0)))));
  for (auto _ : state) {
    ini.WriteString(u"Words", u"touch", u"x");
    ini.DeleteKey(u"Words", u"touch");
    for (int i = 0; i < 10000; ++i) benchmark::DoNotOptimize(ini.ReadString(u"Words", KeyName(i * 3), u""));
  }
  state.SetItemsProcessed(state.iterations() * 10000);
}
BENCHMARK(BM_Lookup10k)->Arg(10000)->Arg(50000)->Arg(200000)->Unit(benchmark::kMillisecond);

void BM_PIndexOf(benchmark::State& state) {
  THashedStringList words;
  for (int i = 0; i < state.range(0); ++i) words.Add(u"word" + Num(i));
  words.BuildHashTables();
  const std::u16string text = u"WORD17 Word4242 missing word99999 ";
  for (auto _ : state) {
    benchmark::DoNotOptimize(words.PIndexOf(text.data(), 6));
    benchmark::DoNotOptimize(words.PIndexOf(text.data() + 7, 8));
    benchmark::DoNotOptimize(words.PIndexOf(text.data() + 16, 7));
    benchmark::DoNotOptimize(words.PIndexOf(text.data() + 24, 9));
  }
  state.SetItemsProcessed(state.iterations() * 4);
}
BENCHMARK(BM_PIndexOf)->Arg(1000)->Arg(50000);

// New keys, each written then read back: appends keep the tables valid.
void BM_WriteThenRead(benchmark::State& state) {
  for (auto _ : state) {
    TMemIniFile ini;
    for (int i = 0; i < state.range(0); ++i) {
      ini.WriteString(u"S", KeyName(i), u"v");
      benchmark::DoNotOptimize(ini.ReadString(u"S", KeyName(i), u""));
    }
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_WriteThenRead)->Arg(10000)->Arg(50000)->Unit(benchmark::kMillisecond);

void BM_SortSection(benchmark::State& state) {
  const auto path = SectionFile(int(state.range(0)));
  for (auto _ : state) {
    state.PauseTiming();
    TMemIniFile ini(StringFromPath(path));
    state.ResumeTiming();
    ini.SortSection(u"Words");
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_SortSection)->Arg(10000)->Arg(50000)->Unit(benchmark::kMillisecond);

void BM_UpdateFile(benchmark::State& state) {
  TMemIniFile ini(StringFromPath(SectionFile(int(state.range(0)))));
  const auto out = std::filesystem::temp_directory_path() / ("orl_bench_out_" + std::to_string(::getpid()) + ".ini");
  ini.Rename(StringFromPath(out), false);
  for (auto _ : state) ini.UpdateFile();
  std::filesystem::remove(out);
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_UpdateFile)->Arg(50000)->Arg(200000)->Unit(benchmark::kMillisecond);

void RemoveSectionFiles() {
  const std::string prefix = "orl_bench_" + std::to_string(::getpid()) + "_";
  for (const auto& entry : std::filesystem::directory_iterator(std::filesystem::temp_directory_path()))
    if (entry.path().filename().string().starts_with(prefix)) std::filesystem::remove(entry.path());
}

} // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  RemoveSectionFiles();
  return 0;
}
