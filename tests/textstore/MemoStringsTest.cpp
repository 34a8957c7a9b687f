#include <gtest/gtest.h>

#include <vector>

#include "FakeMemo.h"
#include "textstore/OrlMemoStrings.h"

using namespace orl;
using test::L;
using test::Rows;
using test::TFakeMemo;

namespace {

// Endings as the rows hold them: "" for the first row, else CR, LF or CRLF.
std::vector<std::string> Endings(const TOrlMemoStrings& store) {
  std::vector<std::string> endings;
  for (int i = 1; i < store.Count(); ++i) {
    const TTextAttribute& a = store.ReadLineAttribute(i);
    endings.push_back(std::string(a.LinefeedCR() ? "CR" : "") + (a.LinefeedLF() ? "LF" : ""));
  }
  return endings;
}

TOrlMemoStrings& Fill(TOrlMemoStrings& store, const L& rows) {
  for (const std::u16string& row : rows) store.DoAdd(row);
  return store;
}

} // namespace

TEST(MemoStrings, AnEmptyStoreHasNoTextAndNoRealLines) {
  TOrlMemoStrings store;
  EXPECT_EQ(store.Count(), 0);
  EXPECT_EQ(store.Text(), u"");
  EXPECT_EQ(store.RealCount(), 0);
  EXPECT_EQ(store.GetCapacity(), 64);
  store.SetText(u"\r\n");
  EXPECT_EQ(store.Count(), 2);
  EXPECT_EQ(store.RealCount(), 0);  // one line ending is no text
  store.SetText(u"x\r\n");
  EXPECT_EQ(store.RealCount(), 2);
}

TEST(MemoStrings, TabsExpandToTheNextStopOnlyWhereTheMemoAsks) {
  TFakeMemo memo;
  memo.Settings.bPreserveTab = false;
  memo.Settings.TabSize = 4;
  TOrlMemoStrings store(&memo);
  store.DoInsert(0, u"\tx");     // tab at 1: four fill characters
  store.DoInsert(1, u"ab\tx");   // tab at 3: two
  store.DoInsert(-5, u"a\tb\tc");  // below 0 counts as 0
  store.Add(u"1234\t.");
  store.DoAdd(u"\traw");
  store.Insert(0, u"\tevents");
  EXPECT_EQ(Rows(store), (L{u"\tevents", u"a   b   c", u"    x", u"ab  x", u"1234    .", u"\traw"}));
  store.SetLineString(5, u"a\t");
  EXPECT_EQ(store.GetLineString(5), u"a   ");
  store.Put(5, u"a\t");
  EXPECT_EQ(store.GetLineString(5), u"a\t");
  EXPECT_EQ(store.GetVisualLength(5), 4);
  EXPECT_EQ(store.GetTabExpanded(0), u"    events");

  memo.Settings.bBinaryMode = true;
  store.Add(u"\tbinary");
  EXPECT_EQ(store.GetLineString(6), u"\tbinary");
  memo.Settings = {};
  store.DoInsert(0, u"\tkept");
  EXPECT_EQ(store.GetLineString(0), u"\tkept");
}

TEST(MemoStrings, SetTextReusesRowsAndEndsWithTheValue) {
  TFakeMemo memo;
  TOrlMemoStrings store(&memo);
  store.SetText(u"one\r\ntwo\nthree");
  EXPECT_EQ(Rows(store), (L{u"one", u"two", u"three"}));
  EXPECT_EQ(memo.MaxLength, 180);  // at least 80, plus 100
  EXPECT_TRUE(store.ReadLineAttribute(2).Changed());
  EXPECT_EQ(store.ReadLineAttribute(2).ChangeHistory, 1);

  store.GetLineAttribute(0)->Bookmark = 3;
  store.SetText(u"uno\rdos");
  EXPECT_EQ(Rows(store), (L{u"uno", u"dos"}));
  EXPECT_EQ(store.ReadLineAttribute(0).Bookmark, 3);  // the reused row keeps its attribute

  store.SetText(u"a\n");
  EXPECT_EQ(Rows(store), (L{u"a", u""}));
  store.SetText(u"a\r");
  EXPECT_EQ(Rows(store), (L{u"a"}));
  store.SetText(u"b\r\n");
  EXPECT_EQ(Rows(store), (L{u"b", u""}));
  store.SetText(u"");
  EXPECT_EQ(Rows(store), (L{u"b", u""}));
  store.SetText(u"x" + std::u16string(300, u'y') + u"\r\nz");
  EXPECT_EQ(memo.MaxLength, 403);

  store.FFileName = u"/data/table.CSV";
  memo.Settings.bHandleCSV = true;
  store.SetText(u"a,\"b\r\nc\",d\ne");
  EXPECT_EQ(Rows(store), (L{u"a,\"b\r\nc\",d", u"e"}));
  memo.Settings.bBinaryMode = true;
  store.SetText(std::u16string(170, u'b') + u"\r\n");
  EXPECT_EQ(store.Count(), 3);
  EXPECT_EQ(store.GetLineLength(0), 80);
  EXPECT_EQ(store.GetLineLength(2), 12);
}

