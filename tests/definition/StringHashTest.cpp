#include <gtest/gtest.h>

#include "definition/OrlIniFiles.h"

using namespace orl;

TEST(StringHash, HashRotatesAndXorsAndChainsNewestFirst) {
  EXPECT_EQ(TStringHash::HashOf(u""), 0u);
  EXPECT_EQ(TStringHash::HashOf(u"ab"), ((uint32_t(u'a') << 2) ^ u'b'));
  // The rotation carries the top bits round to the bottom.
  EXPECT_EQ(TStringHash::HashOf(u"\xC000" + std::u16string(9, u'\0')), 3u);

  TStringHash hash(256);
  hash.Add(u"k", 1);
  hash.Add(u"k", 2);
  EXPECT_EQ(hash.ValueOf(u"k"), 2);
  EXPECT_TRUE(hash.Modify(u"k", 3));
  EXPECT_EQ(hash.ValueOf(u"k"), 3);
  hash.Remove(u"k");
  EXPECT_EQ(hash.ValueOf(u"k"), 1);
  hash.Remove(u"k");
  EXPECT_EQ(hash.ValueOf(u"k"), -1);
  EXPECT_FALSE(hash.Modify(u"k", 4));
  hash.Add(u"z", 7);
  hash.Clear();
  EXPECT_EQ(hash.ValueOf(u"z"), -1);
}

TEST(StringHash, PValueOfMatchesAnyCaseOnlyWithoutCase) {
  TStringHash hash(256);
  hash.Add(u"begin", 0);
  hash.Add(u"\u00E4rger", 1);  // stored as written: only ASCII is lowered
  hash.Add(u"\u00C4x", 2);
  const std::u16string probe = u"xxBEGINxx";
  EXPECT_EQ(hash.PValueOf(probe.data() + 2, 5, false), 0);
  EXPECT_EQ(hash.PValueOf(probe.data() + 2, 5, true), -1);
  EXPECT_EQ(hash.PValueOf(probe.data() + 2, 4, false), -1);
  EXPECT_EQ(hash.PValueOf(u"\u00C4RGER", 5, false), 1);
  EXPECT_EQ(hash.PValueOf(u"\u00E4X", 2, false), 2);
  EXPECT_EQ(hash.PValueOf(u"\u00E4rger", 5, true), 1);
  EXPECT_EQ(hash.PValueOf(nullptr, 0, false), -1);
}

TEST(HashedStringList, LookupsFindTheLastDuplicateAndFollowEveryChange) {
  THashedStringList list;
  list.Add(u"a=1");
  list.Add(u"B=2");
  list.Add(u"a=3");
  list.Add(u"bare");
  EXPECT_EQ(list.IndexOfName(u"A"), 2);
  EXPECT_EQ(list.IndexOf(u"b=2"), 1);
  EXPECT_EQ(list.IndexOfName(u"bare"), -1);
  EXPECT_EQ(list.PIndexOf(u"BARE", 4), 3);
  list.Delete(2);
  EXPECT_EQ(list.IndexOfName(u"a"), 0);
  list.Insert(0, u"a=0");
  EXPECT_EQ(list.IndexOfName(u"a"), 1);
  list.Move(3, 0);
  EXPECT_EQ(list.IndexOf(u"bare"), 0);
  list.SetCaseSensitive(true);
  EXPECT_EQ(list.IndexOfName(u"A"), -1);
  EXPECT_EQ(list.PIndexOf(u"BARE", 4), -1);
  // Non-ASCII letters are distinct keys here.
  list.SetCaseSensitive(false);
  list.Add(u"\u00C4=1");
  EXPECT_EQ(list.IndexOfName(u"\u00E4"), -1);
}

TEST(HashedStringList, AppendingKeepsTablesEqualToARebuild) {
  THashedStringList grown, rebuilt;
  for (int i = 0; i < 600; ++i) {
    const std::u16string line = u"k" + std::u16string(1, char16_t(u'a' + i % 7)) + u"=" + std::u16string(1, char16_t(i));
    grown.Add(line);
    EXPECT_EQ(grown.IndexOf(line), i);  // looks up after every append
    rebuilt.Add(line);
  }
  for (char16_t c = u'a'; c < u'a' + 7; ++c) {
    const std::u16string name = std::u16string(u"K") + c;
    EXPECT_EQ(grown.IndexOfName(name), rebuilt.IndexOfName(name));
  }
}
