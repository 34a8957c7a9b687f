// The colouring pass: a row cut into runs from a known start state. Runs of
// equal flags that touch are handed out as one, and no run is longer than
// the output takes at once.

#include <algorithm>

#include "syntax/LineTokeniser.h"

namespace orl {

namespace {

using tok::IsBlank;
using tok::SameName;

constexpr int kMaxRunLength = 1024;
constexpr int kBreakLookBack = 20;
constexpr int kMaxKeywordLength = 50;
constexpr int8_t kPlainSymbol = 2;
constexpr int8_t kScriptMark = 3;
constexpr int8_t kSymbolWordsA = 10;

bool IsSpaceLike(char16_t c) { return IsBlank(c) || c == tok::kNoBreakSpace || c == tok::kMiddleDot; }

bool IsWordChar(char16_t c) {
  return (c >= u'0' && c <= u'9') || (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z') || c == u'_' ||
         (c >= 192 && c <= 255) || c > 255;
}

bool IsAlphaNumeric(std::u16string_view s) { return std::ranges::all_of(s, IsWordChar); }

// The run flags: what one run is, as against the state it stands in.
constexpr TStylePropertyFlag kRunFlags[] = {spIsSymbol, spIsHexNumber, spIsKeyword, spIsNumber, spIsTagWord,
                                            spStringOpened, spStringClosed};

} // namespace

class TColourPass {
public:
  TColourPass(TLineTokeniser& owner, const TOrlCustomMemoStyles& styles, const tok::TSetClasses& classes,
              std::u16string_view row, const TStyle& start, ITokenRunSink& sink)
      : Host(owner.FHost), S(styles), C(classes), R(styles, classes, owner.FHost, tok::spassColour, row.size()), L(row),
        W(start), Sink(sink), bHtml(owner.FSlots.FHtml), bXml(owner.FSlots.XML),
        bKeywordCase(owner.FSlots.CaseSensitive) {}

  void Run();

private:
  bool F(TStylePropertyFlag flag) const { return W.Properties.Get(flag); }
  void F(TStylePropertyFlag flag, bool value) { W.Properties.Set(flag, value); }
  bool InString() const { return W.Properties.BracketId >= 0; }
  bool InLiveBlock() const { return W.Block.Id > 0; }
  const TBlock* LiveBlock() const { return InLiveBlock() ? S.FBlocks[size_t(W.Block.Id - 1)].get() : nullptr; }

  /// The state's flags without those of a single run.
  TStyleProperties Base() const;
  /// Hands out the characters from p to `end` (exclusive) and moves p there.
  void EmitTo(int end, const TStyleProperties& props, TTagPart part = tpNone);
  void EmitRun(int end, TStylePropertyFlag flag, int8_t index);
  void Flush();
  void FlushPiece(int start, int length);

  bool TagInside();
  bool CommentStep();
  bool LineCommentStep();
  bool TagWord();
  bool TextBetweenTags();
  /// The marks that open and close script in an ASP or PHP set of its own.
  bool ScriptMark();
  /// Under OnlyHighlightInBlock, a CSS block's declaration (":" to ";") holds no keywords.
  bool InCssDeclaration() const;
  bool HereDoc();
  bool BlockStep();
  bool OpenBlock();
  bool StringStep();
  bool SymbolStep();
  int WordLength() const;
  bool WordCutAt(int q) const;
  bool KeywordStep(int wordLength);
  bool NumberStep();
  void WordRun();

