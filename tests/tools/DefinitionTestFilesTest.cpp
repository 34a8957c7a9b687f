#include <gtest/gtest.h>

#include "BundledDefinitions.h"
#include "GdtoolRun.h"
#include "TempFolder.h"
#include "platform/CodePages.h"
#include "BuildPaths.h"

namespace fs = std::filesystem;
using orl::test::Gdtool;
using orl::test::Quoted;
using orl::test::TRun;

namespace {

bool Holds(const std::string& output, const std::string& part) { return output.find(part) != std::string::npos; }

/// An assertion line: "//", blanks up to `column`, `count` carets and `classes`.
std::string Carets(int column, int count, const std::string& classes) {
  return "//" + std::string(size_t(column - 3), ' ') + std::string(size_t(count), '^') + " " + classes;
}

/// A folder with a small definition "T" (extension .t, line comments "//",
/// keyword group Words) and, beside it, definitions "Block" (only a block
/// comment) and "Silent" (no comment at all).
class TTestFolder {
public:
  TTestFolder() {
    Write("T.gdx", ";{}\r\n\r\n[StandardExtensions]\r\ndefault=.t|\r\n\r\n[Options]\r\nLineCommentA=//\r\nCase=1\r\n"
                   "Symbols=;\r\n\r\n[Keywords]\r\nWords=alpha|beta|\r\nOther=gamma|\r\n");
    Write("Block.gdx", ";{}\r\n\r\n[StandardExtensions]\r\ndefault=.b|\r\n\r\n[Options]\r\nCommentStartA=<!--\r\n"
                       "CommentEndA=-->\r\n\r\n[Keywords]\r\nWords=alpha|\r\n");
    Write("Silent.gdx", ";{}\r\n\r\n[StandardExtensions]\r\ndefault=.s|\r\n\r\n[Keywords]\r\nWords=alpha|\r\n");
  }
  fs::path Write(const std::string& name, const std::string& text) {
    orl::test::WriteBytes(FDir / name, text);
    return FDir / name;
  }
  TRun Test(const std::string& name, const std::string& text) {
    return Gdtool("test " + Quoted(Write(name, text).string()));
  }
  const fs::path& Path() const { return FDir.Path(); }

private:
  orl::test::TTempFolder FDir;
};

/// Replaces the first `from` in the UTF-16 definition `gdx` by `to`.
void Mutate(const fs::path& gdx, const std::u16string& from, const std::u16string& to) {
  std::u16string text = orl::DecodeText(orl::test::ReadBytes(gdx), 65001);
  const size_t at = text.find(from);
  ASSERT_NE(at, std::u16string::npos) << gdx;
  text.replace(at, from.size(), to);
  orl::test::WriteBytes(gdx, orl::EncodeUtf16LE(text, true));
}

} // namespace

TEST(DefinitionTestFiles, BundledDefinitionsPassTheirTestFiles) {
  const TRun run = Gdtool("test " + Quoted((orl::test::HostDir() / "syntax" / "tests").string()));
  EXPECT_EQ(run.Status, 0) << run.Output;
  const size_t definitions = orl::test::BundledDefinitions(orl::test::HostDir()).size();
  const std::string summary = std::to_string(definitions) + " test files, 0 with failures, 0 unusable";
  EXPECT_TRUE(Holds(run.Output, summary)) << run.Output;
  EXPECT_TRUE(Holds(run.Output, " failed\n")) << run.Output;
}

TEST(DefinitionTestFiles, ABrokenDefinitionFailsItsTests) {
  orl::test::TTempFolder dir;
  const fs::path syntax = dir / "syntax";
  fs::copy(orl::test::HostDir() / "syntax", syntax, fs::copy_options::recursive);
  Mutate(syntax / "C++.gdx", u"|return|", u"|");
  Mutate(syntax / "Python.gdx", u"1_End=\"\"\"", u"1_End=\"\"\"!");

  const TRun cpp = Gdtool("test " + Quoted((syntax / "tests" / "cpp.cpp").string()));
  EXPECT_EQ(cpp.Status, 1) << cpp.Output;
  EXPECT_TRUE(Holds(cpp.Output, "cpp.cpp:14:14: expected keyword.Keywords, got text\n"
                                "int main() { return 0x1F; }\n"
                                "             ^^^^^^\n"))
      << cpp.Output;
  // A docstring that never ends swallows everything below it.
  const TRun python = Gdtool("test " + Quoted((syntax / "tests").string()));
  EXPECT_EQ(python.Status, 1) << python.Output;
  EXPECT_TRUE(Holds(python.Output, "python.py:")) << python.Output;
  EXPECT_TRUE(Holds(python.Output, "2 with failures")) << python.Output;
}

