#pragma once
// Writes for a memory store, held back and handed over in one go.
//
// A store that replaces a line in place drops its lookup tables and rebuilds
// them at the next lookup, so a long run of writes that often replace (rule
// keys set after the rule was opened, numbered keys written again after their
// count restarted) costs a rebuild per write. The buffer keeps the store's
// rule, a name already in the section is replaced in place and any other is
// appended, on tables that only ever grow, and hands the finished lines over.
//
// Invariant: FSectionNames line i names FSections[i]; per section, LastLineOf
// maps each name part of Lines, folded by the store's case rule, to the last
// line that has it.

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "definition/OrlIniFiles.h"

namespace orl {

class TIniWriteBuffer {
public:
  /// Names are matched by the case rule of `store`.
  explicit TIniWriteBuffer(TMemIniFile& store) : FStore(store) {}
  TIniWriteBuffer(const TIniWriteBuffer&) = delete;
  TIniWriteBuffer& operator=(const TIniWriteBuffer&) = delete;

  /// What TMemIniFile::WriteString would do, held back.
  void WriteString(std::u16string_view section, std::u16string_view ident, std::u16string_view value);
  /// Adds the sections behind those of the store, in the order of their first
  /// write, and empties the buffer. The store must not hold these sections
  /// yet (a conversion starts from empty stores); it then ends as the writes
  /// would have left it.
  void Flush();

private:
  struct TSection {
    std::vector<std::pair<std::u16string, std::u16string>> Lines;  ///< ident and value
    std::unordered_map<std::u16string, size_t> LastLineOf;
  };
  TSection& SectionOf(std::u16string_view name);
  /// A name as the store compares it: ASCII letters folded unless it is case sensitive.
  std::u16string Folded(std::u16string_view name) const;

  TMemIniFile& FStore;
  THashedStringList FSectionNames;
  std::vector<std::unique_ptr<TSection>> FSections;
};

} // namespace orl
