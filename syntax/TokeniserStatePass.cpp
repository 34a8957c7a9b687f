// The state pass: one line from its start state to its end state. It decides
// comment, string, block and tag state, gives the fold scan, the brace
// collector and the spell checker their positions, and classifies no word.

#include <algorithm>

#include "syntax/LineTokeniser.h"

namespace orl {

namespace {

using tok::IsBlank;

/// What a step of the main loop answers.
enum TStep : uint8_t { stNothing, stContinue, stEndLine };

// A loop pass that ends where it began more often than this moves on by one
// character, so that no combination of rules can hold a scan in place.
constexpr int kMaxPassesAtOnePosition = 8;
// The fold stack is at most 30 deep; the indent command closes at most that many.
constexpr int kMaxIndentCloses = 31;

bool InWordClass(char16_t c) {
  return IsBlank(c) || (c >= u'0' && c <= u'9') || (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z') || c == u'_' ||
         (c >= 192 && c <= 255) || c > 255;
}

// The mark that ends a script island, which a line comment inside it does not pass.
std::u16string_view IslandEndMark(TScriptType type) {
  switch (type) {
    case scASP: return u"%>";
    case scPHP: return u"?>";
    case scJS: return u"</script";
    default: return {};
  }
}

constexpr std::u16string_view kTodoWords[] = {u"TODO", u"NOTE"};

} // namespace

class TStatePass {
public:
  TStatePass(TLineTokeniser& owner, const TOrlCustomMemoStyles& styles, const tok::TSetClasses& classes, int LineNo,
             std::u16string_view text, TTextAttribute* attribute, bool bCheckFolding, bool bCheckSpelling, bool bThread)
      : T(owner), Host(owner.FHost), S(styles), R(styles, classes, owner.FHost, tok::spassState, text.size()), L(text),
        LineNo(LineNo), A(attribute), FA(attribute ? attribute->AsAttribute() : nullptr), bWhole(attribute != nullptr),
        bCheckFolding(bCheckFolding), bCheckSpelling(bCheckSpelling), bThread(bThread), bHtml(owner.FSlots.FHtml),
        bXml(owner.FSlots.XML) {}

  /// Scans the line from `style`; false, with `style` untouched, when the scan gave up.
  bool Run(TStyle& style);

private:
  // Flags of the working state.
  bool F(TStylePropertyFlag flag) const { return W.Properties.Get(flag); }
  void F(TStylePropertyFlag flag, bool value) { W.Properties.Set(flag, value); }
  int8_t& BracketId() { return W.Properties.BracketId; }
  bool InString() const { return W.Properties.BracketId >= 0; }
  bool InHereDoc() const { return W.Block.Id == -2; }
  bool InLiveBlock() const { return W.Block.Id > 0; }
  const TBlock& LiveBlock() const { return *S.FBlocks[size_t(W.Block.Id - 1)]; }

  bool Halted() const { return Host.Closing() || (bThread && Host.HaltBkThread()); }
  /// True once per position for the step that keeps `last`.
  bool NewP(int& last) {
    if (p == last) return false;
    last = p;
    return true;
  }
  void SkipBlanks() { p = L.SkipBlanks(p); }
  void Spell(int x, int len);
  void SpellRest() { Spell(p, L.Len - p + 1); }
  bool Fold(int at, TFoldScanCall call = {});
  void Brace();
  void NoteTodo(int from);
  void NoteTodoAtLineStart();

  void LineStart();
  void LineStartFoldCommands();
  void PrepareAttribute();
  /// The main loop; false when the scan gave up.
  bool Loop();
  void EndOfLine(int8_t startTagNr);

  void NumberJump();
  bool IsMarkupText(bool bBlockTest) const;
  /// Nearest "<" or block start at or behind p; 0 for none.
  int MarkupJumpTarget() const;
  bool TextJump();
  bool EscapeStep();
  TStep CommentStep();
  void OpenComment(int8_t commentStyle, int length);
  TStep CloseComment(int at, int length);
  TStep NestingWalk();
  bool LineCommentStep();
  void TagStep(bool& bClosedTag);
  void WalkTag(bool& bClosedTag);
  bool HereDocStep();
  TStep BlockStep();
  TStep BlockOpen();
  TStep BlockClose();
  TStep StringStep();
  TStep CloseString(int at);
  TStep StringRunsOn();
  void WordSkip();

