#pragma once
// A long text that an undo record keeps. From a threshold on the text is held
// compressed with zlib at its default level; shorter texts stay plain, since
// compressing a few characters costs more than it saves. The first read
// decompresses and keeps the result, so that a record undone and redone
// again and again pays once.
//
// Invariant: FZip is empty or holds exactly FLength characters compressed;
// when FZip is empty FPlain is the text.

#include <cstddef>
#include <string>
#include <vector>

namespace orl {

class TZippedText {
public:
  /// Texts of fewer characters than this (32 KiB of UTF-16) stay plain.
  static constexpr size_t kCompressFrom = 16 * 1024;

  TZippedText() = default;
  explicit TZippedText(std::u16string text) { Assign(std::move(text)); }

  /// Takes the text; an empty text clears what was held.
  void Assign(std::u16string text);
  /// The text, decompressed on first read.
  const std::u16string& Text() const;
  bool Empty() const { return FLength == 0; }
  size_t Length() const { return FLength; }
  bool IsCompressed() const { return !FZip.empty(); }
  /// Bytes of memory held: the compressed form and the plain text when present.
  size_t ByteSize() const { return FZip.capacity() + FPlain.capacity() * sizeof(char16_t); }

private:
  std::vector<unsigned char> FZip;
  size_t FLength = 0;
  mutable std::u16string FPlain;
};

} // namespace orl
