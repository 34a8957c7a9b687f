#pragma once
// The host editor's main window: a tab of memo widgets per open text, the
// File and Edit menus and a status bar of line, column, insert or overwrite
// and the definition that colours the text. Each text is coloured by the
// definition that claims its extension among the host folder's definitions.

#include <QMainWindow>

#include <array>
#include <filesystem>
#include <memory>
#include <vector>

#include "editing/EditorAppearance.h"
#include "quillet/HostDefinitions.h"
#include "quillet/QuilletDialogs.h"
#include "workbench/HostEnvironment.h"
#include "workbench/OrlMRUList.h"

class QLabel;
class QMenu;
class QTabWidget;

namespace orl {

class TOrlMemoWidget;
class TQtMruMenu;

class TQuilletWindow : public QMainWindow {
  Q_OBJECT
public:
  /// `host` outlives the window; without `dialogs` the toolkit's are used.
  explicit TQuilletWindow(THostEnvironment& host, std::unique_ptr<IQuilletDialogs> dialogs = nullptr);
  ~TQuilletWindow() override;

  /// Opens `file` in a tab of its own, or shows the tab that holds it. A
  /// file that cannot be read is reported and opens no tab: false.
  bool OpenFile(const std::filesystem::path& file);
  void FileNew();
  void FileOpen();
  /// False when the text was not saved (cancelled or failed).
  bool FileSave();
  bool FileSaveAs();
  /// False when the user kept the text open.
  bool FileClose();
  void SelectAll();

  int TextCount() const { return int(FTexts.size()); }
  TOrlMemoWidget* CurrentMemo() const;
  /// The file of the current text, empty for a new one.
  std::filesystem::path CurrentFile() const;
  /// Status bar panes: 0 line, 1 column, 2 insert or overwrite, 3 definition.
  QString StatusText(int pane) const;
  TOrlMRUList& RecentFiles() { return FRecent; }

protected:
  void closeEvent(QCloseEvent* event) override;

private:
  struct TOpenText {
    TOrlMemoWidget* Memo;
    std::filesystem::path File;
    QString SyntaxName;
  };

  void CreateMenus();
  void CreateRecentFilesMenu(QMenu& menu);
  TOrlMemoWidget* CreateMemo();
  void AddTab(TOpenText text);
  TOpenText* Current();
  const TOpenText* Current() const;
  int IndexOfFile(const std::filesystem::path& file) const;
  /// Colours the text by the definition of its file's extension, if any.
  void ChooseDefinition(TOpenText& text);
  bool SaveTo(TOpenText& text, const std::filesystem::path& file);
  bool SaveAs(TOpenText& text);
  /// Asks to save a modified text; false when the user cancels.
  bool ConfirmClose(TOpenText& text);
  bool CloseTab(int index);
  /// The only tab holds a new text nobody typed in.
  bool OnlyUntouchedNewText();
  QString DisplayName(const TOpenText& text) const;
  void UpdateTitle(const TOpenText& text);
  void UpdateStatus();

  THostEnvironment& FHost;
  std::unique_ptr<IQuilletDialogs> FDialogs;
  THostDefinitions FDefinitions;
  TEditorAppearance FAppearance;
  QTabWidget* FTabs;
  std::vector<TOpenText> FTexts;  ///< in tab order
  std::array<QLabel*, 4> FStatus{};
  TOrlMRUList FRecent;
  std::unique_ptr<TQtMruMenu> FRecentMenu;
};

} // namespace orl
