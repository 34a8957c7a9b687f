#include "textstore/LineAttribute.h"

namespace orl {

namespace {

constexpr uint32_t Bit(TLineFlag flag) { return 1u << flag; }
constexpr uint16_t Bit(TLineFlag2 flag) { return uint16_t(1u << flag); }

// The selection folds belong to the user, not to the text written into a row.
constexpr uint32_t kSelectionFoldFlags = Bit(lfSelNodeClosed) | Bit(lfSelNodeEnd) | Bit(lfSelNodeHead) |
                                         Bit(lfTempSelNodeClosed) | Bit(lfTempSelNodeEnd) | Bit(lfTempSelNodeHead);
constexpr uint16_t kNodeEndBeforeFlags = Bit(lf2NodeEndBefore) | Bit(lf2TempNodeEndBefore);

// The fold data a scan recomputes, as pairs of live flag and Temp twin.
constexpr std::pair<TLineFlag, TLineFlag> kTempTwins[] = {
    {lfTag, lfTempTag},           {lfNodeHead, lfTempNodeHead},       {lfNodeBegin, lfTempNodeBegin},
    {lfNodeEnd, lfTempNodeEnd},   {lfNodeComment, lfTempNodeComment}, {lfNodeClosed, lfTempNodeClosed},
    {lfRgn_Begin, lfTempRgn_Begin}, {lfRgn_End, lfTempRgn_End},       {lfRgn_Closed, lfTempRgn_Closed},
};

const TStyle& ClearedStyle() {
  static const TStyle cleared;
  return cleared;
}

void SetLineEnding(TTextAttribute& a, TSysTextType textType) {
  const bool bUnix = textType == sttUnix || textType == sttMixedUnix;
  const bool bMac = textType == sttMac || textType == sttMixedMac;
  a.SetLinefeedLF(!bMac);
  a.SetLinefeedCR(!bUnix);
}

// The fields that every way of carrying a row's state across keeps.
void CopyMarksAndHistory(const TTextAttribute& from, TTextAttribute& to) {
  to.Bookmark = from.Bookmark;
  to.FindId = from.FindId;
  to.FindWrapLen = from.FindWrapLen;
  to.FindWrapPos = from.FindWrapPos;
  to.ChangeLastSavedAt = from.ChangeLastSavedAt;
  to.ChangeHistory = from.ChangeHistory;
  to.LineNr = from.LineNr;
  to.UndoNr = from.UndoNr;
}

TAttributePtr NewOfClass(bool bAttribute) {
  return TAttributePtr(bAttribute ? static_cast<TTextAttribute*>(new TAttribute) : new TTextAttribute);
}

} // namespace

const TStyle& TTextAttribute::Style() const { return FStyle ? *FStyle : ClearedStyle(); }

void TTextAttribute::SetStyle(TStyle value) {
  if (value == ClearedStyle())
    FStyle.reset();
  else
    FStyle = std::make_shared<const TStyle>(std::move(value));
}

void TTextAttribute::ClearStyle(bool bFolding) {
  if (!FStyle) return;
  TStyle style = *FStyle;
  style.Clear(bFolding);
  SetStyle(std::move(style));
}

void TTextAttribute::RequestSpellCheck() {
  SpellList.Clear();
  SetSpellCheck(true);
}

void TTextAttribute::CopyLineToTempAttribute() {
  for (const auto& [live, temp] : kTempTwins) SetValue(temp, GetValue(live));
  SetTempNodeEndBefore(NodeEndBefore());
  if (TAttribute* a = AsAttribute()) {
    a->TempNodeLevel = a->NodeLevel;
    a->TempRgn_Level = a->Rgn_Level;
    a->ceTempListItem = a->ceListItem;
    a->TempNodeTopIdNr = a->NodeTopIdNr;
    a->TempNodeTopIdNrList = a->NodeTopIdNrList;
  }
}

void TTextAttribute::ClearTempLineAttribute() {
  for (const auto& twin : kTempTwins) SetValue(twin.second, false);
  SetTempNodeEndBefore(false);
  if (TAttribute* a = AsAttribute()) {
    a->TempNodeLevel = -1;
    a->TempRgn_Level = -1;
    a->ceTempListItem = ceNone;
    a->TempNodeTopIdNr = -1;
    a->TempNodeTopIdNrList.Clear();
  }
}

void TAttribute::AssignAttributeFields(const TAttribute& source) {
  Braces1 = source.Braces1;
  Braces2 = source.Braces2;
  Braces3 = source.Braces3;
  NodeTopIdNrList = source.NodeTopIdNrList;
  TempNodeTopIdNrList = source.TempNodeTopIdNrList;
  NodeTopIdNr = source.NodeTopIdNr;
  TempNodeTopIdNr = source.TempNodeTopIdNr;
  TagId = source.TagId;
  NodeLevel = source.NodeLevel;
  TempNodeLevel = source.TempNodeLevel;
  Rgn_Level = source.Rgn_Level;
  TempRgn_Level = source.TempRgn_Level;
  ceListItem = source.ceListItem;
  ceTempListItem = source.ceTempListItem;
}

void TAttributePtr::Destroy(TTextAttribute* object) {
  if (TAttribute* a = object->AsAttribute())
    delete a;
  else
    delete object;
}

TAttributePtr CreateAttribute(TSysTextType textType) {
  TAttributePtr result = NewOfClass(true);
  SetLineEnding(*result, textType);
  return result;
}

TAttributePtr CreateTextAttribute(TSysTextType textType) {
  TAttributePtr result = NewOfClass(false);
  SetLineEnding(*result, textType);
  return result;
}

TAttributePtr CopyAttribute(const TTextAttribute& value) {
  TAttributePtr result = NewOfClass(value.IsAttribute());
  result->FBooleanArray = value.FBooleanArray;
  result->FBooleanArray2 = value.FBooleanArray2;
  CopyMarksAndHistory(value, *result);
  result->SpellList = value.SpellList;
  result->Enabled = value.Enabled;
  result->TextDiffKind = value.TextDiffKind;
  if (const TAttribute* source = value.AsAttribute()) result->AsAttribute()->AssignAttributeFields(*source);
  return result;
}

void SetLineAttribute(TTextAttribute& row, const TTextAttribute& value) {
  row.FBooleanArray = (value.FBooleanArray & ~kSelectionFoldFlags) | (row.FBooleanArray & kSelectionFoldFlags);
  row.FBooleanArray2 =
      uint16_t((value.FBooleanArray2 & kNodeEndBeforeFlags) | (row.FBooleanArray2 & ~kNodeEndBeforeFlags));
  CopyMarksAndHistory(value, row);
  row.SpellList = value.SpellList;
  const TAttribute* source = value.AsAttribute();
  TAttribute* target = row.AsAttribute();
  if (source && target) target->AssignAttributeFields(*source);
}

TAttributePtr ConvertAttribute(const TTextAttribute& old, bool bToAttribute) {
  TAttributePtr result = NewOfClass(bToAttribute);
  result->FBooleanArray = old.FBooleanArray;
  result->FBooleanArray2 = old.FBooleanArray2;
  result->SelNodeTopIdNr = old.SelNodeTopIdNr;
  result->ShareStyle(old);
  CopyMarksAndHistory(old, *result);
  return result;
}

} // namespace orl
