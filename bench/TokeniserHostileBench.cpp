// Lines written to make the tokeniser work without end, about 1 MB of UTF-16
// each, through both passes: a line of nested comment openers, a line of
// comment pairs on the background thread's path (which looks for to-do words
// behind each), a line comment rule over a line of leading blanks, and long
// rows inside a block whose end pattern backtracks without end. Their time per
// MB is to be held against ordinary code (bench_tokeniser's StatePass_C and
// ColourPass_C).

#include <benchmark/benchmark.h>

#include "syntax/LineTokeniser.h"

using namespace orl;

namespace {

constexpr size_t kOneMegabyteOfChars = 1u << 19;

std::u16string Repeat(std::u16string_view piece, size_t chars) {
  std::u16string out;
  out.reserve(chars + piece.size());
  while (out.size() < chars) out += piece;
  return out;
}

/// A style set made in place, with the options and blocks a case needs.
struct THostileDocument {
  THostileDocument() : Styles(new TOrlCustomMemoStyles(&Memo)), Tokeniser(Store, Memo, Host) {
    Styles->FSyntaxName = u"Hostile";
    Styles->FSymbols = u";/";
    Styles->FNumericChars = u"0123456789";
  }
  void AddBlock(std::u16string_view start, std::u16string_view stop) {
    auto block = std::make_unique<TBlock>();
    block->Name = u"#Backtracking";
    block->Start = start;
    block->Stop = stop;
    std::u16string error;
    block->StartPattern = TRegexPattern::Compile(start, true, error);
    block->StopPattern = TRegexPattern::Compile(stop, true, error);
    Styles->FBlocks.push_back(std::move(block));
  }
  void Use() { Memo.SetStyles(Styles); }
  size_t Bytes() const {
    size_t chars = 0;
    for (int i = 0; i < Store.Count(); ++i) chars += Store.GetLineString(i).size();
    return chars * 2;
  }

  TOrlMemoStyleSlots Memo;
  TOrlCustomMemoStyles* Styles;  // owned by Memo once used
  TOrlMemoStrings Store;
  TPlainTokeniserHost Host;
  TLineTokeniser Tokeniser;
};

enum THostileCase { hcNestedOpeners, hcCommentPairsOnThread, hcLeadingBlanks, hcBacktrackingEnd };

void Prepare(THostileDocument& doc, THostileCase which) {
  TOrlCustomMemoStyles& s = *doc.Styles;
  switch (which) {
    case hcNestedOpeners:
      s.FCommentStartA = u"/*";
      s.FCommentEndA = u"*/";
      s.FAllowNestedComments = true;
      doc.Store.DoAdd(Repeat(u"/* ", kOneMegabyteOfChars));
      break;
    case hcCommentPairsOnThread:
      s.FCommentStartA = u"/*";
      s.FCommentEndA = u"*/";
      doc.Store.DoAdd(Repeat(u"/**/", kOneMegabyteOfChars));
      break;
    case hcLeadingBlanks:
      s.FLineCommentA = u"//";
      s.FOnlyLineCommentIfFirstChar = 1;
      doc.Store.DoAdd(std::u16string(kOneMegabyteOfChars / 2, u' ') + u"x" + Repeat(u" /", kOneMegabyteOfChars / 2));
      break;
    case hcBacktrackingEnd:
      doc.AddBlock(u"<<", u"(a+)+$");
      for (size_t chars = 0; chars < kOneMegabyteOfChars; chars += 5004)
        doc.Store.DoAdd(u"<< " + std::u16string(5000, u'a') + u"b");
      break;
  }
  doc.Use();
}

void BM_HostileLines(benchmark::State& state) {
  THostileDocument doc;
  const auto which = THostileCase(state.range(0));
  Prepare(doc, which);
  const bool bThread = which == hcCommentPairsOnThread;
  TTokenRunList runs;
  for (auto _ : state) {
    TStyle style;
    for (int i = 0; i < doc.Store.Count(); ++i) {
      runs.Clear();
      doc.Tokeniser.DrawSegments(doc.Store.GetLineString(i), style, runs);
      doc.Tokeniser.GetUpLineStyleFromThread(i, 0, -1, style, false, false, bThread, false);
    }
    benchmark::DoNotOptimize(runs.Runs.data());
  }
  state.SetBytesProcessed(int64_t(state.iterations() * doc.Bytes()));
}

} // namespace

BENCHMARK(BM_HostileLines)
    ->ArgName("case")
    ->Arg(hcNestedOpeners)
    ->Arg(hcCommentPairsOnThread)
    ->Arg(hcLeadingBlanks)
    ->Arg(hcBacktrackingEnd)
    ->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