  ITokeniserHost& Host;
  const TOrlCustomMemoStyles& S;
  const tok::TSetClasses& C;
  tok::TScanRules R;
  tok::TLineText L;
  TStyle W;
  ITokenRunSink& Sink;
  bool bHtml, bXml, bKeywordCase;
  bool bScriptMarks = SameName(S.FSyntaxName, u"asp") || SameName(S.FSyntaxName, u"php");
  bool bInDeclaration = false;  // within a CSS block's ":" ... ";"
  int p = 1;
  TTokenRun FPending;  // the run being gathered
};

TStyleProperties TColourPass::Base() const {
  TStyleProperties props = W.Properties;
  for (TStylePropertyFlag flag : kRunFlags) props.Set(flag, false);
  props.Index = -1;
  props.NestedCommentIndex = 0;
  return props;
}

void TColourPass::EmitTo(int end, const TStyleProperties& props, TTagPart part) {
  end = std::min(end, L.Len + 1);
  if (end <= p) return;
  const bool bSame = FPending.Length > 0 && FPending.Start + FPending.Length == p && FPending.Properties == props &&
                     FPending.BlockId == W.Block.Id && FPending.TagPart == part;
  if (!bSame) {
    Flush();
    FPending.Start = p;
    FPending.Properties = props;
    FPending.BlockId = W.Block.Id;
    FPending.TagPart = part;
  }
  FPending.Length += end - p;
  p = end;
}

void TColourPass::EmitRun(int end, TStylePropertyFlag flag, int8_t index) {
  TStyleProperties props = Base();
  props.Set(flag, true);
  props.Index = index;
  EmitTo(end, props);
}

void TColourPass::Flush() {
  int start = FPending.Start, left = FPending.Length;
  while (left > kMaxRunLength) {
    // Cut behind a blank or symbol near the limit, so that a piece ends between words.
    int cut = kMaxRunLength;
    for (int back = 0; back < kBreakLookBack; ++back) {
      const char16_t c = L.At(start + kMaxRunLength - 1 - back);
      if (IsBlank(c) || C.Symbols.Has(c)) {
        cut = kMaxRunLength - back;
        break;
      }
    }
    FlushPiece(start, cut);
    start += cut;
    left -= cut;
  }
  FlushPiece(start, left);
  FPending.Length = 0;
}

void TColourPass::FlushPiece(int start, int length) {
  if (length <= 0) return;
  TTokenRun piece = FPending;
  piece.Start = start;
  piece.Length = length;
  Sink.Run(piece);
}

void TColourPass::Run() {
  F(spLineIsUrl, Host.AllowURLClick() && tok::TScanRules::UrlSchemeAt(L, L.SkipBlanks(1)));
  if (F(spLineIsUrl) || F(spInLineComment)) {
    EmitTo(L.Len + 1, Base());
    Flush();
    return;
  }
  if (W.Block.Id > int(S.FBlocks.size()) || W.Block.Id == 0) W.Block.Id = -1;
  int passesHere = 0, lastPass = 0;
  while (p <= L.Len) {
    if (R.BudgetSpent()) {
      EmitTo(L.Len + 1, Base());
      break;
    }
    // Every recogniser moves p or changes the state; this only guards against a rule that does neither.
    if (p == lastPass && ++passesHere > 8) EmitTo(p + 1, Base());
    if (p != lastPass) passesHere = 0;
    lastPass = p;
    if (IsSpaceLike(L.At(p))) {
      int q = p;
      while (q <= L.Len && IsSpaceLike(L.At(q))) ++q;
      EmitTo(q, Base());
      continue;
    }
    if (TagInside()) continue;
    if (!InString() && R.EscapePairAt(L, p, false)) {
      EmitTo(p + 2, Base());
      continue;
    }
    if (CommentStep() || LineCommentStep()) continue;
    if (bHtml ? (TagWord() || TextBetweenTags()) : ScriptMark()) continue;
    if (HereDoc() || BlockStep()) continue;
    if (bXml && !bHtml && TextBetweenTags()) continue;
    if (!F(spInComment) && StringStep()) continue;
    const bool bMarkup = bHtml && !F(spInScript) && !Host.IsDefault() && !S.FAllowHighlightBetweenTags;
    if (!bMarkup && (SymbolStep() || KeywordStep(WordLength()) || NumberStep())) continue;
    WordRun();
  }
  Flush();
}

bool TColourPass::TagInside() {
  if (!bHtml || !F(spInTag) || F(spIsTagWord) || F(spInScript) || InString()) return false;
  const char16_t c = L.At(p);
  if (c == u'"' || c == u'\'') return false;
  if (c == u'>') {
    EmitTo(p + 1, Base());
    F(spInTag, false);
    return true;
  }
  int q = p + 1;
  while (q <= L.Len && std::u16string_view(u"\"'<>").find(L.At(q)) == std::u16string_view::npos) ++q;
  const bool bValue = p > 1 && L.At(p - 1) == u'=';
  EmitTo(q, Base(), bValue ? tpAttributeValue : tpAttributeName);
  return true;
}

bool TColourPass::CommentStep() {
  if (InString() || (bHtml && F(spInTag)) || W.Block.Id == -2 || !R.CommentsUsable()) return false;
  const int from = p;
  if (!F(spInComment)) {
    if (L.MatchAt(p, S.FCommentStartA, bKeywordCase)) {
      W.Properties.CommentStyle = 1;
      p += int(S.FCommentStartA.size());
    } else if (L.MatchAt(p, S.FCommentStartB, bKeywordCase)) {
      W.Properties.CommentStyle = 2;
      p += int(S.FCommentStartB.size());
    } else {
      return false;
    }
    F(spInComment, true);
    W.Properties.NestedCommentIndex = 1;
  }
  const bool bStyleB = W.Properties.CommentStyle == 2;
  const std::u16string& endMark = bStyleB ? S.FCommentEndB : S.FCommentEndA;
  int end = 0;
  for (int q = p; q <= L.Len && end == 0; ++q) {
    if (!bStyleB && S.FAllowNestedComments && L.MatchAt(q, S.FCommentStartA, bKeywordCase)) {
      int8_t& depth = W.Properties.NestedCommentIndex;
      depth = int8_t(std::min(depth + 1, tok::kMaxCommentNesting));
      q += int(S.FCommentStartA.size()) - 1;
    } else if (L.MatchAt(q, endMark, bKeywordCase) &&
               (bStyleB || !S.FAllowNestedComments || --W.Properties.NestedCommentIndex <= 0)) {
      end = q + int(endMark.size());
    } else if (L.MatchAt(q, endMark, bKeywordCase)) {
      q += int(endMark.size()) - 1;
    }
  }
  p = from;
  EmitTo(end ? end : L.Len + 1, Base());
  if (end) {
    F(spInComment, false);
    W.Properties.CommentStyle = 0;
    W.Properties.NestedCommentIndex = 0;
  }
  return true;
}

bool TColourPass::LineCommentStep() {
  if (F(spInComment) || InString() || W.Block.Id == -2 || (bHtml && !F(spInScript) && !Host.IsDefault())) return false;
  if (R.LineCommentAt(L, p, true) == 0) return false;
  F(spInLineComment, true);
  EmitTo(L.Len + 1, Base());
  return true;
}

bool TColourPass::TagWord() {
  if (F(spInTag) || InString() || F(spInScript) || L.At(p) != u'<') return false;
  const int nameStart = L.At(p + 1) == u'/' ? p + 2 : p + 1;
  int end = nameStart;
  while (end <= L.Len && !IsBlank(L.At(end)) && std::u16string_view(u"/<>").find(L.At(end)) == std::u16string_view::npos)
    ++end;
  if (end == nameStart) return false;
  for (size_t g = 0; g < S.FTags.size(); ++g) {
    // The tables were built at load, so the lookup only reads.
    auto& words = const_cast<THashedStringList&>(S.FTags[g]->KeyWords);
    if (words.PIndexOf(L.S.data() + nameStart - 1, end - nameStart) < 0) continue;
    W.Properties.TagNr = int8_t(g);
    F(spInTag, true);
    EmitRun(end, spIsTagWord, -1);
    return true;
  }
  return false;
}

bool TColourPass::TextBetweenTags() {
  if (Host.IsDefault() || S.FAllowHighlightBetweenTags || L.At(p) == u'<' || F(spInScript) || F(spInTag) ||
      F(spInComment) || InString() || W.Block.Id != -1)
    return false;
  const int tag = R.NextChar(L, p, u'<');
  const int block = S.FBlocks.empty() ? 0 : R.NextBlockStart(L, p);
  int end = tag && block ? std::min(tag, block) : std::max(tag, block);
  if (end == 0) end = R.NextChar(L, p, u'>') ? R.NextChar(L, p, u'>') + 1 : L.Len + 1;
  if (end == p) return false;
  while (p < end) {
    const size_t found = L.S.substr(0, size_t(end - 1)).find(u'&', size_t(p - 1));
    if (found == std::u16string_view::npos) break;
    const int amp = int(found) + 1;
    EmitTo(amp, Base());
    int q = amp + 1;
    while (q < end && !IsBlank(L.At(q)) && L.At(q) != tok::kMiddleDot && L.At(q) != u';') ++q;
    if (L.At(q) == u';' && q < end)
      EmitRun(q + 1, spIsKeyword, 0);
    else
      EmitTo(q, Base());
  }
  EmitTo(end, Base());
  return true;
}

bool TColourPass::HereDoc() {
  if (W.Block.Id == -2) {
    // The end word closes it; the row it stands on belongs to it still.
    const bool bEnds = !W.Block.HereDocString.empty() && L.MatchAt(L.SkipBlanks(1), W.Block.HereDocString);
    EmitTo(L.Len + 1, Base());
    if (bEnds) W.Block.Id = -1;
    return true;
  }
  if (!R.HereDocsIn(W.Properties.ScriptType) || InLiveBlock() || InString() || (bHtml && !F(spInScript)) ||
      !L.MatchAt(p, S.FHereDocSymbol))
    return false;
  W.Block.Id = -2;
  EmitTo(L.Len + 1, Base());
  return true;
}

bool TColourPass::BlockStep() {
  if (S.FBlocks.empty() || F(spInComment)) return false;
  if (OpenBlock()) return true;
  const TBlock* live = LiveBlock();
  if (!live) return false;
  if (live->Stop.empty() || W.Block.Force) {
    int length = 0;
    const int at = live->Stop.empty() ? R.OpenBlockEnd(L, p) : R.FindBlockStop(*live, L, p, length);
    EmitTo(at ? at + length : L.Len + 1, Base());
    if (at) tok::PopBlock(W.Block);
    return true;
  }
  if (R.BlockStopAt(*live, L, p) == 0) return false;
  int length = 0;
  const int at = R.FindBlockStop(*live, L, p, length);  // the last of overlapping ends
  EmitTo(at + length, Base());
  tok::PopBlock(W.Block);
  return true;
}

bool TColourPass::OpenBlock() {
  if (InString() || (bHtml && F(spInTag))) return false;
  const TBlock* live = LiveBlock();
  if (live && (live->ForceColor || !live->HighlightBlocks)) return false;
  int length = 0;
  const int nr = R.BlockStartAt(L, p, length);
  if (nr == 0 || (live && R.BlockStopAt(*live, L, p) > 0)) return false;
  if (p > 1 && !S.FBlockEsc.empty() && !live && L.At(p - 1) == S.FBlockEsc[0]) return false;
  const TBlock& block = *S.FBlocks[size_t(nr - 1)];
  tok::PushBlock(W.Block, int8_t(nr));
  W.Block.Force = block.Stop.empty() || block.ForceColor;
  if (!W.Block.Force) {
    EmitTo(p + length, Base());
    return true;
  }
  // A forced block is one run from its start to its end.
  const int from = p;
  p += length;
  int stopLength = 0;
  const int at = block.Stop.empty() ? R.OpenBlockEnd(L, p) : R.FindBlockStop(block, L, p, stopLength);
  p = from;
  EmitTo(at ? at + stopLength : L.Len + 1, Base());
  if (at) tok::PopBlock(W.Block);
  return true;
}

bool TColourPass::StringStep() {
  if (InString()) {
    const int at = R.FindStringEnd(L, p, R.Delimiter(W.Properties.BracketId), F(spVerbatimString), true);
    EmitTo(at ? at + 1 : L.Len + 1, Base());
    if (at) W.Properties.BracketId = -1;
    return true;
  }
  const TBlock* live = LiveBlock();
  for (int8_t id = 0; id < 2; ++id) {
    const char16_t raw = id == 0 ? S.FCharSymbol : S.FStringSymbol;
    const bool bAllowed = !live || (id == 0 ? live->HighlightChars : live->HighlightStrings);
    // A digit as delimiter only goes on with a string the state brought; it opens none.
    if (!raw || (raw >= u'0' && raw <= u'9') || !bAllowed || L.At(p) != R.Delimiter(id)) continue;
    if (R.IsEscaped(L, p, false)) return false;
    F(spVerbatimString, S.FVerbatimStringStart && L.At(p - 1) == S.FVerbatimStringStart);
    W.Properties.BracketId = id;
    const int at = R.FindStringEnd(L, p + 1, R.Delimiter(id), F(spVerbatimString), true);
    EmitTo(at ? at + 1 : L.Len + 1, Base());
    if (at) W.Properties.BracketId = -1;
    return true;
  }
  return false;
}

bool TColourPass::ScriptMark() {
  if (!bScriptMarks) return false;
  for (std::u16string_view mark : {u"<?php", u"<?=", u"<?", u"<%", u"%>", u"?>"}) {
    if (!L.MatchAt(p, mark)) continue;
    EmitRun(p + int(mark.size()), spIsSymbol, kScriptMark);
    return true;
  }
  return false;
}

bool TColourPass::InCssDeclaration() const {
  const TBlock* live = LiveBlock();
  return S.FOnlyHighlightInBlock && bInDeclaration && live && SameName(live->Name, u"css");
}

bool TColourPass::SymbolStep() {
  const TBlock* live = LiveBlock();
  if ((S.FOnlyHighlightInBlock && !live) || (live && !live->HighlightSymbols)) return false;
  const char16_t c = L.At(p);
  if (!C.Symbols.Has(c)) return false;
  if (S.FOnlyHighlightInBlock && SameName(live->Name, u"css") && (c == u':' || c == u';')) bInDeclaration = c == u':';
  const std::u16string* lists[] = {&S.FSymbolWordsA, &S.FSymbolWordsB, &S.FSymbolWordsC};
  for (int8_t k = 0; k < 3; ++k) {
    const std::u16string& list = *lists[k];
    const size_t firstEnd = list.find(u' ', 1);
    if (list.size() < 3 || firstEnd == std::u16string::npos) continue;
    const int n = int(firstEnd) - 1;
    if (n < 1) continue;  // a list that opens with two blanks has no first word to measure by
    const std::u16string_view word = L.S.substr(size_t(p - 1), size_t(std::max(0, std::min(n, L.Len - p + 1))));
    if (int(word.size()) != n ||
        !std::ranges::all_of(word, [&](char16_t w) { return C.Symbols.Has(w) && !C.NumericChars.Has(w); }))
      continue;
    for (size_t at = list.find(word, 1); at != std::u16string::npos; at = list.find(word, at + 1)) {
      if (list[at - 1] == u' ' && at + word.size() < list.size() && list[at + word.size()] == u' ') {
        EmitRun(p + n, spIsSymbol, int8_t(kSymbolWordsA + k));
        return true;
      }
    }
  }
  if (S.FNumbersAsSymbols && C.NumericChars.Has(c))
    EmitRun(p + 1, spIsNumber, -1);
  else
    EmitRun(p + 1, spIsSymbol, kPlainSymbol);
  return true;
}

bool TColourPass::WordCutAt(int q) const {
  auto unescaped = [&](const std::u16string& esc) { return esc.empty() || L.At(q - 1) != esc[0]; };
  for (const auto& block : S.FBlocks) {
    if (block->IsRegEx()) continue;
    if ((L.BlockMatchAt(q, block->Start) > 0 || (block->Start == block->Stop && L.BlockMatchAt(q, block->Stop) > 0)) &&
        unescaped(S.FBlockEsc))
      return true;
  }
  const int lineComment = R.LineCommentAt(L, q, true);
  if (lineComment > 0 && !IsAlphaNumeric(L.S.substr(size_t(q - 1), size_t(lineComment)))) return true;
  if ((L.MatchAt(q, S.FCommentStartA) || L.MatchAt(q, S.FCommentStartB)) && unescaped(S.FCommentEsc)) return true;
  const char16_t c = L.At(q);
  const bool bStringDigit = S.FStringSymbol >= u'0' && S.FStringSymbol <= u'9';
  return L.MatchAt(q, S.FEscape) || (S.FStringSymbol && !bStringDigit && c == S.FStringSymbol) ||
         (S.FCharSymbol && c == S.FCharSymbol);
}

int TColourPass::WordLength() const {
  // Past the longest keyword the length no longer matters: stopping there keeps long words linear.
  const int last = std::min(L.Len, p + kMaxKeywordLength);
  int q = p;
  while (q <= last && !IsSpaceLike(L.At(q)) && !C.Symbols.Has(L.At(q))) {
    if (q > p && WordCutAt(q)) break;
    ++q;
  }
  return q - p;
}

bool TColourPass::KeywordStep(int wordLength) {
  const TBlock* live = LiveBlock();
  if (W.Block.Id == -2 || (live && (!live->HighlightKeywords || W.Block.Force)) || InCssDeclaration()) return false;
  for (size_t g = 0; g < S.FKeyWords.size(); ++g) {
    const TKeyWord& group = *S.FKeyWords[g];
    int length = 0;
    if (group.RegEx) {
      length = R.KeywordPatternAt(group, L, p);
    } else if (wordLength >= 1 && wordLength <= kMaxKeywordLength) {
      // The tables were built at load, so the lookup only reads.
      auto& words = const_cast<THashedStringList&>(group.KeyWords);
      if (words.PIndexOf(L.S.data() + p - 1, wordLength) >= 0) length = wordLength;
    }
    if (length > 0) {
      EmitRun(p + length, spIsKeyword, int8_t(g));
      return true;
    }
  }
  return false;
}

bool TColourPass::NumberStep() {
  const TBlock* live = LiveBlock();
  if (W.Block.Id == -2 || (live && !live->HighlightNumbers)) return false;
  const char16_t sep = S.FDigitSeparator.empty() ? 0 : S.FDigitSeparator[0];
  const char16_t first = L.At(p);
  if ((sep && first == sep) || !C.NumberStart.Has(tok::UpperAscii(first))) return false;
  // The token ends at a blank, a bracket, a quote, an operator or a "-" behind its start.
  auto endsToken = [&](int q) {
    const char16_t c = L.At(q);
    return IsSpaceLike(c) || std::u16string_view(u"()[]{}\"=+*/<>").find(c) != std::u16string_view::npos ||
           (c == u'-' && q > p);
  };
  const bool bHex = !C.FtmpNoHex.empty() && L.MatchAtNoCase(p, C.FtmpNoHex);
  const tok::TCharSet& allowed = bHex ? C.HexChars : C.DecimalChars;
  int q = bHex ? p + int(C.FtmpNoHex.size()) : p;
  while (q <= L.Len && !endsToken(q) &&
         (allowed.Has(L.At(q)) || allowed.Has(tok::UpperAscii(L.At(q))) || L.At(q) == u'-'))
    ++q;
  if (q == p || (q == p + 1 && std::u16string_view(u"*+,-./").find(first) != std::u16string_view::npos)) return false;
  if (bHex) {
    if (q == p + int(C.FtmpNoHex.size()) || (q <= L.Len && !C.IsSymbolBoundary(L.At(q)))) return false;
    EmitRun(q, spIsHexNumber, -1);
    return true;
  }
  if (q - 1 > p && sep && L.At(q - 1) == sep) --q;
  if (q - 1 > p && (L.At(q - 1) == u'e' || L.At(q - 1) == u'E')) --q;
  EmitRun(q, spIsNumber, -1);
  return true;
}

void TColourPass::WordRun() {
  const TBlock* live = LiveBlock();
  const bool bWide = L.At(p) > 255;
  int q = p;
  while (q <= L.Len) {
    const char16_t c = L.At(q);
    if (!(bWide ? (c > 255 || (c >= u'0' && c <= u'9')) : IsWordChar(c))) break;
    if (live && q > p && R.BlockStopAt(*live, L, q) > 0) break;
    ++q;
  }
  EmitTo(q > p ? q : p + 1, Base());
}

void TLineTokeniser::DrawSegments(std::u16string_view row, const TStyle& style, ITokenRunSink& sink) {
  if (row.empty()) return;
  const TOrlCustomMemoStyles* styles = UsableStyles(false);
  if (!styles) {
    TTokenRun whole;
    whole.Length = int(row.size());
    sink.Run(whole);
    return;
  }
  TColourPass pass(*this, *styles, ClassesFor(*styles, false), row, style, sink);
  pass.Run();
}

void TLineTokeniser::DrawSegments(int LineNo, ITokenRunSink& sink) {
  if (LineNo < 0 || LineNo >= FLines.Count()) return;
  const TStyle start = GetUpStyle(LineNo - 1, false);
  DrawSegments(FLines.GetLineString(LineNo), start, sink);
}

void TLineTokeniser::ColourLine(int LineNo, TStyle& state, TTokenRunList& runs, bool bCheckFolding) {
  runs.Clear();
  DrawSegments(FLines.GetLineString(LineNo), state, runs);
  GetUpLineStyle(LineNo, 0, -1, state, bCheckFolding);
}

} // namespace orl
