// What the store's rows cost: rows share equal attributes and scan states, a
// UTF-16 file is split into rows as it is read, text blocks go back to the
// system with their last row, and flags that the background thread and the
// main thread write into one row at once are all kept.

#include <gtest/gtest.h>

#include <atomic>
#include <fstream>
#include <memory>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "FakeMemo.h"
#include "TempFolder.h"
#include "platform/OrlError.h"
#include "textstore/OrlMemoStrings.h"

namespace orl {
namespace {

using test::TFakeMemo;

TStyle CachedStyle(int8_t commentStyle) {
  TStyle style;
  style.Properties.CommentStyle = commentStyle;
  style.Set(sfCached, true);
  return style;
}

size_t DistinctAttributes(const TOrlMemoStrings& store) {
  std::set<const TTextAttribute*> objects;
  for (int i = 0; i < store.Count(); ++i) objects.insert(&store.ReadLineAttribute(i));
  return objects.size();
}

struct TStyledStore {
  TStyledStore() {
    Memo.Settings.bHasStyles = true;
    for (int i = 0; i < 1000; ++i) Store.DoAdd(u"int x;");
  }
  // What a state pass does to each row: writes into it, then stores its state.
  void ScanAll() {
    for (int i = 0; i < Store.Count(); ++i) {
      Store.GetLineAttribute(i)->SetTodoItem(false);
      Store.SetLineStyle(i, CachedStyle(i % 2 ? 1 : 0));
    }
  }
  TFakeMemo Memo;
  TOrlMemoStrings Store{&Memo};
};

TEST(MemoStringsSharing, RowsEndingInEqualStatesShareOneAttributeUntilOneIsWritten) {
  TStyledStore doc;
  TOrlMemoStrings& store = doc.Store;
  doc.ScanAll();
  EXPECT_EQ(DistinctAttributes(store), 2u);
  EXPECT_EQ(store.ReadLineStyle(7).Properties.CommentStyle, 1);
  EXPECT_TRUE(store.LineStyleValid(8));

  // A write gives the row a copy with everything, its state included.
  store.GetLineAttribute(3)->SetLinemark(true);
  store.SetHiddenLine(5, true);
  EXPECT_TRUE(store.ReadLineAttribute(3).Linemark());
  EXPECT_FALSE(store.ReadLineAttribute(1).Linemark() || store.GetHiddenLine(7));
  EXPECT_EQ(store.ReadLineStyle(3).Properties.CommentStyle, 1);
  EXPECT_TRUE(store.LineStyleValid(3));
  EXPECT_EQ(store.VisibleCount(), 999);

  // Invalidation still goes row by row, shared or not.
  store.ClearLineStylesFrom(500);
  EXPECT_TRUE(store.LineStyleValid(499));
  EXPECT_FALSE(store.LineStyleValid(501));

  // Taking a style set away converts each shared attribute once.
  store.ConvertAttributes();
  EXPECT_FALSE(store.ReadLineAttribute(10).IsAttribute());
  EXPECT_LE(DistinctAttributes(store), 4u);
  EXPECT_TRUE(store.ReadLineAttribute(3).Linemark());
  EXPECT_EQ(store.ReadLineStyle(9).Properties.CommentStyle, 1);
}

TEST(MemoStringsSharing, AnAttributeHeldElsewhereStaysTheRowsOwn) {
  TStyledStore doc;
  TOrlMemoStrings& store = doc.Store;
  const TAttributePtr held = store.GetLineAttributeFromThread(4);
  doc.ScanAll();
  ASSERT_EQ(&store.ReadLineAttribute(4), held.get());
  held->SetURL(true);
  EXPECT_TRUE(store.ReadLineAttribute(4).URL());
  EXPECT_FALSE(store.ReadLineAttribute(6).URL());
  // A cleared row gives away a copy, never the object its neighbours share.
  TAttributePtr given = store.ClearLine(8, false);
  given->Bookmark = 3;
  EXPECT_EQ(store.ReadLineAttribute(10).Bookmark, -1);
  EXPECT_EQ(given->Style()->Properties.CommentStyle, 0);
}

TEST(MemoStringsSharing, RowsTheThreadScannedShareAtTheMainThreadsTurn) {
  TStyledStore doc;
  TOrlMemoStrings& store = doc.Store;
  std::thread([&] {
    for (int i = 0; i < store.GetCountFromThread(); ++i) {
      store.GetLineAttributeFromThread(i)->SetTodoItem(false);
      store.SetLineStyleFromThread(i, CachedStyle(i % 2 ? 1 : 0));
    }
  }).join();
  // The main thread might have been writing through a pointer meanwhile.
  EXPECT_EQ(DistinctAttributes(store), 1000u);
  store.ShareRowsScannedByThread();
  EXPECT_EQ(DistinctAttributes(store), 2u);
  EXPECT_TRUE(store.LineStyleValid(999));
  EXPECT_EQ(store.ReadLineStyle(999).Properties.CommentStyle, 1);
}

TEST(MemoStringsThread, FlagsOfBothThreadsOnTheSameRowsAreAllKept) {
  TStyledStore doc;
  TOrlMemoStrings& store = doc.Store;
  constexpr int kRows = 64;
  constexpr int kRounds = 200;
  std::atomic<bool> bStarted = false;
  std::thread thread([&] {
    for (int round = 0; round < kRounds; ++round)
      for (int i = 0; i < kRows; ++i) {
        const TAttributePtr a = store.GetLineAttributeFromThread(i);
        a->SetURL(round % 2 == 0);
        a->SetSpellCheck(round % 2 == 0);
        if (a->Style()->Properties.CommentStyle > 1) a->SetTodoItem(true);  // never: states hold 0 or 1
        bStarted = true;
      }
  });
  while (!bStarted) std::this_thread::yield();
  for (int round = 0; round < kRounds; ++round)
    for (int i = 0; i < kRows; ++i) {
      store.SetHiddenLine(i, round % 2 == 0);
      store.GetLineAttribute(i)->SetLinemark(round % 2 == 0);
      store.SetLineStyle(i, CachedStyle(int8_t(round % 2)));
    }
  thread.join();
  // Both threads ended on an odd round: their flags are off, the state is 1.
  for (int i = 0; i < kRows; ++i) {
    const TTextAttribute& a = store.ReadLineAttribute(i);
    EXPECT_FALSE(a.URL() || a.SpellCheck() || a.Hidden() || a.Linemark() || a.TodoItem()) << i;
    EXPECT_EQ(store.ReadLineStyle(i).Properties.CommentStyle, 1) << i;
  }
  EXPECT_EQ(store.VisibleCount(), store.Count());
}

TEST(MemoStringsThread, AStateReadByTheThreadOutlivesItsReplacement) {
  TStyledStore doc;
  TOrlMemoStrings& store = doc.Store;
  store.SetLineStyle(2, CachedStyle(3));
  const TAttributePtr a = store.GetLineAttributeFromThread(2);
  const TStyleRef kept = a->Style();
  std::thread([&] { store.SetLineStyle(2, CachedStyle(4)); }).join();
  EXPECT_EQ(kept->Properties.CommentStyle, 3);
  EXPECT_EQ(a->Style()->Properties.CommentStyle, 4);
}

// Lines with all three endings, a CR LF cut by the end of the loader's first
// piece, and one line longer than a piece.
std::u16string FileText() {
  constexpr size_t kPiece = size_t(1) << 20;  // as the loader reads
  const std::u16string_view endings[] = {u"\r\n", u"\n", u"\r"};
  std::u16string text;
  for (int i = 0; text.size() < kPiece - 100; ++i) text += u"line " + std::u16string(size_t(i % 50), u'x') + std::u16string(endings[i % 3]);
  // The file's mark takes the first character of the first piece.
  text += std::u16string(kPiece - 2 - text.size(), u'y');
  text += u"\r\n";
  text += std::u16string(3 * kPiece, u'z') + u"\n\u2029after\r\n\"quoted\"\r\n";
  return text;
}

void WriteUtf16(const std::filesystem::path& path, std::u16string_view text, bool bBigEndian) {
  std::u16string data = u"\uFEFF" + std::u16string(text);
  if (bBigEndian)
    for (char16_t& c : data) c = char16_t((c << 8) | (c >> 8));
  test::WriteBytes(path, std::string_view(reinterpret_cast<const char*>(data.data()), data.size() * 2));
}

TEST(MemoStringsLoad, AUtf16FileGivesTheRowsAndEndingsOfItsText) {
  const test::TTempFolder folder;
  const std::u16string text = FileText();
  TFakeMemo memo;
  TOrlMemoStrings expected(&memo);
  expected.SetTextStr(text);
  for (const bool bBigEndian : {false, true}) {
    WriteUtf16(folder / "doc.txt", text, bBigEndian);
    TOrlMemoStrings loaded(&memo);
    loaded.DoAdd(u"replaced");
    loaded.LoadFromFile(folder / "doc.txt");
    ASSERT_EQ(loaded.Count(), expected.Count()) << bBigEndian;
    for (int i = 0; i < expected.Count(); ++i) {
      ASSERT_EQ(loaded.GetLineString(i), expected.GetLineString(i)) << i;
      ASSERT_EQ(loaded.ReadLineAttribute(i).LinefeedCR(), expected.ReadLineAttribute(i).LinefeedCR()) << i;
      ASSERT_EQ(loaded.ReadLineAttribute(i).LinefeedLF(), expected.ReadLineAttribute(i).LinefeedLF()) << i;
    }
    EXPECT_EQ(loaded.FSysTextType, expected.FSysTextType);
  }
}

TEST(MemoStringsLoad, AFileThatCannotBeReadFailsAndLeavesTheRows) {
  const test::TTempFolder folder;
  TOrlMemoStrings store;
  store.SetTextStr(u"keep\r\nme");
  EXPECT_THROW(store.LoadFromFile(folder / "missing.txt"), EFileError);
  EXPECT_THROW(store.LoadFromFile(folder.Path()), EFileError);
  EXPECT_EQ(store.GetTextStr(), u"keep\r\nme");
}

size_t Resident() {
  std::ifstream status("/proc/self/status");
  std::string line;
  while (std::getline(status, line))
    if (line.rfind("VmRSS:", 0) == 0) return size_t(std::stoull(line.substr(6))) * 1024;
  return 0;
}

TEST(MemoStringsMemory, DeletingEveryRowGivesTheTextBackToTheSystem) {
  std::u16string text;
  for (int i = 0; i < 200'000; ++i) text += u"    value = compute(first, second) + 1;\r\n";
  const size_t textBytes = text.size() * sizeof(char16_t);
  // As in a session that has loaded files before: the allocator no longer
  // maps blocks of this size on its own, and something newer sits above them.
  { std::vector<char> earlier(8 << 20, 1); }
  TOrlMemoStrings store;
  store.SetTextStr(text);
  const std::unique_ptr<char[]> newer(new char[256 << 10]());
  const size_t loaded = Resident();
  store.DeleteLinesSilent(0, store.Count() - 1, false);
  EXPECT_EQ(store.Count(), 0);
  EXPECT_GT(loaded - std::min(loaded, Resident()), textBytes * 3 / 4);
}

} // namespace
} // namespace orl
