#include "view/MemoColors.h"

#include <cstdio>

namespace orl {

const TSystemPalette& TSystemPalette::Default() {
  static const TSystemPalette palette = [] {
    TSystemPalette p;
    using R = TPaletteRole;
    p[R::Window] = {240, 240, 240};
    p[R::WindowText] = {0, 0, 0};
    p[R::Base] = {255, 255, 255};
    p[R::Text] = {0, 0, 0};
    p[R::Button] = {240, 240, 240};
    p[R::ButtonText] = {0, 0, 0};
    p[R::Highlight] = {0, 120, 215};
    p[R::HighlightedText] = {255, 255, 255};
    p[R::ToolTipBase] = {255, 255, 225};
    p[R::ToolTipText] = {0, 0, 0};
    p[R::Light] = {227, 227, 227};
    p[R::Mid] = {160, 160, 160};
    p[R::Dark] = {105, 105, 105};
    p[R::Shadow] = {64, 64, 64};
    p[R::PlaceholderText] = {109, 109, 109};
    p[R::Link] = {0, 102, 204};
    return p;
  }();
  return palette;
}

TPaletteRole SystemColorRole(int index) {
  using R = TPaletteRole;
  // Indexes of the desktop's colour table, from the scroll bar (0) to the menu bar (30).
  static constexpr R kRoles[] = {
      R::Button,      R::Window,      R::Highlight,  R::Mid,         R::Button,     R::Base,
      R::Shadow,      R::ButtonText,  R::Text,       R::HighlightedText, R::Button, R::Button,
      R::Mid,         R::Highlight,   R::HighlightedText, R::Button, R::Dark,       R::PlaceholderText,
      R::ButtonText,  R::WindowText,  R::Light,      R::Shadow,      R::Light,      R::ToolTipText,
      R::ToolTipBase, R::Button,      R::Link,       R::Highlight,   R::Mid,        R::Highlight,
      R::Button};
  if (index < 0 || size_t(index) >= std::size(kRoles)) return R::Window;
  return kRoles[size_t(index)];
}

TRgb ColorToRgb(TColor c, const TSystemPalette& palette) {
  if (IsSystemColor(c)) return palette[SystemColorRole(int(c & 0xFF))];
  const uint32_t v = uint32_t(c);
  return {uint8_t(v & 0xFF), uint8_t((v >> 8) & 0xFF), uint8_t((v >> 16) & 0xFF)};
}

TColor Blend(TColor a, TColor b, int percent) {
  const TRgb ca = ColorToRgb(a), cb = ColorToRgb(b);
  // percent * 2.55 rounded half to even, in integers: 2.55 has no exact binary form.
  const int scaled = percent * 255;
  int f = scaled / 100;
  const int rest = scaled % 100;
  if (rest > 50 || (rest == 50 && (f & 1))) ++f;
  const auto channel = [f](int x, int y) { return uint8_t(((f * (x - y)) >> 8) + y); };
  return RgbToColor({channel(ca.R, cb.R), channel(ca.G, cb.G), channel(ca.B, cb.B)});
}

std::string RgbHex(TRgb c) {
  char text[8];
  std::snprintf(text, sizeof text, "#%02x%02x%02x", c.R, c.G, c.B);
  return text;
}

} // namespace orl
