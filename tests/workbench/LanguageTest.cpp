// Every text the main form shows comes from the language file.

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QTabBar>
#include <QTimer>
#include <QTranslator>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QMenuBar>
#include <QStatusBar>
#include <QTabWidget>
#include <QTableWidget>

#include "TempFolder.h"
#include "definition/MemIni.h"
#include "platform/CodePages.h"
#include "platform/FileIO.h"
#include "workbench/ApplicationSetup.h"
#include "workbench/GrammarDeskMain.h"
#include "BuildPaths.h"

using namespace orl;
namespace fs = std::filesystem;

namespace {

constexpr char16_t kMark = u'\u2039';

/// A host folder whose language file is the English one with every text marked.
fs::path MarkedHost(const test::TTempFolder& dir) {
  const fs::path host = dir / "host";
  fs::create_directories(host / "Language");
  TMemIniFileUTF16 english(StringFromPath(orl::test::HostDir() / "Language" / "eng.ini"));
  TMemIniFileUTF16 marked(StringFromPath(host / "Language" / "marked.ini"));
  TStringList sections, lines;
  english.ReadSections(sections);
  for (int s = 0; s < sections.Count(); ++s) {
    english.ReadSectionValues(sections.Strings(s), lines);
    for (int i = 0; i < lines.Count(); ++i)
      marked.WriteString(sections.Strings(s), lines.Names(i), kMark + lines.ValueFromIndex(i));
  }
  marked.UpdateFile();
  TMemIniFileUTF16 settings(StringFromPath(host / "Quillet.ini"));
  settings.WriteString(u"Customize", u"Language", u"marked.ini");
  settings.UpdateFile();
  return host;
}

void CollectMenuTexts(const QMenu& menu, QStringList& texts) {
  texts << menu.title();
  for (const QAction* action : menu.actions()) {
    if (action->isSeparator()) continue;
    if (action->menu()) CollectMenuTexts(*action->menu(), texts);
    else texts << action->text();
  }
}

/// What a user reads on the form: captions, tabs, titles, labels, buttons, menus.
QStringList VisibleTexts(TSynForm& form) {
  QStringList texts{form.windowTitle()};
  for (const QAction* action : form.menuBar()->actions()) CollectMenuTexts(*action->menu(), texts);
  for (const QTabWidget* tabs : form.findChildren<QTabWidget*>())
    for (int i = 0; i < tabs->count(); ++i) texts << tabs->tabText(i);
  for (const QTableWidget* grid : form.findChildren<QTableWidget*>())
    for (int c = 0; c < grid->columnCount(); ++c) texts << grid->horizontalHeaderItem(c)->text();
  for (const QLabel* label : form.findChildren<QLabel*>())
    if (!label->text().isEmpty()) texts << label->text();
  for (const QAbstractButton* button : form.findChildren<QAbstractButton*>())
    if (!button->text().isEmpty()) texts << button->text();
  for (const QGroupBox* box : form.findChildren<QGroupBox*>()) texts << box->title();
  return texts;
}

} // namespace

TEST(Language, EveryVisibleTextOfTheMainFormComesFromTheLanguageFile) {
  test::TTempFolder dir;
  THostEnvironment host = InitialiseHost(MarkedHost(dir) / "GrammarDesk" / "grammardesk");
  ASSERT_TRUE(host.Language.IsOpen());
  TSynForm form(host);
  const QStringList texts = VisibleTexts(form);
  EXPECT_GT(texts.size(), 50);  // the walk found the form's texts
  for (QString text : texts) {
    text.remove('&');
    // A text of arrows and digits reads the same in every language.
    if (std::none_of(text.begin(), text.end(), [](QChar c) { return c.isLetter(); })) continue;
    EXPECT_TRUE(text.startsWith(QChar(kMark))) << "not from the language file: " << text.toStdString();
  }
}

TEST(Language, TheGermanFileIsCompleteAndChosenBySettings) {
  test::TTempFolder dir;
  const fs::path host = dir / "host";
  fs::create_directories(host / "Language");
  fs::copy_file(orl::test::HostDir() / "Language" / "deu.ini", host / "Language" / "deu.ini");
  TMemIniFileUTF16 settings(StringFromPath(host / "Quillet.ini"));
  settings.WriteString(u"Customize", u"Language", u"deu.ini");
  settings.UpdateFile();

  TMemIniFileUTF16 english(StringFromPath(orl::test::HostDir() / "Language" / "eng.ini"));
  TMemIniFileUTF16 german(StringFromPath(host / "Language" / "deu.ini"));
  TStringList sections, names;
  english.ReadSections(sections);
  for (int s = 0; s < sections.Count(); ++s) {
    english.ReadSection(sections.Strings(s), names);
    for (int i = 0; i < names.Count(); ++i)
      EXPECT_TRUE(german.ValueExists(sections.Strings(s), names.Strings(i)))
          << "missing in deu.ini: " << Utf16ToUtf8(names.Strings(i));
  }

  THostEnvironment environment = InitialiseHost(host / "GrammarDesk" / "grammardesk");
  TSynForm form(environment);
  EXPECT_TRUE(VisibleTexts(form).contains("&Datei"));
  EXPECT_EQ(form.statusBar()->findChildren<QLabel*>().front()->text(),
            QString::fromUtf8("Mit \"Neu\" oder \"Öffnen\" eine Syntaxdefinition bearbeiten."));
}

