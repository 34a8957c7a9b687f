#pragma once
// The memo: the engine's editing control. TOrlCustomMemo holds all state of
// one editor pane over a line store; TOrlMemo adds what a finished editor
// needs on top (commands, file saving with backups, hex and diff glue).
//
// The memo reaches its window only through IMemoWindow, so it runs headless;
// a toolkit widget forwards its events to it and answers those calls.
//
// Coordinate systems, as every other memo operation uses them:
// text offset (0-based over the whole text, 2 per line end), line (0-based
// store row), real line (unwrapped line), screen row (from FTopLine over
// shown lines), character column X (0-based in the row, tab counts one),
// visual column (tabs expanded to multiples of FTabSize) and pixel.

#include <array>
#include <atomic>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

#include "editing/MemoGeometry.h"
#include "editing/MemoInput.h"
#include "editing/MemoOwnedParts.h"
#include "editing/MemoWindow.h"
#include "syntax/CharStyle.h"
#include "syntax/LineTokeniser.h"
#include "syntax/MemoStyleSlots.h"
#include "textstore/FullPos.h"
#include "textstore/MemoStringsOwner.h"
#include "textstore/OrlMemoStrings.h"

namespace orl {

class THeadlessWindow;

enum TScrollMode : uint8_t { smAuto, smStrict };
enum TOffsetScrollMode : uint8_t { osmNone, osmAllow, osmNotAllow };
enum TDocumentMapRedrawType : uint8_t { dmrNone, dmrAllow, dmrDocMapOnly, dmrRepaint, dmrUpdate, dmrForce };
enum TProgressStage : uint8_t { psStarting, psRunning, psEnding };

/// Modifier keys held during a mouse or key event.
enum TShiftStateFlag : uint8_t { ssShift = 1, ssAlt = 2, ssCtrl = 4 };
using TShiftState = uint8_t;

/// How the right margin is drawn.
enum TMarginLineType : uint8_t { mNone, mDotted, mSolid, m3d };

/// Selector of VisibleCellCount.
enum TVisibleCount : uint8_t { vcPageWidth, vcPageHeight, vcLastVisiblePos, vcLastVisibleLine };

/// A selection's ends in reading order.
struct TOrderedSelection {
  int StartX = 0, StartY = 0, EndX = 0, EndY = 0;
  bool operator==(const TOrderedSelection&) const = default;
};
/// Swaps the ends when the end stands before the start; in column mode also
/// the columns, so that the result is a rectangle.
TOrderedSelection OrderSelection(int StartX, int StartY, int EndX, int EndY, bool bColumn);

class TOrlCustomMemo : public TOrlMemoStyleSlots,
                       public IMemoStringsOwner,
                       public IMemoWindowClient,
                       public ITokeniserHost {
public:
  /// `window` may be null: the memo then lives in a headless window of its
  /// own. `szDataFolder` is where macros and icons are looked for.
  explicit TOrlCustomMemo(IMemoWindow* window = nullptr, std::u16string szDataFolder = u"");
  ~TOrlCustomMemo() override;
  TOrlCustomMemo(const TOrlCustomMemo&) = delete;
  TOrlCustomMemo& operator=(const TOrlCustomMemo&) = delete;

  IMemoWindow& Window() { return *FWindow; }

  // Text access.
  TOrlMemoStrings& Lines() { return *FLines; }
  /// The store every operation works on: a split slave's is its master's.
  TOrlMemoStrings& InternalLines();
  std::u16string Text() { return InternalLines().GetTextStr(); }
  void SetText(std::u16string_view text);

  // Caret.
  int CurX() const { return FCurX; }
  int CurY() const { return FCurY; }
  /// Moves the caret within its row, snapped to a cluster stop.
  void SetCurX(int Value);
  /// Moves the caret to another row, keeping its visual column.
  void SetCurY(int Value);
  void SetTextCursorValues(int aCurX, int aCurY) {
    FCurX = aCurX;
    FCurY = aCurY;
  }
  /// The character stop nearest to `to` when moving from `from` in the row:
  /// surrogate pairs, combining marks and joiners are never split. A move
  /// over plain text below 256 without tabs takes no break analysis.
  int ClusterStop(int line, int from, int to);

  // Selection.
  TOrderedSelection GetSelection() const;
  bool HasSelection() const { return FSelStartX != FSelEndX || FSelStartY != FSelEndY; }
  /// Collapses the selection to the caret; with bRedraw a selection that existed is repainted away.
  virtual void ClearSelection(bool bRedraw);

  // State.
  bool Modified();
  void SetModified(bool Value);
  bool ReadOnly() const { return FReadOnly; }
  void SetReadOnly(bool Value) { FReadOnly = Value; }
  int TabSize() const { return FTabSize; }
  void SetTabSize(int Value);

  // Undo and redo, through the list that InternalUndoList gives.
  void Undo();
  void Redo();
  /// False while the memo closes or is read-only.
  bool CanUndo();
  bool CanRedo();
  void ClearUndoList();
  /// Tells the host what undo and redo can do now (OnUndoChange).
  void UndoChange();
  /// An edit changed the text: the document counts as modified until a
  /// save or an undo step says otherwise.
  void NoteTextEdited();

  // Clipboard.
  /// Copies the selection; with none the whole line with its end (marked as
  /// a whole line) when FCopyLineToClipboard, else the token at the caret.
  /// Gives the text copied.
  std::u16string CopyToClipboard();
  /// Copies, then deletes the selection, or with FCopyLineToClipboard and
  /// no selection the whole line. Gives the text copied.
  std::u16string CutToClipboard();
  /// Pastes the clipboard's text; bAddLineFeed appends a line end.
  void PasteFromClipboard(bool bAddLineFeed);
  /// Pastes the HTML that another program copied, as source text.
  void PasteFromClipboardHTML();

  // Update brackets and change handling.
  virtual void BeginUpdate();
  virtual void EndUpdate();
  virtual void LinesChanged(bool bRedraw, bool bNew, bool SetCaret);
  /// Stops (true) or lets run (false) the background thread; the result
  /// says whether it had been halted before.
  bool SuspendThread(bool bSuspend);
  void StopTimersAndThreads(bool bFree);

  // Font and geometry.
  const TMemoFont& Font() const { return FFont; }
  void SetFont(const TMemoFont& font);
  void SetAltFont(const TMemoFont& font);
  void UseAltFont(bool Value);
  void FontChanged();
  void AltFontChanged();
  void UpdateDPI(int newDPI, int oldDPI);
  TCellSize CellSize() const { return FCellSize; }
  bool ColumnMode() const { return FColumnMode; }
  void SetColumnMode(bool Value);
  /// The text area; with bMemoWindow the right edge stays at the client's.
  TRect EditorRect(bool bMemoWindow, int line);
  int VisibleCellCount(TVisibleCount what);
  int VisiblePosCount() { return VisibleCellCount(vcPageWidth); }
  int VisibleRowMax() { return VisibleCellCount(vcPageHeight); }
  int LastVisiblePos() { return VisibleCellCount(vcLastVisiblePos); }
  int LastVisibleLine() { return VisibleCellCount(vcLastVisibleLine); }
  void ResizeScrollBars(bool bRedraw, int AMaxLen);

  // Conversions.
  int FromRealCursorPos(int line, int x);
  int ToRealCursorPos(int line, int vx, std::u16string_view sv = {});
  int ToRealStringPos(int vx, std::u16string_view W, int indx, int ALen) const;
  static std::u16string StringToVisual(std::u16string_view W, int tabSize);
  std::u16string StringToVisual(std::u16string_view W) const { return StringToVisual(W, FTabSize); }
  int TextLength(int ALine, int CharX, bool bPrinter, bool bDocumentMap);
  TFullPos CharXYFromPos(int x, int Y, bool bPrinter, std::u16string_view ws = {});
  /// The character under a client pixel, scroll included.
  TFullPos PointToCharPos(int x, int y);
  int64_t TextFromPos(int x, int y);
  TFullPos PosFromText(int64_t pos);
  int GetRowFromLine(int line);
  int GetLineFromRow(int row);
  int GetNextVisibleLine(int from, int line);
  /// The same walk; kept under both names for callers that read backwards.
  int GetPrevVisibleLine(int from, int line) { return GetNextVisibleLine(from, line); }
  int GetVisibleLines(int nFrom, int nTo) override;
  int GetRealLine(int line);
  int GetWrapStartLine(int line);
  /// Row coordinates to real-line coordinates, in place.
  void GetUnwrappedPos(int& cx, int& cy);
  /// Real-line coordinates to row coordinates, in place.
  void GetWrappedPos(int& cx, int& cy);
  bool IsLineHidden(int line) { return InternalLines().GetHiddenLine(line); }

  // ---- Text access, offsets, real lines, modified state and line history ----
  /// The store the memo works on, as its published list; assigning copies the lines in.
  TOrlMemoStrings& MemoLines() { return InternalLines(); }
  void SetMemoLines(const TElWideStrings& Source);
  /// The whole text as the offsets count it: CR LF between real lines, none in binary mode.
  std::u16string MemoText();
  /// Replaces the text, reusing rows so that unchanged rows keep their marks.
  void SetMemoText(std::u16string_view Value);
  /// The row's text; "" for a bad line.
  std::u16string GetLineText(int line);
  /// Writes the row as an edit of it; a bad line is ignored.
  void SetLineText(int line, std::u16string_view Value);
  /// The selection (bSelection) or the whole text with each real line's own ending.
  std::u16string GetMixedCRLFText(bool bSelection);
  /// Client pixel of the left edge of character x in line y, scroll included.
  TPoint TextPoints(int x, int y);
  /// Text offsets of the selection's start and of its length.
  int64_t SelStart();
  int64_t SelLength();
  /// An empty selection at the offset, with the caret there.
  void SetSelStart(int64_t Value);
  /// Selects Value characters from the selection's start.
  void SetSelLength(int64_t Value);
  bool GetWrapped(int index) { return InternalLines().IsLineWrapped(index); }
  void SetWrapped(int index, bool Value);
  /// Row `line` as real line: returns its number, with the row's first
  /// character offset in the real line (OffsetReal) and its distance in rows
  /// from the line's first row (OffsetWrapped). The row itself, with zero
  /// offsets, while rows are real lines.
  int GetUnwrappedLine(int line, int& OffsetReal, int& OffsetWrapped);
  /// The reverse: the row holding character OffReal of real line `line`, and
  /// in OffWrap that character's column in the row.
  int FindRealLine(int line, int OffReal, int& OffWrap);
  bool ModifiedAndSaved() const { return FModifiedAndSaved; }
  void SetModifiedAndSaved(bool Value) { FModifiedAndSaved = Value; }
  bool NewAtStartup() const { return FNewAtStartup; }
  /// Runs for each row an edit touches: the memo becomes modified and the
  /// real line's history moves one step (back during an undo).
  virtual void ChangeLineHistory(int line);
  /// The text was saved: changed lines show as saved.
  void Saved();
  /// Set by the undo engine while it undoes or redoes, for ChangeLineHistory.
  bool FChangeHistoryUndo = false, FChangeHistoryRedo = false;
  // ---- end of block ----

  // Words.
  bool IsSymbolBoundary(char16_t ch) const;
  static bool CharIsWhiteSpace(char16_t ch, bool bIncludeTab);

  // Line states: the scan state at each line's end, kept in the store.
  /// The tokeniser over the store this memo works on.
  TLineTokeniser& Tokeniser();
  TStyle GetUpStyle(int stopat, bool bFolding) { return Tokeniser().GetUpStyle(stopat, bFolding); }
  bool GetUpLineStyle(int LineNo, int Start, int Stop, TStyle& Style, bool bCheckFolding) {
    return Tokeniser().GetUpLineStyle(LineNo, Start, Stop, Style, bCheckFolding);
  }
  TStyle GetLineStyle(int index, bool& bCashed) { return Tokeniser().GetLineStyle(index, bCashed); }
  void SetLineStyle(int index, TStyle& LineStyle) { Tokeniser().SetLineStyle(index, LineStyle); }
  void ClearLineStylesFrom(int index) { Tokeniser().ClearLineStylesFrom(index); }
  /// Brings every line's state up to date from the top, storing each.
  void RescanLineStyles();

  // What a scan asks of its memo.
  bool Closing() const override { return FClosing; }
  bool HaltBkThread() const override { return FHaltBkThread; }
  bool CanScan() const override { return FCellSize.H > 0 && !FSuspendPainting && !FHexView; }
  bool RegionNodes() const override { return FRegionNodes; }
  bool WrapOn() const override { return FWordWrap || FForceWrap; }
  bool Update() const override { return FUpdate; }
  bool AllowURLClick() const override { return UrlAware; }
  bool AllowSyntaxInStrings() const override { return FAllowSyntaxInStrings; }
  bool IsDefault() const override { return FisDefault; }
  void ResetFoldWordPair() override { FTwoWords = false; }
  void DebugWrite(const std::u16string& ws, bool bHeading) override {
    if (OnDebugWrite) OnDebugWrite(ws, bHeading);
  }

  // Redraw.
  /// Asks for a repaint of the whole control, unless updates are off.
  virtual void Invalidate();
  /// After an edit of `line`: redraws the row alone when its end state stayed
  /// the same, else invalidates from it to the bottom of the view.
  void InvalidateLine(int line);
  /// Invalidates the rows of lines from..to; -1 or less stands for the top
  /// line and the last visible line. Under wrap the range reaches the end of
  /// the real line.
  virtual void InvalidateLines(int from, int to);
  /// Draws the row of `line` now, through the window, without a paint.
  void RedrawLine(int line);

  // Split views.
  void AssignSplitMemo(TOrlCustomMemo* ctrl, bool asSlave);
  /// The view got the focus: a slave rehooks the shared store to itself.
  void DoEnter();

  // Timers.
  void TimerFired(TMemoTimer timer) override;
  static int TimerInterval(TMemoTimer timer);

  /// A style set came or went: rows take the attribute class it needs.
  void StylesChanged() override;

  // What the store asks of its memo.
  TMemoStoreSettings StoreSettings() const override;
  TFullPos CaretPos() const override { return {FCurX, FCurY}; }
  void SetCaretPos(TFullPos pos) override { SetTextCursorValues(pos.x, pos.Y); }
  TMemoSelection Selection() const override;
  void LayoutLine(std::u16string_view line, TQuickLineCall call, std::vector<int>& pieces) override;
  void RaiseMaxLength(int length) override;
  void SetHasTabs(bool value) override { FHasTabs = value; }
  void SetBookmarkListValue(int number, int row) override;
  void LinesAssigned() override;

  // Events.
  std::function<void()> OnChange, OnCursorChange, OnStatusChange, OnFind, OnReplace, OnAutoCompletion,
      OnCanceltAutoCompletion, OnStartAutoCompletion;
  std::function<void(TShiftState shift, int nLines)> OnMouseWheelDown, OnMouseWheelUp;
  std::function<void(bool bSelection, bool bGutter, bool bFoldNode, bool bTextDiffButton)> OnMemoClickEvent;
  std::function<void(TOrlCustomMemo& Memo, std::u16string& sSpellLanguage)> OnFocused;
  std::function<void(const std::u16string& CurrentWord, std::u16string& NewWord)> OnWordComplete;
  std::function<void(int x, int Y, const std::u16string& AValue, std::u16string& AHint, bool& Show)> OnHintForToken,
      OnHintForWord;
  std::function<void(const std::u16string& SearchString, bool Active)> OnIncrementalChange;
  std::function<void(bool bMultiSelectionChange)> OnSelectionChange;
  std::function<void(bool Value)> OnColumnModeChange;
  std::function<void(bool CanUndo, bool CanRedo)> OnUndoChange;
  std::function<void(bool& Allow)> OnOverwriteToggle;
  std::function<void(int Value)> OnHScrollChange, OnVScrollChange;
  std::function<void(const std::u16string& URL)> OnURLClick;
  std::function<void(int LineNo)> OnGutterClick, OnGutterRightClick;
  std::function<void(std::u16string& ws, bool& bUserClipboard)> OnClipboard;
  std::function<void(const std::u16string& section, const std::u16string& key, bool& value)> OnMemoReadBooleanSetting;
  std::function<void(const std::u16string& section, const std::u16string& key, bool value)> OnMemoWriteBooleanSetting;
  std::function<void(const std::u16string& section, const std::u16string& key, std::u16string& value)>
      OnMemoReadLanguageValue;
  std::function<void(TProgressStage Stage, uint8_t PercentDone, bool RedrawNow, const TRect& R,
                     const std::u16string& Msg)>
      OnMemoWorkProgress;

  // ---- Caret, selection, keyboard, mouse and scrolling (begin) ----
  /// Puts the caret through the properties with `bRefresh`, else the fields;
  /// the selection always collapses to it.
  void SetCursor(int aCurX, int aCurY, bool bRefresh);
  void SetTextCursor(int cx, int cy, bool bClearSelection);
  void MoveCursor(int dx, int dY, TShiftState shift);
  void MovePage(int dP, TShiftState shift);
  void GoHome(TShiftState shift, bool bHandleWrappedLines);
  void GoEnd(TShiftState shift, bool bHandleWrappedLines);
  /// Word motion targets from (x, line): the caret's next word stop.
  TFullPos WordRightPos(int x, int line);
  TFullPos WordLeftPos(int x, int line);

  int TopLine() const { return FTopLine; }
  void SetTopLine(int Value);
  /// Takes a scroll-bar position (shown rows from the first) and makes the
  /// row it names the top line.
  void SetTopRow(int Value);
  void ResetTopLine();
  /// The last top line the view can scroll to.
  int GreatestTopLine();
  int LeftCol() const { return FLeftCol; }
  void SetLeftCol(int Value);
  void ScrollToCaret(bool bHorz, bool bVert);
  void PlaceCaret(bool bShow);
  void RefreshCaret() { PlaceCaret(true); }
  void CreateSystemCaret();
  virtual void ResizeEditor();
  /// Repaints the rows the caret left and entered, and the brace marks.
  virtual void UpdateLineAndBraces(int oldLine, int newLine, bool bForce);

  void SetSelection(int64_t Start, int64_t len, bool bSilent);
  void SetSelection2(int StartX, int StartY, int EndX, int EndY, bool bRedraw);
  void SetSelectionSilent(int StartX, int StartY, int EndX, int EndY);
  void SetSelStartPos(int line, int col, int length);
  void SetLineSelection(int line, int ax, int ALen);
  /// Characters selected; with bIncludeCRLF each line end counts as its two characters.
  /// Characters selected; with bIncludeCRLF each line end counts 2, or 1
  /// with bRealCRLF in an LF or CR document.
  int64_t GetSelectionLength(bool bIncludeCRLF, bool bRealCRLF = false);
  int SelStartCol() const { return GetSelection().StartX; }
  /// Keeps the selection inside the text after the other view of a split edited it.
  void UpdateSelection(bool bRedraw);
  virtual void ExpandSelection(bool bInvalidateAll, bool bSetOldCurX, bool bInvalidateOnly, bool bAllowSmartHighlight);
  void SelectAll(bool Silent);
  bool CanCopy() const { return HasSelection(); }
  /// Appends "first=last" per selection; returns the number of rows covered.
  int GetSelectionRanges(std::vector<std::u16string>& ls);

  /// The key table; a handled key comes back as vkNone.
  void KeyDown(int& Key, TShiftState shift);
  void KeyUp(int Key, TShiftState shift);
  /// A character the keyboard made: text goes to typing, control characters
  /// were already handled by their key.
  void KeyPress(char16_t ch);

  void MouseDown(TMouseButton button, TShiftState shift, int x, int y);
  void MouseMove(TShiftState shift, int x, int y);
  void MouseUp(TMouseButton button, TShiftState shift, int x, int y);
  void DblClick(TShiftState shift, int x, int y);
  /// `notches` above 0 scroll up; `lines` is the system's lines per notch, -1 a page.
  void MouseWheel(TShiftState shift, int notches, int lines);
  /// A scroll bar moved by the user: `pos` is the bar's new position.
  void ScrollBarMoved(TScrollBarKind bar, int pos);
  /// The vertical thumb is held (true) or let go: while it is dragged the
  /// line panel shows the line at the top of the view.
  void ScrollThumbTracking(bool bTracking);
  /// "Line: " and the real line at the top of the view, counted from 1.
  std::u16string LinePanelText();
  void FocusGained();
  void FocusLost();

  // Words and tokens, from the memo's symbol boundaries.
  std::u16string WordAtCursor() { return WordAtXY(FCurX, FCurY); }
  std::u16string WordAtXY(int x, int y);
  std::u16string FullWordAtCursor();
  std::u16string TokenAtCursor() { return TokenAtXY(FCurX, FCurY); }
  std::u16string TokenAtXY(int x, int y);
  std::u16string LeftWordAtCursor();
  std::u16string NumberAtCursor();
  char16_t CharAtPosX(int x, int y);
  char16_t CharValueAtCursor() { return CharAtPosX(FCurX, FCurY); }

  // ---- Text commands (begin) ----
  /// Types one character (26 stands for a literal tab); 1 when it replaced a selection.
  int InsertChar(char16_t C);
  /// Writes the character over the one at the caret.
  void OverwriteChar(char16_t C);
  /// Deletes the character or cluster left of the caret, or joins the row
  /// with the one above; with FSmartBackspace an indentation level at once.
  void Backspace();
  /// Deletes the character or cluster at the caret, or joins the next row;
  /// (-1, -1) for a plain Delete, else where Backspace started.
  void DeleteChar(int OldX, int OldY);
  void DeleteSelection(bool bRepaint, bool bUndo, bool bSilent, bool bMultiDelete);
  /// Splits the row at the caret with the indentation of its line.
  void EnterPress();
  /// A tab, or with FSmartTab blanks up to the next word of the row above.
  void InsertTab();
  /// The core of every insertion: the selection (or nothing) at the caret
  /// becomes AValue. bEnter marks a line break typed by the user.
  void ReplaceSelectionText(std::u16string_view AValue, bool bEnter, bool bSelectInserted, bool bInsertAtBOL,
                            bool bKeepCursorInUndo, bool bNoUndo);
  void InsertText(std::u16string_view AValue, bool bInsertAtBOL);
  /// Splices text into row Y at column x, with no undo.
  void InsertTextAtXY(std::u16string_view AValue, int x, int Y);
  /// Each line after the first starts at the caret's column.
  void InsertIndentedText(std::u16string_view s);
  /// Paste with the place's indentation (FSmartPaste or bForce): each further
  /// line starts at the paste's visual column; bReplaceSelVariable puts the
  /// selected text for "[[sel]]" (or "%sel%"); nCurPos from 0 puts the caret
  /// at that offset of the inserted text.
  void SmartPasteText(std::u16string str, bool bInsertAtBOL, bool bForce, int nCurPos, bool bReplaceSelVariable);
  /// Writes the text over as many characters at the caret as it has.
  void OverwriteWithString(std::u16string_view s);
  /// Replaces the selection with no undo and no repaint, for undo itself.
  void InsertSelectionSilent(std::u16string_view AValue);
  /// The selected text, lines joined by CR LF.
  std::u16string SelectedText();
  /// Writing the Selection property.
  void SetSelectionText(std::u16string_view AValue);
  void IndentSelectedBlock(bool bFullLines);
  void UnIndentSelectedBlock(bool bFullLines);
  /// Shift+Tab with no selection: blanks left of the caret, one tab width.
  void UnIndentFromCursor();
  /// Comment marks: `value2` empty means a line comment.
  void CommentBlock(std::u16string_view Value, std::u16string_view value2);
  void UnCommentBlock(std::u16string_view Value, std::u16string_view value2);
  void ToggleCommentBlock();
  bool CanUseBlockComment() const;
  /// Wraps the selection in the pair the character opens; true when it did.
  bool EncloseSelection(char16_t AStartChar);
  bool EncloseSelection(std::u16string_view AStartString);
  enum TCaseType : uint8_t { ctUpper, ctLower, ctInvert, ctCapitalize };
  void SelToCase(TCaseType ctype);
  void DuplicateCurrentLine();
  void DeleteCurrentLine();
  /// Row `index`, or below 0 the selection's rows (else the caret's).
  void DeleteLine(int index);
  void InsertLine(int line, std::u16string_view Text);
  /// Trailing blanks of a row edited since the last save.
  void RemoveTrailing(int line);
  /// The brace hook: closes a typed bracket or quote, or steps over a closer.
  bool AutoCloseBraces(char16_t ch);
  /// The block hook: the end mark after a typed start mark.
  void AutoCloseBlocks(char16_t ch);

  bool FSmartTab = false, FSmartBackspace = false, FSmartPaste = false;
  /// Switches of the brace hooks (with and without style set) and of the block hook.
  bool FAutoCloseBraces = false, FAutoCloseBracesText = false, FAutoCloseBlocks = false, FAutoBlockOnLine = false;
  bool FOverwritePasteMode = false, FXML = false;
  // ---- Text commands (end) ----

  TMemoHooks Hooks;
  bool FProcessShortcuts = false, FGreedyVerticalScroll = false, FAllowMultiEditMode = false;
  bool FMultiEditMode = false, FHideCaret = false, FReplaceAll = false, FBackSpace = false;
  bool FKeyIsDown = false, FLeftButtonDown = false, FDoubleClick = false, FFileDrag = false;
  bool FPanning = false, FAutoCompleteDot = false, FFocused = false, FCaretCreated = false;
  bool FDelErase = true;
  bool FSmartHighlight = false, FSmartHighlightWholeWords = true;
  std::u16string FAutoHighlightWordString;
  /// Keypad digits typed with Alt held, not yet turned into a character.
  std::u16string FAltCode;
  int FX = 0, FY = 0;  ///< where the last press or counted move happened
  int FMouseX = 0, FMouseY = 0;  ///< the mouse's last position, for auto-scroll
  int FTimerInterval = 100;
  TFullPos FDoubleClickStart{-1, -1}, FDoubleClickEnd{-1, -1};
  int64_t FLastDblClick = -1'000'000;
  int FDoubleX = -1, FDoubleY = -1;
  TPoint FPanOrigin;
  // ---- Caret, selection, keyboard, mouse and scrolling (end) ----

  /// Guards what the background thread shares with the main thread; declared
  /// first so that it is destroyed last.
  std::recursive_mutex FLock;

  // Position and scroll.
  int FCurX = 0, FCurY = 0;
  int FOldCurX = 0;
  int FPreviousCurY = 0;
  unsigned FCaretX = 0, FCaretY = 0;
  int FCaretWidth = 1;
  int FCaretScrollDistance = 10;
  int FCaretScrollVDistance = 1;
  int FLeftCol = 0, FLastLeftCol = 0;
  int FTopLine = 0, FRealTopLine = 0, FPrevTopLine = 0;
  TAttributePtr FTopLineObject;
  TScrollMode FScrollMode = smAuto;
  TOffsetScrollMode FOffsetScrollMode = osmNone;
  int FMaxTextWidth = 0;
  int FMaxLength = 0;
  bool FFindScroll = false, FDoNotScroll = false, FMoveCaretXY = false;
  bool FKeyUp = false, FKeyDown = false;
  int FCurrentNavigateY = -1000, FPrevNavigateY = -1000;
  int FNavigationHistoryOffset = 0;

  // Selection.
  int FSelStartX = 0, FSelStartY = 0, FSelEndX = 0, FSelEndY = 0;
  int FPrevSelX = 0, FPrevSelY = 0;
  bool FSelectionMode = false, FSelectionMoveCaret = false;
  bool FColumnMode = false, FColumnModeRelease = false;
  bool FSelectionDrag = false, FGutterSelection = false;
  int BSelLine = -1, BSelStart = -1, BSelLen = -1;
  TFullPos FSelCharPos{-1, -1};
  int FOpenSelStart = 0, FOpenSelEnd = 0, FOpenCurX = 0, FOpenCurY = 0;

  // Owned objects.
  std::unique_ptr<TOrlMemoStrings> FLines;
  std::unique_ptr<TLineTokeniser> FTokeniser;
  std::unique_ptr<TOrlMemoStrings> Html;
  std::unique_ptr<TOrlUndoList> FUndoList;
  std::unique_ptr<TOrlUndoList> FDiffModeUndoList;
  std::unique_ptr<TOrlGutter> FGutter;
  std::unique_ptr<TOrlRuler> FRuler;
  std::unique_ptr<TOrlHexView> FHexViewer;
  std::unique_ptr<TBackgroundThread> FBkThread;
  std::shared_ptr<TMacroHolder> FMacroHolder;
  std::unique_ptr<TAutoCompletion> FAutoCompletion;
  std::unique_ptr<TAutoCorrect> FAutoCorrect;
  std::unique_ptr<TAutoCompletionForm> FormAutoCompletion;
  TStringList FAutoCompleteList;
  std::unique_ptr<TOrlHintWindow> FHintForm;
  std::unique_ptr<TOrlFoldHintWindow> FFoldHintForm;
  TDocumentMapInfo FDocumentMapInfo;
  TDocumentMapRedrawType FDocMapDrawType = dmrForce;
  TRect FLinePanel{0, 0, 100, 26};
  bool FLinePanelVisible = false, FThumbTracking = false;
  std::vector<std::unique_ptr<TMultiCursorPos>> FMultiCursorList;
  TStringList FHighlightSelections, FHighlightWords, FHighlightFinds, FHighlightExpressionList;
  TStringList FCodeExplorerTagsList, TodoList, FCEList1, FCEList2, FCEFavoriteList;
  std::vector<int> FWWList;
  TCharStyle FUrlStyle;

  // Shared, not owned.
  TOrlCustomMemo* FSplitMemo = nullptr;
  TOrlCustomMemo* FTextDiffMemo = nullptr;
  bool FSplitSlave = false;
  bool FActiveSplitView = false;

  // Metrics.
  TMemoFont FFont, FAltFont, FPrintFont;
  bool FUseAltFont = false;
  TCellSize FCellSize;
  int FFontHeight = 0, FAltFontHeight = 0;
  int FCharSpaceEx = 0;
  int FTextLead = 0;
  bool FMonospacedFont = false;
  bool FDisableBoldItalic = false;
  bool FInternalFontLeading = false;
  int FZoomValue = 100;
  int FCurrentDPI = 96;
  int FTabSize = 4;
  int FTabInt = 0;
  int FMargin = 1;
  int FGutterWidth = 0;
  int FRightMargin = 80;
  int FLineWrapIndent = 0;
  /// The font the measuring canvas holds: column and binary mode force a monospaced one.
  TMemoFont FMeasureFont;

  // Delimiters.
  std::u16string FCachedDelimiters;
  std::u16string FSelectDelimiters;
  std::u16string FSelectDelimitersAlt;
  std::u16string FUserDelimiters;

  // Options that start on.
  bool FAutoIndent = true, FWantTab = true, FAllowDragText = true, FAllowFoldHint = true, FHighlightLine = true,
       FHighlightLineBorder = true, FHighlightBraces = true, FHighlightFoldBlock = true, FRegionNodes = true,
       FTabAsSpaces = true, FPreserveTab = true, FEnableLeftMargin = true, FIndentWrappedLines = true,
       FShowIndentLinesDotted = true, FBlockShow = true, FLetRefresh = true, FHighlightColorValues = true,
       FEncloseSelectionWithParenthesis = true, FEncloseSelectionWithQuotes = true, FAllowTextDiffEvent = true,
       FletgetCaretTime = true;
  // Options that start off.
  // CaseSensitive and UrlAware are the style slots' own.
  bool FAllowNodes = false, FOverwrite = false, FReadOnly = false, FWordWrap = false,
       FForceWrap = false, FWrapAtRightMargin = false, FHardWrapAtRightMargin = false,
       FWrapAtComplexBreakpoints = false, FHexView = false, FBinaryMode = false, FTextDiffMode = false,
       FShowDocumentMap = false, FShowTabs = false, FShowCRLF = false, FLineNumbers = false,
       FKeepTrailing = false, FPasteDoNotMoveCursor = false, FUseRTL = false, FSystemSelectionColors = false,
       FHomeKeyToLineStart = false, FAutoHideHorzScrollBar = false, FAutoHideVertScrollBar = false,
       FNotepadCursor = false, FIsASCII = false, FHexTextAsAscii = false, FHandleCSV = false, FHasTabs = false,
       FSyncEdit = false, FNoUpdate = false, FUpdate = false, FSuspendPainting = false, FClosing = false,
       FDoThreadInvalidate = false, FUpdateClones = false, FNewAtStartup = true,
       FModifiedAndSaved = false, FResetUndoBuffer = false, FOldReadOnly = false, FNoResize = false,
       FHasLoaded = true, FRecordMacro = false, FUpdateCodeExplorer = false, FAllowSyntaxInStrings = false,
       FisDefault = false, FTwoWords = false, FCopyLineToClipboard = false;
  /// Read by the background thread's scans between their steps.
  std::atomic<bool> FHaltBkThread = false;

  // Numbers.
  int FForcewrapLength = 4096;
  int FWrapAtColumnValue = 80;
  int FAutoHintParameterDelay = 2500;
  int FIndentLineWidth = 2;
  int FLineNumberStart = 1;
  int FDocumentMapWidth = 180;
  int FListFontSize = 10;
  std::u16string FListFontName = u"Tahoma";
  int FFontQuality = 6;
  int FTextCoding = 1;
  unsigned FDefaultEncoding;
  int FCodePageXML = -1, KeyboardCodePage = -1, FActiveLine = -1, FSkipLine = -1, FFoldHighlightCurrent = -1,
      FFoldHighlightMatching = -1, FOldFoldLine = -1, FCurFoldStart = -1, FCurFoldEnd = -1, FOldDocMapLine = -1,
      FHintLeft = -1;

  // Colours.
  TColor FBkColor = 0xFFFFFF, FSelColor = 0xFFFFFF, FThemeLight = 0xFFFFFF, FHexGutterColor = 0xFFFFFF,
         FDocumentMapBkColor = 0xFFFFFF;
  TColor FSelBkColor = 0x800000, FHexGutterTextColor = 0x800000;
  TColor FThemeDark = TColor(0xFF000000u | 27);
  TColor FNodeColor = 0xF0A080;
  TColor FRgnColor = 0x808080, FBlockLineColor = 0x808080, FHexAnsiColor = 0x808080,
         FHexGutterCurrentLineColor = 0x808080;
  TColor FLineHighlightColor = 0xF0FBFF;
  TColor FTagHighlightColor = RGB(0, 200, 255);
  TColor FSyncEditBkColor = 0xFFFCE0;
  TColor FRightMarginColor = 0xE2E2E2;
  TMarginLineType FRightMarginLine = mSolid;
  TColor FHighlightFindColor = RGB(255, 120, 0), FHighlightFindTextColor = 0xFFFFFF;
  TColor FHighlightSelectionColor = RGB(80, 180, 80), FHighlightSelectionTextColor = 0xFFFFFF;
  TColor FHighlightWordsColor = 0x0000FF, FHighlightWordsTextColor = 0x00FFFF;
  TColor FAutoHighlightWordsColor = 0x008000, FAutoHighlightWordsTextColor = 0xFFFFFF;
  TColor FSpellLineColor = 0x0000FF;
  int FSpellLineWidth = 1;

  // Brace, tag and bookmark marks.
  TBracePoint FLeftBrace, FRightBrace;
  TTagPosData FTagPosData;
  std::array<bool, 10> FBookmarkList{};
  std::array<int, 21> FTaglines;

  // Scratch buffers, kept so that painting and measuring allocate nothing per line.
  std::u16string FS, FST, FWT, FSD, FCW, FWB, FWC, FSUC, FFindBuf, FSW, FBuffer;

  std::u16string FDataFolder;
  /// The spelling language the host names when the memo gets the focus.
  std::u16string FSpellLanguage;

  static constexpr TColor RGB(int r, int g, int b) { return TColor(r | (g << 8) | (b << 16)); }

protected:
  /// The undo list that edits go to: a split slave's is its master's.
  TOrlUndoList& InternalUndoList();
  void StopTimer(TMemoTimer timer) { FWindow->StopTimer(timer); }

private:
  // ---- Caret, selection, keyboard, mouse and scrolling: helpers (begin) ----
  /// Caret motion without virtual space: under wrap or the notepad model.
  bool NoVirtualSpace() const { return FWordWrap || FForceWrap || FNotepadCursor; }
  bool Extending(TShiftState shift) const;
  /// Ends a motion: grows the selection when the motion extends, else collapses it.
  void ExtendOrClear(bool bExtend, bool bSetOldCurX);
  /// The word-motion class of a character: 0 blank, 1 delimiter, 2 word.
  int WordClass(char16_t ch) const;
  void ArrowKey(int Key, TShiftState shift);
  bool ShortcutKey(int Key, TShiftState shift);
  bool EditingKey(int Key, TShiftState shift);
  void NoteNavigationStop();
  /// The vertical bar's range and position for the current top line.
  TScrollInfo VerticalBar();
  void ScrollHorizontally(int x);
  void ScrollVertically();
  void SelectWordAt(TFullPos pos, bool bAlt);
  void SelectRealLine(int line);
  void DragSelectTo(int x, int y);
  void AutoScrollTick();
  /// Holding the middle button scrolls toward the mouse, the faster the
  /// further it is from where the button went down.
  void StartPanning(int x, int y);
  void StopPanning();
  void PanTick();
  TFullPos ClampToStore(TFullPos pos);
  void NotifySelectionChange() { if (OnSelectionChange) OnSelectionChange(false); }
  /// Runs a clipboard access, trying again while another program holds the
  /// clipboard; false, after telling the user, when it never got it.
  bool AccessClipboard(const std::function<bool()>& access);
  /// What a copy takes; bWholeLine says the text is the caret's whole line.
  std::u16string CopyText(bool& bWholeLine);
  /// Gives clipboard text to the paste; nothing for an empty text.
  void PasteClipboardText(std::u16string text, bool bInsertAtBOL);
  int FScrollRefY = -1;  ///< the row the view must show: the caret's, shifted by the scroll margin
  // ---- Caret, selection, keyboard, mouse and scrolling: helpers (end) ----

  // ---- Text commands: helpers (begin) ----
  /// Hands the record of an edit to the undo list.
  void AddUndo(std::unique_ptr<TUndo> record);
  /// Fills a record's positions from the caret before and after an edit.
  void FillUndo(TUndo& record, int x0, int y0, int x, int y, std::u16string text);
  /// A row's text changed: its history steps on and it is redrawn.
  void RowEdited(int line);
  /// A piece inserted after `head` with its tabs expanded unless tabs are kept.
  std::u16string TabsForInsert(std::u16string_view head, std::u16string_view piece) const;
  /// Writes AValue into the store at (x, y), padding virtual space; FCurX
  /// takes the column behind it. Returns the row where it ends.
  int SpliceLines(int x, int y, std::u16string_view AValue, bool bEnter);
  void DeleteInRow(int line, int x, int count, int x0, int y0, bool bBackspace);
  void JoinWithNextRow(int line, int x, int x0, int y0, bool bBackspace);
  /// The column of the nearest row above `line` indented less than visual column vx; 0 for none.
  int PreviousIndentation(int line, int vx);
  bool SmartBackspace();
  /// What typing C inserts at the caret: a tab may become blanks.
  std::u16string TypedText(char16_t C) const;
  /// The visual column the smart tab goes to, -1 for none.
  int SmartTabTarget();
  /// The indentation Enter carries to the new row.
  std::u16string AutoIndentText();
  /// Notes a keypad digit typed with Alt; any other key ends the code.
  bool CollectAltCodeDigit(int Key, TShiftState mods);
  /// The text an Alt code's digits stand for; empty for none.
  static std::u16string AltCodeText(std::u16string_view digits, bool bIsASCII, bool bBinaryMode);
  /// Rows a block command works on: a selection that ends at column 0 leaves its last row out.
  struct TBlockRows {
    int First = 0, Last = 0;
  };
  TBlockRows SelectedBlockRows();
  /// Not a filler row, a continuation row or an empty row.
  bool BlockRowTakesPart(int line);
  /// Moves the selection's ends and the caret by the characters each row of
  /// the block gained (or lost); ends at column 0 stay.
  void ShiftSelectionColumns(const std::vector<int>& shifts, int firstRow, bool bFullLines);
  /// In text-diff mode a row of the range only fills a gap of the other side: row commands stop.
  bool HasFillerRow(int first, int last);
  /// Rows first to last, joined by CR LF.
  std::u16string RowsText(int first, int last);
  /// The comment marks for the caret's place: start, and end for a block pair.
  bool CommentMarks(std::u16string& start, std::u16string& end, bool& bWholeRows);
  /// The scan state at the caret, for the hooks that must not act in comments or strings.
  TStyleProperties StateAtCaret();
  bool BraceStateAllows();
  /// What a block comment wraps: the selection, else the row's text without its outer blanks.
  TOrderedSelection CommentRange();
  /// Each word's first letter in title case, the others in lower case.
  std::u16string Capitalized(std::u16string_view text) const;
  /// Ends a command over a block of rows: the record gets the caret before
  /// and after and the rows, goes to the undo list, and the rows rescan and repaint.
  void AddBlockUndo(std::unique_ptr<TUndo> record, int x0, int y0, int firstRow, int lastRow, std::u16string text);
  /// A blank, Tab or Enter ends the word left of the caret: the host may
  /// replace it (OnWordComplete).
  void CompleteWord();
  // ---- Text commands: helpers (end) ----

  void HookStore(TOrlMemoStrings& store);
  /// Rows are pieces of longer lines: soft wrap is on.
  bool RowsAreWrapped() const;
  void ApplyForceWrap();
  /// The row with control characters substituted, padded with blanks to `upTo`, in FBuffer.
  std::u16string_view PaddedRow(std::u16string_view row, int upTo);
  /// The row laid out as the toolkit shapes it: the trailing edge of character CharX - 1.
  int MeasureComplex(std::u16string_view row, int CharX);
  /// Real line number of a row, from the store's running counts.
  int RealLineOfRow(int line);
  /// Shown rows from `from` up to `to` (exclusive), negative when `to` lies above.
  int ShownRowsBetween(int from, int to);
  /// The line `count` shown rows away from `from`, clamped to the store.
  int StepShownLines(int from, int count);
  /// No character above 255 and no tab: measured by multiplication, never analysed.
  bool RowIsPlainAnsi(std::u16string_view row) const;
  void AssignScratchBuffers();
  /// Applies the font to the measuring canvas and derives the cell.
  void MeasureFont(const TMemoFont& font);

  std::unique_ptr<THeadlessWindow> FOwnWindow;
  IMemoWindow* FWindow;
};

class TOrlMemo : public TOrlCustomMemo {
public:
  explicit TOrlMemo(IMemoWindow* window = nullptr, std::u16string szDataFolder = u"");

  void LinesChanged(bool bRedraw, bool bNew, bool SetCaret) override;
  /// Also marks the annotation bar for its next paint.
  void Invalidate() override;
  /// Clears the undo list and every row's line history.
  void ClearUndoRedoAndLineHistory();
  /// Undoes or redoes until the list's position is `n`, with the window's
  /// updates held until the end.
  void RevertTo(int n);

  bool FAddToMRU = true, FShowLineChanges = true, FMonitorLogFileFollowTail = true,
       FTabShouldExpandAbbreviations = true;
  bool FUpdateAnnotationBar = false;
  int FMaxBackupFiles = 3;
  int FCodeExplorerView = -1, FInBrackets = -1, FClipStartLine = -1, FClipEndLine = -1, FClipTabIndex = -1;
  TColor FBookmarkColor = RGB(200, 220, 255);
  TColor FLineChangedColor = 0x00FFFF, FLineChangedSavedColor = 0x00FF00;
  int Width = 350, Height = 250;
};

} // namespace orl
