#pragma once
// What the document asks of the user interface: message boxes, file dialogs,
// the wait cursor, and word that its state changed. Tests answer from a script.

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

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

/// What the item dialog edits: one completion or user-menu item.
struct TItemDialogData {
  std::u16string Title;
  std::u16string Caption;
  std::u16string Text;        ///< insert text, line breaks as `\n`
  int ImageIndex = 0;
  bool bVariable = false;     ///< the item stands for another group
  bool bVariableAllowed = true;  ///< the user menu has no such items
  std::vector<std::u16string> Variables;  ///< the groups it may stand for (names with `@`)
};

class IWorkbenchUi {
public:
  virtual ~IWorkbenchUi() = default;
  /// A question; an empty title means the form's caption.
  virtual TMsgResult MessageBox(const std::u16string& text, TMsgButtons buttons, const std::u16string& title = {}) = 0;
  /// A prompt box starting with `initial`; nothing when the user cancels.
  virtual std::optional<std::u16string> Prompt(const std::u16string& title, const std::u16string& prompt,
                                               const std::u16string& initial) = 0;
  virtual std::u16string ClipboardText() = 0;
  virtual void SetClipboardText(const std::u16string& text) = 0;
  /// The word dialog: the words collected, or nothing on Cancel. With
  /// `bRegExKeyword` it takes one regular expression only.
  virtual std::optional<std::vector<std::u16string>> AddWords(bool bRegExKeyword) = 0;
  /// The item dialog, modal; false on Cancel.
  virtual bool EditItem(TItemDialogData& item) = 0;
  /// Opens a web address or a local file with the desktop's opener.
  virtual void OpenUrl(const std::u16string& url) = 0;
  /// Waits while the user interface stays responsive.
  virtual void Pause(std::chrono::milliseconds time) = 0;
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
