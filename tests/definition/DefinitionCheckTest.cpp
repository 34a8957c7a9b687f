#include <gtest/gtest.h>

#include "TempFolder.h"
#include "definition/DefinitionCheck.h"
#include "platform/OrlError.h"

using namespace orl;

namespace {

std::vector<std::string> Problems(const std::filesystem::path& file) {
  std::vector<std::string> out;
  for (const TDefinitionProblem& p : CheckDefinition(file))
    out.push_back(p.File.filename().string() + ":" + std::to_string(p.Line) + ": " + p.Message);
  return out;
}

bool Has(const std::vector<std::string>& problems, const std::string& text) {
  for (const std::string& p : problems)
    if (p.find(text) != std::string::npos) return true;
  return false;
}

} // namespace

TEST(DefinitionCheck, FindsWhatTheReadersWouldMisread) {
  test::TTempFolder dir;
  test::WriteBytes(dir / "D.gdx",
                   ";{$X;}\r\n\r\nstray=1\r\n[Options]\r\nCase=yes\r\nString=\"'\r\nOnlyLineCommentIfFirstCharA=3\r\n"
                   "Bogus=1\r\nSymbolWordsA=ok\r\n\r\n[options]\r\n\r\n[Block]\r\n1_Name=a\r\n\r\n3_Name=c\r\n"
                   "1_Colour=red\r\n\r\n[Fold]\r\n1_Id=f\r\n1_ListItem=ceNothing\r\n1_Begin=a|\r\n\r\n"
                   "[Keywords]\r\nK=a|b\r\n#R=\r\n\r\n[Block]\r\n");
  test::WriteBytes(dir / "D.ini", "[MultiHighlight]\r\nSyntax=Y\r\nExtra=1\r\n\r\n[Sample]\r\nno equals\r\n");
  const auto problems = Problems(dir / "D.gdx");
  EXPECT_TRUE(Has(problems, "D.gdx:1: header comment ;{$X;}")) << problems.front();
  EXPECT_TRUE(Has(problems, "D.gdx:3: line stands before any section"));
  EXPECT_TRUE(Has(problems, "D.gdx:5: flag Case in [Options] is \"yes\""));
  EXPECT_TRUE(Has(problems, "D.gdx:6: String in [Options] holds"));
  EXPECT_TRUE(Has(problems, "D.gdx:7: OnlyLineCommentIfFirstCharA"));
  EXPECT_TRUE(Has(problems, "D.gdx:8: unknown key Bogus"));
  EXPECT_FALSE(Has(problems, "SymbolWordsA"));
  EXPECT_TRUE(Has(problems, "D.gdx:11: unknown section [options]; section names are matched with case"));
  EXPECT_TRUE(Has(problems, "D.gdx:15: empty line inside [Block]"));
  EXPECT_TRUE(Has(problems, "D.gdx:16: rule 3 of [Block] is never read"));
  EXPECT_TRUE(Has(problems, "D.gdx:17: unknown key 1_Colour"));
  EXPECT_TRUE(Has(problems, "D.gdx:21: 1_ListItem \"ceNothing\" is no list item"));
  EXPECT_TRUE(Has(problems, "D.gdx:22: list 1_Begin in [Fold] ends with '|'"));
  EXPECT_TRUE(Has(problems, "D.gdx:25: group K in [Keywords] does not end with '|'"));
  EXPECT_TRUE(Has(problems, "D.gdx:26: regular-expression group #R is empty"));
  EXPECT_TRUE(Has(problems, "D.gdx:28: section [Block] appears again (first at line 13)"));
  EXPECT_TRUE(Has(problems, "D.ini:3: unknown key Extra in [MultiHighlight]"));
  EXPECT_TRUE(Has(problems, "D.ini:6: line without '='"));
}

TEST(DefinitionCheck, CleanPairMissingCompanionOlderLayoutAndUnreadableFile) {
  test::TTempFolder dir;
  test::WriteBytes(dir / "Ok.gdx", ";{}\r\n\r\n[Keywords]\r\nK=a|b|\r\n\r\n");
  test::WriteBytes(dir / "Ok.ini", "[Sample]\r\n1=x\r\n\r\n");
  EXPECT_TRUE(Problems(dir / "Ok.gdx").empty());
  std::filesystem::remove(dir / "Ok.ini");
  EXPECT_EQ(Problems(dir / "Ok.gdx"), (std::vector<std::string>{"Ok.ini:0: companion file is missing"}));
  test::WriteBytes(dir / "Old.gdx", "[Syntax]\r\n");
  EXPECT_TRUE(Has(Problems(dir / "Old.gdx"), "older layout"));
  EXPECT_THROW(CheckDefinition(dir / "none.gdx"), EFileError);
}

TEST(DefinitionCheck, ListItemWordsInTheSectionKeyAndOddUtf16LengthsAreReported) {
  test::TTempFolder dir;
  test::WriteBytes(dir / "F.gdx", ";{}\r\n\r\n[Fold]\r\n1_Id=a\r\n1_Section=implementation\r\n2_Id=b\r\n"
                                  "2_Section=CEMETHOD\r\n2_ListItem=\r\n");
  test::WriteBytes(dir / "F.ini", std::string("\xFF\xFE[\0S\0a\0m\0p\0l\0e\0]\0\r\0\n\0x", 23));
  const auto problems = Problems(dir / "F.gdx");
  EXPECT_TRUE(Has(problems, "F.gdx:7: 2_Section \"CEMETHOD\" is a list item; it belongs in 2_ListItem"));
  EXPECT_FALSE(Has(problems, "1_Section"));
  EXPECT_TRUE(Has(problems, "F.ini:0: odd number of bytes in a UTF-16 file"));
}
