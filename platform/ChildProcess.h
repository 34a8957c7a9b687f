#pragma once
// Starting an outside program and watching it end.

#include <filesystem>
#include <optional>
#include <string>
#include <sys/types.h>
#include <vector>

namespace orl {

class TChildProcess {
public:
  /// Starts `program` with `arguments` in `workingFolder`; nothing when it cannot start.
  static std::optional<TChildProcess> Start(const std::filesystem::path& program,
                                            const std::vector<std::string>& arguments,
                                            const std::filesystem::path& workingFolder);
  TChildProcess(TChildProcess&& other) noexcept : FPid(other.FPid) { other.FPid = -1; }
  TChildProcess& operator=(TChildProcess&&) = delete;
  /// A program still running is killed: nothing is left behind.
  ~TChildProcess();

  /// True until the program has ended; reaps it when it has.
  bool Running();
  void Kill();

private:
  explicit TChildProcess(pid_t pid) : FPid(pid) {}
  pid_t FPid;
};

} // namespace orl
