// The store written out in its coding, with each real line's ending.

#include "platform/CodePages.h"
#include "textstore/OrlMemoStrings.h"

namespace orl {
namespace {

void Write(TMemoryStream& Stream, std::string_view bytes) {
  Stream.Write(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size());
}

std::string LowBytes(std::u16string_view text) {
  std::string bytes(text.size(), '\0');
  for (size_t i = 0; i < text.size(); ++i) bytes[i] = char(text[i] & 0xFF);
  return bytes;
}

std::string BigEndian(std::u16string_view text) {
  std::string bytes = EncodeUtf16LE(text, false);
  for (size_t i = 0; i + 1 < bytes.size(); i += 2) std::swap(bytes[i], bytes[i + 1]);
  return bytes;
}

bool IsMixed(TSysTextType type) { return type >= sttMixedWindows; }

/// The ending a plain type writes after every real line.
std::u16string_view TypeEnding(TSysTextType type) {
  switch (type) {
    case sttUnix: return u"\n";
    case sttMac: return u"\r";
    default: return u"\r\n";
  }
}

/// The ending a row's flags name: the one of the line before it.
std::u16string_view FlagEnding(const TTextAttribute& next) {
  if (next.LinefeedCR() && !next.LinefeedLF()) return u"\r";
  if (next.LinefeedLF() && !next.LinefeedCR()) return u"\n";
  return u"\r\n";
}

} // namespace

void TOrlMemoStrings::WriteRows(TMemoryStream& Stream, size_t chunk) {
  const TMemoStoreSettings settings = Settings();
  auto encode = [&](std::u16string_view text) -> std::string {
    if (settings.bBinaryMode || (!FSaveUnicode && !FSaveBigUnicode && !FSaveUTF && settings.bIsASCII))
      return LowBytes(text);
    if (FSaveUnicode) return EncodeUtf16LE(text, false);
    if (FSaveBigUnicode) return BigEndian(text);
    if (FSaveUTF) return Utf16ToUtf8(text);
    return EncodeCodePage(text, FCodePage);
  };
  if (FUseBOM) {
    if (FSaveUnicode) Write(Stream, "\xFF\xFE");
    else if (FSaveBigUnicode) Write(Stream, "\xFE\xFF");
    else if (FSaveUTF) Write(Stream, "\xEF\xBB\xBF");
  }
  std::u16string pending;
  for (int row = 0; row < GetCount(); ++row) {
    // Filler rows of a comparison are no text of the file.
    if (!ReadLineAttribute(row).Enabled) continue;
    pending.append(GetLineString(row));
    const int next = row + 1;
    if (!settings.bBinaryMode && next < GetCount() && !IsLineWrapped(next))
      pending.append(IsMixed(FSysTextType) ? FlagEnding(ReadLineAttribute(next)) : TypeEnding(FSysTextType));
    if (pending.size() >= chunk) {
      Write(Stream, encode(pending));
      pending.clear();
    }
  }
  Write(Stream, encode(pending));
}

void TOrlMemoStrings::SaveToStream(TMemoryStream& Stream) {
  FSaved = false;
  WriteRows(Stream, std::u16string::npos);
  FCurrentStreamPos = int64_t(Stream.Size());
  FSaved = true;
}

void TOrlMemoStrings::SaveTextToStream(TMemoryStream& Stream) {
  constexpr size_t kChunk = 1 << 20;
  WriteRows(Stream, kChunk);
}

} // namespace orl
