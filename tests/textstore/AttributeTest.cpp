#include <gtest/gtest.h>

#include <tuple>
#include <vector>

#include "textstore/LineAttribute.h"

using namespace orl;

namespace {

TStyle ScannedStyle() {
  TStyle style;
  style.NodeSection = 2;
  style.Properties.BracketId = 1;
  style.Properties.TagNr = 5;
  style.Block.Cache = {1, 2};
  style.NodeStyles.emplace_back().sTag = u"div";
  style.RegionStyles.emplace_back().nBegin = 4;
  return style;
}

// A TAttribute with the fields that the ways of copying treat differently
// away from their start values.
TAttributePtr FilledAttribute() {
  TAttributePtr result = CreateAttribute(sttWindows);
  TAttribute& a = static_cast<TAttribute&>(*result);
  a.FBooleanArray = 0xFFFFFFFF & ~(1u << lfHidden);
  a.SetLinefeedLF(false);
  a.SetNodeEndBefore(true);
  a.SetTempNodeEndBefore(true);
  a.ExpandingClip = true;
  a.SelNodeTopIdNr = 12;
  a.SpellList.Add({3, 1, -1, -1});
  a.SetStyle(ScannedStyle());
  a.Bookmark = 5;
  a.ChangeHistory = 7;
  a.TextDiffKind = 3;
  a.Enabled = false;
  a.Braces1.Assign(std::u16string_view(u"()"));
  a.TempNodeTopIdNrList.Add(42);
  a.NodeLevel = 1;
  a.ceListItem = ceMethod;
  return result;
}

} // namespace

TEST(LineAttribute, NewAttributesStartClearedWithTheDocumentsLineEnding) {
  const std::tuple<TSysTextType, bool, bool> cases[] = {{sttWindows, true, true},      {sttUnix, false, true},
                                                        {sttMac, true, false},         {sttMixedWindows, true, true},
                                                        {sttMixedUnix, false, true},   {sttMixedMac, true, false}};
  for (const auto& [type, bCR, bLF] : cases) {
    for (const TAttributePtr& a : {CreateAttribute(type), CreateTextAttribute(type)}) {
      EXPECT_EQ(std::tuple(a->LinefeedCR(), a->LinefeedLF()), std::tuple(bCR, bLF)) << int(type);
      EXPECT_EQ(a->FBooleanArray.load(), 0u);
      EXPECT_EQ(std::tuple(a->FindId, a->Bookmark, a->ChangeLastSavedAt, a->ChangeHistory, a->UndoNr, a->Enabled),
                std::tuple(0, -1, -100, 0, -1, true));
      EXPECT_EQ(std::tuple(a->Style()->NodeSection, a->Style()->Block.Id), std::tuple(-1, -1));
    }
  }
  EXPECT_EQ(CreateTextAttribute(sttUnix)->AsAttribute(), nullptr);
  const TAttributePtr full = CreateAttribute(sttUnix);
  const TAttribute& a = *full->AsAttribute();
  EXPECT_EQ(std::tuple(a.NodeLevel, a.TempNodeLevel, a.Rgn_Level, a.TempRgn_Level), std::tuple(-1, -1, -1, -1));
}

TEST(LineAttribute, NamedFlagsSitAtTheirBits) {
  TAttributePtr a = CreateTextAttribute(sttMixedWindows);
  a->FBooleanArray2 = 0;
  for (auto set : {&TTextAttribute::SetChanged, &TTextAttribute::SetSpellCheck, &TTextAttribute::SetTempTag,
                   &TTextAttribute::SetWrapped, &TTextAttribute::SetTempNodeEndBefore, &TTextAttribute::SetLinefeedLF})
    (a.get()->*set)(true);
  EXPECT_EQ(a->FBooleanArray.load(), (1u << 0) | (1u << 15) | (1u << 28) | (1u << 31));
  EXPECT_EQ(a->FBooleanArray2.load(), (1u << 1) | (1u << 3));
}

