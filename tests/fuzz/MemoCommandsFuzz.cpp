// Random keys, typed text and text commands on random text, in random modes.
// After every step the caret must stand on a row of the text, every row must
// hold an attribute and no line-ending character, and the memo's text must
// be the store's rows joined.

#include <fuzzer/FuzzedDataProvider.h>

#include <cstdio>
#include <cstdlib>

#include "editing/HeadlessWindow.h"
#include "editing/OrlMemo.h"

namespace {

using namespace orl;

// clang 14 has no std::source_location: the line comes by macro.
#define Require(bHolds) RequireAt(bHolds, __LINE__)
void RequireAt(bool bHolds, int line) {
  if (bHolds) return;
  std::fprintf(stderr, "invariant of line %d broken\n", line);
  std::abort();
}

// Characters that meet every rule of the commands: blanks and tabs for
// indentation, brackets and quotes for the hooks, clusters and line ends.
constexpr std::u16string_view kAlphabet = u"ab \t(\"')]{\u00E9\u0301\U0001F600\r\n/x";

char16_t PickChar(FuzzedDataProvider& in) { return kAlphabet[in.ConsumeIntegralInRange<size_t>(0, kAlphabet.size() - 1)]; }

std::u16string PickText(FuzzedDataProvider& in, size_t most) {
  std::u16string text;
  const size_t n = in.ConsumeIntegralInRange<size_t>(0, most);
  for (size_t i = 0; i < n; ++i) text += PickChar(in);
  return text;
}

void Press(TOrlMemo& memo, int key, TShiftState shift) {
  int k = key;
  memo.KeyDown(k, shift);
  memo.KeyUp(key, shift);
}

void Step(TOrlMemo& memo, FuzzedDataProvider& in) {
  static constexpr int kKeys[] = {vkLeft, vkRight, vkUp, vkDown, vkHome, vkEnd, vkBack, vkDelete, vkReturn, vkTab, vkInsert};
  const int rows = memo.InternalLines().Count();
  switch (in.ConsumeIntegralInRange(0, 18)) {
    case 0: memo.KeyPress(PickChar(in)); break;
    case 1: Press(memo, kKeys[in.ConsumeIntegralInRange<size_t>(0, std::size(kKeys) - 1)],
                  TShiftState(in.ConsumeIntegralInRange(0, 7)));
      break;
    case 2: memo.SetTextCursor(in.ConsumeIntegralInRange(0, 12), in.ConsumeIntegralInRange(0, rows), true); break;
    case 3: memo.SetSelection2(in.ConsumeIntegralInRange(0, 12), in.ConsumeIntegralInRange(0, rows),
                               in.ConsumeIntegralInRange(0, 12), in.ConsumeIntegralInRange(0, rows), false);
      break;
    case 4: memo.InsertText(PickText(in, 12), in.ConsumeBool()); break;
    case 5: memo.DeleteLine(in.ConsumeIntegralInRange(-1, rows)); break;
    case 6: memo.DuplicateCurrentLine(); break;
    case 7: in.ConsumeBool() ? memo.IndentSelectedBlock(in.ConsumeBool()) : memo.UnIndentSelectedBlock(in.ConsumeBool()); break;
    case 8: in.ConsumeBool() ? memo.CommentBlock(u"//", u"") : memo.UnCommentBlock(u"//", u""); break;
    case 9: in.ConsumeBool() ? memo.CommentBlock(u"/*", u"*/") : memo.UnCommentBlock(u"/*", u"*/"); break;
    case 10: memo.SelToCase(TOrlCustomMemo::TCaseType(in.ConsumeIntegralInRange(0, 3))); break;
    case 11: memo.InsertLine(in.ConsumeIntegralInRange(0, rows), PickText(in, 6)); break;
    case 12: memo.RemoveTrailing(in.ConsumeIntegralInRange(0, rows)); break;
    case 13: {
      int alt = vkMenu;
      memo.KeyDown(alt, ssAlt);
      for (int digits = in.ConsumeIntegralInRange(1, 6); digits > 0; --digits)
        Press(memo, vkNumpad0 + in.ConsumeIntegralInRange(0, 9), ssAlt);
      memo.KeyUp(vkMenu, 0);
      break;
    }
    case 14: memo.InsertTextAtXY(PickText(in, 8), in.ConsumeIntegralInRange(0, 12), in.ConsumeIntegralInRange(0, rows));
      break;
    case 15: memo.InsertIndentedText(PickText(in, 8)); break;
    case 16: memo.FOverwrite = !memo.FOverwrite; break;
    case 17: {
      std::u16string text = PickText(in, 10) + (in.ConsumeBool() ? u"[[sel]]" : u"") + PickText(in, 4);
      memo.FOverwritePasteMode = in.ConsumeBool();
      memo.SmartPasteText(std::move(text), in.ConsumeBool(), in.ConsumeBool(), in.ConsumeIntegralInRange(-1, 30),
                          in.ConsumeBool());
      break;
    }
    default: memo.UnIndentFromCursor(); break;
  }
}

void CheckInvariants(TOrlMemo& memo) {
  TOrlMemoStrings& store = memo.InternalLines();
  Require(store.Count() >= 1);
  Require(memo.CurY() >= 0 && memo.CurY() < store.Count());
  Require(memo.CurX() >= 0 && memo.CurX() <= std::max(store.GetLineLength(memo.CurY()), memo.FForcewrapLength));
  std::u16string joined;
  for (int i = 0; i < store.Count(); ++i) {
    Require(store.GetObject(i) != nullptr);
    const std::u16string_view row = store.GetLineString(i);
    Require(row.find_first_of(u"\r\n") == std::u16string_view::npos);
    if (i > 0) joined += u"\r\n";
    joined += row;
  }
  Require(memo.Text() == joined);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  FuzzedDataProvider in(data, size);
  THeadlessWindow window;
  window.Client = {0, 0, 41 * THeadlessWindow::kCellW + 1, 10 * THeadlessWindow::kCellH};
  TOrlMemo memo(&window);
  memo.ResizeEditor();
  memo.FocusGained();
  memo.FTabAsSpaces = in.ConsumeBool();
  memo.FSmartTab = in.ConsumeBool();
  memo.FSmartBackspace = in.ConsumeBool();
  memo.FAutoCloseBracesText = in.ConsumeBool();
  memo.FNotepadCursor = in.ConsumeBool();
  memo.FPreserveTab = in.ConsumeBool();
  memo.SetText(PickText(in, 40));
  for (int steps = 0; steps < 64 && in.remaining_bytes() > 0; ++steps) {
    Step(memo, in);
    CheckInvariants(memo);
  }
  return 0;
}
