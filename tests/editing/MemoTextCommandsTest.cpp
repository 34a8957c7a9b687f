// Text commands where a script cannot look: what a keystroke repaints and
// which line states it invalidates, the merge rules of the character
// records, row attributes across a join, the styled hooks and comments of a
// definition, and Alt codes cut short by another key.

#include <gtest/gtest.h>

#include <filesystem>

#include "HeadlessMemoTest.h"
#include "editing/UndoRecords.h"
#include "syntax/OrlSyntax.h"
#include "BuildPaths.h"

namespace orl {
namespace {

class MemoTextCommands : public test::HeadlessMemoTest {
protected:
  /// Every row's end state marked as cached, as after a full scan.
  void CacheAllLineStyles() {
    for (int i = 0; i < memo.Lines().Count(); ++i) {
      TStyle style;
      memo.SetLineStyle(i, style);
    }
  }
  void LoadCpp() {
    TOrlSyntax syntax;
    std::u16string asp;
    syntax.LoadStyleFromFile(&memo, (orl::test::HostDir() / "syntax" / "C++.gdx").u16string(), u"C++", 0, asp);
    ASSERT_NE(memo.FStyles, nullptr);
  }
  const TUndo& Newest() { return memo.FUndoList->Get(0); }
};

TEST_F(MemoTextCommands, TypingRepaintsTheEditedRowAndInvalidatesStatesFromIt) {
  memo.SetText(u"zero\r\none\r\ntwo\r\nthree\r\nfour");
  memo.SetTextCursor(1, 2, true);
  CacheAllLineStyles();
  RepaintedRows();
  memo.KeyPress(u'x');
  EXPECT_EQ(RepaintedRows(), (std::set<int>{2}));
  EXPECT_EQ(window.InvalidatedAll, 0);
  EXPECT_TRUE(memo.Lines().LineStyleValid(1));
  // The edited row's state went and was scanned again, to decide the repaint
  // by its end state; the rows below wait for the tokeniser.
  EXPECT_TRUE(memo.Lines().LineStyleValid(2));
  EXPECT_FALSE(memo.Lines().LineStyleValid(3));
  EXPECT_FALSE(memo.Lines().LineStyleValid(4));

  // Delete and Backspace within a row repaint that row alone as well.
  Press(vkDelete);
  Press(vkBack);
  EXPECT_EQ(RepaintedRows(), (std::set<int>{2}));
  EXPECT_EQ(memo.GetLineText(2), u"to");
}

TEST_F(MemoTextCommands, EnterAtColumnZeroLeavesTheRowItsStateAndMarks) {
  memo.SetText(u"a\r\nb\r\nc");
  memo.Lines().GetLineAttribute(1)->Bookmark = 3;
  CacheAllLineStyles();
  memo.SetTextCursor(0, 1, true);
  memo.EnterPress();
  ASSERT_EQ(memo.Text(), u"a\r\n\r\nb\r\nc");
  EXPECT_TRUE(memo.Lines().LineStyleValid(0));
  EXPECT_EQ(memo.Lines().ReadLineAttribute(2).Bookmark, 3);
  EXPECT_EQ(memo.Lines().ReadLineAttribute(1).Bookmark, -1);
  EXPECT_EQ(memo.CurY(), 2);
}

TEST_F(MemoTextCommands, AnEmptyRowJoinedToTheNextTakesItsAttributes) {
  memo.SetText(u"a\r\n\r\nb\r\nc");
  TTextAttribute& next = *memo.Lines().GetLineAttribute(2);
  next.Bookmark = 5;
  next.SetLinemark(true);
  memo.SetTextCursor(0, 1, true);
  Press(vkDelete);
  ASSERT_EQ(memo.Text(), u"a\r\nb\r\nc");
  EXPECT_EQ(memo.Lines().ReadLineAttribute(1).Bookmark, 5);
  EXPECT_TRUE(memo.Lines().ReadLineAttribute(1).Linemark());
  EXPECT_EQ(Newest().FUndoText, u"\r");

  // A row with text keeps its own bookmark and takes the next one's only when it has none.
  memo.Lines().GetLineAttribute(1)->Bookmark = 7;
  memo.SetTextCursor(1, 0, true);
  Press(vkDelete);
  EXPECT_EQ(memo.GetLineText(0), u"ab");
  EXPECT_EQ(memo.Lines().ReadLineAttribute(0).Bookmark, 7);
}

TEST_F(MemoTextCommands, TheRowADeletionLeavesKeepsTheMarksOfTheRange) {
  memo.SetText(u"one\r\ntwo\r\nthree\r\nfour");
  memo.Lines().GetLineAttribute(2)->Bookmark = 4;
  memo.Lines().GetLineAttribute(1)->SetLinemark(true);
  memo.SetSelection2(1, 0, 2, 3, false);
  Press(vkDelete);
  ASSERT_EQ(memo.Text(), u"our");
  EXPECT_EQ(memo.Lines().ReadLineAttribute(0).Bookmark, 4);
  EXPECT_TRUE(memo.Lines().ReadLineAttribute(0).Linemark());
  EXPECT_EQ(Newest().FUnicodeText, u"ne\r\ntwo\r\nthree\r\nfo");
  EXPECT_EQ(memo.CurX(), 1);
}

TEST_F(MemoTextCommands, OverwritingPastARowsEndPadsAndInserts) {
  memo.SetText(u"ab");
  memo.FOverwrite = true;
  memo.SetTextCursor(4, 0, true);
  memo.KeyPress(u'z');
  EXPECT_EQ(memo.Text(), u"ab  z");
  EXPECT_EQ(Newest().Kind(), TUndoKind::InsertChar);
  // A tab as blanks writes nothing over: the caret goes to the next stop within the row.
  memo.SetTextCursor(1, 0, true);
  Press(vkTab, 0, u'\t');
  EXPECT_EQ(memo.Text(), u"ab  z");
  EXPECT_EQ(memo.CurX(), 4);
}

TEST_F(MemoTextCommands, CharacterRecordsMergeWhileEditsFollowOn) {
  TInsertCharUndo typed;
  typed.SetUndoData(memo, 0, 0, 0, 0, 1, 0, u"a", false);
  TInsertCharUndo next;
  next.SetUndoData(memo, 0, 0, 1, 0, 2, 0, u"b", false);
  ASSERT_TRUE(typed.Append(next));
  EXPECT_EQ(typed.FUndoText, u"ab");
  EXPECT_EQ(typed.FUndoCurX, 2);
  EXPECT_EQ(typed.FOldUndoCurX, 2);
  TInsertCharUndo elsewhere;
  elsewhere.SetUndoData(memo, 0, 0, 5, 0, 6, 0, u"c", false);
  EXPECT_FALSE(typed.Append(elsewhere));
  TDeleteCharUndo deletion;
  deletion.SetUndoData(memo, 0, 0, 2, 0, 2, 0, u"x", false);
  EXPECT_FALSE(typed.Append(deletion));  // another kind never merges

  // Backspace puts the earlier character in front; Delete appends; the two never mix.
  TDeleteCharUndo back;
  back.FIsBackspace = true;
  back.SetUndoData(memo, 0, 0, 3, 0, 2, 0, u"c", false);
  TDeleteCharUndo back2;
  back2.FIsBackspace = true;
  back2.SetUndoData(memo, 0, 0, 2, 0, 1, 0, u"b", false);
  ASSERT_TRUE(back.Append(back2));
  EXPECT_EQ(back.FUndoText, u"bc");
  TDeleteCharUndo forward;
  forward.SetUndoData(memo, 0, 0, 1, 0, 1, 0, u"d", false);
  EXPECT_FALSE(back.Append(forward));
  TDeleteCharUndo forward2;
  forward2.SetUndoData(memo, 0, 0, 1, 0, 1, 0, u"e", false);
  ASSERT_TRUE(forward.Append(forward2));
  EXPECT_EQ(forward.FUndoText, u"de");

  TOverwriteCharUndo over, over2;
  over2.SetUndoData(memo, 0, 0, 0, 0, 0, 0, u"z", false);
  EXPECT_FALSE(over.Append(over2));
}

TEST_F(MemoTextCommands, EachCommandLeavesTheRecordOfItsKind) {
  memo.SetText(u"abc");
  memo.SetTextCursor(3, 0, true);
  memo.KeyPress(u'd');
  EXPECT_EQ(Newest().Kind(), TUndoKind::InsertChar);
  Press(vkTab, 0, u'\t');
  EXPECT_EQ(Newest().Kind(), TUndoKind::Paste);
  EXPECT_EQ(Newest().FUnicodeText, u"    ");
  memo.SetSelection2(0, 0, 2, 0, false);
  memo.KeyPress(u'X');
  EXPECT_EQ(Newest().Kind(), TUndoKind::Replace);
  EXPECT_EQ(Newest().FUnicodeText, u"ab");
  EXPECT_EQ(Newest().FUndoText, u"X");
  memo.SetSelection2(0, 0, 1, 0, false);
  Press(vkDelete);
  EXPECT_EQ(Newest().Kind(), TUndoKind::DeleteBuf);
  EXPECT_EQ(Newest().FUnicodeText, u"X");
  Press(vkReturn, 0, u'\r');
  EXPECT_EQ(Newest().Kind(), TUndoKind::Paste);
  EXPECT_EQ(Newest().FUnicodeText, u"\r\n");
  memo.FOverwrite = true;
  memo.SetTextCursor(0, 1, true);
  memo.KeyPress(u'Q');
  EXPECT_EQ(Newest().Kind(), TUndoKind::OverwriteChar);
  EXPECT_EQ(Newest().FUndoText, u"c");
  EXPECT_EQ(memo.Text(), u"\r\nQd    ");
  // A typed tab with tabs kept goes in as a tab, character 26 as a tab without tab handling.
  memo.FOverwrite = false;
  memo.FTabAsSpaces = false;
  memo.InsertChar(26);
  EXPECT_EQ(memo.GetLineText(1), u"Q\td    ");
}

TEST_F(MemoTextCommands, APasteOfManyLinesSplitsTheRowOnce) {
  memo.SetText(u"headtail\r\nnext");
  memo.SetTextCursor(4, 0, true);
  RepaintedRows();
  memo.InsertText(u"1\r\n2\n3\r4", false);
  EXPECT_EQ(memo.Text(), u"head1\r\n2\r\n3\r\n4tail\r\nnext");
  EXPECT_EQ(memo.CurX(), 1);
  EXPECT_EQ(memo.CurY(), 3);
  EXPECT_EQ(Newest().FUndoCurY0, 0);
  EXPECT_EQ(Newest().FUndoCurY, 3);
  // With a whole-line mark the text goes in at the row's start.
  memo.SetTextCursor(2, 4, true);
  memo.InsertText(u"line\r\n", true);
  EXPECT_EQ(memo.GetLineText(4), u"line");
  EXPECT_EQ(memo.GetLineText(5), u"next");
}

TEST_F(MemoTextCommands, ASmartPasteTakesTheSelectionAndPlacesTheCaretInTheText) {
  memo.SetText(u"    x");
  memo.SetSelection2(4, 0, 5, 0, false);
  // Offset 14: the first line (8), its line end (2) and the indentation of the second (4).
  memo.SmartPasteText(u"if (%sel%) {\r\n\r\n}", false, true, 14, true);
  EXPECT_EQ(memo.Text(), u"    if (x) {\r\n    \r\n    }");
  EXPECT_EQ(memo.CurX(), 4);
  EXPECT_EQ(memo.CurY(), 1);
  EXPECT_EQ(Newest().Kind(), TUndoKind::Replace);
  EXPECT_EQ(Newest().FUnicodeText, u"x");
}

TEST_F(MemoTextCommands, AnAltCodeEndsWithAnyOtherKey) {
  memo.SetText(u"");
  Press(vkNumpad0 + 6, ssAlt);
  Press(vkLeft, ssAlt);
  for (int digit : {1, 5, 5}) Press(vkNumpad0 + digit, ssAlt);
  memo.KeyUp(vkMenu, 0);
  EXPECT_EQ(memo.Text(), u"\u00A2");  // 155 alone: code page 437's cent sign
  // In an ASCII document a short code is the byte itself; a code past the last character is nothing.
  memo.FIsASCII = true;
  for (int digit : {1, 3, 0}) Press(vkNumpad0 + digit, ssAlt);
  memo.KeyUp(vkMenu, 0);
  for (int digit : {9, 9, 9, 9, 9, 9, 9, 9, 9}) Press(vkNumpad0 + digit, ssAlt);
  memo.KeyUp(vkMenu, 0);
  EXPECT_EQ(memo.Text(), u"\u00A2\u0082");
  // A byte that Windows-1252 leaves free stands for itself; a code of 0 types nothing.
  memo.FIsASCII = false;
  for (const std::initializer_list<int> code : {std::initializer_list<int>{0, 1, 2, 9}, {0}}) {
    for (int digit : code) Press(vkNumpad0 + digit, ssAlt);
    memo.KeyUp(vkMenu, 0);
  }
  EXPECT_EQ(memo.Text(), u"\u00A2\u0082\u0081");
}

TEST_F(MemoTextCommands, CommentsFollowTheDefinition) {
  LoadCpp();
  memo.SetText(u"int a;\r\nint b;");
  memo.SetSelection2(0, 0, 3, 1, false);
  memo.ToggleCommentBlock();
  EXPECT_EQ(memo.Text(), u"//int a;\r\n//int b;");
  EXPECT_EQ(Newest().Kind(), TUndoKind::BlockComment);
  memo.ToggleCommentBlock();
  EXPECT_EQ(memo.Text(), u"int a;\r\nint b;");
  const auto& uncomment = static_cast<const TBlockUnCommentUndo&>(Newest());
  EXPECT_EQ(uncomment.FLines, (std::vector<int>{0, 1}));
  EXPECT_TRUE(memo.CanUseBlockComment());
}

TEST_F(MemoTextCommands, TheStyledBraceHookStaysOutOfComments) {
  LoadCpp();
  memo.FAutoCloseBraces = true;
  memo.SetText(u"f");
  memo.SetTextCursor(1, 0, true);
  memo.KeyPress(u'(');
  EXPECT_EQ(memo.Text(), u"f()");
  memo.KeyPress(u')');
  EXPECT_EQ(memo.Text(), u"f()");
  EXPECT_EQ(memo.CurX(), 3);
  memo.SetText(u"// note ");
  memo.SetTextCursor(8, 0, true);
  memo.KeyPress(u'(');
  EXPECT_EQ(memo.Text(), u"// note (");
}

TEST_F(MemoTextCommands, TheBlockHookAddsTheEndMark) {
  LoadCpp();
  memo.FStyles->FAutoCloseBlockStart = u"{";
  memo.FStyles->FAutoCloseBlockEnd = u"}";
  memo.FAutoCloseBlocks = true;
  memo.SetText(u"  if (x) ");
  memo.SetTextCursor(9, 0, true);
  memo.KeyPress(u'{');
  EXPECT_EQ(memo.Text(), u"  if (x) {\r\n      \r\n  }");
  EXPECT_EQ(memo.CurX(), 6);
  EXPECT_EQ(memo.CurY(), 1);
}

TEST_F(MemoTextCommands, ABlankTabOrEnterLetsTheHostReplaceTheWordBefore) {
  int asked = 0;
  memo.OnWordComplete = [&](const std::u16string& word, std::u16string& NewWord) {
    ++asked;
    if (word == u"teh") NewWord = u"the";
  };
  memo.SetText(u"");
  for (const char16_t ch : std::u16string_view(u"teh cat teh")) memo.KeyPress(ch);
  Press(vkReturn, 0, u'\r');
  EXPECT_EQ(memo.Text(), u"the cat the\r\n");
  EXPECT_EQ(asked, 3);
  EXPECT_EQ(memo.FUndoList->Get(1).Kind(), TUndoKind::Replace);
}

TEST_F(MemoTextCommands, CommandsDoNothingInAReadOnlyMemo) {
  memo.SetText(u"  keep\r\nthis");
  memo.SetSelection2(0, 0, 2, 1, false);
  memo.SetReadOnly(true);
  const int records = memo.FUndoList->Count();
  memo.InsertChar(u'x');
  memo.DeleteSelection(true, true, false, false);
  memo.IndentSelectedBlock(true);
  memo.UnIndentSelectedBlock(true);
  memo.CommentBlock(u"#", u"");
  memo.SelToCase(TOrlCustomMemo::ctUpper);
  memo.DuplicateCurrentLine();
  memo.DeleteLine(-1);
  memo.InsertLine(0, u"new");
  memo.EnterPress();
  memo.Backspace();
  memo.DeleteChar(-1, -1);
  EXPECT_EQ(memo.Text(), u"  keep\r\nthis");
  EXPECT_EQ(memo.FUndoList->Count(), records);
}

} // namespace
} // namespace orl
