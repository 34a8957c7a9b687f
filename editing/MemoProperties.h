#pragma once
// The memo's published properties by name, so that a host, a script or a
// settings page can read and set them as text.

#include <string>
#include <string_view>
#include <vector>

namespace orl {

class TOrlCustomMemo;

/// Every published property with its value as text ("1"/"0" for switches), sorted by name.
std::vector<std::pair<std::string, std::string>> MemoPropertyValues(TOrlCustomMemo& memo);
/// Sets one property from text; false with `error` set when the name or value is unknown.
bool SetMemoProperty(TOrlCustomMemo& memo, std::string_view name, std::string_view value, std::string& error);

} // namespace orl
