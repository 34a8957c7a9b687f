#include "platform/MemoryStream.h"

#include <algorithm>

namespace orl {

void TMemoryStream::Write(const uint8_t* bytes, size_t count) {
  if (FPosition + count > FData.size()) FData.resize(FPosition + count);
  std::copy(bytes, bytes + count, FData.begin() + std::ptrdiff_t(FPosition));
  FPosition += count;
}

size_t TMemoryStream::Read(uint8_t* bytes, size_t count) {
  const size_t n = FPosition < FData.size() ? std::min(count, FData.size() - FPosition) : 0;
  std::copy_n(FData.begin() + std::ptrdiff_t(FPosition), n, bytes);
  FPosition += n;
  return n;
}

} // namespace orl
