#pragma once
// The main form: the document's pages on a page control, the File and Help
// menus and the status bar. It shows what TSynDocument and its page models
// hold and forwards the user's edits and commands to them; the logic lives
// there.

#include <QMainWindow>

#include <array>
#include <functional>
#include <memory>

#include "workbench/SynDocument.h"
#include "workbench/WorkbenchUi.h"

class QAction;
class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QMenu;
class QPlainTextEdit;
class QPushButton;
class QTabWidget;
class QTimer;
class QToolBar;

namespace orl {

class TNameValueGrid;
class TOrlMemoWidget;
class TSyntaxAbout;
class TUserMenuForm;
class TAddForm;
class TQtMruMenu;

/// The widgets of one group-and-items page.
struct TGroupPageWidgets {
  int MainPage;
  const char* Member;  ///< prefix of the widget names: `Keyword` gives KeywordGroupList, KeywordList
  QListWidget* GroupList = nullptr;
  QListWidget* ItemList = nullptr;
  QAction* ItemAdd = nullptr;
};

/// A file dialog's filter in the form Qt reads.
QString QtFileFilter(const TFileDialogOptions& options);

class TSynForm : public QMainWindow, public IWorkbenchUi {
  Q_OBJECT
public:
  explicit TSynForm(THostEnvironment& host);
  ~TSynForm() override;

  TSynDocument& Document() { return *FDocument; }
  void SetDialogs(TSyntaxAbout* about, TUserMenuForm* userMenu, TAddForm* addForm);
  /// The sample memo's rows, the way the definition stores its sample.
  std::vector<std::u16string> SampleLines();
  /// How long the sample waits for the definition's edits to pause before it is restyled.
  static constexpr int kSampleStyleDelayMs = 300;
  /// Restart after a crash, with the document saved as crash data first.
  void RegisterRecovery();
  /// The first show: the command line, then the automation script if one is set.
  void FormShow(const std::vector<std::string>& arguments);

  // IWorkbenchUi
  TMsgResult MessageBox(const std::u16string& text, TMsgButtons buttons, const std::u16string& title = {}) override;
  std::optional<std::u16string> Prompt(const std::u16string& title, const std::u16string& prompt,
                                       const std::u16string& initial) override;
  std::u16string ClipboardText() override;
  void SetClipboardText(const std::u16string& text) override;
  std::optional<std::vector<std::u16string>> AddWords(bool bRegExKeyword) override;
  bool EditItem(TItemDialogData& item) override;
  void OpenUrl(const std::u16string& url) override;
  void Pause(std::chrono::milliseconds time) override;
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
  TOrlMemoWidget* SampleMemo = nullptr;
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
  QWidget* CreateRulePage(QListWidget*& names, TNameValueGrid*& grid, const QString& listTitle, QToolBar* toolBar);
  QWidget* CreateGroupPage(TGroupPageWidgets& page, const QString& groupTitle, const QString& itemTitle);
  QWidget* CreateUserMenuPage();
  QWidget* CreateHintsPage();
  QWidget* CreateSamplePage();
  QWidget* CreateAuthorPage();

  // Commands of the lists (GrammarDeskLists.cpp)
  template <typename TRule>
  QToolBar* RuleToolBar(TRuleListPage<TRule>& model, QListWidget*& list, TNameValueGrid*& grid);
  template <typename TRule>
  void ShowRuleList(TRuleListPage<TRule>& model, QListWidget& list, TNameValueGrid& grid);
  /// The commands of an item list that are a page's own; an empty one is left out.
  struct TItemCommands {
    std::function<void()> Add, Edit, Paste;
    std::function<void()> Upper = {}, Lower = {}, Capitalize = {};
  };
  QToolBar* GroupToolBar(TGroupPageWidgets& page);
  QToolBar* GroupItemToolBar(TGroupPageWidgets& page);
  QToolBar* ItemToolBar(QListWidget& list, TItemListPage& model, const TItemCommands& own, std::function<void()> show,
                        QAction** addAction = nullptr);
  void AddImagesMenu(QToolBar& bar, TItemListPage& model, std::function<void()> show);
  void ShowGroupPage(TGroupPageWidgets& page);
  void ShowItems(TGroupPageWidgets& page);
  void ShowItemRows(QListWidget& list, const TItemListPage& model);
  void ShowUserMenu();

  // The hints page (GrammarDeskHints.cpp)
  void ConnectHints();
  void ShowHints();
  void ShowHintFields();
  void ShowHintRow();
  TGroupPage& Model(const TGroupPageWidgets& page) { return *FDocument->GroupPageOf(page.MainPage); }
  QAction* AddCommand(QToolBar& bar, QWidget& target, const QIcon& icon, const QString& tip,
                      const QKeySequence& key, std::function<void()> command);

  // The sample page (GrammarDeskSample.cpp)
  void ConnectSample();
  /// Shows the pages' sample in the memo without counting as an edit.
  void ShowSample();
  /// Restyles the sample once the definition's edits pause.
  void ScheduleSampleStyles();
  /// Builds the sample memo's style set from the definition as it stands in
  /// memory, saved or not.
  void RefreshSampleStyles();

  // Showing the document (GrammarDeskBinding.cpp)
  void ConnectEdits();
  void FillGrids();
  void FillTextPages();
  void OnPageChanged(int page);

  /// Runs a command; an error from the stores is shown in a message box.
  void Run(const std::function<void()>& command);
  QString Text(std::u16string_view id, std::u16string_view fallback = {}) const;

  THostEnvironment& FHost;
  std::unique_ptr<TSynDocument> FDocument;
  TSyntaxAbout* FAbout = nullptr;
  TUserMenuForm* FUserMenu = nullptr;
  TAddForm* FAddForm = nullptr;
  std::array<TGroupPageWidgets, 4> FGroupWidgets;
  QLabel* FStatus[2] = {nullptr, nullptr};
  QLabel* FLabelId = nullptr;
  QLabel* FLabelDesc = nullptr;
  std::vector<QPushButton*> FHintButtons;
  QPushButton* FExtensionAdd = nullptr;
  QPushButton* FExtensionDelete = nullptr;
  std::unique_ptr<TQtMruMenu> FRecentMenu;
  bool FFilling = false;
  QTimer* FSampleStyleTimer = nullptr;
};

} // namespace orl
