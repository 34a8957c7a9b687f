// The undo list and the record frame, with records of the tests' own that
// edit the text through the memo's row operations as the text commands do:
// merging, the save mark, the limits, the groups, the drag pair, and the
// frame's caret placement and restoring.

#include <gtest/gtest.h>

#include <random>
#include <stdexcept>

#include "editing/HeadlessWindow.h"
#include "editing/OrlMemo.h"
#include "editing/UndoGroups.h"

namespace orl {
namespace {

/// Text typed at a position of one row, or (bDeleted) taken out there. The
/// text goes out on the left of the caret, where the frame puts it after a
/// typing, and comes in at the caret.
class TTypedUndo final : public TUndo {
public:
  TTypedUndo(TOrlCustomMemo& memo, int x, int y, std::u16string text, TUndoKind kind = TUndoKind::InsertChar,
             bool bDeleted = false)
      : TUndo(kind), bDeletion(bDeleted) {
    const int end = bDeleted ? x : x + int(text.size());
    SetUndoData(memo, 0, 0, x, y, end, y, std::move(text), false);
  }
  ~TTypedUndo() override {
    if (FFreed) ++*FFreed;
  }

  /// The merge rule of typed characters: the next begins where this ends.
  bool Append(TUndo& next) override {
    if (Kind() != TUndoKind::InsertChar || next.Kind() != Kind() || next.FUndoCurY0 != FUndoCurY ||
        next.FUndoCurX0 != FUndoCurX)
      return false;
    FUndoText += next.FUndoText;
    FUndoCurX = FOldUndoCurX = next.FUndoCurX;
    UpdateActionText();
    return true;
  }

  int* FFreed = nullptr;
  /// Runs inside PerformUndo, to look at the memo while the record runs.
  std::function<void(TOrlCustomMemo&)> OnPerform;

protected:
  void PerformUndo(TOrlCustomMemo& memo) override {
    if (OnPerform) OnPerform(memo);
    if (bDeletion) InsertAtCaret(memo);
    else RemoveFrom(memo, memo.CurX() - int(FUndoText.size()));
  }
  void PerformRedo(TOrlCustomMemo& memo) override {
    if (bDeletion) RemoveFrom(memo, memo.CurX());
    else InsertAtCaret(memo);
  }

private:
  void InsertAtCaret(TOrlCustomMemo& memo) {
    std::u16string row = memo.GetLineText(memo.CurY());
    row.insert(size_t(memo.CurX()), FUndoText);
    memo.SetLineText(memo.CurY(), row);
  }
  void RemoveFrom(TOrlCustomMemo& memo, int start) {
    std::u16string row = memo.GetLineText(memo.CurY());
    if (start < 0 || row.compare(size_t(start), FUndoText.size(), FUndoText) != 0)
      throw std::runtime_error("the caret does not stand at the record's text");
    row.erase(size_t(start), FUndoText.size());
    memo.SetLineText(memo.CurY(), row);
  }

  bool bDeletion;
};

class UndoList : public ::testing::Test {
protected:
  UndoList() {
    memo.SetText(u"");
    memo.OnUndoChange = [this](bool bCanUndo, bool bCanRedo) {
      ++undoChanges;
      lastCanUndo = bCanUndo;
      lastCanRedo = bCanRedo;
    };
  }

  TOrlUndoList& List() { return *memo.FUndoList; }
  int Mark() { return List().FSavePosIndex; }

  /// Types text at the caret as the text command does: the row changes,
  /// then its record goes to the list.
  int Type(std::u16string text, TUndoKind kind = TUndoKind::InsertChar) {
    const int x = memo.CurX(), y = memo.CurY();
    std::u16string row = memo.GetLineText(y);
    row.insert(size_t(x), text);
    memo.SetLineText(y, row);
    memo.SetCursor(x + int(text.size()), y, false);
    return List().Add(std::make_unique<TTypedUndo>(memo, x, y, std::move(text), kind));
  }
  void TypeChars(std::u16string_view text) {
    for (char16_t ch : text) Type(std::u16string(1, ch));
  }