TEST(LineAttribute, CopyIsDeepAndOfTheSameClassButStartsAFreshStyle) {
  TAttributePtr source = FilledAttribute();
  TAttributePtr copy = CopyAttribute(*source);
  ASSERT_TRUE(copy->IsAttribute());
  EXPECT_EQ(std::tuple(copy->FBooleanArray.load(), copy->FBooleanArray2.load()),
            std::tuple(source->FBooleanArray.load(), source->FBooleanArray2.load()));
  EXPECT_EQ(std::tuple(copy->Bookmark, copy->ChangeHistory, copy->Enabled, copy->TextDiffKind),
            std::tuple(5, 7, false, 3));
  EXPECT_EQ(std::tuple(copy->SelNodeTopIdNr, copy->ExpandingClip), std::tuple(0, false));
  EXPECT_EQ(*copy->Style(), TStyle());
  EXPECT_EQ(AsStringView(copy->AsAttribute()->Braces1), u"()");
  EXPECT_EQ(copy->AsAttribute()->ceListItem, ceMethod);

  copy->SpellList.Add({1, 9, -1, -1});
  copy->AsAttribute()->TempNodeTopIdNrList.Clear();
  EXPECT_EQ(source->SpellList.Count(), 1);
  EXPECT_EQ(source->AsAttribute()->TempNodeTopIdNrList.Count(), 1);
  EXPECT_FALSE(CopyAttribute(*CreateTextAttribute(sttUnix))->IsAttribute());
}

TEST(LineAttribute, SetLineAttributeLeavesTheRowsOwnFoldsEndingStyleAndDiffState) {
  TAttributePtr value = FilledAttribute();  // every selection-fold flag on, CR alone
  TAttributePtr row = CreateAttribute(sttUnix);
  TStyle rowStyle;
  rowStyle.NodeSection = 9;
  row->SetStyle(rowStyle);
  row->SetSelNodeHead(true);
  row->SetTempSelNodeHead(true);

  SetLineAttribute(*row, *value);
  EXPECT_EQ(std::tuple(row->SelNodeHead(), row->SelNodeEnd(), row->TempSelNodeHead(), row->TempSelNodeEnd()),
            std::tuple(true, false, true, false));
  EXPECT_TRUE(row->Changed() && row->NodeEndBefore() && row->TempNodeEndBefore());
  EXPECT_EQ(std::tuple(row->LinefeedCR(), row->LinefeedLF()), std::tuple(false, true));
  EXPECT_EQ(std::tuple(row->Style()->NodeSection, row->Enabled, row->TextDiffKind, row->SelNodeTopIdNr),
            std::tuple(9, true, 0, 0));
  EXPECT_EQ(std::tuple(row->Bookmark, row->ChangeHistory), std::tuple(5, 7));
  EXPECT_EQ(row->SpellList, value->SpellList);
  EXPECT_EQ(row->AsAttribute()->TempNodeTopIdNrList, value->AsAttribute()->TempNodeTopIdNrList);
  EXPECT_EQ(row->AsAttribute()->NodeLevel, 1);

  // Between the classes only the common part goes across.
  TAttributePtr plainValue = CreateTextAttribute(sttWindows);
  plainValue->Bookmark = 1;
  SetLineAttribute(*row, *plainValue);
  EXPECT_EQ(row->Bookmark, 1);
  EXPECT_EQ(row->AsAttribute()->NodeLevel, 1);
}

TEST(LineAttribute, ConvertAttributesSwapsEveryRowByTheFirstRowsClass) {
  struct TRow {
    std::u16string Text;
    TAttributePtr Object;
  };
  std::vector<TRow> rows(3);
  rows[0].Object = FilledAttribute();
  rows[1].Object = CreateTextAttribute(sttWindows);  // a stray plain row converts too
  rows[1].Object->SetLinemark(true);
  const TAttributePtr reader = rows[0].Object;  // a reader elsewhere keeps its object

  ConvertAttributes(rows, &TRow::Object);
  const TTextAttribute& plain = *rows[0].Object;
  ASSERT_FALSE(plain.IsAttribute() || rows[1].Object->IsAttribute());
  EXPECT_FALSE(rows[2].Object);
  EXPECT_EQ(reader->Bookmark, 5);
  EXPECT_EQ(std::tuple(plain.FBooleanArray.load(), plain.FBooleanArray2.load()),
            std::tuple(reader->FBooleanArray.load(), reader->FBooleanArray2.load()));
  EXPECT_EQ(std::tuple(plain.Bookmark, plain.ChangeHistory, plain.SelNodeTopIdNr), std::tuple(5, 7, 12));
  EXPECT_EQ(*plain.Style(), ScannedStyle());
  EXPECT_TRUE(plain.SpellList.IsEmpty());
  EXPECT_TRUE(plain.Enabled);
  EXPECT_TRUE(rows[1].Object->Linemark());

  ConvertAttributes(rows, &TRow::Object);
  const TAttribute& back = *rows[0].Object->AsAttribute();
  EXPECT_EQ(back.NodeLevel, -1);
  EXPECT_TRUE(back.Braces1.IsEmpty() && back.TempNodeTopIdNrList.IsEmpty());
  EXPECT_EQ(back.Bookmark, 5);
}

