#pragma once
// A memo as the line store sees it: settings, caret and selection set by the
// test, a wrap that cuts lines into pieces of a fixed width, and a record of
// what the store told it.

#include <algorithm>
#include <vector>

#include "textstore/MemoStringsOwner.h"
#include "textstore/OrlMemoStrings.h"

namespace orl::test {

class TFakeMemo : public IMemoStringsOwner {
public:
  TMemoStoreSettings StoreSettings() const override { return Settings; }
  TFullPos CaretPos() const override { return Caret; }
  void SetCaretPos(TFullPos pos) override {
    Caret = pos;
    CaretMoves.push_back(pos);
  }
  TMemoSelection Selection() const override { return Sel; }
  void LayoutLine(std::u16string_view line, TQuickLineCall, std::vector<int>& pieces) override {
    if (WrapWidth <= 0) return;
    for (size_t p = 0; p < line.size(); p += size_t(WrapWidth)) pieces.push_back(int(std::min(line.size() - p, size_t(WrapWidth))));
  }
  void RaiseMaxLength(int length) override { MaxLength = std::max(MaxLength, length); }
  int GetVisibleLines(int from, int to) override { return VisibleLinesAnswer >= 0 ? VisibleLinesAnswer : to - from + 1; }
  void SetHasTabs(bool value) override { HasTabs = value; }
  void SetBookmarkListValue(int number, int row) override { Bookmarks.push_back({number, row}); }
  void LinesAssigned() override { ++Assigned; }

  TMemoStoreSettings Settings;
  TFullPos Caret;
  std::vector<TFullPos> CaretMoves;
  TMemoSelection Sel;
  int WrapWidth = 0;  // 0: nothing wraps
  int MaxLength = 0;
  int VisibleLinesAnswer = -1;
  bool HasTabs = false;
  std::vector<TFullPos> Bookmarks;  // (number, row)
  int Assigned = 0;
};

using L = std::vector<std::u16string>;

/// The store's rows as texts.
inline L Rows(const TOrlMemoStrings& store) {
  L rows;
  for (int i = 0; i < store.Count(); ++i) rows.emplace_back(store.GetLineString(i));
  return rows;
}

} // namespace orl::test
