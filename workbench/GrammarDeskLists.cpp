// The tool bars of the rule and group lists, their keys, and showing what the
// page models hold after each command.

#include <QAction>
#include <QListWidget>
#include <QMenu>
#include <QStyle>
#include <QToolBar>
#include <QToolButton>

#include "definition/DefinitionFormat.h"
#include "widgets/MenuImages.h"
#include "widgets/NameValueGrid.h"
#include "workbench/GrammarDeskMain.h"

namespace orl {
namespace {

QString Q(std::u16string_view s) { return QString::fromUtf16(s.data(), qsizetype(s.size())); }

std::set<int> SelectedRows(const QListWidget& list) {
  std::set<int> rows;
  for (const QListWidgetItem* item : list.selectedItems()) rows.insert(list.row(item));
  return rows;
}

} // namespace

QAction* TSynForm::AddCommand(QToolBar& bar, QWidget& target, const QIcon& icon, const QString& tip,
                              const QKeySequence& key, std::function<void()> command) {
  QAction* action = bar.addAction(icon, tip);
  action->setToolTip(key.isEmpty() ? tip : tip + " (" + key.toString(QKeySequence::NativeText) + ")");
  if (!key.isEmpty()) {
    // The key belongs to the list, so Delete in one list never deletes in another.
    auto* keyAction = new QAction(&target);
    keyAction->setShortcut(key);
    keyAction->setShortcutContext(Qt::WidgetShortcut);
    target.addAction(keyAction);
    connect(keyAction, &QAction::triggered, action, &QAction::trigger);
  }
  connect(action, &QAction::triggered, this, [this, command] { Run(command); });
  return action;
}

// ---- block and fold rules ------------------------------------------------------

template <typename TRule>
QToolBar* TSynForm::RuleToolBar(TRuleListPage<TRule>& model, QListWidget*& list, TNameValueGrid*& grid) {
  list = new QListWidget;
  grid = new TNameValueGrid;
  auto* bar = new QToolBar;
  bar->setIconSize(QSize(16, 16));
  QListWidget& names = *list;
  TNameValueGrid& cells = *grid;
  auto command = [this, &model, &names, &cells](void (TRuleListPage<TRule>::*operation)()) {
    return [this, &model, &names, &cells, operation] {
      (model.*operation)();
      ShowRuleList(model, names, cells);
    };
  };
  QStyle& s = *style();
  AddCommand(*bar, names, GlyphIcon("+"), Q(FHost.Language.Hint(u"GrammarDesk", u"300", u"Add")),
             QKeySequence(Qt::Key_Insert), command(&TRuleListPage<TRule>::Add));
  AddCommand(*bar, names, GlyphIcon("A-Z"), Q(FHost.Language.Hint(u"GrammarDesk", u"303", u"Sort")), {},
             command(&TRuleListPage<TRule>::Sort));
  AddCommand(*bar, names, s.standardIcon(QStyle::SP_TrashIcon), Q(FHost.Language.Hint(u"GrammarDesk", u"302", u"Delete")),
             QKeySequence::Delete, command(&TRuleListPage<TRule>::Delete));
  AddCommand(*bar, names, s.standardIcon(QStyle::SP_ArrowUp), Q(FHost.Language.Hint(u"GrammarDesk", u"319", u"Up")),
             QKeySequence(Qt::CTRL | Qt::Key_Up), command(&TRuleListPage<TRule>::Up));
  AddCommand(*bar, names, s.standardIcon(QStyle::SP_ArrowDown),
             Q(FHost.Language.Hint(u"GrammarDesk", u"320", u"Down")), QKeySequence(Qt::CTRL | Qt::Key_Down),
             command(&TRuleListPage<TRule>::Down));
  const bool bFolds = std::is_same_v<TRule, TFoldObject>;
  AddCommand(*bar, names, s.standardIcon(QStyle::SP_DialogHelpButton), Q(FHost.Language.Text(u"Menu", u"m07", u"Help")),
             {}, [this, bFolds] { FDocument->OpenHelp(bFolds ? u"?Folding.html" : u"?Block.html", bFolds ? 52 : 51); });
  connect(&names, &QListWidget::currentRowChanged, this, [this, &model, &names, &cells](int row) {
    if (FFilling || row < 0) return;
    model.Select(row);
    ShowRuleList(model, names, cells);
  });
  connect(&cells, &TNameValueGrid::ValueEdited, this, [this, &model, &names](int row, const QString& text) {
    model.EditCell(row, text.toStdU16String());
    if (model.Selected() >= 0) names.item(model.Selected())->setText(Q(model.RowTexts()[size_t(model.Selected())]));
  });
  return bar;
}

template <typename TRule>
void TSynForm::ShowRuleList(TRuleListPage<TRule>& model, QListWidget& list, TNameValueGrid& grid) {
  FFilling = true;
  QStringList rows;
  for (const std::u16string& text : model.RowTexts()) rows << Q(text);
  if (list.count() != rows.size() || [&] {
        for (int i = 0; i < rows.size(); ++i)
          if (list.item(i)->text() != rows[i]) return true;
        return false;
      }()) {
    list.clear();
    list.addItems(rows);
  }
  list.setCurrentRow(model.Selected());
  if (const TRule* rule = model.SelectedRule())
    for (int row = 0; row < grid.rowCount(); ++row) grid.SetValue(row, Q(RuleCellText(*rule, row)));
  else
    grid.ClearValues();
  FFilling = false;
}

template QToolBar* TSynForm::RuleToolBar(TBlockListPage&, QListWidget*&, TNameValueGrid*&);
template QToolBar* TSynForm::RuleToolBar(TFoldListPage&, QListWidget*&, TNameValueGrid*&);

// ---- groups and items -----------------------------------------------------------

QToolBar* TSynForm::GroupToolBar(TGroupPageWidgets& page) {
  auto* bar = new QToolBar;
  bar->setIconSize(QSize(16, 16));
  QListWidget& list = *page.GroupList;
  auto command = [this, &page](void (TGroupPage::*operation)()) {
    return [this, &page, operation] {
      (Model(page).*operation)();
      ShowGroupPage(page);
    };
  };
  const TLanguageTexts& l = FHost.Language;
  QStyle& s = *style();
  AddCommand(*bar, list, GlyphIcon("+"), Q(l.Hint(u"GrammarDesk", u"300", u"Add")), QKeySequence(Qt::Key_Insert),
             command(&TGroupPage::GroupAdd));
  AddCommand(*bar, list, GlyphIcon("\u270E"), Q(l.Hint(u"GrammarDesk", u"301", u"Edit")), QKeySequence(Qt::Key_F2),
             command(&TGroupPage::GroupEdit));
  AddCommand(*bar, list, GlyphIcon("A-Z"), Q(l.Hint(u"GrammarDesk", u"303", u"Sort")), {}, command(&TGroupPage::GroupSort));
  AddCommand(*bar, list, s.standardIcon(QStyle::SP_TrashIcon), Q(l.Hint(u"GrammarDesk", u"302", u"Delete")),
             QKeySequence::Delete, command(&TGroupPage::GroupDelete));
  AddCommand(*bar, list, s.standardIcon(QStyle::SP_ArrowUp), Q(l.Hint(u"GrammarDesk", u"319", u"Up")),
             QKeySequence(Qt::CTRL | Qt::Key_Up), command(&TGroupPage::GroupUp));
  AddCommand(*bar, list, s.standardIcon(QStyle::SP_ArrowDown), Q(l.Hint(u"GrammarDesk", u"320", u"Down")),
             QKeySequence(Qt::CTRL | Qt::Key_Down), command(&TGroupPage::GroupDown));
  connect(&list, &QListWidget::currentRowChanged, this, [this, &page](int row) {
    if (FFilling) return;
    Model(page).SelectGroup(row);
    ShowItems(page);
  });
  connect(&list, &QListWidget::itemDoubleClicked, this, [this, &page] { Run([&] {
            Model(page).GroupEdit();
            ShowGroupPage(page);
          }); });
  return bar;
}

// The commands every item list has come from the model; `own` adds a page's own.
QToolBar* TSynForm::ItemToolBar(QListWidget& list, TItemListPage& model, const TItemCommands& own,
                                std::function<void()> show, QAction** addAction) {
  auto* bar = new QToolBar;
  bar->setIconSize(QSize(16, 16));
  auto command = [this, show](std::function<void()> operation) {
    return [operation, show] {
      operation();
      show();
    };
  };
  auto shared = [&model](void (TItemListPage::*operation)()) { return [&model, operation] { (model.*operation)(); }; };
  const TLanguageTexts& l = FHost.Language;
  QStyle& s = *style();
  QAction* add = AddCommand(*bar, list, GlyphIcon("+"), Q(l.Hint(u"GrammarDesk", u"300", u"Add")),
                            QKeySequence(Qt::Key_Insert), command(own.Add));
  if (addAction) *addAction = add;
  AddCommand(*bar, list, GlyphIcon("\u270E"), Q(l.Hint(u"GrammarDesk", u"301", u"Edit")), QKeySequence(Qt::Key_F2),
             command(own.Edit));
  const bool bImages = model.HasImages();
  AddCommand(*bar, list, GlyphIcon(bImages ? "\u25A3" : "A-Z"),
             Q(bImages ? l.Hint(u"GrammarDesk", u"317", u"Sort by image") : l.Hint(u"GrammarDesk", u"303", u"Sort")), {},
             command(bImages ? shared(&TItemListPage::ItemSortByImage) : shared(&TItemListPage::ItemSortA)));
  if (bImages)
    AddCommand(*bar, list, GlyphIcon("A-Z"), Q(l.Hint(u"GrammarDesk", u"303", u"Sort")), {},
               command(shared(&TItemListPage::ItemSortA)));
  AddCommand(*bar, list, s.standardIcon(QStyle::SP_TrashIcon), Q(l.Hint(u"GrammarDesk", u"302", u"Delete")),
             QKeySequence::Delete, command([&model] { model.ItemDelete(); }));
  AddCommand(*bar, list, s.standardIcon(QStyle::SP_ArrowUp), Q(l.Hint(u"GrammarDesk", u"319", u"Up")),
             QKeySequence(Qt::CTRL | Qt::Key_Up), command(shared(&TItemListPage::ItemUp)));
  AddCommand(*bar, list, s.standardIcon(QStyle::SP_ArrowDown), Q(l.Hint(u"GrammarDesk", u"320", u"Down")),
             QKeySequence(Qt::CTRL | Qt::Key_Down), command(shared(&TItemListPage::ItemDown)));
  if (own.Upper) {
    AddCommand(*bar, list, GlyphIcon("AB"), Q(l.Hint(u"Hints", u"113", u"Uppercase")),
               QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_U), command(own.Upper));
    AddCommand(*bar, list, GlyphIcon("ab"), Q(l.Hint(u"Hints", u"114", u"Lowercase")), QKeySequence(Qt::CTRL | Qt::Key_U),
               command(own.Lower));
    AddCommand(*bar, list, GlyphIcon("Ab"), Q(l.Hint(u"Hints", u"112", u"Capitalize")), {}, command(own.Capitalize));
  }
  AddCommand(*bar, list, GlyphIcon("\u2702"), Q(l.Hint(u"Hints", u"007", u"Cut")), QKeySequence::Cut,
             command(shared(&TItemListPage::ItemCut)));
  AddCommand(*bar, list, CopyIcon(), Q(l.Hint(u"Hints", u"008", u"Copy")), QKeySequence::Copy,
             command(shared(&TItemListPage::ItemCopy)));
  AddCommand(*bar, list, PasteIcon(), Q(l.Hint(u"Hints", u"009", u"Paste")), QKeySequence::Paste, command(own.Paste));
  if (bImages) AddImagesMenu(*bar, model, show);
  connect(&list, &QListWidget::itemSelectionChanged, this, [this, &list, &model] {
    if (!FFilling) model.SelectItems(SelectedRows(list), list.currentRow());
  });
  connect(&list, &QListWidget::itemDoubleClicked, this, [this, edit = command(own.Edit)] { Run(edit); });
  return bar;
}

