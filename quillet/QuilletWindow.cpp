#include "quillet/QuilletWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QMenuBar>
#include <QStatusBar>
#include <QTabWidget>
#include <QTimer>

#include "definition/DefinitionFormat.h"
#include "platform/FileIO.h"
#include "platform/OrlError.h"
#include "quillet/TextFile.h"
#include "syntax/LoadedSyntax.h"
#include "widgets/MemoWidget.h"
#include "workbench/QtMruMenu.h"

namespace orl {
namespace fs = std::filesystem;

namespace {

QString Q(std::u16string_view s) { return QString::fromUtf16(s.data(), qsizetype(s.size())); }

/// The name a text without definition shows in the status bar.
const QString kPlainText = "Text";

} // namespace

TQuilletWindow::TQuilletWindow(THostEnvironment& host, std::unique_ptr<IQuilletDialogs> dialogs)
    : FHost(host), FDialogs(dialogs ? std::move(dialogs) : std::make_unique<TQtQuilletDialogs>(this)),
      FDefinitions(host.HostFolder), FAppearance(ReadEditorAppearance(host.SettingsIni.get())) {
  setWindowTitle("Quillet");
  FTabs = new QTabWidget(this);
  FTabs->setDocumentMode(true);
  FTabs->setTabsClosable(true);
  setCentralWidget(FTabs);
  connect(FTabs, &QTabWidget::currentChanged, this, [this] { UpdateStatus(); });
  connect(FTabs, &QTabWidget::tabCloseRequested, this, [this](int index) { CloseTab(index); });
  for (QLabel*& pane : FStatus) {
    pane = new QLabel(this);
    pane->setContentsMargins(4, 0, 12, 0);
    statusBar()->addWidget(pane, pane == FStatus.back() ? 1 : 0);
  }
  FRecent.ClearMenuString = FHost.Language.Text(u"Misc", u"130", u"Clear list");
  FRecent.SetFilename(FHost.HostFolder / "Data" / "MRUQuillet.txt");
  CreateMenus();
  resize(900, 640);
}

TQuilletWindow::~TQuilletWindow() {
  // The memos are the tab widget's children and outlive the list of texts their events look at.
  for (TOpenText& text : FTexts) {
    TOrlMemo& memo = text.Memo->Memo();
    memo.OnStatusChange = memo.OnCursorChange = memo.OnChange = nullptr;
    memo.OnOverwriteToggle = nullptr;
  }
}

void TQuilletWindow::CreateMenus() {
  const TLanguageTexts& l = FHost.Language;
  QMenu* file = menuBar()->addMenu(Q(l.Text(u"Menu", u"m00", u"File")).prepend('&'));
  file->addAction(Q(l.Text(u"Misc", u"101", u"New")), QKeySequence::New, this, &TQuilletWindow::FileNew);
  file->addAction(Q(l.Text(u"Menu", u"0001", u"Open...")), QKeySequence::Open, this, &TQuilletWindow::FileOpen);
  CreateRecentFilesMenu(*file->addMenu(Q(l.Text(u"Menu", u"0002", u"Recent files"))));
  file->addAction(Q(l.Text(u"Menu", u"0004", u"Save")), QKeySequence::Save, this, &TQuilletWindow::FileSave);
  file->addAction(Q(l.Text(u"Menu", u"0005", u"Save As...")), QKeySequence::SaveAs, this, &TQuilletWindow::FileSaveAs);
  file->addAction(Q(l.Text(u"Menu", u"0015", u"Close")), QKeySequence::Close, this, &TQuilletWindow::FileClose);
  file->addSeparator();
  file->addAction(Q(l.Text(u"Menu", u"0011", u"Exit")), QKeySequence::Quit, this, &QWidget::close);
  QMenu* edit = menuBar()->addMenu("&Edit");
  edit->addAction("Select All", QKeySequence::SelectAll, this, &TQuilletWindow::SelectAll);
}

// The list fills the submenu each time it opens; an entry stands at its file's place in the list.
void TQuilletWindow::CreateRecentFilesMenu(QMenu& menu) {
  menu.setObjectName("FileMRU");
  FRecentMenu = std::make_unique<TQtMruMenu>(menu);
  FRecent.RecentMenu = FRecentMenu.get();
  connect(&menu, &QMenu::aboutToShow, this, [this] { FRecent.RefreshList(); });
  connect(&menu, &QMenu::triggered, this, [this, &menu](QAction* action) {
    const int index = int(menu.actions().indexOf(action));
    if (index == int(menu.actions().size()) - 1) return FRecent.ClearList();
    if (index >= 0 && index < FRecent.Strings().Count()) OpenFile(PathFromString(FRecent.Strings().Strings(index)));
  });
}

TOrlMemoWidget* TQuilletWindow::CreateMemo() {
  auto* widget = new TOrlMemoWidget(nullptr, QtPath(FHost.HostFolder / "Data"));
  TOrlMemo& memo = widget->Memo();
  memo.FProcessShortcuts = true;
  memo.OnStatusChange = memo.OnCursorChange = memo.OnChange = [this, widget] {
    if (widget == CurrentMemo()) UpdateStatus();
  };
  // The memo asks before it switches; the pane shows the state once it has.
  memo.OnOverwriteToggle = [this](bool&) { QTimer::singleShot(0, this, &TQuilletWindow::UpdateStatus); };
  return widget;
}

void TQuilletWindow::AddTab(TOpenText text) {
  FTexts.push_back(std::move(text));
  const TOpenText& added = FTexts.back();
  FTabs->addTab(added.Memo, DisplayName(added));
  FTabs->setCurrentWidget(added.Memo);
  added.Memo->setFocus();
  UpdateTitle(added);
  UpdateStatus();
}

bool TQuilletWindow::OpenFile(const fs::path& file) {
  const fs::path absolute = fs::absolute(file).lexically_normal();
  if (const int open = IndexOfFile(absolute); open >= 0) {
    FTabs->setCurrentIndex(open);
    return true;
  }
  std::unique_ptr<TOrlMemoWidget> memo(CreateMemo());  // the tab takes it once the file is read
  TOpenText text{memo.get(), absolute, kPlainText};
  try {
    ChooseDefinition(text);
    LoadTextFile(memo->Memo(), absolute);
  } catch (const EOrlError& e) {
    FDialogs->ShowError(QString::fromUtf8(e.what()));
    return false;
  }
  FRecent.AddFile(StringFromPath(absolute));
  // A file opened first takes the place of the empty text the window started with.
  if (OnlyUntouchedNewText()) CloseTab(0);
  memo.release();
  AddTab(std::move(text));
  return true;
}

void TQuilletWindow::ChooseDefinition(TOpenText& text) {
  TOrlMemo& memo = text.Memo->Memo();
  const fs::path gdx = FDefinitions.ForFile(text.File);
  text.SyntaxName = kPlainText;
  bool bLoaded = false;
  try {
    bLoaded = !gdx.empty() && LoadDefinitionInto(memo, gdx);
  } catch (const EOrlError&) {
    // A definition that cannot be read leaves the text uncoloured, never unopened.
  }
  if (bLoaded) text.SyntaxName = Q(BaseNameOf(gdx));
  else memo.FreeSyntaxStyles();
  ApplyEditorAppearance(memo, FAppearance);
  memo.ClearLineStylesFrom(0);
}

void TQuilletWindow::FileNew() {
  TOpenText text{CreateMemo(), {}, kPlainText};
  NewTextCoding(text.Memo->Memo());
  ApplyEditorAppearance(text.Memo->Memo(), FAppearance);
  AddTab(std::move(text));
}

void TQuilletWindow::FileOpen() {
  const TOpenText* current = Current();
  const fs::path folder = current && !current->File.empty() ? current->File.parent_path() : FRecent.MRUDirectory();
  for (const fs::path& file : FDialogs->OpenFileNames(folder)) OpenFile(file);
}

bool TQuilletWindow::FileSave() {
  TOpenText* text = Current();
  if (!text) return false;
  return text->File.empty() ? SaveAs(*text) : SaveTo(*text, text->File);
}

bool TQuilletWindow::FileSaveAs() {
  TOpenText* text = Current();
  return text && SaveAs(*text);
}

bool TQuilletWindow::SaveAs(TOpenText& text) {
  const std::optional<fs::path> file = FDialogs->SaveFileName(text.File);
  if (!file) return false;
  const fs::path absolute = fs::absolute(*file).lexically_normal();
  if (!SaveTo(text, absolute)) return false;
  // Another extension may belong to another language.
  const bool bWasModified = text.Memo->Memo().Modified();
  ChooseDefinition(text);
  text.Memo->Memo().SetModified(bWasModified);
  UpdateTitle(text);
  UpdateStatus();
  return true;
}

bool TQuilletWindow::SaveTo(TOpenText& text, const fs::path& file) {
  try {
    SaveTextFile(text.Memo->Memo(), file);
  } catch (const EOrlError& e) {
    FDialogs->ShowError(QString::fromUtf8(e.what()));
    return false;
  }
  text.File = file;
  FRecent.AddFile(StringFromPath(file));
  UpdateTitle(text);
  return true;
}

bool TQuilletWindow::ConfirmClose(TOpenText& text) {
  if (!text.Memo->Memo().Modified()) return true;
  FTabs->setCurrentWidget(text.Memo);
  switch (FDialogs->AskSaveChanges(DisplayName(text))) {
    case IQuilletDialogs::daYes: return text.File.empty() ? SaveAs(text) : SaveTo(text, text.File);
    case IQuilletDialogs::daNo: return true;
    case IQuilletDialogs::daCancel: break;
  }
  return false;
}

bool TQuilletWindow::CloseTab(int index) {
  if (index < 0 || index >= TextCount() || !ConfirmClose(FTexts[size_t(index)])) return false;
  TOrlMemoWidget* memo = FTexts[size_t(index)].Memo;
  FTexts.erase(FTexts.begin() + index);
  FTabs->removeTab(index);
  delete memo;
  UpdateStatus();
  return true;
}

bool TQuilletWindow::FileClose() { return CloseTab(FTabs->currentIndex()); }

void TQuilletWindow::SelectAll() {
  if (TOrlMemoWidget* memo = CurrentMemo()) memo->Memo().SelectAll(false);
}

bool TQuilletWindow::OnlyUntouchedNewText() {
  if (TextCount() != 1) return false;
  TOpenText& only = FTexts.front();
  TOrlMemo& memo = only.Memo->Memo();
  return only.File.empty() && !memo.Modified() && memo.InternalLines().Count() <= 1 && memo.GetLineText(0).empty();
}

void TQuilletWindow::closeEvent(QCloseEvent* event) {
  for (TOpenText& text : FTexts) {
    if (!ConfirmClose(text)) return event->ignore();
  }
  try {
    std::error_code ec;
    fs::create_directories(FRecent.Filename().parent_path(), ec);  // a fresh host folder has no Data folder yet
    FRecent.SaveList();
  } catch (const EOrlError&) {
    // The list is a convenience; failing to keep it must not keep the window open.
  }
  event->accept();
}

TOrlMemoWidget* TQuilletWindow::CurrentMemo() const {
  const TOpenText* text = Current();
  return text ? text->Memo : nullptr;
}

fs::path TQuilletWindow::CurrentFile() const {
  const TOpenText* text = Current();
  return text ? text->File : fs::path();
}

TQuilletWindow::TOpenText* TQuilletWindow::Current() {
  const int index = FTabs->currentIndex();
  return index >= 0 && index < TextCount() ? &FTexts[size_t(index)] : nullptr;
}

const TQuilletWindow::TOpenText* TQuilletWindow::Current() const {
  return const_cast<TQuilletWindow*>(this)->Current();
}

int TQuilletWindow::IndexOfFile(const fs::path& file) const {
  for (int i = 0; i < TextCount(); ++i)
    if (FTexts[size_t(i)].File == file) return i;
  return -1;
}

QString TQuilletWindow::DisplayName(const TOpenText& text) const {
  return text.File.empty() ? QString("Untitled") : QtPath(text.File.filename());
}

void TQuilletWindow::UpdateTitle(const TOpenText& text) {
  const int index = FTabs->indexOf(text.Memo);
  if (index < 0) return;
  FTabs->setTabText(index, DisplayName(text) + (text.Memo->Memo().Modified() ? "*" : ""));
  FTabs->setTabToolTip(index, QtPath(text.File));
}

QString TQuilletWindow::StatusText(int pane) const { return FStatus[size_t(pane)]->text(); }

void TQuilletWindow::UpdateStatus() {
  const TOpenText* text = Current();
  if (!text) {
    for (QLabel* pane : FStatus) pane->clear();
    setWindowTitle("Quillet");
    return;
  }
  TOrlMemo& memo = text->Memo->Memo();
  FStatus[0]->setText(QString("Line %1").arg(memo.CurY() + 1));
  FStatus[1]->setText(QString("Column %1").arg(memo.CurX() + 1));
  FStatus[2]->setText(memo.FOverwrite ? "Overwrite" : "Insert");
  FStatus[3]->setText(text->SyntaxName);
  UpdateTitle(*text);
  setWindowTitle(DisplayName(*text) + " - Quillet");
}

} // namespace orl
