#pragma once
// The wide string lists of the engine: TElWideStrings, the abstract list of
// UTF-16 lines with the name=value reading and text and stream helpers, and
// TElWideStringListOf, the concrete list with a sorted mode, duplicates and
// owned objects, on which the line store stands.
//
// Invariant of TElWideStringListOf: FList holds the lines in order, each with
// the one object it owns (or none); Count() <= Capacity(); while FSorted, the
// lines are in the order of Find's comparison. Every change of FList happens
// under FLock, a re-entrant monitor, so that another thread may read lines
// under the same lock while this one edits.

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <utility>

#include "definition/StringList.h"
#include "platform/MemoryStream.h"
#include "platform/OrlError.h"
#include "textstore/GapArray.h"
#include "textstore/SharedWideString.h"

namespace orl {

/// A bad index, a change that a sorted list forbids, or a refused duplicate.
class EStringListError : public EOrlError {
public:
  using EOrlError::EOrlError;
};

/// A stream whose size lies below its position, or a value of the wrong kind.
class EReadError : public EOrlError {
public:
  using EOrlError::EOrlError;
};

inline constexpr const char* SListIndexError = "List index out of bounds";
inline constexpr const char* SSortedListError = "Operation not allowed on a sorted list";
inline constexpr const char* SDuplicateString = "String list does not allow duplicates";

/// What a sorted list does with a line that it already holds.
enum TDuplicates : uint8_t { dupIgnore, dupAccept, dupError };

class TElWideStrings {
public:
  using TNotifyEvent = std::function<void(TElWideStrings& Sender)>;

  TElWideStrings() = default;
  TElWideStrings(const TElWideStrings&) = delete;
  TElWideStrings& operator=(const TElWideStrings&) = delete;
  virtual ~TElWideStrings() = default;

  virtual int GetCount() const = 0;
  int Count() const { return GetCount(); }
  virtual int GetCapacity() const { return GetCount(); }
  virtual void SetCapacity(int) {}

  /// The line at Index.
  virtual std::u16string Get(int Index) const = 0;
  virtual void Put(int Index, std::u16string_view S) = 0;
  /// Appends S (a sorted list puts it in its place); returns its index.
  virtual int Add(std::u16string_view S) = 0;
  void Append(std::u16string_view S) { Add(S); }
  /// Appends the lines of Strings (not their objects: a list owns its objects).
  virtual void AddStrings(const TElWideStrings& Strings);
  /// Replaces the lines with those of Source.
  virtual void Assign(const TElWideStrings& Source);
  virtual void Clear() = 0;
  virtual void Delete(int Index) = 0;
  virtual void Exchange(int Index1, int Index2) = 0;
  virtual void Insert(int Index, std::u16string_view S) = 0;
  /// Moves the line at CurIndex, with its object, to NewIndex.
  virtual void Move(int CurIndex, int NewIndex) = 0;
  /// Index of the first line equal to S under the list's case rule, -1 for none.
  virtual int IndexOf(std::u16string_view S) const;
  /// Index of the first line whose name (text before "=") is Name, -1 for none.
  virtual int IndexOfName(std::u16string_view Name) const;

  /// Each line followed by CR LF.
  virtual std::u16string GetTextStr() const;
  /// Replaces the lines by those of Value, split at CR, LF and CR LF; an
  /// ending after the last line adds no empty line.
  virtual void SetTextStr(std::u16string_view Value);
  std::u16string Text() const { return GetTextStr(); }
  virtual void SetText(std::u16string_view Value) { SetTextStr(Value); }

  /// Reads the rest of Stream: UTF-16 when FSaveUnicode is set or a
  /// byte-order mark opens it, else bytes of the system's code page.
  virtual void LoadFromStream(TMemoryStream& Stream);
  /// Writes GetTextStr: UTF-16 with a mark when FSaveUnicode is set, else in
  /// the system's code page.
  virtual void SaveToStream(TMemoryStream& Stream);
  virtual void LoadFromFile(const std::filesystem::path& FileName);
  virtual void SaveToFile(const std::filesystem::path& FileName);

  /// Nested: only the outermost pair switches the update state.
  void BeginUpdate();
  void EndUpdate();
  int UpdateCount() const { return FUpdateCount; }

  /// Same count and same lines.
  bool Equals(const TElWideStrings& Strings) const;
  /// Text before the first "=" of the line, empty when it has none.
  std::u16string GetName(int Index) const;
  /// Text after "Name=" of the line of that name, empty when there is none.
  std::u16string GetValue(std::u16string_view Name) const;
  /// Writes "Name=Value" over the line of that name or appends it; an empty
  /// Value deletes the line.
  void SetValue(std::u16string_view Name, std::u16string_view Value);
  /// Text after the name and "=" of the line at Index.
  std::u16string GetValueFromIndex(int Index) const;

  bool FSaveUnicode = false;
  bool FSaved = true;

protected:
  /// The loads' common step: the bytes of a whole file or stream into lines.
  void LoadFromBytes(std::string_view bytes);
  /// Called with true by the outermost BeginUpdate, with false by the outermost EndUpdate.
  virtual void SetUpdateState(bool Updating) = 0;
  /// Whether two lines are equal for IndexOf and IndexOfName.
  virtual bool SameLine(std::u16string_view a, std::u16string_view b) const;

