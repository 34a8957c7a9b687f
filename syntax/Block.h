#pragma once
// One block rule: a stretch of text from Start to Stop with its own colour.

#include <memory>
#include <string>

#include "syntax/CharStyle.h"
#include "syntax/RegexPattern.h"

namespace orl {

struct TBlock {
  std::u16string Name;       ///< a leading "#" makes Start and Stop regular expressions
  std::u16string OnlyAfter;
  std::u16string Start;
  std::u16string Stop;
  TColor Color = 0;
  TColor ColorBk = clNoColor;
  TFontStyles Style = 0;
  bool ForceColor = false;   ///< coloured as a whole
  bool LineBlock = false;    ///< ends at the line end
  bool FirstOnLine = false;
  bool HighlightKeywords = true;
  bool HighlightSymbols = true;
  bool HighlightBlocks = true;
  bool HighlightNumbers = true;
  bool HighlightStrings = true;
  bool HighlightChars = true;
  /// Compiled Start and Stop of a "#" block; null when empty or bad (no match).
  std::unique_ptr<TRegexPattern> StartPattern;
  std::unique_ptr<TRegexPattern> StopPattern;

  bool IsRegEx() const { return Name.starts_with(u'#'); }
};

} // namespace orl
