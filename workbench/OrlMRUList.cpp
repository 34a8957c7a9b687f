#include "workbench/OrlMRUList.h"

#include "platform/CodePages.h"
#include "platform/Collation.h"
#include "platform/FileIO.h"
#include "platform/OrlError.h"

namespace orl {
namespace fs = std::filesystem;

namespace {
constexpr std::u16string_view kAccelerators = u"0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ";

// Paths here start at the root; a `|` marks a path inside a container.
bool IsListable(std::u16string_view name) { return name.starts_with(u'/') || name.find(u'|') != name.npos; }
} // namespace

TOrlMRUList::~TOrlMRUList() {
  try {
    SaveList();
  } catch (const EOrlError&) {
  }
}

void TOrlMRUList::SetFilename(const fs::path& fileName) {
  FFilename = fileName;
  LoadList();
}

fs::path TOrlMRUList::MRUDirectory() const { return PathFromString(MRUFile()).parent_path(); }

void TOrlMRUList::AddFile(std::u16string_view fileName) {
  if (!IsListable(fileName)) return;
  for (int i = FMRU.Count() - 1; i >= 0; --i)
    if (SameTextFolded(FMRU.Strings(i), fileName)) FMRU.Delete(i);
  while (FMRU.Count() > 0 && FMRU.Count() >= Capacity) FMRU.Delete(FMRU.Count() - 1);
  FMRU.Insert(0, std::u16string(fileName));
}

void TOrlMRUList::ClearList() {
  FMRU.Clear();
  SaveList();
}

void TOrlMRUList::LoadList() {
  if (FLoaded) return;
  FMRU.Clear();
  if (FFilename.empty() || !FileExists(FFilename)) return;
  FMRU.LoadFromFile(FFilename, SystemAnsiCodePage());
  FLoaded = true;
}

void TOrlMRUList::SaveList() {
  if (FFilename.empty()) return;
  std::error_code ec;
  fs::create_directories(FFilename.parent_path(), ec);
  FMRU.SaveToFile(FFilename);
}

void TOrlMRUList::RemoveItem(int index) {
  if (index >= 0) FMRU.Delete(index);
}

void TOrlMRUList::RemovePath(std::u16string_view path) {
  for (int i = 0; i < FMRU.Count(); ++i)
    if (FMRU.Strings(i) == path) {
      FMRU.Delete(i);
      return;
    }
}

std::u16string TOrlMRUList::MenuCaption(int row, std::u16string_view path) {
  std::u16string caption = u"&";
  if (row >= 0 && size_t(row) < kAccelerators.size()) caption += kAccelerators[size_t(row)];
  caption += u' ';
  return caption + std::u16string(path);
}

bool TOrlMRUList::KeepRow(int row) const {
  const std::u16string& path = FMRU.Strings(row);
  if (path.empty()) return false;
  if (RemoveInvalid && !FileExists(PathFromString(path))) return false;
  return FileExtensions.empty() || StringFromPath(PathFromString(path).extension()) == FileExtensions;
}

void TOrlMRUList::FillMenu(IMruMenu& menu, bool bPopup) {
  menu.Clear();
  int row = 0;
  while (row < std::min(FMRU.Count(), MaxDisplay)) {
    if (!KeepRow(row)) {
      FMRU.Delete(row);
      continue;
    }
    std::u16string path = FMRU.Strings(row);
    // The pop-up shows a container mark as `?`; every path here lies under the one root.
    if (bPopup) std::replace(path.begin(), path.end(), u'|', u'?');
    menu.AddEntry(MenuCaption(row, path));
    ++row;
  }
  menu.AddSeparator();
  menu.AddEntry(ClearMenuString);
}

void TOrlMRUList::RefreshList() {
  if (PopupMenu) FillMenu(*PopupMenu, true);
  if (RecentMenu) FillMenu(*RecentMenu, false);
  if (RecentMenu2) FillMenu(*RecentMenu2, false);
}

} // namespace orl
