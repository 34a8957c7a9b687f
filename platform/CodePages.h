#pragma once
// Byte <-> UTF-16 conversion: byte-order marks, the system ANSI code page and
// any other code page by number, all through ICU converters.

#include <string>
#include <string_view>
#include <vector>

namespace orl {

enum class TTextBom { tbNone, tbUtf8, tbUtf16LE, tbUtf16BE };

/// The byte-order mark at the start of `bytes`, tbNone when there is none.
TTextBom DetectBom(std::string_view bytes);
/// Length in bytes of the mark `bom`.
size_t BomLength(TTextBom bom);

/// The code page that stands for "ANSI" on this system; 1252 unless set.
unsigned SystemAnsiCodePage();
void SetSystemAnsiCodePage(unsigned codePage);

/// Decodes bytes in the code page `codePage` (1200/1201 UTF-16, 65001 UTF-8,
/// others by their Windows number). Unmappable bytes become U+FFFD.
std::u16string DecodeCodePage(std::string_view bytes, unsigned codePage);
/// Encodes in `codePage`; characters the code page lacks become its substitute.
std::string EncodeCodePage(std::u16string_view text, unsigned codePage);

/// Decodes by byte-order mark, else in `codePageWithoutBom`. The mark is not
/// part of the result.
std::u16string DecodeText(std::string_view bytes, unsigned codePageWithoutBom);

/// UTF-16LE bytes, optionally preceded by the mark FF FE.
std::string EncodeUtf16LE(std::u16string_view text, bool bWithBom);

std::string Utf16ToUtf8(std::u16string_view text);
std::u16string Utf8ToUtf16(std::string_view text);

/// Splits at CR, LF and CR LF; an ending after the last line adds no empty line.
std::vector<std::u16string> SplitLines(std::u16string_view text);

} // namespace orl
