#include <gtest/gtest.h>

#include "TempFolder.h"
#include "definition/MemIni.h"
#include "platform/CodePages.h"
#include "platform/FileIO.h"

using namespace orl;

namespace {
std::u16string Name(const std::filesystem::path& p) { return StringFromPath(p); }
} // namespace

TEST(MemIniFileUTF16, ReadsUtf16WithoutAMarkAndTrims) {
  test::TTempFolder dir;
  const auto path = dir / "Quillet.ini";
  test::WriteBytes(path, EncodeUtf16LE(u"[Customize]\r\nname=   value   \r\nempty=\r\n  ;x=1\r\n[\u00C4]\r\nk=v\r\n", false));
  TMemIniFileUTF16 settings(Name(path));
  EXPECT_EQ(settings.ReadString(u"Customize", u"name", u"d"), u"value");
  EXPECT_EQ(settings.ReadString(u"Customize", u"empty", u"d"), u"d");
  EXPECT_FALSE(settings.ValueExists(u"Customize", u";x"));
  EXPECT_EQ(settings.ReadString(u"\u00E4", u"K", u""), u"v");  // full case folding
  // The definition store takes the same bytes as ANSI and finds nothing.
  TMemIniFile definitionStore(Name(path));
  EXPECT_EQ(definitionStore.ReadString(u"Customize", u"name", u"missing"), u"missing");

  std::u16string value;
  EXPECT_TRUE(settings.ReadWideString(u"Customize", u"none", u"def", value));
  EXPECT_EQ(value, u"def");
}

TEST(MemIniFileUTF16, SectionsComeSortedAndEmptySectionsExist) {
  TMemIniFileUTF16 ini;
  TStringList untouched;
  untouched.Add(u"kept");
  ini.ReadSection(u"any", untouched);
  EXPECT_EQ(untouched.Count(), 1);  // no sections at all: the list stays

  TStringList lines;
  for (const char16_t* l : {u"[b]", u"x=1", u"[A]", u"[c]", u"y=2", u"[a]"}) lines.Add(l);
  ini.SetStrings(lines);
  TStringList names;
  ini.ReadSections(names);
  ASSERT_EQ(names.Count(), 3);
  EXPECT_EQ(names.Strings(0), u"A");
  EXPECT_EQ(names.Strings(2), u"c");
  EXPECT_TRUE(ini.SectionExists(u"A"));
  ini.ReadSection(u"missing", untouched);
  EXPECT_EQ(untouched.Count(), 0);
  EXPECT_EQ(ini.ReadInteger(u"c", u"y", 0), 2);
  ini.WriteBool(u"c", u"b", true);
  EXPECT_TRUE(ini.ReadBool(u"c", u"b", false));
}

TEST(MemIniFileUTF16, ChangeEventsFollowRealChangesOnly) {
  TMemIniFileUTF16 ini;
  int changes = 0;
  ini.OnChange = [&](TMemIniFileUTF16&) { ++changes; };
  ini.Clear();
  ini.DeleteKey(u"S", u"k");
  ini.EraseSection(u"S");
  EXPECT_EQ(changes, 0);
  ini.WriteString(u"S", u"k", u"v");
  ini.WriteString(u"S", u"k", u"v");
  EXPECT_EQ(changes, 2);
  ini.DeleteKey(u"S", u"k");
  ini.EraseSection(u"S");
  ini.WriteString(u"T", u"k", u"v");
  ini.Clear();
  EXPECT_EQ(changes, 6);
}

TEST(MemIniFileUTF16, FileRoundTripAndRename) {
  test::TTempFolder dir;
  TMemIniFileUTF16 ini(Name(dir / "a.ver"));
  ini.WriteString(u"C++", u"Author", u"Me");
  ini.UpdateFile();
  EXPECT_EQ(test::ReadBytes(dir / "a.ver"), EncodeUtf16LE(u"[C++]\r\nAuthor=Me\r\n\r\n", true));
  ini.Rename(Name(dir / "b.ver"), true);
  EXPECT_EQ(ini.ReadString(u"C++", u"Author", u"none"), u"none");
  ini.Rename(Name(dir / "a.ver"), true);
  EXPECT_EQ(ini.ReadString(u"C++", u"Author", u"none"), u"Me");
}

TEST(MemIniFileW, LanguageTextsFallBackAndLoseAmpersandsAsHints) {
  test::TTempFolder dir;
  test::WriteBytes(dir / "eng.ini", "[Menu]\r\n 0001 =  &Open...  \r\nempty=\r\n");
  TMemIniFileW language(Name(dir / "eng.ini"));
  std::u16string text;
  EXPECT_TRUE(language.ReadWideString(u"menu", u"0001", u"x", text));
  EXPECT_EQ(text, u"&Open...");
  EXPECT_TRUE(language.ReadWideStringHint(u"Menu", u"0001", u"x", text));
  EXPECT_EQ(text, u"Open...");
  EXPECT_FALSE(language.ReadWideStringHint(u"Menu", u"empty", u"&Default", text));
  EXPECT_EQ(text, u"Default");
  TMemIniFileW missing(Name(dir / "none.ini"));
  EXPECT_FALSE(missing.ReadWideString(u"Menu", u"0001", u"Open", text));
  TMemIniFileW folder(Name(dir.Path()));  // unreadable: fallbacks, no error
  EXPECT_FALSE(folder.ReadWideString(u"Menu", u"0001", u"Open", text));
}

TEST(IniFileW, ReadsTheFileAsItIsNowFirstMatchWins) {
  test::TTempFolder dir;
  const auto path = dir / "C.ini";
  const std::u16string large(100000, u'x');
  test::WriteBytes(path, EncodeUtf16LE(u"; c\r\n[Hints]\r\nA = \"quoted\" \r\na=second\r\nbig=" + large +
                                           u"\r\n\r\n[Other]\r\nq=1\r\n",
                                       true));
  TIniFileW ini(Name(path));
  EXPECT_EQ(ini.ReadString(u"hints", u"a", u"d"), u"quoted");
  EXPECT_EQ(ini.ReadString(u"Hints", u"none", u"d"), u"d");
  EXPECT_EQ(ini.ReadLargeString(u"Hints", u"big", u"").size(), 100000u);
  EXPECT_EQ(ini.ReadString(u"Hints", u"big", u"").size(), 100000u);
  std::u16string value;
  EXPECT_FALSE(ini.ReadLargeWideString(u"Other", u"none", u"def", value));
  EXPECT_EQ(value, u"def");
  TStringList lines;
  ini.ReadSectionValues(u"Hints", lines);
  ASSERT_EQ(lines.Count(), 3);
  EXPECT_EQ(lines.Strings(1), u"a=second");

  test::WriteBytes(path, "[Hints]\r\na=changed\r\n");
  EXPECT_EQ(ini.ReadString(u"Hints", u"A", u""), u"changed");
  TIniFileW missing(Name(dir / "none.ini"));
  EXPECT_EQ(missing.ReadString(u"S", u"k", u"d"), u"d");
}
