#pragma once
// The records that the text commands leave: what each edit needs to be
// reversed and repeated. Typed characters and deleted characters merge into
// the newest record of their kind while the edits follow on from each other,
// so that a word typed or rubbed out is one step.

#include <string>
#include <vector>

#include "editing/UndoRecord.h"

namespace orl {

/// Characters typed with no selection; UndoText holds them.
class TInsertCharUndo : public TUndo {
public:
  TInsertCharUndo() : TUndo(TUndoKind::InsertChar) {}
  /// Takes a typed character that starts where this record ends.
  bool Append(TUndo& next) override;
};

/// Characters written over in overwrite mode; UndoText holds the old ones.
class TOverwriteCharUndo : public TUndo {
public:
  TOverwriteCharUndo() : TUndo(TUndoKind::OverwriteChar) {}
};

/// Characters removed by Delete or Backspace; "\r" stands for a joined line end.
class TDeleteCharUndo : public TUndo {
public:
  TDeleteCharUndo() : TUndo(TUndoKind::DeleteChar) {}
  /// Takes a deletion of the same key that starts where this record ends:
  /// a Backspace puts its text in front, a Delete behind.
  bool Append(TUndo& next) override;
  bool FIsBackspace = false;
};

/// A deleted selection, kept in FUnicodeText.
class TDeleteBufUndo : public TSelUndo {
public:
  TDeleteBufUndo() : TSelUndo(TUndoKind::DeleteBuf) {}
};

/// Text inserted where nothing was selected (paste, Enter, a typed tab);
/// FUnicodeText holds it.
class TPasteUndo : public TUndo {
public:
  TPasteUndo() : TUndo(TUndoKind::Paste) {}
};

/// Text that replaced a selection: UndoText the inserted text, FUnicodeText
/// the replaced one.
class TReplaceUndo : public TSelUndo {
public:
  TReplaceUndo() : TSelUndo(TUndoKind::Replace) {}
  bool FOverwriteReplace = false;
  bool FOverwritePasteMode = false;
};

/// Rows indented as a block: UndoText the count of blanks, or "$" for one
/// tab; UndoPos0 and UndoPos the first and last row.
class TBlockIndentUndo : public TUndo {
public:
  TBlockIndentUndo() : TUndo(TUndoKind::BlockIndent) {}
};

/// Rows unindented as a block: what was taken from each row of the block in
/// turn.
class TBlockUnIndentUndo : public TUndo {
public:
  /// Stands in FRemoved for a row that lost one tab.
  static constexpr int kTab = -1;
  TBlockUnIndentUndo() : TUndo(TUndoKind::BlockUnIndent) {}
  /// The entries as one text: "n;" for n blanks, "$;" for a tab, "0;" for nothing.
  std::u16string EntriesText() const;
  std::vector<int> FRemoved;
};

/// Comment marks put in: FStartString, and FEndString for a block pair.
class TBlockCommentUndo : public TUndo {
public:
  TBlockCommentUndo() : TUndo(TUndoKind::BlockComment) {}
};

/// Comment marks taken out: the rows that lost a line comment, or the
/// places of a block pair.
class TBlockUnCommentUndo : public TUndo {
public:
  TBlockUnCommentUndo() : TUndo(TUndoKind::BlockUnComment) {}
  std::vector<int> FLines;
  int FStartX = -1, FStartY = -1, FEndX = -1, FEndY = -1;
};

/// A row inserted whole; UndoText holds it, UndoCurY its row.
class TInsertLineUndo : public TUndo {
public:
  TInsertLineUndo() : TUndo(TUndoKind::InsertLine) {}
};

/// Rows deleted whole; UndoText holds them joined by CR LF.
class TDeleteLineUndo : public TSelUndo {
public:
  TDeleteLineUndo() : TSelUndo(TUndoKind::DeleteLine) {}
};

/// Trailing blanks cut from row UndoCurY0; UndoText holds them.
class TRemoveTrailingUndo : public TSelUndo {
public:
  TRemoveTrailingUndo() : TSelUndo(TUndoKind::RemoveTrailing) {}
};

} // namespace orl
