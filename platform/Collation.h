#pragma once
// Locale-aware comparison of texts, as lists sort for the user.

#include <string_view>

namespace orl {

/// Negative, zero or positive as `a` sorts before, with or after `b` in the
/// system locale. Without `bCaseSensitive` letters that differ only in case are equal.
int CompareTextLocale(std::u16string_view a, std::u16string_view b, bool bCaseSensitive);

/// Equality that ignores case by full Unicode simple case folding, unit by unit.
bool SameTextFolded(std::u16string_view a, std::u16string_view b);

} // namespace orl
