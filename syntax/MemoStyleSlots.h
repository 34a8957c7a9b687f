#pragma once
// The part of a memo that holds its style sets and the switches a loaded
// definition sets on it. The memo owns every set in these slots; a set may
// stand in several slots at once and is still freed once.

#include <array>
#include <functional>
#include <string>

#include "syntax/OrlMemoStyles.h"

namespace orl {

class TOrlMemoStyleSlots {
public:
  TOrlMemoStyleSlots() = default;
  TOrlMemoStyleSlots(const TOrlMemoStyleSlots&) = delete;
  TOrlMemoStyleSlots& operator=(const TOrlMemoStyleSlots&) = delete;
  virtual ~TOrlMemoStyleSlots() { FreeSyntaxStyles(); }

  /// Frees every style set the memo holds and leaves it without syntax.
  void FreeSyntaxStyles();
  /// Makes `styles` the current set of both threads, taking ownership.
  void SetStyles(TOrlCustomMemoStyles* styles);
  /// Called after the current set was given or taken away, so that a memo
  /// can bring its rows' attributes to the class the set needs.
  virtual void StylesChanged() {}

  TOrlCustomMemoStyles* FStyles = nullptr;         ///< current set of the main thread
  TOrlCustomMemoStyles* FStylesThread = nullptr;   ///< current set of the background thread
  TOrlCustomMemoStyles* FOldStyles = nullptr;
  TOrlCustomMemoStyles* FOldStylesThread = nullptr;
  // Multi-highlighter slots, one per script type of a mark-up page.
  TOrlCustomMemoStyles* FHtmlStyle = nullptr;
  TOrlCustomMemoStyles* FHtmlStyleASP = nullptr;
  TOrlCustomMemoStyles* FHtmlStylePHP = nullptr;
  TOrlCustomMemoStyles* FHtmlStyleJS = nullptr;
  TOrlCustomMemoStyles* FHtmlStyleVB = nullptr;
  TOrlCustomMemoStyles* FHtmlStyleCSS = nullptr;
  TOrlCustomMemoStyles* FHtmlStyleCF = nullptr;
  TOrlCustomMemoStyles* FHtmlStyleSVG = nullptr;

  bool FHtmlMultiSyntax = false;
  bool FHtml = false;               ///< the definition has tags
  bool CaseSensitive = false;       ///< keywords
  bool TagsCaseSensitive = false;
  bool UrlAware = false;
  bool XML = false;                 ///< closing tags are completed
  bool FShowCompletionImages = false;
  std::u16string FASPLanguage;
  /// Fold updates wait while this is above zero.
  int FFoldUpdatesStopped = 0;

  std::function<TCustomImageList*()> OnGetNodeImages;
  std::function<void(const std::u16string& ws, bool bHeading)> OnDebugWrite;

private:
  std::array<TOrlCustomMemoStyles**, 8> HtmlSlots();
};

} // namespace orl
