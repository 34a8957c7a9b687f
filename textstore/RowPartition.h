#pragma once
// Running sums of one non-negative value per row (characters of the row, 1
// for a row that starts a real line, 1 for a shown row), so that the sum
// above any row is read in O(1) and the row at which a sum is reached is
// found in O(log n), however long the document.
//
// An edit changes one row's value, which shifts the sum of every row below
// it. Instead of touching all of them, the shift is held as a pending delta
// for the rows after a step row; the step moves only when an edit lands
// elsewhere, by the distance between the two edits. Typing in one place
// therefore costs O(1) whatever the row, and conversions never move the step.
//
// Invariant: FStarts holds Count() + 1 entries. Start(k), the sum of the
// values of rows 0 .. k-1, is FStarts[k] for k <= FStepRow and FStarts[k] +
// FStepDelta for k > FStepRow. Start(0) is 0 and Start never decreases.

#include <algorithm>
#include <cstddef>

#include "textstore/GapArray.h"

namespace orl {

template <class T>
class TRowPartition {
public:
  /// Whether the sums exist; an unbuilt partition has no rows.
  bool Built() const { return FStarts.Count() > 0; }
  int Count() const { return Built() ? int(FStarts.Count()) - 1 : 0; }
  /// Sum of the values of the rows above `row`, for row in [0, Count()].
  T Start(int row) const {
    const T stored = FStarts[size_t(row)];
    return row > FStepRow ? stored + FStepDelta : stored;
  }
  T Value(int row) const { return Start(row + 1) - Start(row); }
  size_t AllocatedBytes() const { return FStarts.Physical() * sizeof(T); }

  /// Forgets every sum; Built() is false afterwards.
  void Reset() {
    FStarts.Clear();
    FStepRow = 0;
    FStepDelta = 0;
  }

  /// Sums over `count` rows, `valueOf(row)` giving each row's value.
  template <class TValueOf>
  void Build(int count, TValueOf&& valueOf) {
    Reset();
    FStarts.Reserve(size_t(count) + 1);
    T sum = 0;
    FStarts.InsertN(0, size_t(count) + 1, [&](size_t k) {
      const T start = sum;
      if (k < size_t(count)) sum += valueOf(int(k));
      return start;
    });
  }

  /// Gives `row` the value `value`.
  void SetValue(int row, T value) {
    const T delta = value - Value(row);
    if (delta == 0) return;
    MoveStepTo(row);
    FStepDelta += delta;
  }

  /// Inserts `count` rows before `row`; `valueOf(i)` gives the i-th new row's value.
  template <class TValueOf>
  void InsertRows(int row, int count, TValueOf&& valueOf) {
    if (count <= 0) return;
    MoveStepTo(row);
    // The new sums are written exact; the step moves behind them, and the
    // rows that follow owe the inserted total on top of what they owed.
    T sum = Start(row);
    FStarts.InsertN(size_t(row) + 1, size_t(count), [&](size_t i) {
      sum += valueOf(int(i));
      return sum;
    });
    FStepDelta += sum - Start(row);
    FStepRow = row + count;
  }

  /// Removes the `count` rows from `row` on.
  void EraseRows(int row, int count) {
    if (count <= 0) return;
    MoveStepTo(row + count);
    const T removed = Start(row + count) - Start(row);
    FStarts.Erase(size_t(row) + 1, size_t(count));
    FStepRow = row;
    FStepDelta -= removed;
  }

  /// The first k in [0, Count()] with Start(k) >= target; Count() + 1 if none.
  int LowerBound(T target) const {
    int lo = 0, hi = Count() + 1;
    while (lo < hi) {
      const int mid = lo + (hi - lo) / 2;
      if (Start(mid) < target)
        lo = mid + 1;
      else
        hi = mid;
    }
    return lo;
  }

private:
  /// Makes the entries up to `row` exact, from whichever side costs less.
  void MoveStepTo(int row) {
    const int last = Count();
    row = std::clamp(row, 0, last);
    if (FStepDelta == 0) {
      FStepRow = row;
      return;
    }
    if (row > FStepRow) {
      for (int k = FStepRow + 1; k <= row; ++k) FStarts[size_t(k)] += FStepDelta;
    } else if (row < FStepRow && FStepRow - row <= last - FStepRow) {
      for (int k = row + 1; k <= FStepRow; ++k) FStarts[size_t(k)] -= FStepDelta;
    } else if (row < FStepRow) {
      // Settling the tail is cheaper than walking back to `row`.
      for (int k = FStepRow + 1; k <= last; ++k) FStarts[size_t(k)] += FStepDelta;
      FStepDelta = 0;
    }
    FStepRow = row;
  }

  TGapArray<T> FStarts;
  int FStepRow = 0;
  T FStepDelta = 0;
};

} // namespace orl
