#pragma once
// A memo in a headless window of 80 columns and 10 rows, with the focus, and
// the helpers the memo's tests share: a key press and the repainted rows.

#include <gtest/gtest.h>

#include <set>

#include "editing/HeadlessWindow.h"
#include "editing/OrlMemo.h"

namespace orl::test {

class HeadlessMemoTest : public ::testing::Test {
protected:
  static constexpr int W = THeadlessWindow::kCellW;
  static constexpr int H = THeadlessWindow::kCellH;

  HeadlessMemoTest() {
    window.Client = {0, 0, 81 * W + 1, 10 * H};  // 80 columns, 10 rows
    memo.ResizeEditor();
    memo.FocusGained();
  }
  /// Key-down, the character the key makes (if any), key-up.
  void Press(int key, TShiftState shift = 0, char16_t ch = 0) {
    int k = key;
    memo.KeyDown(k, shift);
    if (ch) memo.KeyPress(ch);
    memo.KeyUp(key, shift);
  }
  /// Screen rows the recorded invalidations cover, and then forgets them.
  std::set<int> RepaintedRows() {
    std::set<int> rows;
    for (const auto* list : {&window.Invalidated, &window.Redrawn})
      for (const TRect& r : *list)
        for (int y = r.Top; y < r.Bottom; y += H) rows.insert(y / H);
    window.Invalidated.clear();
    window.Redrawn.clear();
    window.InvalidatedAll = 0;
    return rows;
  }
  /// Pixel of the left part of cell (col, row) of the text area.
  TPoint Cell(int col, int row) {
    const TRect area = memo.EditorRect(true, -1);
    return {area.Left + col * W + 1, area.Top + row * H + H / 2};
  }

  THeadlessWindow window;
  TOrlMemo memo{&window};
};

} // namespace orl::test
