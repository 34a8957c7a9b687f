// Loading a definition with a very long keyword group, and looking words of a
// text up in it the way the tokeniser does (pointer and length, no copies).

#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <string>

#include <unistd.h>

#include "platform/CodePages.h"
#include "syntax/OrlSyntax.h"

namespace {

using namespace orl;

std::u16string Word(int n) {
  const std::string text = "kw" + std::to_string(n * 7919 % 1000003);
  return std::u16string(text.begin(), text.end());
}

struct TBenchDefinition {
  std::filesystem::path Folder;
  std::filesystem::path File;

  explicit TBenchDefinition(int words) {
    std::string pattern = (std::filesystem::temp_directory_path() / "stylebench.XXXXXX").string();
    Folder = ::mkdtemp(pattern.data());
    File = Folder / "Big.gdx";
    std::u16string text = u"[Options]\r\nCase=0\r\n\r\n[Keywords]\r\nBig=";
    for (int i = 0; i < words; ++i) text += Word(i) + u"|";
    text += u"\r\n#Re=\\d+\r\n";
    const std::string bytes = EncodeUtf16LE(text, true);
    std::ofstream(File, std::ios::binary).write(bytes.data(), std::streamsize(bytes.size()));
  }
  ~TBenchDefinition() { std::filesystem::remove_all(Folder); }
};

void BM_LoadDefinition(benchmark::State& state) {
  const TBenchDefinition definition(int(state.range(0)));
  TOrlSyntax syntax;
  TOrlMemoStyleSlots memo;
  for (auto _ : state) {
    std::u16string asp;
    syntax.LoadStyleFromFile(&memo, definition.File.u16string(), u"Big", 0, asp);
    benchmark::DoNotOptimize(memo.FStyles);
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_LoadDefinition)->Arg(100'000)->Unit(benchmark::kMillisecond);

void BM_LookupWordsOfText(benchmark::State& state) {
  const TBenchDefinition definition(100'000);
  TOrlSyntax syntax;
  TOrlMemoStyleSlots memo;
  std::u16string asp;
  syntax.LoadStyleFromFile(&memo, definition.File.u16string(), u"Big", 0, asp);
  THashedStringList& words = memo.FStyles->FKeyWords[0]->KeyWords;
  // Half the words of the text are keywords, half are not.
  std::u16string text;
  for (int i = 0; i < 10'000; ++i) text += (i % 2 ? Word(i * 3) : u"Other" + Word(i)) + u" ";
  for (auto _ : state) {
    int found = 0;
    for (size_t start = 0; start < text.size();) {
      const size_t end = text.find(u' ', start);
      found += words.PIndexOf(text.data() + start, int(end - start)) >= 0;
      start = end + 1;
    }
    benchmark::DoNotOptimize(found);
  }
  state.SetItemsProcessed(state.iterations() * 10'000);
}
BENCHMARK(BM_LookupWordsOfText);

} // namespace

BENCHMARK_MAIN();
