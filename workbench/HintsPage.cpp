#include "workbench/HintsPage.h"

#include <algorithm>

#include "definition/DefinitionItems.h"
#include "platform/Collation.h"
#include "workbench/SynDocument.h"

namespace orl {
namespace {

std::u16string KeyOfType(int typeIndex) { return std::u16string(1, char16_t(u'1' + typeIndex)); }

// The multi-line box shows `\n` as a line break; the row stores it as `\n`.
std::u16string LineBreaksToEscapes(std::u16string_view text) {
  std::u16string out;
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] == u'\r') continue;
    if (text[i] == u'\n') out += u"\\n";
    else out += text[i];
  }
  return out;
}

// The row as the two boxes hold it: type 1 puts the identifier in the memo.
std::u16string RowFor(int typeIndex, std::u16string_view edit, std::u16string_view memo) {
  const std::u16string escapedMemo = LineBreaksToEscapes(memo);
  const std::u16string first = typeIndex == 0 ? escapedMemo : std::u16string(edit);
  const std::u16string second = typeIndex == 0 ? std::u16string(edit) : escapedMemo;
  return KeyOfType(typeIndex) + u"=" + first + kHintSeparator + second;
}

} // namespace

std::u16string CleanUpSignature(std::u16string_view text, bool bAnyParenthesis) {
  std::u16string s(text);
  if (!s.empty() && s.back() == u';') s.pop_back();
  size_t paren = s.find(u'(');
  if (paren == std::u16string::npos || (paren == 0 && !bAnyParenthesis)) return std::u16string(text);
  if (paren > 0 && s[paren - 1] == u' ') s.erase(--paren, 1);
  const size_t blank = paren == 0 ? std::u16string::npos : s.rfind(u' ', paren - 1);
  if (blank == std::u16string::npos) return std::u16string(text);
  return s.substr(blank + 1) + u": " + s.substr(0, blank);
}

THintsPage::THintsPage(TSynDocument& document) : FDocument(document) { UpdateLabels(); }

std::vector<std::u16string>& THintsPage::RowsOf() { return FDocument.Pages().Hints; }
const std::vector<std::u16string>& THintsPage::Rows() const { return FDocument.Pages().Hints; }

void THintsPage::UpdateLabels() {
  FLabelId = FDocument.Text(FTypeIndex == 0 ? u"102" : u"103");
  FLabelDesc = FDocument.Text(FTypeIndex == 0 ? u"094" : u"104");
}

// An empty list starts with type 2; otherwise the first row's key decides.
void THintsPage::Reload() {
  FSelected.clear();
  FItemIndex = -1;
  FEditText.clear();
  FMemoText.clear();
  FTypeIndex = Rows().empty() ? 1 : SplitHint(Rows().front()).Type - 1;
  UpdateLabels();
}

void THintsPage::ShowRow(int row) {
  const THint hint = SplitHint(Rows()[size_t(row)]);
  FTypeIndex = hint.Type - 1;
  FEditText = FTypeIndex == 0 ? hint.Description : hint.Identifier;
  FMemoText = FTypeIndex == 0 ? hint.Identifier : hint.Description;
  UpdateLabels();
}

void THintsPage::Select(const std::set<int>& rows, int current) {
  FSelected.clear();
  for (int row : rows)
    if (row >= 0 && size_t(row) < Rows().size()) FSelected.insert(row);
  FItemIndex = current >= 0 && size_t(current) < Rows().size() ? current : -1;
  if (FItemIndex >= 0) ShowRow(FItemIndex);
}

void THintsPage::RebuildCurrentRow() {
  if (FItemIndex < 0 || size_t(FItemIndex) >= Rows().size()) return;
  RowsOf()[size_t(FItemIndex)] = RowFor(FTypeIndex, FEditText, FMemoText);
  FDocument.SetModified();
}

void THintsPage::SetType(int index, bool bFromUser) {
  if (index < 0 || index > 2) return;
  FTypeIndex = index;
  UpdateLabels();
  if (bFromUser) RebuildCurrentRow();
}

void THintsPage::SetEditText(std::u16string text) {
  FEditText = std::move(text);
  RebuildCurrentRow();
}

void THintsPage::SetMemoText(std::u16string text) {
  FMemoText = std::move(text);
  RebuildCurrentRow();
}

// In type 1 the one-line box holds the description, whose first letter is raised.
void THintsPage::PasteIntoEdit(std::u16string text) {
  if (FTypeIndex == 0) {
    if (!text.empty() && text[0] >= u'a' && text[0] <= u'z') text[0] = char16_t(text[0] - 32);
    SetEditText(std::move(text));
  } else {
    SetEditText(CleanUpSignature(text, false));
  }
}

void THintsPage::PasteIntoMemo(std::u16string text) {
  SetMemoText(FTypeIndex == 0 ? CleanUpSignature(text, true) : std::move(text));
}

void THintsPage::New() {
  RowsOf().push_back(KeyOfType(FTypeIndex) + u"=");
  FEditText.clear();
  FMemoText.clear();
  FItemIndex = int(Rows().size()) - 1;
  FSelected = {FItemIndex};
  FDocument.SetModified();
}

void THintsPage::Delete() {
  if (FSelected.empty()) return;
  if (FDocument.Ui().MessageBox(FDocument.Text(u"205"), TMsgButtons::mbYesNo) == TMsgResult::mrNo) return;
  for (auto row = FSelected.rbegin(); row != FSelected.rend(); ++row) RowsOf().erase(RowsOf().begin() + *row);
  FSelected.clear();
  FItemIndex = -1;
  FDocument.SetModified();
}

// The key leads each row, so sorting groups the hints by type.
void THintsPage::Sort() {
  std::stable_sort(RowsOf().begin(), RowsOf().end(),
                   [](const std::u16string& a, const std::u16string& b) { return CompareTextLocale(a, b, false) < 0; });
}

// The identifier stays the first field, so only the key changes; the boxes
// swap as the new type shows them.
void THintsPage::Convert(int sourceType, int targetType) {
  for (int row : FSelected) {
    std::u16string& line = RowsOf()[size_t(row)];
    if (SplitHint(line).Type - 1 != sourceType) continue;
    const size_t eq = line.find(u'=');
    line = KeyOfType(targetType) + u"=" + (eq == std::u16string::npos ? line : line.substr(eq + 1));
  }
  FSelected.clear();
  if (FItemIndex >= 0) {
    FSelected.insert(FItemIndex);
    ShowRow(FItemIndex);
  }
}

void THintsPage::ConvertToType1() { Convert(1, 0); }
void THintsPage::ConvertToType2() { Convert(0, 1); }
void THintsPage::ConvertToType3() { Convert(0, 2); }

} // namespace orl
