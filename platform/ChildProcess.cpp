#include "platform/ChildProcess.h"

#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>

extern char** environ;

namespace orl {

std::optional<TChildProcess> TChildProcess::Start(const std::filesystem::path& program,
                                                  const std::vector<std::string>& arguments,
                                                  const std::filesystem::path& workingFolder) {
  std::string programPath = program.string();
  std::vector<std::string> args = arguments;
  std::vector<char*> argv = {programPath.data()};
  for (std::string& a : args) argv.push_back(a.data());
  argv.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addchdir_np(&actions, workingFolder.c_str());
  pid_t pid = -1;
  const int error = ::posix_spawn(&pid, programPath.c_str(), &actions, nullptr, argv.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (error != 0) return std::nullopt;
  return TChildProcess(pid);
}

TChildProcess::~TChildProcess() {
  if (FPid > 0 && Running()) Kill();
}

bool TChildProcess::Running() {
  if (FPid <= 0) return false;
  int status = 0;
  if (::waitpid(FPid, &status, WNOHANG) == 0) return true;
  FPid = -1;
  return false;
}

void TChildProcess::Kill() {
  if (FPid <= 0) return;
  ::kill(FPid, SIGKILL);
  int status = 0;
  ::waitpid(FPid, &status, 0);
  FPid = -1;
}

} // namespace orl
