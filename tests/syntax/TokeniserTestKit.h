#pragma once
// A document under a definition for the tokeniser's tests: the definition is
// written and loaded as a memo loads it, the text goes into a line store, and
// the tokeniser runs over both with a plain host that records what it hears.

#include <string>
#include <vector>

#include "SyntaxTestFiles.h"
#include "platform/CodePages.h"
#include "syntax/LineTokeniser.h"
#include "syntax/OrlSyntax.h"

namespace orl::test {

/// A plain host that also records spell ranges and debug lines.
class TRecordingHost final : public ITokeniserHost {
public:
  bool AllowURLClick() const override { return bAllowURLClick; }
  bool WrapOn() const override { return bWrapOn; }
  bool HaltBkThread() const override { return bHalt; }
  void SpellCheck(int LineNo, int x, int len, TTextAttribute&) override { Spelled.push_back({LineNo, x, len}); }
  void DebugWrite(const std::u16string& ws, bool bHeading) override {
    if (bHeading) Debug.push_back(Utf16ToUtf8(ws));
  }

  bool bAllowURLClick = false, bWrapOn = false, bHalt = false;
  struct TSpell {
    int LineNo, x, len;
  };
  std::vector<TSpell> Spelled;
  std::vector<std::string> Debug;
};

class TTokeniserDoc {
public:
  /// `gdx` holds the definition's sections, lines joined by "\n".
  explicit TTokeniserDoc(std::u16string_view gdx, const std::u16string& name = u"Lang") {
    std::u16string asp;
    const auto path = WriteDefinitionFile(Folder, "Lang.gdx", gdx);
    Syntax.LoadStyleFromFile(&Memo, U16(path), name, 0, asp);
  }

  void SetText(const std::vector<std::u16string>& lines) {
    Lines.Clear();
    for (const std::u16string& line : lines) Lines.DoAdd(line);
  }

  /// The state at the end of each line, scanned from the top.
  std::vector<TStyle> States() {
    std::vector<TStyle> states;
    TStyle style;
    for (int i = 0; i < Lines.Count(); ++i) {
      Tokeniser.GetUpLineStyle(i, 0, -1, style, false);
      states.push_back(style);
    }
    return states;
  }
  TStyle EndState() { return States().back(); }

  /// The runs of `row` from `start` as "class:text" joined by " ", neighbours of one name merged.
  std::string Runs(std::u16string_view row, const TStyle& start = TStyle()) {
    TTokenRunList runs;
    Tokeniser.DrawSegments(row, start, runs);
    std::string out;
    TRunName last{};
    int lastEnd = 0;
    for (const TTokenRun& run : runs.Runs) {
      const TRunName name = ClassifyRun(run, Memo.FStyles);
      const std::string text = Utf16ToUtf8(row.substr(size_t(run.Start - 1), size_t(run.Length)));
      if (lastEnd == run.Start && name.Class == last.Class && name.Group == last.Group) {
        out += text;
      } else {
        out += (out.empty() ? "" : " ") + std::string(RunClassName(name.Class)) + ":" + text;
      }
      last = name;
      lastEnd = run.Start + run.Length;
    }
    return out;
  }

  TTempFolder Folder;
  TOrlSyntax Syntax;
  TOrlMemoStyleSlots Memo;
  TOrlMemoStrings Lines;
  TRecordingHost Host;
  TLineTokeniser Tokeniser{Lines, Memo, Host};
};

/// The definition of a C-like language most tests start from.
inline constexpr std::u16string_view kCLike =
    u"[Options]\nLineCommentA=//\nCommentStartA=/*\nCommentEndA=*/\nChar='\nString=\"\nStringOnLine=1\n"
    u"HexIdentifier=0x\nEscape=\\\nSymbols=+-*/=<>;,.()[]{}\nNumbers=0123456789\nCase=1\nDigitSeparator='\n\n"
    u"[Keywords]\nKeywords=int|return|if|while|\nTypes=int|char|\n#Pre=#\\s*include\\b\n";

} // namespace orl::test
