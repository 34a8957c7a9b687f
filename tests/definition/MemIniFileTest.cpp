#include <gtest/gtest.h>

#include "TempFolder.h"
#include "definition/OrlIniFiles.h"
#include "platform/CodePages.h"
#include "platform/FileIO.h"
#include "platform/OrlError.h"

using namespace orl;

namespace {

TStringList& Lines(TStringList& list, std::initializer_list<std::u16string> lines) {
  list.Clear();
  for (const auto& l : lines) list.Add(l);
  return list;
}

std::vector<std::u16string> Image(const TMemIniFile& ini) {
  TStringList list;
  ini.GetStrings(list);
  std::vector<std::u16string> out;
  for (int i = 0; i < list.Count(); ++i) out.push_back(list.Strings(i));
  return out;
}

} // namespace

TEST(MemIniFile, LoadKeepsValuesExactlyAndFollowsTheLineRules) {
  TMemIniFile ini;
  TStringList list;
  ini.SetStrings(Lines(list, {u"before=dropped", u"[ Name ]", u"  key  = a = b  ", u"  ;x=1", u";y=2", u"bare line",
                              u"", u"[]", u"e=\U0001F600\u00A6", u"[Name]", u"k=second"}));
  EXPECT_EQ(Image(ini), (std::vector<std::u16string>{u"[Name]", u"key= a = b  ", u";x=1", u"bare line", u"", u"[]",
                                                      u"e=\U0001F600\u00A6", u"", u"[Name]", u"k=second", u""}));
  EXPECT_EQ(ini.ReadString(u"", u"e", u"?"), u"\U0001F600\u00A6");
  // The same header twice gives two sections; lookups find the last.
  EXPECT_EQ(ini.ReadString(u"name", u"k", u"?"), u"second");
  EXPECT_EQ(ini.ReadString(u"Name", u"key", u"?"), u"?");
  ini.EraseSection(u"Name");
  EXPECT_EQ(ini.ReadString(u"Name", u"key", u"?"), u" a = b  ");
  EXPECT_EQ(ini.ReadString(u"Name", u";x", u"?"), u"1");
  EXPECT_EQ(ini.ReadString(u"Name", u";y", u"?"), u"?");
}

TEST(MemIniFile, DuplicateNamesReadAndWriteTheLast) {
  TMemIniFile ini;
  TStringList list;
  ini.SetStrings(Lines(list, {u"[S]", u"1=a", u"1=b"}));
  EXPECT_EQ(ini.ReadString(u"S", u"1", u""), u"b");
  ini.ReadSectionValues(u"S", list);
  EXPECT_EQ(list.Count(), 2);
  ini.WriteString(u"S", u"1", u"c");
  EXPECT_EQ(Image(ini), (std::vector<std::u16string>{u"[S]", u"1=a", u"1=c", u""}));
  ini.WriteString(u"S", u"empty", u"");
  EXPECT_EQ(ini.ReadString(u"S", u"empty", u"default"), u"");
  ini.DeleteKey(u"S", u"1");
  EXPECT_EQ(ini.ReadString(u"S", u"1", u""), u"a");
  ini.DeleteKey(u"missing", u"1");
  ini.EraseSection(u"missing");
}

TEST(MemIniFile, SetSectionMovesToTheEndAndNumbersLines) {
  TMemIniFile ini;
  TStringList list;
  ini.SetStrings(Lines(list, {u"[A]", u"x=1", u"[B]", u"y=2"}));
  ini.WriteString(u"A", u"z", u"3");
  EXPECT_EQ(Image(ini).front(), u"[A]");
  ini.SetSection(u"A", Lines(list, {u"a", u"", u";b", u"c"}), true);
  EXPECT_EQ(Image(ini), (std::vector<std::u16string>{u"[B]", u"y=2", u"", u"[A]", u"1=a", u"2=c", u""}));
  ini.SetSection(u" C ", Lines(list, {}), false);
  EXPECT_EQ(Image(ini).back(), u"");
  TStringList sections;
  ini.ReadSections(sections);
  EXPECT_EQ(sections.Strings(2), u"C");
  EXPECT_FALSE(ini.SectionExists(u"C"));  // listed, but has no lines
  EXPECT_TRUE(ini.SectionExists(u"b"));
}

