#pragma once
// The regular-expression work one line of a scan may cost.
//
// A definition's pattern can backtrack without end on some text ("(a+)+$"
// tried at every position of a long row). Every match first runs with a few
// steps, which is all that ordinary patterns take and costs nothing here; a
// match that needs more is run again with eight times the steps, and each
// such run is charged at its whole limit, an upper bound of what it did. Once
// the line's budget is spent no further match is run, and the scan ends the
// line in the state it has reached.

#include <algorithm>
#include <cstdint>
#include <string_view>

#include "syntax/RegexPattern.h"

namespace orl {

class TRegexBudget {
public:
  /// Steps a match may take without being charged.
  static constexpr unsigned kFreeSteps = 16;
  /// The budget of a line: a floor for short lines, and a share per character.
  static constexpr uint64_t kBaseSteps = 4096;
  static constexpr uint64_t kStepsPerChar = 4;

  explicit TRegexBudget(size_t lineLength) : FLeft(kBaseSteps + kStepsPerChar * lineLength) {}

  /// The pattern's first match at or behind `start`, as TRegexPattern::Find, within the budget.
  TRegexMatch Find(const TRegexPattern& pattern, std::u16string_view subject, size_t start, size_t stop);
  /// A match exactly at `start`, as TRegexPattern::MatchAt, within the budget.
  TRegexMatch MatchAt(const TRegexPattern& pattern, std::u16string_view subject, size_t start, size_t stop);
  /// No match runs any more: its answer is no match.
  bool Spent() const { return FLeft == 0; }

private:
  template <typename TMatch>
  TRegexMatch Run(TMatch match);
  void Charge(uint64_t steps) { FLeft -= std::min(FLeft, steps); }

  uint64_t FLeft;
};

} // namespace orl