TEST(LineAttribute, ClearStyleKeepsFoldStacksUnlessFolding) {
  TAttributePtr a = CreateAttribute(sttWindows);
  TAttributePtr sharer = CreateTextAttribute(sttWindows);
  a->SetStyle(ScannedStyle());
  sharer->ShareStyle(*a);
  a->ClearStyle(false);
  const TStyleRef kept = a->Style();
  EXPECT_EQ(std::tuple(kept->NodeSection, kept->Properties.BracketId, kept->Block.Cache.size()), std::tuple(-1, -1, 0u));
  EXPECT_EQ(kept->Properties.TagNr, 5);
  EXPECT_EQ(std::tuple(kept->NodeStyles.size(), kept->RegionStyles.size()), std::tuple(1u, 1u));
  a->ClearStyle(true);
  EXPECT_TRUE(a->Style()->NodeStyles.empty() && a->Style()->RegionStyles.empty());
  EXPECT_EQ(*sharer->Style(), ScannedStyle());
}

TEST(LineAttribute, TempTwinsTakeTheFoldDataAndClearWithoutTouchingSelectionFolds) {
  TAttribute a;
  a.SetNodeHead(true);
  a.SetRgn_Closed(true);
  a.SetNodeEndBefore(true);
  a.SetTempNodeEnd(true);  // stale: the live row has no NodeEnd
  a.SetTempSelNodeHead(true);
  a.NodeLevel = 2;
  a.ceListItem = ceClass;
  a.NodeTopIdNr = 77;
  a.NodeTopIdNrList.Add(77);

  a.CopyLineToTempAttribute();
  EXPECT_TRUE(a.TempNodeHead() && a.TempRgn_Closed() && a.TempNodeEndBefore());
  EXPECT_FALSE(a.TempNodeEnd());
  EXPECT_EQ(std::tuple(a.TempNodeLevel, a.ceTempListItem, a.TempNodeTopIdNr), std::tuple(2, ceClass, 77));
  EXPECT_EQ(a.TempNodeTopIdNrList, a.NodeTopIdNrList);

  a.ClearTempLineAttribute();
  EXPECT_FALSE(a.TempNodeHead() || a.TempRgn_Closed() || a.TempNodeEndBefore());
  EXPECT_EQ(std::tuple(a.TempNodeLevel, a.ceTempListItem, a.TempNodeTopIdNr), std::tuple(-1, ceNone, -1));
  EXPECT_TRUE(a.TempNodeTopIdNrList.IsEmpty());
  EXPECT_TRUE(a.TempSelNodeHead() && a.NodeHead());
}

TEST(CompactArray, GrowsAndCopiesEvenFromItself) {
  TCompactArray<int> a;
  for (int i = 0; i < 100; ++i) a.Add(i);
  a.Add(a[99]);  // an item of the array itself survives the growth
  EXPECT_EQ(std::tuple(a.Count(), a[100]), std::tuple(101, 99));
  TCompactArray<int> b = a;
  a.Assign(a.Items().subspan(50, 3));  // a slice of itself
  EXPECT_EQ(std::vector<int>(a.begin(), a.end()), (std::vector<int>{50, 51, 52}));
  EXPECT_EQ(b.Count(), 101);
}

TEST(LineAttribute, RowObjectsStaySmall) {
  // A store holds millions of rows: a pointer per rarely used list, no vtable.
  EXPECT_LE(sizeof(TTextAttribute), 64u);
  EXPECT_LE(sizeof(TAttribute), 128u);
  EXPECT_EQ(sizeof(TAttributePtr), sizeof(void*));
}
