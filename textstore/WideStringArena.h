#pragma once
// Blocks from which a bulk load cuts the texts of its rows: one allocation
// per 2 MB instead of one per row, no allocator header per row, and blocks
// that the system may back with huge pages, so that loading a large document
// costs little more than copying its text.
//
// Invariant: a block's live count is the number of texts cut from it that
// are still alive, plus a large hold while it is an arena's current block
// (less the texts cut so far); the block goes back to the system when the count
// drops to 0. Texts are never moved or reused inside
// a block, so a block keeps its memory until its last text is gone; texts
// that are later edited move out to allocations of their own.

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "textstore/SharedWideString.h"

namespace orl {

class TWideStringArena {
public:
  TWideStringArena() = default;
  TWideStringArena(const TWideStringArena&) = delete;
  TWideStringArena& operator=(const TWideStringArena&) = delete;
  ~TWideStringArena();

  /// A text of `s`, cut from the current block; a long text gets an
  /// allocation of its own. Not thread-safe: one arena per loading thread.
  TSharedWideString Make(std::u16string_view s);

  /// Gives back the place of a text cut from a block; any thread may call it.
  static void Release(const void* rep);

private:
  struct TBlock;
  void NextBlock();
  void LeaveBlock();
  static void ReleaseBlock(TBlock* block, uint32_t count);

  TBlock* FBlock = nullptr;
  size_t FUsed = 0;
  uint32_t FCut = 0;  // texts cut from the current block
};

} // namespace orl
