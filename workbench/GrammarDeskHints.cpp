// The hints page of the main form: the rows, the two boxes of the current
// hint, its type and the row commands, shown from and sent to THintsPage.

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSplitter>
#include <QVBoxLayout>

#include "widgets/HintRowDelegate.h"
#include "workbench/GrammarDeskMain.h"

namespace orl {
namespace {

QString Q(std::u16string_view s) { return QString::fromUtf16(s.data(), qsizetype(s.size())); }

/// Runs `afterPaste` once a paste into `box` is done.
class TPasteWatcher : public QObject {
public:
  TPasteWatcher(QWidget* box, std::function<void()> afterPaste) : QObject(box), FAfterPaste(std::move(afterPaste)) {
    box->installEventFilter(this);
  }

protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::KeyPress || !static_cast<QKeyEvent*>(event)->matches(QKeySequence::Paste)) return false;
    if (auto* edit = qobject_cast<QLineEdit*>(watched)) edit->paste();
    else if (auto* memo = qobject_cast<QPlainTextEdit*>(watched)) memo->paste();
    FAfterPaste();
    return true;
  }

private:
  std::function<void()> FAfterPaste;
};

} // namespace

QWidget* TSynForm::CreateHintsPage() {
  HintsList = new QListWidget;
  HintsList->setSelectionMode(QAbstractItemView::ExtendedSelection);
  HintsList->setItemDelegate(new THintRowDelegate(HintsList));
  cboHintType = new QComboBox;
  cboHintType->addItems({"1", "2", "3"});
  HintsEdit = new QLineEdit;
  HintsMemo = new QPlainTextEdit;
  FLabelId = new QLabel;
  FLabelDesc = new QLabel;

  auto* buttons = new QHBoxLayout;
  const TLanguageTexts& l = FHost.Language;
  const std::pair<QString, std::function<void()>> commands[] = {
      {Q(l.Text(u"Buttons", u"161", u"New")),
       [this] {
         FDocument->Hints().New();
         HintsEdit->setFocus();  // the user types the new hint's id next
       }},
      {Q(l.GrammarDesk(u"302", u"Del")), [this] { FDocument->Hints().Delete(); }},
      {Q(l.GrammarDesk(u"303", u"Sort")), [this] { FDocument->Hints().Sort(); }},
      {"\u2192 1", [this] { FDocument->Hints().ConvertToType1(); }},
      {"\u2192 2", [this] { FDocument->Hints().ConvertToType2(); }},
      {"\u2192 3", [this] { FDocument->Hints().ConvertToType3(); }}};
  for (const auto& [caption, command] : commands) {
    auto* button = new QPushButton(caption);
    connect(button, &QPushButton::clicked, this, [this, command] {
      Run(command);
      ShowHints();
    });
    buttons->addWidget(button);
    FHintButtons.push_back(button);
  }
  buttons->addStretch(1);

  auto* fields = new QWidget;
  auto* form = new QVBoxLayout(fields);
  form->addLayout(buttons);
  form->addWidget(cboHintType);
  form->addWidget(FLabelId);
  form->addWidget(HintsEdit);
  form->addWidget(FLabelDesc);
  form->addWidget(HintsMemo, 1);
  auto* splitter = new QSplitter(Qt::Vertical);
  splitter->addWidget(HintsList);
  splitter->addWidget(fields);
  splitter->setStretchFactor(0, 3);
  splitter->setStretchFactor(1, 2);
  return splitter;
}

void TSynForm::ConnectHints() {
  THintsPage& hints = FDocument->Hints();
  connect(HintsList, &QListWidget::itemSelectionChanged, this, [this, &hints] {
    if (FFilling) return;
    std::set<int> rows;
    for (const QListWidgetItem* item : HintsList->selectedItems()) rows.insert(HintsList->row(item));
    hints.Select(rows, HintsList->currentRow());
    ShowHintFields();
  });
  connect(cboHintType, &QComboBox::activated, this, [this, &hints](int index) {
    hints.SetType(index, true);
    ShowHints();
  });
  connect(HintsEdit, &QLineEdit::textEdited, this, [this, &hints](const QString& text) {
    hints.SetEditText(text.toStdU16String());
    ShowHintRow();
  });
  connect(HintsMemo, &QPlainTextEdit::textChanged, this, [this, &hints] {
    if (FFilling) return;
    hints.SetMemoText(HintsMemo->toPlainText().toStdU16String());
    ShowHintRow();
  });
  new TPasteWatcher(HintsEdit, [this, &hints] {
    hints.PasteIntoEdit(HintsEdit->text().toStdU16String());
    ShowHints();
  });
  new TPasteWatcher(HintsMemo, [this, &hints] {
    hints.PasteIntoMemo(HintsMemo->toPlainText().toStdU16String());
    ShowHints();
  });
}

void TSynForm::ShowHints() {
  FFilling = true;
  const THintsPage& hints = FDocument->Hints();
  HintsList->setUpdatesEnabled(false);
  HintsList->clear();
  for (const std::u16string& row : hints.Rows()) HintsList->addItem(Q(row));
  for (int row : hints.Selected()) HintsList->item(row)->setSelected(true);
  if (hints.ItemIndex() >= 0) HintsList->setCurrentRow(hints.ItemIndex(), QItemSelectionModel::NoUpdate);
  HintsList->setUpdatesEnabled(true);
  FFilling = false;
  ShowHintFields();
}

void TSynForm::ShowHintFields() {
  FFilling = true;
  const THintsPage& hints = FDocument->Hints();
  cboHintType->setCurrentIndex(hints.TypeIndex());
  FLabelId->setText(Q(hints.LabelId()));
  FLabelDesc->setText(Q(hints.LabelDesc()));
  if (HintsEdit->text() != Q(hints.EditText())) HintsEdit->setText(Q(hints.EditText()));
  if (HintsMemo->toPlainText() != Q(hints.MemoText())) HintsMemo->setPlainText(Q(hints.MemoText()));
  FFilling = false;
}

// Typing changes one row only; the list is not rebuilt under the user's fingers.
void TSynForm::ShowHintRow() {
  const THintsPage& hints = FDocument->Hints();
  if (hints.ItemIndex() >= 0 && hints.ItemIndex() < HintsList->count())
    HintsList->item(hints.ItemIndex())->setText(Q(hints.Rows()[size_t(hints.ItemIndex())]));
}

} // namespace orl
