#pragma once
// The block and fold rule lists of the options page: one row a rule, the
// rule's values in a grid below. Headless; the form shows the rows and forwards
// the commands.

#include <string>
#include <vector>

#include "definition/DefinitionPages.h"

namespace orl {

class TSynDocument;

template <typename TRule>
class TRuleListPage {
public:
  explicit TRuleListPage(TSynDocument& document);

  /// The rows as they stand: a fold row keeps its text until the id changes or the next load.
  const std::vector<std::u16string>& RowTexts() const { return FRowTexts; }
  int Selected() const { return FSelected; }
  /// The rule shown in the grid, null without a selection.
  const TRule* SelectedRule() const;

  /// Rebuilds the rows from the document's rules (after a load).
  void Reload();
  void Select(int row);
  void Add();
  void Sort();
  void Delete();
  void Up();
  void Down();
  /// An edit of grid row `row` (0-based) of the selected rule.
  void EditCell(int row, std::u16string_view text);

private:
  std::vector<TRule>& Rules();
  std::u16string RowTextOf(const TRule& rule) const;
  void MoveSelected(int delta);

  TSynDocument& FDocument;
  std::vector<std::u16string> FRowTexts;
  int FSelected = -1;
};

using TBlockListPage = TRuleListPage<TBlockObject>;
using TFoldListPage = TRuleListPage<TFoldObject>;

} // namespace orl
