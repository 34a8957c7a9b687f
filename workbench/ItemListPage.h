#pragma once
// A list of items on a page: the words of a group, or the completion and
// user-menu items with their images and insert texts. The commands that
// every such list shares live here; each page says where its items are stored.

#include <optional>
#include <set>
#include <string>
#include <vector>

namespace orl {

class TSynDocument;
struct TItemDialogData;

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

class TItemListPage {
public:
  explicit TItemListPage(TSynDocument& document) : FDocument(document) {}
  virtual ~TItemListPage() = default;

  const std::vector<TItemRow>& Items() const { return FItems; }
  const std::set<int>& SelectedItems() const { return FSelectedItems; }
  /// The item the keyboard stands on, -1 for none.
  int ItemIndex() const { return FItemIndex; }
  /// Rows with an image and an insert text, rather than plain words.
  virtual bool HasImages() const = 0;

  /// Selects `rows`, with `current` as the item the keyboard stands on.
  void SelectItems(const std::set<int>& rows, int current);
  /// Alphabetical, ignoring case.
  void ItemSortA();
  /// By image, then by text.
  void ItemSortByImage();
  /// With `bAsk` false (Cut) the rows go without a question.
  void ItemDelete(bool bAsk = true);
  void ItemUp();
  void ItemDown();
  /// Words one a line; items three lines each: caption, image number, text.
  void ItemCopy();
  void ItemCut();
  /// Every selected row gets image `nr`, keeping its text.
  void ItemReplaceImages(int nr);

protected:
  /// False while there is nothing to hold items (no group, no document).
  virtual bool CanChangeItems() const = 0;
  /// Writes the rows back where they live.
  virtual void StoreItems() = 0;
  /// After rows went: a page may change what it offers.
  virtual void ItemsRemoved() {}

  /// Adds the items of the clipboard's triples; a bad image number raises
  /// after the triples before it were added and stored.
  void PasteItemTriples();
  /// The item dialog for a new row; nothing on Cancel. The image it starts
  /// with, and the one it ends with, is the document's last used image.
  std::optional<TItemRow> AskNewItem(const std::u16string& title, bool bAllowVariable,
                                     const std::vector<std::u16string>& variables);
  /// The item dialog on the current row; true when the row changed.
  bool EditCurrentItem(bool bAllowVariable, const std::vector<std::u16string>& variables);
  void ChangedItems();

  TSynDocument& FDocument;
  std::vector<TItemRow> FItems;
  std::set<int> FSelectedItems;
  int FItemIndex = -1;

private:
  void MoveItem(int delta);
  TItemRow RowFromDialog(const TItemDialogData& item) const;
};

std::u16string LineBreaksToStored(std::u16string text);
std::u16string StoredToLineBreaks(std::u16string text);

} // namespace orl
