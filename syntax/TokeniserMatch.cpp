#include "syntax/TokeniserMatch.h"

#include <algorithm>
#include <utility>

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

void PushBlock(TBlockStyle& block, int8_t nr) {
  // Past the limit the interrupted block is forgotten: its end then ends the outer one.
  if (block.Id > 0 && block.Cache.size() < kMaxBlockNesting) block.Cache.push_back(block.Id);
  block.Id = nr;
}

void PopBlock(TBlockStyle& block) {
  block.Force = block.IsLine = false;
  if (block.Cache.empty()) {
    block.Id = -1;
    return;
  }
  block.Id = block.Cache.back();
  block.Cache.pop_back();
}

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

int TLineText::FindLastNoCase(std::u16string_view d) const {
  for (int q = Len - int(d.size()) + 1; q >= 1; --q)
    if (MatchAtNoCase(q, d)) return q;
  return 0;
}

int TLineText::SkipBlanks(int p) const {
  while (p <= Len && IsBlank(At(p))) ++p;
  return p;
}

int TLineText::FirstNonBlank() const {
  if (FFirstNonBlank == 0) FFirstNonBlank = SkipBlanks(1);
  return FFirstNonBlank;
}

bool TLineText::OnlyBlanksBefore(int p) const {
  if (FFirstNonLead == 0) {
    FFirstNonLead = 1;
    while (FFirstNonLead <= Len && (IsBlank(At(FFirstNonLead)) || At(FFirstNonLead) == kMiddleDot)) ++FFirstNonLead;
  }
  return p <= FFirstNonLead;
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

template <typename TSearch>
int TScanRules::Remembered(TFound& memo, uintptr_t key, int p, int& length, TSearch search) const {
  if (!memo.Covers(p, key)) {
    const int at = search(p, length);
    memo = {std::max(p, 1), at, at > 0 ? length : 0, key};
  }
  length = memo.Length;
  return memo.At;
}

TScanRules::TFound& TScanRules::BlockMemo(std::vector<TFound>& memos, size_t index) const {
  if (memos.empty()) memos.resize(Styles.FBlocks.size());
  return memos[index];
}

int TScanRules::NextChar(const TLineText& line, int p, char16_t c) const {
  int length = 0;
  return Remembered(FNextChar[c == u'<' ? 0 : 1], c, p, length, [&](int from, int& len) {
    len = 1;
    return line.Find(from, std::u16string_view(&c, 1));
  });
}

int TScanRules::FindStringEnd(const TLineText& line, int p, char16_t d, bool bVerbatim, bool bStringOpen) const {
  int length = 0;
  const uintptr_t key = (uintptr_t(d) << 2) | (bVerbatim ? 2 : 0) | (bStringOpen ? 1 : 0);
  return Remembered(FStringEnd[bVerbatim ? 1 : 0], key, p, length, [&](int from, int& len) {
    len = 1;
    for (int q = std::max(from, 1); q <= line.Len; ++q)
      if (line.At(q) == d && (bVerbatim || !IsEscaped(line, q, bStringOpen))) return q;
    return 0;
  });
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
    if (firstChar == 1 && !line.OnlyBlanksBefore(p)) return 0;
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

void TScanRules::Check(TRegexStep step, const TRegexMatch& m) const {
  if (m.Status == TRegexStatus::rsError) Report(step, m.Error);
  if (FBudget.Spent() && !std::exchange(bBudgetReported, true))
    Report(step, u"the line's budget of regular-expression steps is spent; its scan ends here");
}

int TScanRules::PatternAt(const TRegexPattern* pattern, const TLineText& line, int p, TRegexStep step) const {
  // A line no longer than the expression's text is taken not to match.
  if (!pattern || p < 1 || p > line.Len || line.Len <= int(pattern->Source().size())) return 0;
  const TRegexMatch m = FBudget.MatchAt(*pattern, line.S, size_t(p - 1), line.S.size());
  Check(step, m);
  return m.Found() ? int(m.Length) : 0;
}

int TScanRules::PatternFind(const TRegexPattern* pattern, const TLineText& line, int p, int& length,
                            TRegexStep step) const {
  length = 0;
  if (!pattern || p < 1 || p > line.Len) return 0;
  const TRegexMatch m = FBudget.Find(*pattern, line.S, size_t(p - 1), line.S.size());
  Check(step, m);
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
  const auto it = std::ranges::find_if(Styles.FBlocks, [&](const auto& b) { return b.get() == &block; });
  return Remembered(BlockMemo(FNextStops, size_t(it - Styles.FBlocks.begin())), uintptr_t(&block), p, length,
                    [&](int from, int& len) { return SearchBlockStop(block, line, from, len); });
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
    const TBlock* block = Styles.FBlocks[i].get();
    int length = 0;
    const int at = Remembered(BlockMemo(FNextStarts, i), uintptr_t(block), p, length, [&](int from, int& len) {
      const int found = block->IsRegEx() ? PatternFind(block->StartPattern.get(), line, from, len, rxNextStart)
                                         : line.BlockFind(from, block->Start, len);
      return len > 0 ? found : 0;
    });
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

bool SameName(std::u16string_view name, std::u16string_view lowerAscii) {
  return name.size() == lowerAscii.size() &&
         std::ranges::equal(name, lowerAscii, [](char16_t a, char16_t b) { return (a | 0x20) == b; });
}

bool TScanRules::HereDocsIn(TScriptType type) const {
  return !Styles.FHereDocSymbol.empty() && (type == scPHP || SameName(Styles.FSyntaxName, u"php"));
}

bool TScanRules::UrlSchemeAt(const TLineText& line, int p) {
  return std::ranges::any_of(kUrlSchemes, [&](std::u16string_view s) { return line.MatchAt(p, s); });
}

int TScanRules::KeywordPatternAt(const TKeyWord& group, const TLineText& line, int p) const {
  if (!group.Pattern || p < 1 || p > line.Len) return 0;
  const TRegexMatch m = FBudget.MatchAt(*group.Pattern, line.S, size_t(p - 1), line.S.size());
  Check(rxKeyword, m);
  return m.Found() ? int(m.Length) : 0;
}

} // namespace orl::tok
