#include "syntax/CompanionIni.h"

namespace orl {

std::u16string TCompanionIni::ReadString(std::u16string_view section, std::u16string_view ident,
                                         std::u16string_view def) {
  if (FLayer.ValueExists(section, ident)) return FLayer.ReadString(section, ident, def);
  return TIniFileW::ReadString(section, ident, def);
}

void TCompanionIni::ReadSectionValues(std::u16string_view section, TStringList& strings) {
  TIniFileW::ReadSectionValues(section, strings);
  const THashedStringList* layer = FLayer.SectionLines(section);
  if (!layer) return;
  strings.BeginUpdate();
  for (int i = 0; i < layer->Count(); ++i) {
    const std::u16string& line = layer->Strings(i);
    const int existing = strings.IndexOfName(layer->Names(i));
    if (existing >= 0)
      strings.Put(existing, line);
    else
      strings.Add(line);
  }
  strings.EndUpdate();
}

void TCompanionIni::WriteString(std::u16string_view section, std::u16string_view ident, std::u16string_view value) {
  FLayer.WriteString(section, ident, value);
}

} // namespace orl
