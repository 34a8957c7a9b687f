#include "definition/UnicodeStrList.h"

#include <unicode/ustring.h>

namespace orl {

std::u16string FullUpperCase(std::u16string_view s) {
  std::u16string upper(s.size() + 8, u'\0');
  for (int attempt = 0; attempt < 2; ++attempt) {
    UErrorCode status = U_ZERO_ERROR;
    const int32_t n = u_strToUpper(reinterpret_cast<UChar*>(upper.data()), int32_t(upper.size()),
                                   reinterpret_cast<const UChar*>(s.data()), int32_t(s.size()), "", &status);
    if (U_SUCCESS(status)) {
      upper.resize(size_t(n));
      return upper;
    }
    if (status != U_BUFFER_OVERFLOW_ERROR) break;
    upper.assign(size_t(n), u'\0');
  }
  return std::u16string(s);
}

std::u16string TWideHashedStringList::KeyOf(std::u16string_view s) const {
  return CaseSensitive() ? std::u16string(s) : FullUpperCase(s);
}

} // namespace orl
