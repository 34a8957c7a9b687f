#pragma once
// The group-and-items pattern of the keyword, tag and completion pages: the
// groups are the keys of one section, the items the parts of a group's value.
// Every change is written into the store at once; a save only writes the
// store out. Headless; the form shows the two lists and forwards commands.

#include <string>
#include <vector>

#include "workbench/ItemListPage.h"

namespace orl {

class TMemIniFile;

enum class TGroupMember { gmKeyword, gmTag, gmClassCompletion, gmTagCompletion };

class TGroupPage : public TItemListPage {
public:
  TGroupPage(TSynDocument& document, TGroupMember member);

  TGroupMember Member() const { return FMember; }
  std::u16string_view Section() const;
  bool HasImages() const override;

  const std::vector<std::u16string>& Groups() const { return FGroups; }
  int SelectedGroup() const { return FSelectedGroup; }
  /// Add is refused on a keyword group of one regular expression that has its row.
  bool ItemAddEnabled() const { return FItemAddEnabled; }

  /// Empties both lists (no document).
  void Clear();
  void RefreshGroups();
  void SelectGroup(int row);

  void GroupAdd();
  void GroupEdit();
  void GroupSort();
  void GroupDelete();
  void GroupUp();
  void GroupDown();

  /// Words through the word dialog, completion items through the item dialog.
  void ItemAdd();
  void ItemEdit();
  /// Words alphabetically; completion items by image, then caption.
  void ItemSort();
  void ItemUppercase();
  void ItemLowercase();
  void ItemCapitalize();
  void ItemPaste();

protected:
  bool CanChangeItems() const override { return FSelectedGroup >= 0; }
  void StoreItems() override;
  void ItemsRemoved() override;

private:
  TMemIniFile* Store();
  std::u16string SelectedGroupName() const;
  bool IsRegexGroup() const;
  void LoadItems();
  void ReselectGroup(const std::u16string& name);
  void MoveGroup(int delta);
  template <typename TChange>
  void ChangeEveryWord(TChange change);
  void AddWords();
  std::vector<std::u16string> VariableGroups();

  TGroupMember FMember;
  std::vector<std::u16string> FGroups;
  int FSelectedGroup = -1;
  bool FItemAddEnabled = true;
};

} // namespace orl
