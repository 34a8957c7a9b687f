#include "syntax/StyleScheme.h"

#include <cmath>
#include <optional>

#include "platform/Blanks.h"
#include "platform/CharCase.h"
#include "platform/Collation.h"

namespace orl {
namespace {

constexpr TColor Rgb(int r, int g, int b) { return TColor(r | (g << 8) | (b << 16)); }

// Hue steps of the golden angle keep any number of neighbours apart.
constexpr double kGoldenAngle = 137.508;

TColor HslColor(double hue, double saturation, double lightness) {
  const double c = (1 - std::fabs(2 * lightness - 1)) * saturation;
  const double h = std::fmod(hue, 360.0) / 60.0;
  const double x = c * (1 - std::fabs(std::fmod(h, 2.0) - 1));
  double r = 0, g = 0, b = 0;
  if (h < 1) r = c, g = x;
  else if (h < 2) r = x, g = c;
  else if (h < 3) g = c, b = x;
  else if (h < 4) g = x, b = c;
  else if (h < 5) r = x, b = c;
  else r = c, b = x;
  const double m = lightness - c / 2;
  auto channel = [m](double v) { return int(std::nearbyint((v + m) * 255)); };
  return Rgb(channel(r), channel(g), channel(b));
}

TSchemeStyle Generated(const std::map<int, TSchemeStyle>& chosen, int index, double firstHue, bool bDark,
                       TFontStyles style) {
  if (auto it = chosen.find(index); it != chosen.end()) return it->second;
  // Dark text on a light background and light text on a dark one, both well above contrast 4.5.
  return {HslColor(firstHue + index * kGoldenAngle, 0.75, bDark ? 0.70 : 0.32), clNoColor, style};
}

struct TClassDefault {
  std::u16string_view Name;
  TSchemeStyle Light, Dark;
};

const TClassDefault kClassDefaults[] = {
    {u"Default", {0, Rgb(255, 255, 255), 0}, {Rgb(212, 212, 212), Rgb(30, 30, 30), 0}},
    {u"Selection", {Rgb(255, 255, 255), Rgb(0, 84, 166), 0}, {Rgb(255, 255, 255), Rgb(38, 79, 120), 0}},
    {u"LineHighlight", {clNoColor, Rgb(240, 245, 255), 0}, {clNoColor, Rgb(42, 45, 50), 0}},
    {u"FoldHighlight", {Rgb(200, 200, 200), Rgb(235, 235, 235), 0}, {Rgb(90, 90, 90), Rgb(55, 55, 55), 0}},
    {u"SyncEdit", {0, Rgb(255, 240, 180), 0}, {Rgb(255, 255, 255), Rgb(90, 75, 20), 0}},
    {u"ControlChar", {Rgb(120, 120, 120), clNoColor, 0}, {Rgb(140, 140, 140), clNoColor, 0}},
    {u"Brace", {0, Rgb(200, 230, 200), fsBold}, {Rgb(255, 255, 255), Rgb(60, 90, 60), fsBold}},
    {u"BraceError", {Rgb(200, 0, 0), Rgb(255, 220, 220), fsBold}, {Rgb(255, 110, 110), Rgb(90, 40, 40), fsBold}},
    {u"Tag", {Rgb(128, 0, 0), clNoColor, 0}, {Rgb(86, 156, 214), clNoColor, 0}},
    {u"Comment", {Rgb(0, 128, 0), clNoColor, fsItalic}, {Rgb(106, 153, 85), clNoColor, fsItalic}},
    {u"LineComment", {Rgb(0, 128, 0), clNoColor, fsItalic}, {Rgb(106, 153, 85), clNoColor, fsItalic}},
    {u"Number", {Rgb(9, 134, 88), clNoColor, 0}, {Rgb(181, 206, 168), clNoColor, 0}},
    {u"HexNumber", {Rgb(9, 110, 130), clNoColor, 0}, {Rgb(156, 220, 200), clNoColor, 0}},
    {u"Char", {Rgb(163, 21, 21), clNoColor, 0}, {Rgb(215, 186, 125), clNoColor, 0}},
    {u"String", {Rgb(163, 21, 21), clNoColor, 0}, {Rgb(206, 145, 120), clNoColor, 0}},
    {u"Symbols", {Rgb(60, 60, 60), clNoColor, 0}, {Rgb(200, 200, 200), clNoColor, 0}},
    {u"SymbolWordsA", {Rgb(120, 60, 0), clNoColor, fsBold}, {Rgb(220, 170, 110), clNoColor, fsBold}},
    {u"SymbolWordsB", {Rgb(0, 90, 120), clNoColor, fsBold}, {Rgb(120, 200, 230), clNoColor, fsBold}},
    {u"SymbolWordsC", {Rgb(110, 0, 110), clNoColor, fsBold}, {Rgb(215, 140, 215), clNoColor, fsBold}},
    {u"AttributeName", {Rgb(200, 0, 0), clNoColor, 0}, {Rgb(156, 220, 254), clNoColor, 0}},
    {u"AttributeValue", {Rgb(0, 0, 200), clNoColor, 0}, {Rgb(206, 145, 120), clNoColor, 0}},
    {u"FoldMark", {Rgb(90, 90, 90), Rgb(230, 230, 230), fsBold}, {Rgb(200, 200, 200), Rgb(70, 70, 70), fsBold}},
};

TStyleScheme BuiltInScheme(bool bDark) {
  TStyleScheme scheme;
  scheme.bDark = bDark;
  for (const TClassDefault& entry : kClassDefaults)
    scheme.Classes[std::u16string(entry.Name)] = bDark ? entry.Dark : entry.Light;
  return scheme;
}

std::optional<TColor> ParseColor(std::u16string_view text) {
  if (SameTextFolded(text, u"none")) return clNoColor;
  if (text.size() != 7 || text[0] != u'#') return std::nullopt;
  int rgb = 0;
  for (char16_t c : text.substr(1)) {
    const char16_t lower = AsciiLowerChar(c);
    const int digit = c >= u'0' && c <= u'9' ? c - u'0' : lower >= u'a' && lower <= u'f' ? lower - u'a' + 10 : -1;
    if (digit < 0) return std::nullopt;
    rgb = rgb * 16 + digit;
  }
  return Rgb((rgb >> 16) & 0xFF, (rgb >> 8) & 0xFF, rgb & 0xFF);
}

std::optional<TFontStyles> ParseFontStyle(std::u16string_view text) {
  TFontStyles style = 0;
  for (char16_t c : text) {
    switch (AsciiLowerChar(c)) {
      case u'b': style |= fsBold; break;
      case u'i': style |= fsItalic; break;
      case u'u': style |= fsUnderline; break;
      case u's': style |= fsStrikeOut; break;
      default: return std::nullopt;
    }
  }
  return style;
}

// "text,back,style" over `base`; false when a part did not read (that part keeps the base).
bool ParseSchemeStyle(std::u16string_view value, TSchemeStyle& style) {
  bool bOk = true;
  for (int field = 0; field < 3; ++field) {
    const size_t comma = value.find(u',');
    const std::u16string_view part = TrimBlanks(value.substr(0, comma));
    if (!part.empty()) {
      if (field == 2) {
        const auto fontStyle = ParseFontStyle(part);
        bOk = bOk && fontStyle;
        if (fontStyle) style.Style = *fontStyle;
      } else {
        const auto color = ParseColor(part);
        bOk = bOk && color;
        if (color) (field == 0 ? style.Text : style.Back) = *color;
      }
    }
    if (comma == std::u16string_view::npos) break;
    value.remove_prefix(comma + 1);
  }
  return bOk;
}

std::u16string Number(int n) {
  const std::string text = std::to_string(n);
  return std::u16string(text.begin(), text.end());
}

// Positions from 1 up to the first missing key.
void ReadNumbered(TMemIniFileUTF16& settings, std::u16string_view section, std::u16string_view prefix,
                  std::map<int, TSchemeStyle>& styles, const std::function<void(const std::u16string&)>& report) {
  for (int n = 1;; ++n) {
    const std::u16string key = std::u16string(prefix) + Number(n);
    if (!settings.ValueExists(section, key)) return;
    TSchemeStyle style;
    if (!ParseSchemeStyle(settings.ReadString(section, key, u""), style)) report(key);
    styles[n - 1] = style;
  }
}

void SetCharStyle(TCharStyle& target, const TSchemeStyle& style) { target.Set(style.Text, style.Back, style.Style); }

void ApplyTokenClasses(TOrlCustomMemoStyles& styles, const TStyleScheme& scheme) {
  const std::pair<std::u16string_view, TCharStyle TOrlCustomMemoStyles::*> classes[] = {
      {u"Comment", &TOrlCustomMemoStyles::FCommentStyle},
      {u"LineComment", &TOrlCustomMemoStyles::FLineCommentStyle},
      {u"Number", &TOrlCustomMemoStyles::FNumberStyle},
      {u"HexNumber", &TOrlCustomMemoStyles::FHexNumberStyle},
      {u"Char", &TOrlCustomMemoStyles::FCharStyle},
      {u"String", &TOrlCustomMemoStyles::FStringStyle},
      {u"Symbols", &TOrlCustomMemoStyles::FSymbolsStyle},
      {u"SymbolWordsA", &TOrlCustomMemoStyles::FSymbolWordsAStyle},
      {u"SymbolWordsB", &TOrlCustomMemoStyles::FSymbolWordsBStyle},
      {u"SymbolWordsC", &TOrlCustomMemoStyles::FSymbolWordsCStyle},
      {u"AttributeName", &TOrlCustomMemoStyles::FAttributeName},
      {u"AttributeValue", &TOrlCustomMemoStyles::FAttributeValue},
      {u"FoldMark", &TOrlCustomMemoStyles::FFoldMarkStyle},
  };
  for (const auto& [name, field] : classes) SetCharStyle(styles.*field, scheme.Classes.at(std::u16string(name)));
}

void ApplySchemeColours(TOrlCustomMemoStyles& styles, const TStyleScheme& scheme) {
  auto cls = [&scheme](std::u16string_view name) { return scheme.Classes.at(std::u16string(name)); };
  const TSchemeStyle text = cls(u"Default"), sel = cls(u"Selection"), fold = cls(u"FoldHighlight");
  const TSchemeStyle sync = cls(u"SyncEdit"), control = cls(u"ControlChar"), tag = cls(u"Tag");
  const TSchemeStyle brace = cls(u"Brace"), braceError = cls(u"BraceError");
  styles.FTextColor = text.Text;
  styles.FTextColorBK = styles.FBkColor = text.Back;
  styles.FTextStyle = text.Style;
  styles.FSelColor = sel.Text;
  styles.FSelBkColor = sel.Back;
  styles.FLineHighlightColor = cls(u"LineHighlight").Back;
  styles.FFoldHighlightColor = fold.Text;
  styles.FFoldHighlightColor2 = fold.Back;
  styles.FSyncEditColor = sync.Text;
  styles.FSyncEditBkColor = sync.Back;
  styles.FControlCharColor = control.Text;
  styles.FControlCharColorBk = control.Back;
  styles.FTagColor = tag.Text;
  styles.FTagColorBk = tag.Back;
  styles.FTagStyle = tag.Style;
  styles.FBraceHighlightTextColor = brace.Text;
  styles.FBraceHighlightColor = brace.Back;
  styles.FBraceHighlightStyle = brace.Style;
  styles.FBraceHighlightTextColorE = braceError.Text;
  styles.FBraceHighlightColorE = braceError.Back;
  styles.FBraceHighlightStyleE = braceError.Style;
}

// Groups and blocks share Color, ColorBk and Style.
template <typename TRule, typename TStyleOf>
void ColourRules(std::vector<std::unique_ptr<TRule>>& rules, TStyleOf styleOf) {
  for (size_t i = 0; i < rules.size(); ++i) {
    const TSchemeStyle style = styleOf(int(i));
    rules[i]->Color = style.Text;
    rules[i]->ColorBk = style.Back;
    rules[i]->Style = style.Style;
  }
}

} // namespace

TSchemeStyle TStyleScheme::KeywordStyle(int index) const { return Generated(Keywords, index, 220, bDark, fsBold); }
TSchemeStyle TStyleScheme::TagStyle(int index) const { return Generated(Tags, index, 0, bDark, 0); }
TSchemeStyle TStyleScheme::BlockStyle(int index) const { return Generated(Blocks, index, 100, bDark, 0); }

TStyleScheme LightStyleScheme() { return BuiltInScheme(false); }
TStyleScheme DarkStyleScheme() { return BuiltInScheme(true); }

TStyleScheme ReadStyleScheme(TMemIniFileUTF16& settings, std::u16string_view section,
                             const TDebugWrite& onDebugWrite) {
  auto report = [&](const std::u16string& key) {
    if (onDebugWrite)
      onDebugWrite(u"Colour scheme [" + std::u16string(section) + u"] " + key + u"=" +
                       settings.ReadString(section, key, u"") + u": not a colour value, base kept",
                   true);
  };
  TStyleScheme scheme = BuiltInScheme(SameTextFolded(settings.ReadString(section, u"Base", u""), u"dark"));
  for (auto& [name, style] : scheme.Classes) {
    if (!settings.ValueExists(section, name)) continue;
    if (!ParseSchemeStyle(settings.ReadString(section, name, u""), style)) report(name);
  }
  ReadNumbered(settings, section, u"Keyword", scheme.Keywords, report);
  ReadNumbered(settings, section, u"Tag", scheme.Tags, report);
  ReadNumbered(settings, section, u"Block", scheme.Blocks, report);
  return scheme;
}

void ApplyStyleScheme(TOrlCustomMemoStyles& styles, const TStyleScheme& scheme) {
  ApplyTokenClasses(styles, scheme);
  ApplySchemeColours(styles, scheme);
  ColourRules(styles.FKeyWords, [&scheme](int i) { return scheme.KeywordStyle(i); });
  ColourRules(styles.FTags, [&scheme](int i) { return scheme.TagStyle(i); });
  ColourRules(styles.FBlocks, [&scheme](int i) { return scheme.BlockStyle(i); });
}

} // namespace orl
