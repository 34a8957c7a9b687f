// A random style set over random text: both passes of the tokeniser must end
// without a crash or a hang, the colouring pass's runs must cover each row
// exactly, and the state GetUpStyle computes in a cold store must equal the
// one a scan from the top carries, since the text is too short for the
// 100-line walk to cut in.

#include <fuzzer/FuzzedDataProvider.h>

#include <cstdlib>

#include "syntax/LineTokeniser.h"

namespace {

using namespace orl;

void Require(bool bHolds) {
  if (!bHolds) std::abort();
}

// Long enough for the lines that once made a recogniser or a pattern work without end.
constexpr size_t kMaxLineLength = 4096;

std::u16string Text(FuzzedDataProvider& data, size_t maxLength) {
  const std::string bytes = data.ConsumeRandomLengthString(maxLength);
  return std::u16string(bytes.begin(), bytes.end());
}

std::unique_ptr<TRegexPattern> Pattern(const std::u16string& text) {
  std::u16string error;
  return text.empty() ? nullptr : TRegexPattern::Compile(text, true, error);
}

void FillOptions(FuzzedDataProvider& data, TOrlCustomMemoStyles& s) {
  s.FSyntaxName = u"Fuzz";
  for (std::u16string* field : {&s.FLineCommentA, &s.FLineCommentB, &s.FCommentStartA, &s.FCommentEndA,
                                &s.FCommentStartB, &s.FCommentEndB, &s.FEscape, &s.FHexIdentifier,
                                &s.FDigitSeparator, &s.FSymbols, &s.FBlockEsc, &s.FEndOpenBlockAt,
                                &s.FHereDocSymbol, &s.FCommentEsc})
    *field = Text(data, 4);
  s.FNumericChars = Text(data, 12);
  for (std::u16string* words : {&s.FSymbolWordsA, &s.FSymbolWordsB, &s.FSymbolWordsC})
    *words = data.ConsumeBool() ? u" " + Text(data, 8) + u" " : u"";
  s.FCharSymbol = data.ConsumeIntegral<char16_t>() & 0x7F;
  s.FStringSymbol = data.ConsumeIntegral<char16_t>() & 0x7F;
  s.FVerbatimStringStart = data.ConsumeIntegral<char16_t>() & 0x7F;
  s.FAllowNestedComments = data.ConsumeBool();
  s.FAllowEscapeOutsideString = data.ConsumeBool();
  s.FStringLine = data.ConsumeBool();
  s.FOnlyHighlightInBlock = data.ConsumeBool();
  s.FAllowHighlightBetweenTags = data.ConsumeBool();
  s.FNumbersAsSymbols = data.ConsumeBool();
  s.FOnlyLineCommentIfFirstChar = data.ConsumeIntegralInRange(0, 2);
  s.FOnlyLineCommentIfFirstCharB = data.ConsumeIntegralInRange(0, 2);
}

void FillRules(FuzzedDataProvider& data, TOrlCustomMemoStyles& s) {
  for (int n = data.ConsumeIntegralInRange(0, 4); n > 0; --n) {
    auto block = std::make_unique<TBlock>();
    block->Name = data.ConsumeBool() ? u"#B" : u"B";
    block->Start = Text(data, 6);
    block->Stop = Text(data, 6);
    block->OnlyAfter = Text(data, 3);
    block->ForceColor = data.ConsumeBool();
    block->LineBlock = data.ConsumeBool();
    block->FirstOnLine = data.ConsumeBool();
    block->HighlightBlocks = data.ConsumeBool();
    block->HighlightKeywords = data.ConsumeBool();
    if (block->IsRegEx()) {
      block->StartPattern = Pattern(block->Start);
      block->StopPattern = Pattern(block->Stop);
    }
    s.FBlocks.push_back(std::move(block));
  }
  for (auto* groups : {&s.FKeyWords, &s.FTags}) {
    for (int n = data.ConsumeIntegralInRange(0, 3); n > 0; --n) {
      auto group = std::make_unique<TKeyWord>();
      group->RegEx = groups == &s.FKeyWords && data.ConsumeBool();
      if (group->RegEx) {
        group->sRegEx = Text(data, 10);
        group->Pattern = Pattern(group->sRegEx);
      } else {
        group->SetWords({Text(data, 6), Text(data, 6), Text(data, 6)});
      }
      group->PrepareLookup(false);
      groups->push_back(std::move(group));
    }
  }
}

// Both passes over every line; the end state of each line.
std::vector<TStyle> ScanAll(TLineTokeniser& tokeniser, const TOrlMemoStrings& lines) {
  std::vector<TStyle> states;
  TStyle style;
  TTokenRunList runs;
  for (int i = 0; i < lines.Count(); ++i) {
    tokeniser.ColourLine(i, style, runs);
    Require(runs.CoversRow(lines.GetLineString(i).size()));
    states.push_back(style);
  }
  return states;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
  FuzzedDataProvider data(bytes, size);
  TOrlMemoStyleSlots memo;
  auto* styles = new TOrlCustomMemoStyles(&memo);
  FillOptions(data, *styles);
  FillRules(data, *styles);
  memo.SetStyles(styles);
  memo.FHtml = !styles->FTags.empty();
  memo.XML = data.ConsumeBool();
  TOrlMemoStrings lines;
  for (int n = data.ConsumeIntegralInRange(1, 60); n > 0 && data.remaining_bytes() > 0; --n)
    lines.DoAdd(Text(data, kMaxLineLength));
  TPlainTokeniserHost host;
  host.bAllowURLClick = data.ConsumeBool();
  TLineTokeniser tokeniser(lines, memo, host);
  const std::vector<TStyle> states = ScanAll(tokeniser, lines);
  if (states.empty()) return 0;
  TStyle cold = tokeniser.GetUpStyle(lines.Count() - 1, false);
  cold.Set(sfCached, false);  // the walk stores what it computes, which marks it cached
  Require(cold == states.back());
  return 0;
}
