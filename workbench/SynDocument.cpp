#include "workbench/SynDocument.h"

#include "definition/DefinitionFormat.h"
#include "platform/ChildProcess.h"
#include "platform/CodePages.h"
#include "platform/FileIO.h"
#include "platform/OrlError.h"

namespace orl {
namespace fs = std::filesystem;

namespace {

constexpr std::u16string_view kClearedStatus = u"Press \"New\" or \"Open\" a file to edit!";

constexpr std::array<const char*, 3> kCrashDataExtensions = {".txt", ".gdx", ".ini"};

class TWaitCursor {
public:
  explicit TWaitCursor(IWorkbenchUi& ui) : FUi(ui) { FUi.SetWaitCursor(true); }
  ~TWaitCursor() { FUi.SetWaitCursor(false); }

private:
  IWorkbenchUi& FUi;
};

std::u16string FileNameOnly(const fs::path& path) { return StringFromPath(path.filename()); }

} // namespace

TSynDocument::TSynDocument(THostEnvironment& host, IWorkbenchUi& ui)
    : FHost(host), FUi(ui), FVersionLists(host.HostFolder) {
  FCaption = Text(u"000");
  FStatus[0] = Text(u"202");
}

TSynDocument::~TSynDocument() = default;

void TSynDocument::UpdateCaption() {
  FCaption = Text(u"000");
  if (!CurrentFileNameValue.empty()) FCaption += u" - " + BaseNameOf(CurrentFileNameValue);
  FUi.StateChanged();
}

void TSynDocument::SetStatus(std::u16string pane1, std::u16string pane2) {
  FStatus = {std::move(pane1), std::move(pane2)};
  FUi.StateChanged();
}

void TSynDocument::SetModified() {
  if (!HasDocument()) return;  // an edit of a page without document changes nothing
  FModified = true;
  FStatus[1] = u"Modified";
  FUi.StateChanged();
}

bool TSynDocument::ConfirmSave() {
  if (!FModified) return true;
  const bool bHasName = !CurrentFileNameValue.empty();
  switch (FUi.MessageBox(Text(bHasName ? u"203" : u"204"), TMsgButtons::mbYesNoCancel)) {
  case TMsgResult::mrCancel: return false;
  case TMsgResult::mrYes:
    if (bHasName) FileSave();
    else FileSaveAs();  // its own Cancel does not stop the caller
    return true;
  default:
    ReleaseCrashData();
    return true;
  }
}

void TSynDocument::ReloadPageModels() {
  FBlockNames.Reload();
  FFoldNames.Reload();
  FHints.Reload();
  FUserMenu.Refresh();
  for (TGroupPage& page : FGroupPages) page.Clear();
  if (TGroupPage* page = GroupPageOf(FActivePage)) page->RefreshGroups();
}

TGroupPage* TSynDocument::GroupPageOf(int page) {
  switch (page) {
  case mpKeywords: return &FGroupPages[0];
  case mpTags: return &FGroupPages[1];
  case mpClassCompletion: return &FGroupPages[2];
  case mpTagCompletion: return &FGroupPages[3];
  default: return nullptr;
  }
}

void TSynDocument::ClearDocument() {
  FPages = TDefinitionPages();
  FSynGdx.reset();
  FSynIni.reset();
  FModified = false;
  FCaption = Text(u"000");
  ReloadPageModels();
  FUi.PagesReloaded();
  SetStatus(std::u16string(kClearedStatus), u"");
}

void TSynDocument::EnablePages(bool bEnabled) {
  FPagesEnabled = bEnabled;
  FUi.StateChanged();
}

// Entering a group page rebuilds its group list, so changes from elsewhere show at once.
void TSynDocument::SetActivePage(int page) {
  if (page < 0 || page >= kMainPageCount) return;
  FActivePage = page;
  if (TGroupPage* groups = GroupPageOf(page)) groups->RefreshGroups();
  if (page == mpUserMenu) FUserMenu.Refresh();
  FUi.StateChanged();
}

void TSynDocument::LoadDefinition(const fs::path& fileName, const fs::path& recoverName) {
  TWaitCursor wait(FUi);
  TDefinitionStores stores = LoadDefinitionStores(fileName);
  FPages = ReadDefinitionPages(*stores.Gdx, *stores.Ini);
  FSynGdx = std::move(stores.Gdx);
  FSynIni = std::move(stores.Ini);
  // A restored document shows the version entry of its own name, not the crash file's.
  const fs::path shownName = recoverName.empty() ? fileName : recoverName;
  FPages.Version = ReadVersionInfo(FVersionLists.ListFor(shownName), BaseNameOf(shownName), kLoadingDateDefault);
  if (!recoverName.empty()) CurrentFileNameValue = recoverName;
  FModified = false;
  FActivePage = mpOptions;
  ReloadPageModels();
  FUi.PagesReloaded();
  SetStatus(FileNameOnly(shownName), u"");
  // The file on disk stays in the older layout until the user saves it.
  if (stores.Converted) FUi.MessageBox(Text(u"200") + u"\n" + Text(u"201"), TMsgButtons::mbOk);
  ElMRU1.AddFile(StringFromPath(shownName));
}

void TSynDocument::LoadVersionInfo(std::u16string_view baseName) {
  FPages.Version = ReadVersionInfo(FVersionLists.ListFor(CurrentFileNameValue), baseName, TVersionInfo().Date);
  FUi.PagesReloaded();
}

std::vector<std::u16string> TSynDocument::DefinitionLines() const {
  if (!FSynGdx) return {};
  TStringList image;
  FSynGdx->GetStrings(image);
  TMemIniFile gdx, ini;
  gdx.SetCaseSensitive(FSynGdx->CaseSensitive());
  gdx.SetStrings(image);
  WriteDefinitionStores(FPages, gdx, ini, CurrentFileNameValue);
  gdx.GetStrings(image);
  std::vector<std::u16string> lines;
  lines.reserve(size_t(image.Count()));
  for (int i = 0; i < image.Count(); ++i) lines.push_back(image.Strings(i));
  return lines;
}

void TSynDocument::SaveDefinition(const fs::path& fileName, bool bRecovery) {
  if (!HasDocument()) return;
  if (bRecovery) {
    SaveDefinitionFiles(FPages, *FSynGdx, *FSynIni, fileName, true);
    return;
  }
  TWaitCursor wait(FUi);
  // The version list is written with the pair, so a list that cannot be
  // written stops the save before either file is replaced.
  std::vector<TFileImage> files = DefinitionFileImages(FPages, *FSynGdx, *FSynIni, fileName, false);
  TMemIniFileUTF16& list = FVersionLists.ListFor(fileName);
  WriteVersionInfo(list, BaseNameOf(fileName), FPages.Version);
  files.push_back(list.FileImage());
  WriteFilesAtomic(files);
  FModified = false;
  ReleaseCrashData();
  SetStatus(FileNameOnly(fileName), u"Saved!");
}

TFileDialogOptions TSynDocument::DefinitionDialog(const fs::path& fileName) const {
  return {u"Syntax Files (*.gdx)", u"*.gdx", u"gdx", FHost.UserSyntaxFolder(), fileName};
}

void TSynDocument::FileNew() {
  if (!ConfirmSave()) return;
  EnablePages(true);
  CurrentFileNameValue.clear();
  ClearDocument();
  FSynGdx = std::make_unique<TMemIniFile>();
  FSynIni = std::make_unique<TMemIniFile>();
  FActivePage = mpOptions;
  SetModified();
  SetStatus(u"*New", FStatus[1]);
}

// A file that cannot be loaded leaves no half-open document behind.
void TSynDocument::OpenFile(const fs::path& fileName) {
  EnablePages(true);
  ClearDocument();
  CurrentFileNameValue = fileName;
  try {
    LoadDefinition(fileName, {});
  } catch (...) {
    DropDocument();
    throw;
  }
  UpdateCaption();
}

void TSynDocument::DropDocument() {
  CurrentFileNameValue.clear();
  ClearDocument();
  EnablePages(false);
  UpdateCaption();
}

void TSynDocument::FileOpen() {
  if (!ConfirmSave()) return;
  const std::optional<fs::path> name = FUi.OpenDialog(DefinitionDialog({}));
  if (!name) return;
  OpenFile(*name);
  LoadVersionInfo(BaseNameOf(*name));
}

void TSynDocument::FileSave() {
  if (CurrentFileNameValue.empty()) FileSaveAs();
  else SaveDefinition(CurrentFileNameValue, false);
}

void TSynDocument::FileSaveAs() {
  if (!HasDocument()) return;
  const std::optional<fs::path> name = FUi.SaveDialog(DefinitionDialog(CurrentFileNameValue));
  if (!name) return;
  SaveDefinition(*name, false);
  CurrentFileNameValue = *name;
  UpdateCaption();
}

void TSynDocument::FileClose() {
  if (!ConfirmSave()) return;
  CurrentFileNameValue.clear();
  ClearDocument();
  EnablePages(false);
  UpdateCaption();
}

bool TSynDocument::CanClose() { return ConfirmSave(); }

void TSynDocument::RecentFileClick(std::u16string_view caption) {
  const size_t blank = caption.find(u' ');
  const fs::path name = PathFromString(blank == std::u16string_view::npos ? std::u16string_view() : caption.substr(blank + 1));
  if (!FileExists(name) || !ConfirmSave()) return;
  OpenFile(name);
}

void TSynDocument::RecentMenuClick(int index, int count, std::u16string_view caption) {
  if (index == count - 1) ElMRU1.ClearList();
  else RecentFileClick(caption);
}

void TSynDocument::InitRecentFiles() {
  ElMRU1.ClearMenuString = FHost.Language.Text(u"Misc", u"130");
  ElMRU1.RemoveInvalid = FHost.SettingsIni && FHost.SettingsIni->ReadBool(u"Customize", u"RemoveInvalidMRU", false);
  const fs::path listFile = FHost.HostFolder / "Data" / "MRUSyntax.txt";
  ElMRU1.SetFilename(listFile);
  if (!FileExists(listFile)) ElMRU1.SaveList();
}

void TSynDocument::FormClose() { ElMRU1.SaveList(); }

void TSynDocument::ProcessCommandLine(const std::vector<std::string>& arguments) {
  if (!arguments.empty() && arguments.front().starts_with("/RESTART")) {
    RestoreRecovery();
    return;
  }
  OfferCrashData();
  for (const std::string& argument : arguments) {
    if (!FileExists(argument)) continue;
    try {
      // A relative name would mean another file once the working folder changes.
      OpenFile(fs::absolute(argument).lexically_normal());
    } catch (const EOrlError& e) {
      FUi.MessageBox(Utf8ToUtf16(e.what()), TMsgButtons::mbOk);
    }
  }
}

// Crash data that no restart picked up (a second crash soon after a restart is
// not restarted) is offered at the next start instead of lying there unseen.
void TSynDocument::OfferCrashData() {
  if (!CrashDataPresent()) return;
  switch (FUi.MessageBox(Text(u"206"), TMsgButtons::mbYesNo)) {
  case TMsgResult::mrYes: RestoreRecovery(); break;
  case TMsgResult::mrNo: RemoveCrashData(); break;
  default: break;
  }
}

bool TSynDocument::CrashDataPresent() const {
  return FileExists(CrashDataFile(".txt")) && FileExists(CrashDataFile(".gdx"));
}

void TSynDocument::RemoveCrashData() {
  std::error_code ec;
  for (const char* extension : kCrashDataExtensions) fs::remove(CrashDataFile(extension), ec);
}

void TSynDocument::ReleaseCrashData() {
  if (!FHoldsCrashData) return;
  FHoldsCrashData = false;
  RemoveCrashData();
}

fs::path TSynDocument::CrashDataFile(std::string_view extension) const {
  return FHost.CrashDataFolder() / ("GrammarDeskCrashData" + std::string(extension));
}

void TSynDocument::SaveRecovery() {
  if (!HasDocument()) {
    // Nothing to save: no stale crash data may come back at the restart.
    RemoveCrashData();
    return;
  }
  std::error_code ec;
  fs::create_directories(FHost.CrashDataFolder(), ec);
  // The name as the system spells it, so that a name that is no valid text comes back unchanged.
  WriteFileAtomic(CrashDataFile(".txt"), CurrentFileNameValue.native() + "\n");
  SaveDefinition(CrashDataFile(".gdx"), true);
}

void TSynDocument::RestoreRecovery() {
  if (!CrashDataPresent()) return;
  const std::string line = ReadFileBytes(CrashDataFile(".txt"));
  const fs::path ownName = line.substr(0, line.find_first_of("\r\n"));
  EnablePages(true);
  ClearDocument();
  CurrentFileNameValue.clear();
  try {
    LoadDefinition(CrashDataFile(".gdx"), ownName);
  } catch (...) {
    DropDocument();
    throw;
  }
  UpdateCaption();
  // Restored edits are unsaved edits: Close and Exit must ask before they are gone.
  FHoldsCrashData = true;
  SetModified();
}

} // namespace orl

