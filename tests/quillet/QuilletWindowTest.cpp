// The quillet window on the offscreen platform, with scripted answers in
// place of its dialogs, and the program's screenshot mode.

#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QKeyEvent>
#include <QTabWidget>

#include <cstdlib>
#include <deque>

#include "ScriptedAnswers.h"
#include "TempFolder.h"
#include "definition/MemIni.h"
#include "platform/FileIO.h"
#include "quillet/QuilletWindow.h"
#include "syntax/StyleScheme.h"
#include "widgets/MemoWidget.h"
#include "BuildPaths.h"

using namespace orl;
namespace fs = std::filesystem;

namespace {

/// Answers the window's questions from queues and keeps its messages.
struct TScriptedDialogs : IQuilletDialogs {
  void ShowError(const QString& text) override { Errors.push_back(text); }
  TAnswer AskSaveChanges(const QString& name) override {
    Asked.push_back(name);
    return test::TakeAnswer(Answers, daCancel);
  }
  std::vector<fs::path> OpenFileNames(const fs::path&) override {
    std::vector<fs::path> names(FileNames.begin(), FileNames.end());
    FileNames.clear();
    return names;
  }
  std::optional<fs::path> SaveFileName(const fs::path&) override {
    if (FileNames.empty()) return std::nullopt;
    return test::TakeAnswer(FileNames, fs::path());
  }

  std::vector<QString> Errors, Asked;
  std::deque<TAnswer> Answers;
  std::deque<fs::path> FileNames;
};

class QuilletWindowTest : public ::testing::Test {
protected:
  QuilletWindowTest() {
    fs::create_directories(FDir / "host" / "syntax");
    for (const char* file : {"C++.gdx", "C++.ini", "Python.gdx", "Python.ini", "_list.ver"})
      fs::copy_file(orl::test::HostDir() / "syntax" / file, FDir / "host" / "syntax" / file);
    FHost.HostFolder = FDir / "host";
  }

  TQuilletWindow& Window() {
    if (!FWindow) {
      auto dialogs = std::make_unique<TScriptedDialogs>();
      FDialogs = dialogs.get();
      FWindow = std::make_unique<TQuilletWindow>(FHost, std::move(dialogs));
      FWindow->FileNew();
    }
    return *FWindow;
  }
  QString TabText() { return Window().findChild<QTabWidget*>()->tabText(Window().findChild<QTabWidget*>()->currentIndex()); }
  fs::path Write(const char* name, std::string_view bytes) {
    test::WriteBytes(FDir / name, bytes);
    return FDir / name;
  }

