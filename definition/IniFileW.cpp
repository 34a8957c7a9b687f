#include "definition/MemIni.h"
#include "platform/FileIO.h"
#include "platform/ProfileFiles.h"

namespace orl {

std::u16string TIniFileW::ReadString(std::u16string_view section, std::u16string_view ident, std::u16string_view def) {
  return GetPrivateProfileString(FFileName, section, ident).value_or(std::u16string(def));
}

std::u16string TIniFileW::ReadLargeString(std::u16string_view section, std::u16string_view ident,
                                          std::u16string_view def) {
  return TIniFileW::ReadString(section, ident, def);
}

bool TIniFileW::ReadLargeWideString(std::u16string_view section, std::u16string_view ident, std::u16string_view def,
                                    std::u16string& value) {
  value = ReadLargeString(section, ident, u"");
  if (!value.empty()) return true;
  value = def;
  return false;
}

void TIniFileW::ReadSectionValues(std::u16string_view section, TStringList& strings) {
  strings.BeginUpdate();
  strings.Clear();
  for (std::u16string& line : GetPrivateProfileSection(FFileName, section)) strings.Add(std::move(line));
  strings.EndUpdate();
}

} // namespace orl
