#pragma once
// The images of completion and user-menu rows, one per image letter, drawn at
// the size the screen's density asks for.

#include <QIcon>

namespace orl {

/// Image `index` (0 to 28); an index outside the list gives image 0.
QIcon MenuImage(int index);
/// A tool-bar icon drawn from a short glyph, for commands the style has no icon for.
QIcon GlyphIcon(const QString& glyph);
/// Two sheets, one over the other.
QIcon CopyIcon();
/// A sheet on a clipboard.
QIcon PasteIcon();

} // namespace orl