  test::TTempFolder FDir;
  THostEnvironment FHost;
  TScriptedDialogs* FDialogs = nullptr;
  std::unique_ptr<TQuilletWindow> FWindow;
};

TEST_F(QuilletWindowTest, AnOpenedFileShowsItsNameTextAndDefinition) {
  const fs::path source = Write("main.cpp", "int main() {\n  return 0;\n}\n");
  ASSERT_TRUE(Window().OpenFile(source));
  EXPECT_EQ(Window().TextCount(), 1);  // the empty text of the start made room
  EXPECT_EQ(TabText(), "main.cpp");
  EXPECT_EQ(Window().StatusText(0), "Line 1");
  EXPECT_EQ(Window().StatusText(1), "Column 1");
  EXPECT_EQ(Window().StatusText(2), "Insert");
  EXPECT_EQ(Window().StatusText(3), "C++");
  TOrlMemo& memo = Window().CurrentMemo()->Memo();
  EXPECT_EQ(memo.GetLineText(1), u"  return 0;");
  ASSERT_NE(memo.FStyles, nullptr);
  EXPECT_EQ(memo.FStyles->FSyntaxName, u"C++");

  memo.SetCursor(4, 1, true);
  EXPECT_EQ(Window().StatusText(0), "Line 2");
  EXPECT_EQ(Window().StatusText(1), "Column 5");
  QKeyEvent insert(QEvent::KeyPress, Qt::Key_Insert, Qt::NoModifier);
  QApplication::sendEvent(Window().CurrentMemo(), &insert);
  QApplication::processEvents();
  EXPECT_EQ(Window().StatusText(2), "Overwrite");

  ASSERT_TRUE(Window().OpenFile(Write("notes.xyz", "plain")));
  EXPECT_EQ(Window().StatusText(3), "Text");
  EXPECT_EQ(Window().CurrentMemo()->Memo().FStyles, nullptr);
  // The same file again shows its tab rather than a second copy.
  ASSERT_TRUE(Window().OpenFile(FDir / "." / "main.cpp"));
  EXPECT_EQ(Window().TextCount(), 2);
  EXPECT_EQ(Window().StatusText(3), "C++");
  EXPECT_EQ(Window().RecentFiles().MRUFile(), StringFromPath(FDir / "notes.xyz"));

  FDialogs->FileNames = {Write("one.py", "x = 1"), Write("two.txt", "two")};
  Window().FileOpen();
  EXPECT_EQ(Window().TextCount(), 4);
  EXPECT_EQ(Window().CurrentFile(), FDir / "two.txt");
}

TEST_F(QuilletWindowTest, SaveAsWritesTheTextAndTakesTheDefinitionOfTheNewName) {
  const std::string bytes = "def f():\r\n    return 'caf\xC3\xA9'\r\n";
  ASSERT_TRUE(Window().OpenFile(Write("script.txt", bytes)));
  EXPECT_EQ(Window().StatusText(3), "Text");
  FDialogs->FileNames = {FDir / "script.py"};
  ASSERT_TRUE(Window().FileSaveAs());
  EXPECT_EQ(test::ReadBytes(FDir / "script.py"), bytes);
  EXPECT_EQ(Window().CurrentFile(), FDir / "script.py");
  EXPECT_EQ(TabText(), "script.py");
  EXPECT_EQ(Window().StatusText(3), "Python");
  EXPECT_EQ(test::ReadBytes(FDir / "script.txt"), bytes);

  // A save that fails says so and keeps the text open under its old name.
  FDialogs->FileNames = {FDir / "missing folder" / "x.py"};
  EXPECT_FALSE(Window().FileSaveAs());
  EXPECT_EQ(FDialogs->Errors.size(), 1u);
  EXPECT_EQ(Window().CurrentFile(), FDir / "script.py");
}

TEST_F(QuilletWindowTest, AFileThatCannotBeReadIsReportedAndOpensNoTab) {
  fs::create_directory(FDir / "folder.cpp");
  Window().CurrentMemo()->Memo().SetText(u"typed before");
  Window().CurrentMemo()->Memo().SetModified(true);
  EXPECT_FALSE(Window().OpenFile(FDir / "folder.cpp"));
  EXPECT_FALSE(Window().OpenFile(FDir / "missing.cpp"));
  ASSERT_EQ(FDialogs->Errors.size(), 2u);
  EXPECT_TRUE(FDialogs->Errors[1].contains("missing.cpp"));
  EXPECT_EQ(Window().TextCount(), 1);
  EXPECT_EQ(Window().CurrentFile(), fs::path());
  EXPECT_EQ(Window().CurrentMemo()->Memo().GetLineText(0), u"typed before");
}

TEST_F(QuilletWindowTest, ClosingAModifiedTextAsksAndCancelKeepsIt) {
  ASSERT_TRUE(Window().OpenFile(Write("a.cpp", "old")));
  TOrlMemo& memo = Window().CurrentMemo()->Memo();
  memo.SetText(u"changed");
  memo.SetModified(true);
  FDialogs->Answers = {IQuilletDialogs::daCancel};
  EXPECT_FALSE(Window().FileClose());
  EXPECT_EQ(Window().TextCount(), 1);
  EXPECT_EQ(FDialogs->Asked, std::vector<QString>{"a.cpp"});

  FDialogs->Answers = {IQuilletDialogs::daYes};
  EXPECT_TRUE(Window().FileClose());
  EXPECT_EQ(test::ReadBytes(FDir / "a.cpp"), "changed");
  EXPECT_EQ(Window().TextCount(), 0);

  // A new text asked to be saved needs a name; no name keeps it open.
  Window().FileNew();
  Window().CurrentMemo()->Memo().SetModified(true);
  FDialogs->Answers = {IQuilletDialogs::daYes, IQuilletDialogs::daNo};
  EXPECT_FALSE(Window().FileClose());
  EXPECT_TRUE(Window().FileClose());
  EXPECT_EQ(Window().TextCount(), 0);
}

TEST_F(QuilletWindowTest, TheDarkSchemeOfTheSettingsColoursTheMemo) {
  TMemIniFileUTF16 settings(FHost.HostFolder / "Quillet.ini");
  settings.WriteString(u"SyntaxColors", u"Base", u"dark");
  settings.UpdateFile();
  OpenHostFiles(FHost);
  ASSERT_TRUE(Window().OpenFile(Write("dark.cpp", "int x;\n")));
  Window().resize(500, 300);
  Window().show();
  QApplication::processEvents();
  TOrlMemoWidget* memo = Window().CurrentMemo();
  const QImage picture = memo->grab().toImage();
  const TColor back = DarkStyleScheme().Classes.at(u"Default").Back;
  // TColor is 0x00BBGGRR.
  EXPECT_EQ(picture.pixelColor(picture.width() / 2, picture.height() - 30),
            QColor(back & 0xFF, (back >> 8) & 0xFF, (back >> 16) & 0xFF));
  EXPECT_EQ(memo->Memo().FStyles->FBkColor, back);
}

TEST(QuilletProgramTest, ScreenshotWritesAPictureOfTheAskedSizeAndFailsOnUnreadableFiles) {
  test::TTempFolder dir;
  test::WriteBytes(dir / "shown.cpp", "// a comment\nint main() { return 0; }\n");
  const std::string program = orl::test::QuilletPath().string();
  const std::string shot = (dir / "shot.png").string();
  const std::string command = "QT_QPA_PLATFORM=offscreen '" + program + "' --size 640x400 --screenshot '" + shot +
                              "' '" + (dir / "shown.cpp").string() + "' 2>/dev/null";
  ASSERT_EQ(std::system(command.c_str()), 0);
  const QImage picture(QString::fromStdString(shot));
  EXPECT_EQ(picture.size(), QSize(640, 400));

  const std::string failing = "QT_QPA_PLATFORM=offscreen '" + program + "' --screenshot '" + shot + "' '" +
                              (dir / "absent.cpp").string() + "' 2>/dev/null";
  EXPECT_NE(std::system(failing.c_str()), 0);
}

} // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