TEST(MemoStrings, ParsingKeepsEachLinesEndingAndNamesTheDocumentsType) {
  TFakeMemo memo;
  TOrlMemoStrings store(&memo);
  store.SetTextStr(u"a\r\nb\nc\rd\u2028e\u2029f\n");
  EXPECT_EQ(Rows(store), (L{u"a", u"b", u"c", u"d", u"e", u"", u"f", u""}));
  EXPECT_EQ(Endings(store), (std::vector<std::string>{"CRLF", "LF", "CR", "", "", "", "LF"}));
  EXPECT_EQ(store.FSysTextType, sttMixedUnix);  // LF is the most frequent
  EXPECT_EQ(store.GetText(0, 3, 1, 1, false, false, false), u"a\r\nb\nc\rd");
  EXPECT_EQ(store.Text(), u"a\r\nb\r\nc\r\nd\r\ne\r\n\r\nf\r\n");

  store.SetTextStr(u"x\r\ny\nz\r");
  EXPECT_EQ(store.FSysTextType, sttMixedWindows);  // no ending is the most frequent
  store.SetTextStr(u"x\ny\tz");
  EXPECT_EQ(store.FSysTextType, sttUnix);
  EXPECT_TRUE(memo.HasTabs);
  store.SetTextStr(u"x\ry\r");
  EXPECT_EQ(store.FSysTextType, sttMac);
  store.SetTextStr(u"no ending");
  EXPECT_EQ(store.FSysTextType, sttMac);  // nothing to go by: the type stays

  store.FAddToStringList = true;
  store.FAddToLastLine = true;
  store.SetTextStr(u" continued\nnext");
  EXPECT_EQ(Rows(store), (L{u"no ending continued", u"next"}));
}

TEST(MemoStrings, SilentParseKeepsMarksByRowNumber) {
  TFakeMemo memo;
  TOrlMemoStrings store(&memo);
  store.SetTextStr(u"a\nb\nc");
  store.GetLineAttribute(1)->Bookmark = 4;
  store.GetLineAttribute(2)->SetLinemark(true);
  store.SetTextStrSilent(u"x\ny\nz\nw");
  EXPECT_EQ(Rows(store), (L{u"x", u"y", u"z", u"w"}));
  EXPECT_EQ(store.ReadLineAttribute(1).Bookmark, 4);
  EXPECT_TRUE(store.ReadLineAttribute(2).Linemark());
  EXPECT_FALSE(store.ReadLineAttribute(3).Linemark());
  EXPECT_EQ(memo.Bookmarks, (std::vector<TFullPos>{{4, 1}}));
}

TEST(MemoStrings, GetTextTakesRangesAcrossWrappedAndFillerRows) {
  TOrlMemoStrings store;
  store.SetTextStr(u"first\r\nsecond\nthird");
  EXPECT_EQ(store.GetText(0, 2, 3, 2, false, false, false), u"rst\r\nsecond\nth");
  EXPECT_EQ(store.GetText(2, 0, 2, 3, false, false, false), u"rst\r\nsecond\nth");  // ends swapped
  EXPECT_EQ(store.GetText(1, 1, 4, 3, false, false, false), u"");
  EXPECT_EQ(store.GetText(1, 1, 2, 4, false, false, false), u"eco");
  EXPECT_EQ(store.GetText(-3, 99, -1, 99, false, false, false), u"first\r\nsecond\nthird");  // clamped
  EXPECT_EQ(store.GetText(0, 2, 1, 5, true, false, false), u"firstsecondthird");
  EXPECT_EQ(store.GetText(0, 2, 1, 5, false, true, false), u"first\r\nsecond\r\nthird");
  store.GetLineAttribute(2)->SetLinefeedLF(true);
  store.GetLineAttribute(2)->SetLinefeedCR(true);
  EXPECT_EQ(store.GetText(1, 2, 1, 5, false, false, true), u"second\fthird");

  store.InsertWrapped(1, u"-cont");
  EXPECT_EQ(store.GetText(0, 3, 1, 5, false, false, false), u"first-cont\r\nsecond\r\nthird");
  store.GetLineAttribute(2)->Enabled = false;  // a filler row of a comparison
  EXPECT_EQ(store.GetText(0, 3, 1, 5, false, false, false), u"first-cont\r\nthird");
  EXPECT_EQ(store.GetText(2, 2, 1, 6, false, false, false), u"");
  EXPECT_EQ(store.GetText(1, 2, 2, 6, false, false, false), u"cont\r\n");
}