  THeadlessWindow window;
  TOrlMemo memo{&window};
  int undoChanges = 0;
  bool lastCanUndo = false, lastCanRedo = false;
};

TEST_F(UndoList, TypedCharactersMergeAndTheMarkCountsEachOne) {
  TypeChars(u"abc");
  EXPECT_EQ(List().Count(), 1);
  EXPECT_EQ(Mark(), 3);
  EXPECT_EQ(List().Get(0).FActionText, u"abc");
  memo.Undo();
  EXPECT_EQ(memo.Text(), u"");
  EXPECT_EQ(Mark(), 0);  // back to the state the list began in
  EXPECT_FALSE(memo.Modified());
  EXPECT_EQ(memo.CurX(), 0);  // the caret goes to where the edit began
  memo.Redo();
  EXPECT_EQ(memo.Text(), u"abc");
  EXPECT_EQ(Mark(), 3);
  EXPECT_EQ(memo.CurX(), 3);

  // A caret move between two characters starts a new record; so does a
  // record of another class, which never merges.
  memo.SetCursor(1, 0, false);
  Type(u"x");
  Type(u"y", TUndoKind::Paste);
  Type(u"z");
  EXPECT_EQ(List().Count(), 4);
  memo.Undo();
  memo.Undo();
  EXPECT_EQ(memo.Text(), u"axbc");
}

TEST_F(UndoList, SaveMarkSequences) {
  // Save, Undo, type: the saved state is gone from the history.
  Type(u"a");
  memo.Saved();
  memo.Undo();
  EXPECT_EQ(Mark(), -1000);
  EXPECT_TRUE(memo.Modified());
  Type(u"a");
  EXPECT_EQ(Mark(), -10000);
  EXPECT_EQ(memo.Text(), u"a");
  EXPECT_TRUE(memo.Modified());  // the same text again is still no saved state
  memo.Undo();
  memo.Redo();
  EXPECT_TRUE(memo.Modified());

  // Save, Undo, Redo: back to the saved state.
  memo.Saved();
  memo.Undo();
  EXPECT_EQ(Mark(), -1000);
  memo.Redo();
  EXPECT_EQ(Mark(), 0);
  EXPECT_FALSE(memo.Modified());

  // Characters merged across a save can't be undone back to it alone.
  memo.SetText(u"");
  memo.ClearUndoList();
  memo.SetCursor(0, 0, false);
  Type(u"a");
  memo.Saved();
  TypeChars(u"bc");
  EXPECT_EQ(Mark(), 2);
  memo.Undo();
  EXPECT_EQ(memo.Text(), u"");
  EXPECT_EQ(Mark(), -1000);
  memo.Redo();
  EXPECT_EQ(Mark(), 2);

  // An undo that passes the saved state inside a merged record lands below
  // it, and typing from there never finds it again.
  memo.SetText(u"");
  memo.ClearUndoList();
  memo.SetCursor(0, 0, false);
  TypeChars(u"ab");
  memo.Saved();
  Type(u"c");
  memo.Undo();
  EXPECT_EQ(Mark(), -1001);
  TypeChars(u"xy");
  EXPECT_TRUE(memo.Modified());
}

TEST_F(UndoList, RandomEditsNeverReadUnmodifiedAwayFromTheSavedText) {
  std::mt19937 random(20261124);
  const auto pick = [&](int n) { return int(random() % unsigned(n)); };
  List().SetLimit(1000);
  std::u16string saved = memo.Text(), newest = saved;
  for (int step = 0; step < 400; ++step) {
    switch (pick(6)) {
      case 0: memo.Undo(); break;
      case 1: memo.Redo(); break;
      case 2:
        memo.Saved();
        saved = memo.Text();
        break;
      case 3: memo.SetCursor(pick(int(memo.GetLineText(0).size()) + 1), 0, false); break;
      default: Type(std::u16string(1, char16_t(u'a' + pick(3))), pick(4) ? TUndoKind::InsertChar : TUndoKind::Paste);
    }
    if (List().FPos == 0) newest = memo.Text();
    if (!memo.Modified()) {
      ASSERT_EQ(memo.Text(), saved) << "step " << step;
    }
  }
  while (memo.CanUndo()) memo.Undo();
  EXPECT_EQ(memo.Text(), u"");
  while (memo.CanRedo()) memo.Redo();
  EXPECT_EQ(memo.Text(), newest);
}

TEST_F(UndoList, AKeystrokeMergedAfterASaveStillNeedsASave) {
  TypeChars(u"abc");
  memo.Saved();
  EXPECT_EQ(List().FSavePos, List().FPos);  // nothing to write
  Type(u"d");
  EXPECT_EQ(List().Count(), 1);  // merged into the record made before the save
  EXPECT_NE(List().FSavePos, List().FPos);
  EXPECT_TRUE(memo.Modified());
}

TEST_F(UndoList, AnEditWithoutARecordCountsUntilTheNextStep) {
  Type(u"a");
  memo.Saved();
  memo.SetLineText(0, u"changed");  // no record covers it
  EXPECT_TRUE(memo.Modified());
  memo.SetModified(false);
  EXPECT_FALSE(memo.Modified());
  // A host that sets the document changed moves the mark away from 0.
  memo.SetModified(true);
  EXPECT_TRUE(memo.Modified());
  memo.Saved();
  EXPECT_FALSE(memo.Modified());
}

TEST_F(UndoList, LimitDropsTheOldestAndAChangeEmptiesTheList) {
  for (int i = 0; i < 101; ++i) {
    memo.SetCursor(0, 0, false);  // no merge
    Type(u"x");
  }
  EXPECT_EQ(List().Count(), 100);
  EXPECT_EQ(Mark(), 101);  // the mark keeps its count
  for (int i = 0; i < 100; ++i) memo.Undo();
  EXPECT_EQ(memo.Text(), u"x");  // the first edit can no longer be undone
  EXPECT_TRUE(memo.Modified());

  List().SetLimit(5);
  EXPECT_EQ(List().FLimit, 10);
  EXPECT_EQ(List().Count(), 0);
  EXPECT_EQ(Mark(), 0);
  Type(u"y");
  List().SetLimit(10);  // the same value keeps the records
  EXPECT_EQ(List().Count(), 1);
}

TEST_F(UndoList, ByteBudgetDropsTheOldestButKeepsTheNewest) {
  const std::u16string big(10000, u'b');
  Type(u"a");
  memo.SetCursor(0, 0, false);
  Type(big, TUndoKind::Paste);
  const size_t bytes = List().ByteSize();
  EXPECT_GT(bytes, big.size() * sizeof(char16_t));
  List().SetByteBudget(bytes - 1);  // too small for both
  EXPECT_EQ(List().Count(), 1);
  EXPECT_EQ(List().Get(0).Kind(), TUndoKind::Paste);
  memo.SetCursor(0, 0, false);
  Type(big + big, TUndoKind::Paste);  // alone above the budget: kept
  EXPECT_EQ(List().Count(), 1);
  EXPECT_EQ(List().Get(0).FUndoText.size(), 2 * big.size());
  // Merged characters grow the record's measure.
  List().SetByteBudget(TOrlUndoList::kDefaultByteBudget);
  memo.SetCursor(0, 0, false);
  Type(u"c");
  const size_t before = List().ByteSize();
  TypeChars(std::u16string(100, u'd'));
  EXPECT_GE(List().ByteSize(), before + 100 * sizeof(char16_t));
  List().Clear();
  EXPECT_EQ(List().ByteSize(), 0u);
}

TEST_F(UndoList, WhileARecordRunsANestedAddIsDroppedAndTheRecordsModeHolds) {
  Type(u"a");
  List().Get(0).FColumn = true;
  int freed = 0;
  int result = 0;
  static_cast<TTypedUndo&>(List().Get(0)).OnPerform = [&](TOrlCustomMemo& m) {
    EXPECT_TRUE(List().FIsPerforming);
    EXPECT_TRUE(m.ColumnMode());
    EXPECT_FALSE(m.FAutoIndent);  // a line break typed again must not indent
    EXPECT_TRUE(m.FChangeHistoryUndo);
    auto nested = std::make_unique<TTypedUndo>(m, 0, 0, u"n");
    nested->FFreed = &freed;
    result = List().Add(std::move(nested));
  };
  memo.Undo();
  EXPECT_EQ(result, -1);
  EXPECT_EQ(freed, 1);
  EXPECT_EQ(List().Count(), 1);
  EXPECT_FALSE(List().FIsPerforming);
  EXPECT_TRUE(memo.FAutoIndent);
  EXPECT_FALSE(memo.FChangeHistoryUndo);
  EXPECT_FALSE(memo.ColumnMode());
}

TEST_F(UndoList, AFailingRecordStaysAndEverythingIsPutBack) {
  memo.SetText(u"abc");
  memo.SetCursor(3, 0, false);
  Type(u"d");
  memo.SetLineText(0, u"zzzz");  // the record no longer matches the text
  TUndo& record = List().Get(0);
  const int x0 = record.FUndoCurX0;
  EXPECT_THROW(memo.Undo(), std::runtime_error);
  EXPECT_EQ(List().FPos, 0);
  EXPECT_EQ(record.FUndoCurX0, x0);
  EXPECT_FALSE(List().FIsPerforming);
  EXPECT_TRUE(memo.FAutoIndent);
  EXPECT_FALSE(memo.FChangeHistoryUndo);
  EXPECT_TRUE(bool(memo.InternalLines().OnChange));  // hooked up again
  memo.SetLineText(0, u"abcd");
  memo.Undo();
  EXPECT_EQ(memo.Text(), u"abc");
}

TEST_F(UndoList, ARecordKeepsRealLinePositionsWhileWrappingChanges) {
  memo.SetText(u"abcd\r\nef");
  memo.SetCursor(4, 0, false);
  Type(u"X");
  // Wrapping comes on after the edit: the first line now shows as two rows.
  memo.SetText(u"abc\r\ndX\r\nef");
  memo.SetWrapped(1, true);
  memo.FWordWrap = true;
  memo.Undo();
  EXPECT_EQ(memo.GetLineText(1), u"d");
  EXPECT_EQ(memo.CurX(), 1);
  EXPECT_EQ(memo.CurY(), 1);
  const TUndo& record = List().Get(0);
  EXPECT_EQ(record.FUndoCurX0, 4);  // the real-line positions stay for the next run
  EXPECT_EQ(record.FUndoCurY0, 0);
  EXPECT_EQ(record.FUndoCurX, 5);
  memo.Redo();
  EXPECT_EQ(memo.GetLineText(1), u"dX");
  EXPECT_EQ(memo.CurX(), 2);
  EXPECT_EQ(memo.CurY(), 1);
}

TEST_F(UndoList, AnUndoOnAFoldedRowOpensItOrStopsAboveIt) {
  memo.SetText(u"head\r\nbody\r\nend");
  memo.SetCursor(4, 1, false);
  Type(u"X", TUndoKind::Paste);
  Type(u"Y", TUndoKind::Paste);
  memo.InternalLines().SetHiddenLine(1, true);
  std::vector<int> opened;
  memo.Hooks.OpenNodesOnHiddenLine = [&](int line) {
    opened.push_back(line);
    memo.InternalLines().SetHiddenLine(line, false);
  };
  memo.Undo();
  EXPECT_EQ(opened, std::vector<int>{1});
  EXPECT_EQ(memo.GetLineText(1), u"bodyX");
  EXPECT_EQ(memo.CurX(), 5);
  EXPECT_EQ(memo.CurY(), 1);
  // A row that is folded after the record ran leaves the caret at the end of the shown row above.
  static_cast<TTypedUndo&>(List().Get(1)).OnPerform = [&](TOrlCustomMemo& m) {
    m.InternalLines().SetHiddenLine(1, true);
  };
  memo.Undo();
  EXPECT_EQ(memo.GetLineText(1), u"body");
  EXPECT_EQ(memo.CurY(), 0);
  EXPECT_EQ(memo.CurX(), 4);
}

TEST_F(UndoList, AScriptGroupIsOneStepUndoneInReverse) {
  List().Add(std::make_unique<TScriptStartUndo>());
  Type(u"a");
  memo.SetCursor(0, 0, false);
  Type(u"b");  // "ba": undone before "a", or the caret check fails
  Type(u"c", TUndoKind::Paste);
  EXPECT_EQ(List().Add(std::make_unique<TScriptEndUndo>()), 0);
  EXPECT_FALSE(List().FScriptUndo);
  ASSERT_EQ(List().Count(), 1);
  EXPECT_EQ(static_cast<TScriptStartUndo&>(List().Get(0)).ItemCount(), 3);
  EXPECT_EQ(memo.Text(), u"bca");
  EXPECT_EQ(Mark(), 1);
  undoChanges = 0;
  memo.Undo();
  EXPECT_EQ(memo.Text(), u"");
  EXPECT_EQ(undoChanges, 1);
  EXPECT_FALSE(lastCanUndo);
  EXPECT_TRUE(lastCanRedo);
  EXPECT_FALSE(memo.Modified());
  memo.Redo();
  EXPECT_EQ(memo.Text(), u"bca");
  Type(u"d");  // the group is closed: a step of its own
  EXPECT_EQ(List().Count(), 2);
}

TEST_F(UndoList, AMacroRunIsOneStepBothWays) {
  Type(u"0");
  memo.Saved();
  List().Add(std::make_unique<TMacroStartUndo>());
  Type(u"a");
  memo.SetCursor(0, 0, false);
  Type(u"b");
  List().Add(std::make_unique<TMacroEndUndo>());
  EXPECT_EQ(List().Count(), 5);
  memo.Undo();
  EXPECT_EQ(memo.Text(), u"0");
  EXPECT_EQ(List().FPos, 4);
  EXPECT_FALSE(memo.Modified());
  memo.Redo();
  EXPECT_EQ(memo.Text(), u"b0a");
  EXPECT_EQ(List().FPos, 0);
  memo.Undo();
  memo.Undo();
  EXPECT_EQ(memo.Text(), u"");
}

TEST_F(UndoList, AMultiCaretEditRestoresItsCaretsAtEachEnd) {
  auto start = std::make_unique<TMultiEditStartUndo>();
  auto end = std::make_unique<TMultiEditEndUndo>();
  start->FCursorList = {TMultiCursorPos{0, 0}, TMultiCursorPos{0, 1}};
  end->FCursorList = {TMultiCursorPos{0, 1}, TMultiCursorPos{0, 2}};
  List().Add(std::move(start));
  Type(u"ab");
  List().Add(std::move(end));
  memo.Undo();
  EXPECT_TRUE(memo.FMultiEditMode);
  EXPECT_EQ(memo.Text(), u"");
  ASSERT_EQ(memo.FMultiCursorList.size(), 2u);
  EXPECT_EQ(memo.FMultiCursorList[1]->aCurX, 1);  // the start record's carets
  memo.Redo();
  EXPECT_EQ(memo.Text(), u"ab");
  EXPECT_EQ(memo.FMultiCursorList[1]->aCurX, 2);

  // Without its start bracket the walk ends with the list.
  memo.ClearUndoList();
  Type(u"c");
  List().Add(std::make_unique<TMultiEditEndUndo>());
  window.InvalidatedAll = 0;
  memo.Undo();
  EXPECT_EQ(List().FPos, 2);
  EXPECT_GT(window.InvalidatedAll, 0);
}

TEST_F(UndoList, ADragAndDropIsOneStep) {
  memo.SetText(u"abcd");
  memo.SetCursor(0, 0, false);
  memo.ClearUndoList();
  // The drag takes "ab" out and drops it at the end.
  memo.SetLineText(0, u"cd");
  auto deletion = std::make_unique<TTypedUndo>(memo, 0, 0, u"ab", TUndoKind::DeleteBuf, true);
  deletion->FDragDrop = true;
  List().Add(std::move(deletion));
  memo.SetCursor(2, 0, false);
  Type(u"ab", TUndoKind::Paste);
  List().Get(0).FDragDrop = true;
  Type(u"!");
  memo.Undo();
  EXPECT_EQ(memo.Text(), u"cdab");
  memo.Undo();  // the drop and the drag's deletion together
  EXPECT_EQ(List().FPos, 3);
  EXPECT_FALSE(memo.CanUndo());
  EXPECT_EQ(memo.Text(), u"abcd");
  memo.Redo();
  EXPECT_EQ(List().FPos, 1);
  EXPECT_EQ(memo.Text(), u"cdab");
}

TEST_F(UndoList, KeysUndoOnlyWithTheMemosShortcuts) {
  Type(u"a");
  int key = 'Z';
  memo.KeyDown(key, ssCtrl);
  EXPECT_EQ(memo.Text(), u"a");  // a host's own binding keeps the key
  EXPECT_EQ(key, 'Z');
  memo.FProcessShortcuts = true;
  memo.KeyDown(key, ssCtrl);
  EXPECT_EQ(memo.Text(), u"");
  key = 'Y';
  memo.KeyDown(key, ssCtrl);
  EXPECT_EQ(memo.Text(), u"a");
  key = vkBack;
  memo.KeyDown(key, ssAlt);
  EXPECT_EQ(memo.Text(), u"");
  key = vkBack;
  memo.KeyDown(key, ssAlt | ssShift);
  EXPECT_EQ(memo.Text(), u"a");
  memo.SetReadOnly(true);
  key = 'Z';
  memo.KeyDown(key, ssCtrl);
  EXPECT_EQ(memo.Text(), u"a");
  EXPECT_FALSE(memo.CanUndo());
}

TEST_F(UndoList, TheSplitViewWithTheFocusRunsTheStep) {
  memo.SetText(u"abc");
  memo.SetCursor(3, 0, false);
  Type(u"d");
  TOrlMemo view;
  view.AssignSplitMemo(&memo, true);
  view.FFocused = true;
  view.Undo();  // a slave walks its master's list
  EXPECT_EQ(memo.Text(), u"abc");
  EXPECT_EQ(List().FMemo, &view);
  EXPECT_EQ(view.CurX(), 3);
  EXPECT_EQ(memo.CurX(), 4);  // the owner's caret stays where it was
  view.FFocused = false;
  memo.Redo();
  EXPECT_EQ(List().FMemo, &memo);
  EXPECT_EQ(memo.CurX(), 4);
}

TEST_F(UndoList, RevertToWalksToAPosition) {
  for (char16_t ch : std::u16string(u"abc")) {
    memo.SetCursor(memo.CurX(), 0, false);
    Type(std::u16string(1, ch), TUndoKind::Paste);
  }
  memo.RevertTo(3);
  EXPECT_EQ(memo.Text(), u"");
  memo.RevertTo(1);
  EXPECT_EQ(memo.Text(), u"ab");
  memo.RevertTo(7);  // no such position: nothing moves
  EXPECT_EQ(List().FPos, 1);
}

TEST_F(UndoList, StepsAreTracedWithTheirLabels) {
  std::vector<std::u16string> lines;
  memo.OnDebugWrite = [&](const std::u16string& ws, bool) { lines.push_back(ws); };
  Type(u"0123456789abcdefXYZ", TUndoKind::Paste);
  memo.Undo();
  memo.Redo();
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_EQ(lines[0], u">TUndo.Undo 015 {x=0, y=0} : 0123456789abcdef...");
  EXPECT_EQ(lines[1], u">TUndo.Redo 015 {x=0, y=0} : 0123456789abcdef...");
}

TEST(UndoRecord, ActionTextShowsLineEndsAndTheCommentPair) {
  TUndo record(TUndoKind::BlockComment);
  record.FUndoText = u"a\r\nb\rc";
  record.UpdateActionText();
  EXPECT_EQ(record.FActionText, u"a[CRLF]b[CRLF]c");
  record.FStartString = u"/*";
  record.FEndString = u"*/";
  record.UpdateActionText();
  EXPECT_EQ(record.FActionText, u"/* ... */");
  record.FUnicodeText = std::u16string(15, u'x') + u"\U0001F600";  // no half of a pair
  record.UpdateActionText();
  EXPECT_EQ(record.FActionText, std::u16string(15, u'x') + u"...");
}

TEST(ZippedText, LongTextsAreCompressedAndComeBackWhole) {
  std::u16string text;
  for (int i = 0; text.size() < TZippedText::kCompressFrom * 2; ++i)
    text += u"line " + std::u16string(1, char16_t(u'a' + i % 26)) + u"\r\n";
  text += u"\U0001F600\u00E9";
  TZippedText zipped(text);
  EXPECT_TRUE(zipped.IsCompressed());
  EXPECT_LT(zipped.ByteSize(), text.size() * sizeof(char16_t) / 4);
  EXPECT_EQ(zipped.Text(), text);
  EXPECT_EQ(zipped.Text(), text);  // read again from the kept text

  TZippedText shortText(u"short");
  EXPECT_FALSE(shortText.IsCompressed());
  EXPECT_EQ(shortText.Text(), u"short");
  zipped.Assign(u"");
  EXPECT_TRUE(zipped.Empty());
  EXPECT_EQ(zipped.Text(), u"");

  TUndo record(TUndoKind::JoinLines);
  record.SetZipText(text);
  EXPECT_LT(record.ByteSize(), text.size());
  EXPECT_EQ(record.ZipText(), text);
}

} // namespace
} // namespace orl
