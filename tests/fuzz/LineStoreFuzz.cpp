// Any text parsed into the line store's rows: SetTextStr, its silent twin and
// the Text setter that reuses rows must cut the same rows (except that the
// setter adds no empty row behind a final lone CR), the rows must hold no
// line-ending character, and the text read back must be the rows joined with
// CR LF.

#include <fuzzer/FuzzedDataProvider.h>

#include <cstdlib>

#include "textstore/OrlMemoStrings.h"

namespace {

using namespace orl;

void Require(bool bHolds) {
  if (!bHolds) std::abort();
}

std::vector<std::u16string> Rows(const TOrlMemoStrings& store) {
  std::vector<std::u16string> rows;
  for (int i = 0; i < store.Count(); ++i) rows.emplace_back(store.GetLineString(i));
  return rows;
}

std::u16string Joined(const std::vector<std::u16string>& rows) {
  std::u16string text;
  for (size_t i = 0; i < rows.size(); ++i) text += (i ? u"\r\n" : u"") + rows[i];
  return text;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  FuzzedDataProvider provider(data, size);
  // Mostly line endings and plain letters, so that endings meet in every combination.
  std::u16string text;
  while (provider.remaining_bytes() > 0) {
    const uint8_t b = provider.ConsumeIntegral<uint8_t>();
    if (b < 64)
      text.push_back(u"\r\n\t a"[b % 5]);
    else
      text.push_back(b < 128 ? char16_t(b) : char16_t(b << 8 | provider.ConsumeIntegral<uint8_t>()));
  }

  // Stores are kept across inputs: a new one sets up its text blocks, which costs more than a parse.
  static TOrlMemoStrings parsed, silent, reused;
  parsed.SetTextStr(text);
  const std::vector<std::u16string> rows = Rows(parsed);
  for (const std::u16string& row : rows) Require(row.find_first_of(u"\r\n") == std::u16string::npos);
  Require(parsed.GetTextStr() == Joined(rows));

  silent.SetTextStrSilent(text);
  Require(Rows(silent) == rows);

  // The Text setter over rows that are already there reuses them and must come to the same.
  if (text.empty()) return 0;  // an empty text leaves the rows as they are
  reused.SetTextStr(u"old\r\nrows\nstay?");
  reused.SetText(text);
  std::vector<std::u16string> expected = rows;
  if (text.back() == u'\r' && !expected.empty() && expected.back().empty()) expected.pop_back();
  Require(Rows(reused) == expected);
  return 0;
}
