// Adding, deleting and replacing rows and text within rows.

#include <algorithm>
#include <mutex>

#include <unicode/uchar.h>

#include "textstore/OrlMemoStrings.h"

namespace orl {

namespace {

bool IsTrailingBlank(char16_t c, bool bSpacesOnly) {
  if (c == u'\t') return !bSpacesOnly;
  return u_isUWhiteSpace(c);
}

} // namespace

int TOrlMemoStrings::Add(std::u16string_view S) {
  if (!FMemo) return TElWideStringListOf::Add(S);
  std::lock_guard lock(FLock);
  const TMemoStoreSettings settings = Settings();
  return TElWideStringListOf::Add(settings.bBinaryMode ? S : Tabbed(S, settings));
}

void TOrlMemoStrings::InsertItem(int Index, std::u16string_view S, TAttributePtr AObject) {
  Changing();
  InsertRow(Index, S, AObject ? std::move(AObject) : NewRowAttribute());
  Changed();
}

int TOrlMemoStrings::DoAdd(std::u16string_view S) {
  const int index = GetCount();
  InsertRow(index, S, NewRowAttribute());
  return index;
}

void TOrlMemoStrings::DoInsert(int Index, std::u16string_view S) {
  const TMemoStoreSettings settings = Settings();
  InsertRow(std::clamp(Index, 0, GetCount()), Tabbed(S, settings), FreshAttribute(NewRowState(settings)));
}

void TOrlMemoStrings::Insert(int Index, std::u16string_view S) {
  if (Index >= 0 && Index <= GetCount()) InsertItem(Index, S, nullptr);
}

void TOrlMemoStrings::InsertLineFromReal(int Index, std::u16string_view ws) {
  const int row = GetWrapIndex(std::max(Index, 0));
  while (GetCount() < row) DoAdd(u"");
  const TMemoStoreSettings settings = Settings();
  InsertRow(row, Tabbed(ws, settings), FreshAttribute(NewRowState(settings)));
}

void TOrlMemoStrings::AddLine(std::u16string_view s, TAttributePtr A) {
  std::lock_guard lock(FLock);
  Changing();
  if (GetCount() == FCapacity - 1) Grow();
  InsertRow(GetCount(), s, A ? std::move(A) : NewRowAttribute());
  Changed();
}

void TOrlMemoStrings::AddStrings(const TElWideStrings& Strings) {
  std::lock_guard lock(FLock);
  const TBulkLoad bulk(*this);
  BeginUpdate();
  const TAttributePtr fresh = NewRowAttribute();
  const int count = Strings.GetCount();  // Strings may be this very store
  for (int i = 0; i < count; ++i) InsertRow(GetCount(), Strings.Get(i), fresh);
  EndUpdate();
}

void TOrlMemoStrings::PrepareLines(int Index, int nCount) {
  if (nCount < 2 || Index < 0 || Index > GetCount()) return;
  if (GetCount() + nCount > FCapacity) FCapacity = GetCount() + nCount + 64;
  const TAttributePtr fresh = NewRowAttribute();
  StoreInsert(Index, nCount - 1, [&](size_t) { return TItem{TSharedWideString(), fresh}; });
  FVisibleCount += nCount - 1;
}

void TOrlMemoStrings::Delete(int Index) {
  if (!ValidIndex(Index)) return;
  if (!FMemo) {
    Changing();
    DoDelete(Index);
    Changed();
    return;
  }
  TFullPos caret = FMemo->CaretPos();
  if (Index < caret.Y) --caret.Y;
  if (GetCount() == 1) caret.x = 0;
  FMemo->SetCaretPos({caret.x, Index});
  DoDelete(Index);
  FMemo->SetCaretPos(caret);
}

void TOrlMemoStrings::DoDelete(int Index) {
  if (ValidIndex(Index)) EraseRows(Index, 1);
}

void TOrlMemoStrings::DeleteSilent(int Index, bool IncludeWrapped) {
  if (!ValidIndex(Index)) return;
  DoDelete(Index);
  while (IncludeWrapped && ValidIndex(Index) && IsLineWrapped(Index)) DoDelete(Index);
}

void TOrlMemoStrings::DeleteLinesSilent(int startLine, int endLine, bool IncludeWrapped) {
  std::lock_guard lock(FLock);
  if (startLine < 0 || endLine >= GetCount() || startLine > endLine) return;
  while (IncludeWrapped && endLine + 1 < GetCount() && IsLineWrapped(endLine + 1)) ++endLine;
  EraseRows(startLine, endLine - startLine + 1);
}

void TOrlMemoStrings::DeleteLineFromReal(int Index) {
  const int row = GetWrapIndex(Index);
  if (row < 0 || row >= GetCount() - 1) return;
  DoDelete(row);
  while (row < GetCount() - 1 && IsLineWrapped(row)) DoDelete(row);
}

TAttributePtr TOrlMemoStrings::ClearLine(int index, bool bFreeObject) {
  if (!ValidIndex(index)) return nullptr;
  TAttributePtr dropped;
  {
    std::lock_guard lock(FLock);
    Item(index).FString = TSharedWideString();
    dropped = std::move(Item(index).FObject);
    RowsReplaced(index, 1, 1);
  }
  if (dropped && dropped->Hidden()) ++FVisibleCount;
  if (bFreeObject || !dropped) return nullptr;
  // A shared attribute is not the row's to give away.
  return dropped->IsShared() ? CloneAttribute(*dropped) : dropped;
}

void TOrlMemoStrings::Clear() {
  StoreClear();
  SweepSharedRecords();
  FCapacity = 16;
  FVisibleCount = 0;
  FIllegalControlCodes = false;
}

void TOrlMemoStrings::Put(int Index, std::u16string_view S) {
  if (FSorted) throw EStringListError(SSortedListError);
  CheckIndex(Index);
  WriteRow(Index, S);
}

void TOrlMemoStrings::SetLineString(int Index, std::u16string_view S) {
  if (!FMemo) return TElWideStringListOf::Put(Index, S);
  Put(Index, Tabbed(S, Settings()));
}

void TOrlMemoStrings::SetLineBuffer(int Index, std::u16string_view S, int len) {
  SetLineString(Index, S.substr(0, size_t(std::clamp<int>(len, 0, int(S.size())))));
  if (FMemo || ReadLineAttribute(Index).Enabled) return;
  OwnAttribute(Index)->Enabled = true;
  RowsReplaced(Index, 1, 1);
}

void TOrlMemoStrings::SetAt(int line, std::u16string_view S) {
  if (!ValidIndex(line)) return;
  if (!Item(line).FObject) {
    std::lock_guard lock(FLock);
    Item(line).FObject = NewRowAttribute();
  }
  WriteRow(line, S);  // which re-reads the new attribute's flags too
}

int TOrlMemoStrings::InsertAt(int line, std::u16string_view S, int index) {
  if (!ValidIndex(line)) return 0;
  EditRow(line, [&](TSharedWideString& row) { row.Insert(size_t(std::clamp<int>(index - 1, 0, int(row.size()))), S); });
  return GetLineLength(line);
}

int TOrlMemoStrings::DeleteAt(int line, int index, int len) {
  if (!ValidIndex(line)) return 0;
  const int length = GetLineLength(line);
  if (index < 1 || index > length || len < 1) return length;
  EditRow(line, [&](TSharedWideString& row) { row.Erase(size_t(index - 1), size_t(std::min(len, length - index + 1))); });
  return GetLineLength(line);
}

void TOrlMemoStrings::OverWriteAt(int line, std::u16string_view S, int index) {
  if (!ValidIndex(line) || index < 1) return;
  EditRow(line, [&](TSharedWideString& row) { row.Overwrite(std::min<size_t>(size_t(index - 1), row.size()), S); });
}

void TOrlMemoStrings::CopyLineTo(int sourceline, int destline) {
  if (!ValidIndex(sourceline) || !ValidIndex(destline)) return;
  const TSharedWideString source = Item(sourceline).FString;
  EditRow(destline, [&](TSharedWideString& row) { row.Insert(row.size(), source); });
}

std::u16string TOrlMemoStrings::RemoveTrailingBlanks(int line, bool bSpacesOnly) {
  const std::u16string_view row = GetLineString(line);
  size_t kept = row.size();
  while (kept > 0 && IsTrailingBlank(row[kept - 1], bSpacesOnly)) --kept;
  std::u16string cut(row.substr(kept));
  if (!cut.empty()) EditRow(line, [&](TSharedWideString& text) { text.Erase(kept, cut.size()); });
  return cut;
}

void TOrlMemoStrings::SwapLines(int IndexA, int IndexB, bool bTriggerChanged) {
  if (!ValidIndex(IndexA) || !ValidIndex(IndexB)) return;
  if (bTriggerChanged) Changing();
  StoreSwap(IndexA, IndexB);
  if (bTriggerChanged) Changed();
}

} // namespace orl
