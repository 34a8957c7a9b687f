#pragma once
// The document of the workbench: a definition's two stores, what its pages
// hold while it is edited, and the file commands that create, load, save,
// close and restore it. Headless: the main form shows it and forwards edits.

#include <array>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "definition/DefinitionPages.h"
#include "definition/OrlIniFiles.h"
#include "definition/VersionList.h"
#include "workbench/HostEnvironment.h"
#include "workbench/GroupPage.h"
#include "workbench/HintsPage.h"
#include "workbench/OrlMRUList.h"
#include "workbench/RuleListPage.h"
#include "workbench/UserMenuPage.h"
#include "workbench/WorkbenchUi.h"

namespace orl {

/// Main pages in tab order.
enum TMainPage { mpOptions, mpKeywords, mpTags, mpUserMenu, mpClassCompletion, mpTagCompletion, mpHints, mpSample,
                 mpAuthor, kMainPageCount };

class TSynDocument {
public:
  TSynDocument(THostEnvironment& host, IWorkbenchUi& ui);
  ~TSynDocument();

  // --- state ---------------------------------------------------------------
  bool HasDocument() const { return FSynGdx != nullptr; }
  bool Modified() const { return FModified; }
  const std::filesystem::path& CurrentFileName() const { return CurrentFileNameValue; }
  TMemIniFile* SynGdx() { return FSynGdx.get(); }
  TMemIniFile* SynIni() { return FSynIni.get(); }
  /// What the pages hold; the form writes edits here and calls SetModified.
  TDefinitionPages& Pages() { return FPages; }
  bool PagesEnabled() const { return FPagesEnabled; }
  int ActivePage() const { return FActivePage; }
  const std::u16string& Caption() const { return FCaption; }
  const std::u16string& StatusText(int pane) const { return FStatus[size_t(pane)]; }
  TVersionLists& VersionLists() { return FVersionLists; }
  const THostEnvironment& Host() const { return FHost; }
  IWorkbenchUi& Ui() { return FUi; }
  /// A text of the workbench's section of the language file.
  std::u16string Text(std::u16string_view id) const { return FHost.Language.GrammarDesk(id); }
  /// The image the item dialog last used.
  int IconNr() const { return FIconNr; }
  void SetIconNr(int nr) { FIconNr = nr; }

  // The pages whose rows are more than grid cells.
  TBlockListPage& BlockNames() { return FBlockNames; }
  TFoldListPage& FoldNames() { return FFoldNames; }
  /// The group page of a main page, null for the others.
  TGroupPage* GroupPageOf(int page);
  THintsPage& Hints() { return FHints; }
  TUserMenuPage& UserMenu() { return FUserMenu; }

  // The author page.
  /// Adds an extension of at least 2 characters, with a `.` in front; false when refused.
  bool AddFileExtension(std::u16string text);
  void DeleteFileExtension(int index);

  // Help and import.
  /// The help page `page` online, or the local help file at `context` offline.
  void OpenHelp(std::u16string_view page, int context);
  void HelpContent();
  /// Converts a word file with the outside converter and opens what it leaves.
  void FileImportWordfile();

  // --- operations the pages use -------------------------------------------
  void SetModified();
  /// False when the user cancels; otherwise the document may be replaced.
  bool ConfirmSave();
  void ClearDocument();
  void EnablePages(bool bEnabled);
  void LoadDefinition(const std::filesystem::path& fileName, const std::filesystem::path& recoverName);
  void SaveDefinition(const std::filesystem::path& fileName, bool bRecovery);
  /// The definition file's lines as a save would write them now, made from
  /// the pages and the stores without changing either or the disk; empty
  /// without a document.
  std::vector<std::u16string> DefinitionLines() const;
  void LoadVersionInfo(std::u16string_view baseName);
  void SetActivePage(int page);

  // --- file commands --------------------------------------------------------
  void FileNew();
  void FileOpen();
  void FileSave();
  void FileSaveAs();
  void FileClose();
  /// The closing question of the form: true when it may close.
  bool CanClose();
  /// A recent-file menu entry: everything up to its first blank is dropped.
  void RecentFileClick(std::u16string_view caption);
  /// Entry `index` of a recent-file menu of `count` entries: the last clears the list.
  void RecentMenuClick(int index, int count, std::u16string_view caption);
  TOrlMRUList& RecentFiles() { return ElMRU1; }
  /// The recent-file list as the first show sets it up.
  void InitRecentFiles();
  /// What closing the form does once the user agreed: the recent files are written.
  void FormClose();
  /// Opens a file as the Open command does after its dialog.
  void OpenFile(const std::filesystem::path& fileName);

  // --- start and recovery ---------------------------------------------------
  /// The command line: `/RESTART`, or files to open (the last one shown).
  void ProcessCommandLine(const std::vector<std::string>& arguments);
  /// Writes the crash data; runs on the recovery thread.
  void SaveRecovery();
  /// Reopens the document from the crash data under its own name, modified:
  /// the crash data stays until the document is saved or its changes declined.
  void RestoreRecovery();
  /// True while crash data waits in the host's temp folder.
  bool CrashDataPresent() const;

  std::filesystem::path CrashDataFile(std::string_view extension) const;

private:
  TFileDialogOptions DefinitionDialog(const std::filesystem::path& fileName) const;
  void UpdateCaption();
  void SetStatus(std::u16string pane1, std::u16string pane2);
  void DropDocument();
  void ReloadPageModels();
  bool HelpOnline() const;
  std::optional<std::filesystem::path> RunWordFileConverter(std::filesystem::path source);
  void RemoveCrashData();
  /// Removes the crash data when this document came from it.
  void ReleaseCrashData();
  void OfferCrashData();

  THostEnvironment& FHost;
  IWorkbenchUi& FUi;
  TVersionLists FVersionLists;
  std::unique_ptr<TMemIniFile> FSynGdx;
  std::unique_ptr<TMemIniFile> FSynIni;
  TDefinitionPages FPages;
  bool FModified = false;
  bool FHoldsCrashData = false;  // the document came from crash data not yet saved or declined
  bool FPagesEnabled = false;
  int FActivePage = mpOptions;
  std::filesystem::path CurrentFileNameValue;
  std::u16string FCaption;
  std::array<std::u16string, 2> FStatus;
  TOrlMRUList ElMRU1;
  int FIconNr = 0;
  TBlockListPage FBlockNames{*this};
  TFoldListPage FFoldNames{*this};
  THintsPage FHints{*this};
  TUserMenuPage FUserMenu{*this};
  std::array<TGroupPage, 4> FGroupPages{{{*this, TGroupMember::gmKeyword},
                                          {*this, TGroupMember::gmTag},
                                          {*this, TGroupMember::gmClassCompletion},
                                          {*this, TGroupMember::gmTagCompletion}}};
};

} // namespace orl
