// The running sums over rows against a plain list of values, under the mixed
// edits that move the pending step back and forth.

#include <gtest/gtest.h>

#include <numeric>
#include <random>
#include <vector>

#include "textstore/RowPartition.h"

namespace orl {
namespace {

void ExpectSums(const TRowPartition<int64_t>& partition, const std::vector<int64_t>& values) {
  ASSERT_EQ(partition.Count(), int(values.size()));
  int64_t sum = 0;
  for (int k = 0; k <= int(values.size()); ++k) {
    ASSERT_EQ(partition.Start(k), sum) << "entry " << k;
    if (k < int(values.size())) sum += values[size_t(k)];
  }
}

TEST(RowPartition, StartsStayTheSumsAboveEachRowUnderMixedEdits) {
  std::mt19937 random(7);
  std::vector<int64_t> values(50);
  for (auto& v : values) v = random() % 9;
  TRowPartition<int64_t> partition;
  EXPECT_FALSE(partition.Built());
  partition.Build(int(values.size()), [&](int row) { return values[size_t(row)]; });
  ExpectSums(partition, values);
  for (int step = 0; step < 3000; ++step) {
    const int count = int(values.size());
    switch (random() % 4) {
      case 0: {  // an edit in a row, anywhere: the step jumps both ways
        if (count == 0) break;
        const int row = int(random() % unsigned(count));
        values[size_t(row)] = random() % 20;
        partition.SetValue(row, values[size_t(row)]);
        break;
      }
      case 1: {
        const int row = int(random() % unsigned(count + 1));
        const int n = int(random() % 4);
        std::vector<int64_t> added(static_cast<size_t>(n));
        for (auto& v : added) v = random() % 9;
        values.insert(values.begin() + row, added.begin(), added.end());
        partition.InsertRows(row, n, [&](int i) { return added[size_t(i)]; });
        break;
      }
      case 2: {
        if (count == 0) break;
        const int row = int(random() % unsigned(count));
        const int n = std::min(int(random() % 4), count - row);
        values.erase(values.begin() + row, values.begin() + row + n);
        partition.EraseRows(row, n);
        break;
      }
      default: {  // the same row again and again, as typing does
        if (count == 0) break;
        const int row = count / 2;
        partition.SetValue(row, ++values[size_t(row)]);
      }
    }
    ExpectSums(partition, values);
  }
}

TEST(RowPartition, LowerBoundFindsTheFirstEntryReachingASum) {
  const std::vector<int64_t> values{2, 0, 0, 3, 1};  // starts 0 2 2 2 5 6
  TRowPartition<int64_t> partition;
  partition.Build(5, [&](int row) { return values[size_t(row)]; });
  partition.SetValue(4, 1);  // no change: no step
  partition.SetValue(0, 2);
  EXPECT_EQ(partition.LowerBound(0), 0);
  EXPECT_EQ(partition.LowerBound(1), 1);
  EXPECT_EQ(partition.LowerBound(2), 1);  // the first of several equal starts
  EXPECT_EQ(partition.LowerBound(3), 4);
  EXPECT_EQ(partition.LowerBound(6), 5);
  EXPECT_EQ(partition.LowerBound(7), 6);  // past the total: Count() + 1
  partition.EraseRows(0, 5);
  EXPECT_EQ(partition.Count(), 0);
  EXPECT_EQ(partition.Start(0), 0);
  partition.Reset();
  EXPECT_FALSE(partition.Built());
}

} // namespace
} // namespace orl
