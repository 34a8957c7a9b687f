// Copy, cut and paste through the window's clipboard. The whole-line mark
// travels beside the text, never inside it, so other programs get clean
// text. Text goes in through the smart paste and out of the store with
// CR LF between lines, the form the memo's own insertions read.

#include <algorithm>

#include "editing/OrlMemo.h"

namespace orl {
namespace {

/// Accesses tried before the user is told; after failure n the memo waits n * 100 ms.
constexpr int kClipboardTries = 8;
constexpr int kClipboardWaitStepMs = 100;
/// The paste's macro code.
constexpr int kMacroPaste = 45;

constexpr std::u16string_view kStartFragment = u"<!--StartFragment-->";
constexpr std::u16string_view kEndFragment = u"<!--EndFragment-->";

/// The text up to its first U+0000, where a plain reader stops.
std::u16string_view UpToNul(std::u16string_view text) { return text.substr(0, std::min(text.find(u'\0'), text.size())); }

/// Length of the line end (CR LF, LF or CR) that starts at `pos`, else 0.
size_t LineEndAt(std::u16string_view text, size_t pos) {
  if (pos >= text.size()) return 0;
  if (text[pos] == u'\r') return pos + 1 < text.size() && text[pos + 1] == u'\n' ? 2 : 1;
  return text[pos] == u'\n' ? 1 : 0;
}

/// Length of the line end that ends just before `pos`, else 0.
size_t LineEndBefore(std::u16string_view text, size_t pos) {
  if (pos == 0) return 0;
  if (text[pos - 1] == u'\n') return pos >= 2 && text[pos - 2] == u'\r' ? 2 : 1;
  return text[pos - 1] == u'\r' ? 1 : 0;
}

/// The part of copied HTML between the fragment marks: a line end that
/// follows the start mark or precedes the end mark goes with the mark.
/// Without marks, the whole text.
std::u16string HtmlFragment(std::u16string_view html) {
  html = UpToNul(html);
  size_t start = 0;
  if (const size_t mark = html.find(kStartFragment); mark != std::u16string_view::npos) {
    start = mark + kStartFragment.size();
    start += LineEndAt(html, start);
  }
  size_t end = html.size();
  if (const size_t mark = html.find(kEndFragment, start); mark != std::u16string_view::npos)
    end = std::max(start, mark - LineEndBefore(html, mark));
  return std::u16string(html.substr(start, end - start));
}

} // namespace

bool TOrlCustomMemo::AccessClipboard(const std::function<bool()>& access) {
  for (int failure = 1;; ++failure) {
    if (access()) return true;
    if (failure >= kClipboardTries) break;
    FWindow->Sleep(failure * kClipboardWaitStepMs);
  }
  FWindow->ShowMessage(u"Cannot access the clipboard!");
  return false;
}

std::u16string TOrlCustomMemo::CopyText(bool& bWholeLine) {
  bWholeLine = false;
  TOrlMemoStrings& lines = InternalLines();
  if (HasSelection()) {
    const TOrderedSelection s = GetSelection();
    return lines.GetText(s.StartY, s.EndY, s.StartX + 1, s.EndX, FBinaryMode, true, false);
  }
  if (!FCopyLineToClipboard) return TokenAtCursor();
  int rows = 0;
  bWholeLine = !FBinaryMode;
  return lines.GetUnwrappedLine(FCurY, rows) + u"\r\n";
}

std::u16string TOrlCustomMemo::CopyToClipboard() {
  if (FHexView) return {};
  TMemoClipboard data;
  data.Text = CopyText(data.bWholeLine);
  if (data.Text.empty()) return {};
  bool bUserClipboard = false;
  if (OnClipboard) OnClipboard(data.Text, bUserClipboard);
  if (!bUserClipboard) AccessClipboard([&] { return FWindow->WriteClipboard(data); });
  return data.Text;
}

std::u16string TOrlCustomMemo::CutToClipboard() {
  if (FReadOnly || FHexView) return {};
  const bool bWholeLine = !HasSelection() && FCopyLineToClipboard;
  std::u16string text = CopyToClipboard();
  if (text.empty()) return text;
  if (bWholeLine) SelectRealLine(FCurY);
  if (HasSelection()) DeleteSelection(true, true, false, false);
  return text;
}

void TOrlCustomMemo::PasteFromClipboard(bool bAddLineFeed) {
  if (FReadOnly || FHexView) return;
  TMemoClipboard data;
  bool bUserClipboard = false;
  if (OnClipboard) OnClipboard(data.Text, bUserClipboard);
  if (!bUserClipboard && !AccessClipboard([&] { return FWindow->ReadClipboard(data); })) return;
  std::u16string text(FBinaryMode ? std::u16string_view(data.Text) : UpToNul(data.Text));
  if (bAddLineFeed) text += u"\r\n";
  PasteClipboardText(std::move(text), data.bWholeLine && !bUserClipboard);
  if (Hooks.RecordMacro) Hooks.RecordMacro(kMacroPaste, 0);
}

void TOrlCustomMemo::PasteFromClipboardHTML() {
  if (FReadOnly || FHexView) return;
  TMemoClipboard data;
  if (!AccessClipboard([&] { return FWindow->ReadClipboard(data); })) return;
  PasteClipboardText(HtmlFragment(data.Html), false);
}

void TOrlCustomMemo::PasteClipboardText(std::u16string text, bool bInsertAtBOL) {
  if (text.empty()) return;
  SmartPasteText(std::move(text), bInsertAtBOL, false, -1, false);
}

} // namespace orl
