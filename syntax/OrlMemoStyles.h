#pragma once
// The run-time style set of one language: what the tokeniser, the fold scan,
// the painter and completion read. A loader fills it once; afterwards only
// ScriptType changes, so both memo threads may read it without a lock.

#include <memory>
#include <string>
#include <vector>

#include "definition/UnicodeStrList.h"
#include "syntax/Block.h"
#include "syntax/CharStyle.h"
#include "syntax/CompanionIni.h"
#include "syntax/CompletionItems.h"
#include "syntax/HintParameter.h"
#include "syntax/KeyWord.h"
#include "syntax/Nodes.h"
#include "textstore/LineStyle.h"

namespace orl {

class TCustomImageList;
class TOrlMemoStyleSlots;

class TOrlCustomMemoStyles {
public:
  /// A set without a companion file.
  explicit TOrlCustomMemoStyles(TOrlMemoStyleSlots* owner);
  /// A set whose companion is `fileName` with the extension ".ini".
  TOrlCustomMemoStyles(TOrlMemoStyleSlots* owner, const std::u16string& fileName);
  virtual ~TOrlCustomMemoStyles() = default;
  TOrlCustomMemoStyles(const TOrlCustomMemoStyles&) = delete;
  TOrlCustomMemoStyles& operator=(const TOrlCustomMemoStyles&) = delete;

  /// Hooks for a subclass that draws a word itself; the canvas type belongs to the view.
  virtual void DrawKeyword(void* /*canvas*/, const std::u16string& /*keyword*/, const int* /*rect*/) {}
  virtual void DrawTag(void* /*canvas*/, const std::u16string& /*tag*/, const int* /*rect*/) {}

  /// All values of a companion section into `items`, capacity at least 64.
  void LoadSection(std::u16string_view section, TStringList& items);
  /// A "##" list of completion items of key `key` in `section`, with "@" references followed.
  void LoadKeyList(std::u16string_view section, std::u16string_view key, TCompletionItems& items);
  /// Opening tags of [TagComplete].
  void LoadTagList(TCompletionItems& items);
  /// Closing tags of [TagComplete].
  void LoadStopTagList(TCompletionItems& items);
  /// The user menu; with `bTagComplete` entries meant for the menu only are left out.
  void LoadUserMenu(TCompletionItems& items, bool bTagComplete);
  /// The companion's [Hints] into FHintParameter.FParameters.
  void LoadHintList();
  static std::unique_ptr<TStyleBitmap> CreateBitmap(char16_t ch) { return CreateStyleBitmap(ch); }

  // Identity
  std::u16string FFileName;
  std::u16string FSyntaxName;
  TScriptType ScriptType = scNone;
  std::unique_ptr<TCompanionIni> SynIni;  ///< null for a set without companion

  // Rule lists
  std::vector<std::unique_ptr<TBlock>> FBlocks;
  std::vector<std::unique_ptr<TNodes>> FNodes;
  std::vector<std::unique_ptr<TKeyWord>> FKeyWords;
  std::vector<std::unique_ptr<TKeyWord>> FTags;

  // Comment
  std::u16string FLineCommentA, FLineCommentB, FCommentStartA, FCommentEndA, FCommentStartB, FCommentEndB,
      FCommentEsc;
  bool FAllowNestedComments = false;
  int FOnlyLineCommentIfFirstChar = 0;   ///< 1 or 2 restrict LineCommentA to a line start
  int FOnlyLineCommentIfFirstCharB = 0;

  // String and char
  char16_t FCharSymbol = 0;
  char16_t FStringSymbol = 0;
  bool FStringLine = false;
  char16_t FVerbatimStringStart = 0;
  std::u16string FEscape;
  bool FAllowEscapeOutsideString = false;
  std::u16string FHereDocSymbol;

  // Number and symbol
  std::u16string FNumericChars = u"0123456789";
  std::u16string FHexIdentifier;
  std::u16string FDigitSeparator;
  std::u16string FSymbols;
  std::u16string FSymbolWordsA, FSymbolWordsB, FSymbolWordsC;  ///< " " + words + " "
  bool FNumbersAsSymbols = false;

