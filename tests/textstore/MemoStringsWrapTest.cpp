#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

#include "FakeMemo.h"
#include "textstore/OrlMemoStrings.h"

using namespace orl;
using test::L;
using test::Rows;
using test::TFakeMemo;

namespace {

std::vector<bool> WrappedFlags(const TOrlMemoStrings& store) {
  std::vector<bool> flags;
  for (int i = 0; i < store.Count(); ++i) flags.push_back(store.IsLineWrapped(i));
  return flags;
}

// A row whose characters count up from its first, so that a reader can tell
// a whole row from a torn one.
std::u16string CountingRow(int seed, int length) {
  std::u16string row;
  for (int i = 0; i < length; ++i) row.push_back(char16_t(u'A' + (seed + i) % 26));
  return row;
}

bool IsCountingRow(std::u16string_view row) {
  for (size_t i = 1; i < row.size(); ++i)
    if ((row[i] - u'A') != (row[i - 1] - u'A' + 1) % 26) return false;
  return true;
}

} // namespace

TEST(MemoStringsWrap, QuickLinesAreCutAsTheMemoLaysThemOut) {
  TFakeMemo memo;
  memo.WrapWidth = 4;
  memo.Settings.bWrapping = true;
  TOrlMemoStrings store(&memo);
  EXPECT_EQ(store.AddQuickLine(u"abcdefghij"), 3);
  store.AddQuickLine(u"xy");
  store.InsertQuickLine(3, u"12345");
  store.InsertQuickLine(7, u"far");
  EXPECT_EQ(Rows(store), (L{u"abcd", u"efgh", u"ij", u"1234", u"5", u"xy", u"", u"far"}));
  EXPECT_EQ(WrappedFlags(store), (std::vector<bool>{false, true, true, false, true, false, false, false}));
  int rows = 0;
  EXPECT_EQ(store.GetUnwrappedLine(2, rows), u"abcdefghij");
  EXPECT_EQ(rows, 3);
  EXPECT_EQ(store.GetUnwrappedLineFromThread(3, rows), u"12345");
}

TEST(MemoStringsWrap, PutQuickLineReusesContinuationsAndDropsTheRest) {
  TFakeMemo memo;
  memo.WrapWidth = 4;
  memo.Settings.bWrapping = true;
  TOrlMemoStrings store(&memo);
  store.AddQuickLine(u"abcdefghijkl");
  store.AddQuickLine(u"tail");
  store.GetLineAttribute(1)->Bookmark = 1;
  EXPECT_EQ(store.PutQuickLine(0, u"ABCDEFGHIJ"), 3);
  EXPECT_EQ(Rows(store), (L{u"ABCD", u"EFGH", u"IJ", u"tail"}));
  EXPECT_EQ(store.ReadLineAttribute(1).Bookmark, 1);  // the continuation row was reused
  EXPECT_EQ(store.PutQuickLine(0, u"123456789"), 3);
  EXPECT_EQ(Rows(store), (L{u"1234", u"5678", u"9", u"tail"}));
  EXPECT_EQ(store.PutQuickLine(0, u"0123456789ABCDEF"), 4);
  EXPECT_EQ(Rows(store), (L{u"0123", u"4567", u"89AB", u"CDEF", u"tail"}));
  EXPECT_EQ(store.PutQuickLine(0, u"123456789"), 3);
  EXPECT_EQ(Rows(store), (L{u"1234", u"5678", u"9", u"tail"}));
  EXPECT_EQ(store.VisibleCount(), 4);
  // A short line only writes its row.
  EXPECT_EQ(store.PutQuickLine(0, u"short"), 1);
  EXPECT_EQ(Rows(store), (L{u"short", u"5678", u"9", u"tail"}));
}

