#pragma once
// Colours and font style of one token class.

#include <cstdint>

namespace orl {

/// 0x00BBGGRR, or a system colour with top byte 0xFF.
using TColor = int32_t;
/// Stands for "no colour of its own": the painter uses the text's colour.
inline constexpr TColor clNoColor = 0x1FFFFFFF;
/// The system's info-background colour.
inline constexpr TColor clInfoBk = -16777192;

enum TFontStyle : uint8_t { fsBold = 1, fsItalic = 2, fsUnderline = 4, fsStrikeOut = 8 };
/// A set of TFontStyle bits; bold is bit 0.
using TFontStyles = uint8_t;

struct TCharStyle {
  TColor FTextColor = 0;
  TColor FBkColor = 0xFFFFFF;
  TFontStyles FStyle = 0;

  TColor TextColor() const { return FTextColor; }
  TColor BkColor() const { return FBkColor; }
  TFontStyles Style() const { return FStyle; }
  void Set(TColor text, TColor back, TFontStyles style) {
    FTextColor = text;
    FBkColor = back;
    FStyle = style;
  }
};

} // namespace orl
