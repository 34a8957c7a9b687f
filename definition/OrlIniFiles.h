#pragma once
// The ordered in-memory ini store in which a definition lives while it is
// edited, with the hashed string list and hash table under it.
//
// Sections and lines keep the order of the file; values keep every character,
// blanks included; a name may occur in several lines and a line may hold no
// `=`. Every read and write after the load acts on memory: the file is touched
// only by the constructor, by Rename with a reload, and by UpdateFile.

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "definition/StringList.h"
#include "platform/FormatSettings.h"
#include "platform/MemoryStream.h"

namespace orl {

/// Chained hash table from text to integer. Adding never replaces: a new
/// item goes to the head of its chain, so the latest added key is found first.
class TStringHash {
public:
  explicit TStringHash(unsigned size);
  void Add(std::u16string key, int value);
  void Clear();
  /// Unlinks the first item of the chain with this key, if any.
  void Remove(std::u16string_view key);
  /// Sets the value of the first match; false when there is none.
  bool Modify(std::u16string_view key, int value);
  /// Value of the first match, -1 when there is none.
  int ValueOf(std::u16string_view key) const;
  /// The same for `len` units at `pKey`, building no string. Without `bCase`
  /// the probe matches a stored (lowered) key in either case.
  int PValueOf(const char16_t* pKey, int len, bool bCase) const;
  unsigned BucketCount() const { return unsigned(FBuckets.size()); }

  /// Rotate-left-by-2-and-xor over the code units.
  static uint32_t HashOf(std::u16string_view key);

private:
  struct TItem {
    int Next;
    std::u16string Key;
    int Value;
  };
  int Find(std::u16string_view key) const;
  int FindInBucket(uint32_t hash, const char16_t* pKey, int len, bool bCase) const;

  std::vector<int> FBuckets;  // index into FItems of each chain's head, -1 for none
  std::vector<TItem> FItems;  // owned chain items; unlinked ones stay until Clear
};

/// A string list whose IndexOf and IndexOfName go through hash tables built
/// lazily at the first lookup after a change. Of several equal lines or names
/// the last one is found.
class THashedStringList : public TStringList {
public:

  int IndexOf(std::u16string_view s) override;
  int IndexOfName(std::u16string_view name) override;
  /// IndexOf for `len` units at `p` without building a string, for the tokeniser.
  int PIndexOf(const char16_t* p, int len);
  void InsertObject(int index, std::u16string s, TObject* object) override;
  /// Builds both tables now, so that later lookups (from any thread) only read.
  void BuildHashTables();

protected:
  void Changed() override;
  /// The hash key of a line or name: as it is, or with case folded away.
  virtual std::u16string KeyOf(std::u16string_view s) const;

private:
  void UpdateValueHash();
  void UpdateNameHash();
  void AddKeys(int index);
  std::unique_ptr<TStringHash> FreshTable(std::unique_ptr<TStringHash> table) const;

  std::unique_ptr<TStringHash> FValueHash;
  std::unique_ptr<TStringHash> FNameHash;
  bool FValueHashValid = false;
  bool FNameHashValid = false;
};

/// Abstract ini file: typed reads and writes over ReadString and WriteString.
class TCustomIniFile : public TObject {
public:
  explicit TCustomIniFile(std::filesystem::path fileName) : FFileName(std::move(fileName)) {}

  /// The file as the system names it: bytes that are no valid text stay as they are.
  const std::filesystem::path& FileName() const { return FFileName; }

