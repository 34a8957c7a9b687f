#include "syntax/MemoStyleSlots.h"

#include <algorithm>
#include <vector>

namespace orl {

std::array<TOrlCustomMemoStyles**, 8> TOrlMemoStyleSlots::HtmlSlots() {
  return {&FHtmlStyle,   &FHtmlStyleASP, &FHtmlStylePHP, &FHtmlStyleJS,
          &FHtmlStyleVB, &FHtmlStyleCSS, &FHtmlStyleCF,  &FHtmlStyleSVG};
}

void TOrlMemoStyleSlots::FreeSyntaxStyles() {
  ++FFoldUpdatesStopped;
  // The current pointers may point at a slot's set (the scan switches
  // between them): collect each set once before freeing.
  std::vector<TOrlCustomMemoStyles*> owned;
  auto take = [&owned](TOrlCustomMemoStyles*& slot) {
    if (slot && std::find(owned.begin(), owned.end(), slot) == owned.end()) owned.push_back(slot);
    slot = nullptr;
  };
  take(FStyles);
  for (TOrlCustomMemoStyles** slot : HtmlSlots()) take(*slot);
  for (TOrlCustomMemoStyles* styles : owned) delete styles;
  FStylesThread = FOldStyles = FOldStylesThread = nullptr;
  --FFoldUpdatesStopped;
  StylesChanged();
}

void TOrlMemoStyleSlots::SetStyles(TOrlCustomMemoStyles* styles) {
  FStyles = styles;
  FStylesThread = styles;
  StylesChanged();
}

} // namespace orl

