#include "platform/OrlError.h"

namespace orl {

EFileError::EFileError(const std::filesystem::path& path, const std::string& action, const std::string& reason)
    : EOrlError(action + " file \"" + path.string() + "\"" + (reason.empty() ? "" : ": " + reason)), FPath(path) {}

} // namespace orl
