#pragma once
// The main form: the document's pages on a page control, the File and Help
// menus and the status bar. It shows what TSynDocument holds and forwards the
// user's edits to it; the logic lives in the document.

#include <QMainWindow>

#include <memory>

#include "workbench/SynDocument.h"
#include "workbench/WorkbenchUi.h"

class QLabel;
class QListWidget;
class QPlainTextEdit;
class QLineEdit;
class QComboBox;
class QTabWidget;
class QMenu;
class QPushButton;

namespace orl {

class TNameValueGrid;
class TSyntaxAbout;
class TQtMruMenu;

/// One group-and-items page: a list of groups and the items of the selected one.
struct TGroupPage {
  const char* Member;  ///< prefix of the widget names: `Keyword` gives KeywordGroupList, KeywordList
  std::u16string_view Section;
  bool bInCompanion;  ///< the group lives in the companion file
  bool bCompletionItems;
  QListWidget* GroupList = nullptr;
  QListWidget* ItemList = nullptr;
};

class TSynForm : public QMainWindow, public IWorkbenchUi {
  Q_OBJECT
public:
  explicit TSynForm(THostEnvironment& host);
  void SetAboutBox(TSyntaxAbout* about) { FAbout = about; }
  ~TSynForm() override;

  TSynDocument& Document() { return *FDocument; }
  /// Restart after a crash, with the document saved as crash data first.
  void RegisterRecovery();
  /// The first show: the command line, then the automation script if one is set.
  void FormShow(const std::vector<std::string>& arguments);

  // IWorkbenchUi
  TMsgResult MessageBox(const std::u16string& text, TMsgButtons buttons) override;
  std::optional<std::filesystem::path> OpenDialog(const TFileDialogOptions& options) override;
  std::optional<std::filesystem::path> SaveDialog(const TFileDialogOptions& options) override;
  void SetWaitCursor(bool bWait) override;
  void PagesReloaded() override;
  void StateChanged() override;

  // The widgets by the names the pages use, for tests and automation.
  TNameValueGrid* MultiHighlightTree = nullptr;
  TNameValueGrid* SyntaxOptionTree = nullptr;
  TNameValueGrid* RegionOptionTree = nullptr;
  TNameValueGrid* FoldOptionTree = nullptr;
  TNameValueGrid* BlockTree = nullptr;
  TNameValueGrid* FoldingTree = nullptr;
  QListWidget* BlockNames = nullptr;
  QListWidget* FoldNames = nullptr;
  QListWidget* UserMenuList = nullptr;
  QListWidget* HintsList = nullptr;
  QLineEdit* HintsEdit = nullptr;
  QPlainTextEdit* HintsMemo = nullptr;
  QComboBox* cboHintType = nullptr;
  QPlainTextEdit* SampleMemo = nullptr;
  QPlainTextEdit* InfoMemo = nullptr;
  QLineEdit* txtAuthor = nullptr;
  QLineEdit* txtDate = nullptr;
  QLineEdit* txtVersion = nullptr;
  QLineEdit* txtFileExtensions = nullptr;
  QListWidget* lbFileExtensions = nullptr;
  QPushButton* BtnInfoKeyAdd = nullptr;
  QTabWidget* MainPages = nullptr;
  QTabWidget* OptionSubPages = nullptr;

protected:
  void closeEvent(QCloseEvent* event) override;

private:
  // Building (GrammarDeskPages.cpp)
  void CreateMenus();
  void CreateRecentFilesMenu(QMenu& menu);
  void CreatePages();
  QWidget* CreateOptionPage();
  QWidget* CreateRulePage(QListWidget*& names, TNameValueGrid*& grid, const QString& listTitle);
  QWidget* CreateGroupPage(TGroupPage& page, const QString& groupTitle, const QString& itemTitle);
  QWidget* CreateUserMenuPage();
  QWidget* CreateHintsPage();
  QWidget* CreateSamplePage();
  QWidget* CreateAuthorPage();
  void ConnectEdits();

  // Showing the document (GrammarDeskBinding.cpp)
  void FillGrids();
  void FillRuleLists();
  void FillTextPages();
  void RefreshGroupList(TGroupPage& page);
  void ShowGroupItems(TGroupPage& page);
  void RefreshUserMenuList();
  void ShowBlock(int index);
  void ShowFold(int index);
  void OnBlockCellEdited(int row, const QString& text);
  void OnFoldCellEdited(int row, const QString& text);
  void OnPageChanged(int page);
  TGroupPage* GroupPageAt(int page);

  /// Runs a command; an error from the stores is shown in a message box.
  template <typename TCommand>
  void Run(TCommand command);
  QString Text(std::u16string_view id, std::u16string_view fallback) const;

  THostEnvironment& FHost;
  TSyntaxAbout* FAbout = nullptr;
  std::unique_ptr<TSynDocument> FDocument;
  std::array<TGroupPage, 4> FGroupPages;
  QLabel* FStatus[2] = {nullptr, nullptr};
  std::unique_ptr<TQtMruMenu> FRecentMenu;
  bool FFilling = false;
};

} // namespace orl
