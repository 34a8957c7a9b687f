#pragma once
// How the host's memos look (quillet's texts, the workbench's sample), from
// the host's settings file:
//
//   [Customize]
//   EditorFont=DejaVu Sans Mono     the memo's font face
//   EditorFontSize=11               its size in points
//   [SyntaxColors]
//   Base=light                      light or dark, and the colours of the
//                                   style scheme (see syntax/StyleScheme.h)
//
// Missing keys, or no settings file at all, give Courier New at 10 points on
// the light scheme.

#include "editing/MemoWindow.h"
#include "syntax/StyleScheme.h"

namespace orl {

class TOrlMemo;

struct TEditorAppearance {
  TMemoFont Font;
  TStyleScheme Scheme = LightStyleScheme();
};

/// The appearance `settings` describes; null settings give the defaults.
TEditorAppearance ReadEditorAppearance(TMemIniFileUTF16* settings);

/// Gives the memo the font and the scheme's colours, its style set included.
void ApplyEditorAppearance(TOrlMemo& memo, const TEditorAppearance& appearance);

} // namespace orl
