#pragma once
// Finds what in a definition pair the engine or the workbench would read
// differently from what its author wrote: rules behind a numbering gap, empty
// lines that end a section early, unknown sections and keys, values outside
// their kind, a missing companion file.

#include <filesystem>
#include <string>
#include <vector>

namespace orl {

struct TDefinitionProblem {
  std::filesystem::path File;
  int Line = 0;  ///< 1-based; 0 when the problem concerns the whole file
  std::string Message;
};

/// The problems of `<name>.gdx` and its companion, in file and line order.
/// Raises EFileError when the definition itself cannot be read.
std::vector<TDefinitionProblem> CheckDefinition(const std::filesystem::path& fileName);

} // namespace orl
