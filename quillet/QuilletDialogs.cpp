#include "quillet/QuilletDialogs.h"

#include <QFile>
#include <QFileDialog>
#include <QMessageBox>

namespace orl {

QString QtPath(const std::filesystem::path& path) { return QFile::decodeName(QByteArray::fromStdString(path.native())); }

std::filesystem::path PathOfQt(const QString& name) { return std::filesystem::path(QFile::encodeName(name).toStdString()); }

void TQtQuilletDialogs::ShowError(const QString& text) { QMessageBox::critical(FParent, "Quillet", text); }

IQuilletDialogs::TAnswer TQtQuilletDialogs::AskSaveChanges(const QString& name) {
  const auto answer = QMessageBox::question(FParent, "Quillet", QString("Save changes to %1?").arg(name),
                                            QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
  if (answer == QMessageBox::Yes) return daYes;
  return answer == QMessageBox::No ? daNo : daCancel;
}

std::vector<std::filesystem::path> TQtQuilletDialogs::OpenFileNames(const std::filesystem::path& folder) {
  std::vector<std::filesystem::path> files;
  for (const QString& name : QFileDialog::getOpenFileNames(FParent, "Open", QtPath(folder))) files.push_back(PathOfQt(name));
  return files;
}

std::optional<std::filesystem::path> TQtQuilletDialogs::SaveFileName(const std::filesystem::path& suggested) {
  const QString name = QFileDialog::getSaveFileName(FParent, "Save As", QtPath(suggested));
  if (name.isEmpty()) return std::nullopt;
  return PathOfQt(name);
}

} // namespace orl
