#pragma once
// What the line store asks of the memo that owns it, kept narrow so that the
// store knows nothing of painting, undo or folding. A store without a memo
// behaves as a plain list: tabs stay as they are, no caret is kept, every
// line is one row and nothing outside the store hears of its changes.

#include <cstdint>
#include <string_view>
#include <vector>

#include "textstore/FullPos.h"

namespace orl {

/// The memo's settings that the store's operations depend on; the store
/// reads them once per operation.
struct TMemoStoreSettings {
  int TabSize = 4;
  bool bPreserveTab = true;     // tabs are kept, not expanded to blanks
  bool bBinaryMode = false;     // each byte is a character; rows of 80
  bool bHasStyles = false;      // a style set is attached: rows carry TAttribute
  bool bWrapping = false;       // word wrap or force wrap is on
  bool bIsASCII = false;        // rows hold the bytes of a DOS code page
  bool bHexTextAsAscii = false; // binary mode shows DOS glyphs
  bool bHandleCSV = false;      // line breaks inside quotes of a delimited file don't end the line
  bool bHexView = false;        // the hex view is shown: a row is a real line
};

/// A memo's selection as the store measures it, ends in the order of the user's motion.
struct TMemoSelection {
  TFullPos Start;
  TFullPos End;
  bool bColumnMode = false;
  bool bHexView = false;
  int HexSelectionLength = 0;  // what the hex viewer reports while it is shown
};

/// Which operation of the quick family lays a line out; the margins differ a little.
enum TQuickLineCall : uint8_t { qlAdd, qlInsert, qlPut };

class IMemoStringsOwner {
public:
  virtual TMemoStoreSettings StoreSettings() const = 0;

  virtual TFullPos CaretPos() const = 0;
  virtual void SetCaretPos(TFullPos pos) = 0;
  virtual TMemoSelection Selection() const = 0;

  /// Appends to `pieces` the lengths of the rows that `line` is laid out in,
  /// in order; one piece of the whole length when nothing wraps. May switch
  /// force wrap on for an overlong line.
  virtual void LayoutLine(std::u16string_view line, TQuickLineCall call, std::vector<int>& pieces) = 0;
  /// Raises the memo's measure of the longest line to `length` if it is below.
  virtual void RaiseMaxLength(int length) = 0;
  /// Rows from `from` to `to` that no closed fold hides.
  virtual int GetVisibleLines(int from, int to) = 0;
  /// Whether the last parse met a tab.
  virtual void SetHasTabs(bool value) = 0;
  /// Enters bookmark `number` for `row` in the memo's bookmark list.
  virtual void SetBookmarkListValue(int number, int row) = 0;
  /// Lines were appended by Assign: the memo refreshes, runs its change
  /// handling and rebuilds its fold data.
  virtual void LinesAssigned() = 0;

protected:
  ~IMemoStringsOwner() = default;
};

} // namespace orl