namespace orl {
namespace fs = std::filesystem;

namespace {
// Where help pages live online; a build may point it elsewhere.
#ifndef ORL_HELP_BASE_URL
#define ORL_HELP_BASE_URL "https://help.grammardesk.example"
#endif
constexpr std::u16string_view kHelpBase = u"" ORL_HELP_BASE_URL;
constexpr auto kConverterPoll = std::chrono::milliseconds(2000);
constexpr auto kConverterLimit = std::chrono::seconds(120);
} // namespace

bool TSynDocument::AddFileExtension(std::u16string text) {
  if (text.size() < 2) return false;
  if (text.front() != u'.') text.insert(text.begin(), u'.');
  FPages.FileExtensions.push_back(std::move(text));
  return true;
}

void TSynDocument::DeleteFileExtension(int index) {
  if (index >= 0 && size_t(index) < FPages.FileExtensions.size())
    FPages.FileExtensions.erase(FPages.FileExtensions.begin() + index);
}

// Whether the help site can be reached is a setting here; without it the local file serves.
bool TSynDocument::HelpOnline() const {
  return FHost.SettingsIni && FHost.SettingsIni->ReadBool(u"Customize", u"HelpOnline", false);
}

void TSynDocument::OpenHelp(std::u16string_view page, int /*context*/) {
  if (HelpOnline()) {
    if (page.starts_with(u'?')) page.remove_prefix(1);
    FUi.OpenUrl(std::u16string(kHelpBase) + u"/Help/" + std::u16string(page.empty() ? u"Quillet.html" : page));
    return;
  }
  const fs::path local = FHost.HostFolder / "help" / "Quillet.chm";
  if (FileExists(local)) FUi.OpenUrl(u"file://" + StringFromPath(local));
}

void TSynDocument::HelpContent() {
  FUi.OpenUrl(std::u16string(kHelpBase) + u"/Help/Quillet.html?MultiHighlighterOptions.html");
}

// The converter lies beside the program and leaves `<name>.gdx` beside the word file.
std::optional<fs::path> TSynDocument::RunWordFileConverter(fs::path source) {
  if (source.extension() == ".uew") {
    fs::path renamed = fs::path(source).replace_extension(".txt");
    std::error_code ec;
    fs::rename(source, renamed, ec);
    if (ec) return std::nullopt;
    source = renamed;
    FUi.Pause(std::chrono::milliseconds(100));
  }
  const fs::path converter = FHost.ProgramFile.parent_path() / "ultraedit2OrlQuillet";
  std::optional<TChildProcess> process =
      TChildProcess::Start(converter, {source.filename().string()}, source.parent_path());
  if (!process) {
    SetStatus(Text(u"207"), u"");
    return std::nullopt;
  }
  const auto deadline = std::chrono::steady_clock::now() + kConverterLimit;
  while (process->Running()) {
    if (std::chrono::steady_clock::now() > deadline) {
      process->Kill();
      SetStatus(Text(u"208"), u"");
      return std::nullopt;
    }
    FUi.Pause(kConverterPoll);
  }
  fs::path result = fs::path(source).replace_extension(".gdx");
  if (!FileExists(result)) {
    SetStatus(Text(u"209"), u"");
    return std::nullopt;
  }
  return result;
}

void TSynDocument::FileImportWordfile() {
  if (!ConfirmSave()) return;
  const std::optional<fs::path> source =
      FUi.OpenDialog({u"Word Files (*.txt;*.uew)", u"*.txt;*.uew", u"uew", FHost.UserSyntaxFolder(), {}});
  if (!source) return;
  EnablePages(true);
  CurrentFileNameValue.clear();
  ClearDocument();
  const std::optional<fs::path> result = RunWordFileConverter(*source);
  if (!result) {
    // The pages are left without a document: back to the state of no document.
    const std::array<std::u16string, 2> status = FStatus;
    DropDocument();
    SetStatus(status[0], status[1]);
    return;
  }
  OpenFile(*result);
}

} // namespace orl
