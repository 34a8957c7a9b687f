#pragma once
// The objects a memo owns whose behaviour arrives with later subsystems
// (undo, gutter, hex view, background analysis, macros, completion, hints,
// the document map). Each holds the state the memo core already reads, so
// that the memo has them from its constructor to its destructor and later
// work fills them in without changing the memo's shape.

#include <atomic>
#include <string>
#include <vector>

#include "definition/StringList.h"
#include "editing/UndoList.h"

namespace orl {

class TOrlCustomMemo;

class TOrlGutter {
public:
  int Width = 0;
};

class TOrlRuler {
public:
  bool Visible = false;
  int Height = 0;
};

class TOrlHexView {
public:
  int SelectionLength = 0;
};

/// The analysis thread, created suspended; the thread itself runs once its
/// passes exist.
class TBackgroundThread {
public:
  explicit TBackgroundThread(TStringList* codeExplorerTagsList) : FCodeExplorerTagsList(codeExplorerTagsList) {}
  bool Suspended() const { return FSuspended; }
  void Suspend() { FSuspended = true; }
  void Resume() { if (!FTerminated) FSuspended = false; }
  /// Ends the thread for good; a terminated thread never resumes.
  void Terminate() { FTerminated = FSuspended = true; }
  bool Terminated() const { return FTerminated; }

private:
  TStringList* FCodeExplorerTagsList;
  bool FSuspended = true;
  bool FTerminated = false;
};

class TMacroHolder {
public:
  explicit TMacroHolder(std::u16string folder) : FFolder(std::move(folder)) {}
  const std::u16string& Folder() const { return FFolder; }

private:
  std::u16string FFolder;
};

/// The completion list window; its height is asked of the host when shown.
class TAutoCompletionForm {
public:
  int Height = 220;
};

class TAutoCompletion {};
class TAutoCorrect {};

/// A pop-up over the text: hints and folded-text previews.
class TOrlHintWindow {
public:
  std::u16string FontName = u"Tahoma";
  int FontSize = 10;
};
class TOrlFoldHintWindow : public TOrlHintWindow {};

/// Measures of the document map, beside the text.
struct TDocumentMapInfo {
  int Width = 0;
  int CharWidth = 1;
};

/// One caret of multi-edit mode.
struct TMultiCursorPos {
  int aCurY = 0;
  int aCurX = 0;
  int aOldCurXPos = 0;
  int aSelStartX = 0, aSelStartY = 0, aSelEndX = 0, aSelEndY = 0;
  bool aSelectMode = false;
};

/// A brace mark: 1-based character position, line and length; (-1, -1, 0) when clear.
struct TBracePoint {
  int x = -1;
  int Y = -1;
  int len = 0;
};

/// The marks of a matching tag pair; coordinates -1 and lengths 0 when clear.
struct TTagPosData {
  int StartY = -1, StartX = -1, StartLen = 0;
  int StartEndY = -1, StartEndX = -1, StartEndLen = 0;
  int EndY = -1, EndX = -1, EndLen = 0;
};

} // namespace orl
