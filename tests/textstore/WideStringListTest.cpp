#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "TempFolder.h"
#include "textstore/GapArray.h"
#include "textstore/OrlUnicodeStrings.h"
#include "textstore/WideStringArena.h"

using namespace orl;

namespace {

// Counts its living instances, so that a test sees which objects a list freed.
class TCounted : public TObject {
public:
  explicit TCounted(int& alive) : FAlive(alive) { ++FAlive; }
  ~TCounted() override { --FAlive; }

private:
  int& FAlive;
};

std::vector<std::u16string> Lines(const TElWideStrings& list) {
  std::vector<std::u16string> lines;
  for (int i = 0; i < list.Count(); ++i) lines.push_back(list.Get(i));
  return lines;
}

using L = std::vector<std::u16string>;

} // namespace

TEST(GapArray, KeepsOrderThroughRandomEditsAtMovingPlaces) {
  TGapArray<int> gap;
  std::vector<int> model;
  std::mt19937 random(7);
  for (int step = 0; step < 20000; ++step) {
    const size_t at = model.empty() ? 0 : random() % (model.size() + 1);
    if (random() % 3 != 0 || model.empty()) {
      const size_t count = 1 + random() % 3;
      gap.InsertN(at, count, [&](size_t i) { return step * 4 + int(i); });
      for (size_t i = 0; i < count; ++i) model.insert(model.begin() + std::ptrdiff_t(at + i), step * 4 + int(i));
    } else {
      const size_t count = std::min<size_t>(1 + random() % 4, model.size() - std::min(at, model.size() - 1));
      const size_t from = std::min(at, model.size() - count);
      gap.Erase(from, count);
      model.erase(model.begin() + std::ptrdiff_t(from), model.begin() + std::ptrdiff_t(from + count));
    }
    ASSERT_EQ(gap.Count(), model.size());
  }
  for (size_t i = 0; i < model.size(); ++i) ASSERT_EQ(gap[i], model[i]) << i;
  const int* block = gap.Contiguous();
  EXPECT_TRUE(std::equal(model.begin(), model.end(), block));
  gap.Erase(0, gap.Count());
  EXPECT_LE(gap.Physical(), 256u);  // mass deletion gives memory back
}

TEST(SharedWideString, HeldCopiesKeepTheirTextWhileTheRowIsEdited) {
  TSharedWideString row(u"abc");
  row.Insert(3, u"d");  // a new rep with room to grow
  const char16_t* place = row.data();
  row.Insert(0, u"x");
  EXPECT_EQ(row.data(), place);  // unique: edited in place
  const TSharedWideString held = row;
  row.Erase(0, 1);
  EXPECT_NE(row.data(), place);
  EXPECT_EQ(held.View(), u"xabcd");
  EXPECT_EQ(row.View(), u"abcd");
  row.Insert(2, row.View().substr(0, 2));  // a piece of itself
  EXPECT_EQ(row.View(), u"ababcd");
  row.Overwrite(5, u"XYZ");
  EXPECT_EQ(row.View(), u"ababcXYZ");
  row.Erase(0, row.size());
  EXPECT_TRUE(row.empty());

  TSharedWideString loaded;
  {
    TWideStringArena arena;
    loaded = arena.Make(u"loaded");
    const TSharedWideString longRow = arena.Make(std::u16string(20000, u'z'));
    EXPECT_EQ(longRow.size(), 20000u);
  }
  TSharedWideString shared = loaded;
  loaded.Insert(6, u"!");  // the block outlives its arena while a text lives
  EXPECT_EQ(shared.View(), u"loaded");
  EXPECT_EQ(loaded.View(), u"loaded!");
}

