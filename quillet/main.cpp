// quillet: the host editor. Opens the files given on the command line, each
// in a tab coloured by the definition of its language.
//
//   quillet [FILE]... [--screenshot OUT.png [--size WxH]]
//
// With --screenshot the window is laid out at the given size (800x600 by
// default) on whatever platform Qt runs, painted once, saved as a PNG and
// closed: the way tests and documentation look at it.

#include <QApplication>
#include <QImage>

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "quillet/QuilletWindow.h"

namespace {
using namespace orl;

struct TArguments {
  std::vector<std::filesystem::path> Files;
  std::optional<std::filesystem::path> Screenshot;
  QSize Size{800, 600};
};

bool ParseSize(const char* text, QSize& size) {
  int w = 0, h = 0;
  if (std::sscanf(text, "%dx%d", &w, &h) != 2 || w < 100 || h < 100 || w > 8000 || h > 8000) return false;
  size = QSize(w, h);
  return true;
}

/// Arguments as the system gave them, so that a file name is kept byte for byte.
std::optional<TArguments> ParseArguments(int argc, char** argv) {
  TArguments args;
  for (int i = 1; i < argc; ++i) {
    if (std::strcmp(argv[i], "--screenshot") == 0 && i + 1 < argc) args.Screenshot = argv[++i];
    else if (std::strcmp(argv[i], "--size") == 0 && i + 1 < argc) {
      if (!ParseSize(argv[++i], args.Size)) return std::nullopt;
    } else if (std::strncmp(argv[i], "--", 2) == 0) return std::nullopt;
    else args.Files.emplace_back(argv[i]);
  }
  return args;
}

/// A run without a user: problems go to the error stream, questions are declined.
class TConsoleDialogs : public IQuilletDialogs {
public:
  void ShowError(const QString& text) override {
    std::fprintf(stderr, "quillet: %s\n", text.toLocal8Bit().constData());
    bFailed = true;
  }
  TAnswer AskSaveChanges(const QString&) override { return daNo; }
  std::vector<std::filesystem::path> OpenFileNames(const std::filesystem::path&) override { return {}; }
  std::optional<std::filesystem::path> SaveFileName(const std::filesystem::path&) override { return std::nullopt; }
  bool bFailed = false;
};

int TakeScreenshot(TQuilletWindow& window, TConsoleDialogs& dialogs, const TArguments& args) {
  window.resize(args.Size);
  window.show();
  QApplication::processEvents();
  const QImage picture = window.grab().toImage();
  if (!picture.save(QtPath(*args.Screenshot), "PNG")) {
    std::fprintf(stderr, "quillet: cannot write %s\n", args.Screenshot->c_str());
    return 1;
  }
  return dialogs.bFailed ? 1 : 0;
}

} // namespace

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  const std::optional<TArguments> args = ParseArguments(argc, argv);
  if (!args) {
    std::fprintf(stderr, "usage: quillet [FILE]... [--screenshot OUT.png [--size WxH]]\n");
    return 2;
  }
  // quillet stands in the host folder itself.
  THostEnvironment host;
  host.ProgramFile = PathOfQt(QCoreApplication::applicationFilePath());
  host.HostFolder = host.ProgramFile.parent_path();
  OpenHostFiles(host);
  auto console = std::make_unique<TConsoleDialogs>();
  TConsoleDialogs& consoleDialogs = *console;
  TQuilletWindow window(host, args->Screenshot ? std::move(console) : nullptr);
  window.FileNew();
  for (const std::filesystem::path& file : args->Files) window.OpenFile(file);
  if (args->Screenshot) return TakeScreenshot(window, consoleDialogs, *args);
  window.show();
  return app.exec();
}
