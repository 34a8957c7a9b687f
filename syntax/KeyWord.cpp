#include "syntax/KeyWord.h"

#include <algorithm>

namespace orl {

void TKeyWord::SetWords(std::vector<std::u16string> words) {
  // Code-unit order: the same on every machine, and cheap for very long groups.
  std::sort(words.begin(), words.end());
  words.erase(std::unique(words.begin(), words.end()), words.end());
  KeyWords.BeginUpdate();
  KeyWords.Clear();
  KeyWords.SetCaseSensitive(true);
  for (std::u16string& word : words) KeyWords.Add(std::move(word));
  KeyWords.EndUpdate();
}

void TKeyWord::PrepareLookup(bool bCaseSensitive) {
  KeyWords.SetCaseSensitive(bCaseSensitive);
  KeyWords.BuildHashTables();
}

} // namespace orl
