#pragma once
// The user menu page: the entries of the Ctrl+Space menu, each a caption, an
// insert text and an image, kept in `[UserMenu]` of the companion file.

#include "workbench/ItemListPage.h"

namespace orl {

class TUserMenuPage : public TItemListPage {
public:
  using TItemListPage::TItemListPage;

  bool HasImages() const override { return true; }

  /// Reads the entries; an entry without an image letter takes the one before it.
  void Refresh();
  void Add();
  void Edit();
  void Paste();

protected:
  bool CanChangeItems() const override;
  /// Writes every entry with a running key, so the keys are renumbered from 1.
  void StoreItems() override;
};

} // namespace orl
