#pragma once
// One walk over the lines of a definition file into a style set. Each
// section head selects a handler that takes the section's lines up to the
// first empty line; heads are compared exactly, with case.

#include <string>
#include <string_view>
#include <vector>

#include "syntax/OrlSyntax.h"

namespace orl {

class TDefinitionReader {
public:
  /// `memo` may be null: memo-side switches are skipped, and so are the
  /// sections that only a memo uses.
  TDefinitionReader(TOrlSyntax& syntax, TOrlCustomMemoStyles& styles, TOrlMemoStyleSlots* memo)
      : FSyntax(syntax), FStyles(styles), FMemo(memo) {}

  void ReadLines(const std::vector<std::u16string>& lines);
  /// Compiles patterns and builds keyword tables: after this the set is read-only.
  void Finish();

private:
  struct TSectionHandler;
  static const std::vector<TSectionHandler>& Handlers();
  size_t ReadSection(const TSectionHandler& handler, const std::vector<std::u16string>& lines, size_t first);

  void ReadExtensions(std::u16string_view key, std::u16string_view value, int row);
  void EnterOptions();
  void ReadOption(std::u16string_view key, std::u16string_view value, int row);
  void EnterFoldOptions();
  void ReadFoldOption(std::u16string_view key, std::u16string_view value, int row);
  void ReadRegion(std::u16string_view key, std::u16string_view value, int row);
  void ReadBlock(std::u16string_view key, std::u16string_view value, int row);
  void ReadFold(std::u16string_view key, std::u16string_view value, int row);
  void ReadKeywordGroup(std::u16string_view key, std::u16string_view value, int row);
  void EnterTags();
  void ReadTagGroup(std::u16string_view key, std::u16string_view value, int row);
  void SortNodeIds();
  TKeyWord& AddGroup(std::vector<std::unique_ptr<TKeyWord>>& groups, TStringList& names, std::u16string_view name,
                     std::u16string_view infoPrefix, int row);

  bool ReadSpecialOption(std::u16string_view key, std::u16string_view value);
  void ReadFoldEndBefore(TNodes& node, std::u16string_view value);
  void ReadFoldListItem(TNodes& node, std::u16string_view value);
  /// The usual text-to-Boolean rule; a value it cannot read keeps `target` and is reported.
  void ReadRuleFlag(bool& target, std::u16string_view key, std::u16string_view value);
  void AddNodeId(std::u16string_view word);
  void AddNodeIds(const TStringList& words);
  std::u16string CompilePattern(std::u16string_view text, std::u16string_view where,
                                std::unique_ptr<TRegexPattern>& pattern);
  void CompilePatterns();
  void PrepareLookups();
  void Report(const std::u16string& text);

  TOrlSyntax& FSyntax;
  TOrlCustomMemoStyles& FStyles;
  TOrlMemoStyleSlots* FMemo;
  bool FExtensionsRead = false;
};

} // namespace orl
