// The background thread's reads. Each takes the store's lock only for as
// long as it takes to copy a handle; what the thread then reads is kept
// alive by shared ownership, and a row's text is never written while it is
// shared.

#include <mutex>

#include "textstore/OrlMemoStrings.h"

namespace orl {

TSharedWideString TOrlMemoStrings::GetLineStringFromThread(int index) const {
  std::lock_guard lock(FLock);
  return ValidIndex(index) ? Item(index).FString : TSharedWideString();
}

int TOrlMemoStrings::GetCountFromThread() const {
  std::lock_guard lock(FLock);
  return GetCount();
}

TAttributePtr TOrlMemoStrings::GetLineAttributeFromThread(int index) {
  std::lock_guard lock(FLock);
  TTextAttribute* own = ValidIndex(index) ? OwnAttribute(index) : nullptr;
  // The store's default attribute belongs to the main thread; the thread
  // gets one of its own to throw away.
  if (!own) return CreateAttribute(FSysTextType);
  return Item(index).FObject;
}

std::u16string TOrlMemoStrings::GetUnwrappedLineFromThread(int Index, int& nLines) const {
  std::lock_guard lock(FLock);
  return GetUnwrappedLine(Index, nLines);
}

} // namespace orl
