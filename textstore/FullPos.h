#pragma once
// A character position in the text: x the 0-based column in characters, Y the
// 0-based row.

namespace orl {

struct TFullPos {
  int x = 0;
  int Y = 0;
  bool operator==(const TFullPos&) const = default;
};

} // namespace orl
