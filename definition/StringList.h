#pragma once
// The ordered string list that every list argument of the stores is.
//
// Invariant: FItems holds the lines in order; each line may carry one object
// the list does not own. Bad indexes read as an empty line and a null object,
// and changes at a bad index do nothing.

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace orl {

/// Root of the objects a list row may carry.
class TObject {
public:
  virtual ~TObject() = default;
};

class TStringList : public TObject {
public:
  TStringList() = default;
  TStringList(const TStringList&) = delete;
  TStringList& operator=(const TStringList&) = delete;
  ~TStringList() override = default;

  int Count() const { return int(FItems.size()); }
  /// The line at `index`, empty for a bad index.
  const std::u16string& Strings(int index) const;
  TObject* Objects(int index) const;
  void Put(int index, std::u16string s);
  void PutObject(int index, TObject* object);

  int Add(std::u16string s) { return AddObject(std::move(s), nullptr); }
  int AddObject(std::u16string s, TObject* object);
  void Insert(int index, std::u16string s) { InsertObject(index, std::move(s), nullptr); }
  virtual void InsertObject(int index, std::u16string s, TObject* object);
  void Delete(int index);
  void Move(int curIndex, int newIndex);
  void Exchange(int index1, int index2);
  /// Copies lines and objects of `source`.
  void Assign(const TStringList& source);
  void AddStrings(const TStringList& source);
  void Clear();
  /// Orders whole lines in the locale, ignoring case unless the list is case sensitive.
  void Sort();

  virtual int IndexOf(std::u16string_view s);
  virtual int IndexOfName(std::u16string_view name);
  int IndexOfObject(const TObject* object) const;

  /// Text before the first `=`, empty when the line has none.
  std::u16string Names(int index) const;
  /// Text behind the first `=`, empty when the line has none.
  std::u16string ValueFromIndex(int index) const;

  bool CaseSensitive() const { return FCaseSensitive; }
  void SetCaseSensitive(bool value);

  void BeginUpdate() { ++FUpdateCount; }
  void EndUpdate();
  bool Updating() const { return FUpdateCount > 0; }

  /// Lines joined with CR LF, each line ended.
  std::u16string Text() const;
  /// Decodes by byte-order mark, else in `codePageWithoutBom`, and splits at
  /// CR, LF and CR LF. Raises EFileError.
  void LoadFromFile(const std::filesystem::path& path, unsigned codePageWithoutBom);
  /// Writes UTF-16LE with a byte-order mark, each line ended by CR LF, through
  /// a temporary file. Raises EFileError.
  void SaveToFile(const std::filesystem::path& path) const;
  /// The bytes SaveToFile writes: UTF-16LE with a byte-order mark.
  std::string FileImage() const;

protected:
  /// Called after every change of lines, order or case rule.
  virtual void Changed() {}
  /// Equality and order of two lines under the list's case rule.
  int CompareStrings(std::u16string_view a, std::u16string_view b) const;

private:
  struct TItem {
    std::u16string Text;
    TObject* Object = nullptr;
  };
  bool ValidIndex(int index) const { return index >= 0 && index < Count(); }

  std::vector<TItem> FItems;
  bool FCaseSensitive = false;
  int FUpdateCount = 0;
};

/// Position of the first `=` in a line, npos when there is none.
inline size_t NameValueSeparator(std::u16string_view line) { return line.find(u'='); }

} // namespace orl
