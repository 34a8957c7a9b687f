// The key table: what each key does with its modifiers. One physical key is
// one logical event: its key-down decides, and the control character the
// keyboard also makes for it (Tab, Enter, Backspace, Ctrl+letters) is
// dropped by KeyPress, so nothing runs twice.

#include <cstdlib>

#include "editing/OrlMemo.h"

namespace orl {
namespace {

constexpr TShiftState kModifiers = ssShift | ssAlt | ssCtrl;

/// Runs a seam that is attached; says whether it ran.
template <typename F, typename... A>
bool Run(const F& hook, A&&... args) {
  if (!hook) return false;
  hook(std::forward<A>(args)...);
  return true;
}

} // namespace

void TOrlCustomMemo::NoteNavigationStop() {
  const int offset = FNavigationHistoryOffset > 0 ? FNavigationHistoryOffset : VisibleRowMax() - 2;
  if (std::abs(FCurY - FCurrentNavigateY) <= offset) return;
  FPrevNavigateY = FCurrentNavigateY;
  FCurrentNavigateY = FCurY;
}

void TOrlCustomMemo::ArrowKey(int Key, TShiftState shift) {
  const bool bVertical = Key == vkUp || Key == vkDown;
  if (!bVertical) NoteNavigationStop();
  if (FColumnMode && FColumnModeRelease && (shift & (ssAlt | ssShift)) != (ssAlt | ssShift)) SetColumnMode(false);
  if ((shift & (ssAlt | ssShift)) == (ssAlt | ssShift)) shift = TShiftState(shift & ~ssAlt);  // a block step
  FKeyDown = Key == vkDown;
  FKeyUp = Key == vkUp;
  const int dx = Key == vkLeft ? -1 : Key == vkRight ? 1 : 0;
  const int dY = Key == vkUp ? -1 : Key == vkDown ? 1 : 0;
  const bool bPlainVertical = bVertical && !(shift & (ssCtrl | ssAlt));
  if (bPlainVertical && dY > 0 && StepShownLines(FCurY, 1) == FCurY) GoEnd(shift, false);
  else if (bPlainVertical && dY < 0 && StepShownLines(FCurY, -1) == FCurY) GoHome(shift, false);
  else MoveCursor(dx, dY, shift);
  FKeyDown = FKeyUp = false;
  Run(Hooks.RecordMacro, bVertical ? 6 : 5, bVertical ? dY : dx);
}

bool TOrlCustomMemo::ShortcutKey(int Key, TShiftState shift) {
  const TShiftState mods = TShiftState(shift & kModifiers);
  const bool bShift = shift & ssShift;
  // Ctrl with Alt is AltGr on many keyboards: its characters are typing, not shortcuts.
  const bool bCtrl = (shift & ssCtrl) && !(shift & ssAlt);
  const bool bEditable = !FReadOnly;
  switch (Key) {
    case vkLeft:
    case vkRight:
    case vkUp:
    case vkDown:
      if (mods == ssAlt + ssShift && FProcessShortcuts && !FColumnMode) {
        SetColumnMode(true);
        FColumnModeRelease = true;
      }
      if ((mods & ~ssShift) != 0 && !FProcessShortcuts) return false;
      ArrowKey(Key, shift);
      return true;
    case vkHome:
    case vkEnd:
    case vkPrior:
    case vkNext:
      if (!FProcessShortcuts) return false;
      if (Key == vkHome) GoHome(shift, true);
      else if (Key == vkEnd) GoEnd(shift, true);
      else MovePage(Key == vkPrior ? -1 : 1, shift);
      return true;
    case vkSpace:
      if (!bCtrl || !FProcessShortcuts || !bEditable) return false;
      return bShift ? Run(Hooks.ShowParameterHint) : Run(Hooks.ShowCompletion);
    case 'A':
      if (!bCtrl || !FProcessShortcuts) return false;
      SelectAll(false);
      return true;
    case 'C':
      if (!bCtrl || !FProcessShortcuts) return false;
      CopyToClipboard();
      return true;
    case 'V':
      if (!bCtrl || !FProcessShortcuts || !bEditable) return false;
      PasteFromClipboard(false);
      return true;
    case 'X':
      if (!bCtrl || !FProcessShortcuts || !bEditable) return false;
      CutToClipboard();
      return true;
    case 'Y':
    case 'Z':
      // A host that binds its own undo command keeps these keys: they act
      // only with the memo's shortcuts on, like Alt+Backspace.
      if (!bCtrl || !FProcessShortcuts || !bEditable) return false;
      if (Key == 'Z' && !bShift) Undo();
      else Redo();
      return true;
    case 'L':
      if (!bCtrl || !bEditable) return false;
      if (bShift) DeleteCurrentLine();
      else DuplicateCurrentLine();
      return true;
    default: return false;
  }
}

bool TOrlCustomMemo::EditingKey(int Key, TShiftState shift) {
  const TShiftState mods = TShiftState(shift & kModifiers);
  const bool bEditable = !FReadOnly;
  const bool bMultiRow = HasSelection() && FSelStartY != FSelEndY;
  switch (Key) {
    case vkEscape: return Run(Hooks.LeaveMultiEdit);
    case vkTab:
      if (mods & ssCtrl) return true;
      if (!bEditable) return true;
      if (mods & ssShift) {
        if (bMultiRow) UnIndentSelectedBlock(true);
        else if (FCurX > 0) UnIndentFromCursor();
        return true;
      }
      if (bMultiRow && !FColumnMode && !FBinaryMode) {
        IndentSelectedBlock(true);
      } else {
        CompleteWord();
        InsertTab();
      }
      Run(Hooks.RecordMacro, 3, 0);
      return true;
    case vkBack:
      if (mods & ssAlt) {
        if (!FProcessShortcuts || !bEditable) return true;
        if (mods & ssShift) Redo();
        else Undo();
        return true;
      }
      if (!bEditable) return true;
      if ((mods & ssCtrl) && !HasSelection()) {
        MoveCursor(-1, 0, ssShift | ssCtrl);
        DeleteSelection(true, true, false, false);
        return true;
      }
      if (FDelErase && HasSelection()) {
        DeleteSelection(true, true, false, false);
        return true;
      }
      Backspace();
      Run(Hooks.RecordMacro, 2, -1);
      return true;
    case vkDelete:
      if (!bEditable) return true;
      if (mods & ssShift) {
        CutToClipboard();
        return true;
      }
      if (mods & ssCtrl) {
        MoveCursor(1, 0, ssShift | ssCtrl);
        DeleteSelection(true, true, false, false);
        return true;
      }
      if (FDelErase && HasSelection()) {
        DeleteSelection(true, true, false, false);
        return true;
      }
      DeleteChar(-1, -1);
      Run(Hooks.RecordMacro, 2, 1);
      return true;
    case vkInsert:
      if (mods & ssShift) {
        if (bEditable) PasteFromClipboard(false);
        return true;
      }
      if (mods & ssCtrl) {
        CopyToClipboard();
        return true;
      }
      if (mods == 0) {
        bool bAllow = true;
        if (OnOverwriteToggle) OnOverwriteToggle(bAllow);
        if (bAllow) FOverwrite = !FOverwrite;
        if (FCaretCreated) CreateSystemCaret();
        PlaceCaret(true);
        return true;
      }
      return false;
    case vkReturn:
      if (bEditable) {
        CompleteWord();
        EnterPress();
      }
      Run(Hooks.RecordMacro, 4, 0);
      return true;
    default: return false;
  }
}

void TOrlCustomMemo::KeyDown(int& Key, TShiftState shift) {
  if (FHexView || FClosing) return;
  FKeyIsDown = true;
  StopTimer(TMemoTimer::AutoComplete);
  const TShiftState mods = TShiftState(shift & kModifiers);
  if (CollectAltCodeDigit(Key, mods)) {
    Key = vkNone;
    return;
  }
  if (ShortcutKey(Key, shift) || EditingKey(Key, shift)) Key = vkNone;
}

} // namespace orl
