#pragma once
// The loader of definitions: builds a style set from a definition file and
// hands it to a memo, and installs the built-in sets of the host.

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "definition/StringList.h"
#include "syntax/MemoStyleSlots.h"
#include "syntax/OrlMemoStyles.h"

namespace orl {

class TOrlSyntax {
public:
  /// Builds a set from `FileName` and gives it to `Memo`. Without a memo only
  /// [StandardExtensions], [Block], [Keywords] and [Tags] are read, the name
  /// lists are filled and the set is dropped. A missing file leaves the memo
  /// without syntax.
  void LoadStyleFromFile(TOrlMemoStyleSlots* Memo, const std::u16string& FileName, const std::u16string& SyntaxName,
                         int ASPLang, std::u16string& sASP);
  /// The same without multi-highlighter members, then the companion's
  /// [Comment] into `InfoList` and [Sample] into `SampleList`.
  void LoadStyleFromFile(TOrlMemoStyleSlots& Memo, const std::u16string& FileName, const std::u16string& SyntaxName,
                         TStringList& SampleList, TStringList& InfoList);
  /// The same as LoadStyleFromFile over the lines of a definition held in
  /// memory, as an editor of definitions has them before they are saved.
  /// `FileName` names the definition (its companion is looked up by it).
  void LoadStyleFromLines(TOrlMemoStyleSlots& Memo, const std::vector<std::u16string>& Lines,
                          const std::u16string& FileName, const std::u16string& SyntaxName);
  /// Installs the built-in set that highlights definition files themselves.
  void SetSynFileSyntax(TOrlMemoStyleSlots& Memo, const std::u16string& Filename);
  /// Adds completion, menu and hint data of the host's script language to the memo's set.
  void SetScriptSyntax(TOrlMemoStyleSlots& Memo, int nLanguage, const std::u16string& Filename);
  /// Empties KeyWords, Tags and Blocks.
  void Clear();

  bool FHtmlMultiLoading = false;         ///< a multi-highlighter member is loading
  std::u16string FStandardFileExtensions;
  TStringList KeyWords, Tags, Blocks;     ///< group and block names of the last load, in file order
  /// Problems found while loading (bad patterns, bad values); the memo's event when unset.
  std::function<void(const std::u16string& ws, bool bHeading)> OnDebugWrite;

private:
  friend class TDefinitionReader;
  void DebugWrite(TOrlMemoStyleSlots* memo, const std::u16string& text);
  void ResetForLoad(TOrlMemoStyleSlots* memo, TOrlCustomMemoStyles& styles);
  /// Reads `lines` into `styles` and, with a memo, hands the set to it.
  void BuildStyles(TOrlMemoStyleSlots* Memo, std::unique_ptr<TOrlCustomMemoStyles> styles,
                   const std::vector<std::u16string>& lines, const std::u16string& FileName,
                   const std::u16string& SyntaxName);
};

} // namespace orl
