#include "quillet/TextFile.h"

#include <string_view>

#include "editing/OrlMemo.h"
#include "platform/CodePages.h"
#include "platform/FileIO.h"

namespace orl {
namespace {

constexpr unsigned kUtf16LE = 1200, kUtf16BE = 1201, kUtf8 = 65001;

bool IsValidUtf8(std::string_view bytes) { return Utf16ToUtf8(Utf8ToUtf16(bytes)) == bytes; }

/// The code page of a file's bytes: its mark, else UTF-8 when the bytes are
/// valid UTF-8, else the system's ANSI code page.
unsigned CodePageOf(std::string_view bytes, TTextBom bom) {
  switch (bom) {
    case TTextBom::tbUtf8: return kUtf8;
    case TTextBom::tbUtf16LE: return kUtf16LE;
    case TTextBom::tbUtf16BE: return kUtf16BE;
    case TTextBom::tbNone: break;
  }
  return IsValidUtf8(bytes) ? kUtf8 : SystemAnsiCodePage();
}

/// The store writes in the coding these fields name.
void SetCoding(TOrlMemoStrings& store, unsigned codePage, bool bMark) {
  store.FCodePage = codePage;
  store.FSaveUnicode = codePage == kUtf16LE;
  store.FSaveBigUnicode = codePage == kUtf16BE;
  store.FSaveUTF = codePage == kUtf8;
  store.FUseBOM = bMark;
}

/// Keeps the background thread away from the rows while a file is read or written.
class TThreadPause {
public:
  explicit TThreadPause(TOrlMemo& memo) : FMemo(memo), bWasHalted(memo.SuspendThread(true)) {}
  ~TThreadPause() {
    if (!bWasHalted) FMemo.SuspendThread(false);
  }
  TThreadPause(const TThreadPause&) = delete;
  TThreadPause& operator=(const TThreadPause&) = delete;

private:
  TOrlMemo& FMemo;
  bool bWasHalted;
};

void StartFresh(TOrlMemo& memo) {
  memo.SetCursor(0, 0, true);
  memo.ClearUndoRedoAndLineHistory();
  memo.SetModified(false);
}

} // namespace

void LoadTextFile(TOrlMemo& memo, const std::filesystem::path& file) {
  // Read before anything changes: a file that cannot be read leaves the memo as it was.
  const std::string bytes = ReadFileBytes(file);
  const TTextBom bom = DetectBom(bytes);
  const unsigned codePage = CodePageOf(bytes, bom);
  TThreadPause pause(memo);
  TOrlMemoStrings& store = memo.InternalLines();
  if (bom == TTextBom::tbUtf16LE) {
    // The store reads this coding itself, a piece at a time.
    store.FSaveUnicode = true;
    store.LoadFromFile(file);
    memo.ClearLineStylesFrom(0);
    memo.LinesChanged(true, true, true);
  } else {
    memo.SetText(DecodeText(bytes, codePage));
  }
  SetCoding(store, codePage, bom != TTextBom::tbNone);
  store.FFileName = StringFromPath(file);
  StartFresh(memo);
}

void NewTextCoding(TOrlMemo& memo) {
  TOrlMemoStrings& store = memo.InternalLines();
  SetCoding(store, kUtf8, false);
  store.FSysTextType = sttUnix;
}

void SaveTextFile(TOrlMemo& memo, const std::filesystem::path& file) {
  TThreadPause pause(memo);
  TOrlMemoStrings& store = memo.InternalLines();
  store.SaveToFile(file);
  store.FFileName = StringFromPath(file);
  memo.Saved();
  memo.SetModified(false);
}

} // namespace orl
