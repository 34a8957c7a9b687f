#include "syntax/CompletionItems.h"

#include <algorithm>

namespace orl {

void TCompletionItems::Add(std::u16string display, std::unique_ptr<TStyleBitmap> bitmap) {
  FItems.push_back(TItem{std::move(display), std::move(bitmap)});
}

void TCompletionItems::SortOrdinal() {
  std::stable_sort(FItems.begin(), FItems.end(), [](const TItem& a, const TItem& b) { return a.Display < b.Display; });
}

} // namespace orl
