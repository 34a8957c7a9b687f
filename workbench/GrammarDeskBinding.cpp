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
  connect(InfoMemo, &QPlainTextEdit::textChanged, this, [this] {
    if (FFilling) return;
    FDocument->Pages().Info = SplitMemo(*InfoMemo);
    FDocument->SetModified();
  });
  ConnectSample();
  // The author fields go to the version list at a save and do not count as edits.
  connect(txtAuthor, &QLineEdit::textEdited, this, [this](const QString& t) { FDocument->Pages().Version.Author = U(t); });
  connect(txtDate, &QLineEdit::textEdited, this, [this](const QString& t) { FDocument->Pages().Version.Date = U(t); });
  connect(txtVersion, &QLineEdit::textEdited, this, [this](const QString& t) { FDocument->Pages().Version.Version = U(t); });
  connect(BtnInfoKeyAdd, &QPushButton::clicked, this, [this] {
    for (const char* line : {"<b>Syntax:</b> ", "<b>Author:</b> ", "<b>Version:</b> ", "<b>Date:</b> ", "", "<b>Info:</b>", ""})
      InfoMemo->appendPlainText(line);
  });
  // Extensions are no edit of the definition's rules: they do not mark it modified.
  auto addExtension = [this] {
    if (!FDocument->AddFileExtension(U(txtFileExtensions->text()))) return;
    txtFileExtensions->clear();
    FillTextPages();
  };
  connect(FExtensionAdd, &QPushButton::clicked, this, addExtension);
  connect(txtFileExtensions, &QLineEdit::returnPressed, this, addExtension);
  connect(FExtensionDelete, &QPushButton::clicked, this, [this] {
    FDocument->DeleteFileExtension(lbFileExtensions->currentRow());
    FillTextPages();
  });
  connect(MainPages, &QTabWidget::currentChanged, this, &TSynForm::OnPageChanged);
  ConnectHints();
}

void TSynForm::PagesReloaded() {
  FFilling = true;
  FillGrids();
  FillTextPages();
  FFilling = false;
  ShowHints();
  ShowUserMenu();
  ShowRuleList(FDocument->BlockNames(), *BlockNames, *BlockTree);
  ShowRuleList(FDocument->FoldNames(), *FoldNames, *FoldingTree);
  for (TGroupPageWidgets& page : FGroupWidgets) ShowGroupPage(page);
  ScheduleSampleStyles();
}

void TSynForm::FillGrids() {
  const TDefinitionPages& pages = FDocument->Pages();
  FillGrid(*MultiHighlightTree, pages.MultiHighlight);
  FillGrid(*SyntaxOptionTree, pages.SyntaxOptions);
  FillGrid(*RegionOptionTree, pages.RegionOptions);
  FillGrid(*FoldOptionTree, pages.FoldOptions);
}

void TSynForm::FillTextPages() {
  const TDefinitionPages& pages = FDocument->Pages();
  InfoMemo->setPlainText(JoinLines(pages.Info));
  ShowSample();
  txtAuthor->setText(Q(pages.Version.Author));
  txtDate->setText(Q(pages.Version.Date));
  txtVersion->setText(Q(pages.Version.Version));
  lbFileExtensions->clear();
  for (const auto& extension : pages.FileExtensions) lbFileExtensions->addItem(Q(extension));
}

void TSynForm::ShowUserMenu() { ShowItemRows(*UserMenuList, FDocument->UserMenu()); }

void TSynForm::OnPageChanged(int page) {
  FDocument->SetActivePage(page);
  for (TGroupPageWidgets& groups : FGroupWidgets)
    if (groups.MainPage == page) ShowGroupPage(groups);
  if (page == mpUserMenu) ShowUserMenu();
}

} // namespace orl
