#include "syntax/OrlMemoStyles.h"

#include "definition/DefinitionFormat.h"
#include "platform/FileIO.h"
#include "syntax/MemoStyleSlots.h"

namespace orl {

TOrlCustomMemoStyles::TOrlCustomMemoStyles(TOrlMemoStyleSlots* owner) {
  if (owner && owner->OnGetNodeImages) FImageList = owner->OnGetNodeImages();
  SetDefaultStyles();
}

TOrlCustomMemoStyles::TOrlCustomMemoStyles(TOrlMemoStyleSlots* owner, const std::u16string& fileName)
    : TOrlCustomMemoStyles(owner) {
  SynIni = std::make_unique<TCompanionIni>(StringFromPath(CompanionPath(PathFromString(fileName))));
}

void TOrlCustomMemoStyles::SetDefaultStyles() {
  constexpr TColor kWhite = 0xFFFFFF;
  FCommentStyle.Set(0xC0C0C0, kWhite, 0);
  FNumberStyle.Set(0xFF00FF, kWhite, fsBold);
  for (TCharStyle* style : {&FHexNumberStyle, &FCharStyle, &FStringStyle}) style->Set(0x800000, kWhite, 0);
  for (TCharStyle* style : {&FSymbolsStyle, &FSymbolWordsAStyle, &FSymbolWordsBStyle, &FSymbolWordsCStyle})
    style->Set(0, kWhite, 0);
  FAttributeName.Set(255, kWhite, 0);
  FAttributeValue.Set(0xFF0000, kWhite, 0);
  FFoldMarkStyle.Set(65535, 255, fsBold);
  // Line comments look like block comments until a scheme says otherwise.
  FLineCommentStyle = FCommentStyle;
}

void TOrlCustomMemoStyles::LoadSection(std::u16string_view section, TStringList& items) {
  if (SynIni) SynIni->ReadSectionValues(section, items);
}

void TOrlCustomMemoStyles::LoadHintList() {
  FHintParameter.FParameters.Clear();
  LoadSection(sections::Hints, FHintParameter.FParameters);
}

} // namespace orl
