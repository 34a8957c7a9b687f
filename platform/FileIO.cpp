#include "platform/FileIO.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <fstream>

#include "platform/CodePages.h"
#include "platform/OrlError.h"

namespace orl {
namespace fs = std::filesystem;

fs::path PathFromString(std::u16string_view name) { return fs::path(Utf16ToUtf8(name)); }
std::u16string StringFromPath(const fs::path& path) { return Utf8ToUtf16(path.string()); }

bool FileExists(const fs::path& path) {
  std::error_code ec;
  return fs::is_regular_file(path, ec);
}

bool PathExists(const fs::path& path) {
  std::error_code ec;
  const fs::file_status status = fs::status(path, ec);
  if (ec && ec != std::errc::no_such_file_or_directory && ec != std::errc::not_a_directory)
    throw EFileError(path, "Cannot open", ec.message());
  return fs::exists(status);
}

void RequireReadable(const fs::path& path) {
  std::error_code ec;
  if (fs::is_directory(path, ec)) throw EFileError(path, "Cannot open", "it is a folder");
  std::ifstream in(path, std::ios::binary);
  if (!in) throw EFileError(path, "Cannot open", std::strerror(errno));
}

std::string ReadFileBytes(const fs::path& path) {
  std::error_code ec;
  if (fs::is_directory(path, ec)) throw EFileError(path, "Cannot open", "it is a folder");
  std::ifstream in(path, std::ios::binary);
  if (!in) throw EFileError(path, "Cannot open", std::strerror(errno));
  std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  if (in.bad()) throw EFileError(path, "Cannot read", std::strerror(errno));
  return bytes;
}

std::string ReadFileHead(const fs::path& path, size_t count) {
  std::ifstream in(path, std::ios::binary);
  if (!in) return {};
  std::string bytes(count, '\0');
  in.read(bytes.data(), std::streamsize(count));
  bytes.resize(size_t(in.gcount()));
  return bytes;
}

namespace {

void WriteAll(int fd, std::string_view bytes, const fs::path& path) {
  while (!bytes.empty()) {
    ssize_t n = ::write(fd, bytes.data(), bytes.size());
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) throw EFileError(path, "Cannot write", std::strerror(errno));
    bytes.remove_prefix(size_t(n));
  }
}

// A replaced file keeps its permissions; a new one gets the usual defaults.
void CopyModeOf(const fs::path& target, int fd) {
  struct stat st {};
  if (::stat(target.c_str(), &st) == 0) ::fchmod(fd, st.st_mode & 07777);
  else {
    mode_t mask = ::umask(0);
    ::umask(mask);
    ::fchmod(fd, 0666 & ~mask);
  }
}

// The bytes in a new temporary file beside `path`; its name is returned.
fs::path WriteTemporaryBeside(const fs::path& path, std::string_view bytes) {
  const fs::path folder = path.has_parent_path() ? path.parent_path() : fs::path(".");
  std::string pattern = (folder / ("." + path.filename().string() + ".tmpXXXXXX")).string();
  int fd = ::mkstemp(pattern.data());
  if (fd < 0) throw EFileError(path, "Cannot write", std::strerror(errno));
  const fs::path temp(pattern);
  try {
    CopyModeOf(path, fd);
    WriteAll(fd, bytes, path);
    if (::fsync(fd) != 0) throw EFileError(path, "Cannot write", std::strerror(errno));
    const int closed = ::close(fd);
    fd = -1;
    if (closed != 0) throw EFileError(path, "Cannot write", std::strerror(errno));
  } catch (...) {
    if (fd >= 0) ::close(fd);
    ::unlink(temp.c_str());
    throw;
  }
  return temp;
}

// A folder in a target's place would fail its rename after others were done.
void RequireReplaceable(const fs::path& path) {
  std::error_code ec;
  if (fs::is_directory(path, ec)) throw EFileError(path, "Cannot write", "it is a folder");
}

void RemoveTemporaries(const std::vector<fs::path>& temporaries) {
  for (const fs::path& temp : temporaries) ::unlink(temp.c_str());
}

} // namespace

void WriteFileAtomic(const fs::path& path, std::string_view bytes) {
  WriteFilesAtomic({TFileImage{path, std::string(bytes)}});
}

void WriteFilesAtomic(const std::vector<TFileImage>& files) {
  std::vector<fs::path> temporaries;
  try {
    for (const TFileImage& file : files) RequireReplaceable(file.Path);
    for (const TFileImage& file : files) temporaries.push_back(WriteTemporaryBeside(file.Path, file.Bytes));
  } catch (...) {
    RemoveTemporaries(temporaries);
    throw;
  }
  for (size_t i = 0; i < files.size(); ++i) {
    if (::rename(temporaries[i].c_str(), files[i].Path.c_str()) == 0) continue;
    const int error = errno;
    RemoveTemporaries({temporaries.begin() + std::ptrdiff_t(i), temporaries.end()});
    throw EFileError(files[i].Path, "Cannot write", std::strerror(error));
  }
}

} // namespace orl
