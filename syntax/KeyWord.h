#pragma once
// One keyword or tag group of a definition.
//
// The word list is filled once at load and its hash tables are built there
// too, under the case rule the tokeniser will ask for, so that the main and
// the background thread only ever read it.

#include <memory>
#include <string>
#include <vector>

#include "definition/OrlIniFiles.h"
#include "syntax/CharStyle.h"
#include "syntax/RegexPattern.h"

namespace orl {

struct TKeyWord {
  std::u16string Name;           ///< as in the definition; a pattern group keeps its "#"
  THashedStringList KeyWords;    ///< the words, sorted; empty for a pattern group
  std::u16string Info;           ///< "Keywords" or "Tags" + the group's row in its section
  TColor Color = 0xFF0000;
  TColor ColorBk = clNoColor;
  TFontStyles Style = 0;
  bool RegEx = false;            ///< the group is one regular expression
  std::u16string sRegEx;         ///< its text
  std::unique_ptr<TRegexPattern> Pattern;  ///< compiled sRegEx; null when empty or bad

  /// Fills the list from words in any order; duplicates are kept once.
  void SetWords(std::vector<std::u16string> words);
  /// Sets the case rule and builds both hash tables now.
  void PrepareLookup(bool bCaseSensitive);
};

} // namespace orl
