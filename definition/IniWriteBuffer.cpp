#include "definition/IniWriteBuffer.h"

#include "definition/IniLines.h"
#include "platform/CharCase.h"

namespace orl {

TIniWriteBuffer::TSection& TIniWriteBuffer::SectionOf(std::u16string_view name) {
  FSectionNames.SetCaseSensitive(FStore.CaseSensitive());
  if (const int at = FSectionNames.IndexOf(name); at >= 0) return *FSections[size_t(at)];
  FSectionNames.Add(std::u16string(name));
  return *FSections.emplace_back(std::make_unique<TSection>());
}

std::u16string TIniWriteBuffer::Folded(std::u16string_view name) const {
  std::u16string folded(name);
  if (!FStore.CaseSensitive())
    for (char16_t& c : folded) c = AsciiLowerChar(c);
  return folded;
}

// The store's own tables hash keys such as `123_Start` poorly, so the names
// are looked up in a table of their own. An ident holding `=` never matches a
// name, which has none; its line is then found by the name before that `=`,
// as in the store.
void TIniWriteBuffer::WriteString(std::u16string_view section, std::u16string_view ident, std::u16string_view value) {
  TSection& target = SectionOf(section);
  if (const auto found = target.LastLineOf.find(Folded(ident)); found != target.LastLineOf.end()) {
    target.Lines[found->second] = {std::u16string(ident), std::u16string(value)};
    return;
  }
  target.LastLineOf[Folded(ident.substr(0, NameValueSeparator(ident)))] = target.Lines.size();
  target.Lines.emplace_back(ident, value);
}

// The first line makes the section, as a write would; the others go behind
// it as they stand, since the buffer has already decided what replaces what.
void TIniWriteBuffer::Flush() {
  for (size_t s = 0; s < FSections.size(); ++s) {
    const std::u16string& name = FSectionNames.Strings(int(s));
    const auto& lines = FSections[s]->Lines;  // a section exists from its first write on
    FStore.WriteString(name, lines[0].first, lines[0].second);
    THashedStringList& target = *FStore.SectionLines(name);
    for (size_t i = 1; i < lines.size(); ++i) target.Add(KeyLine(lines[i].first, lines[i].second));
  }
  FSectionNames.Clear();
  FSections.clear();
}

} // namespace orl