// The remembered count of simple leading characters must follow every kind
// of edit, in place and into a new rep, and never claim more than is there.
TEST(SharedWideString, TheSimplePrefixFollowsEveryEdit) {
  std::mt19937 random(7);
  const std::u16string alphabet = u"abcdefgh \u00E9\t\u0140";
  const auto randomText = [&](size_t length) {
    std::u16string text;
    for (size_t i = 0; i < length; ++i) text += alphabet[random() % alphabet.size()];
    return text;
  };
  const auto counted = [](std::u16string_view text, size_t limit) {
    size_t n = 0;
    while (n < std::min(limit, text.size()) && text[n] < 256 && text[n] != u'\t') ++n;
    return n;
  };
  TSharedWideString row(u"plain start");
  std::u16string model = u"plain start";
  for (int step = 0; step < 5000; ++step) {
    const size_t pos = model.empty() ? 0 : random() % (model.size() + 1);
    // Mostly simple text, so that long simple prefixes build up.
    std::u16string text = random() % 4 ? std::u16string(random() % 5, u'x') : randomText(random() % 3);
    switch (random() % 4) {
      case 0: row.Insert(pos, text); model.insert(pos, text); break;
      case 1: {
        const size_t count = std::min<size_t>(random() % 4, model.size() - pos);
        row.Erase(pos, count);
        model.erase(pos, count);
        break;
      }
      case 2: {
        row.Overwrite(pos, text);
        model.replace(pos, std::min(text.size(), model.size() - pos), text);
        break;
      }
      default: {
        const TSharedWideString held = row;  // a shared rep: the edit builds a new one
        row.Insert(model.size(), text);
        model += text;
        EXPECT_EQ(held.size() + text.size(), row.size());
      }
    }
    ASSERT_EQ(row.View(), model);
    const size_t limit = random() % (model.size() + 2);
    ASSERT_EQ(row.SimpleCellPrefix(limit), counted(model, limit)) << "step " << step;
  }
  EXPECT_EQ(SimpleCellRun(u"ab\u00FFcd\tx"), 5u);
  EXPECT_EQ(SimpleCellRun(u"\u0100"), 0u);
}

TEST(WideStringList, SortedListsPlaceFindAndGuardTheirOrder) {
  TElWideStringList list;
  list.SetSorted(true);
  for (const char16_t* s : {u"pear", u"Apple", u"banana", u"apple"}) list.Add(s);
  EXPECT_EQ(Lines(list), (L{u"Apple", u"banana", u"pear"}));  // duplicates ignored, case not looked at
  int index = -1;
  EXPECT_TRUE(list.Find(u"BANANA", index));
  EXPECT_EQ(index, 1);
  EXPECT_FALSE(list.Find(u"cherry", index));
  EXPECT_EQ(index, 2);  // where it belongs
  EXPECT_EQ(list.IndexOf(u"PEAR"), 2);
  EXPECT_THROW(list.Insert(0, u"x"), EStringListError);
  EXPECT_THROW(list.Put(0, u"x"), EStringListError);

  list.SetDuplicates(dupError);
  EXPECT_THROW(list.Add(u"pear"), EStringListError);
  list.SetDuplicates(dupAccept);
  for (int i = 0; i < 5; ++i) list.Add(u"Banana");
  EXPECT_TRUE(list.Find(u"banana", index));
  EXPECT_EQ(index, 1);  // the first of the equal lines
  EXPECT_EQ(list.Count(), 8);
}

TEST(WideStringList, SortingOrdersWithoutCaseAndCustomSortTakesACompare) {
  TElWideStringList list;
  for (const char16_t* s : {u"delta", u"Alpha", u"charlie", u"bravo", u"alpha2", u"Echo", u"b"}) list.Add(s);
  list.Sort();
  EXPECT_EQ(Lines(list), (L{u"Alpha", u"alpha2", u"b", u"bravo", u"charlie", u"delta", u"Echo"}));
  list.CustomSort([](TElWideStringList& l, int a, int b) { return int(l.Get(b).size()) - int(l.Get(a).size()); });
  EXPECT_EQ(list.Get(0).size(), 7u);
  EXPECT_EQ(list.Get(6), u"b");
  list.SetSorted(true);
  EXPECT_EQ(list.Get(0), u"Alpha");
}

TEST(WideStringList, OwnsItsObjectsAndMovesThemWithTheirLines) {
  int alive = 0;
  {
    TElWideStringList list;
    list.AddObject(u"a", std::make_unique<TCounted>(alive));
    list.AddObject(u"b", std::make_unique<TCounted>(alive));
    list.AddObject(u"c", std::make_unique<TCounted>(alive));
    TObject* b = list.GetObject(1);
    list.Move(1, 2);
    EXPECT_EQ(Lines(list), (L{u"a", u"c", u"b"}));
    EXPECT_EQ(list.GetObject(2), b);
    EXPECT_EQ(list.IndexOfObject(b), 2);
    list.Exchange(0, 2);
    EXPECT_EQ(list.GetObject(0), b);
    list.Delete(0);
    EXPECT_EQ(alive, 2);
    list.PutObject(0, std::make_unique<TCounted>(alive));
    EXPECT_EQ(alive, 2);  // the replaced one is gone
    EXPECT_THROW(list.GetObject(5), EStringListError);
    EXPECT_THROW(list.Get(-1), EStringListError);
    EXPECT_THROW(list.Delete(2), EStringListError);
  }
  EXPECT_EQ(alive, 0);
}

