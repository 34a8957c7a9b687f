#include "textstore/OrlUniUtils.h"

#include <algorithm>
#include <numeric>

#include "platform/CharCase.h"

namespace orl {

int TOrlUniUtils::LevenshteinDistance(std::u16string_view s, std::u16string_view t) {
  if (s.size() < t.size()) std::swap(s, t);  // one row of the shorter length is all it takes
  std::vector<int> row(t.size() + 1);
  std::iota(row.begin(), row.end(), 0);
  for (size_t i = 1; i <= s.size(); ++i) {
    int diagonal = row[0];
    row[0] = int(i);
    for (size_t j = 1; j <= t.size(); ++j) {
      const int substitution = diagonal + (s[i - 1] == t[j - 1] ? 0 : 1);
      diagonal = row[j];
      row[j] = std::min({row[j] + 1, row[j - 1] + 1, substitution});
    }
  }
  return row[t.size()];
}

bool TOrlUniUtils::WNCFuzzyFind(std::u16string_view sub, std::u16string_view s, int& eDistance,
                                std::vector<int>* inList) {
  if (sub.empty() || sub.size() > s.size()) return false;
  std::vector<int> positions;
  positions.reserve(sub.size());
  size_t at = 0;
  for (char16_t wanted : sub) {
    const char16_t lower = SysLowerChar(wanted);
    while (at < s.size() && SysLowerChar(s[at]) != lower) ++at;
    if (at == s.size()) return false;
    positions.push_back(int(++at));
  }
  eDistance = LevenshteinDistance(sub, s);
  if (inList) *inList = std::move(positions);
  return true;
}

} // namespace orl
