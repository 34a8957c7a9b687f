#include "MemoTextCommands.h"

#include <functional>
#include <map>
#include <ostream>

#include "Console.h"
#include "editing/OrlMemo.h"
#include "editing/UndoRecords.h"

namespace gdtool {

namespace {
using namespace orl;

using TArgs = std::vector<TScriptWord>;

struct TTextCommand {
  const char* Usage;  ///< the arguments, for error messages
  size_t MinArgs, MaxArgs;
  std::function<void(TOrlMemo&, const TArgs&)> Run;
};

const std::u16string& Quoted(const TScriptWord& word) {
  if (!word.bQuoted) throw EScriptError("'" + Out(word.Text) + "' must be a quoted string");
  return word.Text;
}

/// An optional flag word: absent gives false, `word` gives true.
bool Flag(const TArgs& args, size_t index, const char* word) {
  if (args.size() <= index) return false;
  if (Out(args[index].Text) != word) throw EScriptError(std::string("expected '") + word + "'");
  return true;
}

TOrlCustomMemo::TCaseType CaseType(const TScriptWord& word) {
  static const std::map<std::string, TOrlCustomMemo::TCaseType> names{{"upper", TOrlCustomMemo::ctUpper},
                                                                      {"lower", TOrlCustomMemo::ctLower},
                                                                      {"invert", TOrlCustomMemo::ctInvert},
                                                                      {"capitalize", TOrlCustomMemo::ctCapitalize}};
  const auto it = names.find(Out(word.Text));
  if (it == names.end()) throw EScriptError("SelToCase takes upper, lower, invert or capitalize");
  return it->second;
}

/// Later steps add their routines here.
const std::map<std::string, TTextCommand>& Commands() {
  using M = TOrlMemo;
  static const std::map<std::string, TTextCommand> table{
      {"Backspace", {"", 0, 0, [](M& m, const TArgs&) { m.Backspace(); }}},
      {"CommentBlock",
       {"\"START\" [\"END\"]", 1, 2,
        [](M& m, const TArgs& a) { m.CommentBlock(Quoted(a[0]), a.size() > 1 ? Quoted(a[1]) : u""); }}},
      {"DeleteChar", {"", 0, 0, [](M& m, const TArgs&) { m.DeleteChar(-1, -1); }}},
      {"DeleteCurrentLine", {"", 0, 0, [](M& m, const TArgs&) { m.DeleteCurrentLine(); }}},
      {"DeleteLine", {"[INDEX]", 0, 1, [](M& m, const TArgs& a) { m.DeleteLine(a.empty() ? -1 : ScriptNumber(a[0])); }}},
      {"DuplicateCurrentLine", {"", 0, 0, [](M& m, const TArgs&) { m.DuplicateCurrentLine(); }}},
      {"EncloseSelection", {"\"C\"", 1, 1, [](M& m, const TArgs& a) { m.EncloseSelection(Quoted(a[0])); }}},
      {"EnterPress", {"", 0, 0, [](M& m, const TArgs&) { m.EnterPress(); }}},
      {"IndentSelectedBlock",
       {"[full]", 0, 1, [](M& m, const TArgs& a) { m.IndentSelectedBlock(Flag(a, 0, "full")); }}},
      {"InsertIndentedText", {"\"TEXT\"", 1, 1, [](M& m, const TArgs& a) { m.InsertIndentedText(Quoted(a[0])); }}},
      {"InsertLine",
       {"LINE \"TEXT\"", 2, 2, [](M& m, const TArgs& a) { m.InsertLine(ScriptNumber(a[0]), Quoted(a[1])); }}},
      {"InsertTab", {"", 0, 0, [](M& m, const TArgs&) { m.InsertTab(); }}},
      {"InsertText",
       {"\"TEXT\" [bol]", 1, 2, [](M& m, const TArgs& a) { m.InsertText(Quoted(a[0]), Flag(a, 1, "bol")); }}},
      {"InsertTextAtXY",
       {"\"TEXT\" X Y", 3, 3,
        [](M& m, const TArgs& a) { m.InsertTextAtXY(Quoted(a[0]), ScriptNumber(a[1]), ScriptNumber(a[2])); }}},
      {"RemoveTrailing",
       {"[LINE]", 0, 1, [](M& m, const TArgs& a) { m.RemoveTrailing(a.empty() ? m.CurY() : ScriptNumber(a[0])); }}},
      {"SmartPasteText",
       {"\"TEXT\" [force]", 1, 2,
        [](M& m, const TArgs& a) { m.SmartPasteText(Quoted(a[0]), false, Flag(a, 1, "force"), -1, false); }}},
      {"SelToCase", {"upper|lower|invert|capitalize", 1, 1, [](M& m, const TArgs& a) { m.SelToCase(CaseType(a[0])); }}},
      {"ToggleCommentBlock", {"", 0, 0, [](M& m, const TArgs&) { m.ToggleCommentBlock(); }}},
      {"UnCommentBlock",
       {"\"START\" [\"END\"]", 1, 2,
        [](M& m, const TArgs& a) { m.UnCommentBlock(Quoted(a[0]), a.size() > 1 ? Quoted(a[1]) : u""); }}},
      {"UnIndentFromCursor", {"", 0, 0, [](M& m, const TArgs&) { m.UnIndentFromCursor(); }}},
      {"UnIndentSelectedBlock",
       {"[full]", 0, 1, [](M& m, const TArgs& a) { m.UnIndentSelectedBlock(Flag(a, 0, "full")); }}},
  };
  return table;
}

/// The text a record keeps, as `print undo` shows it: lists in their joined form.
std::u16string RecordText(const TUndo& record) {
  if (record.Kind() == TUndoKind::BlockUnIndent) return static_cast<const TBlockUnIndentUndo&>(record).EntriesText();
  return record.FUndoText;
}

} // namespace

void RunTextCommand(TOrlMemo& memo, const std::vector<TScriptWord>& words) {
  if (words.size() < 2) throw EScriptError("usage: command NAME [ARG...]");
  const std::string name = Out(words[1].Text);
  const auto it = Commands().find(name);
  if (it == Commands().end()) throw EScriptError("unknown memo routine '" + name + "'");
  const TArgs args(words.begin() + 2, words.end());
  if (args.size() < it->second.MinArgs || args.size() > it->second.MaxArgs)
    throw EScriptError("usage: command " + name + (*it->second.Usage ? " " : "") + it->second.Usage);
  it->second.Run(memo, args);
}

void TypeAltCode(TOrlMemo& memo, std::u16string_view digits) {
  if (digits.empty() || digits.find_first_not_of(u"0123456789") != std::u16string_view::npos)
    throw EScriptError("usage: alt DIGITS");
  int alt = vkMenu;
  memo.KeyDown(alt, ssAlt);
  for (const char16_t digit : digits) {
    int key = vkNumpad0 + (digit - u'0');
    memo.KeyDown(key, ssAlt);
    memo.KeyUp(vkNumpad0 + (digit - u'0'), ssAlt);
  }
  memo.KeyUp(vkMenu, 0);
}

void PrintUndoRecords(TOrlMemo& memo, std::ostream& out) {
  const TOrlUndoList& list = *memo.FUndoList;
  for (int i = list.Count() - 1; i >= 0; --i) {
    const TUndo& record = list.Get(i);
    out << UndoClassName(record.Kind()) << " " << JsonString(RecordText(record));
    if (!record.FUnicodeText.empty()) out << " unicode " << JsonString(record.FUnicodeText);
    if (!record.FStartString.empty()) out << " start " << JsonString(record.FStartString);
    if (!record.FEndString.empty()) out << " end " << JsonString(record.FEndString);
    if (record.Kind() == TUndoKind::DeleteChar && static_cast<const TDeleteCharUndo&>(record).FIsBackspace)
      out << " backspace";
    out << " from " << record.FUndoCurX0 << " " << record.FUndoCurY0 << " to " << record.FUndoCurX << " "
        << record.FUndoCurY << (i < list.FPos ? " undone" : "") << "\n";
  }
}

} // namespace gdtool
