#include "syntax/TokeniserMatch.h"

#include <algorithm>

namespace orl::tok {

namespace {

bool SameNoCase(char16_t a, char16_t b) { return a == b || UpperAscii(a) == UpperAscii(b); }

int LeadingBlanks(std::u16string_view d) {
  int n = 0;
  while (n < int(d.size()) && d[size_t(n)] == u' ') ++n;
  return n;
}

constexpr std::u16string_view kUrlSchemes[] = {u"http://", u"mailto:", u"ftp://", u"https://", u"file://"};

// Characters a block without Stop keeps when FEndOpenBlockAt is empty.
bool IsOpenBlockChar(char16_t c) {
  return (c >= u'0' && c <= u'9') || (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z') || c == u'_' ||
         c == u'#' || c == u'$' || c == u'%' || c == u'&';
}

} // namespace

void TCharSet::Add(std::u16string_view chars) {
  for (char16_t c : chars) {
    if (c < 256)
      FLow.set(c);
    else if (FHigh.find(c) == std::u16string::npos)
      FHigh.push_back(c);
  }
}

bool TLineText::MatchAt(int p, std::u16string_view d) const {
  return !d.empty() && p >= 1 && p - 1 + int(d.size()) <= Len && S.substr(size_t(p - 1), d.size()) == d;
}

bool TLineText::MatchAtNoCase(int p, std::u16string_view d) const {
  if (d.empty() || p < 1 || p - 1 + int(d.size()) > Len) return false;
  for (size_t i = 0; i < d.size(); ++i)
    if (!SameNoCase(S[size_t(p - 1) + i], d[i])) return false;
  return true;
}

int TLineText::Find(int p, std::u16string_view d) const {
  if (d.empty() || p > Len) return 0;
  const size_t at = S.find(d, size_t(std::max(p, 1) - 1));
  return at == std::u16string_view::npos ? 0 : int(at) + 1;
}

int TLineText::FindNoCase(int p, std::u16string_view d) const {
  for (int q = std::max(p, 1); q + int(d.size()) - 1 <= Len; ++q)
    if (MatchAtNoCase(q, d)) return q;
  return 0;
}

int TLineText::SkipBlanks(int p) const {
  while (p <= Len && IsBlank(At(p))) ++p;
  return p;
}

bool TLineText::OnlyBlanksBefore(int p, bool bMiddleDot) const {
  for (int q = 1; q < p; ++q)
    if (!IsBlank(At(q)) && !(bMiddleDot && At(q) == kMiddleDot)) return false;
  return true;
}

int TLineText::BlockMatchAt(int p, std::u16string_view d) const {
  const int blanks = LeadingBlanks(d);
  if (p - blanks < 1) return 0;
  for (int q = p - blanks; q < p; ++q)
    if (At(q) != u' ') return 0;
  const std::u16string_view rest = d.substr(size_t(blanks));
  return MatchAt(p, rest) ? int(rest.size()) : 0;
}

int TLineText::BlockFind(int p, std::u16string_view d, int& length) const {
  const std::u16string_view rest = d.substr(size_t(LeadingBlanks(d)));
  for (int q = Find(p, rest); q > 0; q = Find(q + 1, rest)) {
    if ((length = BlockMatchAt(q, d)) > 0) return q;
  }
  length = 0;
  return 0;
}

void TSetClasses::Refresh(const TOrlCustomMemoStyles& styles) {
  For = &styles;
  FtmpNoStart.clear();
  for (char16_t c : styles.FNumericChars + styles.FHexIdentifier) FtmpNoStart.push_back(UpperAscii(c));
  FtmpNo.clear();
  for (char16_t c : styles.FNumericChars) FtmpNo.push_back(UpperAscii(c));
  FtmpNo.push_back(u'E');
  FtmpNoHex.clear();
  for (char16_t c : styles.FHexIdentifier) FtmpNoHex.push_back(UpperAscii(c));
  FTempdelimiters = styles.FSymbols;
  NumberStart = TCharSet(FtmpNoStart + u".-");
  DecimalChars = TCharSet(FtmpNo + u"." + styles.FDigitSeparator + u"_");
  HexChars = TCharSet(FtmpNo + u"ABCDEFabcdef_");
  Symbols = TCharSet(FTempdelimiters);
  NumericChars = TCharSet(styles.FNumericChars);
}

char16_t TScanRules::Delimiter(int id) const {
  if (id == 0) return Styles.FCharSymbol;
  return Styles.FStringSymbol == u'1' ? u'"' : Styles.FStringSymbol;
}

bool TScanRules::IsEscaped(const TLineText& line, int p, bool bStringOpen) const {
  if (Styles.FEscape.empty() || (!bStringOpen && !Styles.FAllowEscapeOutsideString)) return false;
  int count = 0;
  for (int q = p - 1; q >= 1 && line.At(q) == Styles.FEscape[0]; --q) ++count;
  return count % 2 == 1;
}

int TScanRules::FindStringEnd(const TLineText& line, int p, char16_t d, bool bVerbatim, bool bStringOpen) const {
  for (int q = std::max(p, 1); q <= line.Len; ++q) {
    if (line.At(q) == d && (bVerbatim || !IsEscaped(line, q, bStringOpen))) return q;
  }
  return 0;
}

bool TScanRules::EscapePairAt(const TLineText& line, int p, bool bInString) const {
  if (Styles.FEscape.empty() || p >= line.Len) return false;
  if (!bInString && !Styles.FAllowEscapeOutsideString) return false;
  const char16_t esc = Styles.FEscape[0];
  if (line.At(p) != esc) return false;
  const char16_t next = line.At(p + 1);
  return next == esc || (next && (next == Styles.FCharSymbol || next == Delimiter(1) || next == u'/'));
}

bool TScanRules::CommentsUsable() const {
  return !Styles.FCommentStartA.empty() && !Styles.FCommentEndA.empty() &&
         Styles.FCommentStartB.empty() == Styles.FCommentEndB.empty();
}

int TScanRules::LineCommentAt(const TLineText& line, int p, bool bCase) const {
  auto tryList = [&](std::u16string_view list, int firstChar) {
    if (firstChar == 2 && p != 1) return 0;
    if (firstChar == 1 && !line.OnlyBlanksBefore(p, true)) return 0;
    for (size_t from = 0; from <= list.size();) {
      const size_t bar = std::min(list.find(u'|', from), list.size());
      const std::u16string_view alt = list.substr(from, bar - from);
      if (line.MatchAt(p, alt, bCase)) return int(alt.size());
      from = bar + 1;
    }
    return 0;
  };
  const int a = tryList(Styles.FLineCommentA, Styles.FOnlyLineCommentIfFirstChar);
  return a ? a : tryList(Styles.FLineCommentB, Styles.FOnlyLineCommentIfFirstCharB);
}

void TScanRules::Report(TRegexStep step, const std::u16string& message) const {
  static constexpr std::u16string_view kStateTags[] = {
      u"GetUpStyleFromThread.FindBlockRegEx() - ", u"GetUpStyleFromThread.FindBlockRegEx() 2 - ",
      u"GetUpStyleFromThread.IsBlockRegEx() - ",   u"GetUpStyleFromThread.IsBlockRegEx() 2 - ",
      u"GetUpStyleFromThread.DrawKeyword() - "};
  static constexpr std::u16string_view kColourTags[] = {
      u"DrawSegments.FindBlockRegEx() - ", u"DrawSegments.FindBlockRegEx() - ",
      u"DrawSegments.IsBlockRegEx() 1 - ", u"DrawSegments.IsBlockRegEx() 2 - ",
      u"DrawSegments.DrawKeyword() 2 - "};
  const std::u16string_view tag = Pass == spassState ? kStateTags[step] : kColourTags[step];
  Host.DebugWrite(std::u16string(tag) + message, true);
}

int TScanRules::PatternAt(const TRegexPattern* pattern, const TLineText& line, int p, TRegexStep step) const {
  // A line no longer than the expression's text is taken not to match.
  if (!pattern || p < 1 || p > line.Len || line.Len <= int(pattern->Source().size())) return 0;
  const TRegexMatch m = pattern->MatchAt(line.S, size_t(p - 1), line.S.size());
  if (m.Status == TRegexStatus::rsError) Report(step, m.Error);
  return m.Found() ? int(m.Length) : 0;
}

int TScanRules::PatternFind(const TRegexPattern* pattern, const TLineText& line, int p, int& length,
                            TRegexStep step) const {
  length = 0;
  if (!pattern || p < 1 || p > line.Len) return 0;
  const TRegexMatch m = pattern->Find(line.S, size_t(p - 1), line.S.size());
  if (m.Status == TRegexStatus::rsError) Report(step, m.Error);
  if (!m.Found()) return 0;
  length = int(m.Length);
  return int(m.Start) + 1;
}

bool TScanRules::BlockStartPasses(const TBlock& block, const TLineText& line, int p) const {
  if (p <= 1) return true;
  if (block.FirstOnLine) return false;
  if (block.OnlyAfter.empty()) return true;
  int q = p - 1;
  while (q >= 1 && IsBlank(line.At(q))) --q;
  return q >= 1 && block.OnlyAfter.find(line.At(q)) != std::u16string::npos;
}

int TScanRules::BlockStartAt(const TLineText& line, int p, int& length) const {
  for (size_t i = 0; i < Styles.FBlocks.size(); ++i) {
    const TBlock& block = *Styles.FBlocks[i];
    length = block.IsRegEx() ? PatternAt(block.StartPattern.get(), line, p, rxStart) : line.BlockMatchAt(p, block.Start);
    if (length > 0 && BlockStartPasses(block, line, p)) return int(i) + 1;
  }
  length = 0;
  return 0;
}

int TScanRules::BlockStopAt(const TBlock& block, const TLineText& line, int p) const {
  if (block.Stop.empty()) return 0;
  return block.IsRegEx() ? PatternAt(block.StopPattern.get(), line, p, rxStop) : line.BlockMatchAt(p, block.Stop);
}

int TScanRules::FindBlockStop(const TBlock& block, const TLineText& line, int p, int& length) const {
  if (FNextStop.Covers(p, &block)) {
    length = FNextStop.Length;
    return FNextStop.At;
  }
  const int at = SearchBlockStop(block, line, p, length);
  FNextStop = {std::max(p, 1), at, length, &block};
  return at;
}

int TScanRules::SearchBlockStop(const TBlock& block, const TLineText& line, int p, int& length) const {
  length = 0;
  if (block.Stop.empty()) return 0;
  if (block.IsRegEx()) return PatternFind(block.StopPattern.get(), line, p, length, rxFindStop);
  int at = line.BlockFind(p, block.Stop, length);
  // Of overlapping ends the last counts: "]]" on "]]]" ends behind the third.
  while (at > 0 && length > 1 && line.BlockMatchAt(at + 1, block.Stop) == length) ++at;
  return at;
}

int TScanRules::NextBlockStart(const TLineText& line, int p) const {
  int nearest = 0;
  for (size_t i = 0; i < Styles.FBlocks.size(); ++i) {
    const TBlock& block = *Styles.FBlocks[i];
    TFound* known = i < kRememberedBlocks ? &FNextStarts[i] : nullptr;
    int at = 0;
    if (known && known->Covers(p, &block)) {
      at = known->At;
    } else {
      int length = 0;
      at = block.IsRegEx() ? PatternFind(block.StartPattern.get(), line, p, length, rxNextStart)
                           : line.BlockFind(p, block.Start, length);
      if (length == 0) at = 0;
      if (known) *known = {std::max(p, 1), at, length, &block};
    }
    if (at > 0 && (nearest == 0 || at < nearest)) nearest = at;
  }
  return nearest;
}

int TScanRules::OpenBlockEnd(const TLineText& line, int p) const {
  const std::u16string& endAt = Styles.FEndOpenBlockAt;
  int q = p;
  for (; q <= line.Len; ++q) {
    const char16_t c = line.At(q);
    if (endAt.empty() ? !IsOpenBlockChar(c) : (IsBlank(c) || endAt.find(c) != std::u16string::npos)) break;
  }
  return q;
}

bool TScanRules::UrlSchemeAt(const TLineText& line, int p) {
  return std::ranges::any_of(kUrlSchemes, [&](std::u16string_view s) { return line.MatchAt(p, s); });
}

int TScanRules::KeywordPatternAt(const TKeyWord& group, const TLineText& line, int p) const {
  if (!group.Pattern || p < 1 || p > line.Len) return 0;
  const TRegexMatch m = group.Pattern->MatchAt(line.S, size_t(p - 1), line.S.size());
  if (m.Status == TRegexStatus::rsError) Report(rxKeyword, m.Error);
  return m.Found() ? int(m.Length) : 0;
}

} // namespace orl::tok
