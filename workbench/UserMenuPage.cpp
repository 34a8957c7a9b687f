#include "workbench/UserMenuPage.h"

#include "definition/DefinitionFormat.h"
#include "definition/DefinitionItems.h"
#include "workbench/SynDocument.h"

namespace orl {

bool TUserMenuPage::CanChangeItems() const { return FDocument.SynIni() != nullptr; }

void TUserMenuPage::Refresh() {
  FItems.clear();
  FSelectedItems.clear();
  FItemIndex = -1;
  if (!CanChangeItems()) return;
  TStringList entries;
  FDocument.SynIni()->ReadSectionValues(sections::UserMenu, entries);
  int image = 0;
  for (int i = 0; i < entries.Count(); ++i) {
    const TUserMenuEntry entry = SplitUserMenuEntry(entries.ValueFromIndex(i));
    if (entry.ImageLetter) image = ImageIndexOfLetter(entry.ImageLetter);
    FItems.push_back({entry.Caption, TOrlBitmap{image, entry.InsertText}});
  }
}

void TUserMenuPage::StoreItems() {
  TStringList lines;
  for (const TItemRow& row : FItems) {
    const TOrlBitmap object = row.Object.value_or(TOrlBitmap{});
    lines.Add(row.Text + u"|" + object.Value + u"+" + std::u16string(1, LetterOf(object.nr)));
  }
  FDocument.SynIni()->SetSection(sections::UserMenu, lines, true);
}

void TUserMenuPage::Add() {
  if (!CanChangeItems()) return;
  const std::optional<TItemRow> row = AskNewItem(FDocument.Text(u"312"), false, {});
  if (!row) return;
  FItems.push_back(*row);
  ChangedItems();
}

void TUserMenuPage::Edit() { EditCurrentItem(false, {}); }

// The dialog opens next time on the image of the last pasted entry.
void TUserMenuPage::Paste() {
  if (!CanChangeItems()) return;
  const size_t before = FItems.size();
  PasteItemTriples();
  if (FItems.size() > before) FDocument.SetIconNr(FItems.back().Object->nr);
}

} // namespace orl
