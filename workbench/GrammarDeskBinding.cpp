// Showing the document on the pages and taking the user's edits back into it.

#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>

#include "definition/DefinitionFormat.h"
#include "definition/DefinitionItems.h"
#include "workbench/GrammarDeskMain.h"
#include "widgets/NameValueGrid.h"

namespace orl {
namespace {

QString Q(std::u16string_view s) { return QString::fromUtf16(s.data(), qsizetype(s.size())); }
std::u16string U(const QString& s) { return s.toStdU16String(); }

void FillGrid(TNameValueGrid& grid, const std::vector<std::u16string>& cells) {
  for (int row = 0; row < int(cells.size()); ++row) grid.SetValue(row, Q(cells[size_t(row)]));
}

QString JoinLines(const std::vector<std::u16string>& lines) {
  QStringList joined;
  for (const auto& line : lines) joined << Q(line);
  return joined.join('\n');
}

std::vector<std::u16string> SplitMemo(const QPlainTextEdit& memo) {
  std::vector<std::u16string> lines;
  for (const QString& line : memo.toPlainText().split('\n')) lines.push_back(U(line));
  return lines;
}

template <typename TRule>
void FillRuleGrid(TNameValueGrid& grid, const TRule& rule) {
  for (int row = 0; row < grid.rowCount(); ++row) grid.SetValue(row, Q(RuleCellText(rule, row)));
}

// Each grid cell writes through to its place in the pages.
void BindGrid(TNameValueGrid* grid, std::vector<std::u16string>& cells, TSynDocument& document) {
  QObject::connect(grid, &TNameValueGrid::ValueEdited, grid, [&cells, &document](int row, const QString& text) {
    if (row < 0 || size_t(row) >= cells.size()) return;
    cells[size_t(row)] = U(text);
    document.SetModified();
  });
}

} // namespace

void TSynForm::ConnectEdits() {
  TDefinitionPages& pages = FDocument->Pages();
  BindGrid(MultiHighlightTree, pages.MultiHighlight, *FDocument);
  BindGrid(SyntaxOptionTree, pages.SyntaxOptions, *FDocument);
  BindGrid(RegionOptionTree, pages.RegionOptions, *FDocument);
  BindGrid(FoldOptionTree, pages.FoldOptions, *FDocument);
  connect(BlockNames, &QListWidget::currentRowChanged, this, &TSynForm::ShowBlock);
  connect(FoldNames, &QListWidget::currentRowChanged, this, &TSynForm::ShowFold);
  connect(BlockTree, &TNameValueGrid::ValueEdited, this, &TSynForm::OnBlockCellEdited);
  connect(FoldingTree, &TNameValueGrid::ValueEdited, this, &TSynForm::OnFoldCellEdited);
  connect(InfoMemo, &QPlainTextEdit::textChanged, this, [this] {
    if (FFilling) return;
    FDocument->Pages().Info = SplitMemo(*InfoMemo);
    FDocument->SetModified();
  });
  connect(SampleMemo, &QPlainTextEdit::textChanged, this, [this] {
    if (FFilling) return;
    FDocument->Pages().Sample = SplitMemo(*SampleMemo);
    FDocument->SetModified();
  });
  // The author fields go to the version list at a save and do not count as edits.
  connect(txtAuthor, &QLineEdit::textEdited, this, [this](const QString& t) { FDocument->Pages().Version.Author = U(t); });
  connect(txtDate, &QLineEdit::textEdited, this, [this](const QString& t) { FDocument->Pages().Version.Date = U(t); });
  connect(txtVersion, &QLineEdit::textEdited, this, [this](const QString& t) { FDocument->Pages().Version.Version = U(t); });
  connect(BtnInfoKeyAdd, &QPushButton::clicked, this, [this] {
    for (const char* line : {"<b>Syntax:</b> ", "<b>Author:</b> ", "<b>Version:</b> ", "<b>Date:</b> ", "", "<b>Info:</b>", ""})
      InfoMemo->appendPlainText(line);
  });
  connect(HintsList, &QListWidget::currentRowChanged, this, [this](int row) {
    if (row < 0) return;
    const THint hint = SplitHint(U(HintsList->item(row)->text()));
    cboHintType->setCurrentIndex(hint.Type - 1);
    const bool bIdInMemo = hint.Type == 1;
    HintsEdit->setText(Q(bIdInMemo ? hint.Description : hint.Identifier));
    HintsMemo->setPlainText(Q(bIdInMemo ? hint.Identifier : hint.Description));
  });
  for (TGroupPage& page : FGroupPages)
    connect(page.GroupList, &QListWidget::currentRowChanged, this, [this, &page] { ShowGroupItems(page); });
  connect(MainPages, &QTabWidget::currentChanged, this, &TSynForm::OnPageChanged);
  // Editing hints, groups and menu entries comes with those pages' own commands;
  // until then the selected hint is shown read-only.
  HintsEdit->setReadOnly(true);
  HintsMemo->setReadOnly(true);
  cboHintType->setEnabled(false);
}

void TSynForm::PagesReloaded() {
  FFilling = true;
  FillGrids();
  FillRuleLists();
  FillTextPages();
  if (TGroupPage* page = GroupPageAt(MainPages->currentIndex())) RefreshGroupList(*page);
  RefreshUserMenuList();
  FFilling = false;
}

void TSynForm::FillGrids() {
  const TDefinitionPages& pages = FDocument->Pages();
  FillGrid(*MultiHighlightTree, pages.MultiHighlight);
  FillGrid(*SyntaxOptionTree, pages.SyntaxOptions);
  FillGrid(*RegionOptionTree, pages.RegionOptions);
  FillGrid(*FoldOptionTree, pages.FoldOptions);
}

void TSynForm::FillRuleLists() {
  const TDefinitionPages& pages = FDocument->Pages();
  BlockNames->clear();
  for (const TBlockObject& block : pages.Blocks) BlockNames->addItem(Q(block.BlockName));
  FoldNames->clear();
  for (const TFoldObject& fold : pages.Folds) FoldNames->addItem(Q(FoldRowText(fold)));
  BlockTree->ClearValues();
  FoldingTree->ClearValues();
}

void TSynForm::FillTextPages() {
  const TDefinitionPages& pages = FDocument->Pages();
  InfoMemo->setPlainText(JoinLines(pages.Info));
  SampleMemo->setPlainText(JoinLines(pages.Sample));
  HintsList->clear();
  for (const auto& hint : pages.Hints) HintsList->addItem(Q(hint));
  cboHintType->setCurrentIndex(pages.Hints.empty() ? 1 : SplitHint(pages.Hints.front()).Type - 1);
  HintsEdit->clear();
  HintsMemo->clear();
  txtAuthor->setText(Q(pages.Version.Author));
  txtDate->setText(Q(pages.Version.Date));
  txtVersion->setText(Q(pages.Version.Version));
  lbFileExtensions->clear();
  for (const auto& extension : pages.FileExtensions) lbFileExtensions->addItem(Q(extension));
}

TGroupPage* TSynForm::GroupPageAt(int page) {
  switch (page) {
  case mpKeywords: return &FGroupPages[0];
  case mpTags: return &FGroupPages[1];
  case mpClassCompletion: return &FGroupPages[2];
  case mpTagCompletion: return &FGroupPages[3];
  default: return nullptr;
  }
}

void TSynForm::RefreshGroupList(TGroupPage& page) {
  page.GroupList->clear();
  page.ItemList->clear();
  TMemIniFile* store = page.bInCompanion ? FDocument->SynIni() : FDocument->SynGdx();
  if (!store) return;
  TStringList groups;
  store->ReadSection(page.Section, groups);
  for (int i = 0; i < groups.Count(); ++i) page.GroupList->addItem(Q(groups.Strings(i)));
}

void TSynForm::ShowGroupItems(TGroupPage& page) {
  page.ItemList->clear();
  TMemIniFile* store = page.bInCompanion ? FDocument->SynIni() : FDocument->SynGdx();
  const QListWidgetItem* group = page.GroupList->currentItem();
  if (!store || !group) return;
  const std::u16string value = store->ReadString(page.Section, U(group->text()), u"");
  if (page.bCompletionItems) {
    for (const TCompletionItem& item : SplitCompletionItems(value))
      page.ItemList->addItem(Q(item.Caption.empty() ? item.InsertText : item.Caption));
  } else if (page.Section == sections::Keywords && IsRegexGroup(U(group->text()))) {
    page.ItemList->addItem(Q(value));
  } else {
    for (const std::u16string& word : SplitWords(value)) page.ItemList->addItem(Q(word));
  }
}

void TSynForm::RefreshUserMenuList() {
  UserMenuList->clear();
  TMemIniFile* ini = FDocument->SynIni();
  if (!ini) return;
  TStringList entries;
  ini->ReadSectionValues(sections::UserMenu, entries);
  for (int i = 0; i < entries.Count(); ++i) UserMenuList->addItem(Q(SplitUserMenuEntry(entries.ValueFromIndex(i)).Caption));
}

void TSynForm::ShowBlock(int index) {
  const auto& blocks = FDocument->Pages().Blocks;
  if (index >= 0 && size_t(index) < blocks.size()) FillRuleGrid(*BlockTree, blocks[size_t(index)]);
}

void TSynForm::ShowFold(int index) {
  const auto& folds = FDocument->Pages().Folds;
  if (index >= 0 && size_t(index) < folds.size()) FillRuleGrid(*FoldingTree, folds[size_t(index)]);
}

void TSynForm::OnBlockCellEdited(int row, const QString& text) {
  auto& blocks = FDocument->Pages().Blocks;
  const int index = BlockNames->currentRow();
  if (index < 0 || size_t(index) >= blocks.size()) return;
  SetRuleCell(blocks[size_t(index)], row, U(text));
  if (row == 0) BlockNames->item(index)->setText(text);
  FDocument->SetModified();
}

void TSynForm::OnFoldCellEdited(int row, const QString& text) {
  auto& folds = FDocument->Pages().Folds;
  const int index = FoldNames->currentRow();
  if (index < 0 || size_t(index) >= folds.size()) return;
  SetRuleCell(folds[size_t(index)], row, U(text));
  if (row == 0) FoldNames->item(index)->setText(Q(FoldRowText(folds[size_t(index)])));
  FDocument->SetModified();
}

void TSynForm::OnPageChanged(int page) {
  FDocument->SetActivePage(page);
  if (TGroupPage* groups = GroupPageAt(page)) RefreshGroupList(*groups);
  if (page == mpUserMenu) RefreshUserMenuList();
}

} // namespace orl
