#include "definition/MemIni.h"
#include "platform/Blanks.h"
#include "platform/OrlError.h"

namespace orl {

namespace {
// A language file that cannot be read gives fallbacks, as a missing one does.
std::unique_ptr<TMemIniFile> OpenOrEmpty(std::filesystem::path fileName) {
  try {
    return std::make_unique<TMemIniFile>(std::move(fileName));
  } catch (const EOrlError&) {
    return std::make_unique<TMemIniFile>();
  }
}
} // namespace

TMemIniFileW::TMemIniFileW(std::filesystem::path fileName) : FStore(OpenOrEmpty(std::move(fileName))) {}

bool TMemIniFileW::ReadWideString(std::u16string_view key, std::u16string_view valueName, std::u16string_view defValue,
                                  std::u16string& value) {
  value = std::u16string(TrimBlanks(FStore->ReadString(key, TrimBlanks(valueName), u"")));
  if (!value.empty()) return true;
  value = defValue;
  return false;
}

bool TMemIniFileW::ReadWideStringHint(std::u16string_view key, std::u16string_view valueName,
                                      std::u16string_view defValue, std::u16string& value) {
  const bool bFound = ReadWideString(key, valueName, defValue, value);
  std::erase(value, u'&');
  return bFound;
}

void TMemIniFileW::WriteWideString(std::u16string_view key, std::u16string_view valueName, std::u16string_view value) {
  FStore->WriteString(key, valueName, value);
}

} // namespace orl
