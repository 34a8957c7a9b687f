#include "textstore/WideStringArena.h"

#include <sys/mman.h>

#include <atomic>
#include <cstdint>
#include <cstring>
#include <new>

#include "textstore/HugePages.h"

namespace orl {

namespace {

// The size of a huge page, and aligned to it, so that a block's address
// tells where the block starts and the block can be one huge page.
constexpr size_t kBlockSize = size_t(2) << 20;
// Longer texts would waste the end of a block.
constexpr size_t kLongestInBlock = 16 << 10;

constexpr size_t RoundUp(size_t n, size_t to) { return (n + to - 1) / to * to; }

// Blocks are mapped from the system and unmapped when their last text goes:
// the allocator would keep a freed block of this size in its heap, so a
// session that loads and closes big files would only ever grow. Twice the
// size is mapped and the unaligned ends go back at once.
void* MapAlignedBlock() {
  void* mapped = ::mmap(nullptr, 2 * kBlockSize, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (mapped == MAP_FAILED) throw std::bad_alloc();
  const uintptr_t start = reinterpret_cast<uintptr_t>(mapped);
  const uintptr_t aligned = RoundUp(start, kBlockSize);
  if (aligned > start) ::munmap(mapped, aligned - start);
  const uintptr_t end = start + 2 * kBlockSize;
  if (end > aligned + kBlockSize) ::munmap(reinterpret_cast<void*>(aligned + kBlockSize), end - aligned - kBlockSize);
  return reinterpret_cast<void*>(aligned);
}

// The current block's count starts this high, so that texts released while
// the arena still cuts from the block can never bring it to 0; the arena
// settles the difference when it leaves the block. Saves an atomic
// operation per text.
constexpr uint32_t kHeld = 1u << 30;

// Texts start behind the count, aligned as a text's header wants.
constexpr size_t kBlockHeader = 16;

} // namespace

struct TWideStringArena::TBlock {
  std::atomic<uint32_t> FLive;
};

TWideStringArena::~TWideStringArena() { LeaveBlock(); }

void TWideStringArena::LeaveBlock() {
  if (!FBlock) return;
  ReleaseBlock(FBlock, kHeld - FCut);
  FBlock = nullptr;
}

void TWideStringArena::NextBlock() {
  static_assert(sizeof(TBlock) <= kBlockHeader);
  LeaveBlock();
  void* memory = MapAlignedBlock();
  AdviseHugePages(memory, kBlockSize);
  FBlock = new (memory) TBlock{{kHeld}};
  FUsed = kBlockHeader;
  FCut = 0;
}

TSharedWideString TWideStringArena::Make(std::u16string_view s) {
  using TRep = TSharedWideString::TRep;
  if (s.empty()) return {};
  const size_t bytes = RoundUp(sizeof(TRep) + s.size() * sizeof(char16_t), alignof(TRep));
  if (bytes > kLongestInBlock) return TSharedWideString(s);
  if (!FBlock || FUsed + bytes > kBlockSize) NextBlock();
  void* place = reinterpret_cast<char*>(FBlock) + FUsed;
  FUsed += bytes;
  ++FCut;
  const auto length = uint32_t(s.size());
  TRep* rep = new (place) TRep{{1}, length, length | TRep::kInArena, {0}};
  std::memcpy(rep->Chars(), s.data(), s.size() * sizeof(char16_t));
  return TSharedWideString(rep);
}

void TWideStringArena::Release(const void* rep) {
  ReleaseBlock(reinterpret_cast<TBlock*>(reinterpret_cast<uintptr_t>(rep) & ~uintptr_t(kBlockSize - 1)), 1);
}

void TWideStringArena::ReleaseBlock(TBlock* block, uint32_t count) {
  if (block->FLive.fetch_sub(count, std::memory_order_acq_rel) != count) return;
  block->~TBlock();
  ::munmap(block, kBlockSize);
}

} // namespace orl
