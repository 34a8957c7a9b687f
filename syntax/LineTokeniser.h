#pragma once
// The line tokeniser: applies a style set to a document line by line.
//
// The state pass (GetUpLineStyleFromThread and its wrappers) carries a TStyle
// from a line's start to its end and classifies no word; the colouring pass
// (DrawSegments) cuts a row into runs from a known start state. Both share
// the recognisers of TokeniserMatch.h. Line-end states are kept in the line
// store; GetUpStyle finds the state a line starts in from the nearest valid
// one above it.
//
// The same object serves the main thread and the background thread: a scan
// keeps all it changes in its own locals, and each thread has its own copy of
// the derived strings.

#include <string_view>

#include "syntax/MemoStyleSlots.h"
#include "syntax/TokenRun.h"
#include "syntax/TokeniserHost.h"
#include "syntax/TokeniserMatch.h"
#include "textstore/OrlMemoStrings.h"

namespace orl {

class TLineTokeniser {
public:
  TLineTokeniser(TOrlMemoStrings& lines, TOrlMemoStyleSlots& styleSlots, ITokeniserHost& host)
      : FLines(lines), FSlots(styleSlots), FHost(host) {}

  /// The state at the end of line `stopat`, computed from the nearest valid record.
  TStyle GetUpStyle(int stopat, bool bFolding);
  /// The state pass on one line on the main thread.
  bool GetUpLineStyle(int LineNo, int Start, int Stop, TStyle& Style, bool bCheckFolding);
  /// The state pass: `Style` goes in as the state at the line's start and comes
  /// out as the state at its end. Start 0 with Stop -1 (or a Stop at or beyond
  /// the line's length) scans the whole line; otherwise the Stop characters
  /// from 0-based Start, touching no attribute. bThread: called from the
  /// background thread (thread reads, FStylesThread); bThreadInSync: from its
  /// synchronised call on the main thread (FStylesThread, main-thread reads).
  /// The result carries nothing; callers use `Style`.
  bool GetUpLineStyleFromThread(int LineNo, int Start, int Stop, TStyle& Style, bool bCheckFolding,
                                bool bCheckSpelling, bool bThread, bool bThreadInSync);

  /// The record of the nearest line at or above `index` whose attribute is
  /// Enabled; bCashed says whether it is valid. Below 0: a cleared style.
  TStyle GetLineStyle(int index, bool& bCashed) const;
  /// Stores the record with Cached set.
  void SetLineStyle(int index, TStyle& LineStyle);
  /// The background thread's store of a record; sets Cached.
  void SetLineStyleFromThread(int index, TStyle& LineStyle);
  /// Re-attaches fold stacks to a valid record (or, with bForce, stores Style whole).
  void UpdateCachedLineStyle(int line, const TStyle& Style, bool bForce);
  /// Every record from `index` on stops being valid; every text edit calls it.
  void ClearLineStylesFrom(int index) { FLines.ClearLineStylesFrom(index); }
  static void ClearStyle(TStyle& aStyle, bool bFolding) { aStyle.Clear(bFolding); }
  static TStyle CopyStyle(const TStyle& Style) { return Style; }
  /// Carries a URL that a wrapped row cuts on into its continuation rows.
  void UrlCheck(int LineNo, TTextAttribute& la);
  bool IsSymbolBoundary(char16_t ch) const;

  /// The colouring pass over `row` from the start state `style`; runs cover
  /// the row without gaps and are handed to `sink` in order.
  void DrawSegments(std::u16string_view row, const TStyle& style, ITokenRunSink& sink);
  /// The same over line LineNo of the store, from the state GetUpStyle gives.
  void DrawSegments(int LineNo, ITokenRunSink& sink);
  /// Reading a document top to bottom: the runs of line LineNo from `state`,
  /// the state at its start, which then moves on to the line's end.
  void ColourLine(int LineNo, TStyle& state, TTokenRunList& runs, bool bCheckFolding = false);

  /// FSelectDelimiters and FSelectDelimitersAlt: word bounds without a style set.
  std::u16string FSelectDelimiters = u".,;:!?()[]{}<>=+-*/\\|&^%$#@~`'\"";
  std::u16string FSelectDelimitersAlt;

private:
  friend class TStatePass;
  friend class TColourPass;

  /// The style set a pass reads: FStylesThread for the thread and its synchronised calls.
  const TOrlCustomMemoStyles* StylesFor(bool bThreadSet) const;
  /// The derived strings of `styles` for the calling thread.
  const tok::TSetClasses& ClassesFor(const TOrlCustomMemoStyles& styles, bool bThread);
  /// A valid set with a syntax name, else null.
  const TOrlCustomMemoStyles* UsableStyles(bool bThreadSet) const;
  /// Next row continues this row's real line.
  bool NextRowWrapped(int LineNo, bool bThread) const;
  void UrlCheckRow(int LineNo, std::u16string_view text, TTextAttribute& la, bool bThread);
  /// A whole line without a usable style set: only URL and spelling.
  void PlainLine(int LineNo, std::u16string_view text, TTextAttribute& attribute, bool bCheckSpelling, bool bThread);
  /// The fold commands at the position behind the last line.
  void FoldBehindLastLine(const TOrlCustomMemoStyles& styles, int LineNo, TStyle& Style);

  TOrlMemoStrings& FLines;
  TOrlMemoStyleSlots& FSlots;
  ITokeniserHost& FHost;
  tok::TSetClasses FMainClasses;
  tok::TSetClasses FThreadClasses;
};

} // namespace orl
