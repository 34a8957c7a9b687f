#pragma once
// A user interface that answers from a script and records what it was asked.

#include <deque>
#include <vector>

#include "workbench/WorkbenchUi.h"

namespace orl::test {

class TScriptedUi : public IWorkbenchUi {
public:
  std::deque<TMsgResult> Answers;                             ///< message box answers, in order
  std::deque<std::optional<std::filesystem::path>> Files;    ///< dialog answers, in order
  std::vector<std::u16string> Asked;                          ///< message texts shown
  std::vector<TFileDialogOptions> Dialogs;                    ///< dialogs shown
  int Reloads = 0;

  TMsgResult MessageBox(const std::u16string& text, TMsgButtons) override {
    Asked.push_back(text);
    return Take(Answers, TMsgResult::mrCancel);
  }
  std::optional<std::filesystem::path> OpenDialog(const TFileDialogOptions& o) override { return Dialog(o); }
  std::optional<std::filesystem::path> SaveDialog(const TFileDialogOptions& o) override { return Dialog(o); }
  void SetWaitCursor(bool) override {}
  void PagesReloaded() override { ++Reloads; }
  void StateChanged() override {}

private:
  std::optional<std::filesystem::path> Dialog(const TFileDialogOptions& o) {
    Dialogs.push_back(o);
    return Take(Files, std::optional<std::filesystem::path>());
  }
  template <typename T>
  static T Take(std::deque<T>& queue, T fallback) {
    if (queue.empty()) return fallback;
    T value = queue.front();
    queue.pop_front();
    return value;
  }
};

} // namespace orl::test
