#pragma once
// Where this build keeps what tests and benchmarks read: the staged host
// folder, the test data, the programs they start. The values live in one
// generated source file, so that the code that uses them compiles the same
// in every checkout and the compiler cache serves it across clones.

#include <filesystem>

namespace orl::test {

/// The staged host folder (definitions, language files).
std::filesystem::path HostDir();
/// tests/data of the source tree.
std::filesystem::path TestsDataDir();
/// The built gdtool.
std::filesystem::path GdtoolPath();
/// The built workbench program; empty in a configuration without it.
std::filesystem::path GrammarDeskPath();
/// The built host editor; empty in a configuration without it.
std::filesystem::path QuilletPath();

} // namespace orl::test
