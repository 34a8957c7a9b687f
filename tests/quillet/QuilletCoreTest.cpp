// quillet's headless parts: text files in and out of a memo, the choice of a
// definition by extension, and the memo's appearance from the settings.

#include <gtest/gtest.h>

#include "TempFolder.h"
#include "definition/MemIni.h"
#include "editing/EditorAppearance.h"
#include "editing/OrlMemo.h"
#include "platform/CodePages.h"
#include "platform/OrlError.h"
#include "quillet/HostDefinitions.h"
#include "quillet/TextFile.h"
#include "BuildPaths.h"

using namespace orl;
namespace fs = std::filesystem;

namespace {

class TextFileTest : public ::testing::Test {
protected:
  /// Loads `bytes` from a file, checks the first row, saves under another
  /// name and gives back what was written.
  std::string RoundTrip(std::string_view bytes, std::u16string_view firstRow) {
    test::WriteBytes(FDir / "in.txt", bytes);
    LoadTextFile(FMemo, FDir / "in.txt");
    EXPECT_EQ(FMemo.GetLineText(0), firstRow);
    EXPECT_FALSE(FMemo.Modified());
    SaveTextFile(FMemo, FDir / "out.txt");
    return test::ReadBytes(FDir / "out.txt");
  }

  test::TTempFolder FDir;
  TOrlMemo FMemo;
};

TEST_F(TextFileTest, EveryCodingComesBackByteForByteWithItsMarkAndLineEndings) {
  const std::string utf8 = "caf\xC3\xA9 \xE2\x82\xAC\r\nsecond\nthird\r\n";
  EXPECT_EQ(RoundTrip(utf8, u"caf\u00E9 \u20AC"), utf8);
  EXPECT_EQ(RoundTrip("\xEF\xBB\xBF" + utf8, u"caf\u00E9 \u20AC"), "\xEF\xBB\xBF" + utf8);
  const std::string utf16le = EncodeUtf16LE(u"\u00E9t\u00E9\r\n\U0001F600\n", true);
  EXPECT_EQ(RoundTrip(utf16le, u"\u00E9t\u00E9"), utf16le);
  std::string utf16be = EncodeUtf16LE(u"\uFEFFbig\rendian", false);
  for (size_t i = 0; i + 1 < utf16be.size(); i += 2) std::swap(utf16be[i], utf16be[i + 1]);
  EXPECT_EQ(RoundTrip(utf16be, u"big"), utf16be);
  // Not UTF-8: the bytes of the ANSI code page, written back as they were.
  const std::string ansi = "na\xEFve caf\xE9\r\n";
  EXPECT_EQ(RoundTrip(ansi, u"na\u00EFve caf\u00E9"), ansi);
}

TEST_F(TextFileTest, AFileThatCannotBeReadFailsAndTheMemoKeepsItsText) {
  FMemo.SetText(u"what the user wrote");
  fs::create_directory(FDir / "folder.txt");
  EXPECT_THROW(LoadTextFile(FMemo, FDir / "folder.txt"), EFileError);
  EXPECT_THROW(LoadTextFile(FMemo, FDir / "missing.txt"), EFileError);
  EXPECT_EQ(FMemo.GetLineText(0), u"what the user wrote");
}

TEST_F(TextFileTest, AFailedSaveLeavesTheTextModifiedAndNothingBehind) {
  FMemo.SetText(u"new");
  FMemo.SetModified(true);
  EXPECT_THROW(SaveTextFile(FMemo, FDir / "no such folder" / "x.txt"), EFileError);
  fs::create_directory(FDir / "taken");
  EXPECT_THROW(SaveTextFile(FMemo, FDir / "taken"), EFileError);
  EXPECT_TRUE(FMemo.Modified());
  EXPECT_TRUE(fs::is_directory(FDir / "taken"));
  EXPECT_EQ(std::distance(fs::directory_iterator(FDir.Path()), fs::directory_iterator()), 1);  // no temporary left
}

TEST_F(TextFileTest, ANewTextIsWrittenAsUtf8WithoutMarkAndWithLineFeeds) {
  NewTextCoding(FMemo);
  FMemo.SetText(u"\u00FCber\nzwei");
  FMemo.SetModified(true);
  SaveTextFile(FMemo, FDir / "new.txt");
  EXPECT_EQ(test::ReadBytes(FDir / "new.txt"), "\xC3\xBC" "ber\nzwei");
  EXPECT_FALSE(FMemo.Modified());
}

class HostDefinitionsTest : public ::testing::Test {
protected:
  HostDefinitionsTest() { fs::create_directories(FDir / "syntax" / "User defined"); }

