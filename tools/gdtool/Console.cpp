#include "Console.h"

#include <algorithm>
#include <cstdio>

#include "platform/CodePages.h"

namespace gdtool {

std::string Out(std::u16string_view text) { return orl::Utf16ToUtf8(text); }

bool WantsHelp(const std::vector<std::string>& args) {
  return std::any_of(args.begin(), args.end(), [](const std::string& a) { return a == "--help" || a == "-h"; });
}

std::string JsonString(std::u16string_view text) {
  std::string out = "\"";
  for (char c : Out(text)) {
    if (c == '"' || c == '\\') out += '\\';
    if (static_cast<unsigned char>(c) < 0x20) {
      char escaped[8];
      std::snprintf(escaped, sizeof escaped, "\\u%04x", c);
      out += escaped;
      continue;
    }
    out += c;
  }
  return out + "\"";
}

} // namespace gdtool
