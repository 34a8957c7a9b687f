// gdtool memo: the editor engine's memo driven by a script without a display,
// for tests, for definition authors and for checking the engine from outside.
// Each script line is one command; what it prints is a contract that later
// commands extend and never change.

#include <cctype>
#include <iostream>
#include <map>
#include <optional>
#include <ostream>
#include <sstream>

#include "Console.h"
#include "MemoPaintPrint.h"
#include "MemoScript.h"
#include "MemoTextCommands.h"
#include "editing/HeadlessWindow.h"
#include "editing/MemoProperties.h"
#include "editing/OrlMemo.h"
#include "platform/CodePages.h"
#include "platform/FileIO.h"
#include "platform/OrlError.h"
#include "syntax/LoadedSyntax.h"

namespace gdtool {

const char* const kMemoHelp =
    "usage: gdtool memo [FILE] [--syntax DEF.gdx] [--size COLSxROWS] [--set NAME=VALUE]...\n"
    "                   [--script FILE|-] [--trace invalidate]\n"
    "\n"
    "Runs the editor engine's memo without a display over FILE's text (UTF-8 with or\n"
    "without mark, or UTF-16 with mark), with the style set of DEF.gdx, in a text\n"
    "area of COLSxROWS cells (default 80x25; a shown scroll bar takes its place from\n"
    "it as on screen), and feeds it the script, one command a line ('#' starts a\n"
    "comment; strings in double quotes take \\r \\n \\t \\\\ \\\" \\u{XXXX}):\n"
    "  text \"...\"                 replace the whole text\n"
    "  caret X Y                  place the caret as a click does\n"
    "  caret! X Y                 set the caret's fields only\n"
    "  sel SX SY EX EY            select from (SX,SY) to (EX,EY), the caret at the end\n"
    "  keys K...                  press keys: Left Right Up Down Home End PageUp PageDown\n"
    "                             Tab Enter Backspace Delete Insert Escape Space F1..F12,\n"
    "                             letters and digits, with Shift+ Ctrl+ Alt+ prefixes\n"
    "  type \"...\"                 type each character\n"
    "  alt DIGITS                 type DIGITS on the keypad with Alt held, then let Alt go\n"
    "  command NAME [ARG...]      run a memo routine that no key reaches:\n"
    "                             ToggleCommentBlock, CommentBlock \"START\" [\"END\"],\n"
    "                             UnCommentBlock \"START\" [\"END\"], DeleteLine [INDEX],\n"
    "                             SelToCase upper|lower|invert|capitalize, RemoveTrailing [LINE],\n"
    "                             IndentSelectedBlock [full], UnIndentSelectedBlock [full],\n"
    "                             DuplicateCurrentLine, InsertLine LINE \"TEXT\",\n"
    "                             InsertText \"TEXT\" [bol], and others (see the README)\n"
    "  mouse down|move|up COL ROW [left|right|middle] [shift] [ctrl] [alt]\n"
    "  dblclick COL ROW           a double click; tripleclick COL ROW a triple one\n"
    "                             (cells of the text area, 0-based, may lie outside)\n"
    "  wheel N                    turn the wheel N notches (above 0: up), 3 lines each\n"
    "  tick MS                    advance the clock: timers and double-click time\n"
    "  set NAME=VALUE             set a property (print options lists them)\n"
    "  undo, redo                 one step of the undo history back or on\n"
    "  saved                      the text counts as saved, as after a save\n"
    "  clip set \"...\" [line]      put text on the clipboard; line marks it as a\n"
    "                             whole line, as a copy with no selection does\n"
    "  clip print                 print the clipboard: clip \"...\" [line]\n"
    "  print state|text|rows|options|undo\n"
    "  setline ROW \"...\"         replace one row's text as an edit of it\n"
    "  print paint [ROW-ROW]      paint the view; per screen row one JSON object with\n"
    "                             its runs: {\"row\":R,\"line\":L,\"runs\":[{\"text\":...,\n"
    "                             \"x\":PIXEL,\"fg\":\"#rrggbb\",\"bg\":\"#rrggbb\",\"style\":\"biu\"}]}\n"
    "--trace invalidate prints after each command what it invalidated: 'trace\n"
    "invalidate all', 'trace invalidate rows A-B [l,t,r,b]' and, for a row drawn\n"
    "at once, 'trace redraw rows A-B [l,t,r,b]' (screen rows, client pixels).\n"
    "print state writes one JSON object on one line:\n"
    "  {\"caret\":[CurX,CurY],\"sel\":[SelStartX,SelStartY,SelEndX,SelEndY],\"top\":TopLine,\n"
    "   \"left\":LeftCol,\"rows\":RowCount,\"modified\":false,\"overwrite\":false,\"text\":\"...\"}\n"
    "When the script prints nothing, the state is printed once at the end.\n"
    "The memo starts as a host creates it: ProcessShortcuts is off, so Home, End,\n"
    "Page Up/Down and Ctrl shortcuts do nothing until 'set ProcessShortcuts=1'.\n"
    "print undo lists the undo records, oldest first, one a line: the class, the\n"
    "text it keeps, then the caret before and after (\"from X0 Y0 to X Y\").\n"
    "\n"
    "Exit status: 0 fine, 1 a file could not be read, 2 bad arguments or a bad\n"
    "script line (named with its number).\n";

namespace {
using namespace orl;

struct TMemoArgs {
  std::optional<std::filesystem::path> File, Syntax, Script;
  int Cols = 80, Rows = 25;
  std::vector<std::string> Sets;
  bool bTraceInvalidate = false;
};

bool ParseSize(const std::string& text, int& cols, int& rows) {
  const size_t x = text.find('x');
  if (x == std::string::npos) return false;
  try {
    cols = std::stoi(text.substr(0, x));
    rows = std::stoi(text.substr(x + 1));
  } catch (const std::exception&) {
    return false;
  }
  return cols > 0 && rows > 0 && cols <= 10000 && rows <= 10000;
}

bool ParseArgs(const std::vector<std::string>& args, TMemoArgs& parsed) {
  for (size_t i = 0; i < args.size(); ++i) {
    const std::string& a = args[i];
    const bool bHasValue = i + 1 < args.size();
    if (a == "--syntax" && bHasValue) parsed.Syntax = args[++i];
    else if (a == "--script" && bHasValue) parsed.Script = args[++i];
    else if (a == "--set" && bHasValue) parsed.Sets.push_back(args[++i]);
    else if (a == "--trace" && bHasValue && args[i + 1] == "invalidate") parsed.bTraceInvalidate = ++i > 0;
    else if (a == "--size" && bHasValue) {
      if (!ParseSize(args[++i], parsed.Cols, parsed.Rows)) return false;
    } else if (!a.starts_with("--") && !parsed.File) parsed.File = a;
    else return false;
  }
  return true;
}

/// A key as the keyboard delivers it: its code and the character it makes, if any.
struct TKeyStroke {
  int Key = vkNone;
  char16_t Char = 0;
  TShiftState Shift = 0;
};

const std::map<std::string, std::pair<int, char16_t>>& NamedKeys() {
  static const std::map<std::string, std::pair<int, char16_t>> keys{
      {"Left", {vkLeft, 0}},     {"Right", {vkRight, 0}},   {"Up", {vkUp, 0}},
      {"Down", {vkDown, 0}},     {"Home", {vkHome, 0}},     {"End", {vkEnd, 0}},
      {"PageUp", {vkPrior, 0}},  {"PageDown", {vkNext, 0}}, {"Tab", {vkTab, u'\t'}},
      {"Enter", {vkReturn, u'\r'}}, {"Backspace", {vkBack, 8}}, {"Delete", {vkDelete, 0}},
      {"Insert", {vkInsert, 0}}, {"Escape", {vkEscape, 27}}, {"Space", {vkSpace, u' '}},
  };
  return keys;
}

TKeyStroke ParseKey(const std::string& keyName) {
  TKeyStroke stroke;
  std::string rest = keyName;
  for (;;) {
    if (rest.starts_with("Shift+")) stroke.Shift |= ssShift;
    else if (rest.starts_with("Ctrl+")) stroke.Shift |= ssCtrl;
    else if (rest.starts_with("Alt+")) stroke.Shift |= ssAlt;
    else break;
    rest.erase(0, rest.find('+') + 1);
  }
  const bool bCtrl = stroke.Shift & ssCtrl, bAlt = stroke.Shift & ssAlt;
  if (const auto it = NamedKeys().find(rest); it != NamedKeys().end()) {
    stroke.Key = it->second.first;
    // With Ctrl or Alt only the control keys still make their character.
    const bool bControl = it->second.second != 0 && it->second.second < 32;
    if (!(bCtrl || bAlt) || (bControl && !bAlt && stroke.Key != vkTab)) stroke.Char = it->second.second;
    return stroke;
  }
  if (rest.size() >= 2 && rest.size() <= 3 && rest[0] == 'F') {
    const int n = std::atoi(rest.c_str() + 1);
    if (n >= 1 && n <= 12) {
      stroke.Key = vkF1 + n - 1;
      return stroke;
    }
  }
  if (rest.size() == 1 && std::isalnum(static_cast<unsigned char>(rest[0]))) {
    const char upper = char(std::toupper(static_cast<unsigned char>(rest[0])));
    stroke.Key = upper;
    const bool bLetter = std::isalpha(static_cast<unsigned char>(upper));
    if (bCtrl && !bAlt && bLetter) stroke.Char = char16_t(upper - 'A' + 1);
    else if (!bCtrl && !bAlt)
      stroke.Char = bLetter && !(stroke.Shift & ssShift) ? char16_t(std::tolower(upper)) : char16_t(upper);
    return stroke;
  }
  throw EScriptError("unknown key '" + keyName + "'");
}

std::string JsonText(std::u16string_view text) { return JsonString(text); }

class TMemoDriver {
public:
  TMemoDriver(THeadlessWindow& window, TOrlMemo& memo, std::ostream& out) : FWindow(window), FMemo(memo), FOut(out) {}

