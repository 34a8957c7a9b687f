#pragma once
// What the application takes from the host editor's settings before its first
// form exists: Qt's own texts in the user's language and the default font.

#include "workbench/HostEnvironment.h"

class QTranslator;

namespace orl {

/// Loads Qt's translations (standard buttons, file dialogs) for the language
/// whose file the settings choose. The translator belongs to the application;
/// null when there are none for that language.
QTranslator* InstallQtTranslations(const THostEnvironment& host);

/// The application's default font: `Customize`, `GUIFont` at `GUIFontSize`
/// points. Without settings the toolkit's font stays.
void ApplyGuiFont(const THostEnvironment& host);

} // namespace orl
