#pragma once
// One shared copy of each distinct immutable record: rows whose scan states or
// whole attributes are equal hold the same object, so a document of millions
// of rows costs one record per distinct value rather than one per row (most
// rows of real code end in a handful of states).
//
// Invariant: no two entries are equal by TTraits::Same; every entry is held
// by the table itself, and an entry that nobody else holds any more is
// dropped at the next sweep. Sweeps run when the table has doubled since the
// last one, so they cost O(1) amortised per insertion. Not thread-safe: the
// store calls it under its lock.
//
// TTraits gives static Hash(const T&), Same(const T&, const T&) and
// Holders(const THandle&), the number of handles that hold the record.

#include <algorithm>
#include <cstddef>
#include <unordered_set>
#include <utility>

namespace orl {

template <class THandle, class TTraits>
class TInternTable {
public:
  /// The entry equal to *record if there is one, else `record`, which joins the table.
  THandle Intern(THandle record) {
    if (const auto found = FEntries.find(record); found != FEntries.end()) return *found;
    if (FEntries.size() >= FSweepAt) Sweep();
    FEntries.insert(record);
    return record;
  }

  /// Drops the entries that only the table holds.
  void Sweep() {
    std::erase_if(FEntries, [](const THandle& entry) { return TTraits::Holders(entry) <= 1; });
    FSweepAt = std::max(kFirstSweep, 2 * FEntries.size());
  }

  size_t Size() const { return FEntries.size(); }

private:
  static constexpr size_t kFirstSweep = 1024;

  struct THash {
    size_t operator()(const THandle& h) const { return TTraits::Hash(*h); }
  };
  struct TSame {
    bool operator()(const THandle& a, const THandle& b) const { return TTraits::Same(*a, *b); }
  };

  std::unordered_set<THandle, THash, TSame> FEntries;
  size_t FSweepAt = kFirstSweep;
};

} // namespace orl
