#include "workbench/GroupPage.h"

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

std::u16string LineBreaksToStored(std::u16string text) {
  std::erase(text, u'\r');
  std::replace(text.begin(), text.end(), u'\n', kStoredLineBreak);
  return text;
}

std::u16string StoredToLineBreaks(std::u16string text) {
  std::replace(text.begin(), text.end(), kStoredLineBreak, u'\n');
  return text;
}

std::u16string CompletionValue(const std::u16string& caption, const std::u16string& storedText, int image) {
  return caption + u"|" + storedText + u"+" + std::u16string(1, LetterOf(image)) + u"##";
}

char16_t AsciiUpper(char16_t c) { return c >= u'a' && c <= u'z' ? char16_t(c - 32) : c; }
char16_t AsciiLower(char16_t c) { return c >= u'A' && c <= u'Z' ? char16_t(c + 32) : c; }

bool TextLess(const TItemRow& a, const TItemRow& b) { return CompareTextLocale(a.Text, b.Text, false) < 0; }

// A pasted image number must be a number; the items before a bad one stay added.
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

TGroupPage::TGroupPage(TSynDocument& document, TGroupMember member) : FDocument(document), FMember(member) {}

std::u16string_view TGroupPage::Section() const {
  switch (FMember) {
  case TGroupMember::gmKeyword: return sections::Keywords;
  case TGroupMember::gmTag: return sections::Tags;
  case TGroupMember::gmClassCompletion: return sections::AutoComplete;
  case TGroupMember::gmTagCompletion: break;
  }
  return sections::TagComplete;
}

bool TGroupPage::HasCompletionItems() const {
  return FMember == TGroupMember::gmClassCompletion || FMember == TGroupMember::gmTagCompletion;
}

TMemIniFile* TGroupPage::Store() { return HasCompletionItems() ? FDocument.SynIni() : FDocument.SynGdx(); }

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
  FItemAddEnabled = !(IsRegexGroup() && !FItems.empty());
}

void TGroupPage::SelectItems(const std::set<int>& rows, int current) {
  FSelectedItems.clear();
  for (int row : rows)
    if (row >= 0 && size_t(row) < FItems.size()) FSelectedItems.insert(row);
  FItemIndex = current >= 0 && size_t(current) < FItems.size() ? current : -1;
}

