#include "syntax/RegexBudget.h"

#include <algorithm>

namespace orl {

namespace {

constexpr unsigned kStepGrowth = 8;

} // namespace

template <typename TMatch>
TRegexMatch TRegexBudget::Run(TMatch match) {
  if (Spent()) return {};
  unsigned limit = kFreeSteps;
  TRegexMatch m = match(limit);
  while (m.bLimitHit && limit < TRegexPattern::kMatchLimit) {
    Charge(limit);
    if (Spent()) return {};
    limit = unsigned(std::min<uint64_t>({uint64_t(limit) * kStepGrowth, FLeft, TRegexPattern::kMatchLimit}));
    m = match(limit);
  }
  if (limit > kFreeSteps) Charge(limit);
  // A match that the budget cut short is no match; one that ran into the
  // pattern's own limit is the pattern's error and reported as such.
  if (m.bLimitHit && Spent()) return {};
  return m;
}

TRegexMatch TRegexBudget::Find(const TRegexPattern& pattern, std::u16string_view subject, size_t start, size_t stop) {
  return Run([&](unsigned limit) { return pattern.Find(subject, start, stop, limit); });
}

TRegexMatch TRegexBudget::MatchAt(const TRegexPattern& pattern, std::u16string_view subject, size_t start,
                                  size_t stop) {
  return Run([&](unsigned limit) { return pattern.MatchAt(subject, start, stop, limit); });
}

} // namespace orl
