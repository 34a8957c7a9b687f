#include "syntax/StyleBitmap.h"

#include <string_view>

namespace orl {

int StyleBitmapImageIndex(char16_t ch) {
  if (ch >= u'0' && ch <= u'9') return 10 + (ch - u'0');
  static constexpr std::u16string_view kLettersBeforeDigits = u"lvpemfotnc";
  static constexpr std::u16string_view kLettersAfterDigits = u"xabghiuw";
  if (size_t i = kLettersBeforeDigits.find(ch); i != std::u16string_view::npos) return int(i);
  if (size_t i = kLettersAfterDigits.find(ch); i != std::u16string_view::npos) return 20 + int(i);
  return -1;
}

std::unique_ptr<TStyleBitmap> CreateStyleBitmap(char16_t ch) {
  if (ch == 0 || ch == u'-') return nullptr;
  auto bitmap = std::make_unique<TStyleBitmap>();
  bitmap->ch = ch;
  bitmap->nr = StyleBitmapImageIndex(ch);
  return bitmap;
}

} // namespace orl
