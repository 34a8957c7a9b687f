#pragma once
// The texts of the English language file, for when the chosen file lacks one.

#include <string_view>

namespace orl {

/// The English text of `id` in `section` of the language file; empty when there is none.
std::u16string_view EnglishText(std::u16string_view section, std::u16string_view id);

} // namespace orl
