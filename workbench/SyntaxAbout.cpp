#include "workbench/SyntaxAbout.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QStyle>
#include <QVBoxLayout>

#include "workbench/HostEnvironment.h"

namespace orl {

TSyntaxAbout::TSyntaxAbout(const TLanguageTexts& language, QWidget* parent) : QDialog(parent) {
  setWindowTitle(QString::fromStdU16String(language.Text(u"Menu", u"7001", u"About...")).remove("..."));
  auto* layout = new QVBoxLayout(this);
  auto* image = new QLabel;
  image->setPixmap(style()->standardIcon(QStyle::SP_FileDialogDetailedView).pixmap(48, 48));
  layout->addWidget(image, 0, Qt::AlignHCenter);
  auto* name = new QLabel("Orl GrammarDesk");
  name->setStyleSheet("font-size: 16pt; font-weight: bold;");
  layout->addWidget(name, 0, Qt::AlignHCenter);
  layout->addWidget(new QLabel("Version 5.10"), 0, Qt::AlignHCenter);
  // The owner's notice is the same in every language.
  layout->addWidget(new QLabel("A workbench for syntax definitions."), 0, Qt::AlignHCenter);
  layout->addWidget(new QLabel("Copyright \u00A9 the GrammarDesk developers."), 0, Qt::AlignHCenter);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  layout->addWidget(buttons);
}

} // namespace orl
