#pragma once
// What quillet asks its user, behind one interface so that tests answer in
// place of the modal dialogs.

#include <QString>

#include <filesystem>
#include <optional>
#include <vector>

class QWidget;

namespace orl {

class IQuilletDialogs {
public:
  enum TAnswer { daYes, daNo, daCancel };

  virtual ~IQuilletDialogs() = default;
  virtual void ShowError(const QString& text) = 0;
  /// Whether to save the changes to `name` before it closes.
  virtual TAnswer AskSaveChanges(const QString& name) = 0;
  /// Files to open, none when the user cancels.
  virtual std::vector<std::filesystem::path> OpenFileNames(const std::filesystem::path& folder) = 0;
  virtual std::optional<std::filesystem::path> SaveFileName(const std::filesystem::path& suggested) = 0;
};

/// The toolkit's message boxes and file dialogs over `parent`.
class TQtQuilletDialogs : public IQuilletDialogs {
public:
  explicit TQtQuilletDialogs(QWidget* parent) : FParent(parent) {}
  void ShowError(const QString& text) override;
  TAnswer AskSaveChanges(const QString& name) override;
  std::vector<std::filesystem::path> OpenFileNames(const std::filesystem::path& folder) override;
  std::optional<std::filesystem::path> SaveFileName(const std::filesystem::path& suggested) override;

private:
  QWidget* FParent;
};

/// A path as the toolkit names it, and back, byte for byte on this system.
QString QtPath(const std::filesystem::path& path);
std::filesystem::path PathOfQt(const QString& name);

} // namespace orl