  void CopyDefinition(const char* from, const fs::path& to) {
    fs::copy_file(orl::test::HostDir() / "syntax" / from, FDir.Path() / "syntax" / to);
  }
  void ListVersion(const fs::path& folder, std::u16string_view name) {
    TMemIniFileUTF16 list(folder / "_list.ver");
    list.WriteString(name, u"Version", u"1000");
    list.UpdateFile();
  }

  test::TTempFolder FDir;
};

TEST_F(HostDefinitionsTest, TheBundledDefinitionsClaimTheirExtensionsWhateverTheCase) {
  const THostDefinitions definitions(orl::test::HostDir());
  EXPECT_EQ(definitions.ForFile("src/main.cpp").filename(), "C++.gdx");
  EXPECT_EQ(definitions.ForFile("SCRIPT.PY").filename(), "Python.gdx");
  EXPECT_EQ(definitions.ForFile("notes.unknownextension"), fs::path());
  EXPECT_EQ(definitions.ForFile("Makefile"), fs::path());
}

TEST_F(HostDefinitionsTest, TheUsersDefinitionsAndThenListedOnesWinAnExtension) {
  CopyDefinition("C++.gdx", "C++.gdx");
  CopyDefinition("C++.gdx", "A.gdx");  // sorts first but is not listed
  ListVersion(FDir / "syntax", u"C++");
  EXPECT_EQ(THostDefinitions(FDir.Path()).ForFile("x.cpp").filename(), "C++.gdx");

  CopyDefinition("C++.gdx", fs::path("User defined") / "Mine.gdx");
  EXPECT_EQ(THostDefinitions(FDir.Path()).ForFile("x.cpp").filename(), "Mine.gdx");
}

TEST_F(HostDefinitionsTest, ADefinitionThatCannotBeReadClaimsNothing) {
  fs::create_directory(FDir / "syntax" / "Broken.gdx");
  test::WriteBytes(FDir / "syntax" / "_list.ver", "\xFF\xFE[");  // a torn list
  CopyDefinition("Python.gdx", "Python.gdx");
  const THostDefinitions definitions(FDir.Path());
  EXPECT_EQ(definitions.ForFile("a.py").filename(), "Python.gdx");
  EXPECT_EQ(definitions.Definitions().size(), 1u);
}

TEST(EditorAppearanceTest, SettingsChooseFontAndSchemeAndMissingOnesKeepTheDefaults) {
  TOrlMemo plain;
  ApplyEditorAppearance(plain, ReadEditorAppearance(nullptr));
  EXPECT_EQ(plain.Font().Name, u"Courier New");
  EXPECT_EQ(plain.FBkColor, LightStyleScheme().Classes.at(u"Default").Back);

  test::TTempFolder dir;
  TMemIniFileUTF16 settings(dir / "Quillet.ini");
  settings.WriteString(u"Customize", u"EditorFont", u"DejaVu Sans Mono");
  settings.WriteString(u"Customize", u"EditorFontSize", u"15");
  settings.WriteString(u"SyntaxColors", u"Base", u"dark");
  TOrlMemo dark;
  ApplyEditorAppearance(dark, ReadEditorAppearance(&settings));
  EXPECT_EQ(dark.Font().Name, u"DejaVu Sans Mono");
  EXPECT_EQ(dark.Font().Height, -20);
  EXPECT_EQ(dark.FBkColor, DarkStyleScheme().Classes.at(u"Default").Back);
  EXPECT_NE(dark.FBkColor, plain.FBkColor);

  settings.WriteString(u"Customize", u"EditorFontSize", u"-3");
  EXPECT_EQ(ReadEditorAppearance(&settings).Font.Size, TMemoFont().Size);
}

} // namespace
