#pragma once
// Runs the gdtool program as a user would and keeps what it printed.

#include <sys/wait.h>

#include <cstdio>
#include <string>

#include "BuildPaths.h"

namespace orl::test {

struct TRun {
  int Status;
  std::string Output;  ///< standard output and error, interleaved
};

inline std::string Quoted(const std::string& s) { return "'" + s + "'"; }

/// Runs a shell command line and keeps its exit status and standard output.
inline TRun Run(const std::string& command) {
  FILE* pipe = ::popen(command.c_str(), "r");
  std::string output;
  char buffer[4096];
  while (size_t n = std::fread(buffer, 1, sizeof buffer, pipe)) output.append(buffer, n);
  const int status = ::pclose(pipe);
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, output};
}

inline TRun Gdtool(const std::string& args) { return Run(Quoted(orl::test::GdtoolPath().string()) + " " + args + " 2>&1"); }

} // namespace orl::test
