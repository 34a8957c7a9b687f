#pragma once
// What the store knows about a row apart from its characters: fold, region,
// tag, bookmark and history flags, the ending of the line before it, the scan
// state at its end, spell marks and the text-diff state.
//
// TTextAttribute is the plain form, for a memo without a style set; TAttribute
// adds the fold, brace and outline data that a style set produces. Neither has
// virtual functions (a vtable pointer per row is too dear at millions of
// rows): a one-byte class tag tells them apart and TAttributePtr deletes each
// as its own class. Rows share ownership through TAttributePtr so that the
// background thread can keep a row's attribute alive after the store's lock is
// released.
//
// Rows with equal attributes share one object, which is then marked shared and
// never written again: a writer first gives its row a copy (the store does
// this). The two flag words are atomic, because the background thread sets
// flags (links, spelling, to-do items) of a row whose other flags (hidden,
// line marks, history) the main thread writes at the same time.

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <ranges>
#include <utility>

#include "textstore/CodeExplorerKind.h"
#include "textstore/CompactArray.h"
#include "textstore/LineStyle.h"
#include "textstore/SysTextType.h"

namespace orl {

/// One misspelt word of a row.
struct TSpellRec {
  int nl;  // length
  int nx;  // 1-based position
  int x1;
  int x2;
  bool operator==(const TSpellRec&) const = default;
};
using TSpellList = TCompactArray<TSpellRec>;

/// Bits of FBooleanArray.
enum TLineFlag : uint8_t {
  lfChanged, lfChangeSaved, lfHidden, lfLinemark, lfNodeBegin, lfNodeClosed, lfNodeComment, lfNodeEnd,
  lfNodeHead, lfRgn_Begin, lfRgn_Closed, lfRgn_End, lfSelNodeClosed, lfSelNodeEnd, lfSelNodeHead, lfSpellCheck,
  lfTag, lfTempNodeBegin, lfTempNodeClosed, lfTempNodeComment, lfTempNodeEnd, lfTempNodeHead, lfTempRgn_Begin,
  lfTempRgn_Closed, lfTempRgn_End, lfTempSelNodeClosed, lfTempSelNodeEnd, lfTempSelNodeHead, lfTempTag,
  lfTodoItem, lfURL, lfWrapped
};

/// Bits of FBooleanArray2.
enum TLineFlag2 : uint8_t { lf2NodeEndBefore, lf2TempNodeEndBefore, lf2LinefeedCR, lf2LinefeedLF };

class TAttribute;
class TAttributePtr;

#define ORL_LINE_FLAG(Name, Flag)                 \
  bool Name() const { return GetValue(Flag); }    \
  void Set##Name(bool value) { SetValue(Flag, value); }

class TTextAttribute {
public:
  /// All flags off, no bookmark, no history, enabled, cleared style.
  TTextAttribute() : TTextAttribute(acText) {}
  TTextAttribute(const TTextAttribute&) = delete;
  TTextAttribute& operator=(const TTextAttribute&) = delete;

  bool GetValue(TLineFlag index) const { return (FBooleanArray.load(std::memory_order_relaxed) >> index) & 1u; }
  void SetValue(TLineFlag index, bool value) { SetBit(FBooleanArray, index, value); }
  bool GetValue(TLineFlag2 index) const { return (FBooleanArray2.load(std::memory_order_relaxed) >> index) & 1u; }
  void SetValue(TLineFlag2 index, bool value) { SetBit(FBooleanArray2, index, value); }

  ORL_LINE_FLAG(Changed, lfChanged)
  ORL_LINE_FLAG(ChangeSaved, lfChangeSaved)
  /// Written only through SetValue by the store, which keeps its count of visible rows.
  bool Hidden() const { return GetValue(lfHidden); }
  ORL_LINE_FLAG(Linemark, lfLinemark)
  ORL_LINE_FLAG(NodeBegin, lfNodeBegin)
  ORL_LINE_FLAG(NodeClosed, lfNodeClosed)
  ORL_LINE_FLAG(NodeComment, lfNodeComment)
  ORL_LINE_FLAG(NodeEnd, lfNodeEnd)
  ORL_LINE_FLAG(NodeHead, lfNodeHead)
  ORL_LINE_FLAG(Rgn_Begin, lfRgn_Begin)
  ORL_LINE_FLAG(Rgn_Closed, lfRgn_Closed)
  ORL_LINE_FLAG(Rgn_End, lfRgn_End)
  ORL_LINE_FLAG(SelNodeClosed, lfSelNodeClosed)
  ORL_LINE_FLAG(SelNodeEnd, lfSelNodeEnd)
  ORL_LINE_FLAG(SelNodeHead, lfSelNodeHead)
  ORL_LINE_FLAG(SpellCheck, lfSpellCheck)
  ORL_LINE_FLAG(Tag, lfTag)
  ORL_LINE_FLAG(TempNodeBegin, lfTempNodeBegin)
  ORL_LINE_FLAG(TempNodeClosed, lfTempNodeClosed)
  ORL_LINE_FLAG(TempNodeComment, lfTempNodeComment)
  ORL_LINE_FLAG(TempNodeEnd, lfTempNodeEnd)
  ORL_LINE_FLAG(TempNodeHead, lfTempNodeHead)
  ORL_LINE_FLAG(TempRgn_Begin, lfTempRgn_Begin)
  ORL_LINE_FLAG(TempRgn_Closed, lfTempRgn_Closed)
  ORL_LINE_FLAG(TempRgn_End, lfTempRgn_End)
  ORL_LINE_FLAG(TempSelNodeClosed, lfTempSelNodeClosed)
  ORL_LINE_FLAG(TempSelNodeEnd, lfTempSelNodeEnd)
  ORL_LINE_FLAG(TempSelNodeHead, lfTempSelNodeHead)
  ORL_LINE_FLAG(TempTag, lfTempTag)
  ORL_LINE_FLAG(TodoItem, lfTodoItem)
  ORL_LINE_FLAG(URL, lfURL)
  ORL_LINE_FLAG(Wrapped, lfWrapped)
  ORL_LINE_FLAG(NodeEndBefore, lf2NodeEndBefore)
  ORL_LINE_FLAG(TempNodeEndBefore, lf2TempNodeEndBefore)
  ORL_LINE_FLAG(LinefeedCR, lf2LinefeedCR)
  ORL_LINE_FLAG(LinefeedLF, lf2LinefeedLF)