  int FUpdateCount = 0;
};

template <class TSlot>
class TElWideStringListOf : public TElWideStrings {
public:
  using TObjectPtr = decltype(std::declval<const TSlot&>().get());
  /// Orders two lines of the list for CustomSort, like a comparison of texts.
  using TStringListSortCompare = std::function<int(TElWideStringListOf& List, int Index1, int Index2)>;

  /// One line and the object it owns.
  struct TWideStringItem {
    TSharedWideString FString;
    TSlot FObject;
  };

  TElWideStringListOf() = default;
  ~TElWideStringListOf() override;

  int GetCount() const override { return int(FList.Count()); }
  int GetCapacity() const override { return FCapacity; }
  /// Below the count it is ignored.
  void SetCapacity(int NewCapacity) override;

  std::u16string Get(int Index) const override;
  void Put(int Index, std::u16string_view S) override;
  int Add(std::u16string_view S) override { return AddObject(S, TSlot()); }
  void Clear() override;
  void Delete(int Index) override;
  void Exchange(int Index1, int Index2) override;
  void Insert(int Index, std::u16string_view S) override { InsertObject(Index, S, TSlot()); }
  void Move(int CurIndex, int NewIndex) override;
  int IndexOf(std::u16string_view S) const override;

  TObjectPtr GetObject(int Index) const;
  /// Adopts AObject and frees the object it replaces.
  void PutObject(int Index, TSlot AObject);
  int AddObject(std::u16string_view S, TSlot AObject);
  void InsertObject(int Index, std::u16string_view S, TSlot AObject);
  int IndexOfObject(const void* AObject) const;

  bool Sorted() const { return FSorted; }
  virtual void SetSorted(bool Value);
  TDuplicates Duplicates() const { return FDuplicates; }
  void SetDuplicates(TDuplicates Value) { FDuplicates = Value; }
  bool CaseSensitive() const { return FCaseSensitive; }
  void SetCaseSensitive(bool Value) { FCaseSensitive = Value; }

  /// Binary search over a sorted list, without regard to case. True on a
  /// hit; Index is the hit (with dupAccept the first of equal lines) or the
  /// place where S belongs.
  virtual bool Find(std::u16string_view S, int& Index) const;
  /// Quicksort with the middle line as pivot, by Find's comparison.
  virtual void Sort();
  virtual void CustomSort(const TStringListSortCompare& Compare);

  TNotifyEvent OnChange;
  TNotifyEvent OnChanging;

protected:
  using TItem = TWideStringItem;

  void SetUpdateState(bool Updating) override;
  bool SameLine(std::u16string_view a, std::u16string_view b) const override;
  virtual void Changed();
  virtual void Changing();
  /// Inserts without checks, with events; the capacity grows first when full.
  virtual void InsertItem(int Index, std::u16string_view S, TSlot AObject);

  bool ValidIndex(int Index) const { return Index >= 0 && Index < GetCount(); }
  /// Raises SListIndexError for an index outside the lines.
  void CheckIndex(int Index) const;
  /// The capacity rule: 16 more while below 2048, 64 more from then on.
  void Grow();

  // The primitives that change the array; each holds FLock.

  template <class TMake>
  void StoreInsert(int Index, int Count, TMake&& make) {
    std::lock_guard lock(FLock);
    FList.InsertN(size_t(Index), size_t(Count), make);
    RowsReplaced(Index, 0, Count);
  }
  void StoreErase(int Index, int Count) {
    std::lock_guard lock(FLock);
    FList.Erase(size_t(Index), size_t(Count));
    RowsReplaced(Index, Count, 0);
  }
  void StoreClear() {
    std::lock_guard lock(FLock);
    const int count = GetCount();
    FList.Clear();
    RowsReplaced(0, count, 0);
  }
  void StoreSwap(int Index1, int Index2) {
    std::lock_guard lock(FLock);
    std::swap(FList[size_t(Index1)], FList[size_t(Index2)]);
    RowsReplaced(Index1, 1, 1);
    RowsReplaced(Index2, 1, 1);
  }
  /// After every change of the array or of a row's text: `Removed` rows from
  /// `Index` on were replaced by `Added` others. Lets a derived list keep
  /// what it derives from the rows.
  virtual void RowsReplaced(int /*Index*/, int /*Removed*/, int /*Added*/) {}

  const TItem& Item(int Index) const { return FList[size_t(Index)]; }
  TItem& Item(int Index) { return FList[size_t(Index)]; }

  mutable std::recursive_mutex FLock;
  int FCapacity = 0;
  TGapArray<TItem> FList;
  bool FSorted = false;
  bool FCaseSensitive = false;
  TDuplicates FDuplicates = dupIgnore;

private:
  void QuickSort(int L, int R, const TStringListSortCompare& Compare);
};

using TElWideStringList = TElWideStringListOf<std::unique_ptr<TObject>>;
extern template class TElWideStringListOf<std::unique_ptr<TObject>>;

} // namespace orl
