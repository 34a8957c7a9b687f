#include "workbench/RuleListPage.h"

#include <algorithm>
#include <numeric>

#include "platform/Collation.h"
#include "workbench/SynDocument.h"

namespace orl {

namespace {
constexpr bool IsFold(const TFoldObject*) { return true; }
constexpr bool IsFold(const TBlockObject*) { return false; }

void SetName(TBlockObject& rule, std::u16string name) { rule.BlockName = std::move(name); }
void SetName(TFoldObject& rule, std::u16string name) { rule.Fold_Id = std::move(name); }
} // namespace

template <typename TRule>
TRuleListPage<TRule>::TRuleListPage(TSynDocument& document) : FDocument(document) {}

template <typename TRule>
std::vector<TRule>& TRuleListPage<TRule>::Rules() {
  if constexpr (std::is_same_v<TRule, TFoldObject>) return FDocument.Pages().Folds;
  else return FDocument.Pages().Blocks;
}

template <typename TRule>
std::u16string TRuleListPage<TRule>::RowTextOf(const TRule& rule) const {
  if constexpr (std::is_same_v<TRule, TFoldObject>) return FoldRowText(rule);
  else return rule.BlockName;
}

template <typename TRule>
const TRule* TRuleListPage<TRule>::SelectedRule() const {
  auto& rules = const_cast<TRuleListPage*>(this)->Rules();
  return FSelected >= 0 && size_t(FSelected) < rules.size() ? &rules[size_t(FSelected)] : nullptr;
}

template <typename TRule>
void TRuleListPage<TRule>::Reload() {
  FRowTexts.clear();
  for (const TRule& rule : Rules()) FRowTexts.push_back(RowTextOf(rule));
  FSelected = -1;
}

template <typename TRule>
void TRuleListPage<TRule>::Select(int row) {
  FSelected = row >= 0 && size_t(row) < FRowTexts.size() ? row : -1;
}

template <typename TRule>
void TRuleListPage<TRule>::Add() {
  std::u16string prompt = FDocument.Text(u"313");
  if (IsFold(static_cast<TRule*>(nullptr))) prompt += u" (Fold_Id)";
  const std::optional<std::u16string> answer = FDocument.Ui().Prompt(FDocument.Text(u"300"), prompt, u"");
  if (!answer || answer->empty()) return;
  TRule rule;
  SetName(rule, *answer);
  Rules().push_back(rule);
  FRowTexts.push_back(IsFold(&rule) ? *answer : RowTextOf(rule));
  FSelected = int(FRowTexts.size()) - 1;
  FDocument.SetModified();
}

// The rules travel with their rows; the next save numbers them in the new order.
template <typename TRule>
void TRuleListPage<TRule>::Sort() {
  std::vector<size_t> order(FRowTexts.size());
  std::iota(order.begin(), order.end(), 0);
  std::stable_sort(order.begin(), order.end(), [this](size_t a, size_t b) {
    return CompareTextLocale(FRowTexts[a], FRowTexts[b], false) < 0;
  });
  std::vector<TRule> rules;
  std::vector<std::u16string> texts;
  for (size_t i : order) {
    rules.push_back(Rules()[i]);
    texts.push_back(FRowTexts[i]);
  }
  const auto selected = std::find(order.begin(), order.end(), size_t(FSelected));
  FSelected = FSelected < 0 ? -1 : int(selected - order.begin());
  Rules() = std::move(rules);
  FRowTexts = std::move(texts);
}

template <typename TRule>
void TRuleListPage<TRule>::Delete() {
  if (!SelectedRule()) return;
  const std::u16string question = FDocument.Text(u"302") + u"\"" + FRowTexts[size_t(FSelected)] + u"\" ?";
  if (FDocument.Ui().MessageBox(question, TMsgButtons::mbYesNo) != TMsgResult::mrYes) return;
  Rules().erase(Rules().begin() + FSelected);
  FRowTexts.erase(FRowTexts.begin() + FSelected);
  FSelected = -1;
  FDocument.SetModified();
}

template <typename TRule>
void TRuleListPage<TRule>::MoveSelected(int delta) {
  const int target = FSelected + delta;
  if (!SelectedRule() || target < 0 || size_t(target) >= FRowTexts.size()) return;
  std::swap(Rules()[size_t(FSelected)], Rules()[size_t(target)]);
  std::swap(FRowTexts[size_t(FSelected)], FRowTexts[size_t(target)]);
  FSelected = target;
  FDocument.SetModified();
}

template <typename TRule>
void TRuleListPage<TRule>::Up() {
  MoveSelected(-1);
}

template <typename TRule>
void TRuleListPage<TRule>::Down() {
  MoveSelected(+1);
}

// Row 1 is the rule's name: a block row shows it at once; a fold row is rebuilt
// from the id, while its begin and end words show the old text until the next load.
template <typename TRule>
void TRuleListPage<TRule>::EditCell(int row, std::u16string_view text) {
  if (!SelectedRule()) return;
  TRule& rule = Rules()[size_t(FSelected)];
  SetRuleCell(rule, row, text);
  if (row == 0) FRowTexts[size_t(FSelected)] = RowTextOf(rule);
  FDocument.SetModified();
}

template class TRuleListPage<TBlockObject>;
template class TRuleListPage<TFoldObject>;

} // namespace orl
