#pragma once
// Pixel geometry of the memo: client rectangles, points and the character cell.

namespace orl {

struct TPoint {
  int X = 0;
  int Y = 0;
  bool operator==(const TPoint&) const = default;
};

/// Right and Bottom lie just outside the rectangle.
struct TRect {
  int Left = 0;
  int Top = 0;
  int Right = 0;
  int Bottom = 0;
  int Width() const { return Right - Left; }
  int Height() const { return Bottom - Top; }
  bool operator==(const TRect&) const = default;
};

/// One character cell of the memo's font: width and row height in pixels.
struct TCellSize {
  int W = 0;
  int H = 0;
  bool operator==(const TCellSize&) const = default;
};

} // namespace orl