  virtual std::u16string ReadString(std::u16string_view section, std::u16string_view ident,
                                    std::u16string_view def) = 0;
  virtual void WriteString(std::u16string_view section, std::u16string_view ident, std::u16string_view value) = 0;
  /// Decimal text, or hexadecimal behind `0x`/`0X`; anything else gives `def`.
  virtual int ReadInteger(std::u16string_view section, std::u16string_view ident, int def);
  virtual void WriteInteger(std::u16string_view section, std::u16string_view ident, int value);
  /// ReadInteger with `def` as 0 or 1, true when non-zero.
  virtual bool ReadBool(std::u16string_view section, std::u16string_view ident, bool def);
  /// "1" or "0".
  virtual void WriteBool(std::u16string_view section, std::u16string_view ident, bool value);
  /// Appends the bytes of a hexadecimal value at the stream's position, keeps
  /// the position and returns the count of bytes.
  virtual int ReadBinaryStream(std::u16string_view section, std::u16string_view name, TMemoryStream& value);
  virtual TDateTime ReadDate(std::u16string_view section, std::u16string_view name, TDateTime def);
  virtual TDateTime ReadDateTime(std::u16string_view section, std::u16string_view name, TDateTime def);
  virtual double ReadFloat(std::u16string_view section, std::u16string_view name, double def);
  virtual TDateTime ReadTime(std::u16string_view section, std::u16string_view name, TDateTime def);
  /// Writes the bytes from the stream's position to its end as hexadecimal text.
  virtual void WriteBinaryStream(std::u16string_view section, std::u16string_view name, TMemoryStream& value);
  virtual void WriteDate(std::u16string_view section, std::u16string_view name, TDateTime value);
  virtual void WriteDateTime(std::u16string_view section, std::u16string_view name, TDateTime value);
  virtual void WriteFloat(std::u16string_view section, std::u16string_view name, double value);
  virtual void WriteTime(std::u16string_view section, std::u16string_view name, TDateTime value);
  virtual void ReadSection(std::u16string_view section, TStringList& strings) = 0;
  virtual void ReadSections(TStringList& strings) = 0;
  /// Names of the sections whose start equals `section`, ignoring case.
  virtual void ReadSections(std::u16string_view section, TStringList& strings);
  virtual void ReadSectionValues(std::u16string_view section, TStringList& strings) = 0;
  virtual void EraseSection(std::u16string_view section) = 0;
  virtual void DeleteKey(std::u16string_view section, std::u16string_view ident) = 0;
  virtual void UpdateFile() = 0;
  /// True when the section has a line of that name, ignoring case.
  virtual bool ValueExists(std::u16string_view section, std::u16string_view ident);
  /// True when the section has at least one line; an empty section counts as absent.
  bool SectionExists(std::u16string_view section);

protected:
  std::filesystem::path FFileName;
};

/// The in-memory ini store of a definition. Always written as UTF-16LE with a
/// byte-order mark and CR LF; comments are never kept.
class TMemIniFile : public TCustomIniFile {
public:
  /// Loads `fileName`; an empty name or a missing file gives an empty store.
  /// Raises EFileError when the file exists but cannot be read.
  explicit TMemIniFile(std::filesystem::path fileName = {});
  ~TMemIniFile() override;

  void Clear();
  bool CaseSensitive() const { return FSections.CaseSensitive(); }
  void SetCaseSensitive(bool value);

  std::u16string ReadString(std::u16string_view section, std::u16string_view ident, std::u16string_view def) override;
  void WriteString(std::u16string_view section, std::u16string_view ident, std::u16string_view value) override;
  void DeleteKey(std::u16string_view section, std::u16string_view ident) override;
  void EraseSection(std::u16string_view section) override;
  void ReadSection(std::u16string_view section, TStringList& strings) override;
  void ReadSectionNames(std::u16string_view section, TStringList& strings, bool bAddToList);
  using TCustomIniFile::ReadSections;
  /// Section names in file order.
  void ReadSections(TStringList& strings) override;
  void ReadSectionValues(std::u16string_view section, TStringList& strings) override;
  bool ValueExists(std::u16string_view section, std::u16string_view ident) override;
  void UpdateFile() override;

  /// The file image: per section `[name]`, its lines, one empty line.
  void GetStrings(TStringList& list) const;
  /// Replaces the whole store from file lines.
  void SetStrings(const TStringList& list);
  /// Takes a new file name; with `bReload` the store is loaded from it.
  void Rename(std::filesystem::path fileName, bool bReload);
  void RenameSection(std::u16string_view oldName, std::u16string_view newName);
  /// Replaces a section by the lines of `list`, moving it to the end; with
  /// `bAddKey` each line gets a running key `1=`, `2=`, ...
  void SetSection(std::u16string_view section, const TStringList& list, bool bAddKey);
  void SortSection(std::u16string_view section);
  void MoveSectionUp(std::u16string_view section, int index);
  void MoveSectionDown(std::u16string_view section, int index);

  /// The lines of a section, null when it is missing. The store keeps ownership.
  THashedStringList* SectionLines(std::u16string_view section);

private:
  THashedStringList* AddSection(std::u16string name);
  void LoadValues();

  THashedStringList FSections;  // section names; each object the section's own list, owned
};

} // namespace orl
