#pragma once
// Plain records of display styles: one style, and a whole colour scheme as
// the printing path takes it from the host.

#include <string>
#include <vector>

#include "syntax/CharStyle.h"

namespace orl {

struct StyleRecord {
  TColor Color = 0;
  TColor ColorBk = clNoColor;
  TColor ColorBkError = clNoColor;
  bool Bold = false;
  bool Italic = false;
  bool Underline = false;
  bool LineNone = false;
  bool LineDotted = false;
  bool LineSolid = false;
  int Node = 0;
  int Position = 0;
  bool Gradient = false;
  bool Enabled = false;
  bool Border = false;
};

struct StylesRecord {
  std::u16string Section;
  StyleRecord DefaultStyle, SelectionStyle, BraceHighlightStyle, BraceHighlightErrorStyle, LineHighlightStyle,
      FoldHighlightStyle, FoldMarkStyle, SyncEditStyle, CharStyle, StringStyle, LineCommentStyle, CommentStyle,
      NumberStyle, HexNumberStyle, TextStyle, SymbolStyle, SymbolStyleA, SymbolStyleB, SymbolStyleC, URLStyle,
      AttributeStyle, AttributeValueStyle, ASPTagStyle, PHPTagStyle;
  std::u16string SyntaxFile;
  std::u16string FileExt;
  std::vector<StyleRecord> BlockStyles;
  std::vector<StyleRecord> KeywordStyles;
  std::vector<StyleRecord> TagStyles;
  StyleRecord LeftMarginStyle, LeftMarginLineStyle, RightMarginLineStyle, BookmarkStyle, ChangedLineStyle,
      ChangedSavedLineStyle, HTMLTagHighlightStyle, XMLTagHighlightStyle, ControlCharStyle;
};

} // namespace orl
