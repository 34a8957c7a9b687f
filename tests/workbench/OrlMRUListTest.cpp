#include <gtest/gtest.h>

#include "TempFolder.h"
#include "platform/FileIO.h"
#include "workbench/OrlMRUList.h"

using namespace orl;

namespace {

struct TRecordedMenu : IMruMenu {
  std::vector<std::u16string> Entries;
  void Clear() override { Entries.clear(); }
  void AddEntry(const std::u16string& caption) override { Entries.push_back(caption); }
  void AddSeparator() override { Entries.push_back(u"-"); }
};

std::u16string Path(int i) { return u"/defs/" + StringFromPath(std::to_string(i)) + u".gdx"; }

} // namespace

TEST(OrlMRUList, AddFileMovesToTheTopDropsTheOldestAndSkipsRelativeNames) {
  TOrlMRUList list;
  for (int i = 0; i < 10; ++i) list.AddFile(Path(i));
  EXPECT_EQ(list.Strings().Count(), 10);
  list.AddFile(Path(10));
  EXPECT_EQ(list.Strings().Count(), 10);
  EXPECT_EQ(list.MRUFile(), Path(10));
  EXPECT_EQ(list.Strings().Strings(9), Path(1));  // Path(0) went
  list.AddFile(u"/DEFS/5.GDX");
  EXPECT_EQ(list.Strings().Count(), 10);
  EXPECT_EQ(list.MRUFile(), u"/DEFS/5.GDX");
  list.AddFile(u"relative.gdx");
  list.AddFile(u"");
  EXPECT_EQ(list.MRUFile(), u"/DEFS/5.GDX");
  list.AddFile(u"archive.zip|inner.gdx");
  EXPECT_EQ(list.MRUFile(), u"archive.zip|inner.gdx");
  EXPECT_EQ(list.MRUDirectory(), std::filesystem::path());
}

TEST(OrlMRUList, MenusShowAcceleratorsFiltersAndTheClearEntry) {
  TOrlMRUList list;
  TRecordedMenu recent, popup;
  list.RecentMenu = &recent;
  list.PopupMenu = &popup;
  list.ClearMenuString = u"Clear";
  list.RefreshList();
  EXPECT_EQ(recent.Entries, (std::vector<std::u16string>{u"-", u"Clear"}));

  list.Capacity = 50;
  for (int i = 39; i >= 0; --i) list.AddFile(Path(i));
  list.AddFile(u"/a|b.gdx");
  list.RefreshList();
  ASSERT_EQ(recent.Entries.size(), 43u);
  EXPECT_EQ(recent.Entries[0], u"&0 /a|b.gdx");
  EXPECT_EQ(popup.Entries[0], u"&0 /a?b.gdx");
  EXPECT_EQ(recent.Entries[35], u"&Z " + Path(34));
  EXPECT_EQ(recent.Entries[36], u"& " + Path(35));

  list.FileExtensions = u".ini";
  list.RefreshList();
  EXPECT_EQ(recent.Entries.size(), 2u);
  EXPECT_EQ(list.Strings().Count(), 0);
}

TEST(OrlMRUList, RemoveInvalidAndTheListFile) {
  test::TTempFolder dir;
  const auto existing = dir / "\u00C4rger.gdx";
  test::WriteBytes(existing, "x");
  const std::u16string longPath = u"/" + std::u16string(3000, u'd') + u".gdx";
  {
    TOrlMRUList list;
    list.SetFilename(dir / "Data" / "MRUSyntax.txt");
    EXPECT_EQ(list.Strings().Count(), 0);
    list.AddFile(StringFromPath(dir / "gone.gdx"));
    list.AddFile(longPath);
    list.AddFile(StringFromPath(existing));
  }  // written when the list goes, as when the program closes
  TOrlMRUList reloaded;
  reloaded.SetFilename(dir / "Data" / "MRUSyntax.txt");
  ASSERT_EQ(reloaded.Strings().Count(), 3);
  EXPECT_EQ(reloaded.MRUFile(), StringFromPath(existing));
  TRecordedMenu menu;
  reloaded.RecentMenu = &menu;
  reloaded.RefreshList();
  EXPECT_EQ(reloaded.Strings().Count(), 3);  // kept unless asked
  reloaded.RemoveInvalid = true;
  reloaded.RefreshList();
  EXPECT_EQ(reloaded.Strings().Count(), 1);
  reloaded.ClearList();
  TOrlMRUList cleared;
  cleared.SetFilename(dir / "Data" / "MRUSyntax.txt");
  EXPECT_EQ(cleared.Strings().Count(), 0);
}
