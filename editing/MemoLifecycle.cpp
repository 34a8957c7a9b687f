// The memo's life: construction with every owned object, the timers, the
// change handling that follows each store change, update brackets, the
// modified state and split views.

#include <algorithm>

#include "editing/HeadlessWindow.h"
#include "editing/OrlMemo.h"
#include "platform/CodePages.h"

namespace orl {
namespace {

constexpr std::u16string_view kCachedDelimiters = u"!\"#\u00A4%&/()=?@\u00A3${}[]*;:,.<>|\\-+~'";
constexpr size_t kBufferLength = 4106;

} // namespace

TOrlCustomMemo::TOrlCustomMemo(IMemoWindow* window, std::u16string szDataFolder)
    : FDefaultEncoding(SystemAnsiCodePage()), FDataFolder(std::move(szDataFolder)) {
  if (!window) {
    FOwnWindow = std::make_unique<THeadlessWindow>();
    window = FOwnWindow.get();
  }
  FWindow = window;
  FWindow->Attach(this);

  FCachedDelimiters = kCachedDelimiters;
  FSelectDelimiters = FCachedDelimiters + u" \t";
  FSelectDelimitersAlt = u"{}[]<>.,;: \t";
  FTaglines.fill(-1);
  FUrlStyle.Set(0xFF0000, 0xFFFFFF, fsUnderline);
  FMeasureFont = FFont;
  AssignScratchBuffers();

  FLines = std::make_unique<TOrlMemoStrings>(this);
  FLines->DoAdd(u"");
  HookStore(*FLines);
  FTokeniser = std::make_unique<TLineTokeniser>(*FLines, *this, *this);
  Html = std::make_unique<TOrlMemoStrings>();
  FUndoList = std::make_unique<TOrlUndoList>(this);
  FAutoCompletion = std::make_unique<TAutoCompletion>();
  FAutoCorrect = std::make_unique<TAutoCorrect>();
  FormAutoCompletion = std::make_unique<TAutoCompletionForm>();
  FHintForm = std::make_unique<TOrlHintWindow>();
  FFoldHintForm = std::make_unique<TOrlFoldHintWindow>();
  FWindow->ShowScrollBar(TScrollBarKind::sbVertical, false);
  FWindow->ShowScrollBar(TScrollBarKind::sbHorizontal, false);
  FRuler = std::make_unique<TOrlRuler>();
  FGutter = std::make_unique<TOrlGutter>();
  FBkThread = std::make_unique<TBackgroundThread>(&FCodeExplorerTagsList);
  FMacroHolder = std::make_shared<TMacroHolder>(FDataFolder + u"/Data/Macros/");
  FontChanged();
}

TOrlCustomMemo::~TOrlCustomMemo() {
  FClosing = true;
  StopTimersAndThreads(true);
  if (FSplitMemo && FSplitMemo->FSplitMemo == this) FSplitMemo->FSplitMemo = nullptr;
  // A slave hooked the shared store to itself; give it back to the master.
  if (FSplitSlave && FSplitMemo) FSplitMemo->HookStore(FSplitMemo->Lines());
  FWindow->Attach(nullptr);
  FreeSyntaxStyles();
}

void TOrlCustomMemo::AssignScratchBuffers() {
  const size_t length = size_t(FForcewrapLength) + 100;
  for (std::u16string* s : {&FS, &FST, &FWT, &FSD, &FCW, &FWB, &FWC, &FSUC, &FFindBuf, &FSW}) s->reserve(length);
  FBuffer.reserve(kBufferLength);
}

void TOrlCustomMemo::HookStore(TOrlMemoStrings& store) {
  store.OnChange = [this](TElWideStrings&) { LinesChanged(false, false, true); };
}

TOrlMemoStrings& TOrlCustomMemo::InternalLines() {
  return FSplitSlave && FSplitMemo ? FSplitMemo->Lines() : *FLines;
}

TOrlUndoList& TOrlCustomMemo::InternalUndoList() {
  if (FSplitSlave && FSplitMemo) return FSplitMemo->InternalUndoList();
  if (FTextDiffMode && FDiffModeUndoList) return *FDiffModeUndoList;
  return *FUndoList;
}

void TOrlCustomMemo::SetText(std::u16string_view text) {
  InternalLines().SetTextStr(text);
  ClearLineStylesFrom(0);
  LinesChanged(true, true, true);
  // The caret and selection of the old text may lie outside the new one.
  SetCursor(FCurX, FCurY, true);
}

int TOrlCustomMemo::TimerInterval(TMemoTimer timer) {
  switch (timer) {
    case TMemoTimer::Scroll: return 100;  // set again on every tick while selecting
    case TMemoTimer::AutoComplete: return 1000;
    case TMemoTimer::AutoCompletionHint: return 400;
    case TMemoTimer::AbbreviationHint: return 300;
    case TMemoTimer::ColorHint: return 800;
    case TMemoTimer::DocumentMapPreview: return 300;
    case TMemoTimer::JSON: return 5000;
    case TMemoTimer::MultiCursor: return 500;
    case TMemoTimer::ScrollVOff:
    case TMemoTimer::ScrollHOff: return 3000;
    case TMemoTimer::Pan: return 40;
  }
  return 0;
}

void TOrlCustomMemo::TimerFired(TMemoTimer timer) {
  if (FClosing) return;
  switch (timer) {
    case TMemoTimer::Scroll:
      AutoScrollTick();
      break;
    case TMemoTimer::Pan:
      PanTick();
      break;
    case TMemoTimer::JSON:
      StopTimer(timer);
      FUpdateCodeExplorer = true;
      break;
    case TMemoTimer::ScrollVOff:
      StopTimer(timer);
      if (FAutoHideVertScrollBar) FWindow->ShowScrollBar(TScrollBarKind::sbVertical, false);
      break;
    case TMemoTimer::ScrollHOff:
      StopTimer(timer);
      if (FAutoHideHorzScrollBar) FWindow->ShowScrollBar(TScrollBarKind::sbHorizontal, false);
      break;
    default:
      // Completion, hints, the map preview and the extra
      // carets act when their subsystems are present; until then a tick is idle.
      break;
  }
}

void TOrlCustomMemo::StopTimersAndThreads(bool bFree) {
  for (TMemoTimer timer : {TMemoTimer::JSON, TMemoTimer::MultiCursor, TMemoTimer::ColorHint, TMemoTimer::AutoComplete})
    StopTimer(timer);
  FHaltBkThread = true;
  if (bFree) FBkThread->Terminate();
  else FBkThread->Suspend();
}

bool TOrlCustomMemo::SuspendThread(bool bSuspend) {
  const bool bWasHalted = FHaltBkThread;
  FHaltBkThread = bSuspend;
  if (bSuspend) FBkThread->Suspend();
  else FBkThread->Resume();
  return bWasHalted;
}

void TOrlCustomMemo::BeginUpdate() {
  FLetRefresh = false;
  FNoUpdate = true;
  InternalLines().BeginUpdate();
}

void TOrlCustomMemo::EndUpdate() {
  FLetRefresh = true;
  FNoUpdate = false;
  InternalLines().EndUpdate();
  LinesChanged(true, false, true);
  Invalidate();
}

void TOrlCustomMemo::ApplyForceWrap() {
  if (!FForceWrap && !FWordWrap && FMaxLength > FForcewrapLength) {
    FForceWrap = true;
    FMaxLength = FForcewrapLength + 100;
  } else if (FForceWrap && !FWordWrap && FMaxLength < FForcewrapLength) {
    FForceWrap = false;
  }
}

void TOrlCustomMemo::LinesChanged(bool bRedraw, bool bNew, bool SetCaret) {
  if (!FLetRefresh || FClosing) return;
  if (FDocMapDrawType != dmrForce) FDocMapDrawType = dmrUpdate;
  FOffsetScrollMode = osmNotAllow;
  if (OnChange) OnChange();
  FUpdate = true;
  const bool bWasHalted = SuspendThread(true);
  TOrlMemoStrings& lines = InternalLines();
  if (lines.Count() == 0) lines.DoAdd(u"");
  ApplyForceWrap();
  ResizeScrollBars(bRedraw, 0);
  if (bNew) {
    FUpdate = true;
    FDoThreadInvalidate = true;
    FUpdateCodeExplorer = true;
    Invalidate();
  } else if (SetCaret && !FHexView) {
    SetCurY(FCurY);
    SetCurX(FCurX);
    FUpdate = false;
  }
  if (!bWasHalted) SuspendThread(false);
}

bool TOrlCustomMemo::Modified() {
  if (FSplitSlave && FSplitMemo) return FSplitMemo->Modified();
  // In text-diff mode this is the diff list, the one SetModified writes.
  return InternalUndoList().HasUnsavedSteps();
}

void TOrlCustomMemo::SetModified(bool Value) {
  if (FSplitSlave && FSplitMemo) return FSplitMemo->SetModified(Value);
  TOrlUndoList& undo = InternalUndoList();
  if (Value) {
    FNewAtStartup = false;
    undo.MarkChangedWithoutSteps();
    return;
  }
  if (FResetUndoBuffer) undo.Clear();
  undo.ClearSaveMark();
}

void TOrlCustomMemo::AssignSplitMemo(TOrlCustomMemo* ctrl, bool asSlave) {
  if (!ctrl || ctrl == this) return;
  FSplitMemo = ctrl;
  ctrl->FSplitMemo = this;
  FSplitSlave = asSlave;
  ctrl->FSplitSlave = !asSlave;
  TOrlCustomMemo& master = asSlave ? *ctrl : *this;
  TOrlCustomMemo& slave = asSlave ? *this : *ctrl;
  slave.FMacroHolder = master.FMacroHolder;
}

void TOrlCustomMemo::DoEnter() {
  if (OnFocused) OnFocused(*this, FSpellLanguage);
  FActiveSplitView = true;
  if (FSplitMemo) FSplitMemo->FActiveSplitView = false;
  if (!FSplitSlave || !FSplitMemo) return;
  TOrlMemoStrings& store = InternalLines();
  HookStore(store);
  // The store may have changed behind this view: find the top row again by its attribute.
  if (FTopLineObject) {
    for (int i = 0; i < store.Count(); ++i)
      if (&store.ReadLineAttribute(i) == FTopLineObject.get()) {
        FTopLine = i;
        break;
      }
  }
  FTopLine = std::clamp(FTopLine, 0, std::max(store.Count() - 1, 0));
}

TMemoStoreSettings TOrlCustomMemo::StoreSettings() const {
  TMemoStoreSettings s;
  s.TabSize = FTabSize;
  s.bPreserveTab = FPreserveTab;
  s.bBinaryMode = FBinaryMode;
  s.bHasStyles = FStyles != nullptr;
  s.bWrapping = FWordWrap || FForceWrap;
  s.bIsASCII = FIsASCII;
  s.bHexTextAsAscii = FHexTextAsAscii;
  s.bHandleCSV = FHandleCSV;
  s.bHexView = FHexView;
  return s;
}

TMemoSelection TOrlCustomMemo::Selection() const {
  TMemoSelection sel;
  sel.Start = {FSelStartX, FSelStartY};
  sel.End = {FSelEndX, FSelEndY};
  sel.bColumnMode = FColumnMode;
  sel.bHexView = FHexView;
  sel.HexSelectionLength = FHexViewer ? FHexViewer->SelectionLength : 0;
  return sel;
}

void TOrlCustomMemo::LayoutLine(std::u16string_view, TQuickLineCall, std::vector<int>&) {
  // Until lines wrap every line is one row: no pieces means one piece.
}

void TOrlCustomMemo::StylesChanged() {
  if (FClosing) return;
  TOrlMemoStrings& lines = Lines();
  const bool bNeedFull = FStyles != nullptr;
  if (lines.Count() > 0 && lines.ReadLineAttribute(0).IsAttribute() != bNeedFull) lines.ConvertAttributes();
  ClearLineStylesFrom(0);
  FDoThreadInvalidate = true;
  Invalidate();
}

void TOrlCustomMemo::RaiseMaxLength(int length) { FMaxLength = std::max(FMaxLength, length); }

void TOrlCustomMemo::SetBookmarkListValue(int number, int row) {
  if (number < 0 || size_t(number) >= FTaglines.size()) return;
  FTaglines[size_t(number)] = row;
  if (size_t(number) < FBookmarkList.size()) FBookmarkList[size_t(number)] = row >= 0;
}

void TOrlCustomMemo::LinesAssigned() {
  FLetRefresh = true;
  LinesChanged(true, true, true);
  RescanLineStyles();
  Invalidate();
}

TOrlMemo::TOrlMemo(IMemoWindow* window, std::u16string szDataFolder)
    : TOrlCustomMemo(window, std::move(szDataFolder)) {
  FHexViewer = std::make_unique<TOrlHexView>();
  TMemoFont font;
  font.Name = u"COURIER NEW";
  font.Height = -13;
  font.Charset = 1;
  SetFont(font);
}

void TOrlMemo::LinesChanged(bool bRedraw, bool bNew, bool SetCaret) {
  TOrlCustomMemo::LinesChanged(bRedraw, bNew, SetCaret);
  if (InternalLines().FHasAnnotationPanel) FUpdateAnnotationBar = true;
}

} // namespace orl