  /// True for a TAttribute.
  bool IsAttribute() const { return FClass == acAttribute; }
  /// This object as a TAttribute, null for a plain TTextAttribute.
  TAttribute* AsAttribute();
  const TAttribute* AsAttribute() const;

  /// The scan state at the row's end. The record is immutable and the
  /// handle keeps it alive, even when another thread gives the row a new one.
  TStyleRef Style() const;
  void SetStyle(TStyle value);
  /// Takes `record` itself, null for the cleared state: rows with equal states share one.
  void SetStyleRecord(TStyleRef record);
  /// Takes the very record of `source`.
  void ShareStyle(const TTextAttribute& source) { SetStyleRecord(source.StyleRecord()); }
  void ClearStyle(bool bFolding);

  /// Held by several rows (or kept for them): a writer must copy it first.
  bool IsShared() const { return FShared.load(std::memory_order_acquire); }
  void MarkShared() { FShared.store(true, std::memory_order_release); }
  /// Every field of `other` equal, the style record the same one.
  bool SameAs(const TTextAttribute& other) const;
  /// A hash of what SameAs compares.
  size_t Hash() const;

  /// Marks the row for the next spell pass and forgets its old marks.
  void RequestSpellCheck();
  /// Copies the fold data to its Temp twins, where a scan works on it.
  void CopyLineToTempAttribute();
  /// Resets the Temp twins before a scan fills them.
  void ClearTempLineAttribute();

  // Fields are ordered for packing, so that a row's attribute fills one
  // cache line; the spell list and the style cost a pointer while unused.
  std::atomic<uint32_t> FBooleanArray = 0;
  std::atomic<uint16_t> FBooleanArray2 = 0;
  bool ExpandingClip = false;
  int LineNr = 0;
  int SelNodeTopIdNr = 0;
  int UndoNr = -1;
  int ChangeHistory = 0;
  int8_t FindId = 0;
  int8_t FindWrapLen = 0;
  int8_t FindWrapPos = 0;
  int8_t Bookmark = -1;
  int8_t ChangeLastSavedAt = -100;  // ChangeHistory at the last save, in 8 bits
  int8_t TextDiffKind = 0;
  bool Enabled = true;
  TSpellList SpellList;

protected:
  enum TAttributeClass : uint8_t { acText, acAttribute };
  explicit TTextAttribute(TAttributeClass cls) : FClass(cls) {}
  // Deleting through this class would skip a TAttribute's own part; only
  // TAttributePtr deletes, and it knows the class.
  ~TTextAttribute() = default;

private:
  friend class TAttributePtr;
  template <class TWord> static void SetBit(std::atomic<TWord>& word, unsigned index, bool value) {
    const TWord bit = TWord(1u << index);
    if (value)
      word.fetch_or(bit, std::memory_order_relaxed);
    else
      word.fetch_and(TWord(~bit), std::memory_order_relaxed);
  }

  TAttributeClass FClass;
  std::atomic<bool> FShared = false;
  std::atomic<uint32_t> FRefCount{0};
  /// The record itself, null for the cleared state.
  TStyleRef StyleRecord() const;

  // Null stands for the cleared record, which most rows of a plain memo keep;
  // records are immutable, so a reader on another thread may keep one after
  // the row has moved on. The handle itself is read and written under one of
  // a few shared locks (see LineAttribute.cpp).
  TStyleRef FStyle;
};

#undef ORL_LINE_FLAG

class TAttribute : public TTextAttribute {
public:
  /// As TTextAttribute, with no fold levels and empty lists.
  TAttribute() : TTextAttribute(acAttribute) {}
  ~TAttribute() = default;