TEST(MemoStrings, SelectionLengthCountsRowsAndTheEndingsBetweenRealLines) {
  TFakeMemo memo;
  TOrlMemoStrings store(&memo);
  Fill(store, {u"abcdef", u"gh", u"ijkl"});
  memo.Sel = {{4, 2}, {2, 0}};  // the user's motion went upwards; columns past the row are clamped
  EXPECT_EQ(store.SelectionLength(memo, false, false), 4 + 2 + 4);
  EXPECT_EQ(store.SelectionLength(memo, true, false), 14);
  store.FSysTextType = sttUnix;
  EXPECT_EQ(store.SelectionLength(memo, true, true), 12);
  store.InsertWrapped(1, u"+");
  memo.Sel = {{2, 0}, {1, 2}};
  EXPECT_EQ(store.SelectionLength(memo, true, false), 4 + 1 + 1 + 2);  // no ending before a continuation
  memo.Sel = {{3, 1}, {2, 1}};
  EXPECT_EQ(store.SelectionLength(memo, true, false), 0);
  memo.Sel = {{3, 3}, {1, 0}, true};
  EXPECT_EQ(store.SelectionLength(memo, true, false), 2 * 4);
  memo.Sel.bHexView = true;
  memo.Sel.HexSelectionLength = 77;
  EXPECT_EQ(store.SelectionLength(memo, true, false), 77);
  memo.Sel = {{0, 0}, {2, 2}};
  memo.Settings.bBinaryMode = true;
  EXPECT_EQ(store.SelectionLength(memo, true, false), 6 + 1 + 2);
}

TEST(MemoStrings, BadIndexesReadNeutralAndOnlyStrictWritesRaise) {
  TFakeMemo memo;
  TOrlMemoStrings store(&memo);
  Fill(store, {u"", u""});
  for (int bad : {-1, 2, 1000}) {
    EXPECT_EQ(store.Get(bad), u"");
    EXPECT_EQ(store.GetLineLength(bad), 0);
    EXPECT_EQ(store.GetCharAt(bad, 1), 0);
    EXPECT_EQ(store.GetStringAt(bad, 1, 3, false), u"");
    EXPECT_EQ(store.InsertAt(bad, u"x", 1), 0);
    EXPECT_EQ(store.DeleteAt(bad, 1, 1), 0);
    EXPECT_EQ(store.GetPointerToListItem(bad), nullptr);
    EXPECT_TRUE(store.IsLineBlank(bad));
    int matchLen = 9;
    EXPECT_EQ(store.WRegexPosAt(bad, u"x", 1, true, matchLen), -1);
    EXPECT_THROW(store.Put(bad, u"x"), EStringListError);
    EXPECT_THROW(store.SetLineString(bad, u"x"), EStringListError);
    store.Delete(bad);
    store.DeleteLinesSilent(bad, 1, true);
    store.SetLineAttribute(bad, *CreateAttribute(sttWindows));
    store.OverWriteAt(bad, u"x", 1);
  }
  EXPECT_EQ(store.Count(), 2);
  EXPECT_FALSE(store.CompareLines(0, 1));  // two empty rows are not equal
  TTextAttribute* nil = store.GetLineAttribute(7);
  nil->Bookmark = 2;
  EXPECT_EQ(store.GetLineAttribute(-1), nil);
  EXPECT_EQ(nil->Bookmark, -1);  // reset for every bad read
  TAttributePtr copy = store.GetLineAttributeObject(9);
  EXPECT_NE(copy.get(), nil);
  EXPECT_TRUE(copy->Enabled);
  TAttributePtr thrown = store.GetLineAttributeFromThread(5);
  EXPECT_NE(thrown.get(), nil);

  TOrlMemoStrings plain;
  Fill(plain, {u"a"});
  plain.SetSorted(true);
  EXPECT_THROW(plain.Put(0, u"b"), EStringListError);
}

