// The workbench on a definition with one keyword group of 50,000 words: load,
// show the group's words, change one and write the group back, save, and
// fill the list widget that shows them.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QListWidget>

#include <unistd.h>

#include "definition/DefinitionFormat.h"
#include "platform/CodePages.h"
#include "platform/FileIO.h"
#include "workbench/SynDocument.h"

using namespace orl;
namespace fs = std::filesystem;

namespace {

/// Answers nothing: the benchmark drives no dialogs.
struct TQuietUi : IWorkbenchUi {
  TMsgResult MessageBox(const std::u16string&, TMsgButtons, const std::u16string&) override { return TMsgResult::mrNo; }
  std::optional<std::u16string> Prompt(const std::u16string&, const std::u16string&, const std::u16string&) override {
    return std::nullopt;
  }
  std::u16string ClipboardText() override { return {}; }
  void SetClipboardText(const std::u16string&) override {}
  std::optional<std::vector<std::u16string>> AddWords(bool) override { return std::nullopt; }
  bool EditItem(TItemDialogData&) override { return false; }
  void OpenUrl(const std::u16string&) override {}
  void Pause(std::chrono::milliseconds) override {}
  std::optional<fs::path> OpenDialog(const TFileDialogOptions&) override { return std::nullopt; }
  std::optional<fs::path> SaveDialog(const TFileDialogOptions&) override { return std::nullopt; }
  void SetWaitCursor(bool) override {}
  void PagesReloaded() override {}
  void StateChanged() override {}
};

constexpr int kWords = 50000;

struct TLargeDefinition {
  fs::path Folder = fs::temp_directory_path() / ("orl_bench_wb_" + std::to_string(::getpid()));
  fs::path File = Folder / "syntax" / "Large.gdx";
  TLargeDefinition() {
    fs::create_directories(File.parent_path());
    std::u16string words;
    for (int i = 0; i < kWords; ++i) words += u"word" + Utf8ToUtf16(std::to_string(i)) + u"|";
    TMemIniFile gdx;
    gdx.WriteString(sections::Keywords, u"Large", words);
    gdx.Rename(StringFromPath(File), false);
    gdx.UpdateFile();
  }
  ~TLargeDefinition() { fs::remove_all(Folder); }
};

TLargeDefinition& Definition() {
  static TLargeDefinition definition;
  return definition;
}

void BM_OpenShowChangeSave(benchmark::State& state) {
  THostEnvironment host;
  host.HostFolder = Definition().Folder;
  TQuietUi ui;
  for (auto _ : state) {
    TSynDocument document(host, ui);
    document.OpenFile(Definition().File);
    TGroupPage& keywords = *document.GroupPageOf(mpKeywords);
    document.SetActivePage(mpKeywords);
    keywords.SelectGroup(0);
    keywords.SelectItems({1}, 1);
    keywords.ItemUp();  // rewrites the group's value from its 50,000 rows
    document.FileSave();
    benchmark::DoNotOptimize(keywords.Items().size());
  }
}
BENCHMARK(BM_OpenShowChangeSave)->Unit(benchmark::kMillisecond);

void BM_FillWordList(benchmark::State& state) {
  QStringList words;
  for (int i = 0; i < kWords; ++i) words << QString("word%1").arg(i);
  QListWidget list;
  list.setUniformItemSizes(true);
  for (auto _ : state) {
    list.clear();
    list.addItems(words);
  }
}
BENCHMARK(BM_FillWordList)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
