#include "textstore/LineStyle.h"

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

} // namespace orl
