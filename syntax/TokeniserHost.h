#pragma once
// What a line scan needs of the memo it runs for, kept narrow so that the
// tokeniser knows nothing of painting, folding or spelling: the memo's
// switches, and the hooks through which folding, brace matching and spell
// checking ride on the scan. Every hook has a neutral default, so a document
// without a memo (TPlainTokeniserHost) scans with no more than this.

#include <string>
#include <string_view>

#include "textstore/LineAttribute.h"
#include "textstore/LineStyle.h"

namespace orl {

class TOrlCustomMemoStyles;

/// Why the state pass calls the fold scan at a position.
struct TFoldScanCall {
  bool bCommentStart = false;  // a block comment opens here
  bool bCommentEnd = false;    // a block comment ends here
  bool bCheckCmdLF = false;    // the blank-line command of wEndBefore
  bool bCheckCmdIN = false;    // the indent command
  bool bCheckCmdEF = false;    // the end-of-file command
  bool bNoEndBefore = false;   // the indent command closed a node on this line already
};

class ITokeniserHost {
public:
  /// FClosing: every scan gives up at once.
  virtual bool Closing() const { return false; }
  /// FHaltBkThread: a scan of the background thread gives up at its next test.
  virtual bool HaltBkThread() const { return false; }
  /// False while the memo has no output bitmap, FSuspendPainting is on or the hex view shows.
  virtual bool CanScan() const { return true; }
  /// FRegionNodes: the style set can fold and the fold scan is wanted.
  virtual bool RegionNodes() const { return false; }
  /// Word wrap or forced wrap is on: rows may continue a real line.
  virtual bool WrapOn() const { return false; }
  /// FUpdate: GetUpStyle stores every state it computes.
  virtual bool Update() const { return false; }
  virtual bool AllowURLClick() const { return false; }
  virtual bool AllowSyntaxInStrings() const { return false; }
  /// FisDefault: the memo's own default set stands in for a definition.
  virtual bool IsDefault() const { return false; }

  /// CheckForNodeElement at 1-based `index` of `line`; true when what it
  /// found ends the look at this position. `style` is the scan's own state.
  virtual bool CheckForNodeElement(const TOrlCustomMemoStyles& /*styles*/, std::u16string_view /*line*/,
                                   int /*LineNo*/, int /*index*/, TStyle& /*style*/, const TFoldScanCall& /*call*/) {
    return false;
  }
  /// A new line starts: the fold scan forgets a word pair it was in (FTwoWords).
  virtual void ResetFoldWordPair() {}
  /// The brace collector: `ch`, reached outside comments and strings, for the line's brace lists.
  virtual void CollectBrace(TAttribute& /*attribute*/, char16_t /*ch*/) {}
  /// Text that the scan passed over, for the spell checker; x is 1-based.
  virtual void SpellCheck(int /*LineNo*/, int /*x*/, int /*len*/, TTextAttribute& /*attribute*/) {}
  /// OnDebugWrite.
  virtual void DebugWrite(const std::u16string& /*ws*/, bool /*bHeading*/) {}

protected:
  ~ITokeniserHost() = default;
};

/// A document without a memo: every switch off but the one a reader may want, hooks neutral.
class TPlainTokeniserHost final : public ITokeniserHost {
public:
  bool AllowURLClick() const override { return bAllowURLClick; }

  bool bAllowURLClick = false;
};

} // namespace orl