TEST(Language, MissingOrGarbledFilesGiveFallbacks) {
  test::TTempFolder dir;
  const fs::path host = dir / "host";
  fs::create_directories(host / "Language");
  test::WriteBytes(host / "Quillet.ini", std::string("\xFF\xFE\x00\xD8garbage\x01\x02", 12));
  THostEnvironment garbled = InitialiseHost(host / "GrammarDesk" / "grammardesk");
  EXPECT_FALSE(garbled.Language.IsOpen());
  TSynForm form(garbled);
  EXPECT_EQ(form.windowTitle(), "Orl GrammarDesk");

  test::WriteBytes(host / "Quillet.ini", "");
  test::WriteBytes(host / "Language" / "eng.ini", std::string("\x00\x01[GrammarDesk]\r\n000=", 21));
  THostEnvironment truncated = InitialiseHost(host / "GrammarDesk" / "grammardesk");
  TSynForm second(truncated);
  EXPECT_EQ(second.windowTitle(), "Orl GrammarDesk");
}

namespace {

/// A host folder with the German language file chosen, and `settings` added to [Customize].
fs::path GermanHost(const test::TTempFolder& dir, const std::vector<std::pair<std::u16string, std::u16string>>& settings = {}) {
  const fs::path host = dir / "host";
  fs::create_directories(host / "Language");
  fs::copy_file(orl::test::HostDir() / "Language" / "deu.ini", host / "Language" / "deu.ini");
  TMemIniFileUTF16 ini(host / "Quillet.ini");
  ini.WriteString(u"Customize", u"Language", u"deu.ini");
  for (const auto& [key, value] : settings) ini.WriteString(u"Customize", key, value);
  ini.UpdateFile();
  return host;
}

} // namespace

TEST(Language, GermanQuestionsAndQtsOwnTextsAreGerman) {
  test::TTempFolder dir;
  THostEnvironment host = InitialiseHost(GermanHost(dir) / "GrammarDesk" / "grammardesk");
  QTranslator* qtTexts = InstallQtTranslations(host);
  ASSERT_NE(qtTexts, nullptr) << "Qt's translations are missing";
  EXPECT_NE(QCoreApplication::translate("QFileDialog", "Look in:"), "Look in:");
  TSynForm form(host);
  QStringList buttons;
  QTimer::singleShot(0, [&] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (!box) return;
    for (QAbstractButton* button : box->buttons()) buttons << button->text();
    box->button(QMessageBox::No)->click();
  });
  EXPECT_EQ(form.MessageBox(u"?", TMsgButtons::mbYesNoCancel), TMsgResult::mrNo);
  buttons.sort();
  EXPECT_EQ(buttons, QStringList({"Abbrechen", "Ja", "Nein"}));
  QCoreApplication::removeTranslator(qtTexts);
  delete qtTexts;
}

TEST(Language, EveryGermanTabCaptionShowsAtTheStartSize) {
  test::TTempFolder dir;
  THostEnvironment host = InitialiseHost(GermanHost(dir) / "GrammarDesk" / "grammardesk");
  TSynForm form(host);
  form.show();
  QApplication::processEvents();
  const QTabBar& tabs = *form.MainPages->tabBar();
  EXPECT_LE(tabs.tabRect(tabs.count() - 1).right(), tabs.width());
  EXPECT_LE(tabs.sizeHint().width(), tabs.width());
}

TEST(Language, TheSettingsChooseTheApplicationsFont) {
  test::TTempFolder dir;
  THostEnvironment host = InitialiseHost(
      GermanHost(dir, {{u"GUIFont", u"Liberation Serif"}, {u"GUIFontSize", u"13"}}) / "GrammarDesk" / "grammardesk");
  const QFont before = QApplication::font();
  ApplyGuiFont(host);
  EXPECT_EQ(QApplication::font().family(), "Liberation Serif");
  EXPECT_EQ(QApplication::font().pointSize(), 13);
  QApplication::setFont(before);
}

TEST(Language, WithoutALanguageFileEveryTextIsTheEnglishOne) {
  test::TTempFolder dir;
  const fs::path bare = dir / "bare", english = dir / "english";
  fs::create_directories(english / "Language");
  fs::copy_file(orl::test::HostDir() / "Language" / "eng.ini", english / "Language" / "eng.ini");
  test::WriteBytes(english / "Quillet.ini", "");
  THostEnvironment withoutFile = InitialiseHost(bare / "GrammarDesk" / "grammardesk");
  THostEnvironment withFile = InitialiseHost(english / "GrammarDesk" / "grammardesk");
  ASSERT_TRUE(withFile.Language.IsOpen());
  TSynForm formWithout(withoutFile), formWith(withFile);
  formWithout.Document().FileNew();
  formWith.Document().FileNew();
  EXPECT_EQ(VisibleTexts(formWithout), VisibleTexts(formWith));
  for (const QLabel* label : formWithout.MainPages->findChildren<QLabel*>())
    EXPECT_FALSE(label->text().startsWith("lbl")) << label->text().toStdString();
}
