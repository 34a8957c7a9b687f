// Both passes over hostile text with every bundled definition: random
// characters, a 1 MB line, and comments, strings and blocks that never end.
// Each must come back, in time, with runs that cover the row.

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <random>

#include "BundledDefinitions.h"
#include "TokeniserTestKit.h"
#include "platform/FileIO.h"
#include "BuildPaths.h"

namespace orl {
namespace {

namespace fs = std::filesystem;

std::vector<fs::path> BundledDefinitions() { return test::BundledDefinitions(orl::test::HostDir()); }

std::u16string RandomLine(std::mt19937& random, size_t length) {
  static constexpr std::u16string_view kPieces[] = {u"/*", u"*/", u"//", u"\"", u"'", u"\\", u"<", u">", u"</",
                                                   u"<!--", u"-->", u"[[", u"]]", u"<<<", u"`", u"#", u"@",
                                                   u"0x", u"1'0", u"{{", u"}}", u"<?", u"?>", u"(*", u"*)"};
  std::u16string line;
  while (line.size() < length) {
    if (random() % 3 == 0)
      line += kPieces[random() % std::size(kPieces)];
    else
      line.push_back(char16_t(random() % 4 == 0 ? random() % 0x10000 : 32 + random() % 95));
  }
  return line;
}

// Scans every line with both passes; the runs of each row must cover it exactly.
void ScanAll(TLineTokeniser& tokeniser, const TOrlMemoStrings& lines) {
  TStyle style;
  TTokenRunList runs;
  for (int i = 0; i < lines.Count(); ++i) {
    tokeniser.ColourLine(i, style, runs, true);
    ASSERT_TRUE(runs.CoversRow(lines.GetLineString(i).size())) << "line " << i;
  }
}

TEST(TokeniserRobustness, HostileTextUnderEveryBundledDefinitionEndsInTime) {
  std::mt19937 random(7);
  std::vector<std::u16string> random200;
  for (int i = 0; i < 200; ++i) random200.push_back(RandomLine(random, random() % 120));
  const std::vector<std::vector<std::u16string>> texts = {
      random200,
      {RandomLine(random, 1 << 19)},  // 1 MB of UTF-16
      {u"/* never closed", u"(* nor this", u"{ or this", u"<!-- nor this", u"still"},
      {u"\"never closed \\", u"'nor \\' this", u"`template", u"<<<EOT", u"R\"(raw", u"[[ attr", u"<?"},
      {std::u16string(200000, u'<'), std::u16string(200000, u'\\') + u"\"", std::u16string(100000, u'a')},
  };
  for (const fs::path& gdx : BundledDefinitions()) {
    TOrlSyntax syntax;
    TOrlMemoStyleSlots memo;
    TStringList sample, info;
    syntax.LoadStyleFromFile(memo, StringFromPath(gdx), u"Lang", sample, info);
    ASSERT_NE(memo.FStyles, nullptr) << gdx;
    for (const auto& text : texts) {
      TOrlMemoStrings lines;
      for (const std::u16string& line : text) lines.DoAdd(line);
      test::TRecordingHost host;
      host.bAllowURLClick = true;
      TLineTokeniser tokeniser(lines, memo, host);
      const auto started = std::chrono::steady_clock::now();
      ScanAll(tokeniser, lines);
      EXPECT_LT(std::chrono::steady_clock::now() - started, std::chrono::seconds(20)) << gdx;
      tokeniser.ClearLineStylesFrom(0);
      tokeniser.GetUpStyle(lines.Count() - 1, true);
    }
  }
}

} // namespace
} // namespace orl
