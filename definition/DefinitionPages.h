#pragma once
// A definition as the workbench's pages hold it while it is edited, and the
// one reader and writer between those pages and the two stores. The groups
// (keywords, tags, user menu, completion lists) stay in the stores; all the
// rest lives here until a save writes it back.

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "definition/OrlIniFiles.h"
#include "platform/FileIO.h"
#include "platform/OrlError.h"

namespace orl {

/// One `[Block]` rule.
struct TBlockObject {
  std::u16string BlockName;
  bool BlockOnLine = false;
  bool BlockAsString = false;
  std::u16string BlockStart;
  std::u16string BlockEnd;
  bool FirstOnLine = false;
  std::u16string OnlyAfter;
  bool HighlightKeywords = true;
  bool HighlightNumbers = true;
  bool HighlightSymbols = true;
  bool HighlightBlocks = true;
  bool HighlightStrings = true;
  bool HighlightChars = true;

  bool operator==(const TBlockObject&) const = default;
};

/// One `[Fold]` rule.
struct TFoldObject {
  std::u16string Fold_Id;
  std::u16string Fold_Begin;
  std::u16string Fold_End;
  std::u16string Fold_EndBefore;
  std::u16string Fold_Section;
  bool Fold_NoParentOfId = false;
  bool Fold_NotAlwaysEnded = false;
  std::u16string Fold_List_Item;

  bool operator==(const TFoldObject&) const = default;
};

/// The text a fold rule shows in the list of rules: id, begin " ... " end.
std::u16string FoldRowText(const TFoldObject& fold);

/// The cell of grid row `row` (0-based, in key-table order) of a rule: flags
/// as `Yes` or `No`.
std::u16string RuleCellText(const TBlockObject& rule, int row);
std::u16string RuleCellText(const TFoldObject& rule, int row);
/// Takes an edited cell into the rule; a flag is true for exactly `Yes`.
void SetRuleCell(TBlockObject& rule, int row, std::u16string_view text);
void SetRuleCell(TFoldObject& rule, int row, std::u16string_view text);

/// Author, date and version of a definition, as its version list holds them.
struct TVersionInfo {
  std::u16string Author = u"<Name>";
  std::u16string Date = u"2009-01-01";
  std::u16string Version = u"1000";

  bool operator==(const TVersionInfo&) const = default;
};

/// The page contents that a save writes to the stores. Grid cells hold the
/// text shown: flag rows `Yes` or empty after a load, anything after an edit.
struct TDefinitionPages {
  TDefinitionPages();

  std::vector<std::u16string> SyntaxOptions;   ///< one cell per row of OptionKeys()
  std::vector<std::u16string> FoldOptions;     ///< FoldOptionKeys()
  std::vector<std::u16string> RegionOptions;   ///< RegionKeys()
  std::vector<std::u16string> MultiHighlight;  ///< MultiHighlightKeys()
  std::vector<TBlockObject> Blocks;
  std::vector<TFoldObject> Folds;
  std::vector<std::u16string> Info;            ///< info text, a line each
  std::vector<std::u16string> Hints;           ///< `[Hints]` lines as `key=value`
  std::vector<std::u16string> Sample;          ///< sample text, a line each
  std::vector<std::u16string> FileExtensions;  ///< `.c`, `.h`, ...
  TVersionInfo Version;

  /// The header comment the next save writes, from the MultiHighlight cells.
  std::u16string HeaderComment() const;
};

/// The lines the info page is given when a definition has at most one info line.
std::vector<std::u16string> InfoTemplate();

/// The two stores of a definition, loaded from a pair of files.
struct TDefinitionStores {
  std::unique_ptr<TMemIniFile> Gdx;
  std::unique_ptr<TMemIniFile> Ini;
  /// The file was in the older layout and the stores hold its conversion;
  /// the file itself stays as it was until the definition is saved.
  bool Converted = false;
};

/// Loads `<name>.gdx` and its companion. A file in the older layout is
/// converted, and its companion's content is not used. An unreadable file
/// raises EFileError.
TDefinitionStores LoadDefinitionStores(const std::filesystem::path& fileName);

/// Fills the pages from the stores (everything but the version info).
TDefinitionPages ReadDefinitionPages(TMemIniFile& gdx, TMemIniFile& ini);

/// Writes the pages into the stores, renamed to `fileName` and its companion,
/// section by section, without touching the files.
void WriteDefinitionStores(const TDefinitionPages& pages, TMemIniFile& gdx, TMemIniFile& ini,
                           const std::filesystem::path& fileName);

/// Writes the pages into the stores and returns the images of both files,
/// the definition first. A recovery save leaves out the header comment; any
/// other save puts it on top.
std::vector<TFileImage> DefinitionFileImages(const TDefinitionPages& pages, TMemIniFile& gdx, TMemIniFile& ini,
                                             const std::filesystem::path& fileName, bool bRecovery);

/// DefinitionFileImages written together: both files are replaced or neither.
void SaveDefinitionFiles(const TDefinitionPages& pages, TMemIniFile& gdx, TMemIniFile& ini,
                         const std::filesystem::path& fileName, bool bRecovery);

} // namespace orl
