#pragma once
// One fold rule. Alternatives stay joined by "|" and the command word of
// wEndBefore stays in front: the fold scan splits them itself.

#include <string>

#include "textstore/CodeExplorerKind.h"

namespace orl {

struct TNodes {
  std::u16string wId;
  std::u16string wStart;
  std::u16string wEnd;
  std::u16string wEndBefore;
  std::u16string wSection;
  bool bNoParentOfId = false;
  bool bNotAlwaysEnded = false;
  int nIndent = 0;
  TCEListItemType list_Item = ceNone;
};

} // namespace orl
