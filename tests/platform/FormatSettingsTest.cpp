#include <gtest/gtest.h>

#include "platform/FormatSettings.h"

using namespace orl;

TEST(FormatSettings, DatesAndTimesRoundTripAndRejectNonsense) {
  TDateTime d;
  ASSERT_TRUE(TryStrToDate(u"2024-02-29", d));
  EXPECT_EQ(d, EncodeDate(2024, 2, 29));
  EXPECT_EQ(DateToStr(d), u"2024-02-29");
  EXPECT_EQ(EncodeDate(1899, 12, 30), 0.0);
  EXPECT_FALSE(TryStrToDate(u"2023-02-29", d));
  EXPECT_FALSE(TryStrToDate(u"yesterday", d));

  TDateTime t;
  ASSERT_TRUE(TryStrToTime(u"13:05:09", t));
  EXPECT_EQ(TimeToStr(t), u"13:05:09");
  EXPECT_FALSE(TryStrToTime(u"25:00", t));

  ASSERT_TRUE(TryStrToDateTime(u"2024-01-02 06:30:00", d));
  EXPECT_EQ(DateTimeToStr(d), u"2024-01-02 06:30:00");
  EXPECT_EQ(DateTimeToStr(EncodeDate(2024, 1, 2)), u"2024-01-02");
}

TEST(FormatSettings, FloatsReadStrictly) {
  double v;
  ASSERT_TRUE(TryStrToFloat(u" 2.5 ", v));
  EXPECT_EQ(v, 2.5);
  EXPECT_FALSE(TryStrToFloat(u"2.5x", v));
  EXPECT_FALSE(TryStrToFloat(u"", v));
  EXPECT_FALSE(TryStrToFloat(u"nan", v));
  EXPECT_EQ(FloatToStr(0.1), u"0.1");
}