  void Run(const std::vector<TScriptWord>& words);
  bool Printed() const { return FPrinted; }
  void PrintState();

private:
  void Need(const std::vector<TScriptWord>& words, size_t count, const char* usage);
  void Keys(const std::vector<TScriptWord>& words);
  void Press(const TKeyStroke& stroke);
  void Type(std::u16string_view text);
  void Mouse(const std::vector<TScriptWord>& words);
  TPoint CellToPixel(int col, int row);
  void Click(TPoint p, TShiftState shift);
  void Print(const std::string& what);
  void Clip(const std::vector<TScriptWord>& words);
  void PaintRows(const std::vector<TScriptWord>& words);

  THeadlessWindow& FWindow;
  TOrlMemo& FMemo;
  std::ostream& FOut;
  bool FPrinted = false;
};

void TMemoDriver::Need(const std::vector<TScriptWord>& words, size_t count, const char* usage) {
  if (words.size() != count) throw EScriptError(std::string("usage: ") + usage);
}

void TMemoDriver::Run(const std::vector<TScriptWord>& words) {
  if (words.empty()) return;
  const std::string command = Out(words[0].Text);
  if (command == "text") {
    Need(words, 2, "text \"...\"");
    if (!words[1].bQuoted) throw EScriptError("text needs a quoted string");
    FMemo.SetText(words[1].Text);
  } else if (command == "caret") {
    Need(words, 3, "caret X Y");
    FMemo.SetTextCursor(ScriptNumber(words[1]), ScriptNumber(words[2]), true);
    FMemo.FOldCurX = FMemo.TextLength(FMemo.CurY(), FMemo.CurX(), false, false);
  } else if (command == "caret!") {
    Need(words, 3, "caret! X Y");
    const int x = ScriptNumber(words[1]), y = ScriptNumber(words[2]);
    // The fields take what they are given, so only a place inside the text is given to them.
    if (x < 0 || y < 0 || y >= FMemo.InternalLines().Count())
      throw EScriptError("caret! needs a row of the text and a column from 0");
    FMemo.SetTextCursorValues(x, y);
  } else if (command == "sel") {
    Need(words, 5, "sel SX SY EX EY");
    FMemo.SetSelection2(ScriptNumber(words[1]), ScriptNumber(words[2]), ScriptNumber(words[3]), ScriptNumber(words[4]), true);
  } else if (command == "keys") {
    Keys(words);
  } else if (command == "alt") {
    Need(words, 2, "alt DIGITS");
    TypeAltCode(FMemo, words[1].Text);
  } else if (command == "command") {
    RunTextCommand(FMemo, words);
  } else if (command == "type") {
    Need(words, 2, "type \"...\"");
    Type(words[1].Text);
  } else if (command == "mouse" || command == "dblclick" || command == "tripleclick") {
    Mouse(words);
  } else if (command == "wheel") {
    Need(words, 2, "wheel N");
    FMemo.MouseWheel(0, ScriptNumber(words[1]), 3);
  } else if (command == "tick") {
    Need(words, 2, "tick MS");
    const int ms = ScriptNumber(words[1]);
    if (ms < 0 || ms > 3'600'000) throw EScriptError("tick takes 0 to 3600000 ms");
    FWindow.Advance(ms);
  } else if (command == "set") {
    Need(words, 2, "set NAME=VALUE");
    const std::string assignment = Out(words[1].Text);
    const size_t eq = assignment.find('=');
    std::string error;
    if (eq == std::string::npos) throw EScriptError("usage: set NAME=VALUE");
    if (!SetMemoProperty(FMemo, assignment.substr(0, eq), assignment.substr(eq + 1), error)) throw EScriptError(error);
  } else if (command == "undo" || command == "redo") {
    Need(words, 1, command.c_str());
    if (command == "undo") FMemo.Undo();
    else FMemo.Redo();
  } else if (command == "saved") {
    Need(words, 1, "saved");
    FMemo.Saved();
  } else if (command == "clip") {
    Clip(words);
  } else if (command == "setline") {
    Need(words, 3, "setline ROW \"...\"");
    FMemo.SetLineText(ScriptNumber(words[1]), words[2].Text);
  } else if (command == "print" && words.size() >= 2 && Out(words[1].Text) == "paint") {
    PaintRows(words);
  } else if (command == "print") {
    Need(words, 2, "print state|text|rows|options|undo");
    Print(Out(words[1].Text));
  } else {
    throw EScriptError("unknown command '" + command + "'");
  }
}

void TMemoDriver::Keys(const std::vector<TScriptWord>& words) {
  if (words.size() < 2) throw EScriptError("usage: keys K...");
  std::vector<TKeyStroke> strokes;
  for (size_t i = 1; i < words.size(); ++i) strokes.push_back(ParseKey(Out(words[i].Text)));
  for (const TKeyStroke& stroke : strokes) Press(stroke);
}

void TMemoDriver::Press(const TKeyStroke& stroke) {
  int key = stroke.Key;
  FMemo.KeyDown(key, stroke.Shift);
  // The keyboard makes the character whatever the key-down did with the key.
  if (stroke.Char) FMemo.KeyPress(stroke.Char);
  FMemo.KeyUp(stroke.Key, stroke.Shift);
}

void TMemoDriver::Type(std::u16string_view text) {
  for (size_t i = 0; i < text.size(); ++i) {
    const char16_t ch = text[i];
    if (ch == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n') continue;  // one Enter for a CRLF
    if (ch == u'\r' || ch == u'\n') Press({vkReturn, u'\r', 0});
    else if (ch == u'\t') Press({vkTab, u'\t', 0});
    else if (ch < 32) throw EScriptError("type cannot make control character " + std::to_string(int(ch)));
    else FMemo.KeyPress(ch);
  }
}

TPoint TMemoDriver::CellToPixel(int col, int row) {
  const TRect area = FMemo.EditorRect(true, -1);
  const TCellSize cell = FMemo.CellSize();
  return {area.Left + col * cell.W + 1, area.Top + row * cell.H + cell.H / 2};
}

void TMemoDriver::Click(TPoint p, TShiftState shift) {
  FMemo.MouseDown(TMouseButton::mbLeft, shift, p.X, p.Y);
  FMemo.MouseUp(TMouseButton::mbLeft, shift, p.X, p.Y);
}

void TMemoDriver::Mouse(const std::vector<TScriptWord>& words) {
  const std::string command = Out(words[0].Text);
  if (command != "mouse") {
    Need(words, 3, (command + " COL ROW").c_str());
    const TPoint p = CellToPixel(ScriptNumber(words[1]), ScriptNumber(words[2]));
    Click(p, 0);
    FMemo.DblClick(0, p.X, p.Y);
    FMemo.MouseUp(TMouseButton::mbLeft, 0, p.X, p.Y);
    if (command == "tripleclick") Click(p, 0);
    return;
  }
  if (words.size() < 4)
    throw EScriptError("usage: mouse down|move|up COL ROW [left|right|middle] [shift] [ctrl] [alt]");
  const std::string action = Out(words[1].Text);
  const TPoint p = CellToPixel(ScriptNumber(words[2]), ScriptNumber(words[3]));
  TMouseButton button = TMouseButton::mbLeft;
  TShiftState shift = 0;
  for (size_t i = 4; i < words.size(); ++i) {
    const std::string w = Out(words[i].Text);
    if (w == "left") button = TMouseButton::mbLeft;
    else if (w == "right") button = TMouseButton::mbRight;
    else if (w == "middle") button = TMouseButton::mbMiddle;
    else if (w == "shift") shift |= ssShift;
    else if (w == "ctrl") shift |= ssCtrl;
    else if (w == "alt") shift |= ssAlt;
    else throw EScriptError("unknown mouse word '" + w + "'");
  }
  if (action == "down") FMemo.MouseDown(button, shift, p.X, p.Y);
  else if (action == "move") FMemo.MouseMove(shift, p.X, p.Y);
  else if (action == "up") FMemo.MouseUp(button, shift, p.X, p.Y);
  else throw EScriptError("mouse takes down, move or up");
}

void TMemoDriver::Clip(const std::vector<TScriptWord>& words) {
  const std::string action = words.size() > 1 ? Out(words[1].Text) : "";
  if (action == "print" && words.size() == 2) {
    FPrinted = true;
    FOut << "clip " << JsonText(FWindow.Clipboard.Text) << (FWindow.Clipboard.bWholeLine ? " line" : "") << "\n";
    return;
  }
  const bool bLine = words.size() == 4 && Out(words[3].Text) == "line";
  if (action != "set" || words.size() < 3 || !words[2].bQuoted || (words.size() == 4 && !bLine) || words.size() > 4)
    throw EScriptError("usage: clip set \"...\" [line] | clip print");
  FWindow.Clipboard = {};
  FWindow.Clipboard.Text = words[2].Text;
  FWindow.Clipboard.bWholeLine = bLine;
}

void TMemoDriver::PrintState() {
  FOut << "{\"caret\":[" << FMemo.FCurX << "," << FMemo.FCurY << "],\"sel\":[" << FMemo.FSelStartX << ","
       << FMemo.FSelStartY << "," << FMemo.FSelEndX << "," << FMemo.FSelEndY << "],\"top\":" << FMemo.TopLine()
       << ",\"left\":" << FMemo.LeftCol() << ",\"rows\":" << FMemo.InternalLines().Count()
       << ",\"modified\":" << (FMemo.Modified() ? "true" : "false")
       << ",\"overwrite\":" << (FMemo.FOverwrite ? "true" : "false") << ",\"text\":" << JsonText(FMemo.Text())
       << "}\n";
}

void TMemoDriver::Print(const std::string& what) {
  FPrinted = true;
  if (what == "state") {
    PrintState();
  } else if (what == "text") {
    FOut << Out(FMemo.Text()) << "\n";
  } else if (what == "rows") {
    TOrlMemoStrings& lines = FMemo.InternalLines();
    for (int i = 0; i < lines.Count(); ++i) {
      FOut << "row " << i << " " << JsonText(lines.GetLineString(i));
      if (lines.IsLineWrapped(i)) FOut << " W";
      if (lines.GetHiddenLine(i)) FOut << " H";
      FOut << "\n";
    }
  } else if (what == "undo") {
    PrintUndoRecords(FMemo, FOut);
  } else if (what == "options") {
    for (const auto& [name, value] : MemoPropertyValues(FMemo)) FOut << name << "=" << value << "\n";
  } else {
    throw EScriptError("print takes state, text, rows, options or undo");
  }
}

void TMemoDriver::PaintRows(const std::vector<TScriptWord>& words) {
  if (words.size() > 3) throw EScriptError("usage: print paint [ROW-ROW]");
  int first = 0, last = -1;
  if (words.size() == 3) {
    const std::string range = Out(words[2].Text);
    const size_t dash = range.find('-');
    if (dash == std::string::npos) throw EScriptError("print paint takes a range ROW-ROW");
    first = ScriptNumber({Utf8ToUtf16(range.substr(0, dash)), false});
    last = ScriptNumber({Utf8ToUtf16(range.substr(dash + 1)), false});
    if (first < 0 || last < first) throw EScriptError("print paint takes rows from 0, the first not above the last");
  }
  FPrinted = true;
  PrintPaint(FMemo, FOut, first, last);
}

/// The script's lines: from a file, from standard input, or none.
bool ReadScript(const TMemoArgs& args, std::string& script, std::ostream& err) {
  if (!args.Script) return true;
  if (*args.Script == "-") {
    std::ostringstream all;
    all << std::cin.rdbuf();
    script = all.str();
    return true;
  }
  try {
    script = ReadFileBytes(*args.Script);
  } catch (const EOrlError& e) {
    err << "gdtool memo: " << e.what() << "\n";
    return false;
  }
  return true;
}

bool LoadSyntax(TOrlMemo& memo, const std::filesystem::path& file, std::ostream& err) {
  if (LoadDefinitionInto(memo, file)) return true;
  err << "gdtool memo: " << file.string() << ": no style set could be loaded\n";
  return false;
}

} // namespace

int RunMemo(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
  TMemoArgs parsed;
  if (WantsHelp(args) || !ParseArgs(args, parsed)) {
    (WantsHelp(args) ? out : err) << kMemoHelp;
    return WantsHelp(args) ? exOk : exUnusable;
  }
  THeadlessWindow window;
  // One cell more than asked and the margin: the page width leaves the last cell free.
  window.Client = {0, 0, (parsed.Cols + 1) * THeadlessWindow::kCellW + 1, parsed.Rows * THeadlessWindow::kCellH};
  TOrlMemo memo(&window);
  std::string script;
  try {
    if (parsed.Syntax && !LoadSyntax(memo, *parsed.Syntax, err)) return exProblems;
    if (parsed.File) memo.SetText(DecodeText(ReadFileBytes(*parsed.File), 65001));
  } catch (const EOrlError& e) {
    err << "gdtool memo: " << e.what() << "\n";
    return exProblems;
  }
  if (!ReadScript(parsed, script, err)) return exProblems;
  memo.ResizeEditor();
  memo.FocusGained();
  TMemoDriver driver(window, memo, out);
  for (const std::string& assignment : parsed.Sets) {
    std::string error;
    const size_t eq = assignment.find('=');
    if (eq == std::string::npos || !SetMemoProperty(memo, assignment.substr(0, eq), assignment.substr(eq + 1), error)) {
      err << "gdtool memo: --set " << assignment << ": " << (error.empty() ? "usage: NAME=VALUE" : error) << "\n";
      return exUnusable;
    }
  }
  std::istringstream lines(script);
  std::string line;
  // The trace starts with the script: what setting up the memo invalidated is not shown.
  window.Invalidated.clear();
  window.InvalidatedAll = 0;
  window.Redrawn.clear();
  for (int number = 1; std::getline(lines, line); ++number) {
    try {
      driver.Run(SplitScriptLine(line));
      if (parsed.bTraceInvalidate) PrintInvalidations(memo, window, out);
    } catch (const EScriptError& e) {
      err << "gdtool memo: line " << number << ": " << e.what() << "\n";
      return exUnusable;
    }
  }
  if (!driver.Printed()) driver.PrintState();
  return exOk;
}

} // namespace gdtool
