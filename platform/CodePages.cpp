#include "platform/CodePages.h"

#include <unicode/ucnv.h>
#include <unicode/ustring.h>

#include <atomic>
#include <memory>

#include "platform/OrlError.h"

namespace orl {
namespace {

std::atomic<unsigned> GAnsiCodePage{1252};

struct TConverterCloser {
  void operator()(UConverter* c) const { ucnv_close(c); }
};
using TConverterPtr = std::unique_ptr<UConverter, TConverterCloser>;

// Windows numbers the code pages; ICU knows most of them under one of these aliases.
TConverterPtr OpenConverter(unsigned codePage) {
  const std::string number = std::to_string(codePage);
  const std::string names[] = {
      codePage == 65001 ? std::string("UTF-8") : std::string(),
      codePage == 1201 ? std::string("UTF-16BE") : std::string(),
      "windows-" + number, "ibm-" + number, "cp" + number};
  for (const std::string& name : names) {
    if (name.empty()) continue;
    UErrorCode status = U_ZERO_ERROR;
    UConverter* converter = ucnv_open(name.c_str(), &status);
    if (U_SUCCESS(status)) return TConverterPtr(converter);
  }
  throw EOrlError("Unknown code page " + number);
}

std::u16string DecodeUtf16LE(std::string_view bytes) {
  std::u16string out(bytes.size() / 2, u'\0');
  for (size_t i = 0; i < out.size(); ++i)
    out[i] = char16_t(uint8_t(bytes[2 * i]) | (uint8_t(bytes[2 * i + 1]) << 8));
  return out;
}

} // namespace

TTextBom DetectBom(std::string_view b) {
  if (b.size() >= 3 && uint8_t(b[0]) == 0xEF && uint8_t(b[1]) == 0xBB && uint8_t(b[2]) == 0xBF) return TTextBom::tbUtf8;
  if (b.size() >= 2 && uint8_t(b[0]) == 0xFF && uint8_t(b[1]) == 0xFE) return TTextBom::tbUtf16LE;
  if (b.size() >= 2 && uint8_t(b[0]) == 0xFE && uint8_t(b[1]) == 0xFF) return TTextBom::tbUtf16BE;
  return TTextBom::tbNone;
}

size_t BomLength(TTextBom bom) {
  switch (bom) {
  case TTextBom::tbUtf8: return 3;
  case TTextBom::tbUtf16LE:
  case TTextBom::tbUtf16BE: return 2;
  case TTextBom::tbNone: break;
  }
  return 0;
}

unsigned SystemAnsiCodePage() { return GAnsiCodePage.load(); }
void SetSystemAnsiCodePage(unsigned codePage) { GAnsiCodePage.store(codePage); }

std::u16string DecodeCodePage(std::string_view bytes, unsigned codePage) {
  if (codePage == 1200) return DecodeUtf16LE(bytes);
  TConverterPtr converter = OpenConverter(codePage);
  std::u16string out(bytes.size() * 2 + 2, u'\0');
  UErrorCode status = U_ZERO_ERROR;
  int32_t n = ucnv_toUChars(converter.get(), reinterpret_cast<UChar*>(out.data()), int32_t(out.size()), bytes.data(),
                            int32_t(bytes.size()), &status);
  if (U_FAILURE(status)) throw EOrlError(std::string("Cannot decode text: ") + u_errorName(status));
  out.resize(size_t(n));
  return out;
}

std::string EncodeCodePage(std::u16string_view text, unsigned codePage) {
  if (codePage == 1200) return EncodeUtf16LE(text, false);
  TConverterPtr converter = OpenConverter(codePage);
  std::string out(size_t(UCNV_GET_MAX_BYTES_FOR_STRING(text.size(), ucnv_getMaxCharSize(converter.get()))) + 1, '\0');
  UErrorCode status = U_ZERO_ERROR;
  int32_t n = ucnv_fromUChars(converter.get(), out.data(), int32_t(out.size()),
                              reinterpret_cast<const UChar*>(text.data()), int32_t(text.size()), &status);
  if (U_FAILURE(status)) throw EOrlError(std::string("Cannot encode text: ") + u_errorName(status));
  out.resize(size_t(n));
  return out;
}

std::u16string DecodeText(std::string_view bytes, unsigned codePageWithoutBom) {
  const TTextBom bom = DetectBom(bytes);
  const std::string_view body = bytes.substr(BomLength(bom));
  switch (bom) {
  case TTextBom::tbUtf8: return DecodeCodePage(body, 65001);
  case TTextBom::tbUtf16LE: return DecodeUtf16LE(body);
  case TTextBom::tbUtf16BE: return DecodeCodePage(body, 1201);
  case TTextBom::tbNone: break;
  }
  return DecodeCodePage(body, codePageWithoutBom);
}

std::string EncodeUtf16LE(std::u16string_view text, bool bWithBom) {
  std::string out;
  out.reserve(text.size() * 2 + 2);
  if (bWithBom) out.append("\xFF\xFE", 2);
  for (char16_t c : text) {
    out.push_back(char(c & 0xFF));
    out.push_back(char(c >> 8));
  }
  return out;
}

std::string Utf16ToUtf8(std::u16string_view text) { return EncodeCodePage(text, 65001); }
std::u16string Utf8ToUtf16(std::string_view text) { return DecodeCodePage(text, 65001); }

std::vector<std::u16string> SplitLines(std::u16string_view text) {
  std::vector<std::u16string> lines;
  size_t start = 0;
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] != u'\r' && text[i] != u'\n') continue;
    lines.emplace_back(text.substr(start, i - start));
    if (text[i] == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n') ++i;
    start = i + 1;
  }
  if (start < text.size()) lines.emplace_back(text.substr(start));
  return lines;
}

} // namespace orl
