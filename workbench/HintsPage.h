#pragma once
// The hints page: one row a hint, `key=first¦second`, and its two fields in a
// one-line box and a multi-line box, which of them holds the identifier
// depending on the hint's type. Headless; the form shows it.

#include <set>
#include <string>
#include <vector>

namespace orl {

class TSynDocument;

/// The declaration of a pasted signature turned round: `int foo(int a);`
/// becomes `foo(int a): int`. Text without a return type stays as it is.
/// `bAnyParenthesis` lets a `(` at the very start count (the multi-line box).
std::u16string CleanUpSignature(std::u16string_view text, bool bAnyParenthesis);

class THintsPage {
public:
  explicit THintsPage(TSynDocument& document);

  const std::vector<std::u16string>& Rows() const;
  const std::set<int>& Selected() const { return FSelected; }
  int ItemIndex() const { return FItemIndex; }
  /// 0, 1 or 2: hint type 1, 2 or 3.
  int TypeIndex() const { return FTypeIndex; }
  const std::u16string& EditText() const { return FEditText; }
  /// The multi-line box, with real line breaks.
  const std::u16string& MemoText() const { return FMemoText; }
  const std::u16string& LabelId() const { return FLabelId; }
  const std::u16string& LabelDesc() const { return FLabelDesc; }

  /// After a load: the type follows the first row, the boxes are empty.
  void Reload();
  /// Selects rows; the row at `current` fills the boxes.
  void Select(const std::set<int>& rows, int current);
  /// A type chosen by the user rebuilds the current row; one set by code does not.
  void SetType(int index, bool bFromUser);
  void SetEditText(std::u16string text);
  void SetMemoText(std::u16string text);
  /// A paste into the box of the identifier cleans up the signature.
  void PasteIntoEdit(std::u16string text);
  void PasteIntoMemo(std::u16string text);

  void New();
  void Delete();
  void Sort();
  void ConvertToType1();
  void ConvertToType2();
  void ConvertToType3();

private:
  std::vector<std::u16string>& RowsOf();
  void ShowRow(int row);
  void RebuildCurrentRow();
  void Convert(int sourceType, int targetType);
  void UpdateLabels();

  TSynDocument& FDocument;
  std::set<int> FSelected;
  int FItemIndex = -1;
  int FTypeIndex = 1;
  std::u16string FEditText;
  std::u16string FMemoText;
  std::u16string FLabelId;
  std::u16string FLabelDesc;
};

} // namespace orl
