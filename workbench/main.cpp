// GrammarDesk: the workbench for syntax definitions.

#include <QApplication>
#include <QTimer>

#include "platform/ShellFolders.h"
#include "workbench/AddKeywordsDialog.h"
#include "workbench/ApplicationSetup.h"
#include "workbench/GrammarDeskMain.h"
#include "workbench/SyntaxAbout.h"
#include "workbench/UserMenuDialog.h"

int main(int argc, char** argv) {
  orl::THostEnvironment host = orl::InitialiseHost(orl::ProgramFilePath());
  QApplication app(argc, argv);
  QApplication::setApplicationName("GrammarDesk");
  orl::InstallQtTranslations(host);
  orl::ApplyGuiFont(host);
  orl::TSynForm form(host);
  form.RegisterRecovery();
  orl::TSyntaxAbout about(host.Language, &form);
  orl::TUserMenuForm userMenu(host.Language, &form);
  orl::TAddForm addForm(host.Language, &form);
  about.setObjectName("TSyntaxAbout");
  userMenu.setObjectName("TUserMenuForm");
  addForm.setObjectName("TAddForm");
  form.SetDialogs(&about, &userMenu, &addForm);
  const std::vector<std::string> arguments(argv + 1, argv + argc);
  form.show();
  QTimer::singleShot(0, &form, [&] { form.FormShow(arguments); });
  return QApplication::exec();
}