  /// Copies every field that this class adds.
  void AssignAttributeFields(const TAttribute& source);

  TCompactArray<char16_t> Braces1;  // round brackets of the row, in text order
  TCompactArray<char16_t> Braces2;  // curly
  TCompactArray<char16_t> Braces3;  // square
  TCompactArray<int> NodeTopIdNrList;
  TCompactArray<int> TempNodeTopIdNrList;
  int NodeTopIdNr = 0;
  int TempNodeTopIdNr = 0;
  int TagId = 0;
  int8_t NodeLevel = -1;
  int8_t TempNodeLevel = -1;
  int8_t Rgn_Level = -1;
  int8_t TempRgn_Level = -1;
  TCEListItemType ceListItem = ceNone;
  TCEListItemType ceTempListItem = ceNone;
};

inline TAttribute* TTextAttribute::AsAttribute() { return IsAttribute() ? static_cast<TAttribute*>(this) : nullptr; }
inline const TAttribute* TTextAttribute::AsAttribute() const {
  return IsAttribute() ? static_cast<const TAttribute*>(this) : nullptr;
}

/// Shared ownership of a row's attribute: one pointer per row and a counter
/// inside the object, where std::shared_ptr would add a control block. The
/// pointer itself is atomic (plain loads and stores on common hardware) so
/// that a row's slot may be re-pointed under the store's lock by one thread
/// while another reads it without the lock.
class TAttributePtr {
public:
  TAttributePtr() = default;
  TAttributePtr(std::nullptr_t) {}
  /// Adopts a newly created object.
  explicit TAttributePtr(TTextAttribute* fresh) : FObject(fresh) { Acquire(); }
  TAttributePtr(const TAttributePtr& other) : FObject(other.get()) { Acquire(); }
  TAttributePtr(TAttributePtr&& other) noexcept : FObject(other.get()) { other.Set(nullptr); }
  TAttributePtr& operator=(TAttributePtr other) noexcept {
    TTextAttribute* mine = get();
    Set(other.get());
    other.Set(mine);
    return *this;
  }
  ~TAttributePtr() { Release(); }

  TTextAttribute* get() const { return FObject.load(std::memory_order_acquire); }
  /// How many handles hold the object; 1 when this is the only one.
  uint32_t UseCount() const { return get() ? get()->FRefCount.load(std::memory_order_acquire) : 0; }
  TTextAttribute* operator->() const { return get(); }
  TTextAttribute& operator*() const { return *get(); }
  explicit operator bool() const { return get() != nullptr; }

private:
  void Set(TTextAttribute* object) { FObject.store(object, std::memory_order_release); }
  void Acquire() {
    if (TTextAttribute* object = get()) object->FRefCount.fetch_add(1, std::memory_order_relaxed);
  }
  void Release() {
    TTextAttribute* object = get();
    if (object && object->FRefCount.fetch_sub(1, std::memory_order_acq_rel) == 1) Destroy(object);
  }
  static void Destroy(TTextAttribute* object);

  std::atomic<TTextAttribute*> FObject{nullptr};
};

/// A new TAttribute, line-ending flags after the document's type.
TAttributePtr CreateAttribute(TSysTextType textType);
/// A new plain TTextAttribute, line-ending flags after the document's type.
TAttributePtr CreateTextAttribute(TSysTextType textType);
/// A copy of the same class with everything but the style, the selection-fold
/// id and the clip mark, which start fresh.
TAttributePtr CopyAttribute(const TTextAttribute& value);
/// A private copy with every field, the style record shared: what a row that
/// held a shared attribute gets before it is written.
TAttributePtr CloneAttribute(const TTextAttribute& value);
/// Writes `value` into a row's attribute. The row keeps its selection folds,
/// line ending, style and diff state; the TAttribute fields go across only
/// between two TAttributes.
void SetLineAttribute(TTextAttribute& row, const TTextAttribute& value);
/// A new attribute of the class asked for, carrying the flags, marks, history
/// and style of `old`.
TAttributePtr ConvertAttribute(const TTextAttribute& old, bool bToAttribute);

/// Swaps the class of every row's attribute: rows become TTextAttributes if the
/// first row holds a TAttribute, TAttributes otherwise. `slotOf` gives a row's
/// TAttributePtr. Rows without an attribute, and a store without rows, are left
/// alone.
template <std::ranges::forward_range TRows, class TProj = std::identity>
void ConvertAttributes(TRows&& rows, TProj slotOf = {}) {
  auto first = std::ranges::begin(rows);
  if (first == std::ranges::end(rows)) return;
  const TAttributePtr& head = std::invoke(slotOf, *first);
  if (!head) return;
  const bool bToAttribute = !head->IsAttribute();
  for (auto&& row : rows) {
    TAttributePtr& slot = std::invoke(slotOf, row);
    if (slot) slot = ConvertAttribute(*slot, bToAttribute);
  }
}

} // namespace orl
