#pragma once
// Colours for a loaded style set. The loader sets none: the host picks a
// scheme (a built-in light or dark one, optionally changed by its settings)
// and applies it after each load.
//
// Settings layout, one section of the host's settings file per scheme; every
// key is optional and a missing key keeps the base scheme's value:
//
//   [SyntaxColors]
//   Base=dark                      light (default) or dark
//   Default=#1E1E1E,#FFFFFF,b      text colour, background, font style
//   Comment=#008000,,i             an empty field keeps that part
//   Keyword1=#0000FF,none,b        "none": no colour of its own
//   Tag1=... Block1=...            groups and blocks by position, from 1
//
// Colours are "#RRGGBB"; font style letters are b, i, u and s (strike out).
// The classes: Default, Selection, LineHighlight, FoldHighlight, SyncEdit,
// ControlChar, Brace, BraceError, Tag, Comment, LineComment, Number,
// HexNumber, Char, String, Symbols, SymbolWordsA, SymbolWordsB, SymbolWordsC,
// AttributeName, AttributeValue, FoldMark.

#include <functional>
#include <map>
#include <string>

#include "definition/MemIni.h"
#include "syntax/OrlMemoStyles.h"

namespace orl {

struct TSchemeStyle {
  TColor Text = 0;
  TColor Back = clNoColor;
  TFontStyles Style = 0;
};

struct TStyleScheme {
  std::map<std::u16string, TSchemeStyle> Classes;  ///< by class name, see the layout above
  std::map<int, TSchemeStyle> Keywords, Tags, Blocks;  ///< set by settings, by 0-based position
  bool bDark = false;

  /// The style of keyword group, tag group or block `index`: the settings'
  /// one, else a generated colour of its own, readable on the scheme's background.
  TSchemeStyle KeywordStyle(int index) const;
  TSchemeStyle TagStyle(int index) const;
  TSchemeStyle BlockStyle(int index) const;
};

TStyleScheme LightStyleScheme();
TStyleScheme DarkStyleScheme();

using TDebugWrite = std::function<void(const std::u16string& ws, bool bHeading)>;
/// The scheme in `section` of the host's settings. A value that does not read
/// keeps the base's part and is reported through `onDebugWrite`.
TStyleScheme ReadStyleScheme(TMemIniFileUTF16& settings, std::u16string_view section,
                             const TDebugWrite& onDebugWrite = {});
/// Gives every group, block, token class and scheme colour of `styles` its colour.
void ApplyStyleScheme(TOrlCustomMemoStyles& styles, const TStyleScheme& scheme);

} // namespace orl
