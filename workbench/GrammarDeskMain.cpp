#include "workbench/GrammarDeskMain.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFileDialog>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QStatusBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>

#include "definition/DefinitionFormat.h"
#include "platform/CodePages.h"
#include "platform/FileIO.h"
#include "platform/OrlError.h"
#include "platform/RestartRecovery.h"
#include "workbench/Automation.h"
#include "workbench/SyntaxAbout.h"
#include "widgets/NameValueGrid.h"

namespace orl {

namespace {
QString Q(std::u16string_view s) { return QString::fromUtf16(s.data(), qsizetype(s.size())); }
std::filesystem::path PathOf(const QString& s) { return std::filesystem::path(s.toStdString()); }
} // namespace

/// The recent-file list's view of a Qt menu.
class TQtMruMenu : public IMruMenu {
public:
  explicit TQtMruMenu(QMenu& menu) : FMenu(menu) {}
  void Clear() override { FMenu.clear(); }
  void AddEntry(const std::u16string& caption) override { FMenu.addAction(Q(caption)); }
  void AddSeparator() override { FMenu.addSeparator(); }

private:
  QMenu& FMenu;
};

TSynForm::TSynForm(THostEnvironment& host)
    : FHost(host), FDocument(std::make_unique<TSynDocument>(host, *this)),
      FGroupPages{{{"Keyword", sections::Keywords, false, false},
                   {"Tag", sections::Tags, false, false},
                   {"ClassCompletion", sections::AutoComplete, true, true},
                   {"TagCompletion", sections::TagComplete, true, true}}} {
  CreateMenus();
  CreatePages();
  ConnectEdits();
  for (QLabel*& pane : FStatus) {
    pane = new QLabel(this);
    statusBar()->addWidget(pane, 1);
  }
  resize(1000, 720);
  FDocument->EnablePages(false);
  PagesReloaded();
  StateChanged();
}

// Crash data is saved from the recovery thread; the pages' contents live in the document.
void TSynForm::RegisterRecovery() {
  if (!RegisterApplicationRestart({"/RESTART"}, kRestartNoReboot)) return;
  RegisterApplicationRecoveryCallback(
      [this] {
        ApplicationRecoveryInProgress();
        FDocument->SaveRecovery();
        ApplicationRecoveryFinished(true);
      },
      std::chrono::milliseconds(30000));
}

TSynForm::~TSynForm() {
  UnregisterApplicationRestart();
  UnregisterApplicationRecoveryCallback();
}

QString TSynForm::Text(std::u16string_view id, std::u16string_view fallback) const {
  return Q(FHost.Language.GrammarDesk(id, fallback));
}

template <typename TCommand>
void TSynForm::Run(TCommand command) {
  try {
    command();
  } catch (const EOrlError& e) {
    SetWaitCursor(false);
    QMessageBox::critical(this, windowTitle(), QString::fromUtf8(e.what()));
  }
}

void TSynForm::CreateMenus() {
  const TLanguageTexts& l = FHost.Language;
  QMenu* file = menuBar()->addMenu(Q(l.Text(u"Menu", u"m00", u"File")).prepend('&'));
  file->addAction(Q(l.Text(u"Misc", u"101", u"New")), QKeySequence::New, this, [this] { Run([this] { FDocument->FileNew(); }); });
  file->addAction(Q(l.Text(u"Menu", u"0001", u"Open...")), QKeySequence::Open, this, [this] { Run([this] { FDocument->FileOpen(); }); });
  CreateRecentFilesMenu(*file->addMenu(Q(l.Text(u"Menu", u"0002", u"Recent files"))));
  file->addAction(Q(l.Text(u"Menu", u"0004", u"Save")), QKeySequence::Save, this, [this] { Run([this] { FDocument->FileSave(); }); });
  file->addAction(Q(l.Text(u"Menu", u"0005", u"Save As...")), QKeySequence::SaveAs, this, [this] { Run([this] { FDocument->FileSaveAs(); }); });
  file->addSeparator();
  file->addAction(Q(l.Text(u"Menu", u"0015", u"Close")), QKeySequence(Qt::CTRL | Qt::Key_F4), this, [this] { Run([this] { FDocument->FileClose(); }); });
  file->addAction(Q(l.Text(u"Menu", u"0011", u"Exit")), QKeySequence::Quit, this, &QWidget::close);
  QMenu* help = menuBar()->addMenu(Q(l.Text(u"Menu", u"m07", u"Help")).prepend('&'));
  help->addAction(Q(l.Text(u"Menu", u"7001", u"About...")), this, [this] {
    if (FAbout) FAbout->exec();
  });
}

// The list fills the submenu each time it opens; a click goes to the document by position.
void TSynForm::CreateRecentFilesMenu(QMenu& menu) {
  menu.setObjectName("FileMRU");
  FRecentMenu = std::make_unique<TQtMruMenu>(menu);
  FDocument->RecentFiles().RecentMenu = FRecentMenu.get();
  connect(&menu, &QMenu::aboutToShow, this, [this] { FDocument->RecentFiles().RefreshList(); });
  connect(&menu, &QMenu::triggered, this, [this, &menu](QAction* action) {
    const QList<QAction*> entries = menu.actions();
    const int index = int(entries.indexOf(action));
    const std::u16string caption = action->text().toStdU16String();
    Run([&] { FDocument->RecentMenuClick(index, int(entries.size()), caption); });
  });
}

void TSynForm::FormShow(const std::vector<std::string>& arguments) {
  Run([&] { FDocument->InitRecentFiles(); });
  Run([&] { FDocument->ProcessCommandLine(arguments); });
  RunAutomationIfSet(*this, arguments);
}

void TSynForm::closeEvent(QCloseEvent* event) {
  bool bClose = false;
  Run([&] { bClose = FDocument->CanClose(); });
  if (!bClose) {
    event->ignore();
    return;
  }
  Run([&] { FDocument->FormClose(); });
  event->accept();
}

TMsgResult TSynForm::MessageBox(const std::u16string& text, TMsgButtons buttons) {
  using B = QMessageBox::StandardButton;
  const QMessageBox::StandardButtons shown = buttons == TMsgButtons::mbOk       ? B::Ok
                                             : buttons == TMsgButtons::mbYesNo ? B::Yes | B::No
                                                                               : B::Yes | B::No | B::Cancel;
  switch (QMessageBox::question(this, windowTitle(), Q(text), shown)) {
  case B::Yes: return TMsgResult::mrYes;
  case B::No: return TMsgResult::mrNo;
  case B::Ok: return TMsgResult::mrOk;
  default: return TMsgResult::mrCancel;
  }
}

namespace {
QString DialogFilter(const TFileDialogOptions& o) { return Q(o.Filter.substr(0, o.Filter.find(u'('))) + "(" + Q(o.Mask) + ")"; }
} // namespace

std::optional<std::filesystem::path> TSynForm::OpenDialog(const TFileDialogOptions& options) {
  const QString name = QFileDialog::getOpenFileName(this, QString(), QString::fromStdString(options.InitialFolder.string()),
                                                    DialogFilter(options));
  if (name.isEmpty()) return std::nullopt;
  return PathOf(name);
}

std::optional<std::filesystem::path> TSynForm::SaveDialog(const TFileDialogOptions& options) {
  const std::filesystem::path start = options.FileName.empty() ? options.InitialFolder : options.FileName;
  QFileDialog dialog(this, QString(), QString::fromStdString(start.string()), DialogFilter(options));
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setDefaultSuffix(Q(options.DefaultExtension));
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
  return PathOf(dialog.selectedFiles().front());
}

void TSynForm::SetWaitCursor(bool bWait) {
  if (bWait) QApplication::setOverrideCursor(Qt::WaitCursor);
  else
    while (QApplication::overrideCursor()) QApplication::restoreOverrideCursor();
}

void TSynForm::StateChanged() {
  setWindowTitle(Q(FDocument->Caption()));
  for (int pane = 0; pane < 2; ++pane) FStatus[pane]->setText(Q(FDocument->StatusText(pane)));
  const bool bEnabled = FDocument->PagesEnabled();
  for (QWidget* w : std::initializer_list<QWidget*>{MultiHighlightTree, SyntaxOptionTree, RegionOptionTree, FoldOptionTree,
                                                     BlockTree, FoldingTree, SampleMemo, BtnInfoKeyAdd, OptionSubPages})
    w->setEnabled(bEnabled);
  if (MainPages->currentIndex() != FDocument->ActivePage()) MainPages->setCurrentIndex(FDocument->ActivePage());
}

} // namespace orl
