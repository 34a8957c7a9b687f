// What typing adds by itself: the closing partner of a bracket or quote,
// the end mark of a block, and a selection wrapped in a typed pair.

#include <unicode/uchar.h>

#include "editing/OrlMemo.h"
#include "syntax/OrlMemoStyles.h"

namespace orl {

namespace {

constexpr std::u16string_view kTextBraceStarts = u"({[\"";
constexpr std::u16string_view kTextBraceEnds = u")}]\"";

bool IsQuote(char16_t ch) { return ch == u'"' || ch == u'\''; }

/// A quote right behind a word character belongs to the word (an apostrophe).
bool EndsWord(char16_t ch) { return ch > 255 || u_isalnum(ch); }

} // namespace

TStyleProperties TOrlCustomMemo::StateAtCaret() {
  TStyle style = GetUpStyle(FCurY - 1, false);
  // A scan that reaches the row's end closes what ends with the row (a line
  // comment), so at the end the scan stops one character short.
  const int length = InternalLines().GetLineLength(FCurY);
  const int stop = FCurX >= length ? length - 1 : FCurX;
  if (stop > 0) GetUpLineStyle(FCurY, 0, stop, style, false);
  return style.Properties;
}

bool TOrlCustomMemo::BraceStateAllows() {
  if (!FStyles) return true;
  const TStyleProperties state = StateAtCaret();
  if (state.Get(spInComment) || state.Get(spInLineComment) || state.Get(spIsTagWord) || state.BracketId >= 0)
    return false;
  if (FStyles->ScriptType == scHtml) return state.Get(spInTag) || state.Get(spInScript);
  return true;
}

bool TOrlCustomMemo::AutoCloseBraces(char16_t ch) {
  const bool bStyled = FStyles != nullptr;
  if (bStyled ? !FAutoCloseBraces : !FAutoCloseBracesText) return false;
  const std::u16string_view starts = bStyled ? std::u16string_view(FStyles->FAutoCloseBraceStart) : kTextBraceStarts;
  const std::u16string_view ends = bStyled ? std::u16string_view(FStyles->FAutoCloseBraceEnd) : kTextBraceEnds;
  const std::u16string_view row = InternalLines().GetLineString(FCurY);
  const char16_t before = FCurX >= 1 && size_t(FCurX) <= row.size() ? row[size_t(FCurX - 1)] : 0;
  const char16_t at = size_t(FCurX) < row.size() ? row[size_t(FCurX)] : 0;
  const size_t closer = ends.find(ch);
  if (closer != std::u16string_view::npos && closer < starts.size() && before == starts[closer] && at == ch &&
      BraceStateAllows()) {
    SetCurX(FCurX + 1);  // the pair is there already: step over its closer
    ClearSelection(false);
    return true;
  }
  const size_t opener = starts.find(ch);
  if (opener == std::u16string_view::npos || opener >= ends.size() || !BraceStateAllows()) return false;
  const char16_t partner = ends[opener];
  const bool bQuote = IsQuote(ch);
  bool bStop = bQuote && EndsWord(before);
  if (at != 0 && at != u' ' && at != u'\t') bStop = bStop || !bQuote || ends.find(at) == std::u16string_view::npos || IsQuote(at);
  if (FOverwrite) OverwriteChar(ch);
  else InsertChar(ch);
  if (!bStop) {
    InsertChar(partner);
    SetCurX(FCurX - 1);
    ClearSelection(false);
  }
  return true;
}

void TOrlCustomMemo::AutoCloseBlocks(char16_t ch) {
  if (!FAutoCloseBlocks || !FStyles) return;
  const std::u16string& start = FStyles->FAutoCloseBlockStart;
  const std::u16string& end = FStyles->FAutoCloseBlockEnd;
  if (start.empty() || end.empty() || start.back() != ch) return;
  const std::u16string_view row = InternalLines().GetLineString(FCurY);
  if (size_t(FCurX) > row.size() || size_t(FCurX) < start.size()) return;
  if (row.substr(size_t(FCurX) - start.size(), start.size()) != start) return;
  if (FCurX > int(start.size()) && !IsSymbolBoundary(row[size_t(FCurX) - start.size() - 1])) return;
  if (row.substr(size_t(FCurX)).find_first_not_of(u" \t") != std::u16string_view::npos) return;
  const TStyleProperties state = StateAtCaret();
  if (state.Get(spStringOpened) || state.Get(spInComment) || state.Get(spInLineComment) || state.Get(spIsTagWord))
    return;
  const int x = FCurX, y = FCurY;
  if (FAutoBlockOnLine) {
    InsertText(end, false);
    SetCursor(x, y, true);
    return;
  }
  const std::u16string indent = AutoIndentText();
  const std::u16string step = FTabAsSpaces ? std::u16string(size_t(std::max(FTabSize, 1)), u' ') : u"\t";
  InsertText(u"\r\n" + indent + step + u"\r\n" + indent + end, false);
  SetCursor(int(indent.size() + step.size()), y + 1, true);
}

bool TOrlCustomMemo::EncloseSelection(char16_t AStartChar) {
  if (FColumnMode || FSyncEdit || FReadOnly || FHexView || !HasSelection()) return false;
  static constexpr std::u16string_view kBrackets = u"([{", kBracketEnds = u")]}";
  static constexpr std::u16string_view kQuotes = u"'\"\u2018\u201C", kQuoteEnds = u"'\"\u2019\u201D";
  char16_t end = 0;
  if (const size_t i = kBrackets.find(AStartChar); FEncloseSelectionWithParenthesis && i != std::u16string_view::npos)
    end = kBracketEnds[i];
  if (const size_t i = kQuotes.find(AStartChar); FEncloseSelectionWithQuotes && i != std::u16string_view::npos)
    end = kQuoteEnds[i];
  if (end == 0) return false;
  SetSelectionText(AStartChar + SelectedText() + end);
  return true;
}

bool TOrlCustomMemo::EncloseSelection(std::u16string_view AStartString) {
  return AStartString.size() == 1 && EncloseSelection(AStartString.front());
}

} // namespace orl
