#include "editing/EditorAppearance.h"

#include "editing/OrlMemo.h"

namespace orl {
namespace {

constexpr int kPointsPerInch = 72, kDesignDpi = 96;

TMemoFont ReadFont(TMemIniFileUTF16& settings) {
  TMemoFont font;
  font.Name = settings.ReadString(u"Customize", u"EditorFont", font.Name);
  const int size = settings.ReadInteger(u"Customize", u"EditorFontSize", font.Size);
  if (size > 0 && size <= 200) font.Size = size;  // a size beyond reason keeps the default
  font.Height = -(font.Size * kDesignDpi + kPointsPerInch / 2) / kPointsPerInch;
  return font;
}

} // namespace

TEditorAppearance ReadEditorAppearance(TMemIniFileUTF16* settings) {
  TEditorAppearance appearance;
  if (!settings) return appearance;
  appearance.Font = ReadFont(*settings);
  appearance.Scheme = ReadStyleScheme(*settings, u"SyntaxColors");
  return appearance;
}

void ApplyEditorAppearance(TOrlMemo& memo, const TEditorAppearance& appearance) {
  const auto& classes = appearance.Scheme.Classes;
  // Text without a definition shows in the scheme's own colours too.
  memo.FBkColor = classes.at(u"Default").Back;
  memo.FSelColor = classes.at(u"Selection").Text;
  memo.FSelBkColor = classes.at(u"Selection").Back;
  if (classes.at(u"LineHighlight").Back != clNoColor) memo.FLineHighlightColor = classes.at(u"LineHighlight").Back;
  if (memo.FStyles) ApplyStyleScheme(*memo.FStyles, appearance.Scheme);
  memo.SetFont(appearance.Font);
  memo.Invalidate();
}

} // namespace orl
