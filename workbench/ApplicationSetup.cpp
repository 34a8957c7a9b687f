#include "workbench/ApplicationSetup.h"

#include <QApplication>
#include <QFont>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include <algorithm>
#include <memory>

namespace orl {
namespace fs = std::filesystem;

namespace {
QString Q(const std::u16string& s) { return QString::fromStdU16String(s); }

// Language files are named by their ISO 639 code: `deu.ini`, `eng.ini`.
QLocale::Language LanguageOfSettings(const THostEnvironment& host) {
  const std::u16string file = host.SettingsIni->ReadString(u"Customize", u"Language", u"eng.ini");
  return QLocale::codeToLanguage(Q(fs::path(file).stem().u16string()).toLower());
}
} // namespace

QTranslator* InstallQtTranslations(const THostEnvironment& host) {
  if (!host.SettingsIni) return nullptr;
  const QLocale::Language language = LanguageOfSettings(host);
  if (language == QLocale::AnyLanguage || language == QLocale::C) return nullptr;
  auto translator = std::make_unique<QTranslator>(qApp);
  if (!translator->load(QLocale(language), "qtbase", "_", QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    return nullptr;
  QCoreApplication::installTranslator(translator.get());
  return translator.release();
}

void ApplyGuiFont(const THostEnvironment& host) {
  if (!host.SettingsIni) return;
  QFont font(Q(host.SettingsIni->ReadString(u"Customize", u"GUIFont", u"MS Shell Dlg")));
  // A size no one can read or one that fills the screen is a typing error in the settings.
  font.setPointSize(std::clamp(host.SettingsIni->ReadInteger(u"Customize", u"GUIFontSize", 8), 6, 48));
  QApplication::setFont(font);
}

} // namespace orl
