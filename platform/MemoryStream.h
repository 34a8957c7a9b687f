#pragma once
// A growable byte stream with a position, the argument of the binary reads and
// writes of the ini stores.

#include <cstddef>
#include <cstdint>
#include <vector>

namespace orl {

class TMemoryStream {
public:
  size_t Size() const { return FData.size(); }
  size_t Position() const { return FPosition; }
  void SetPosition(size_t position) { FPosition = position; }
  /// Writes at the position, growing the stream as needed; the position moves behind the bytes.
  void Write(const uint8_t* bytes, size_t count);
  /// Reads up to `count` bytes from the position; returns how many were read.
  size_t Read(uint8_t* bytes, size_t count);
  const std::vector<uint8_t>& Data() const { return FData; }

private:
  std::vector<uint8_t> FData;
  size_t FPosition = 0;
};

} // namespace orl
