#pragma once
// The `[options]` section of an older definition: its keys, mapped onto the
// option sections and the numbered block and fold rules of the current layout.

#include <string_view>

#include "definition/IniWriteBuffer.h"

namespace orl::legacy {

/// Takes the `key = value` lines of `[options]` into the writes for a
/// definition store, counting the block and fold rules that `blockname` and
/// `fold_id` open.
class TOlderOptions {
public:
  explicit TOlderOptions(TIniWriteBuffer& gdx) : FGdx(gdx) {}

  /// One line's key, lower-cased, and its value. A key outside the table, a
  /// false flag, and a rule key ahead of the first rule write nothing.
  void Apply(std::u16string_view lowerKey, std::u16string_view value);

private:
  int& RuleNumber(std::u16string_view section);

  TIniWriteBuffer& FGdx;
  int FBlockNumber = 0;
  int FFoldNumber = 0;
};

} // namespace orl::legacy
