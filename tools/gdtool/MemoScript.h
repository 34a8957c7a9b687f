#pragma once
// The words of one line of a memo script: bare words and double-quoted
// strings with the escapes \r \n \t \\ \" and \u{XXXX}; '#' outside a
// string starts a comment.

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace gdtool {

struct TScriptWord {
  std::u16string Text;
  bool bQuoted = false;
};

/// A line that cannot be read; the message says why.
class EScriptError : public std::runtime_error {
public:
  using std::runtime_error::runtime_error;
};

/// A bare word as a whole number. Raises EScriptError.
int ScriptNumber(const TScriptWord& word);

/// Splits a UTF-8 script line into words. Raises EScriptError.
std::vector<TScriptWord> SplitScriptLine(std::string_view line);

} // namespace gdtool
