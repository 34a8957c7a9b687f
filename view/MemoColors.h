#pragma once
// Colours as the memo stores them (TColor, 0x00BBGGRR or a system colour)
// and as a canvas draws them (TRgb). ColorToRgb is the one place where the
// stored byte order turns into red, green and blue.

#include <array>
#include <cstdint>
#include <string>

#include "syntax/CharStyle.h"

namespace orl {

struct TRgb {
  uint8_t R = 0, G = 0, B = 0;
  bool operator==(const TRgb&) const = default;
};

/// The roles of a toolkit palette that the system colours stand for.
enum class TPaletteRole : uint8_t {
  Window, WindowText, Base, Text, Button, ButtonText, Highlight, HighlightedText,
  ToolTipBase, ToolTipText, Light, Mid, Dark, Shadow, PlaceholderText, Link,
};
inline constexpr int kPaletteRoleCount = int(TPaletteRole::Link) + 1;

/// The colours of the palette roles; a toolkit canvas fills it from its own palette.
struct TSystemPalette {
  std::array<TRgb, kPaletteRoleCount> Roles;
  TRgb& operator[](TPaletteRole role) { return Roles[size_t(role)]; }
  const TRgb& operator[](TPaletteRole role) const { return Roles[size_t(role)]; }
  /// A light desktop scheme, for headless drawing.
  static const TSystemPalette& Default();
};

/// Top byte 0xFF: the low byte indexes the system colours.
constexpr bool IsSystemColor(TColor c) { return (uint32_t(c) >> 24) == 0xFF; }
/// The palette role a system colour index stands for.
TPaletteRole SystemColorRole(int index);
TRgb ColorToRgb(TColor c, const TSystemPalette& palette = TSystemPalette::Default());
/// The inverse for plain colours.
constexpr TColor RgbToColor(TRgb c) { return TColor(c.R | (c.G << 8) | (c.B << 16)); }
/// p percent of colour a over colour b, per channel ((f * (a - b)) >> 8) + b
/// with f = p * 2.55 rounded half to even.
TColor Blend(TColor a, TColor b, int percent);
/// "#rrggbb".
std::string RgbHex(TRgb c);

} // namespace orl
