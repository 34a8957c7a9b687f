#include "workbench/GrammarDeskMain.h"

#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QDesktopServices>
#include <QEventLoop>
#include <QFile>
#include <QTimer>
#include <QUrl>
#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStatusBar>
#include <QStyle>
#include <QTabBar>
#include <QTabWidget>
#include <QToolBar>

#include "definition/DefinitionFormat.h"
#include "platform/CodePages.h"
#include "platform/FileIO.h"
#include "platform/OrlError.h"
#include "platform/RestartRecovery.h"
#include "widgets/MemoWidget.h"
#include "widgets/NameValueGrid.h"
#include "workbench/AddKeywordsDialog.h"
#include "workbench/QtMruMenu.h"
#include "workbench/Automation.h"
#include "workbench/SyntaxAbout.h"
#include "workbench/UserMenuDialog.h"

namespace orl {

namespace {
QString Q(std::u16string_view s) { return QString::fromUtf16(s.data(), qsizetype(s.size())); }
std::filesystem::path PathOf(const QString& s) { return std::filesystem::path(QFile::encodeName(s).toStdString()); }
} // namespace

TSynForm::TSynForm(THostEnvironment& host)
    : FHost(host), FDocument(std::make_unique<TSynDocument>(host, *this)),
      FGroupWidgets{{{mpKeywords, "Keyword"}, {mpTags, "Tag"}, {mpClassCompletion, "ClassCompletion"},
                     {mpTagCompletion, "TagCompletion"}}} {
  CreateMenus();
  CreatePages();
  ConnectEdits();
  for (QLabel*& pane : FStatus) {
    pane = new QLabel(this);
    statusBar()->addWidget(pane, 1);
  }
  // Every tab caption shows, in whichever language they are.
  resize(std::max(1040, MainPages->tabBar()->sizeHint().width() + 2 * style()->pixelMetric(QStyle::PM_DefaultFrameWidth) + 8), 740);
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
  // The memo outlives the document it reports to: child widgets go last.
  SampleMemo->Memo().OnChange = nullptr;
}

void TSynForm::SetDialogs(TSyntaxAbout* about, TUserMenuForm* userMenu, TAddForm* addForm) {
  FAbout = about;
  FUserMenu = userMenu;
  FAddForm = addForm;
}

QString TSynForm::Text(std::u16string_view id, std::u16string_view fallback) const {
  return Q(FHost.Language.GrammarDesk(id, fallback));
}

void TSynForm::Run(const std::function<void()>& command) {
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
  auto command = [this](void (TSynDocument::*operation)()) {
    return [this, operation] { Run([this, operation] { (FDocument.get()->*operation)(); }); };
  };
  file->addAction(Q(l.Text(u"Misc", u"101", u"New")), QKeySequence::New, this, command(&TSynDocument::FileNew));
  file->addAction(Q(l.Text(u"Menu", u"0001", u"Open...")), QKeySequence::Open, this, command(&TSynDocument::FileOpen));
  CreateRecentFilesMenu(*file->addMenu(Q(l.Text(u"Menu", u"0002", u"Recent files"))));
  file->addAction(Q(l.Text(u"Menu", u"0004", u"Save")), QKeySequence::Save, this, command(&TSynDocument::FileSave));
  file->addAction(Q(l.Text(u"Menu", u"0005", u"Save As...")), QKeySequence::SaveAs, this,
                  command(&TSynDocument::FileSaveAs));
  QMenu* import = file->addMenu(Text(u"002", u"Import"));
  import->addAction(Text(u"003", u"UltraEdit Wordfile..."), this, command(&TSynDocument::FileImportWordfile));
  file->addSeparator();
  file->addAction(Q(l.Text(u"Menu", u"0015", u"Close")), QKeySequence(Qt::CTRL | Qt::Key_F4), this,
                  command(&TSynDocument::FileClose));
  file->addAction(Q(l.Text(u"Menu", u"0011", u"Exit")), QKeySequence::Quit, this, &QWidget::close);
  QMenu* help = menuBar()->addMenu(Q(l.Text(u"Menu", u"m07", u"Help")).prepend('&'));
  help->addAction(Q(l.Text(u"Menu", u"7000", u"Content...")), QKeySequence::HelpContents, this,
                  command(&TSynDocument::HelpContent));
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

TMsgResult TSynForm::MessageBox(const std::u16string& text, TMsgButtons buttons, const std::u16string& title) {
  using B = QMessageBox::StandardButton;
  const QMessageBox::StandardButtons shown = buttons == TMsgButtons::mbOk       ? B::Ok
                                             : buttons == TMsgButtons::mbYesNo ? B::Yes | B::No
                                                                               : B::Yes | B::No | B::Cancel;
  QMessageBox box(QMessageBox::Question, title.empty() ? windowTitle() : Q(title), Q(text), shown, this);
  // The language file's words where it has them; Qt's own translation otherwise.
  const std::pair<B, std::u16string_view> texts[] = {{B::Ok, u"100"}, {B::Cancel, u"101"}, {B::Yes, u"102"}, {B::No, u"103"}};
  for (const auto& [which, id] : texts)
    if (QAbstractButton* button = box.button(which))
      if (const std::optional<std::u16string> text = FHost.Language.FileText(u"Buttons", id)) button->setText(Q(*text));
  switch (box.exec()) {
  case B::Yes: return TMsgResult::mrYes;
  case B::No: return TMsgResult::mrNo;
  case B::Ok: return TMsgResult::mrOk;
  default: return TMsgResult::mrCancel;
  }
}

std::optional<std::u16string> TSynForm::Prompt(const std::u16string& title, const std::u16string& prompt,
                                               const std::u16string& initial) {
  bool bOk = false;
  const QString answer = QInputDialog::getText(this, Q(title), Q(prompt), QLineEdit::Normal, Q(initial), &bOk);
  if (!bOk) return std::nullopt;
  return answer.toStdU16String();
}

std::u16string TSynForm::ClipboardText() { return QGuiApplication::clipboard()->text().toStdU16String(); }

void TSynForm::SetClipboardText(const std::u16string& text) { QGuiApplication::clipboard()->setText(Q(text)); }

std::optional<std::vector<std::u16string>> TSynForm::AddWords(bool bRegExKeyword) {
  if (!FAddForm) return std::nullopt;
  return FAddForm->Collect(bRegExKeyword);
}

bool TSynForm::EditItem(TItemDialogData& item) { return FUserMenu && FUserMenu->Edit(item); }

void TSynForm::OpenUrl(const std::u16string& url) { QDesktopServices::openUrl(QUrl(Q(url))); }

void TSynForm::Pause(std::chrono::milliseconds time) {
  QEventLoop loop;
  QTimer::singleShot(time, &loop, &QEventLoop::quit);
  loop.exec();
}

// Qt separates a filter's patterns by blanks, where the document's masks use `;`.
QString QtFileFilter(const TFileDialogOptions& o) {
  return Q(o.Filter.substr(0, o.Filter.find(u'('))) + "(" + Q(o.Mask).replace(';', ' ') + ")";
}

std::optional<std::filesystem::path> TSynForm::OpenDialog(const TFileDialogOptions& options) {
  const QString name = QFileDialog::getOpenFileName(this, QString(), QString::fromStdString(options.InitialFolder.string()),
                                                    QtFileFilter(options));
  if (name.isEmpty()) return std::nullopt;
  return PathOf(name);
}

std::optional<std::filesystem::path> TSynForm::SaveDialog(const TFileDialogOptions& options) {
  const std::filesystem::path start = options.FileName.empty() ? options.InitialFolder : options.FileName;
  QFileDialog dialog(this, QString(), QString::fromStdString(start.string()), QtFileFilter(options));
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
  ScheduleSampleStyles();
  setWindowTitle(Q(FDocument->Caption()) + (FDocument->Modified() ? " *" : ""));
  for (int pane = 0; pane < 2; ++pane) FStatus[pane]->setText(Q(FDocument->StatusText(pane)));
  // Without a document no control of any page takes input; the tabs still switch.
  const bool bEnabled = FDocument->PagesEnabled();
  for (int page = 0; page < MainPages->count(); ++page) MainPages->widget(page)->setEnabled(bEnabled);
  if (MainPages->currentIndex() != FDocument->ActivePage()) MainPages->setCurrentIndex(FDocument->ActivePage());
}

} // namespace orl
