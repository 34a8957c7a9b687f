// Any bytes, or a bundled definition mutated, read as a definition of the
// current layout: into the ini store, through the workbench's format reader,
// and through the engine's loader into a style set, which then colours its
// own text. None may crash or hang, and the store must give back the image
// it was given when that image is read again.

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string_view>
#include <vector>
#include <unistd.h>

#include "definition/DefinitionPages.h"
#include "definition/IniLines.h"
#include "definition/MemIni.h"
#include "platform/CodePages.h"
#include "platform/FileIO.h"
#include "syntax/LineTokeniser.h"
#include "syntax/OrlSyntax.h"

namespace {

using namespace orl;

void Require(bool bHolds) {
  if (!bHolds) std::abort();
}

std::vector<std::u16string> ImageOf(TMemIniFile& store) {
  TStringList image;
  store.GetStrings(image);
  std::vector<std::u16string> lines;
  for (int i = 0; i < image.Count(); ++i) lines.push_back(image.Strings(i));
  return lines;
}

void SetImage(TMemIniFile& store, const std::vector<std::u16string>& lines) {
  TStringList list;
  for (const std::u16string& line : lines) list.Add(line);
  store.SetStrings(list);
}

// A key line written with blanks before its `;` is a key whose trimmed name
// starts with `;`; its image reads back as a comment, which the store drops.
std::vector<std::u16string> WithoutCommentLines(std::vector<std::u16string> lines) {
  std::erase_if(lines, [](const std::u16string& line) { return !line.empty() && line.front() == u';'; });
  return lines;
}

// The loader reads files: one scratch file per fuzzing process.
const std::filesystem::path& ScratchFile() {
  static const std::filesystem::path path =
      std::filesystem::temp_directory_path() / ("definition_fuzz_" + std::to_string(getpid()) + ".gdx");
  return path;
}

void LoadAndColour(std::string_view bytes, const TStringList& lines) {
  std::ofstream(ScratchFile(), std::ios::binary | std::ios::trunc).write(bytes.data(), std::streamsize(bytes.size()));
  TOrlSyntax syntax;
  TOrlMemoStyleSlots memo;
  TStringList sample, info;
  syntax.LoadStyleFromFile(memo, StringFromPath(ScratchFile()), u"Fuzz", sample, info);
  if (!memo.FStyles) return;
  TOrlMemoStrings text;
  for (int i = 0; i < lines.Count() && i < 40; ++i) text.DoAdd(lines.Strings(i));
  TPlainTokeniserHost host;
  TLineTokeniser tokeniser(text, memo, host);
  TStyle style;
  TTokenRunList runs;
  for (int i = 0; i < text.Count(); ++i) {
    tokeniser.ColourLine(i, style, runs);
    Require(runs.CoversRow(text.GetLineString(i).size()));
  }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  TStringList lines;
  for (std::u16string& line : SplitLines(DecodeText(bytes, SystemAnsiCodePage()))) lines.Add(std::move(line));

  TMemIniFile gdx, ini;
  gdx.SetStrings(lines);
  const std::vector<std::u16string> image = ImageOf(gdx);
  TMemIniFile again;
  SetImage(again, image);
  Require(ImageOf(again) == WithoutCommentLines(image));
  ReadDefinitionPages(gdx, ini);

  LoadAndColour(bytes, lines);
  return 0;
}
