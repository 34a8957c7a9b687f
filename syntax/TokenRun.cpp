#include "syntax/TokenRun.h"

#include "syntax/OrlMemoStyles.h"

namespace orl {

namespace {

template <class TList>
std::u16string_view NameAt(const TList& list, int index) {
  return index >= 0 && size_t(index) < list.size() ? std::u16string_view(list[size_t(index)]->Name) : u"";
}

const TBlock* BlockOf(const TTokenRun& run, const TOrlCustomMemoStyles* styles) {
  if (!styles || run.BlockId < 1 || size_t(run.BlockId) > styles->FBlocks.size()) return nullptr;
  return styles->FBlocks[size_t(run.BlockId - 1)].get();
}

TRunName BlockName(const TBlock& block) { return {rcBlock, block.Name}; }

} // namespace

TRunName ClassifyRun(const TTokenRun& run, const TOrlCustomMemoStyles* styles) {
  const TBlock* block = BlockOf(run, styles);
  if (run.Is(spLineIsUrl)) return {rcUrl, {}};
  // A block coloured as a whole wins over every flag of what stands inside it.
  if (block && block->ForceColor) return BlockName(*block);
  if (run.Is(spInLineComment) || run.Is(spInComment)) return {rcComment, {}};
  if (run.Properties.BracketId == 0) return {rcChar, {}};
  if (run.Properties.BracketId == 1) return {rcString, {}};
  if (run.BlockId == -2) return {rcString, {}};
  if (run.Is(spIsTagWord)) return {rcTag, styles ? NameAt(styles->FTags, run.Properties.TagNr) : u""};
  if (run.Is(spInTag)) return {rcTag, {}};
  if (run.Is(spIsNumber) || run.Is(spIsHexNumber)) return {rcNumber, {}};
  if (run.Is(spIsSymbol)) return {rcSymbol, {}};
  if (run.Is(spIsKeyword)) return {rcKeyword, styles ? NameAt(styles->FKeyWords, run.Properties.Index) : u""};
  if (block) return BlockName(*block);
  return {rcText, {}};
}

std::string_view RunClassName(TRunClass runClass) {
  static constexpr std::string_view kNames[] = {"text",   "keyword", "comment", "string", "char",
                                                "number", "symbol",  "block",   "tag",    "url"};
  return kNames[runClass];
}

} // namespace orl
