#pragma once
// One run of the colouring pass: a stretch of a row with the flags that
// select its colour, and the class and group a reader outside the painter
// (gdtool, tests) names it by.

#include <string_view>
#include <vector>

#include "textstore/LineStyle.h"

namespace orl {

class TOrlCustomMemoStyles;

/// Which part of a tag's inside a run is, for attribute name and value colours.
enum TTagPart : uint8_t { tpNone, tpAttributeName, tpAttributeValue };

struct TTokenRun {
  int Start = 1;       ///< 1-based position in the row
  int Length = 0;
  TStyleProperties Properties;  ///< the flags, BracketId, Index (group or symbol class), TagNr
  int8_t BlockId = -1;          ///< 1-based block of FBlocks, -2 here-document, -1 none
  TTagPart TagPart = tpNone;

  bool Is(TStylePropertyFlag flag) const { return Properties.Get(flag); }
};

/// Where DrawSegments hands its runs.
class ITokenRunSink {
public:
  virtual void Run(const TTokenRun& run) = 0;

protected:
  ~ITokenRunSink() = default;
};

/// Keeps the runs in a vector that is reused from row to row.
class TTokenRunList final : public ITokenRunSink {
public:
  void Run(const TTokenRun& run) override { Runs.push_back(run); }
  void Clear() { Runs.clear(); }
  /// The runs cover a row of `length` characters from its start, without gaps or empty runs.
  bool CoversRow(size_t length) const {
    int next = 1;
    for (const TTokenRun& run : Runs) {
      if (run.Start != next || run.Length <= 0) return false;
      next += run.Length;
    }
    return size_t(next) == length + 1;
  }
  std::vector<TTokenRun> Runs;
};

/// The class names of runs outside the painter.
enum TRunClass : uint8_t { rcText, rcKeyword, rcComment, rcString, rcChar, rcNumber, rcSymbol, rcBlock, rcTag, rcUrl };

struct TRunName {
  TRunClass Class = rcText;
  std::u16string_view Group;  ///< keyword group, block or tag group name; empty for none
};

/// The class of `run` in the order the painter tests its flags; `styles` may be null.
TRunName ClassifyRun(const TTokenRun& run, const TOrlCustomMemoStyles* styles);
/// "text", "keyword", "comment", ...
std::string_view RunClassName(TRunClass runClass);

} // namespace orl