  // Case
  bool FKeywordCase = false;
  bool FTagCase = false;

  // Blocks
  std::u16string FBlockEsc;
  std::u16string FEndOpenBlockAt;
  bool FOnlyHighlightInBlock = false;
  bool FHasRegExKeywords = false;
  bool FAllowHighlightBetweenTags = false;

  // Folding
  TWideHashedStringList NodeIdList;  ///< every fold word, sorted, each once
  TStringList FNodeOpt_AsBegin, FNodeOpt_Sections, FNodeOpt_AutoIdExcludes;
  std::u16string FNodeOpt_Seperators;
  bool FNodeOpt_Case = false;
  bool FNodeOpt_FoldAllTags = false;
  bool FNodeOpt_AlwaysAllowNesting = false;
  bool FAllowCmdLF = false, FAllowCmdEF = false, FAllowCmdIN = false;

  // Regions
  TStringList FRgn_Start, FRgn_End;
  std::u16string FRgn_CommentStart;

  // Code explorer
  std::u16string FList_Struct, FList_Enum, FList_Class, FList_NS, FList_Property, FList_Method,
      FList_Class_Separator;
  TStringList FFoldListExclude;

  // Completion
  char16_t FAutoCompleteCharA = 0, FAutoCompleteCharB = 0, FAutoCompleteCharC = 0;
  bool FAutoCompleteTags = false;
  bool FAddProjectClassesToCompletion = false;
  std::u16string FAutoCloseBraceStart, FAutoCloseBraceEnd, FAutoCloseBlockStart, FAutoCloseBlockEnd;
  THintParameter FHintParameter;
  TCompletionItems FListAuto;
  TStringList FMenuList, FTagList, FEndTagList;  ///< raw companion lines, read once
  TCustomImageList* FImageList = nullptr;        ///< not owned

  // Display styles
  TCharStyle FCommentStyle, FLineCommentStyle, FNumberStyle, FHexNumberStyle, FCharStyle, FStringStyle,
      FSymbolsStyle, FSymbolWordsAStyle, FSymbolWordsBStyle, FSymbolWordsCStyle, FAttributeName, FAttributeValue,
      FFoldMarkStyle;

  // Scheme colours, set by the host
  TColor FTextColor = 0, FTextColorBK = 0xFFFFFF;
  TFontStyles FTextStyle = 0;
  TColor FBkColor = 0xFFFFFF, FSelColor = 0xFFFFFF, FSelBkColor = 0x800000;
  TColor FTagColor = 0x800000, FTagColorBk = clNoColor;
  TFontStyles FTagStyle = 0;
  TColor FLineHighlightColor = clNoColor, FFoldHighlightColor = clNoColor, FFoldHighlightColor2 = clNoColor;
  TColor FSyncEditColor = clNoColor, FSyncEditBkColor = clNoColor;
  TColor FControlCharColor = 0x808080, FControlCharColorBk = clNoColor;
  bool FControlCharFollowSyntax = false;
  TColor FBraceHighlightColor = clNoColor, FBraceHighlightTextColor = 0;
  TFontStyles FBraceHighlightStyle = fsBold;
  TColor FBraceHighlightColorE = clNoColor, FBraceHighlightTextColorE = 0x0000FF;
  TFontStyles FBraceHighlightStyleE = fsBold;
  TColor FHTMLTagHighlightColor1 = clNoColor, FHTMLTagHighlightColor2 = clNoColor, FHTMLTagHighlightColor3 = clNoColor;
  TColor FXMLTagHighlightColor1 = clNoColor, FXMLTagHighlightColor2 = clNoColor, FXMLTagHighlightColor3 = clNoColor;

  // Drawing
  bool FCustomDraw = false;

private:
  void SetDefaultStyles();
  void LoadTagCompleteOnce(TStringList& list);
};

} // namespace orl
