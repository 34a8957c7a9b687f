// The line store's life, update state and the row primitives that every
// change of the row array goes through.

#include <algorithm>
#include <mutex>

#include "platform/CodePages.h"
#include "textstore/OrlMemoStrings.h"

namespace orl {

namespace {

constexpr size_t kScratchLength = 18000;

} // namespace

TOrlMemoStrings::TOrlMemoStrings(IMemoStringsOwner* memo)
    : FCodePage(SystemAnsiCodePage()), FMemo(memo), FWST(kScratchLength, u'\0') {
  FCapacity = 64;
}

TOrlMemoStrings::~TOrlMemoStrings() = default;

void TOrlMemoStrings::SetUpdateState(bool Updating) {
  // The memo decides when to refresh; nesting is only counted.
  FLockCount = Updating ? FLockCount + 1 : std::max(FLockCount - 1, 0);
}

int TOrlMemoStrings::RealCount() const { return TextIsOneLineEnd() ? 0 : GetCount(); }

bool TOrlMemoStrings::TextIsOneLineEnd() const {
  // Reads as GetText writes: filler rows give neither text nor ending, and
  // the walk ends at the first text or the second ending.
  int lineEnds = 0;
  for (int row = 0; row < GetCount(); ++row) {
    if (!ReadLineAttribute(row).Enabled) continue;
    if (GetLineLength(row) > 0) return false;
    if (row + 1 < GetCount() && !IsLineWrapped(row + 1) && ++lineEnds > 1) return false;
  }
  return lineEnds == 1;
}

std::u16string_view TOrlMemoStrings::Tabbed(std::u16string_view S, const TMemoStoreSettings& settings) {
  if (!FMemo || settings.bPreserveTab || S.find(u'\t') == std::u16string_view::npos) return S;
  const int length = TOrlUniUtils::WConvertTabToSpaceB(S, FWST, settings.TabSize);
  return std::u16string_view(FWST).substr(0, size_t(length));
}

void TOrlMemoStrings::InsertRow(int Index, std::u16string_view S, TAttributePtr A) {
  if (GetCount() == FCapacity) Grow();
  StoreInsert(Index, 1, [&](size_t) { return TItem{NewText(S), std::move(A)}; });
  ++FVisibleCount;
}

void TOrlMemoStrings::EraseRows(int Index, int Count) {
  int visible = 0;
  for (int i = Index; i < Index + Count; ++i) visible += GetHiddenLine(i) ? 0 : 1;
  StoreErase(Index, Count);
  SubtractVisible(visible);
}

void TOrlMemoStrings::WriteRow(int Index, std::u16string_view S) {
  std::lock_guard lock(FLock);
  if (FBulkArena)
    Item(Index).FString = FBulkArena->Make(S);
  else
    Item(Index).FString.Assign(S);
  RowsReplaced(Index, 1, 1);
}

size_t TOrlMemoStrings::AllocatedBytes() const {
  size_t bytes = FList.Physical() * sizeof(TItem) + FOffsets.AllocatedBytes();
  for (const TRowPartition<int>& counts : FCounts) bytes += counts.AllocatedBytes();
  for (int i = 0; i < GetCount(); ++i) {
    bytes += Item(i).FString.AllocatedBytes();
    const TTextAttribute* a = Item(i).FObject.get();
    if (a && !a->IsShared()) bytes += a->IsAttribute() ? sizeof(TAttribute) : sizeof(TTextAttribute);
  }
  return bytes;
}

} // namespace orl
