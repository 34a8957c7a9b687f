#include "textstore/LineStyle.h"

#include <string_view>

#include "textstore/HashCombine.h"

namespace orl {

void TStyle::Clear(bool bFolding) {
  FBooleanArray = 0;
  NodeSection = -1;
  Properties.FBooleanArray = 0;
  Properties.BracketId = -1;
  Properties.Index = -1;
  Properties.ScriptStringId = -1;
  Properties.CommentStyle = 0;
  Properties.ScriptType = scNone;
  Properties.ScriptTypeOld = scNone;
  Block.Id = -1;
  Block.Force = false;
  Block.IsLine = false;
  Block.Cache.clear();
  if (!bFolding) return;
  NodeStyles.clear();
  RegionStyles.clear();
}

bool TStyle::operator==(const TStyle& other) const {
  return FBooleanArray == other.FBooleanArray && NodeSection == other.NodeSection &&
         Properties == other.Properties && Block == other.Block && NodeStyles == other.NodeStyles &&
         RegionStyles == other.RegionStyles;
}

size_t TStyle::Hash() const {
  size_t seed = 0;
  const auto mix = [&seed](size_t value) { HashCombine(seed, value); };
  mix(FBooleanArray);
  mix(size_t(NodeSection));
  mix(Properties.FBooleanArray);
  mix(size_t(Properties.ScriptType) << 8 | size_t(uint8_t(Properties.BracketId)) << 16 |
      size_t(uint8_t(Properties.Index)) << 24 | size_t(uint8_t(Properties.CommentStyle)) << 32);
  mix(size_t(uint8_t(Block.Id)));
  HashCombine(seed, std::u16string_view(Block.HereDocString));
  mix(Block.Cache.size());
  mix(NodeStyles.size());
  mix(RegionStyles.size());
  mix(Generation);
  return seed;
}

} // namespace orl
