#pragma once
// Folds one more value into a running hash, so that records of several
// fields hash well without each caller inventing its own mix.

#include <cstddef>
#include <functional>

namespace orl {

template <class T>
void HashCombine(size_t& seed, const T& value) {
  seed ^= std::hash<T>{}(value) + 0x9e3779b97f4a7c15ull + (seed << 6) + (seed >> 2);
}

} // namespace orl
