// Alt codes: a character typed as its number on the numeric keypad while
// Alt is held, and key-up, which ends the code.

#include <string>

#include "editing/OrlMemo.h"
#include "platform/CodePages.h"

namespace orl {

namespace {

// More digits than any character needs: a longer code is no character.
constexpr size_t kMaxAltDigits = 8;
constexpr uint32_t kLastCodePoint = 0x10FFFF;

} // namespace

bool TOrlCustomMemo::CollectAltCodeDigit(int Key, TShiftState mods) {
  if (mods == ssAlt && Key >= vkNumpad0 && Key <= vkNumpad9) {
    if (FAltCode.size() < kMaxAltDigits) FAltCode += char16_t(u'0' + (Key - vkNumpad0));
    return true;
  }
  if (Key != vkMenu) FAltCode.clear();
  return false;
}

std::u16string TOrlCustomMemo::AltCodeText(std::u16string_view digits, bool bIsASCII, bool bBinaryMode) {
  uint32_t value = 0;
  for (const char16_t digit : digits) value = value * 10 + uint32_t(digit - u'0');
  if (value == 0) return {};  // a NUL would end the text for every plain reader
  if (value < 32 || digits.size() < 4) {
    // A short code names a byte of the console's code page.
    const char byte = char(value % 256);
    if (bBinaryMode || bIsASCII) return std::u16string(1, char16_t(uint8_t(byte)));
    return DecodeCodePage(std::string_view(&byte, 1), 437);
  }
  if (value < 0x10000) {
    if (!bIsASCII && value >= 128 && value <= 159) {
      const char byte = char(value);
      const std::u16string mapped = DecodeCodePage(std::string_view(&byte, 1), 1252);
      // The five bytes the table leaves free stand for themselves.
      if (mapped.size() == 1 && mapped[0] != u'\uFFFD' && mapped[0] != 0x1A) return mapped;
    }
    return std::u16string(1, char16_t(value));
  }
  if (value > kLastCodePoint) return {};
  value -= 0x10000;
  return {char16_t(0xD800 + (value >> 10)), char16_t(0xDC00 + (value & 0x3FF))};
}

void TOrlCustomMemo::KeyUp(int Key, TShiftState) {
  FKeyIsDown = FKeyUp = FKeyDown = false;
  if (Key != vkMenu || FAltCode.empty()) return;
  const std::u16string text = AltCodeText(FAltCode, FIsASCII, FBinaryMode);
  FAltCode.clear();
  if (text.empty() || FReadOnly || FHexView) return;
  if (!EncloseSelection(text)) InsertText(text, false);
}

} // namespace orl
