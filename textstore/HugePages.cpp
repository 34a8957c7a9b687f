#include "textstore/HugePages.h"

#include <sys/mman.h>

#include <cstdint>

namespace orl {

namespace {

constexpr uintptr_t kHugePage = uintptr_t(2) << 20;

} // namespace

void AdviseHugePages(void* memory, size_t bytes) {
  const uintptr_t start = (reinterpret_cast<uintptr_t>(memory) + kHugePage - 1) & ~(kHugePage - 1);
  const uintptr_t end = (reinterpret_cast<uintptr_t>(memory) + bytes) & ~(kHugePage - 1);
  if (end > start) ::madvise(reinterpret_cast<void*>(start), end - start, MADV_HUGEPAGE);
}

} // namespace orl
