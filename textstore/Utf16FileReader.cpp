#include "textstore/Utf16FileReader.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "platform/OrlError.h"

namespace orl {

namespace {

constexpr char16_t kByteOrderMark = 0xFEFF;

} // namespace

TUtf16FileReader::TUtf16FileReader(const std::filesystem::path& path) : FPath(path) {
  std::error_code ec;
  if (std::filesystem::is_directory(path, ec)) throw EFileError(path, "Cannot open", "it is a folder");
  FIn.open(path, std::ios::binary);
  if (!FIn) throw EFileError(path, "Cannot open", std::strerror(errno));
  FCharacters = size_t(std::filesystem::file_size(path, ec) / sizeof(char16_t));
  unsigned char mark[2] = {0, 0};
  FIn.read(reinterpret_cast<char*>(mark), 2);
  FHasMark = FIn.gcount() == 2 && ((mark[0] == 0xFF && mark[1] == 0xFE) || (mark[0] == 0xFE && mark[1] == 0xFF));
  FBigEndian = FHasMark && mark[0] == 0xFE;
  // The mark is read again as the text's first character and dropped there.
  FIn.clear();
  FIn.seekg(0);
}

void TUtf16FileReader::SwapBytes(char16_t* from, char16_t* to) const {
  if (FBigEndian) std::transform(from, to, from, [](char16_t c) { return char16_t((c << 8) | (c >> 8)); });
}

bool TUtf16FileReader::ReadPiece(std::u16string& text, size_t characters) {
  if (!FIn) return false;
  const size_t old = text.size();
  text.resize(old + characters);
  FIn.read(reinterpret_cast<char*>(text.data() + old), std::streamsize(characters * sizeof(char16_t)));
  if (FIn.bad()) throw EFileError(FPath, "Cannot read", std::strerror(errno));
  text.resize(old + size_t(FIn.gcount()) / sizeof(char16_t));
  SwapBytes(text.data() + old, text.data() + text.size());
  if (FInLeadingMarks) {
    const size_t marks = std::min(text.find_first_not_of(kByteOrderMark, old), text.size());
    text.erase(old, marks - old);
    FInLeadingMarks = text.size() == old;
  }
  return text.size() > old || FIn.good();
}

} // namespace orl
