// Building the pages of the main form.

#include <QComboBox>
#include <QFile>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSplitter>
#include <QTabWidget>
#include <QToolBar>
#include <QVBoxLayout>

#include "definition/DefinitionFormat.h"
#include "workbench/GrammarDeskMain.h"
#include "editing/EditorAppearance.h"
#include "widgets/MemoWidget.h"
#include "widgets/NameValueGrid.h"

namespace orl {
namespace {

QString Q(std::u16string_view s) { return QString::fromUtf16(s.data(), qsizetype(s.size())); }

// Row names and pick lists come from the format's key tables.
void SetUpGrid(TNameValueGrid& grid, std::span<const TKeySpec> keys, const QString& nameTitle, const QString& valueTitle) {
  QStringList names;
  for (const TKeySpec& row : keys) names << Q(row.RowName);
  grid.SetTitles(nameTitle, valueTitle);
  grid.SetRowNames(names);
  for (int row = 0; row < int(keys.size()); ++row) {
    if (keys[size_t(row)].Kind == TValueKind::vkFlag) grid.SetPickList(row, {"Yes", "No"});
    else if (keys[size_t(row)].Kind == TValueKind::vkLevel) grid.SetPickList(row, {"0", "1", "2"});
  }
}

// A short grid shows all its rows and no more.
void FitToRows(TNameValueGrid& grid) {
  grid.setFixedHeight(grid.horizontalHeader()->sizeHint().height() +
                      grid.verticalHeader()->defaultSectionSize() * grid.rowCount() + 2 * grid.frameWidth());
  grid.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

QWidget* Titled(const QString& title, QWidget* content) {
  auto* box = new QWidget;
  auto* layout = new QVBoxLayout(box);
  layout->setContentsMargins(0, 0, 0, 0);
  auto* label = new QLabel(title);
  label->setStyleSheet("font-weight: bold; padding: 3px;");
  layout->addWidget(label);
  layout->addWidget(content, 1);
  return box;
}

QWidget* Stacked(std::initializer_list<std::pair<QWidget*, int>> parts, int margin = -1) {
  auto* page = new QWidget;
  auto* layout = new QVBoxLayout(page);
  if (margin >= 0) layout->setContentsMargins(margin, margin, margin, margin);
  for (auto [widget, stretch] : parts) layout->addWidget(widget, stretch);
  return page;
}

} // namespace

void TSynForm::CreatePages() {
  MainPages = new QTabWidget(this);
  MainPages->setUsesScrollButtons(true);
  const std::u16string_view captions[] = {u"050", u"051", u"052", u"054", u"055", u"056", u"057", u"059", u"060"};
  QWidget* pages[] = {CreateOptionPage(),
                      CreateGroupPage(FGroupWidgets[0], Text(u"086"), Text(u"087")),
                      CreateGroupPage(FGroupWidgets[1], Text(u"088"), Text(u"089")),
                      CreateUserMenuPage(),
                      CreateGroupPage(FGroupWidgets[2], Text(u"091"), Text(u"092")),
                      CreateGroupPage(FGroupWidgets[3], Text(u"089"), Text(u"093")),
                      CreateHintsPage(),
                      CreateSamplePage(),
                      CreateAuthorPage()};
  for (size_t i = 0; i < std::size(pages); ++i) MainPages->addTab(pages[i], Text(captions[i]));
  setCentralWidget(MainPages);
}

QWidget* TSynForm::CreateOptionPage() {
  const QString option = Text(u"305", u"Option"), value = Text(u"306", u"Value");
  MultiHighlightTree = new TNameValueGrid;
  SetUpGrid(*MultiHighlightTree, MultiHighlightKeys(), Text(u"080", option.toStdU16String()), value);
  FitToRows(*MultiHighlightTree);
  SyntaxOptionTree = new TNameValueGrid;
  SetUpGrid(*SyntaxOptionTree, OptionKeys(), Text(u"081", option.toStdU16String()), value);
  RegionOptionTree = new TNameValueGrid;
  SetUpGrid(*RegionOptionTree, RegionKeys(), Text(u"084", option.toStdU16String()), value);
  FitToRows(*RegionOptionTree);
  FoldOptionTree = new TNameValueGrid;
  SetUpGrid(*FoldOptionTree, FoldOptionKeys(), Text(u"085", option.toStdU16String()), value);

  OptionSubPages = new QTabWidget;
  OptionSubPages->addTab(Stacked({{MultiHighlightTree, 0}, {SyntaxOptionTree, 1}}), Text(u"070", u"Options"));
  QToolBar* blockBar = RuleToolBar(FDocument->BlockNames(), BlockNames, BlockTree);
  OptionSubPages->addTab(CreateRulePage(BlockNames, BlockTree, Text(u"082", u"Block name"), blockBar),
                         Text(u"071", u"Block"));
  SetUpGrid(*BlockTree, BlockKeys(), Text(u"307", u"Block Option"), value);
  QToolBar* foldBar = RuleToolBar(FDocument->FoldNames(), FoldNames, FoldingTree);
  OptionSubPages->addTab(CreateRulePage(FoldNames, FoldingTree, Text(u"083", u"Code fold"), foldBar),
                         Text(u"072", u"Fold"));
  SetUpGrid(*FoldingTree, FoldKeys(), Text(u"308", u"Fold Option"), value);
  QStringList listItems;
  for (std::u16string_view word : ListItemWords()) listItems << Q(word);
  FoldingTree->SetPickList(7, listItems);
  OptionSubPages->addTab(Stacked({{RegionOptionTree, 0}, {FoldOptionTree, 1}}), Text(u"073", u"Fold options"));
  return OptionSubPages;
}

QWidget* TSynForm::CreateRulePage(QListWidget*& names, TNameValueGrid*& grid, const QString& listTitle,
                                  QToolBar* toolBar) {
  auto* splitter = new QSplitter(Qt::Vertical);
  splitter->addWidget(Titled(listTitle, Stacked({{toolBar, 0}, {names, 1}}, 0)));
  splitter->addWidget(grid);
  splitter->setStretchFactor(0, 1);
  splitter->setStretchFactor(1, 2);
  return splitter;
}

QWidget* TSynForm::CreateGroupPage(TGroupPageWidgets& page, const QString& groupTitle, const QString& itemTitle) {
  page.GroupList = new QListWidget;
  page.ItemList = new QListWidget;
  page.GroupList->setObjectName(QString(page.Member) + "GroupList");
  page.ItemList->setObjectName(QString(page.Member) + "List");
  page.ItemList->setSelectionMode(QAbstractItemView::ExtendedSelection);
  page.ItemList->setUniformItemSizes(true);
  page.ItemList->setIconSize(QSize(16, 16));
  auto* splitter = new QSplitter(Qt::Horizontal);
  splitter->addWidget(Titled(groupTitle, Stacked({{GroupToolBar(page), 0}, {page.GroupList, 1}}, 0)));
  splitter->addWidget(Titled(itemTitle, Stacked({{GroupItemToolBar(page), 0}, {page.ItemList, 1}}, 0)));
  splitter->setStretchFactor(1, 2);
  return splitter;
}

QWidget* TSynForm::CreateUserMenuPage() {
  UserMenuList = new QListWidget;
  UserMenuList->setSelectionMode(QAbstractItemView::ExtendedSelection);
  UserMenuList->setIconSize(QSize(16, 16));
  TUserMenuPage& menu = FDocument->UserMenu();
  QToolBar* bar = ItemToolBar(*UserMenuList, menu,
                              {[&menu] { menu.Add(); }, [&menu] { menu.Edit(); }, [&menu] { menu.Paste(); }},
                              [this] { ShowUserMenu(); });
  return Titled(Text(u"090", u"List of functions, tags or whatever you want to display with \"Ctrl+Space\""),
                Stacked({{bar, 0}, {UserMenuList, 1}}, 0));
}

// The sample shows in a memo coloured by the definition as it is being edited.
QWidget* TSynForm::CreateSamplePage() {
  SampleMemo = new TOrlMemoWidget(nullptr, QFile::decodeName(QByteArray::fromStdString((FHost.HostFolder / "Data").native())));
  SampleMemo->setObjectName("SampleMemo");
  SampleMemo->Memo().FProcessShortcuts = true;
  ApplyEditorAppearance(SampleMemo->Memo(), ReadEditorAppearance(FHost.SettingsIni.get()));
  return Titled(Text(u"095", u"Enter a sample text that will be displayed in the options dialog:"), SampleMemo);
}

QWidget* TSynForm::CreateAuthorPage() {
  auto* addOns = new QGroupBox(Text(u"098", u"Add-ons information"));
  auto* form = new QFormLayout(addOns);
  form->addRow(Text(u"099", u"Author"), txtAuthor = new QLineEdit);
  form->addRow(Text(u"100", u"Date (yyyy-mm-dd)"), txtDate = new QLineEdit);
  form->addRow(Text(u"101", u"Version"), txtVersion = new QLineEdit);

  auto* extensions = new QGroupBox(Q(FHost.Language.Text(u"Addons", u"011", u"Default file ext")));
  auto* extensionLayout = new QGridLayout(extensions);
  extensionLayout->addWidget(txtFileExtensions = new QLineEdit, 0, 0);
  extensionLayout->addWidget(FExtensionAdd = new QPushButton(Text(u"300", u"Add")), 0, 1);
  extensionLayout->addWidget(lbFileExtensions = new QListWidget, 1, 0, 2, 1);
  extensionLayout->addWidget(FExtensionDelete = new QPushButton(Text(u"302", u"Delete")), 1, 1);

  auto* info = new QGroupBox(Text(u"096", u"Add information about the syntax definition file and who wrote it."));
  auto* infoLayout = new QVBoxLayout(info);
  infoLayout->addWidget(InfoMemo = new QPlainTextEdit, 1);
  auto* addDefault = new QHBoxLayout;
  addDefault->addWidget(new QLabel(Text(u"097", u"Add default author information lines")), 1);
  addDefault->addWidget(BtnInfoKeyAdd = new QPushButton(Text(u"304", u"Add Default")));
  infoLayout->addLayout(addDefault);

  auto* top = new QHBoxLayout;
  top->addWidget(addOns, 2);
  top->addWidget(extensions, 1);
  auto* page = new QWidget;
  auto* layout = new QVBoxLayout(page);
  layout->addLayout(top);
  layout->addWidget(info, 1);
  return page;
}

} // namespace orl