void TSynForm::AddImagesMenu(QToolBar& bar, TItemListPage& model, std::function<void()> show) {
  auto* images = new QMenu(&bar);
  const auto letters = ImageLetters();
  for (int i = 0; i < int(letters.size()); ++i)
    images->addAction(MenuImage(i), Q(letters[size_t(i)].Caption), this, [this, &model, show, i] {
      Run([&] {
        model.ItemReplaceImages(i);
        show();
      });
    });
  QAction* pick = bar.addAction(MenuImage(1), Q(FHost.Language.Hint(u"GrammarDesk", u"318", u"Images")));
  pick->setMenu(images);
  static_cast<QToolButton*>(bar.widgetForAction(pick))->setPopupMode(QToolButton::InstantPopup);
}

QToolBar* TSynForm::GroupItemToolBar(TGroupPageWidgets& page) {
  TGroupPage& model = Model(page);
  TItemCommands own{[&model] { model.ItemAdd(); }, [&model] { model.ItemEdit(); }, [&model] { model.ItemPaste(); }};
  if (!model.HasImages()) {
    own.Upper = [&model] { model.ItemUppercase(); };
    own.Lower = [&model] { model.ItemLowercase(); };
    own.Capitalize = [&model] { model.ItemCapitalize(); };
  }
  return ItemToolBar(*page.ItemList, model, own, [this, &page] { ShowItems(page); }, &page.ItemAdd);
}

