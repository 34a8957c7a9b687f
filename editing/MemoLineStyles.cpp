// The memo's line states: the tokeniser over the store the memo works on.

#include "editing/OrlMemo.h"

namespace orl {

TLineTokeniser& TOrlCustomMemo::Tokeniser() {
  return FSplitSlave && FSplitMemo ? FSplitMemo->Tokeniser() : *FTokeniser;
}

void TOrlCustomMemo::RescanLineStyles() {
  if (!FStyles) return;
  const bool bWasUpdate = FUpdate;
  FUpdate = true;
  // Each line starts from the state stored for the one before, so the walk is linear.
  const int count = InternalLines().Count();
  for (int line = 0; line < count && !FClosing; ++line) GetUpStyle(line, false);
  FUpdate = bWasUpdate;
}

} // namespace orl