TEST(MemIniFile, SortAndMoveReorderInsideASection) {
  TMemIniFile ini;
  TStringList list;
  ini.SetStrings(Lines(list, {u"[S]", u"b=1", u"A=2", u"b=3", u"zz", u"[T]", u"t=1"}));
  ini.SortSection(u"S");
  EXPECT_EQ(Image(ini), (std::vector<std::u16string>{u"[T]", u"t=1", u"", u"[S]", u"A=2", u"b=3", u"zz", u""}));
  ini.SortSection(u"missing");
  EXPECT_EQ(Image(ini).size(), 8u);

  ini.MoveSectionUp(u"S", 0);
  ini.MoveSectionDown(u"S", 2);
  EXPECT_EQ(Image(ini)[4], u"A=2");
  ini.MoveSectionDown(u"S", 0);
  EXPECT_EQ(Image(ini)[4], u"b=3");
  ini.MoveSectionUp(u"S", 2);
  EXPECT_EQ(Image(ini)[5], u"zz");
  ini.RenameSection(u"T", u"U");
  EXPECT_EQ(ini.ReadString(u"U", u"t", u""), u"1");
}

TEST(MemIniFile, FileRoundTripWritesUtf16AndDropsComments) {
  test::TTempFolder dir;
  const auto path = dir / "d.gdx";
  test::WriteBytes(path, ";{}\r\n\r\n[A]\r\n; note\r\nk= v \r\n\r\n\r\n[B]\nx=\xE4\r");
  TMemIniFile ini(StringFromPath(path));
  EXPECT_EQ(ini.ReadString(u"B", u"x", u""), u"\u00E4");  // ANSI without a mark
  ini.UpdateFile();
  EXPECT_EQ(test::ReadBytes(path), EncodeUtf16LE(u"[A]\r\nk= v \r\n\r\n[B]\r\nx=\u00E4\r\n\r\n", true));
  TMemIniFile again(StringFromPath(path));
  EXPECT_EQ(again.ReadString(u"A", u"k", u""), u" v ");
}

TEST(MemIniFile, RenameAndMissingOrUnreadableFiles) {
  test::TTempFolder dir;
  TMemIniFile missing(StringFromPath(dir / "none.ini"));
  TStringList sections;
  missing.ReadSections(sections);
  EXPECT_EQ(sections.Count(), 0);

  missing.WriteString(u"S", u"k", u"v");
  missing.Rename(StringFromPath(dir / "other.ini"), false);
  missing.UpdateFile();
  TMemIniFile other(StringFromPath(dir / "other.ini"));
  EXPECT_EQ(other.ReadString(u"S", u"k", u""), u"v");
  other.Rename(StringFromPath(dir / "none.ini"), true);
  EXPECT_EQ(other.ReadString(u"S", u"k", u"gone"), u"gone");

  EXPECT_THROW(TMemIniFile(StringFromPath(dir.Path())), EFileError);
  other.WriteString(u"S", u"kept", u"1");
  EXPECT_THROW(other.Rename(StringFromPath(dir.Path()), true), EFileError);
  EXPECT_EQ(other.ReadString(u"S", u"kept", u""), u"1");
  EXPECT_EQ(other.FileName(), StringFromPath(dir / "none.ini"));
  other.Rename(StringFromPath(dir / "no" / "folder.ini"), false);
  EXPECT_THROW(other.UpdateFile(), EFileError);
}

TEST(MemIniFile, CaseSensitivityReachesEverySection) {
  TMemIniFile ini;
  ini.WriteString(u"S", u"Key", u"1");
  EXPECT_EQ(ini.ReadString(u"s", u"KEY", u""), u"1");
  EXPECT_TRUE(ini.ValueExists(u"S", u"kEy"));
  ini.SetCaseSensitive(true);
  EXPECT_EQ(ini.ReadString(u"s", u"Key", u"-"), u"-");
  EXPECT_EQ(ini.ReadString(u"S", u"KEY", u"-"), u"-");
  EXPECT_TRUE(ini.ValueExists(u"S", u"KEY"));  // ValueExists always ignores case
  ini.WriteString(u"S", u"KEY", u"2");
  EXPECT_EQ(ini.ReadString(u"S", u"Key", u""), u"1");
}
