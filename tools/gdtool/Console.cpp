#include "Console.h"

#include <algorithm>

#include "platform/CodePages.h"

namespace gdtool {

std::string Out(std::u16string_view text) { return orl::Utf16ToUtf8(text); }

bool WantsHelp(const std::vector<std::string>& args) {
  return std::any_of(args.begin(), args.end(), [](const std::string& a) { return a == "--help" || a == "-h"; });
}

} // namespace gdtool
