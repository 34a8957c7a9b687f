#pragma once
// One undoable edit. The command that makes an edit fills a record with what
// is needed to reverse and repeat it; the undo list owns the records, merges
// typed characters and walks them. Each record class knows its own reversal
// (PerformUndo / PerformRedo); the frame around them (Undo / Redo) converts
// the stored positions to the current wrapping and places the caret.
//
// Positions are held unwrapped (real line, column in the real line), since
// wrapping may change between an edit and its undo.

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "editing/ZippedText.h"

namespace orl {

class TOrlCustomMemo;

/// Every class of record. The three-digit action code each carries is in
/// UndoActionCode.
enum class TUndoKind : uint8_t {
  InsertChar, OverwriteChar, DeleteChar, DeleteLine, InsertLine, DeleteBuf, ColDeleteBuf,
  Paste, ColPaste, Replace, ColReplace, ReplaceAll, BlockComment, BlockUnComment,
  BlockIndent, BlockUnIndent, MoveLinesUp, MoveLinesDown, SplitLines, JoinLines,
  DeleteBlankLines, CompressLines, DeleteTrailingBlankLines, DeleteLines, DelBookmarkedLines,
  DuplicateLinesEx, RemoveTrailing, AlignColumns, IndentByFold, Sort, ConvertCodepage,
  CopyDiffLines, DiffMode, EnterHexEdit, MacroStart, MacroEnd, ScriptStart, ScriptEnd,
  MultiEditStart, MultiEditEnd,
};

/// The class name as the debug line and `gdtool memo`'s `print undo` show it,
/// e.g. "TInsertCharUndo".
const char* UndoClassName(TUndoKind kind);
/// The three-digit code of the kind of edit; empty for the classes without one.
const char* UndoActionCode(TUndoKind kind);

/// Row state of a filler row in text-diff mode that an edit removed.
struct TDiffInfo {
  int Line = 0;
  bool Enabled = true;
  int Kind = 0;
};

class TUndo {
public:
  explicit TUndo(TUndoKind kind) : FKind(kind) {}
  virtual ~TUndo() = default;
  TUndo(const TUndo&) = delete;
  TUndo& operator=(const TUndo&) = delete;

  TUndoKind Kind() const { return FKind; }

  /// Fills the positions (converted to unwrapped positions on `memo`) and
  /// the text, and keeps the copies that each run restores.
  void SetUndoData(TOrlCustomMemo& memo, int APos0, int APos, int curx0, int cury0, int curx, int cury,
                   std::u16string AText, bool bColumn);

  /// Merges `next`, the record made by the edit that follows, into this one
  /// and gives true; the list then drops `next`. Only the character records
  /// merge.
  virtual bool Append(TUndo& next) { (void)next; return false; }

  /// The frame around PerformUndo / PerformRedo: converts the stored
  /// positions to the current wrapping, places the caret before and after,
  /// runs the record in its own column mode with the store's change handler
  /// detached, and puts the stored positions back on every path.
  virtual void Undo(TOrlCustomMemo& memo);
  virtual void Redo(TOrlCustomMemo& memo);

  /// The short label the debug line shows: the first of UnicodeText,
  /// "start ... end", StartString and UndoText that isn't empty, cut to 16
  /// characters. A record that merged another sets it again.
  void UpdateActionText();

  /// The long text of the edit, compressed when long; an empty text clears it.
  const std::u16string& ZipText() const { return FZipText.Text(); }
  void SetZipText(std::u16string text) { FZipText.Assign(std::move(text)); }

  /// Bytes of memory the record holds, for the undo list's budget.
  virtual size_t ByteSize() const;

  /// How many records merged into this one; each moved the save mark by
  /// one step, so undoing and redoing the record moves it as many more.
  int FMergedSteps = 0;

  // Positions, unwrapped; the FOld copies are put back after each run.
  int FUndoCurX0 = 0, FUndoCurY0 = 0, FUndoCurX = 0, FUndoCurY = 0;
  int FOldUndoCurX0 = 0, FOldUndoCurY0 = 0, FOldUndoCurX = 0, FOldUndoCurY = 0;
  /// Selection before the edit; -1 rows when there was none.
  int FUndoSelStartX = -1, FUndoSelStartY = -1, FUndoSelEndX = -1, FUndoSelEndY = -1;
  int FOldUndoSelStartX = -1, FOldUndoSelStartY = -1, FOldUndoSelEndX = -1, FOldUndoSelEndY = -1;
  /// Text offsets before and after; block commands keep real rows here.
  int FUndoPos0 = 0, FUndoPos = 0;

  std::u16string FUndoText;
  /// Long text kept whole (see FZipText for the compressed form).
  std::u16string FUnicodeText;
  std::u16string FStartString, FEndString;
  std::u16string FActionText;

  bool FColumn = false;
  bool FAllColumns = false, FAllLines = false;
  int FAddedLines = 0;
  bool FDragDrop = false;
  bool FInsertAtBOL = false;
  bool FDiffSyncChange = false;
  bool FDiffEnabledLocal = true, FDiffEnabledRemote = true;
  int FDiffKindLocal = 0, FDiffKindRemote = 0;
  std::vector<TDiffInfo> FDisabledLines;
  bool FExpandAbbreviation = false, FInsideAbbreviation = false;
  int FExpandAbbreviationStart = -1, FExpandAbbreviationEnd = -1, FExpandAbbreviationTabs = 0;
  bool FSavePoint = false;
  /// The memo that owns the record; a split slave gives its master.
  TOrlCustomMemo* FMasterMemo = nullptr;
  TZippedText FZipText;

protected:
  virtual void PerformUndo(TOrlCustomMemo& memo) { (void)memo; }
  virtual void PerformRedo(TOrlCustomMemo& memo) { (void)memo; }
  /// The frame's caret placement after PerformUndo; the records that place
  /// the caret themselves (a replacement, a restored deletion) skip it.
  bool PlacesCaretItself() const { return FKind == TUndoKind::Replace || FKind == TUndoKind::DeleteBuf; }

private:
  /// The stored positions converted to the memo's current rows.
  void WrapPositions(TOrlCustomMemo& memo);
  /// Puts the FOld copies back over the working positions.
  void RestorePositions();
  /// Runs PerformUndo (bUndo) or PerformRedo in the record's column mode,
  /// with the memo's line history told which of the two it is.
  void Perform(TOrlCustomMemo& memo, bool bUndo);

  TUndoKind FKind;
};

/// The memo a record or list runs in, from the memo that owns it: a split
/// view attached to it when that view has the focus or a selection, else
/// the owner itself.
TOrlCustomMemo& RunningMemo(TOrlCustomMemo& master);

/// Records whose edit is defined by a selection.
class TSelUndo : public TUndo {
public:
  using TUndo::TUndo;
  /// Fills the selection fields unwrapped and copies them to the FOld fields.
  void SetSelection(TOrlCustomMemo& memo, int StartX, int StartY, int EndX, int EndY);

  bool FUndoBackspace = false, FUndoDelChar = false;
};

} // namespace orl
