#pragma once
// Answers a scripted user gives, taken in order.

#include <deque>

namespace orl::test {

/// The first answer of `queue`, removed from it; `fallback` when none is left.
template <typename T>
T TakeAnswer(std::deque<T>& queue, T fallback) {
  if (queue.empty()) return fallback;
  T value = queue.front();
  queue.pop_front();
  return value;
}

} // namespace orl::test
