#pragma once
// A definition's companion file as the style set reads it: straight from
// disk, with an in-memory layer on top for the entries that built-in style
// sets add. The layer is never written back, so the user's file stays as it is.

#include <string>

#include "definition/MemIni.h"

namespace orl {

class TCompanionIni : public TIniFileW {
public:
  explicit TCompanionIni(std::u16string fileName) : TIniFileW(std::move(fileName)) {}

  /// The layer's value when it has the key, else the file's.
  std::u16string ReadString(std::u16string_view section, std::u16string_view ident,
                            std::u16string_view def) override;
  /// The file's lines, each replaced by the layer's line of the same name;
  /// the layer's other lines follow.
  void ReadSectionValues(std::u16string_view section, TStringList& strings) override;
  /// Sets a value in the layer only.
  void WriteString(std::u16string_view section, std::u16string_view ident, std::u16string_view value);

private:
  TMemIniFile FLayer;
};

} // namespace orl
