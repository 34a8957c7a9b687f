#include "syntax/RegexPattern.h"

#include <gtest/gtest.h>

#include <thread>

namespace orl {
namespace {

std::unique_ptr<TRegexPattern> MustCompile(std::u16string_view pattern, bool bCaseInsensitive = true) {
  std::u16string error;
  auto compiled = TRegexPattern::Compile(pattern, bCaseInsensitive, error);
  EXPECT_TRUE(compiled) << std::string(error.begin(), error.end());
  return compiled;
}

TEST(RegexPattern, BadPatternGivesNullAndTheLibrarysMessage) {
  std::u16string error;
  EXPECT_EQ(TRegexPattern::Compile(u"(unclosed", true, error), nullptr);
  EXPECT_NE(error.find(u"offset 9"), std::u16string::npos);
  EXPECT_NE(error.find(u"missing"), std::u16string::npos);
}

TEST(RegexPattern, FindSearchesFromStartAndSeesNothingBehindStop) {
  const auto p = MustCompile(u"b+");
  const std::u16string subject = u"abba bbb";
  const TRegexMatch first = p->Find(subject, 0, subject.size());
  EXPECT_TRUE(first.Found());
  EXPECT_EQ(first.Start, 1u);
  EXPECT_EQ(first.Length, 2u);
  const TRegexMatch second = p->Find(subject, 3, subject.size());
  EXPECT_EQ(second.Start, 5u);
  EXPECT_EQ(second.Length, 3u);
  EXPECT_EQ(p->Find(subject, 5, 7).Length, 2u);   // the stop cuts the run
  EXPECT_FALSE(p->Find(subject, 3, 4).Found());   // nothing before the stop
  EXPECT_FALSE(p->Find(subject, 9, 20).Found());  // start behind the subject
}

TEST(RegexPattern, MatchAtOnlyCountsAMatchAtThatPosition) {
  const auto p = MustCompile(u"\\d+");
  const std::u16string subject = u"x12 34";
  EXPECT_FALSE(p->MatchAt(subject, 0, subject.size()).Found());
  EXPECT_EQ(p->MatchAt(subject, 1, subject.size()).Length, 2u);
  EXPECT_FALSE(p->MatchAt(subject, 3, subject.size()).Found());
  EXPECT_TRUE(p->Find(subject, 3, subject.size()).Found());
}

TEST(RegexPattern, CaseRuleAndUtf16Offsets) {
  EXPECT_TRUE(MustCompile(u"BEGIN")->Find(u"begin", 0, 5).Found());
  EXPECT_FALSE(MustCompile(u"BEGIN", false)->Find(u"begin", 0, 5).Found());
  EXPECT_TRUE(MustCompile(u"ÄÖ")->Find(u"xäö", 0, 3).Found());
  // A character outside the basic plane counts as two units.
  const std::u16string subject = u"\U0001F600ab";
  EXPECT_EQ(MustCompile(u"ab")->Find(subject, 0, subject.size()).Start, 2u);
}

TEST(RegexPattern, LoneSurrogateDoesNotFailTheRow) {
  std::u16string subject = u"ab";
  subject += char16_t(0xD800);
  subject += u"key";
  const TRegexMatch m = MustCompile(u"key")->Find(subject, 0, subject.size());
  EXPECT_TRUE(m.Found());
  EXPECT_EQ(m.Start, 3u);
}

TEST(RegexPattern, RunawayPatternStopsWithAnError) {
  const auto p = MustCompile(u"(a+)+$");
  const std::u16string subject = std::u16string(40, u'a') + u"!";
  const TRegexMatch m = p->Find(subject, 0, subject.size());
  EXPECT_EQ(m.Status, TRegexStatus::rsError);
  EXPECT_FALSE(m.Error.empty());
}

TEST(RegexPattern, ThreadsShareOnePatternSafely) {
  const auto p = MustCompile(u"w\\w+");
  const std::u16string subject = u"one xyz words";
  std::vector<std::thread> threads;
  std::atomic<int> found{0};
  for (int t = 0; t < 4; ++t)
    threads.emplace_back([&] {
      for (int i = 0; i < 1000; ++i)
        if (p->Find(subject, 0, subject.size()).Start == 8) ++found;
    });
  for (std::thread& t : threads) t.join();
  EXPECT_EQ(found.load(), 4000);
}

} // namespace
} // namespace orl
