#pragma once
// What the document asks of the user interface: message boxes, file dialogs,
// the wait cursor, and word that its state changed. Tests answer from a script.

#include <filesystem>
#include <optional>
#include <string>

namespace orl {

enum class TMsgButtons { mbOk, mbYesNo, mbYesNoCancel };
enum class TMsgResult { mrOk, mrYes, mrNo, mrCancel };

struct TFileDialogOptions {
  std::u16string Filter;              ///< "Syntax Files (*.gdx)"
  std::u16string Mask;                ///< "*.gdx"
  std::u16string DefaultExtension;    ///< "gdx"
  std::filesystem::path InitialFolder;
  std::filesystem::path FileName;     ///< the name the dialog starts with
};

class IWorkbenchUi {
public:
  virtual ~IWorkbenchUi() = default;
  virtual TMsgResult MessageBox(const std::u16string& text, TMsgButtons buttons) = 0;
  /// The chosen file, or nothing when the user cancels.
  virtual std::optional<std::filesystem::path> OpenDialog(const TFileDialogOptions& options) = 0;
  /// The chosen file, or nothing; the dialog itself asks before overwriting.
  virtual std::optional<std::filesystem::path> SaveDialog(const TFileDialogOptions& options) = 0;
  virtual void SetWaitCursor(bool bWait) = 0;
  /// The page contents were replaced (load, clear, new): refill every page.
  virtual void PagesReloaded() = 0;
  /// Caption, status panes, enabled state or active page changed.
  virtual void StateChanged() = 0;
};

} // namespace orl
