// The real program, started on a definition, edited through its widgets and
// crashed by a fatal signal, comes back with the document and its edits.

#include <gtest/gtest.h>

#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>

#include <chrono>
#include <thread>

#include "TempFolder.h"
#include "BuildPaths.h"

extern char** environ;

namespace fs = std::filesystem;

namespace {

// Waits for the program (whose restart keeps its process id); kills it after `limit`.
int WaitWithLimit(pid_t pid, std::chrono::seconds limit) {
  const auto end = std::chrono::steady_clock::now() + limit;
  int status = 0;
  while (::waitpid(pid, &status, WNOHANG) == 0) {
    if (std::chrono::steady_clock::now() > end) {
      ::kill(pid, SIGKILL);
      ::waitpid(pid, &status, 0);
      return -1;
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
  }
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

std::string ReportValue(const std::string& report, const std::string& key) {
  const size_t at = report.find(key + "=");
  if (at == std::string::npos) return "<missing>";
  const size_t start = at + key.size() + 1;
  return report.substr(start, report.find('\n', start) - start);
}

} // namespace

/// A host folder of its own with the program and one definition in it.
class CrashRestartTest : public ::testing::Test {
protected:
  CrashRestartTest() {
    fs::create_directories(FProgram.parent_path());
    fs::create_directories(FHost / "syntax" / "User defined");
    fs::copy_file(orl::test::GrammarDeskPath(), FProgram);
    fs::copy_file(orl::test::HostDir() / "syntax" / "C++.gdx", FDefinition);
    fs::copy_file(orl::test::HostDir() / "syntax" / "C++.ini", fs::path(FDefinition).replace_extension(".ini"));
  }

  /// Runs the program on the definition with an automation script; its exit code, -1 for a signal or a hang.
  int RunProgram(const std::string& script) {
    orl::test::WriteBytes(FDir / "script.txt", script);
    std::vector<std::string> environment = {"QT_QPA_PLATFORM=offscreen",
                                            "GRAMMARDESK_AUTOMATION=" + (FDir / "script.txt").string()};
    for (char** e = environ; *e; ++e)
      if (!std::string_view(*e).starts_with("ORL_RESTART_EPOCH=")) environment.emplace_back(*e);
    std::string programPath = FProgram.string(), definitionPath = FDefinition.string();
    std::vector<char*> argv = {programPath.data(), definitionPath.data(), nullptr}, envp;
    for (std::string& e : environment) envp.push_back(e.data());
    envp.push_back(nullptr);
    pid_t pid = 0;
    if (::posix_spawn(&pid, programPath.c_str(), nullptr, nullptr, argv.data(), envp.data()) != 0) return -2;
    return WaitWithLimit(pid, std::chrono::seconds(60));
  }

  orl::test::TTempFolder FDir;
  fs::path FHost = FDir / "host";
  fs::path FProgram = FHost / "GrammarDesk" / "grammardesk";
  fs::path FDefinition = FHost / "syntax" / "User defined" / "Test.gdx";
  fs::path FReport = FDir / "report.txt";
};

TEST_F(CrashRestartTest, TheRestartedProgramShowsTheDocumentWithItsEdits) {
  const std::string original = orl::test::ReadBytes(FDefinition);
  ASSERT_EQ(RunProgram("[start]\n"
                       "set SyntaxOptionTree LineCommentA ;;\n"
                       "page 7\n"
                       "sample restored after the crash\n"
                       "crash\n"
                       "[restart]\n"
                       "report " + FReport.string() + "\n"
                       "quit\n"),
            0);
  const std::string shown = orl::test::ReadBytes(FReport);
  // The restored edits are not saved yet: the document says so, and the crash data waits for a save.
  EXPECT_EQ(ReportValue(shown, "caption"), "Orl GrammarDesk - Test *");
  EXPECT_EQ(ReportValue(shown, "file"), FDefinition.string());
  EXPECT_EQ(ReportValue(shown, "modified"), "yes");
  EXPECT_EQ(ReportValue(shown, "option.LineCommentA"), ";;");
  EXPECT_NE(ReportValue(shown, "sample").find("restored after the crash"), std::string::npos);
  EXPECT_EQ(orl::test::ReadBytes(FDefinition), original);  // the file itself was not saved
  EXPECT_TRUE(fs::exists(FHost / "temp" / "GrammarDeskCrashData.gdx"));
}

TEST_F(CrashRestartTest, ACrashSoonAfterARestartIsNotRestartedAgain) {
  EXPECT_EQ(RunProgram("[start]\ncrash\n[restart]\ncrash\n"), -1);
}
