#pragma once
// The recent-file list's view of a Qt menu.

#include <QMenu>

#include "workbench/OrlMRUList.h"

namespace orl {

class TQtMruMenu : public IMruMenu {
public:
  explicit TQtMruMenu(QMenu& menu) : FMenu(menu) {}
  void Clear() override { FMenu.clear(); }
  void AddEntry(const std::u16string& caption) override {
    FMenu.addAction(QString::fromUtf16(caption.data(), qsizetype(caption.size())));
  }
  void AddSeparator() override { FMenu.addSeparator(); }

private:
  QMenu& FMenu;
};

} // namespace orl
