#pragma once
// The group-and-items pattern of the keyword, tag and completion pages: the
// groups are the keys of one section, the items the parts of a group's value.
// Every change is written into the store at once; a save only writes the
// store out. Headless; the form shows the two lists and forwards commands.

#include <optional>
#include <set>
#include <string>
#include <vector>

namespace orl {

class TSynDocument;
class TMemIniFile;

enum class TGroupMember { gmKeyword, gmTag, gmClassCompletion, gmTagCompletion };

/// The object behind a completion or user-menu row: its image and insert text.
struct TOrlBitmap {
  int nr = 0;
  std::u16string Value;  ///< insert text, line breaks as U+000C

  bool operator==(const TOrlBitmap&) const = default;
};

/// Makes a row object from an image letter; a letter outside the table gives image 0.
TOrlBitmap ImageFor(char16_t letter);
/// The letter of an image index; `l` for an index outside the table.
char16_t LetterOf(int index);

struct TItemRow {
  std::u16string Text;
  std::optional<TOrlBitmap> Object;  ///< none for a word

  bool operator==(const TItemRow&) const = default;
};

class TGroupPage {
public:
  TGroupPage(TSynDocument& document, TGroupMember member);

  TGroupMember Member() const { return FMember; }
  std::u16string_view Section() const;
  bool HasCompletionItems() const;

  const std::vector<std::u16string>& Groups() const { return FGroups; }
  int SelectedGroup() const { return FSelectedGroup; }
  const std::vector<TItemRow>& Items() const { return FItems; }
  const std::set<int>& SelectedItems() const { return FSelectedItems; }
  /// The item the keyboard stands on, -1 for none.
  int ItemIndex() const { return FItemIndex; }
  /// Add is refused on a keyword group of one regular expression that has its row.
  bool ItemAddEnabled() const { return FItemAddEnabled; }

  // Selection
  /// Empties both lists (no document).
  void Clear();
  void RefreshGroups();
  void SelectGroup(int row);
  /// Selects `rows`, with `current` as the item the keyboard stands on.
  void SelectItems(const std::set<int>& rows, int current);

  // Group commands
  void GroupAdd();
  void GroupEdit();
  void GroupSort();
  void GroupDelete();
  void GroupUp();
  void GroupDown();

  // Item commands
  void ItemAdd();
  void ItemEdit();
  void ItemSort();
  void ItemSortA();
  /// With `bAsk` false (Cut) the rows go without a question.
  void ItemDelete(bool bAsk = true);
  void ItemUp();
  void ItemDown();
  void ItemUppercase();
  void ItemLowercase();
  void ItemCapitalize();
  void ItemCopy();
  void ItemCut();
  void ItemPaste();
  /// Every selected row gets image `nr`, keeping its text.
  void ItemReplaceImages(int nr);

private:
  TMemIniFile* Store();
  std::u16string SelectedGroupName() const;
  bool IsRegexGroup() const;
  void LoadItems();
  void StoreItems();
  void AppendToGroup(const std::u16string& addition);
  void ReselectGroup(const std::u16string& name);
  void MoveGroup(int delta);
  void MoveItem(int delta);
  template <typename TChange>
  void ChangeEveryWord(TChange change);
  void AddCompletionRow(const std::u16string& caption, const std::u16string& storedText, int image);
  std::vector<std::u16string> VariableGroups();

  TSynDocument& FDocument;
  TGroupMember FMember;
  std::vector<std::u16string> FGroups;
  int FSelectedGroup = -1;
  std::vector<TItemRow> FItems;
  std::set<int> FSelectedItems;
  int FItemIndex = -1;
  bool FItemAddEnabled = true;
};

} // namespace orl
