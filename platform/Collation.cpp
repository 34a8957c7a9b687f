#include "platform/Collation.h"

#include <unicode/coll.h>
#include <unicode/uchar.h>

#include <memory>

namespace orl {
namespace {

// Collators are cloned per thread: a collator is cheap to use but not to share.
icu::Collator& CollatorFor(bool bCaseSensitive) {
  thread_local std::unique_ptr<icu::Collator> collators[2];
  std::unique_ptr<icu::Collator>& slot = collators[bCaseSensitive ? 1 : 0];
  if (!slot) {
    UErrorCode status = U_ZERO_ERROR;
    slot.reset(icu::Collator::createInstance(icu::Locale::getUS(), status));
    if (U_SUCCESS(status)) slot->setStrength(bCaseSensitive ? icu::Collator::TERTIARY : icu::Collator::SECONDARY);
  }
  return *slot;
}

} // namespace

int CompareTextLocale(std::u16string_view a, std::u16string_view b, bool bCaseSensitive) {
  UErrorCode status = U_ZERO_ERROR;
  const UCollationResult r = CollatorFor(bCaseSensitive).compare(
      reinterpret_cast<const UChar*>(a.data()), int32_t(a.size()), reinterpret_cast<const UChar*>(b.data()),
      int32_t(b.size()), status);
  if (U_FAILURE(status)) return a.compare(b);
  if (r != UCOL_EQUAL) return r;
  // Texts the locale holds equal but that differ (ignorable characters, case in
  // a case-sensitive list) still get a stable order.
  return bCaseSensitive ? a.compare(b) : 0;
}

bool SameTextFolded(std::u16string_view a, std::u16string_view b) {
  if (a.size() != b.size()) return false;
  for (size_t i = 0; i < a.size(); ++i)
    if (a[i] != b[i] && u_foldCase(a[i], U_FOLD_CASE_DEFAULT) != u_foldCase(b[i], U_FOLD_CASE_DEFAULT)) return false;
  return true;
}

} // namespace orl
