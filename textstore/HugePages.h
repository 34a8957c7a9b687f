#pragma once
// Large arrays of the store are touched for the first time all at once (a
// load fills millions of rows); backing them with huge pages saves most of
// the page faults that would otherwise cost more than the copying itself.

#include <cstddef>

namespace orl {

/// Asks the system to back the huge-page-aligned part of [memory, memory +
/// bytes) with huge pages. Only a hint: nothing changes where it isn't taken.
void AdviseHugePages(void* memory, size_t bytes);

} // namespace orl
