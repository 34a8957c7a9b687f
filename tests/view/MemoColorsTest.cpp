// Colours from stored values to what a canvas draws.

#include <gtest/gtest.h>

#include "view/MemoColors.h"

namespace orl {
namespace {

TEST(MemoColors, StoredBlueGreenRedBecomesRedGreenBlueAndSystemColoursUseThePalette) {
  // 0x00BBGGRR: the low byte is red.
  EXPECT_EQ(ColorToRgb(0x0080FF), (TRgb{0xFF, 0x80, 0x00}));
  EXPECT_EQ(RgbHex(ColorToRgb(0x0080FF)), "#ff8000");
  EXPECT_EQ(RgbToColor(ColorToRgb(0x123456)), 0x123456);
  TSystemPalette palette = TSystemPalette::Default();
  palette[TPaletteRole::ToolTipBase] = {1, 2, 3};
  palette[TPaletteRole::Highlight] = {9, 8, 7};
  EXPECT_EQ(ColorToRgb(clInfoBk, palette), (TRgb{1, 2, 3}));
  EXPECT_EQ(ColorToRgb(TColor(0xFF00000Du), palette), (TRgb{9, 8, 7}));  // the selection's background
  // An index past the table is no crash, only the window colour.
  EXPECT_EQ(ColorToRgb(TColor(0xFF0000FEu), palette), palette[TPaletteRole::Window]);
}

TEST(MemoColors, BlendRoundsItsFactorHalfToEven) {
  // 30 percent is a factor of 76.5: even rounding takes 76, so 255 * 76 >> 8 = 75.
  EXPECT_EQ(Blend(0xFFFFFF, 0x000000, 30), 0x4B4B4B);
  // 50 percent is 127.5, which rounds to 128.
  EXPECT_EQ(Blend(0xFFFFFF, 0x000000, 50), 0x7F7F7F);
  // Below the background the channel goes down; each channel stands alone.
  EXPECT_EQ(Blend(0x0000FF, 0xFFFFFF, 100), 0x0000FF);
  EXPECT_EQ(Blend(0x0000FF, 0xFFFFFF, 0), 0xFFFFFF);
  const TRgb mixed = ColorToRgb(Blend(0xFFB1B1, 0xFFFFFF, 30));  // a diff row over white
  EXPECT_EQ(mixed.R, 231);  // 76 * (177 - 255) >> 8 floors -23.2 to -24
  EXPECT_EQ(mixed.B, 0xFF);
}

} // namespace
} // namespace orl