TEST(MemoStrings, DeleteKeepsTheCaretOnItsText) {
  TFakeMemo memo;
  TOrlMemoStrings store(&memo);
  Fill(store, {u"a", u"b", u"c", u"d"});
  memo.Caret = {1, 2};
  store.Delete(0);
  EXPECT_EQ(memo.CaretMoves.front(), (TFullPos{1, 0}));  // on the deleted row while it goes
  EXPECT_EQ(memo.Caret, (TFullPos{1, 1}));
  store.Delete(2);
  EXPECT_EQ(memo.Caret, (TFullPos{1, 1}));
  EXPECT_EQ(Rows(store), (L{u"b", u"c"}));
  store.Delete(0);
  memo.Caret = {5, 0};
  store.Delete(0);
  EXPECT_EQ(memo.Caret, (TFullPos{0, 0}));  // the only row went
  EXPECT_EQ(store.Count(), 0);

  TOrlMemoStrings plain;
  int changes = 0;
  plain.OnChange = [&](TElWideStrings&) { ++changes; };
  Fill(plain, {u"a", u"b"});
  plain.Delete(1);
  EXPECT_EQ(changes, 1);  // without a memo the events fire
}

TEST(MemoStrings, CapacityFollowsItsOwnRuleAndPrepareLinesMakesRoom) {
  TOrlMemoStrings store;
  store.Clear();
  EXPECT_EQ(store.GetCapacity(), 16);
  std::vector<int> steps{16};
  for (int i = 0; i < 2060; ++i) {
    store.DoAdd(u"r");
    if (steps.back() != store.GetCapacity()) steps.push_back(store.GetCapacity());
  }
  EXPECT_EQ((std::vector<int>(steps.begin(), steps.begin() + 3)), (std::vector<int>{16, 32, 48}));
  EXPECT_EQ(steps.back(), 2112);
  EXPECT_EQ(steps[steps.size() - 2], 2048);

  TOrlMemoStrings lines;
  lines.Clear();
  for (int i = 0; i < 15; ++i) lines.DoAdd(u"");
  lines.AddLine(u"16th", nullptr);  // grows one row before it is full
  EXPECT_EQ(lines.GetCapacity(), 32);

  TOrlMemoStrings ten;
  for (int i = 0; i < 10; ++i) ten.DoAdd(std::u16string(1, char16_t(u'0' + i)));
  ten.PrepareLines(5, 3);
  EXPECT_EQ(ten.Count(), 12);
  EXPECT_EQ(ten.GetLineString(7), u"5");
  EXPECT_EQ(ten.GetLineString(5), u"");
  EXPECT_EQ(ten.VisibleCount(), 12);
  ten.PrepareLines(0, 100);
  EXPECT_EQ(ten.GetCapacity(), 12 + 100 + 64);
}

TEST(MemoStrings, VisibleRowsFollowHiddenFlagsAndDeletions) {
  TFakeMemo memo;
  TOrlMemoStrings store(&memo);
  Fill(store, {u"a", u"b", u"c", u"d"});
  store.SetHiddenLine(1, true);
  store.SetHiddenLine(1, true);
  EXPECT_EQ(store.VisibleCount(), 3);
  TAttributePtr hidden = store.GetLineAttributeObject(1);
  store.SetLineAttribute(3, *hidden);  // carries Hidden along
  EXPECT_EQ(store.VisibleCount(), 2);
  store.DoDelete(1);
  EXPECT_EQ(store.VisibleCount(), 2);
  store.DeleteLinesSilent(0, 0, false);
  EXPECT_EQ(store.VisibleCount(), 1);
  // A flag written past the store leaves the count short; the deletion that
  // drives it below zero has the memo count again.
  store.GetLineAttribute(1)->SetValue(lfHidden, false);
  store.DoDelete(0);
  memo.VisibleLinesAnswer = 7;
  store.DoDelete(0);
  EXPECT_EQ(store.VisibleCount(), 7);
}