  TLineTokeniser& T;
  ITokeniserHost& Host;
  const TOrlCustomMemoStyles& S;
  tok::TScanRules R;
  tok::TLineText L;
  int LineNo;
  TTextAttribute* A;   // null on a partial scan, which touches no attribute
  TAttribute* FA;      // null for a plain attribute: no brace or fold data
  bool bWhole, bCheckFolding, bCheckSpelling, bThread, bHtml, bXml;
  bool bNoEndBefore = false;
  TStyle W;  // the working state; written back only when the scan ends normally
  int p = 1;
  int lastRegion = 0, lastBrace = 0, lastComment = 0, lastFold = 0, lastTag = 0, lastBlock = 0, lastString = 0;
  int todoNoneFrom = 0;  // no to-do word stands at or behind this position
};

void TStatePass::Spell(int x, int len) {
  if (bWhole && bCheckSpelling && len > 0) Host.SpellCheck(LineNo, x, len, *A);
}

bool TStatePass::Fold(int at, TFoldScanCall call) {
  if (!bCheckFolding) return false;
  if (!call.bCheckCmdIN && !call.bCheckCmdLF && !call.bCheckCmdEF) call.bNoEndBefore = std::exchange(bNoEndBefore, false);
  return Host.CheckForNodeElement(S, L.S, LineNo, at, W, call);
}

void TStatePass::Brace() {
  if (FA && NewP(lastBrace)) Host.CollectBrace(*FA, L.At(p));
}

void TStatePass::NoteTodo(int from) {
  // Each comment of a line asks; one search to the line's end answers for all later ones.
  if (!bThread || !bWhole || A->TodoItem() || (todoNoneFrom > 0 && from >= todoNoneFrom)) return;
  for (std::u16string_view word : kTodoWords)
    if (L.Find(from, word)) A->SetTodoItem(true);
  if (!A->TodoItem()) todoNoneFrom = from;
}

void TStatePass::NoteTodoAtLineStart() {
  if (!bThread || !bWhole || A->TodoItem()) return;
  const int first = L.FirstNonBlank();
  if (first < p) return;
  for (std::u16string_view word : kTodoWords)
    if (L.MatchAt(first, word)) A->SetTodoItem(true);
}

bool TStatePass::Run(TStyle& style) {
  W = style;
  LineStart();
  if (!Loop()) return false;
  EndOfLine(style.Properties.TagNr);
  style = std::move(W);
  return true;
}

void TStatePass::LineStart() {
  F(spStringOpened, false);
  F(spStringClosed, false);
  W.Set(sfScriptNodeStart, false);
  W.Set(sfScriptNodeEnd, false);
  Host.ResetFoldWordPair();
  if (!F(spInComment)) W.Properties.NestedCommentIndex = 0;
  // A multi-language page selects the set of the state's script island here.
  if (W.Block.Id > int(S.FBlocks.size()) || W.Block.Id == 0) W.Block.Id = -1;
  SkipBlanks();
  if (bWhole) {
    LineStartFoldCommands();
    PrepareAttribute();
  }
  F(spLineIsUrl, Host.AllowURLClick() && R.UrlSchemeAt(L, p));
}

void TStatePass::LineStartFoldCommands() {
  if (!Host.RegionNodes() || !bCheckFolding) return;
  if (S.FAllowCmdLF && p > L.Len) {
    Fold(p, {.bCheckCmdLF = true});
  } else if (S.FAllowCmdIN && p <= L.Len) {
    int closed = 0;
    while (closed < kMaxIndentCloses && Fold(p, {.bCheckCmdIN = true})) ++closed;
    bNoEndBefore = closed > 0;
  }
}

void TStatePass::PrepareAttribute() {
  if (bThread) A->SetTodoItem(false);
  T.UrlCheckRow(LineNo, L.S, *A, bThread);
  if (bCheckSpelling) A->SpellList.Clear();
  if (FA) {
    if (FA->TempNodeLevel < 1) {
      FA->SetTempNodeHead(false);
      FA->SetTempNodeBegin(false);
      FA->SetTempNodeEnd(false);
      FA->SetTempNodeEndBefore(false);
      FA->SetTempNodeClosed(false);
      FA->TempNodeLevel = -1;
    }
    if (FA->TempRgn_Level < 1) {
      FA->SetTempRgn_Begin(false);
      FA->SetTempRgn_End(false);
      FA->SetTempRgn_Closed(false);
      FA->TempRgn_Level = -1;
    }
    FA->Braces1.Clear();
    FA->Braces2.Clear();
    FA->Braces3.Clear();
  }
  if (p <= L.Len) Fold(p);
}

bool TStatePass::Loop() {
  int passesHere = 0, lastPass = 0;
  while (true) {
    if (Halted()) return false;
    if (R.BudgetSpent()) break;
    if (p != lastPass) {
      lastPass = p;
      passesHere = 0;
    } else if (++passesHere > kMaxPassesAtOnePosition) {
      ++p;
    }
    SkipBlanks();
    F(spStringOpened, false);
    F(spStringClosed, false);
    if (p > L.Len) break;
    NumberJump();
    if (TextJump()) continue;
    if (!S.FRgn_CommentStart.empty() && Host.RegionNodes() && NewP(lastRegion) && Fold(p)) break;
    if (!F(spInComment) && !InString()) Brace();
    if (EscapeStep()) continue;
    if (NewP(lastComment)) {
      const TStep step = CommentStep();
      if (step == stContinue) continue;
      if (step == stEndLine) break;
    }
    if (bHtml && F(spInComment) && F(spInScript)) F(spInComment, false);
    if (LineCommentStep()) break;
    if (Host.RegionNodes() && S.FRgn_CommentStart.empty() && NewP(lastFold)) Fold(p);
    bool bClosedTag = false;
    if (bHtml && NewP(lastTag)) TagStep(bClosedTag);
    if (!bClosedTag && bHtml && IsMarkupText(false)) {
      const int target = MarkupJumpTarget();
      if (target == 0) {
        SpellRest();
        break;
      }
      if (target != p) {
        Spell(p, target - p);
        p = target;
        continue;
      }
    }
    if (NewP(lastBlock)) {
      if (HereDocStep()) break;
      const TStep step = BlockStep();
      if (step == stContinue) continue;
      if (step == stEndLine) break;
    }
    if (bXml && TextJump()) continue;
    if (EscapeStep()) continue;
    if (NewP(lastString)) {
      const TStep step = StringStep();
      if (step == stContinue) continue;
      if (step == stEndLine) break;
    }
    WordSkip();
  }
  return true;
}

void TStatePass::EndOfLine(int8_t startTagNr) {
  if (bWhole && !T.NextRowWrapped(LineNo, bThread)) {
    if (F(spStringOnLine) && InString()) BracketId() = -1;
    F(spInLineComment, false);
    F(spStringOnLine, false);
    W.Block.IsLine = false;
    if (InLiveBlock() && LiveBlock().LineBlock) tok::PopBlock(W.Block);
  }
  if (!F(spInTag)) W.Properties.TagNr = startTagNr;
  if (InLiveBlock()) {
    const TBlock& block = LiveBlock();
    W.Block.HighlightKeywords = block.HighlightKeywords;
    W.Block.HighlightSymbols = block.HighlightSymbols;
    W.Block.HighlightBlocks = block.HighlightBlocks;
    W.Block.HighlightNumbers = block.HighlightNumbers;
    W.Block.HighlightStrings = block.HighlightStrings;
    W.Block.HighlightChars = block.HighlightChars;
  }
}

void TStatePass::NumberJump() {
  if (!S.FDigitSeparator.empty() && L.At(p) == S.FDigitSeparator[0]) return;
  int q = p;
  while (q <= L.Len && R.Classes.DecimalChars.Has(tok::UpperAscii(L.At(q)))) ++q;
  if (q == p) return;
  --q;
  // A separator that ends the run is no digit of it: it may open a string.
  if (q > p && !S.FDigitSeparator.empty() && L.At(q) == S.FDigitSeparator[0]) --q;
  p = q;
}

bool TStatePass::IsMarkupText(bool bBlockTest) const {
  return !S.FAllowHighlightBetweenTags && (bHtml || bXml) && L.At(p) != u'<' && !F(spInScript) && !F(spInTag) &&
         !InString() && W.Properties.ScriptStringId < 0 && !F(spInComment) &&
         (!bBlockTest || (!InLiveBlock() && !InHereDoc()));
}

int TStatePass::MarkupJumpTarget() const {
  int length = 0;
  // Inside an open block its end is of interest too, or the jump would pass it.
  const int targets[] = {R.NextChar(L, p, u'<'), S.FBlocks.empty() ? 0 : R.NextBlockStart(L, p),
                         InLiveBlock() ? R.FindBlockStop(LiveBlock(), L, p, length) : 0};
  int nearest = 0;
  for (int at : targets)
    if (at > 0 && (nearest == 0 || at < nearest)) nearest = at;
  return nearest;
}

bool TStatePass::TextJump() {
  if (!IsMarkupText(true)) return false;
  const int found = MarkupJumpTarget();
  if (found == p) return false;
  const int target = found ? found : L.Len + 1;
  Spell(p, target - p);
  p = target;
  return true;
}

bool TStatePass::EscapeStep() {
  if (F(spInLineComment) || F(spInComment) || InString() || !R.EscapePairAt(L, p, false)) return false;
  p += 2;
  return true;
}

TStep TStatePass::CommentStep() {
  if (F(spInLineComment) || (bHtml && F(spInTag)) || InString() || W.Properties.ScriptStringId >= 0 ||
      F(spLineIsUrl) || InHereDoc() || !R.CommentsUsable() || L.Len == 0)
    return stNothing;
  if (!F(spInComment)) {
    if (L.MatchAt(p, S.FCommentStartA)) {
      OpenComment(1, int(S.FCommentStartA.size()));
      if (S.FAllowNestedComments) {
        W.Properties.NestedCommentIndex = 1;
        return NestingWalk();
      }
    } else if (L.MatchAt(p, S.FCommentStartB)) {
      OpenComment(2, int(S.FCommentStartB.size()));
    }
    if (!F(spInComment)) return stNothing;
  }
  if (p > L.Len) return stEndLine;
  const bool bStyleB = W.Properties.CommentStyle == 2;
  if (!bStyleB && S.FAllowNestedComments) return NestingWalk();
  const std::u16string& end = bStyleB ? S.FCommentEndB : S.FCommentEndA;
  const int at = L.Find(p, end);
  NoteTodoAtLineStart();
  if (at == 0) {
    SpellRest();
    return stEndLine;
  }
  return CloseComment(at, int(end.size()));
}

void TStatePass::OpenComment(int8_t commentStyle, int length) {
  F(spInComment, true);
  W.Properties.CommentStyle = commentStyle;
  Fold(p, {.bCommentStart = true});
  p += length;
  SkipBlanks();
  NoteTodo(p);
}

TStep TStatePass::CloseComment(int at, int length) {
  W.Properties.CommentStyle = 0;
  W.Properties.NestedCommentIndex = 0;
  F(spInComment, false);
  Spell(p, at - p);
  Fold(at, {.bCommentEnd = true});
  p = at + length;
  SkipBlanks();
  return stContinue;
}

TStep TStatePass::NestingWalk() {
  const int startLength = int(S.FCommentStartA.size()), endLength = int(S.FCommentEndA.size());
  int8_t& depth = W.Properties.NestedCommentIndex;
  // The next opener and closer are searched for again only once p passed them,
  // so that a line of openers costs one walk, not one walk per opener.
  int start = L.Find(p, S.FCommentStartA), end = L.Find(p, S.FCommentEndA);
  while (!Halted()) {
    if (start > 0 && start < p) start = L.Find(p, S.FCommentStartA);
    if (end > 0 && end < p) end = L.Find(p, S.FCommentEndA);
    if (start > 0 && (end == 0 || start < end)) {
      depth = int8_t(std::min(depth + 1, tok::kMaxCommentNesting));
      p = start + startLength;
      continue;
    }
    if (end == 0) {
      SpellRest();
      return stEndLine;
    }
    if (--depth <= 0) return CloseComment(end, endLength);
    p = end + endLength;
    SkipBlanks();
  }
  return stEndLine;
}

bool TStatePass::LineCommentStep() {
  if (InHereDoc() || W.Properties.ScriptStringId >= 0 || (bHtml && !F(spInScript) && !Host.IsDefault())) return false;
  if (F(spInComment) || InString()) return false;
  // A row that goes on with a line comment of the row before is comment to its end.
  if (F(spInLineComment)) return true;
  const int length = R.LineCommentAt(L, p, true);
  if (length == 0) return false;
  if ((bHtml || Host.IsDefault()) && F(spInScript)) {
    const std::u16string_view mark = IslandEndMark(W.Properties.ScriptType);
    if (const int at = mark.empty() ? 0 : L.FindNoCase(p, mark)) {
      p = at;
      return false;
    }
  }
  SpellRest();
  if (L.S.substr(size_t(p - 1), size_t(length)) == S.FRgn_CommentStart) Fold(p);
  NoteTodo(p);
  F(spInLineComment, true);
  return true;
}

void TStatePass::TagStep(bool& bClosedTag) {
  if (F(spInComment) || F(spInLineComment) || L.MatchAt(p, u"<<") || L.MatchAt(p, u"<%--")) return;
  // Script marks and island tags of a multi-language page are taken here, before tag names.
  if (!F(spInTag) && !InString() && W.Properties.ScriptStringId < 0 && L.At(p) == u'<') {
    const int nameStart = L.At(p + 1) == u'/' ? p + 2 : p + 1;
    int end = nameStart;
    while (end <= L.Len && !IsBlank(L.At(end)) && std::u16string_view(u"/<>").find(L.At(end)) == std::u16string_view::npos)
      ++end;
    if (end == nameStart || F(spInScript)) return;
    for (size_t g = 0; g < S.FTags.size(); ++g) {
      // The tables were built at load, so the lookup only reads.
      auto& words = const_cast<THashedStringList&>(S.FTags[g]->KeyWords);
      if (words.PIndexOf(L.S.data() + nameStart - 1, end - nameStart) < 0) continue;
      F(spInTag, true);
      W.Properties.TagNr = int8_t(g);
      p = end;
      SkipBlanks();
      break;
    }
  }
  if (F(spInTag) && !InString()) WalkTag(bClosedTag);
}

void TStatePass::WalkTag(bool& bClosedTag) {
  int openQuote = 0;
  for (int q = p; q <= L.Len; ++q) {
    const char16_t c = L.At(q);
    if (c == u'"' && !F(spInScript)) {
      openQuote = openQuote ? 0 : q;
      continue;
    }
    if (openQuote) continue;
    if (c == u'<' || L.MatchAt(q, u"?>") || L.MatchAt(q, u"%>")) {
      p = q;
      return;
    }
    if (c == u'>') {
      p = q + 1;
      F(spInTag, false);
      bClosedTag = true;
      return;
    }
  }
  // An attribute value that runs past the line is left to the string step.
  p = openQuote ? openQuote : L.Len + 1;
}

bool TStatePass::HereDocStep() {
  if (!R.HereDocsIn(W.Properties.ScriptType) || F(spInLineComment) || F(spInComment) || (bHtml && !F(spInScript)))
    return false;
  TBlockStyle& block = W.Block;
  if (InHereDoc() && !block.HereDocString.empty()) {
    if (!L.MatchAt(p, block.HereDocString)) return false;
    block.Id = -1;
    block.Force = block.IsLine = false;
    BracketId() = -1;
    block.HereDocString.clear();
    return true;
  }
  if (InLiveBlock() || InHereDoc() || InString()) {
    block.HereDocString.clear();
    return false;
  }
  if (!L.MatchAt(p, S.FHereDocSymbol)) return false;
  std::u16string_view word = L.From(p + int(S.FHereDocSymbol.size()));
  auto trim = [](std::u16string_view v) {
    while (!v.empty() && IsBlank(v.front())) v.remove_prefix(1);
    while (!v.empty() && IsBlank(v.back())) v.remove_suffix(1);
    return v;
  };
  word = trim(word);
  const bool bQuoted = word.size() >= 2 && (word.front() == u'"' || word.front() == u'\'') && word.back() == word.front();
  if (bQuoted)
    word = word.substr(1, word.size() - 2);
  else if (!word.empty() && word.front() == u'-')
    word.remove_prefix(1);
  word = trim(word);
  if (word.empty()) return false;
  block.HereDocString = word;
  block.Id = -2;
  block.Force = block.IsLine = false;
  return true;
}

TStep TStatePass::BlockStep() {
  if (F(spInLineComment) || F(spInComment) || InHereDoc() || S.FBlocks.empty()) return stNothing;
  if (!(bHtml && F(spInTag)) && !InString()) {
    const TStep opened = BlockOpen();
    if (opened != stNothing) return opened;
  }
  return BlockClose();
}

TStep TStatePass::BlockOpen() {
  int length = 0;
  const int nr = R.BlockStartAt(L, p, length);
  if (nr == 0) return stNothing;
  TBlockStyle& block = W.Block;
  if (InLiveBlock()) {
    const TBlock& current = LiveBlock();
    if (current.ForceColor || !current.HighlightBlocks || R.BlockStopAt(current, L, p) > 0) return stNothing;
  }
  const TBlock& opened = *S.FBlocks[size_t(nr - 1)];
  const bool bEscaped = p > 1 && !S.FBlockEsc.empty() && !InLiveBlock() && L.At(p - 1) == S.FBlockEsc[0];
  if (!bEscaped) {
    block.IsLine = opened.LineBlock;
    tok::PushBlock(block, int8_t(nr));
    block.Force = opened.Stop.empty() || opened.ForceColor;
  }
  p += length;
  SkipBlanks();
  return stContinue;
}

TStep TStatePass::BlockClose() {
  if (p > L.Len || !InLiveBlock()) return stNothing;
  if (!F(spInComment) && !InString()) Brace();
  const TBlock& block = LiveBlock();
  TBlockStyle& state = W.Block;
  int length = 0, at = 0;
  if (state.Force || bWhole) {
    at = R.FindBlockStop(block, L, p, length);
  } else if ((length = R.BlockStopAt(block, L, p)) > 0) {
    // Unforced in a partial scan: only an end right here counts.
    p += length;
    tok::PopBlock(state);
    return stContinue;
  }
  if (InString() || (!state.Force && at == 0)) return stNothing;
  if (at > 0) {
    Fold(at);
    p = at + length;
    SkipBlanks();
    tok::PopBlock(state);
    return stContinue;
  }
  if (!block.Stop.empty()) {
    p = L.Len + 1;
    return stEndLine;
  }
  p = R.OpenBlockEnd(L, p);
  SkipBlanks();
  tok::PopBlock(state);
  return stContinue;
}

TStep TStatePass::StringStep() {
  // Quotes in the text between tags are prose; the text jump passes them too.
  if (F(spInLineComment) || F(spInComment) || InHereDoc() || IsMarkupText(false)) return stNothing;
  F(spStringOpened, false);
  F(spStringClosed, false);
  for (int8_t id = 0; id < 2; ++id) {
    const char16_t d = R.Delimiter(id);
    if (!d) continue;
    const bool bOpen = InString() || W.Properties.ScriptStringId >= 0;
    if (!bOpen) W.Properties.Index = id;
    if (bOpen) {
      const int at = R.FindStringEnd(L, p, d, F(spVerbatimString), true);
      if (at > 0 && (id == BracketId() || id == W.Properties.ScriptStringId)) return CloseString(at);
      if (at == 0 && id == BracketId()) return StringRunsOn();
      continue;
    }
    if (L.At(p) != d) continue;
    if (R.IsEscaped(L, p, false)) return stNothing;
    F(spVerbatimString, S.FVerbatimStringStart && L.At(p - 1) == S.FVerbatimStringStart);
    ++p;
    BracketId() = id;
    F(spStringOnLine, S.FStringLine);
    F(spStringOpened, true);
    // A string inside a script island of a page may open ScriptStringId instead.
    const int at = R.FindStringEnd(L, p, d, F(spVerbatimString), true);
    return at > 0 ? CloseString(at) : StringRunsOn();
  }
  return stNothing;
}

TStep TStatePass::CloseString(int at) {
  Spell(p, at - p);
  p = at + 1;
  if (W.Properties.ScriptStringId >= 0) {
    W.Properties.ScriptStringId = -1;
  } else {
    BracketId() = -1;
    F(spStringClosed, true);
  }
  F(spStringOnLine, false);
  F(spVerbatimString, false);
  return p > L.Len ? stEndLine : stContinue;
}

TStep TStatePass::StringRunsOn() {
  SpellRest();
  if (F(spInTag) && Host.AllowSyntaxInStrings()) {
    int mark = L.Find(p, u"<?");
    if (mark == 0) mark = L.Find(p, u"<%");
    if (mark > 0) {
      p = mark;
      return stContinue;
    }
  }
  p = L.Len + 1;
  return stEndLine;
}

void TStatePass::WordSkip() {
  const TBlock* live = InLiveBlock() ? &LiveBlock() : nullptr;
  const bool bFoldAtBlanks = !bXml && W.Properties.ScriptType != scHtml && Host.RegionNodes();
  int q = p;
  while (q <= L.Len && InWordClass(L.At(q))) {
    if (live && q > p && R.BlockStopAt(*live, L, q) > 0) break;
    const bool bBlank = IsBlank(L.At(q++));
    if (bBlank && bFoldAtBlanks && q <= L.Len && !IsBlank(L.At(q))) Fold(q);
  }
  if (!S.FStringSymbol) Spell(p, q - p);
  p = q > p ? q : p + 1;
}

bool TLineTokeniser::GetUpLineStyleFromThread(int LineNo, int Start, int Stop, TStyle& Style, bool bCheckFolding,
                                              bool bCheckSpelling, bool bThread, bool bThreadInSync) {
  if (FHost.Closing() || LineNo < 0 || (bThread && FHost.HaltBkThread()) || !FHost.CanScan()) return false;
  const TOrlCustomMemoStyles* styles = UsableStyles(bThread || bThreadInSync);
  const int count = bThread ? FLines.GetCountFromThread() : FLines.Count();
  if (LineNo >= count) {
    if (styles && bCheckFolding && LineNo == count && FHost.RegionNodes()) FoldBehindLastLine(*styles, LineNo, Style);
    return false;
  }
  // The thread keeps its copy of the row alive; the main thread reads the row in place.
  const TSharedWideString kept = bThread ? FLines.GetLineStringFromThread(LineNo) : TSharedWideString();
  std::u16string_view text = bThread ? kept.View() : FLines.GetLineString(LineNo);
  const bool bWhole = Start == 0 && (Stop == -1 || Stop >= int(text.size()));
  const TAttributePtr threadAttribute = bWhole && bThread ? FLines.GetLineAttributeFromThread(LineNo) : TAttributePtr();
  TTextAttribute* attribute = !bWhole ? nullptr : bThread ? threadAttribute.get() : FLines.GetLineAttribute(LineNo);
  if (!styles) {
    if (attribute) PlainLine(LineNo, text, *attribute, bCheckSpelling, bThread);
    return false;
  }
  if (!bWhole) {
    if (Stop == 0 || Start < 0 || Start >= int(text.size())) return false;
    text = text.substr(size_t(Start), size_t(Stop < 0 ? int(text.size()) : Stop));
  }
  TStatePass pass(*this, *styles, ClassesFor(*styles, bThread), LineNo, text, attribute, bCheckFolding, bCheckSpelling,
                  bThread);
  return pass.Run(Style);
}

void TLineTokeniser::PlainLine(int LineNo, std::u16string_view text, TTextAttribute& attribute, bool bCheckSpelling,
                               bool bThread) {
  UrlCheckRow(LineNo, text, attribute, bThread);
  if (!bCheckSpelling) return;
  attribute.SpellList.Clear();
  if (!text.empty()) FHost.SpellCheck(LineNo, 1, int(text.size()), attribute);
}

void TLineTokeniser::FoldBehindLastLine(const TOrlCustomMemoStyles& styles, int LineNo, TStyle& Style) {
  if (styles.FAllowCmdLF) FHost.CheckForNodeElement(styles, {}, LineNo, 1, Style, {.bCheckCmdLF = true});
  if (styles.FAllowCmdEF) FHost.CheckForNodeElement(styles, {}, LineNo, 1, Style, {.bCheckCmdEF = true});
  if (!styles.FAllowCmdIN) return;
  for (int closed = 0; closed < kMaxIndentCloses; ++closed)
    if (!FHost.CheckForNodeElement(styles, {}, LineNo, 1, Style, {.bCheckCmdIN = true})) break;
}

} // namespace orl