TEST(WideStringList, NamesAndValuesReadTheFirstEqualsSign) {
  TElWideStringList list;
  list.SetTextStr(u"Key=one=two\r\nnovalue\nOther=\rlast=x");
  EXPECT_EQ(list.Count(), 4);
  EXPECT_EQ(list.GetName(0), u"Key");
  EXPECT_EQ(list.GetName(1), u"");
  EXPECT_EQ(list.GetValue(u"key"), u"one=two");
  EXPECT_EQ(list.GetValueFromIndex(0), u"one=two");
  EXPECT_EQ(list.GetValue(u"Other"), u"");
  list.SetCaseSensitive(true);
  EXPECT_EQ(list.IndexOfName(u"key"), -1);
  EXPECT_EQ(list.IndexOfName(u"Key"), 0);
  list.SetValue(u"Key", u"1");
  list.SetValue(u"New", u"2");
  list.SetValue(u"last", u"");
  EXPECT_EQ(list.Text(), u"Key=1\r\nnovalue\r\nOther=\r\nNew=2\r\n");
}

TEST(WideStringList, EventsSurroundChangesAndWaitForTheOutermostUpdate) {
  TElWideStringList list;
  std::u16string log;
  list.OnChanging = [&](TElWideStrings&) { log += u"<"; };
  list.OnChange = [&](TElWideStrings&) { log += u">"; };
  list.Add(u"a");
  list.Put(0, u"b");
  EXPECT_EQ(log, u"<><>");
  log.clear();
  list.BeginUpdate();
  list.BeginUpdate();
  list.Add(u"c");
  list.Delete(0);
  list.EndUpdate();
  EXPECT_EQ(log, u"<");
  list.EndUpdate();
  EXPECT_EQ(log, u"<>");
}

TEST(WideStringList, CapacityGrowsBySixteenThenBySixtyFour) {
  TElWideStringList list;
  std::vector<int> steps;
  for (int i = 0; i < 2100; ++i) {
    list.Add(u"x");
    if (steps.empty() || steps.back() != list.GetCapacity()) steps.push_back(list.GetCapacity());
  }
  EXPECT_EQ(steps[0], 16);
  EXPECT_EQ(steps[1], 32);
  EXPECT_EQ(steps[steps.size() - 2], 2048);
  EXPECT_EQ(steps.back(), 2112);
  list.SetCapacity(10);  // below the count: ignored
  EXPECT_EQ(list.GetCapacity(), 2112);
}

TEST(WideStringList, StreamsReadMarksAndCodePagesAndWriteBack) {
  TElWideStringList list;
  TMemoryStream swapped;
  const uint8_t bigEndian[] = {0xFE, 0xFF, 0x00, 'h', 0x00, 'i', 0x00, '\n', 0x00, 0xE9};
  swapped.Write(bigEndian, sizeof bigEndian);
  swapped.SetPosition(0);
  list.LoadFromStream(swapped);
  EXPECT_EQ(Lines(list), (L{u"hi", u"\u00E9"}));

  TMemoryStream ansi;
  const uint8_t bytes[] = {'a', 0xE9, '\r', '\n', 'b'};
  ansi.Write(bytes, sizeof bytes);
  ansi.SetPosition(0);
  list.LoadFromStream(ansi);
  EXPECT_EQ(Lines(list), (L{u"a\u00E9", u"b"}));
  ansi.SetPosition(ansi.Size() + 1);
  EXPECT_THROW(list.LoadFromStream(ansi), EReadError);

  test::TTempFolder folder;
  list.FSaveUnicode = true;
  list.SaveToFile(folder / "list.txt");
  EXPECT_EQ(test::ReadBytes(folder / "list.txt").substr(0, 4), std::string("\xFF\xFE" "a\0", 4));
  TElWideStringList again;
  again.LoadFromFile(folder / "list.txt");
  EXPECT_TRUE(again.Equals(list));
}
