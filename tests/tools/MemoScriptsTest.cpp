// Every memo script in tests/data/memo runs through gdtool memo and must
// print exactly its .out file: the output, then "[exit N]". A script's first
// line may give the command's arguments as "#args: ..."; "{host}" in them
// stands for the staged host folder, where the bundled definitions are.

#include <gtest/gtest.h>

#include <sys/wait.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "BuildPaths.h"

namespace fs = std::filesystem;

namespace {

std::string ReadAll(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  std::ostringstream all;
  all << in.rdbuf();
  return all.str();
}

std::string RunScript(const fs::path& script) {
  std::string args;
  const std::string text = ReadAll(script);
  if (text.starts_with("#args:")) args = text.substr(6, text.find('\n') - 6);
  for (size_t at = args.find("{host}"); at != std::string::npos; at = args.find("{host}"))
    args.replace(at, 6, "'" + orl::test::HostDir().string() + "'");
  const std::string command =
      "'" + orl::test::GdtoolPath().string() + "' memo" + args + " --script '" + script.string() + "' 2>&1";
  FILE* pipe = ::popen(command.c_str(), "r");
  std::string output;
  char buffer[4096];
  while (size_t n = std::fread(buffer, 1, sizeof buffer, pipe)) output.append(buffer, n);
  const int status = ::pclose(pipe);
  return output + "[exit " + std::to_string(WIFEXITED(status) ? WEXITSTATUS(status) : -1) + "]\n";
}

TEST(MemoScripts, EveryScriptPrintsItsExpectedOutput) {
  int scripts = 0;
  for (const fs::directory_entry& entry : fs::directory_iterator(orl::test::TestsDataDir() / "memo")) {
    if (entry.path().extension() != ".memo") continue;
    ++scripts;
    const fs::path expected = fs::path(entry.path()).replace_extension(".out");
    ASSERT_TRUE(fs::exists(expected)) << expected;
    EXPECT_EQ(RunScript(entry.path()), ReadAll(expected)) << entry.path().filename();
  }
  EXPECT_GE(scripts, 8);
}

} // namespace
