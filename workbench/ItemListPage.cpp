#include "workbench/ItemListPage.h"

#include <algorithm>
#include <charconv>

#include "definition/DefinitionFormat.h"
#include "definition/DefinitionItems.h"
#include "platform/CodePages.h"
#include "platform/Collation.h"
#include "platform/OrlError.h"
#include "workbench/SynDocument.h"

namespace orl {
namespace {

constexpr std::u16string_view kCrLf = u"\r\n";

std::u16string Number(int n) { return Utf8ToUtf16(std::to_string(n)); }

// A pasted image number must be a number.
int ImageNumber(const std::u16string& text) {
  int value = 0;
  const std::string digits = Utf16ToUtf8(text);
  const auto [end, ec] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  if (ec != std::errc() || end != digits.data() + digits.size() || digits.empty())
    throw EOrlError("'" + digits + "' is not a valid integer value");
  return value;
}

} // namespace

TOrlBitmap ImageFor(char16_t letter) { return TOrlBitmap{ImageIndexOfLetter(letter), {}}; }
char16_t LetterOf(int index) { return LetterOfImageIndex(index); }

std::u16string LineBreaksToStored(std::u16string text) {
  std::erase(text, u'\r');
  std::replace(text.begin(), text.end(), u'\n', kStoredLineBreak);
  return text;
}

std::u16string StoredToLineBreaks(std::u16string text) {
  std::replace(text.begin(), text.end(), kStoredLineBreak, u'\n');
  return text;
}

void TItemListPage::SelectItems(const std::set<int>& rows, int current) {
  FSelectedItems.clear();
  for (int row : rows)
    if (row >= 0 && size_t(row) < FItems.size()) FSelectedItems.insert(row);
  FItemIndex = current >= 0 && size_t(current) < FItems.size() ? current : -1;
}

void TItemListPage::ChangedItems() {
  StoreItems();
  FDocument.SetModified();
}

void TItemListPage::ItemSortA() {
  if (!CanChangeItems()) return;
  std::stable_sort(FItems.begin(), FItems.end(),
                   [](const TItemRow& a, const TItemRow& b) { return CompareTextLocale(a.Text, b.Text, false) < 0; });
  ChangedItems();
}

// The image number in front, two characters wide, makes the text sort by image first.
void TItemListPage::ItemSortByImage() {
  if (!CanChangeItems()) return;
  auto keyOf = [](const TItemRow& row) {
    const int nr = row.Object ? row.Object->nr : 0;
    return (nr < 10 ? u" " : u"") + Number(nr) + row.Text;
  };
  std::stable_sort(FItems.begin(), FItems.end(), [&](const TItemRow& a, const TItemRow& b) {
    return CompareTextLocale(keyOf(a), keyOf(b), false) < 0;
  });
  ChangedItems();
}

void TItemListPage::ItemDelete(bool bAsk) {
  if (!CanChangeItems() || FSelectedItems.empty()) return;
  if (bAsk && FDocument.Ui().MessageBox(u"Remove the menu item?", TMsgButtons::mbYesNo, u"Remove") != TMsgResult::mrYes)
    return;
  const int first = *FSelectedItems.begin();
  for (auto row = FSelectedItems.rbegin(); row != FSelectedItems.rend(); ++row) FItems.erase(FItems.begin() + *row);
  ChangedItems();
  const int next = first < int(FItems.size()) ? first : int(FItems.size()) - 1;
  SelectItems(next >= 0 ? std::set<int>{next} : std::set<int>{}, next);
  ItemsRemoved();
}

void TItemListPage::MoveItem(int delta) {
  const int target = FItemIndex + delta;
  if (!CanChangeItems() || FItemIndex < 0 || target < 0 || size_t(target) >= FItems.size()) return;
  std::swap(FItems[size_t(FItemIndex)], FItems[size_t(target)]);
  ChangedItems();
  SelectItems({target}, target);
}

void TItemListPage::ItemUp() { MoveItem(-1); }
void TItemListPage::ItemDown() { MoveItem(+1); }

void TItemListPage::ItemCopy() {
  std::u16string text;
  for (int row : FSelectedItems) {
    const TItemRow& item = FItems[size_t(row)];
    text += item.Text + std::u16string(kCrLf);
    if (!HasImages()) continue;
    text += Number(item.Object ? item.Object->nr : 0) + std::u16string(kCrLf);
    text += (item.Object ? item.Object->Value : u"") + std::u16string(kCrLf);
  }
  FDocument.Ui().SetClipboardText(text);
}

void TItemListPage::ItemCut() {
  ItemCopy();
  ItemDelete(false);
}

void TItemListPage::ItemReplaceImages(int nr) {
  if (!CanChangeItems() || !HasImages()) return;
  for (int row : FSelectedItems) {
    TItemRow& item = FItems[size_t(row)];
    TOrlBitmap object = ImageFor(LetterOf(nr));
    object.Value = item.Object ? item.Object->Value : u"";
    item.Object = object;
  }
  ChangedItems();
}

void TItemListPage::PasteItemTriples() {
  const std::vector<std::u16string> lines = SplitLines(FDocument.Ui().ClipboardText());
  try {
    for (size_t i = 0; i + 2 < lines.size(); i += 3) {
      const int image = ImageNumber(lines[i + 1]);
      TOrlBitmap object = ImageFor(LetterOf(image));
      object.nr = image;
      object.Value = lines[i + 2];
      FItems.push_back({lines[i], object});
    }
  } catch (const EOrlError&) {
    ChangedItems();
    throw;
  }
  ChangedItems();
}

TItemRow TItemListPage::RowFromDialog(const TItemDialogData& item) const {
  TOrlBitmap object = ImageFor(LetterOf(item.ImageIndex));
  object.Value = LineBreaksToStored(item.Text);
  return {item.Caption, object};
}

std::optional<TItemRow> TItemListPage::AskNewItem(const std::u16string& title, bool bAllowVariable,
                                                  const std::vector<std::u16string>& variables) {
  TItemDialogData item{title, u"", u"", FDocument.IconNr(), false, bAllowVariable, variables};
  if (!FDocument.Ui().EditItem(item)) return std::nullopt;
  FDocument.SetIconNr(item.ImageIndex);
  return RowFromDialog(item);
}

bool TItemListPage::EditCurrentItem(bool bAllowVariable, const std::vector<std::u16string>& variables) {
  if (!CanChangeItems() || FItemIndex < 0) return false;
  TItemRow& row = FItems[size_t(FItemIndex)];
  const bool bVariable = bAllowVariable && row.Text.starts_with(u'@');
  TItemDialogData item{u"Edit", row.Text, StoredToLineBreaks(row.Object ? row.Object->Value : u""),
                       row.Object ? row.Object->nr : 0, bVariable, bAllowVariable, variables};
  if (!FDocument.Ui().EditItem(item)) return false;
  FDocument.SetIconNr(item.ImageIndex);
  row = RowFromDialog(item);
  ChangedItems();
  return true;
}

} // namespace orl