TEST(MemoStrings, RowsShareTheirFreshStateUntilWrittenAndFollowTheStyleSet) {
  TFakeMemo memo;
  TOrlMemoStrings store(&memo);
  store.FSysTextType = sttUnix;
  Fill(store, {u"a", u"b", u"c"});
  EXPECT_FALSE(store.ReadLineAttribute(0).IsAttribute());
  EXPECT_EQ(&store.ReadLineAttribute(0), &store.ReadLineAttribute(1));
  EXPECT_TRUE(store.ReadLineAttribute(1).LinefeedLF());
  EXPECT_FALSE(store.ReadLineAttribute(1).LinefeedCR());
  TTextAttribute* own = store.GetLineAttribute(1);
  own->Bookmark = 5;
  EXPECT_EQ(store.ReadLineAttribute(0).Bookmark, -1);
  EXPECT_EQ(store.GetLineAttribute(1), own);

  memo.Settings.bHasStyles = true;
  store.DoAdd(u"d");
  EXPECT_TRUE(store.ReadLineAttribute(3).IsAttribute());
  store.ConvertAttributes();  // the first row decides: all become TAttribute
  for (int i = 0; i < store.Count(); ++i) EXPECT_TRUE(store.ReadLineAttribute(i).IsAttribute()) << i;
  EXPECT_EQ(store.ReadLineAttribute(1).Bookmark, 5);
  store.ConvertAttributes();
  EXPECT_FALSE(store.ReadLineAttribute(3).IsAttribute());

  TStyle style;
  style.NodeSection = 4;
  store.SetLineStyle(2, style);
  EXPECT_EQ(store.ReadLineAttribute(2).Style()->NodeSection, 4);
  EXPECT_EQ(store.ReadLineAttribute(0).Style()->NodeSection, -1);
  TAttributePtr kept = store.ClearLine(2, false);
  EXPECT_EQ(kept->Style()->NodeSection, 4);
  EXPECT_EQ(store.GetLineString(2), u"");
  store.SetAt(2, u"again");
  EXPECT_EQ(store.ReadLineAttribute(2).Style()->NodeSection, -1);
}

TEST(MemoStrings, EditsWithinRowsUseOneBasedPositions) {
  TOrlMemoStrings store;
  Fill(store, {u"hello", u"  \t\u00A0", u"x \t "});
  EXPECT_EQ(store.InsertAt(0, u"XY", 3), 7);
  EXPECT_EQ(store.InsertAt(0, u"!", 99), 8);
  EXPECT_EQ(store.GetLineString(0), u"heXYllo!");
  EXPECT_EQ(store.DeleteAt(0, 3, 2), 6);
  EXPECT_EQ(store.DeleteAt(0, 5, 100), 4);
  EXPECT_EQ(store.DeleteAt(0, 9, 1), 4);
  store.OverWriteAt(0, u"EL", 2);
  EXPECT_EQ(store.GetLineString(0), u"hELl");
  EXPECT_EQ(store.GetCharAt(0, 4), u'l');
  EXPECT_EQ(store.GetStringAt(1, 1, 9, true), u"");
  EXPECT_EQ(store.GetStringAt(0, 2, 9, false), u"ELl");
  store.CopyLineTo(0, 0);
  EXPECT_EQ(store.GetLineString(0), u"hELlhELl");
  EXPECT_TRUE(store.IsLineBlank(1));
  EXPECT_EQ(store.RemoveTrailingBlanks(2, true), u" ");
  EXPECT_EQ(store.RemoveTrailingBlanks(2, false), u" \t");
  EXPECT_EQ(store.GetLineString(2), u"x");
  std::u16string buffer;
  EXPECT_EQ(store.GetBuffer(0, buffer), 8);
  EXPECT_EQ(buffer.size(), 108u);
  EXPECT_EQ(store.WPosAt(0, u"ELl", 3), 6);
  EXPECT_EQ(store.WNCPosAt(0, u"ell", 1), 2);
  EXPECT_EQ(store.WRPosAt(0, u"h", 8), 5);
  store.SwapLines(0, 2, false);
  EXPECT_EQ(store.GetLineString(2), u"hELlhELl");
  EXPECT_TRUE(store.CompareLines(2, 2));
  EXPECT_TRUE(TOrlMemoStrings::IsTextComplex(u"abc \u05D0"));
  EXPECT_TRUE(TOrlMemoStrings::IsTextComplex(u"\u0915\u093F"));
  EXPECT_FALSE(TOrlMemoStrings::IsTextComplex(u"plain-text 123 \u00E9 \u4E2D"));
}

TEST(MemoStrings, VisualReadsShowTheEndingOfTheNextRow) {
  TOrlMemoStrings store;
  store.SetTextStr(u"a b\rc\td\nlast");
  std::u16string buffer;
  const int len = store.GetVisualBuffer(buffer, 0, true, true, true, true, false);
  EXPECT_EQ(buffer.substr(0, size_t(len)), u"a\u00B7b\u00A4");
  EXPECT_EQ(store.GetVisual(0, false, true, false, false, false), u"a b\u00B6");
  EXPECT_EQ(store.GetVisual(1, false, true, false, true, false), u"c   d\u00B6");
  EXPECT_EQ(store.GetVisual(2, false, true, false, false, false), u"last");
  store.InsertWrapped(1, u"+");
  EXPECT_EQ(store.GetVisual(0, false, true, false, false, false), u"a b");
}
