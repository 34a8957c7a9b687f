#pragma once
// The about box: program name, version and the owner's notice.

#include <QDialog>

namespace orl {

class TLanguageTexts;

class TSyntaxAbout : public QDialog {
  Q_OBJECT
public:
  TSyntaxAbout(const TLanguageTexts& language, QWidget* parent = nullptr);
};

} // namespace orl
