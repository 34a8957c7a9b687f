#pragma once
// What keys and the mouse hand to the memo, and the seams through which
// caret and selection code reaches the parts of the editor that change text,
// record macros, manage several carets and so on. Each seam does nothing
// until the part it stands for is attached.

#include <cstdint>
#include <functional>
#include <string>

namespace orl {

/// Key codes as the memo's key table names them; letters and digits are
/// their upper-case characters.
enum TMemoKey : int {
  vkNone = 0,
  vkBack = 8,
  vkTab = 9,
  vkReturn = 13,
  vkMenu = 18,  ///< Alt
  vkEscape = 27,
  vkSpace = 32,
  vkPrior = 33,
  vkNext = 34,
  vkEnd = 35,
  vkHome = 36,
  vkLeft = 37,
  vkUp = 38,
  vkRight = 39,
  vkDown = 40,
  vkInsert = 45,
  vkDelete = 46,
  vkNumpad0 = 96,
  vkNumpad9 = 105,
  vkF1 = 112,
  vkF12 = 123,
};

enum class TMouseButton : uint8_t { mbLeft, mbRight, mbMiddle };

/// Parts of the editor that caret and selection code calls but does not own.
struct TMemoHooks {
  // Folding: opens the folds that hide a row an undo goes back to.
  std::function<void(int line)> OpenNodesOnHiddenLine;
  // Snippets: true while an expanded snippet's tab stops are being stepped
  // through, so that each edit records that it was made inside one; past
  // the last stop the snippet part leaves snippet mode itself.
  std::function<bool()> AtSnippetTabStop;
  // Completion and hints.
  std::function<void()> ShowCompletion, ShowParameterHint;
  // Several carets and sync edit.
  std::function<void()> LeaveMultiEdit;
  // Macro recording: a code and its value.
  std::function<void(int code, int value)> RecordMacro;
  // Brace and tag matching around the caret.
  std::function<void()> FindMatchingBraces;
};

} // namespace orl
