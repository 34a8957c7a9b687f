#include "textstore/LineAttribute.h"

#include <cstdint>
#include <iterator>
#include <mutex>
#include <string_view>

#include "textstore/HashCombine.h"

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

const TStyleRef& ClearedStyle() {
  static const TStyleRef cleared = std::make_shared<const TStyle>();
  return cleared;
}

template <class T>
void HashItems(size_t& seed, const TCompactArray<T>& items) {
  const std::span<const T> bytes = items.Items();
  HashCombine(seed, std::string_view(reinterpret_cast<const char*>(bytes.data()), bytes.size_bytes()));
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

// The style handle of a row is copied by the background thread while the
// main thread replaces it. A lock per attribute would cost a row its size, so
// attributes share a few locks by address; each is held for one handle copy.
static std::mutex& StyleLock(const TTextAttribute* a) {
  static std::mutex locks[64];
  return locks[(reinterpret_cast<uintptr_t>(a) / 64) % std::size(locks)];
}

TStyleRef TTextAttribute::StyleRecord() const {
  std::lock_guard lock(StyleLock(this));
  return FStyle;
}

void TTextAttribute::SetStyleRecord(TStyleRef record) {
  std::lock_guard lock(StyleLock(this));
  FStyle.swap(record);
}

TStyleRef TTextAttribute::Style() const {
  TStyleRef record = StyleRecord();
  return record ? record : ClearedStyle();
}

void TTextAttribute::SetStyle(TStyle value) {
  if (value == *ClearedStyle())
    SetStyleRecord(nullptr);
  else
    SetStyleRecord(std::make_shared<const TStyle>(std::move(value)));
}

void TTextAttribute::ClearStyle(bool bFolding) {
  const TStyleRef record = StyleRecord();
  if (!record) return;
  TStyle style = *record;
  style.Clear(bFolding);
  SetStyle(std::move(style));
}

bool TTextAttribute::SameAs(const TTextAttribute& other) const {
  const bool bOwnFields =
      FClass == other.FClass && FBooleanArray.load(std::memory_order_relaxed) == other.FBooleanArray.load(std::memory_order_relaxed) &&
      FBooleanArray2.load(std::memory_order_relaxed) == other.FBooleanArray2.load(std::memory_order_relaxed) &&
      ExpandingClip == other.ExpandingClip && LineNr == other.LineNr && SelNodeTopIdNr == other.SelNodeTopIdNr &&
      UndoNr == other.UndoNr && ChangeHistory == other.ChangeHistory && FindId == other.FindId &&
      FindWrapLen == other.FindWrapLen && FindWrapPos == other.FindWrapPos && Bookmark == other.Bookmark &&
      ChangeLastSavedAt == other.ChangeLastSavedAt && TextDiffKind == other.TextDiffKind &&
      Enabled == other.Enabled && SpellList == other.SpellList &&
      StyleRecord() == other.StyleRecord();
  if (!bOwnFields) return false;
  const TAttribute* a = AsAttribute();
  const TAttribute* b = other.AsAttribute();
  return !a || (a->Braces1 == b->Braces1 && a->Braces2 == b->Braces2 && a->Braces3 == b->Braces3 &&
                a->NodeTopIdNrList == b->NodeTopIdNrList && a->TempNodeTopIdNrList == b->TempNodeTopIdNrList &&
                a->NodeTopIdNr == b->NodeTopIdNr && a->TempNodeTopIdNr == b->TempNodeTopIdNr &&
                a->TagId == b->TagId && a->NodeLevel == b->NodeLevel && a->TempNodeLevel == b->TempNodeLevel &&
                a->Rgn_Level == b->Rgn_Level && a->TempRgn_Level == b->TempRgn_Level &&
                a->ceListItem == b->ceListItem && a->ceTempListItem == b->ceTempListItem);
}

size_t TTextAttribute::Hash() const {
  size_t seed = FClass;
  HashCombine(seed, FBooleanArray.load(std::memory_order_relaxed));
  HashCombine(seed, FBooleanArray2.load(std::memory_order_relaxed));
  HashCombine(seed, ChangeHistory);
  HashCombine(seed, LineNr);
  HashCombine(seed, int(Bookmark));
  HashCombine(seed, StyleRecord().get());
  HashItems(seed, SpellList);
  if (const TAttribute* a = AsAttribute()) {
    HashItems(seed, a->Braces1);
    HashItems(seed, a->Braces2);
    HashItems(seed, a->Braces3);
    HashItems(seed, a->NodeTopIdNrList);
    HashCombine(seed, a->NodeTopIdNr);
    HashCombine(seed, int(a->NodeLevel));
  }
  return seed;
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
  result->FBooleanArray = value.FBooleanArray.load(std::memory_order_relaxed);
  result->FBooleanArray2 = value.FBooleanArray2.load(std::memory_order_relaxed);
  CopyMarksAndHistory(value, *result);
  result->SpellList = value.SpellList;
  result->Enabled = value.Enabled;
  result->TextDiffKind = value.TextDiffKind;
  if (const TAttribute* source = value.AsAttribute()) result->AsAttribute()->AssignAttributeFields(*source);
  return result;
}

TAttributePtr CloneAttribute(const TTextAttribute& value) {
  TAttributePtr result = CopyAttribute(value);
  result->SelNodeTopIdNr = value.SelNodeTopIdNr;
  result->ExpandingClip = value.ExpandingClip;
  result->ShareStyle(value);
  return result;
}

void SetLineAttribute(TTextAttribute& row, const TTextAttribute& value) {
  row.FBooleanArray = (value.FBooleanArray & ~kSelectionFoldFlags) | (row.FBooleanArray & kSelectionFoldFlags);
  row.FBooleanArray2 = uint16_t((value.FBooleanArray2 & kNodeEndBeforeFlags) | (row.FBooleanArray2 & ~kNodeEndBeforeFlags));
  CopyMarksAndHistory(value, row);
  row.SpellList = value.SpellList;
  const TAttribute* source = value.AsAttribute();
  TAttribute* target = row.AsAttribute();
  if (source && target) target->AssignAttributeFields(*source);
}

TAttributePtr ConvertAttribute(const TTextAttribute& old, bool bToAttribute) {
  TAttributePtr result = NewOfClass(bToAttribute);
  result->FBooleanArray = old.FBooleanArray.load(std::memory_order_relaxed);
  result->FBooleanArray2 = old.FBooleanArray2.load(std::memory_order_relaxed);
  result->SelNodeTopIdNr = old.SelNodeTopIdNr;
  result->ShareStyle(old);
  CopyMarksAndHistory(old, *result);
  return result;
}

} // namespace orl
