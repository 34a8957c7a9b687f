// gdtool test over 1,000 definition test files (100 copies of each bundled
// definition's tests): each definition is loaded once for the whole run, so
// the run costs reading and colouring the files, not loading definitions.

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include <unistd.h>

#include "BuildPaths.h"

namespace fs = std::filesystem;

namespace {

constexpr int kCopies = 100;

/// A host syntax folder whose tests folder holds kCopies copies of each test file.
fs::path MakeTestFolder() {
  std::string pattern = (fs::temp_directory_path() / "orlbench.XXXXXX").string();
  const fs::path root = ::mkdtemp(pattern.data());
  const fs::path syntax = root / "syntax";
  const fs::path bundled = orl::test::HostDir() / "syntax";
  fs::create_directories(syntax / "tests");
  for (const fs::directory_entry& entry : fs::directory_iterator(bundled))
    if (entry.is_regular_file()) fs::copy_file(entry.path(), syntax / entry.path().filename());
  for (const fs::directory_entry& entry : fs::directory_iterator(bundled / "tests"))
    for (int i = 0; i < kCopies; ++i)
      fs::copy_file(entry.path(), syntax / "tests" / (std::to_string(i) + "_" + entry.path().filename().string()));
  return root;
}

void BM_TestThousandFiles(benchmark::State& state) {
  const fs::path root = MakeTestFolder();
  const std::string command =
      "'" + orl::test::GdtoolPath().string() + "' test '" + (root / "syntax" / "tests").string() + "' >/dev/null";
  for (auto _ : state)
    if (std::system(command.c_str()) != 0) state.SkipWithError("gdtool test failed");
  state.counters["files"] = double(std::distance(fs::directory_iterator(root / "syntax" / "tests"), {}));
  fs::remove_all(root);
}
BENCHMARK(BM_TestThousandFiles)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(3);

} // namespace

BENCHMARK_MAIN();
