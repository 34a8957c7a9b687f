#pragma once
// The script commands of gdtool memo that reach the memo's text commands:
// `command NAME [ARG...]` for routines no key reaches, `alt DIGITS` for Alt
// codes, and the listing of the undo records.

#include <iosfwd>
#include <string_view>
#include <vector>

#include "MemoScript.h"

namespace orl {
class TOrlMemo;
}

namespace gdtool {

/// Runs `command NAME [ARG...]` (words[0] is "command"). Raises EScriptError.
void RunTextCommand(orl::TOrlMemo& memo, const std::vector<TScriptWord>& words);
/// Types the digits on the numeric keypad with Alt held, then lets Alt go.
void TypeAltCode(orl::TOrlMemo& memo, std::u16string_view digits);
/// One line per record of the undo list, oldest first, newest last.
void PrintUndoRecords(orl::TOrlMemo& memo, std::ostream& out);

} // namespace gdtool
