#include "MemoScript.h"

#include <charconv>

#include "Console.h"
#include "platform/CodePages.h"

namespace gdtool {
namespace {

/// Appends one code point as UTF-16.
void AppendCodePoint(std::u16string& out, uint32_t cp) {
  if (cp >= 0x10000) {
    cp -= 0x10000;
    out.push_back(char16_t(0xD800 + (cp >> 10)));
    out.push_back(char16_t(0xDC00 + (cp & 0x3FF)));
  } else {
    out.push_back(char16_t(cp));
  }
}

/// Reads the string that starts behind the opening quote at `i`; `i` ends behind the closing one.
std::u16string ReadQuoted(std::string_view line, size_t& i) {
  std::string plain;
  std::u16string out;
  const auto flush = [&] {
    out += orl::Utf8ToUtf16(plain);
    plain.clear();
  };
  for (; i < line.size(); ++i) {
    const char c = line[i];
    if (c == '"') {
      ++i;
      flush();
      return out;
    }
    if (c != '\\') {
      plain.push_back(c);
      continue;
    }
    if (++i >= line.size()) break;
    switch (line[i]) {
      case 'r': plain.push_back('\r'); break;
      case 'n': plain.push_back('\n'); break;
      case 't': plain.push_back('\t'); break;
      case '\\': plain.push_back('\\'); break;
      case '"': plain.push_back('"'); break;
      case 'u': {
        const size_t close = line.find('}', i);
        if (i + 1 >= line.size() || line[i + 1] != '{' || close == std::string_view::npos)
          throw EScriptError("\\u needs the form \\u{XXXX}");
        uint32_t cp = 0;
        const char* first = line.data() + i + 2;
        const char* last = line.data() + close;
        const auto [end, ec] = std::from_chars(first, last, cp, 16);
        if (ec != std::errc() || end != last || first == last || cp > 0x10FFFF)
          throw EScriptError("bad code point in \\u{...}");
        flush();
        AppendCodePoint(out, cp);
        i = close;
        break;
      }
      default: throw EScriptError(std::string("unknown escape \\") + line[i]);
    }
  }
  throw EScriptError("string without its closing quote");
}

} // namespace

std::vector<TScriptWord> SplitScriptLine(std::string_view line) {
  std::vector<TScriptWord> words;
  size_t i = 0;
  while (i < line.size()) {
    const char c = line[i];
    if (c == ' ' || c == '\t' || c == '\r') {
      ++i;
    } else if (c == '#') {
      break;
    } else if (c == '"') {
      ++i;
      words.push_back({ReadQuoted(line, i), true});
    } else {
      const size_t end = line.find_first_of(" \t\r#\"", i);
      const std::string_view word = line.substr(i, end == std::string_view::npos ? std::string_view::npos : end - i);
      words.push_back({orl::Utf8ToUtf16(word), false});
      i += word.size();
    }
  }
  return words;
}

int ScriptNumber(const TScriptWord& word) {
  const std::string text = Out(word.Text);
  int value = 0;
  const auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (word.bQuoted || ec != std::errc() || end != text.data() + text.size())
    throw EScriptError("'" + text + "' is no number");
  return value;
}

} // namespace gdtool
