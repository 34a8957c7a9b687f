#include <gtest/gtest.h>

#include "definition/OrlIniFiles.h"

using namespace orl;

TEST(CustomIniFile, IntegersAndBooleansFallBackToTheDefault) {
  TMemIniFile ini;
  const std::pair<std::u16string, int> cases[] = {
      {u"0x10", 16}, {u"0X1f", 31}, {u"0x", -7}, {u"0xFFFFFFFF", -1}, {u"0x1FFFFFFFF", -7}, {u"-12", -12},
      {u"+3", 3},    {u"Yes", -7},  {u"", -7},   {u"2147483648", -7}, {u"-2147483648", INT32_MIN}, {u"1 ", -7}};
  for (const auto& [text, expected] : cases) {
    ini.WriteString(u"S", u"k", text);
    EXPECT_EQ(ini.ReadInteger(u"S", u"k", -7), expected) << std::string(text.begin(), text.end());
  }
  ini.WriteString(u"S", u"b", u"Yes");
  EXPECT_TRUE(ini.ReadBool(u"S", u"b", true));
  EXPECT_FALSE(ini.ReadBool(u"S", u"b", false));
  ini.WriteBool(u"S", u"b", true);
  EXPECT_EQ(ini.ReadString(u"S", u"b", u""), u"1");
  ini.WriteInteger(u"S", u"i", -5);
  EXPECT_EQ(ini.ReadString(u"S", u"i", u""), u"-5");
}

TEST(CustomIniFile, BinaryStreamsWriteFromAndReadAtThePosition) {
  TMemIniFile ini;
  TMemoryStream source;
  const uint8_t bytes[] = {0x00, 0xAB, 0x7F};
  source.Write(bytes, 3);
  source.SetPosition(1);
  ini.WriteBinaryStream(u"S", u"bin", source);
  EXPECT_EQ(ini.ReadString(u"S", u"bin", u""), u"AB7F");

  TMemoryStream target;
  target.Write(bytes, 1);
  EXPECT_EQ(ini.ReadBinaryStream(u"S", u"bin", target), 2);
  EXPECT_EQ(target.Position(), 1u);
  EXPECT_EQ(target.Data(), (std::vector<uint8_t>{0x00, 0xAB, 0x7F}));
  EXPECT_EQ(ini.ReadBinaryStream(u"S", u"none", target), 0);
}

TEST(CustomIniFile, FloatsDatesAndTimesReadTheDefaultOnBadText) {
  TMemIniFile ini;
  ini.WriteFloat(u"S", u"f", 1.25);
  EXPECT_EQ(ini.ReadFloat(u"S", u"f", 0), 1.25);
  ini.WriteDate(u"S", u"d", EncodeDate(2020, 5, 17));
  EXPECT_EQ(ini.ReadDate(u"S", u"d", 0), EncodeDate(2020, 5, 17));
  ini.WriteTime(u"S", u"t", EncodeTime(8, 0, 30, 0));
  EXPECT_DOUBLE_EQ(ini.ReadTime(u"S", u"t", 0), EncodeTime(8, 0, 30, 0));
  ini.WriteDateTime(u"S", u"dt", EncodeDate(2020, 5, 17) + EncodeTime(8, 0, 30, 0));
  EXPECT_DOUBLE_EQ(ini.ReadDateTime(u"S", u"dt", 0), EncodeDate(2020, 5, 17) + EncodeTime(8, 0, 30, 0));
  ini.WriteString(u"S", u"bad", u"soon");
  EXPECT_EQ(ini.ReadFloat(u"S", u"bad", 9.5), 9.5);
  EXPECT_EQ(ini.ReadDate(u"S", u"bad", 3), 3);
  EXPECT_EQ(ini.ReadDateTime(u"S", u"missing", 4), 4);
}

TEST(CustomIniFile, PrefixSectionsAndValueExistsIgnoreCase) {
  TMemIniFile ini;
  for (const char16_t* s : {u"Recent1", u"recent2", u"Other", u"Re"}) ini.WriteString(s, u"\u00C4k", u"");
  TStringList found;
  ini.ReadSections(u"RECENT", found);
  ASSERT_EQ(found.Count(), 2);
  EXPECT_EQ(found.Strings(1), u"recent2");
  EXPECT_TRUE(ini.ValueExists(u"Other", u"\u00E4K"));
  EXPECT_FALSE(ini.ValueExists(u"Other", u"k"));
  EXPECT_FALSE(ini.ValueExists(u"Nowhere", u"k"));
}
