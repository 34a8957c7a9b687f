#pragma once
// The about box: program name, version and the owner's notice.

#include <QDialog>

namespace orl {

class TSyntaxAbout : public QDialog {
  Q_OBJECT
public:
  explicit TSyntaxAbout(QWidget* parent = nullptr);
};

} // namespace orl
