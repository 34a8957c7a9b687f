#include "workbench/GroupPage.h"

#include <algorithm>

#include "definition/DefinitionFormat.h"
#include "definition/DefinitionItems.h"
#include "platform/CodePages.h"
#include "platform/Collation.h"
#include "workbench/SynDocument.h"

namespace orl {
namespace {

std::u16string CompletionValue(const TItemRow& row) {
  const int image = row.Object ? row.Object->nr : 0;
  return row.Text + u"|" + (row.Object ? row.Object->Value : u"") + u"+" + std::u16string(1, LetterOf(image)) + u"##";
}

char16_t AsciiUpper(char16_t c) { return c >= u'a' && c <= u'z' ? char16_t(c - 32) : c; }
char16_t AsciiLower(char16_t c) { return c >= u'A' && c <= u'Z' ? char16_t(c + 32) : c; }

} // namespace

TGroupPage::TGroupPage(TSynDocument& document, TGroupMember member) : TItemListPage(document), FMember(member) {}

std::u16string_view TGroupPage::Section() const {
  switch (FMember) {
  case TGroupMember::gmKeyword: return sections::Keywords;
  case TGroupMember::gmTag: return sections::Tags;
  case TGroupMember::gmClassCompletion: return sections::AutoComplete;
  case TGroupMember::gmTagCompletion: break;
  }
  return sections::TagComplete;
}

bool TGroupPage::HasImages() const {
  return FMember == TGroupMember::gmClassCompletion || FMember == TGroupMember::gmTagCompletion;
}

TMemIniFile* TGroupPage::Store() { return HasImages() ? FDocument.SynIni() : FDocument.SynGdx(); }

std::u16string TGroupPage::SelectedGroupName() const {
  return FSelectedGroup >= 0 && size_t(FSelectedGroup) < FGroups.size() ? FGroups[size_t(FSelectedGroup)] : u"";
}

bool TGroupPage::IsRegexGroup() const {
  return FMember == TGroupMember::gmKeyword && orl::IsRegexGroup(SelectedGroupName());
}

// ---- selection ---------------------------------------------------------------

void TGroupPage::Clear() {
  FGroups.clear();
  FItems.clear();
  FSelectedItems.clear();
  FSelectedGroup = FItemIndex = -1;
  FItemAddEnabled = true;
}

void TGroupPage::RefreshGroups() {
  if (!FDocument.SynIni()) return;
  Clear();
  TStringList names;
  Store()->ReadSection(Section(), names);
  for (int i = 0; i < names.Count(); ++i) FGroups.push_back(names.Strings(i));
}

void TGroupPage::SelectGroup(int row) {
  FSelectedGroup = row >= 0 && size_t(row) < FGroups.size() ? row : -1;
  FItems.clear();
  FSelectedItems.clear();
  FItemIndex = -1;
  if (FSelectedGroup >= 0) LoadItems();
  ItemsRemoved();
}

void TGroupPage::LoadItems() {
  const std::u16string value = Store()->ReadString(Section(), SelectedGroupName(), u"");
  if (HasImages()) {
    for (const TCompletionItem& item : SplitCompletionItems(value))
      FItems.push_back(item.IsGroupReference ? TItemRow{item.Caption, ImageFor(u'@')}
                                             : TItemRow{item.Caption, TOrlBitmap{item.ImageIndex, item.InsertText}});
  } else if (orl::IsRegexGroup(SelectedGroupName()) && !value.empty()) {
    FItems.push_back({value, std::nullopt});
  } else {
    for (std::u16string& word : SplitWords(value)) FItems.push_back({std::move(word), std::nullopt});
  }
}

void TGroupPage::StoreItems() {
  std::u16string value;
  if (HasImages()) {
    for (const TItemRow& row : FItems) value += row.Text.starts_with(u'@') ? row.Text + u"##" : CompletionValue(row);
  } else if (orl::IsRegexGroup(SelectedGroupName())) {
    if (!FItems.empty()) value = FItems.front().Text;
  } else {
    for (const TItemRow& row : FItems) value += row.Text + u"|";
  }
  Store()->WriteString(Section(), SelectedGroupName(), value);
}

// ---- groups ------------------------------------------------------------------

void TGroupPage::ReselectGroup(const std::u16string& name) {
  RefreshGroups();
  const auto found = std::find(FGroups.begin(), FGroups.end(), name);
  SelectGroup(found == FGroups.end() ? -1 : int(found - FGroups.begin()));
}

void TGroupPage::GroupAdd() {
  if (!Store()) return;
  const std::optional<std::u16string> name = FDocument.Ui().Prompt(
      FDocument.Text(u"300"), FDocument.Text(HasImages() ? u"315" : u"313"), u"");
  if (!name || name->empty()) return;
  Store()->WriteString(Section(), *name, u"");
  RefreshGroups();
  const auto found = std::find(FGroups.rbegin(), FGroups.rend(), *name);
  SelectGroup(int(FGroups.rend() - found) - 1);
  FDocument.SetModified();
}

// The renamed group stands last in the store; the list shows that at its next refresh.
// A name that is taken already gets a second line, so no group's words are lost.
void TGroupPage::GroupEdit() {
  const std::u16string old = SelectedGroupName();
  if (old.empty()) return;
  const std::optional<std::u16string> name = FDocument.Ui().Prompt(
      FDocument.Text(u"301"), FDocument.Text(HasImages() ? u"315" : u"313"), old);
  if (!name || *name == old) return;
  const std::u16string value = Store()->ReadString(Section(), old, u"");
  Store()->DeleteKey(Section(), old);
  if (Store()->ValueExists(Section(), *name)) Store()->SectionLines(Section())->Add(*name + u"=" + value);
  else Store()->WriteString(Section(), *name, value);
  FGroups[size_t(FSelectedGroup)] = *name;
  FDocument.SetModified();
}

void TGroupPage::GroupSort() {
  if (!Store()) return;
  const std::u16string name = SelectedGroupName();
  Store()->SortSection(Section());
  ReselectGroup(name);
  FDocument.SetModified();
}

void TGroupPage::GroupDelete() {
  const std::u16string name = SelectedGroupName();
  if (name.empty()) return;
  if (FDocument.Ui().MessageBox(u"Remove the menu?", TMsgButtons::mbYesNo, u"Remove") != TMsgResult::mrYes) return;
  Store()->DeleteKey(Section(), name);
  FGroups.erase(FGroups.begin() + FSelectedGroup);
  SelectGroup(-1);
  FDocument.SetModified();
}

// Moving the first group up or the last down changes nothing, yet counts as an edit.
void TGroupPage::MoveGroup(int delta) {
  if (FSelectedGroup < 0) return;
  const std::u16string name = SelectedGroupName();
  if (delta < 0) Store()->MoveSectionUp(Section(), FSelectedGroup);
  else Store()->MoveSectionDown(Section(), FSelectedGroup);
  const int target = std::clamp(FSelectedGroup + delta, 0, int(FGroups.size()) - 1);
  RefreshGroups();
  SelectGroup(FGroups[size_t(target)] == name ? target : int(std::find(FGroups.begin(), FGroups.end(), name) - FGroups.begin()));
  FDocument.SetModified();
}

void TGroupPage::GroupUp() { MoveGroup(-1); }
void TGroupPage::GroupDown() { MoveGroup(+1); }

// ---- items -------------------------------------------------------------------

std::vector<std::u16string> TGroupPage::VariableGroups() {
  TStringList names;
  FDocument.SynIni()->ReadSection(Section(), names);
  std::vector<std::u16string> groups;
  for (int i = 0; i < names.Count(); ++i)
    if (names.Strings(i).find(u'@') != std::u16string::npos) groups.push_back(names.Strings(i));
  return groups;
}

void TGroupPage::ItemsRemoved() { FItemAddEnabled = !(IsRegexGroup() && !FItems.empty()); }

void TGroupPage::AddWords() {
  const bool bRegex = IsRegexGroup();
  const std::optional<std::vector<std::u16string>> words = FDocument.Ui().AddWords(bRegex);
  if (!words) return;
  std::u16string value = Store()->ReadString(Section(), SelectedGroupName(), u"");
  for (const std::u16string& word : *words) {
    value = bRegex ? word : value + word + u"|";
    FItems.push_back({word, std::nullopt});
  }
  Store()->WriteString(Section(), SelectedGroupName(), value);
  ItemsRemoved();
  FDocument.SetModified();
}

// A completion item is appended to the group's value as it stands in the store.
void TGroupPage::ItemAdd() {
  if (FSelectedGroup < 0 || !FItemAddEnabled) return;
  if (!HasImages()) return AddWords();
  const std::optional<TItemRow> row = AskNewItem(FDocument.Text(u"312"), true, VariableGroups());
  if (!row) return;
  const std::u16string group = SelectedGroupName();
  Store()->WriteString(Section(), group, Store()->ReadString(Section(), group, u"") + CompletionValue(*row));
  FItems.push_back(*row);
  FDocument.SetModified();
}

void TGroupPage::ItemEdit() {
  if (HasImages()) {
    EditCurrentItem(true, VariableGroups());
    return;
  }
  if (FItemIndex < 0) return;
  TItemRow& row = FItems[size_t(FItemIndex)];
  const std::optional<std::u16string> text =
      FDocument.Ui().Prompt(FDocument.Text(u"301"), FDocument.Text(u"314"), row.Text);
  if (!text || *text == row.Text) return;
  row.Text = *text;
  ChangedItems();
}

void TGroupPage::ItemSort() {
  if (HasImages()) ItemSortByImage();
  else ItemSortA();
}

template <typename TChange>
void TGroupPage::ChangeEveryWord(TChange change) {
  if (FSelectedGroup < 0 || HasImages()) return;
  for (TItemRow& row : FItems) change(row.Text);
  ChangedItems();
}

void TGroupPage::ItemUppercase() {
  ChangeEveryWord([](std::u16string& w) { std::transform(w.begin(), w.end(), w.begin(), AsciiUpper); });
}

void TGroupPage::ItemLowercase() {
  ChangeEveryWord([](std::u16string& w) { std::transform(w.begin(), w.end(), w.begin(), AsciiLower); });
}

void TGroupPage::ItemCapitalize() {
  ChangeEveryWord([](std::u16string& w) {
    std::transform(w.begin(), w.end(), w.begin(), AsciiLower);
    if (!w.empty()) w[0] = AsciiUpper(w[0]);
  });
}

// Words come one a line, empty lines skipped; completion items as triples.
void TGroupPage::ItemPaste() {
  if (FSelectedGroup < 0) return;
  if (HasImages()) return PasteItemTriples();
  std::u16string addition;
  for (const std::u16string& line : SplitLines(FDocument.Ui().ClipboardText())) {
    if (line.empty()) continue;
    addition += line + u"|";
    FItems.push_back({line, std::nullopt});
  }
  const std::u16string group = SelectedGroupName();
  Store()->WriteString(Section(), group, Store()->ReadString(Section(), group, u"") + addition);
  FDocument.SetModified();
}

} // namespace orl
