#include "workbench/Automation.h"

#include <QApplication>
#include <QDialog>
#include <QFile>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QTabWidget>
#include <QTextStream>

#include <csignal>
#include <cstdlib>

#include "widgets/NameValueGrid.h"
#include "widgets/MemoWidget.h"
#include "workbench/GrammarDeskMain.h"

namespace orl {
namespace {

TNameValueGrid* GridNamed(TSynForm& form, const QString& name) {
  const std::pair<const char*, TNameValueGrid*> grids[] = {
      {"MultiHighlightTree", form.MultiHighlightTree}, {"SyntaxOptionTree", form.SyntaxOptionTree},
      {"RegionOptionTree", form.RegionOptionTree},     {"FoldOptionTree", form.FoldOptionTree},
      {"BlockTree", form.BlockTree},                   {"FoldingTree", form.FoldingTree}};
  for (auto [gridName, grid] : grids)
    if (name == gridName) return grid;
  return nullptr;
}

/// The group list (or item list) of the page on show.
QListWidget* VisibleList(TSynForm& form, const char* suffix) {
  for (QListWidget* list : form.MainPages->currentWidget()->findChildren<QListWidget*>())
    if (list->objectName().endsWith(suffix)) return list;
  static QListWidget none;
  return &none;
}

void SetCell(TSynForm& form, const QStringList& words) {
  TNameValueGrid* grid = words.size() >= 3 ? GridNamed(form, words[1]) : nullptr;
  if (!grid) return;
  for (int row = 0; row < grid->rowCount(); ++row)
    if (grid->item(row, 0)->text() == words[2]) grid->EditValue(row, words.mid(3).join(' '));
}

// Shows a dialog without waiting for it, takes its picture, and hides it again.
void ShootDialog(TSynForm& form, const QString& name, const QString& fileName) {
  QDialog* dialog = form.findChild<QDialog*>(name);
  if (!dialog) return;
  dialog->show();
  QApplication::processEvents();
  dialog->grab().save(fileName);
  dialog->hide();
}

// As a user typing a new last line of the sample.
void AppendSampleLine(TSynForm& form, const QString& line) {
  std::u16string text;
  for (const std::u16string& row : form.SampleLines()) text += row + u"\n";
  form.SampleMemo->Memo().SetText(text + line.toStdU16String());
}

void Report(TSynForm& form, const QString& fileName) {
  QFile file(fileName);
  if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate)) return;
  QTextStream out(&file);
  out << "caption=" << form.windowTitle() << "\n";
  out << "file=" << QString::fromStdString(form.Document().CurrentFileName().string()) << "\n";
  out << "modified=" << (form.Document().Modified() ? "yes" : "no") << "\n";
  for (int row = 0; row < form.SyntaxOptionTree->rowCount(); ++row)
    if (!form.SyntaxOptionTree->Value(row).isEmpty())
      out << "option." << form.SyntaxOptionTree->item(row, 0)->text() << "=" << form.SyntaxOptionTree->Value(row) << "\n";
  QStringList sample;
  for (const std::u16string& line : form.SampleLines()) sample << QString::fromStdU16String(line);
  out << "sample=" << sample.join("\\n") << "\n";
}

void Execute(TSynForm& form, const QString& line) {
  const QStringList words = line.split(' ', Qt::SkipEmptyParts);
  if (words.isEmpty()) return;
  const QString& command = words[0];
  const QString rest = words.mid(1).join(' ');
  if (command == "page") form.MainPages->setCurrentIndex(rest.toInt());
  else if (command == "subpage") form.OptionSubPages->setCurrentIndex(rest.toInt());
  else if (command == "select-block") form.BlockNames->setCurrentRow(rest.toInt());
  else if (command == "select-fold") form.FoldNames->setCurrentRow(rest.toInt());
  else if (command == "select-group") VisibleList(form, "GroupList")->setCurrentRow(rest.toInt());
  else if (command == "select-hint") form.HintsList->setCurrentRow(rest.toInt());
  else if (command == "dialog-shot") ShootDialog(form, words.value(1), words.value(2));
  else if (command == "set") SetCell(form, words);
  else if (command == "sample") AppendSampleLine(form, rest);
  else if (command == "save") form.Document().FileSave();
  else if (command == "report") Report(form, rest);
  else if (command == "screenshot") form.grab().save(rest);
  else if (command == "crash") std::raise(SIGSEGV);
  else if (command == "quit") QApplication::exit(0);
}

} // namespace

void RunAutomationIfSet(TSynForm& form, const std::vector<std::string>& arguments) {
  const char* script = std::getenv("GRAMMARDESK_AUTOMATION");
  if (!script || !*script) return;
  QFile file(QString::fromLocal8Bit(script));
  if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) return;
  const QString part = !arguments.empty() && arguments.front().starts_with("/RESTART") ? "[restart]" : "[start]";
  bool bInPart = false;
  QTextStream in(&file);
  while (!in.atEnd()) {
    const QString line = in.readLine().trimmed();
    if (line.startsWith('[')) bInPart = line == part;
    else if (bInPart) {
      QApplication::processEvents();
      Execute(form, line);
    }
  }
}

} // namespace orl
