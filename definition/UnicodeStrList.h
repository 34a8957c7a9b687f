#pragma once
// The hashed string list of the settings stores: like the definition store's
// list, but without case it folds keys by full Unicode upper casing, so `Ä`
// and `ä` are one key here.

#include "definition/OrlIniFiles.h"

namespace orl {

/// The same chained table; the settings lists never look up by pointer.
using TWideStringHash = TStringHash;

class TWideHashedStringList : public THashedStringList {
public:
  int PIndexOf(const char16_t* p, int len) = delete;

protected:
  std::u16string KeyOf(std::u16string_view s) const override;
};

/// Full Unicode upper case of a text (it may grow: `ß` becomes `SS`).
std::u16string FullUpperCase(std::u16string_view s);

} // namespace orl
