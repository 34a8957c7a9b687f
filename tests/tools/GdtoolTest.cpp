#include <gtest/gtest.h>

#include <sys/wait.h>

#include <cstdio>

#include "TempFolder.h"
#include "platform/CodePages.h"

namespace fs = std::filesystem;
using orl::test::ReadBytes;

namespace {

struct TRun {
  int Status;
  std::string Output;
};

std::string Quoted(const std::string& s) { return "'" + s + "'"; }

TRun Gdtool(const std::string& args) {
  const std::string command = Quoted(GDTOOL_PATH) + " " + args + " 2>&1";
  FILE* pipe = ::popen(command.c_str(), "r");
  std::string output;
  char buffer[4096];
  while (size_t n = std::fread(buffer, 1, sizeof buffer, pipe)) output.append(buffer, n);
  const int status = ::pclose(pipe);
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, output};
}

std::vector<fs::path> BundledDefinitions() {
  std::vector<fs::path> files;
  for (const auto& entry : fs::directory_iterator(fs::path(HOST_DIR) / "syntax"))
    if (entry.path().extension() == ".gdx") files.push_back(entry.path());
  std::sort(files.begin(), files.end());
  return files;
}

} // namespace

TEST(Gdtool, BundledDefinitionsCheckCleanAndAreAlreadyInSavedForm) {
  const auto files = BundledDefinitions();
  ASSERT_GE(files.size(), 10u);
  orl::test::TTempFolder dir;
  for (const fs::path& file : files) {
    const TRun check = Gdtool("check " + Quoted(file.string()));
    EXPECT_EQ(check.Status, 0) << check.Output;
    EXPECT_NE(check.Output.find("problems: none"), std::string::npos) << check.Output;

    const fs::path out = dir / file.filename().string();
    ASSERT_EQ(Gdtool("resave " + Quoted(file.string()) + " " + Quoted(out.string())).Status, 0);
    EXPECT_EQ(ReadBytes(out), ReadBytes(file)) << file;
    EXPECT_EQ(ReadBytes(fs::path(out).replace_extension(".ini")), ReadBytes(fs::path(file).replace_extension(".ini")))
        << file;
  }
}

TEST(Gdtool, SecondResaveIsByteIdenticalAndVersionEntriesTravel) {
  orl::test::TTempFolder dir;
  orl::test::WriteBytes(dir / "_list.ver", orl::EncodeUtf16LE(u"[Mine]\r\nAuthor=Someone\r\nVersion=7\r\n", true));
  orl::test::WriteBytes(dir / "Mine.gdx", ";{}\r\n; comment\r\n[Options]\r\nLineCommentA=#\r\nCase=1\r\n"
                                          "[Block]\r\n1_Name=Str\r\n\r\n[Foreign]\r\nx= kept \r\n");
  orl::test::WriteBytes(dir / "Mine.ini", "[Comment]\r\n1=one\r\n2=two\r\n");
  ASSERT_EQ(Gdtool("resave " + Quoted((dir / "Mine.gdx").string())).Status, 0);
  const std::string first = ReadBytes(dir / "Mine.gdx");
  ASSERT_EQ(Gdtool("resave " + Quoted((dir / "Mine.gdx").string())).Status, 0);
  EXPECT_EQ(ReadBytes(dir / "Mine.gdx"), first);
  EXPECT_NE(first.find(std::string("x\0=\0 \0k\0e\0p\0t\0 \0", 16)), std::string::npos);

  fs::create_directories(dir / "copy");
  orl::test::WriteBytes(dir / "copy" / "_list.ver", "");
  ASSERT_EQ(Gdtool("resave " + Quoted((dir / "Mine.gdx").string()) + " " + Quoted((dir / "copy" / "Copy.gdx").string()))
                .Status,
            0);
  const std::string list = ReadBytes(dir / "copy" / "_list.ver");
  EXPECT_NE(list.find(std::string("S\0o\0m\0e\0o\0n\0e\0", 14)), std::string::npos);
  EXPECT_NE(list.find(std::string("2\0000\0001\0000\0", 8)), std::string::npos);  // loading date default
}

TEST(Gdtool, BadInputGivesOneLineErrorsAndStatusTwo) {
  orl::test::TTempFolder dir;
  TRun missing = Gdtool("check " + Quoted((dir / "none.gdx").string()));
  EXPECT_EQ(missing.Status, 2);
  EXPECT_EQ(std::count(missing.Output.begin(), missing.Output.end(), '\n'), 2) << missing.Output;
  EXPECT_NE(missing.Output.find("none.gdx"), std::string::npos);
  EXPECT_EQ(Gdtool("resave " + Quoted(dir.Path().string())).Status, 2);
  orl::test::WriteBytes(dir / "Old.gdx", "[Syntax]\r\n");
  TRun old = Gdtool("resave " + Quoted((dir / "Old.gdx").string()));
  EXPECT_EQ(old.Status, 2);
  EXPECT_NE(old.Output.find("older layout"), std::string::npos);
  EXPECT_EQ(Gdtool("frobnicate").Status, 2);
  EXPECT_EQ(Gdtool("check").Status, 2);
  for (const char* help : {"--help", "help resave", "check --help", "resave --help"}) {
    TRun h = Gdtool(help);
    EXPECT_EQ(h.Status, 0);
    EXPECT_NE(h.Output.find("usage: gdtool"), std::string::npos);
  }
}