TEST(DefinitionTestFiles, ColumnsCountUtf16CharactersWithTabsAsOne) {
  TTestFolder dir;
  // alpha 1-5, tab 6, beta 7-10, blank 11, the face 12-13 as a surrogate pair, blank 14, alpha 15-19.
  const std::string line = "alpha\tbeta \xF0\x9F\x98\x80 alpha\n";
  const TRun pass = dir.Test("pass.t", line + "// <- keyword.Words\n" + Carets(7, 4, "keyword.Words") + "\n" +
                                           Carets(12, 2, "text !keyword") + "\n" + Carets(19, 1, "keyword") + "\n" +
                                           Carets(15, 5, "keyword.Words !keyword.Other") + "\n");
  EXPECT_EQ(pass.Status, 0) << pass.Output;
  EXPECT_TRUE(Holds(pass.Output, "assertions: 7 passed, 0 failed")) << pass.Output;

  const TRun fail = dir.Test("fail.t", line + Carets(6, 1, "keyword") + "\n" + Carets(15, 5, "!keyword") + "\n");
  EXPECT_EQ(fail.Status, 1) << fail.Output;
  // The caret line keeps the tab and gives the surrogate pair one place, so a terminal lines it up.
  EXPECT_TRUE(Holds(fail.Output, "fail.t:1:6: expected keyword, got text\n" + line + "     ^\n")) << fail.Output;
  EXPECT_TRUE(Holds(fail.Output, "fail.t:1:15: expected not keyword, got keyword.Words\n" + line +
                                     "     \t       ^^^^^\n"))
      << fail.Output;
  EXPECT_TRUE(Holds(fail.Output, "assertions: 0 passed, 2 failed")) << fail.Output;
}

TEST(DefinitionTestFiles, AssertionsStackUpUnderTheNearestOrdinaryLine) {
  TTestFolder dir;
  const TRun run = dir.Test("stack.t", "gamma; alpha\n" + Carets(8, 5, "keyword.Words") + "\n" +
                                           Carets(6, 1, "symbol") + "\n// <- keyword.Other\n");
  EXPECT_EQ(run.Status, 0) << run.Output;
  EXPECT_TRUE(Holds(run.Output, "assertions: 3 passed, 0 failed")) << run.Output;
}

TEST(DefinitionTestFiles, ADefinitionWithoutLineCommentsTakesItsBlockComment) {
  TTestFolder dir;
  const TRun pass = dir.Test("pass.b", "xxxxx alpha\n<!--  ^^^^^ keyword -->\n<!-- <- text -->\n");
  EXPECT_EQ(pass.Status, 0) << pass.Output;
  const TRun open = dir.Test("open.b", "xxxxx alpha\n<!--  ^^^^^ keyword\n");
  EXPECT_EQ(open.Status, 2) << open.Output;
  EXPECT_TRUE(Holds(open.Output, "open.b:2:7: error: the assertion's comment is not closed on its line"))
      << open.Output;

  const TRun silent = dir.Test("none.s", "alpha\n// <- keyword\n");
  EXPECT_EQ(silent.Status, 2) << silent.Output;
  EXPECT_TRUE(Holds(silent.Output, "has no comment syntax to write assertions in")) << silent.Output;
}

TEST(DefinitionTestFiles, MistakesInATestFileAreErrorsNotFailures) {
  TTestFolder dir;
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"// <- keyword\nalpha\n", "1:4: error: the assertion has no line above to test"},
      {"alpha\n// <- keywrd\n", "2:4: error: unknown class 'keywrd'; the classes are text, keyword, comment"},
      {"alpha\n// <- keyword.Nope\n", "2:4: error: the definition has no keyword group 'Nope'"},
      {"alpha\n// <- string.Words\n", "2:4: error: class 'string' has no groups"},
      {"alpha\n// <-\n", "2:4: error: the assertion names no class"},
      {"alpha\n" + Carets(6, 1, "text") + "\n", "2:6: error: column 6 lies beyond the end of line 1, which has 5"},
      {"alpha\n# <- keyword\n", " error: no assertions: write them as '// ^ CLASS' under a line"},
  };
  for (const auto& [text, error] : cases) {
    const TRun run = dir.Test("bad.t", text);
    EXPECT_EQ(run.Status, 2) << text;
    EXPECT_TRUE(Holds(run.Output, "bad.t:" + error)) << run.Output;
  }
  EXPECT_EQ(Gdtool("test").Status, 2);
  EXPECT_EQ(Gdtool("test --update " + Quoted(dir.Path().string())).Status, 2);
  const TRun missing = Gdtool("test " + Quoted((dir.Path() / "none.t").string()));
  EXPECT_EQ(missing.Status, 2) << missing.Output;
  EXPECT_TRUE(Holds(missing.Output, "none.t: error: no such file or folder")) << missing.Output;
}

TEST(DefinitionTestFiles, TheDefinitionComesFromTheOptionTheFirstLineOrTheExtension) {
  TTestFolder dir;
  const std::string test = "// syntax: T\nalpha\n// <- keyword.Words\n";
  EXPECT_EQ(dir.Test("named.txt", test).Status, 0);
  const TRun unknown = dir.Test("unknown.txt", "alpha\n// <- keyword\n");
  EXPECT_EQ(unknown.Status, 2);
  EXPECT_TRUE(Holds(unknown.Output, "claims the extension '.txt'")) << unknown.Output;
  const TRun misnamed = dir.Test("misnamed.t", "// syntax: Nothing\nalpha\n// <- keyword\n");
  EXPECT_EQ(misnamed.Status, 2);
  EXPECT_TRUE(Holds(misnamed.Output, "no definition named 'Nothing'")) << misnamed.Output;

  fs::create_directories(dir.Path() / "elsewhere");
  const fs::path file = dir.Write("elsewhere/given.txt", "alpha\n// <- keyword.Words\n");
  const TRun given = Gdtool("test --syntax " + Quoted((dir.Path() / "T.gdx").string()) + " " + Quoted(file.string()));
  EXPECT_EQ(given.Status, 0) << given.Output;
}
