#pragma once
// A user interface that answers from a script and records what it was asked.

#include <deque>
#include <functional>
#include <thread>
#include <vector>

#include "ScriptedAnswers.h"
#include "workbench/WorkbenchUi.h"

namespace orl::test {

class TScriptedUi : public IWorkbenchUi {
public:
  std::deque<TMsgResult> Answers;                                  ///< message box answers, in order
  std::deque<std::optional<std::filesystem::path>> Files;         ///< dialog answers, in order
  std::deque<std::optional<std::u16string>> PromptAnswers;         ///< prompt box answers, in order
  std::deque<std::optional<std::vector<std::u16string>>> Words;    ///< word dialog answers
  /// The item dialog: changes the item and says OK (true) or Cancel.
  std::function<bool(TItemDialogData&)> ItemDialog;
  std::u16string Clipboard;
  std::vector<std::u16string> Opened;       ///< addresses handed to the desktop's opener
  std::chrono::milliseconds Paused{0};      ///< time the document waited
  std::vector<std::u16string> Asked;        ///< message texts shown
  std::vector<std::u16string> Prompted;     ///< prompt texts shown
  std::vector<TFileDialogOptions> Dialogs;  ///< file dialogs shown
  std::vector<TItemDialogData> ItemsShown;  ///< item dialogs as they opened
  int Reloads = 0;

  TMsgResult MessageBox(const std::u16string& text, TMsgButtons, const std::u16string&) override {
    Asked.push_back(text);
    return TakeAnswer(Answers, TMsgResult::mrCancel);
  }
  std::optional<std::u16string> Prompt(const std::u16string&, const std::u16string& prompt,
                                       const std::u16string&) override {
    Prompted.push_back(prompt);
    return TakeAnswer(PromptAnswers, std::optional<std::u16string>());
  }
  std::u16string ClipboardText() override { return Clipboard; }
  void SetClipboardText(const std::u16string& text) override { Clipboard = text; }
  std::optional<std::vector<std::u16string>> AddWords(bool) override {
    return TakeAnswer(Words, std::optional<std::vector<std::u16string>>());
  }
  bool EditItem(TItemDialogData& item) override {
    ItemsShown.push_back(item);
    return ItemDialog && ItemDialog(item);
  }
  void OpenUrl(const std::u16string& url) override { Opened.push_back(url); }
  void Pause(std::chrono::milliseconds time) override {
    Paused += time;
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
  std::optional<std::filesystem::path> OpenDialog(const TFileDialogOptions& o) override { return Dialog(o); }
  std::optional<std::filesystem::path> SaveDialog(const TFileDialogOptions& o) override { return Dialog(o); }
  void SetWaitCursor(bool) override {}
  void PagesReloaded() override { ++Reloads; }
  void StateChanged() override {}

private:
  std::optional<std::filesystem::path> Dialog(const TFileDialogOptions& o) {
    Dialogs.push_back(o);
    return TakeAnswer(Files, std::optional<std::filesystem::path>());
  }
};

} // namespace orl::test
