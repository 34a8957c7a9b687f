// Any bytes, read as a definition file is read, convert without a crash or a
// hang, and the result goes through the workbench's reader and writer. Three
// properties are checked on the way: the conversion fills only the sections of
// the current layout, with running numbers where the keys are numbered; the
// one-pass look ahead answers as a scan from each line would; and writes held
// back in a buffer leave a store as the same writes made directly.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <string_view>
#include <vector>

#include "definition/DefinitionFormat.h"
#include "definition/DefinitionPages.h"
#include "definition/IniLines.h"
#include "definition/IniWriteBuffer.h"
#include "definition/LegacyConversion.h"
#include "platform/CodePages.h"

namespace {

using namespace orl;

void Require(bool bHolds) {
  if (!bHolds) std::abort();
}

// The look ahead as the rule reads: scan the lines behind `index` one by one.
bool ScannedHasContent(const TStringList& lines, int index) {
  for (int k = index + 1; k < lines.Count(); ++k) {
    const std::u16string_view trimmed = TrimBlanks(lines.Strings(k));
    if (trimmed.starts_with(u'{')) {
      while (k < lines.Count() && lines.Strings(k).find(u'}') == std::u16string::npos) ++k;
      continue;
    }
    if (trimmed.empty() || trimmed == u">" || trimmed.starts_with(u';') || trimmed.starts_with(u"//")) continue;
    return legacy::MarkerOf(trimmed) == legacy::TMarker::mkNone;
  }
  return false;
}

// Both reference checks below are quadratic at worst; big inputs test the rest only.
constexpr int kReferenceLimit = 2000;

void CheckLookahead(const TStringList& lines) {
  if (lines.Count() > kReferenceLimit) return;
  const legacy::TContentLookahead ahead(lines);
  for (int i = 0; i < lines.Count(); ++i) Require(ahead.NextHasContent(i) == ScannedHasContent(lines, i));
}

bool IsRunningNumber(std::u16string_view name) {
  if (name.empty() || name.front() == u'0') return false;
  for (char16_t c : name)
    if (c < u'0' || c > u'9') return false;
  return true;
}

void CheckSections(TMemIniFile& store, std::span<const std::u16string_view> allowed) {
  TStringList names;
  store.ReadSections(names);
  for (int s = 0; s < names.Count(); ++s) {
    const std::u16string& section = names.Strings(s);
    Require(std::find(allowed.begin(), allowed.end(), section) != allowed.end());
    if (section != sections::Comment && section != sections::Hints && section != sections::UserMenu &&
        section != sections::Sample)
      continue;
    TStringList lines;
    store.ReadSection(section, lines);
    for (int i = 0; i < lines.Count(); ++i) Require(IsRunningNumber(lines.Strings(i)));
  }
}

std::vector<std::u16string> ImageOf(const TMemIniFile& store) {
  TStringList image;
  store.GetStrings(image);
  std::vector<std::u16string> lines;
  for (int i = 0; i < image.Count(); ++i) lines.push_back(image.Strings(i));
  return lines;
}

// Each input line is one write, `ident|value`, to one of three sections whose
// names differ in case only or not at all.
void CheckWriteBuffer(const TStringList& lines) {
  if (lines.Count() > kReferenceLimit) return;
  constexpr std::u16string_view kSections[] = {u"S", u"s", u"T"};
  TMemIniFile direct, buffered;
  TIniWriteBuffer buffer(buffered);
  for (int i = 0; i < lines.Count(); ++i) {
    const std::u16string_view line = lines.Strings(i);
    const size_t bar = line.find(u'|');
    const std::u16string_view ident = line.substr(0, bar);
    const std::u16string_view value = bar == std::u16string_view::npos ? u"" : line.substr(bar + 1);
    direct.WriteString(kSections[i % 3], ident, value);
    buffer.WriteString(kSections[i % 3], ident, value);
  }
  buffer.Flush();
  Require(ImageOf(direct) == ImageOf(buffered));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  TStringList lines;
  for (std::u16string& line : SplitLines(DecodeText(bytes, SystemAnsiCodePage()))) lines.Add(std::move(line));
  CheckLookahead(lines);
  CheckWriteBuffer(lines);

  TMemIniFile gdx, ini;
  ConvertLinesToNew(lines, gdx, ini);
  CheckSections(gdx, GdxSections());
  CheckSections(ini, IniSections());

  const TDefinitionPages pages = ReadDefinitionPages(gdx, ini);
  WriteDefinitionStores(pages, gdx, ini, "fuzz.gdx");
  TStringList image;
  gdx.GetStrings(image);
  ini.GetStrings(image);
  return 0;
}
