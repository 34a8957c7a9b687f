#pragma once
// The brackets that make several records one undo step. A macro run and a
// multi-caret edit are bracketed by a start and an end record in the list
// itself; a script keeps its edits inside its start record, so that the
// whole script takes one place in the list.

#include <memory>
#include <vector>

#include "editing/MemoOwnedParts.h"
#include "editing/UndoRecord.h"

namespace orl {

class TMacroStartUndo final : public TUndo {
public:
  TMacroStartUndo() : TUndo(TUndoKind::MacroStart) {}
};

class TMacroEndUndo final : public TUndo {
public:
  TMacroEndUndo() : TUndo(TUndoKind::MacroEnd) {}
};

class TScriptStartUndo final : public TUndo {
public:
  TScriptStartUndo() : TUndo(TUndoKind::ScriptStart) {}

  /// Takes over an edit of the script, the newest last.
  void AddItem(std::unique_ptr<TUndo> item);
  int ItemCount() const { return static_cast<int>(FItems.size()); }
  TUndo& Item(int index) const { return *FItems[static_cast<size_t>(index)]; }
  /// Measures the edits again: undoing a record can change what it holds.
  void RemeasureItems();
  size_t ByteSize() const override { return TUndo::ByteSize() + FItemBytes; }

private:
  std::vector<std::unique_ptr<TUndo>> FItems;
  size_t FItemBytes = 0;
};

/// Closes a script group in the list's Add; never stored.
class TScriptEndUndo final : public TUndo {
public:
  TScriptEndUndo() : TUndo(TUndoKind::ScriptEnd) {}
};

/// A bracket of a multi-caret edit with the carets as they stood at it.
class TMultiEditUndo : public TUndo {
public:
  using TUndo::TUndo;
  /// Keeps copies of the carets.
  void SetCursorList(const std::vector<std::unique_ptr<TMultiCursorPos>>& ls);
  /// Rebuilds the memo's carets from the copies; the last one also becomes
  /// the memo's caret and selection.
  void RestoreCursorList(TOrlCustomMemo& memo) const;
  size_t ByteSize() const override { return TUndo::ByteSize() + FCursorList.capacity() * sizeof(TMultiCursorPos); }

  std::vector<TMultiCursorPos> FCursorList;
};

class TMultiEditStartUndo final : public TMultiEditUndo {
public:
  TMultiEditStartUndo() : TMultiEditUndo(TUndoKind::MultiEditStart) {}
};

class TMultiEditEndUndo final : public TMultiEditUndo {
public:
  TMultiEditEndUndo() : TMultiEditUndo(TUndoKind::MultiEditEnd) {}
};

} // namespace orl
