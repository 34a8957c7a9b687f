#pragma once
// A UTF-16 file read piece by piece into host order, so that a loader can
// split it into rows as it comes instead of holding the file's bytes and its
// decoded text at once.

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <string>

namespace orl {

class TUtf16FileReader {
public:
  /// Opens the file and reads its mark; raises EFileError when it cannot be opened.
  explicit TUtf16FileReader(const std::filesystem::path& path);

  /// The file opens with a UTF-16 byte-order mark (either order).
  bool HasMark() const { return FHasMark; }
  /// Without a mark the text is read as little-endian.
  bool BigEndian() const { return FBigEndian; }
  /// Characters in the file, its mark included.
  size_t Characters() const { return FCharacters; }

  /// Appends the next piece of at most `characters` characters to `text`,
  /// byte order marks at the start of the text left out; false at the end.
  /// A lone last byte is no character. Raises EFileError on a read error.
  bool ReadPiece(std::u16string& text, size_t characters);

private:
  void SwapBytes(char16_t* from, char16_t* to) const;

  std::filesystem::path FPath;
  std::ifstream FIn;
  bool FHasMark = false;
  bool FBigEndian = false;
  bool FInLeadingMarks = true;
  size_t FCharacters = 0;
};

} // namespace orl
