#pragma once
// A grid of name and value rows: fixed row names on the left, editable texts
// on the right, some rows with a pick list that also takes typed text. Only
// the user's edits are reported; filling the grid from code is no edit.

#include <QTableWidget>

namespace orl {

class TPickListDelegate;

class TNameValueGrid : public QTableWidget {
  Q_OBJECT
public:
  explicit TNameValueGrid(QWidget* parent = nullptr);

  void SetTitles(const QString& nameTitle, const QString& valueTitle);
  void SetRowNames(const QStringList& names);
  /// Offers `values` in the value cell of `row` (0-based).
  void SetPickList(int row, const QStringList& values);
  /// Sets a value without reporting an edit.
  void SetValue(int row, const QString& value);
  QString Value(int row) const;
  /// Empties every value cell without reporting an edit.
  void ClearValues();
  /// The user typed `text` into `row`, as if the user had typed it (tests, automation).
  void EditValue(int row, const QString& text);

signals:
  void ValueEdited(int row, const QString& text);

private:
  void OnItemChanged(QTableWidgetItem* item);

  TPickListDelegate* FDelegate;
  bool FFilling = false;
};

} // namespace orl