void TGroupPage::LoadItems() {
  const std::u16string value = Store()->ReadString(Section(), SelectedGroupName(), u"");
  if (HasCompletionItems()) {
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
  if (HasCompletionItems()) {
    for (const TItemRow& row : FItems) {
      if (row.Text.starts_with(u'@')) value += row.Text + u"##";
      else value += CompletionValue(row.Text, row.Object ? row.Object->Value : u"", row.Object ? row.Object->nr : 0);
    }
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
      FDocument.Text(u"300"), FDocument.Text(HasCompletionItems() ? u"315" : u"313"), u"");
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
      FDocument.Text(u"301"), FDocument.Text(HasCompletionItems() ? u"315" : u"313"), old);
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

void TGroupPage::AppendToGroup(const std::u16string& addition) {
  const std::u16string group = SelectedGroupName();
  Store()->WriteString(Section(), group, Store()->ReadString(Section(), group, u"") + addition);
}

std::vector<std::u16string> TGroupPage::VariableGroups() {
  TStringList names;
  FDocument.SynIni()->ReadSection(Section(), names);
  std::vector<std::u16string> groups;
  for (int i = 0; i < names.Count(); ++i)
    if (names.Strings(i).find(u'@') != std::u16string::npos) groups.push_back(names.Strings(i));
  return groups;
}

void TGroupPage::AddCompletionRow(const std::u16string& caption, const std::u16string& storedText, int image) {
  AppendToGroup(CompletionValue(caption, storedText, image));
  TOrlBitmap object = ImageFor(LetterOf(image));
  object.nr = image;
  object.Value = storedText;
  FItems.push_back({caption, object});
}

void TGroupPage::ItemAdd() {
  if (FSelectedGroup < 0 || !FItemAddEnabled) return;
  if (HasCompletionItems()) {
    TItemDialogData item{FDocument.Text(u"312"), u"", u"", FDocument.IconNr(), false, VariableGroups()};
    if (!FDocument.Ui().EditItem(item)) return;
    FDocument.SetIconNr(item.ImageIndex);
    AddCompletionRow(item.Caption, LineBreaksToStored(item.Text), item.ImageIndex);
  } else {
    const bool bRegex = IsRegexGroup();
    const std::optional<std::vector<std::u16string>> words = FDocument.Ui().AddWords(bRegex);
    if (!words) return;
    std::u16string value = Store()->ReadString(Section(), SelectedGroupName(), u"");
    for (const std::u16string& word : *words) {
      value = bRegex ? word : value + word + u"|";
      FItems.push_back({word, std::nullopt});
    }
    Store()->WriteString(Section(), SelectedGroupName(), value);
    FItemAddEnabled = !(bRegex && !FItems.empty());
  }
  FDocument.SetModified();
}

void TGroupPage::ItemEdit() {
  if (FItemIndex < 0) return;
  TItemRow& row = FItems[size_t(FItemIndex)];
  if (HasCompletionItems()) {
    TItemDialogData item{u"Edit", row.Text, StoredToLineBreaks(row.Object ? row.Object->Value : u""),
                         row.Object ? row.Object->nr : 0, row.Text.starts_with(u'@'), VariableGroups()};
    if (!FDocument.Ui().EditItem(item)) return;
    FDocument.SetIconNr(item.ImageIndex);
    TOrlBitmap object = ImageFor(LetterOf(item.ImageIndex));
    object.Value = LineBreaksToStored(item.Text);
    row = {item.Caption, object};
  } else {
    const std::optional<std::u16string> text =
        FDocument.Ui().Prompt(FDocument.Text(u"301"), FDocument.Text(u"314"), row.Text);
    if (!text || *text == row.Text) return;
    row.Text = *text;
  }
  StoreItems();
  FDocument.SetModified();
}

void TGroupPage::ItemSortA() {
  if (FSelectedGroup < 0) return;
  std::stable_sort(FItems.begin(), FItems.end(), TextLess);
  StoreItems();
  FDocument.SetModified();
}

// Words sort by their text; completion items by image, then by caption.
void TGroupPage::ItemSort() {
  if (!HasCompletionItems()) return ItemSortA();
  if (FSelectedGroup < 0) return;
  auto keyOf = [](const TItemRow& row) {
    const int nr = row.Object ? row.Object->nr : 0;
    return (nr < 10 ? u" " : u"") + Number(nr) + row.Text;
  };
  std::stable_sort(FItems.begin(), FItems.end(), [&](const TItemRow& a, const TItemRow& b) {
    return CompareTextLocale(keyOf(a), keyOf(b), false) < 0;
  });
  StoreItems();
  FDocument.SetModified();
}

void TGroupPage::ItemDelete(bool bAsk) {
  if (FSelectedGroup < 0 || FSelectedItems.empty()) return;
  if (bAsk && FDocument.Ui().MessageBox(u"Remove the menu item?", TMsgButtons::mbYesNo, u"Remove") != TMsgResult::mrYes)
    return;
  const int first = *FSelectedItems.begin();
  for (auto row = FSelectedItems.rbegin(); row != FSelectedItems.rend(); ++row) FItems.erase(FItems.begin() + *row);
  StoreItems();
  FDocument.SetModified();
  const int next = first < int(FItems.size()) ? first : int(FItems.size()) - 1;
  SelectItems(next >= 0 ? std::set<int>{next} : std::set<int>{}, next);
  FItemAddEnabled = !(IsRegexGroup() && !FItems.empty());
}

void TGroupPage::MoveItem(int delta) {
  const int target = FItemIndex + delta;
  if (FItemIndex < 0 || target < 0 || size_t(target) >= FItems.size()) return;
  std::swap(FItems[size_t(FItemIndex)], FItems[size_t(target)]);
  StoreItems();
  SelectItems({target}, target);
  FDocument.SetModified();
}

void TGroupPage::ItemUp() { MoveItem(-1); }
void TGroupPage::ItemDown() { MoveItem(+1); }

template <typename TChange>
void TGroupPage::ChangeEveryWord(TChange change) {
  if (FSelectedGroup < 0 || HasCompletionItems()) return;
  for (TItemRow& row : FItems) change(row.Text);
  StoreItems();
  FDocument.SetModified();
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

// Words go one a line; completion items three lines each: caption, image, text.
void TGroupPage::ItemCopy() {
  std::u16string text;
  for (int row : FSelectedItems) {
    const TItemRow& item = FItems[size_t(row)];
    text += item.Text + std::u16string(kCrLf);
    if (!HasCompletionItems()) continue;
    text += Number(item.Object ? item.Object->nr : 0) + std::u16string(kCrLf);
    text += (item.Object ? item.Object->Value : u"") + std::u16string(kCrLf);
  }
  FDocument.Ui().SetClipboardText(text);
}

void TGroupPage::ItemCut() {
  ItemCopy();
  ItemDelete(false);
}

void TGroupPage::ItemPaste() {
  if (FSelectedGroup < 0) return;
  const std::vector<std::u16string> lines = SplitLines(FDocument.Ui().ClipboardText());
  if (!HasCompletionItems()) {
    std::u16string addition;
    for (const std::u16string& line : lines) {
      if (line.empty()) continue;
      addition += line + u"|";
      FItems.push_back({line, std::nullopt});
    }
    AppendToGroup(addition);
    FDocument.SetModified();
    return;
  }
  for (size_t i = 0; i + 2 < lines.size(); i += 3) {
    const int image = ImageNumber(lines[i + 1]);
    AddCompletionRow(lines[i], lines[i + 2], image);
    FDocument.SetModified();
  }
}

void TGroupPage::ItemReplaceImages(int nr) {
  if (FSelectedGroup < 0 || !HasCompletionItems()) return;
  for (int row : FSelectedItems) {
    TItemRow& item = FItems[size_t(row)];
    TOrlBitmap object = ImageFor(LetterOf(nr));
    object.Value = item.Object ? item.Object->Value : u"";
    item.Object = object;
  }
  StoreItems();
  FDocument.SetModified();
}

} // namespace orl
