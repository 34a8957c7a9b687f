#pragma once
// The stores that read the host editor's files: its settings and the version
// lists (TMemIniFileUTF16), its language file (TMemIniFileW), and a
// definition's companion file read straight from disk (TIniFileW).
//
// TMemIniFileUTF16 looks like the definition store but behaves otherwise on
// purpose: it trims names and values, an empty value reads as missing, files
// without a byte-order mark are UTF-16LE, section names come back sorted,
// case is folded over all of Unicode, and a lock guards it.

#include <filesystem>
#include <functional>
#include <memory>
#include <mutex>
#include <string>

#include "definition/OrlIniFiles.h"
#include "definition/UnicodeStrList.h"
#include "platform/FileIO.h"

namespace orl {

class TMemIniFileUTF16 : public TObject {
public:
  /// Loads `fileName`; an empty name or a missing file gives an empty store.
  explicit TMemIniFileUTF16(std::filesystem::path fileName = {});
  ~TMemIniFileUTF16() override;
  TMemIniFileUTF16(const TMemIniFileUTF16&) = delete;
  TMemIniFileUTF16& operator=(const TMemIniFileUTF16&) = delete;

  const std::filesystem::path& FileName() const { return FFileName; }
  bool CaseSensitive() const { return FSections.CaseSensitive(); }
  void SetCaseSensitive(bool value);
  /// Called after a change; not under the lock.
  std::function<void(TMemIniFileUTF16&)> OnChange;

  void Clear();
  void DeleteKey(std::u16string_view section, std::u16string_view ident);
  void EraseSection(std::u16string_view section);
  void GetStrings(TStringList& list);
  void SetStrings(const TStringList& list);
  /// The value, or `def` when the key is missing or its value empty.
  std::u16string ReadString(std::u16string_view section, std::u16string_view ident, std::u16string_view def);
  /// ReadString into `value`; always true.
  bool ReadWideString(std::u16string_view section, std::u16string_view ident, std::u16string_view def,
                      std::u16string& value);
  void WriteString(std::u16string_view section, std::u16string_view ident, std::u16string_view value);
  void WriteWideString(std::u16string_view section, std::u16string_view ident, std::u16string_view value) {
    WriteString(section, ident, value);
  }
  virtual int ReadInteger(std::u16string_view section, std::u16string_view ident, int def);
  virtual void WriteInteger(std::u16string_view section, std::u16string_view ident, int value);
  virtual bool ReadBool(std::u16string_view section, std::u16string_view ident, bool def);
  virtual void WriteBool(std::u16string_view section, std::u16string_view ident, bool value);
  virtual double ReadFloat(std::u16string_view section, std::u16string_view ident, double def);
  virtual void WriteFloat(std::u16string_view section, std::u16string_view ident, double value);
  virtual bool ValueExists(std::u16string_view section, std::u16string_view ident);
  TDateTime ReadDateTime(std::u16string_view section, std::u16string_view ident, TDateTime def);
  void WriteDateTime(std::u16string_view section, std::u16string_view ident, TDateTime value);
  /// Names of the section's lines; a store without sections leaves `strings` as it was.
  void ReadSection(std::u16string_view section, TStringList& strings);
  /// All section names, sorted.
  void ReadSections(TStringList& strings);
  void ReadSectionValues(std::u16string_view section, TStringList& strings);
  void Rename(std::filesystem::path fileName, bool bReload);
  void RenameSection(std::u16string_view oldName, std::u16string_view newName);
  /// True when the section is listed, also when it has no lines.
  bool SectionExists(std::u16string_view section);
  /// Writes UTF-16LE with a byte-order mark through a temporary file.
  void UpdateFile();
  /// What UpdateFile writes, for a caller that writes it together with other files.
  TFileImage FileImage();

private:
  TWideHashedStringList* SectionLines(std::u16string_view section);
  TWideHashedStringList* AddSection(std::u16string name);
  void LoadValues();
  void ClearSections();
  void Notify();

  std::filesystem::path FFileName;
  TWideHashedStringList FSections;  // section names; each object the section's own list, owned
  std::recursive_mutex FLock;
};

/// The language file: loaded once, names and values trimmed, case ignored.
class TMemIniFileW {
public:
  /// Decodes by byte-order mark, else in the ANSI code page; a missing file is empty.
  explicit TMemIniFileW(std::filesystem::path fileName);

  /// The text, or `defValue` and false when the text is empty or missing.
  bool ReadWideString(std::u16string_view key, std::u16string_view valueName, std::u16string_view defValue,
                      std::u16string& value);
  /// ReadWideString, then every `&` removed: texts that serve as tool tips.
  bool ReadWideStringHint(std::u16string_view key, std::u16string_view valueName, std::u16string_view defValue,
                          std::u16string& value);
  void WriteWideString(std::u16string_view key, std::u16string_view valueName, std::u16string_view value);

private:
  std::unique_ptr<TMemIniFile> FStore;
};

/// A file read at every call, with no cache: a definition's companion as the
/// engine reads it. The first of several equal names wins.
class TIniFileW {
public:
  explicit TIniFileW(std::filesystem::path fileName) : FFileName(std::move(fileName)) {}

  virtual ~TIniFileW() = default;
  virtual std::u16string ReadString(std::u16string_view section, std::u16string_view ident, std::u16string_view def);
  /// The same, for values of any length.
  std::u16string ReadLargeString(std::u16string_view section, std::u16string_view ident, std::u16string_view def);
  /// ReadLargeString; an empty result gives `def` and false.
  bool ReadLargeWideString(std::u16string_view section, std::u16string_view ident, std::u16string_view def,
                           std::u16string& value);
  /// Every `name=value` line of the section, in file order.
  virtual void ReadSectionValues(std::u16string_view section, TStringList& strings);

private:
  std::filesystem::path FFileName;
};

} // namespace orl
