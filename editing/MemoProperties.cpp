// The table of published properties: switches and numbers bound to the
// memo's fields, and the few whose setting does more than store a value.

#include "editing/MemoProperties.h"

#include <algorithm>
#include <charconv>
#include <functional>

#include "editing/OrlMemo.h"

namespace orl {
namespace {

struct TProperty {
  const char* Name;
  std::function<std::string(TOrlCustomMemo&)> Get;
  /// False when the text is no value of the property.
  std::function<bool(TOrlCustomMemo&, std::string_view)> Set;
};

bool ParseBool(std::string_view text, bool& value) {
  if (text == "1" || text == "true" || text == "True") value = true;
  else if (text == "0" || text == "false" || text == "False") value = false;
  else return false;
  return true;
}

bool ParseInt(std::string_view text, int& value) {
  const auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
  return ec == std::errc() && end == text.data() + text.size();
}

TProperty Switch(const char* name, bool TOrlCustomMemo::*field) {
  return {name, [field](TOrlCustomMemo& m) { return std::string(m.*field ? "1" : "0"); },
          [field](TOrlCustomMemo& m, std::string_view text) { return ParseBool(text, m.*field); }};
}

TProperty Number(const char* name, int TOrlCustomMemo::*field, int least) {
  return {name, [field](TOrlCustomMemo& m) { return std::to_string(m.*field); },
          [field, least](TOrlCustomMemo& m, std::string_view text) {
            int value = 0;
            if (!ParseInt(text, value) || value < least) return false;
            m.*field = value;
            return true;
          }};
}

const std::vector<TProperty>& Properties() {
  using M = TOrlCustomMemo;
  static const std::vector<TProperty> table = [] {
    std::vector<TProperty> t{
        Switch("AllowDragText", &M::FAllowDragText),
        Switch("AllowMultiEditMode", &M::FAllowMultiEditMode),
        Switch("AutoHideHorzScrollBar", &M::FAutoHideHorzScrollBar),
        Switch("AutoHideVertScrollBar", &M::FAutoHideVertScrollBar),
        Switch("AutoBlockOnLine", &M::FAutoBlockOnLine),
        Switch("AutoCloseBlocks", &M::FAutoCloseBlocks),
        Switch("AutoCloseBraces", &M::FAutoCloseBraces),
        Switch("AutoCloseBracesText", &M::FAutoCloseBracesText),
        Switch("AutoIndent", &M::FAutoIndent),
        Number("CaretScrollDistance", &M::FCaretScrollDistance, 0),
        Number("CaretScrollVDistance", &M::FCaretScrollVDistance, 1),
        Number("CaretWidth", &M::FCaretWidth, -1000),
        {"ColumnMode", [](M& m) { return std::string(m.FColumnMode ? "1" : "0"); },
         [](M& m, std::string_view text) {
           bool value = false;
           if (!ParseBool(text, value)) return false;
           m.SetColumnMode(value);
           return true;
         }},
        Switch("CopyLineToClipboard", &M::FCopyLineToClipboard),
        Switch("DelErase", &M::FDelErase),
        Switch("EncloseSelectionWithParenthesis", &M::FEncloseSelectionWithParenthesis),
        Switch("EncloseSelectionWithQuotes", &M::FEncloseSelectionWithQuotes),
        Number("ForcewrapLength", &M::FForcewrapLength, 16),
        Switch("GreedyVerticalScroll", &M::FGreedyVerticalScroll),
        Switch("HighlightBraces", &M::FHighlightBraces),
        Switch("HighlightLine", &M::FHighlightLine),
        Switch("HomeKeyToLineStart", &M::FHomeKeyToLineStart),
        Switch("IndentWrappedLines", &M::FIndentWrappedLines),
        Switch("KeepTrailing", &M::FKeepTrailing),
        Number("NavigationHistoryOffset", &M::FNavigationHistoryOffset, 0),
        Switch("NotepadCursor", &M::FNotepadCursor),
        Switch("Overwrite", &M::FOverwrite),
        Switch("OverwritePasteMode", &M::FOverwritePasteMode),
        Switch("PasteDoNotMoveCursor", &M::FPasteDoNotMoveCursor),
        Switch("PreserveTab", &M::FPreserveTab),
        Switch("ProcessShortcuts", &M::FProcessShortcuts),
        Switch("ReadOnly", &M::FReadOnly),
        Number("RightMargin", &M::FRightMargin, 1),
        {"ScrollMode", [](M& m) { return std::string(m.FScrollMode == smStrict ? "smStrict" : "smAuto"); },
         [](M& m, std::string_view text) {
           if (text != "smAuto" && text != "smStrict") return false;
           m.FScrollMode = text == "smStrict" ? smStrict : smAuto;
           m.ResizeScrollBars(false, 0);
           return true;
         }},
        Switch("SelectionMode", &M::FSelectionMode),
        Switch("SelectionMoveCaret", &M::FSelectionMoveCaret),
        Switch("ShowCRLF", &M::FShowCRLF),
        Switch("ShowTabs", &M::FShowTabs),
        Switch("SmartBackspace", &M::FSmartBackspace),
        Switch("SmartHighlight", &M::FSmartHighlight),
        Switch("SmartPaste", &M::FSmartPaste),
        Switch("SmartTab", &M::FSmartTab),
        Switch("TabAsSpaces", &M::FTabAsSpaces),
        {"TabSize", [](M& m) { return std::to_string(m.TabSize()); },
         [](M& m, std::string_view text) {
           int value = 0;
           if (!ParseInt(text, value) || value < 1 || value > 64) return false;
           m.SetTabSize(value);
           return true;
         }},
        Switch("WantTab", &M::FWantTab),
        Switch("WordWrap", &M::FWordWrap),
    };
    std::sort(t.begin(), t.end(),
              [](const TProperty& a, const TProperty& b) { return std::string_view(a.Name) < b.Name; });
    return t;
  }();
  return table;
}

} // namespace

std::vector<std::pair<std::string, std::string>> MemoPropertyValues(TOrlCustomMemo& memo) {
  std::vector<std::pair<std::string, std::string>> values;
  for (const TProperty& p : Properties()) values.emplace_back(p.Name, p.Get(memo));
  return values;
}

bool SetMemoProperty(TOrlCustomMemo& memo, std::string_view name, std::string_view value, std::string& error) {
  const auto& table = Properties();
  const auto it = std::find_if(table.begin(), table.end(), [&](const TProperty& p) { return name == p.Name; });
  if (it == table.end()) {
    error = "unknown property '" + std::string(name) + "'";
    return false;
  }
  if (!it->Set(memo, value)) {
    error = "bad value '" + std::string(value) + "' for " + std::string(name);
    return false;
  }
  return true;
}

} // namespace orl