TEST(MemoStringsWrap, RealLinesMapToTheirFirstRows) {
  TFakeMemo memo;
  memo.WrapWidth = 3;
  memo.Settings.bWrapping = true;
  TOrlMemoStrings store(&memo);
  for (const char16_t* line : {u"aaaaaaa", u"b", u"cccc", u"d"}) store.AddQuickLine(line);
  // Rows: aaa aaa a | b | ccc c | d
  EXPECT_EQ(store.GetWrapIndex(2), 4);
  EXPECT_EQ(store.GetWrapIndex(3), 6);
  EXPECT_EQ(store.GetWrapIndex(1), 3);  // walking back from the cached place
  EXPECT_EQ(store.GetWrapIndex(6), 9);  // past the end a real line is one row
  EXPECT_EQ(store.GetWrappedLineCount(0), 3);
  store.InsertLineFromReal(2, u"new");
  EXPECT_EQ(store.GetLineString(4), u"new");
  EXPECT_EQ(store.GetWrapIndex(3), 5);  // the insertion before the cached row was noticed
  store.DeleteLineFromReal(0);
  EXPECT_EQ(Rows(store), (L{u"b", u"new", u"ccc", u"c", u"d"}));
  store.DeleteLineFromReal(3);
  EXPECT_EQ(store.Count(), 5);  // the last row stays
  store.DeleteLinesSilent(1, 2, true);
  EXPECT_EQ(Rows(store), (L{u"b", u"d"}));
  memo.Settings.bWrapping = false;
  store.InsertLineFromReal(4, u"far");
  EXPECT_EQ(Rows(store), (L{u"b", u"d", u"", u"", u"far"}));
}

TEST(MemoStringsWrap, RowToolsSetWhatTheWrapperNeeds) {
  TOrlMemoStrings store;
  store.AddWrapped(u"w");
  EXPECT_TRUE(store.ReadLineAttribute(0).Wrapped());
  TAttributePtr marked = CreateTextAttribute(sttWindows);
  marked->Bookmark = 2;
  marked->SpellList.Add({1, 1, 0, 0});
  store.InsertWrappedFirstBuffer(0, u"xxHEADxx", 3, 4, marked);
  EXPECT_EQ(store.GetLineString(0), u"HEAD");
  EXPECT_EQ(store.GetLineAttribute(0), marked.get());  // adopted
  EXPECT_TRUE(marked->SpellCheck());
  EXPECT_TRUE(marked->SpellList.IsEmpty());
  store.PutWrappedBuffer(1, u"abcdef", 5, 10);
  EXPECT_EQ(store.GetLineString(1), u"ef");
  EXPECT_TRUE(store.ReadLineAttribute(1).SpellCheck());
  store.PutWrappedFirst(1, u"first", marked.get());
  EXPECT_EQ(store.ReadLineAttribute(1).Bookmark, 2);
  store.AddWrappedFirst(u"copy", *marked);
  EXPECT_NE(store.GetLineAttribute(2), marked.get());
  EXPECT_EQ(store.ReadLineAttribute(2).Bookmark, 2);
}

TEST(MemoStringsThread, ReadsFromAnotherThreadSeeWholeRowsWhileTheMainThreadEdits) {
  TFakeMemo memo;
  memo.Settings.bHasStyles = true;
  TOrlMemoStrings store(&memo);
  for (int i = 0; i < 200; ++i) store.DoAdd(CountingRow(i, 1 + i % 40));
  std::atomic<bool> stop = false;
  std::atomic<int> torn = 0;
  std::atomic<long> reads = 0;
  std::thread reader([&] {
    TStyle style;
    for (int round = 0; !stop; ++round) {
      const int count = store.GetCountFromThread();
      const int row = count ? round % count : 0;
      const TSharedWideString text = store.GetLineStringFromThread(row);
      const TAttributePtr attribute = store.GetLineAttributeFromThread(row);
      style.NodeSection = round;
      store.SetLineStyleFromThread(row, style);
      int rows = 0;
      const std::u16string line = store.GetUnwrappedLineFromThread(row, rows);
      if (!IsCountingRow(text) || !attribute || !IsCountingRow(line)) ++torn;
      ++reads;
    }
  });
  for (int step = 0; step < 20000 || reads < 1000; ++step) {
    const int at = step % 7;
    store.DoInsert(at, CountingRow(step, 5));
    const std::u16string_view next = store.GetLineString(at + 1);
    if (!next.empty()) store.InsertAt(at + 1, CountingRow(next.back() - u'A' + 1, 3), 1000);
    if (store.GetLineLength(at + 2) > 1) store.DeleteAt(at + 2, store.GetLineLength(at + 2), 1);
    store.DoDelete(at + 3);
    if (step % 500 == 0) store.DeleteLinesSilent(10, 20, false);
    if (step % 500 == 250) store.PrepareLines(10, 12);
  }
  stop = true;
  reader.join();
  EXPECT_EQ(torn, 0);
  EXPECT_GE(reads, 1000);
}