void TSynForm::ShowGroupPage(TGroupPageWidgets& page) {
  FFilling = true;
  QStringList groups;
  for (const std::u16string& group : Model(page).Groups()) groups << Q(group);
  page.GroupList->clear();
  page.GroupList->addItems(groups);
  page.GroupList->setCurrentRow(Model(page).SelectedGroup());
  FFilling = false;
  ShowItems(page);
}

// Word rows show their text; completion rows their image too.
void TSynForm::ShowItems(TGroupPageWidgets& page) {
  ShowItemRows(*page.ItemList, Model(page));
  page.ItemAdd->setEnabled(Model(page).ItemAddEnabled());
}

void TSynForm::ShowItemRows(QListWidget& list, const TItemListPage& model) {
  FFilling = true;
  list.setUpdatesEnabled(false);
  list.clear();
  if (model.HasImages()) {
    for (const TItemRow& row : model.Items())
      list.addItem(new QListWidgetItem(MenuImage(row.Object ? row.Object->nr : 0), Q(row.Text)));
  } else {
    QStringList words;
    words.reserve(qsizetype(model.Items().size()));
    for (const TItemRow& row : model.Items()) words << Q(row.Text);
    list.addItems(words);
  }
  for (int row : model.SelectedItems()) list.item(row)->setSelected(true);
  if (model.ItemIndex() >= 0) list.setCurrentRow(model.ItemIndex(), QItemSelectionModel::NoUpdate);
  list.setUpdatesEnabled(true);
  FFilling = false;
}

} // namespace orl
