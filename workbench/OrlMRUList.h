#pragma once
// The most recently used definitions: kept in a plain text file, most recent
// first, and shown in up to three menus with a last entry that clears them.

#include <filesystem>
#include <functional>
#include <string>

#include "definition/StringList.h"

namespace orl {

/// A menu the list fills; the toolkit's menu stands behind it.
class IMruMenu {
public:
  virtual ~IMruMenu() = default;
  virtual void Clear() = 0;
  virtual void AddEntry(const std::u16string& caption) = 0;
  virtual void AddSeparator() = 0;
};

class TOrlMRUList {
public:
  TOrlMRUList() = default;
  /// Writes the list, as closing the host does; a write error is not raised here.
  ~TOrlMRUList();
  TOrlMRUList(const TOrlMRUList&) = delete;
  TOrlMRUList& operator=(const TOrlMRUList&) = delete;

  int Capacity = 10;
  int MaxDisplay = 65535;
  std::u16string ClearMenuString;
  /// When set, only files with exactly this extension (".gdx") are listed.
  std::u16string FileExtensions;
  /// Entries whose file is missing are dropped at a refresh.
  bool RemoveInvalid = false;
  IMruMenu* PopupMenu = nullptr;
  IMruMenu* RecentMenu = nullptr;
  IMruMenu* RecentMenu2 = nullptr;

  const std::filesystem::path& Filename() const { return FFilename; }
  /// Stores the name and loads the list.
  void SetFilename(const std::filesystem::path& fileName);
  const TStringList& Strings() const { return FMRU; }
  /// The first entry, or empty.
  std::u16string MRUFile() const { return FMRU.Strings(0); }
  std::filesystem::path MRUDirectory() const;

  /// Puts an absolute name at the top; relative names are not listed.
  void AddFile(std::u16string_view fileName);
  void ClearList();
  void LoadList();
  void SaveList();
  void RefreshList();
  void RemoveItem(int index);
  void RemovePath(std::u16string_view path);

  /// Caption of menu row `row` for `path`: an accelerator for the first 36 rows.
  static std::u16string MenuCaption(int row, std::u16string_view path);

private:
  void FillMenu(IMruMenu& menu, bool bPopup);
  bool KeepRow(int row) const;

  TStringList FMRU;
  bool FLoaded = false;
  std::filesystem::path FFilename;
};

} // namespace orl
