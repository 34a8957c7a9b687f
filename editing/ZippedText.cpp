#include "editing/ZippedText.h"

#include <zlib.h>

#include "platform/OrlError.h"

namespace orl {

void TZippedText::Assign(std::u16string text) {
  FZip.clear();
  FZip.shrink_to_fit();
  FLength = text.size();
  if (FLength < kCompressFrom) {
    FPlain = std::move(text);
    return;
  }
  const uLong plainBytes = uLong(FLength * sizeof(char16_t));
  uLongf zipBytes = compressBound(plainBytes);
  FZip.resize(zipBytes);
  if (compress2(FZip.data(), &zipBytes, reinterpret_cast<const Bytef*>(text.data()), plainBytes,
                Z_DEFAULT_COMPRESSION) != Z_OK) {
    // Without memory for the compressed form the text stays as it is.
    FZip.clear();
    FZip.shrink_to_fit();
    FPlain = std::move(text);
    return;
  }
  FZip.resize(zipBytes);
  FZip.shrink_to_fit();
  FPlain = std::u16string();
}

const std::u16string& TZippedText::Text() const {
  if (FZip.empty() || FPlain.size() == FLength) return FPlain;
  std::u16string plain(FLength, u'\0');
  uLongf plainBytes = uLongf(FLength * sizeof(char16_t));
  if (uncompress(reinterpret_cast<Bytef*>(plain.data()), &plainBytes, FZip.data(), uLong(FZip.size())) != Z_OK ||
      plainBytes != FLength * sizeof(char16_t))
    throw EOrlError("An undo record's compressed text is damaged");
  FPlain = std::move(plain);
  return FPlain;
}

} // namespace orl
