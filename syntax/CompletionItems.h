#pragma once
// A list of completion or user-menu rows: display text plus the row object,
// which the list owns (a row may have none).

#include <memory>
#include <string>
#include <vector>

#include "syntax/StyleBitmap.h"

namespace orl {

class TCompletionItems {
public:
  struct TItem {
    std::u16string Display;
    std::unique_ptr<TStyleBitmap> Bitmap;
  };

  int Count() const { return int(FItems.size()); }
  /// The row at `index`; bad indexes are the caller's fault (use Count()).
  const TItem& Item(int index) const { return FItems[size_t(index)]; }
  void Add(std::u16string display, std::unique_ptr<TStyleBitmap> bitmap);
  void Clear() { FItems.clear(); }
  /// Raises the capacity to at least `count`.
  void Reserve(size_t count) { FItems.reserve(count); }
  size_t Capacity() const { return FItems.capacity(); }
  /// Orders rows by display text, code unit by code unit; equal texts keep their order.
  void SortOrdinal();

private:
  std::vector<TItem> FItems;
};

} // namespace orl
