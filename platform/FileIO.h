#pragma once
// Whole-file reads and crash-safe writes, and the bridge between the UTF-16
// file names the design carries and native paths.

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace orl {

std::filesystem::path PathFromString(std::u16string_view name);
std::u16string StringFromPath(const std::filesystem::path& path);

/// True when `name` names an existing regular file (not a folder).
bool FileExists(const std::filesystem::path& path);
/// True when something stands at `path`, false when nothing does. Raises
/// EFileError when that cannot be told (a folder on the way that may not be
/// searched), so such a file is never taken for a missing one.
bool PathExists(const std::filesystem::path& path);
/// Raises EFileError with the system's reason when `path` cannot be opened for reading.
void RequireReadable(const std::filesystem::path& path);

/// The whole file; raises EFileError naming the path when it cannot be read.
std::string ReadFileBytes(const std::filesystem::path& path);
/// At most `count` bytes from the start; an empty result for a missing file.
std::string ReadFileHead(const std::filesystem::path& path, size_t count);

/// Writes a temporary file beside `path` and renames it over `path`, so a
/// failure midway leaves the previous file as it was. Raises EFileError.
void WriteFileAtomic(const std::filesystem::path& path, std::string_view bytes);

/// One file of a group written together.
struct TFileImage {
  std::filesystem::path Path;
  std::string Bytes;
};

/// Writes every file to a temporary beside it and renames them over their
/// targets only when all were written, so that files which belong together
/// are replaced all or not at all. Raises EFileError naming the file that failed.
void WriteFilesAtomic(const std::vector<TFileImage>& files);

} // namespace orl
