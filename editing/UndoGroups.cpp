#include "editing/UndoGroups.h"

#include "editing/OrlMemo.h"

namespace orl {

void TScriptStartUndo::AddItem(std::unique_ptr<TUndo> item) {
  FItemBytes += item->ByteSize();
  FItems.push_back(std::move(item));
}

void TScriptStartUndo::RemeasureItems() {
  FItemBytes = 0;
  for (const std::unique_ptr<TUndo>& item : FItems) FItemBytes += item->ByteSize();
}

void TMultiEditUndo::SetCursorList(const std::vector<std::unique_ptr<TMultiCursorPos>>& ls) {
  FCursorList.clear();
  FCursorList.reserve(ls.size());
  for (const std::unique_ptr<TMultiCursorPos>& pos : ls) FCursorList.push_back(*pos);
}

void TMultiEditUndo::RestoreCursorList(TOrlCustomMemo& memo) const {
  memo.FMultiCursorList.clear();
  for (const TMultiCursorPos& pos : FCursorList) memo.FMultiCursorList.push_back(std::make_unique<TMultiCursorPos>(pos));
  if (FCursorList.empty()) return;
  const TMultiCursorPos& last = FCursorList.back();
  memo.SetTextCursorValues(last.aCurX, last.aCurY);
  memo.SetSelectionSilent(last.aSelStartX, last.aSelStartY, last.aSelEndX, last.aSelEndY);
}

} // namespace orl
