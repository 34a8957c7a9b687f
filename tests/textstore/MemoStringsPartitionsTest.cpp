// Offsets, real-line starts and shown rows read from the store's running sums
// must match a walk over the rows after every kind of change to the rows,
// including flags written through an attribute handed out for writing.

#include <gtest/gtest.h>

#include <random>

#include "FakeMemo.h"
#include "textstore/OrlMemoStrings.h"

using namespace orl;
using test::TFakeMemo;

namespace {

// The walks the running sums replace.
int64_t WalkedStart(const TOrlMemoStrings& store, int y, bool bBinary) {
  int64_t pos = 0;
  for (int row = 0; row < y; ++row)
    pos += store.GetLineLength(row) + (!bBinary && !store.IsLineWrapped(row + 1) ? 2 : 0);
  return pos;
}

TFullPos WalkedXY(const TOrlMemoStrings& store, int64_t pos, bool bBinary) {
  int row = 0;
  while (row < store.Count() && pos - WalkedStart(store, row, bBinary) > store.GetLineLength(row)) ++row;
  if (row == store.Count()) return {std::max(store.GetLineLength(row - 1) - 1, 0), row - 1};
  return {int(std::max<int64_t>(pos - WalkedStart(store, row, bBinary), 0)), row};
}

int WalkedWrapIndex(const TOrlMemoStrings& store, int Index) {
  int real = 0;
  for (int row = 1; row < store.Count(); ++row)
    if (!store.IsLineWrapped(row) && ++real == Index) return row;
  return store.Count() - 1 + Index - real;
}

void ExpectWalksAgree(TOrlMemoStrings& store, bool bBinary, const std::string& step) {
  SCOPED_TRACE(step);
  for (int y = 0; y < store.Count(); ++y) {
    const int64_t start = WalkedStart(store, y, bBinary);
    ASSERT_EQ(store.GetCharPosFromXY(0, y), start) << "row " << y;
    for (const int64_t pos : {start, start + store.GetLineLength(y), start + store.GetLineLength(y) + 1}) {
      int x = -1, row = -1;
      store.GetXYFromCharPos(pos, x, row, false, 0);
      ASSERT_EQ((TFullPos{x, row}), WalkedXY(store, pos, bBinary)) << "offset " << pos;
    }
    int realStarts = 0, shown = 0;
    for (int r = 0; r <= y; ++r) {
      const TTextAttribute& a = store.ReadLineAttribute(r);
      realStarts += !a.Wrapped() && a.Enabled;
      shown += !a.Hidden();
    }
    ASSERT_EQ(store.RowsStartingRealLines(0, y + 1), realStarts) << "row " << y;
    ASSERT_EQ(store.ShownRowsIn(0, y + 1), shown) << "row " << y;
  }
  for (int line = 1; line < store.Count() + 2; ++line)
    ASSERT_EQ(store.GetWrapIndex(line), WalkedWrapIndex(store, line)) << "line " << line;
}

TEST(MemoStringsPartitions, EveryKindOfRowChangeKeepsTheSumsRight) {
  TFakeMemo memo;
  memo.Settings.bWrapping = true;
  TOrlMemoStrings store(&memo);
  store.SetTextStr(u"alpha\r\nbeta\r\n\r\ngamma delta\r\nepsilon\r\nzeta");
  std::mt19937 random(11);
  ExpectWalksAgree(store, false, "loaded");
  for (int step = 0; step < 400; ++step) {
    const int row = int(random() % unsigned(store.Count()));
    const int op = int(random() % 12);
    switch (op) {
      case 0: store.InsertAt(row, u"xy", 2); break;
      case 1: store.DeleteAt(row, 1, 2); break;
      case 2: store.DoInsert(row, u"new row"); break;
      case 3: if (store.Count() > 2) store.DoDelete(row); break;
      case 4: store.InsertWrapped(row + 1, u"continued"); break;
      case 5: store.GetLineAttribute(row)->SetWrapped(!store.IsLineWrapped(row)); break;
      case 6: store.SetHiddenLine(row, !store.GetHiddenLine(row)); break;
      case 7: store.GetLineAttribute(row)->Enabled = !store.ReadLineAttribute(row).Enabled; break;
      case 8: store.PrepareLines(row, 3); break;
      case 9: store.SwapLines(row, int(random() % unsigned(store.Count())), false); break;
      case 10: store.PutQuickLine(row, u"put over the row"); break;
      default:
        if (store.Count() > 4) store.DeleteLinesSilent(row, std::min(row + 1, store.Count() - 2), true);
    }
    if (step % 7 == 0) ExpectWalksAgree(store, false, "step " + std::to_string(step) + " op " + std::to_string(op));
  }
  ExpectWalksAgree(store, false, "end");
  memo.Settings.bBinaryMode = true;  // no line ends at all
  ExpectWalksAgree(store, true, "binary");
}

TEST(MemoStringsPartitions, AWholePassOfAttributeWritesRebuildsOnce) {
  TFakeMemo memo;
  memo.Settings.bWrapping = true;
  TOrlMemoStrings store(&memo);
  store.SetTextStr(u"a\r\nb\r\nc");
  for (int i = 0; i < 200; ++i) store.DoAdd(u"row");
  ExpectWalksAgree(store, false, "built");
  // More rows handed out for writing than the store notes one by one.
  for (int i = 0; i < store.Count(); i += 2) store.GetLineAttribute(i)->SetWrapped(true);
  ExpectWalksAgree(store, false, "after the pass");
  store.Clear();
  store.SetTextStr(u"x\r\ny");
  ExpectWalksAgree(store, false, "after a clear");
}

TEST(MemoStringsPartitions, StepsOverShownRowsSkipHiddenOnes) {
  TFakeMemo memo;
  TOrlMemoStrings store(&memo);
  store.SetTextStr(u"0\r\n1\r\n2\r\n3\r\n4\r\n5\r\n6");
  EXPECT_EQ(store.StepShownRows(2, 3), 5);  // nothing hidden: plain arithmetic
  store.SetHiddenLine(0, true);
  store.SetHiddenLine(3, true);
  store.SetHiddenLine(4, true);
  EXPECT_EQ(store.StepShownRows(2, 1), 5);
  EXPECT_EQ(store.StepShownRows(3, 1), 5);  // from a hidden row
  EXPECT_EQ(store.StepShownRows(1, 9), 6);  // clamped to the last row
  EXPECT_EQ(store.StepShownRows(5, -1), 2);
  EXPECT_EQ(store.StepShownRows(5, -2), 1);
  EXPECT_EQ(store.StepShownRows(5, -3), 0);  // the walk stops at the top, hidden or not
  EXPECT_EQ(store.ShownRowsIn(0, 7), 4);
}

TEST(MemoStringsPartitions, FillerRowsAroundOneLineEndAreNoText) {
  TFakeMemo memo;
  TOrlMemoStrings store(&memo);
  store.SetTextStr(u"\r\n\r\n\r\n");  // four empty rows
  store.GetLineAttribute(1)->Enabled = false;
  store.GetLineAttribute(2)->Enabled = false;
  ASSERT_EQ(store.GetTextStr(), u"\r\n");
  EXPECT_EQ(store.RealCount(), 0);
  store.GetLineAttribute(2)->Enabled = true;  // now two line ends
  EXPECT_EQ(store.RealCount(), 4);
  store.GetLineAttribute(2)->Enabled = false;
  store.InsertAt(3, u"x", 1);
  EXPECT_EQ(store.RealCount(), 4);
}

} // namespace
