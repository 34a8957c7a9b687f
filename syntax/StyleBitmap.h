#pragma once
// What stands behind one completion or user-menu row of the engine.
//
// The workbench has a row object of the same role with other members; this
// one is named apart so that the two never meet in one program.

#include <memory>
#include <string>

namespace orl {

struct TStyleBitmap {
  int nr = -1;             ///< image index in the list image list, -1 for none
  std::u16string Value;    ///< text to insert
  char16_t ch = 0;         ///< the kind letter
  bool IsWord = false;     ///< set by auto-completion
  bool IsEmmet = false;    ///< set by auto-completion
};

/// Image index of a kind letter; -1 for a letter outside the list.
int StyleBitmapImageIndex(char16_t ch);
/// The row object of kind `ch`; null for NUL and "-", which carry no object.
std::unique_ptr<TStyleBitmap> CreateStyleBitmap(char16_t ch);

} // namespace orl
