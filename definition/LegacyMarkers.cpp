// The section markers of an older definition and the look ahead that tells
// a section with content from an empty one.

#include <array>
#include <utility>

#include "definition/LegacyConversion.h"
#include "platform/Blanks.h"
#include "platform/Collation.h"

namespace orl::legacy {
namespace {

using enum TMarker;

constexpr std::array<std::pair<std::u16string_view, TMarker>, 10> kMarkers = {{
    {u"[options]", mkOptions},
    {u"[tags]", mkTags},
    {u"[keywords]", mkKeywords},
    {u"[autohint]", mkAutoHint},
    {u"[end]", mkEnd},
    {u"[autocomplete]", mkAutoComplete},
    {u"[usermenu]", mkUserMenu},
    {u"[tagcomplete]", mkTagComplete},
    {u"[beginsample]", mkBeginSample},
    {u"[endsample]", mkEndSample},
}};

// Lines that say nothing about whether a section has content.
bool IsPassedOver(std::u16string_view trimmed) {
  return trimmed.empty() || trimmed == u">" || trimmed.starts_with(u';') || trimmed.starts_with(u"//");
}

} // namespace

TMarker MarkerOf(std::u16string_view trimmedLine) {
  if (!trimmedLine.starts_with(u'[')) return mkNone;
  for (const auto& [text, marker] : kMarkers)
    if (SameTextFolded(trimmedLine, text)) return marker;
  return mkNone;
}

// Walking backward, a brace comment that opens at line k resumes the scan
// behind the first line from k on that holds `}`; that line is known by then.
TContentLookahead::TContentLookahead(const TStringList& lines) : FContentFrom(size_t(lines.Count()) + 1, false) {
  constexpr size_t kNoClose = size_t(-1);
  size_t nextClose = kNoClose;
  for (size_t k = size_t(lines.Count()); k-- > 0;) {
    const std::u16string& line = lines.Strings(int(k));
    if (line.find(u'}') != std::u16string::npos) nextClose = k;
    const std::u16string_view trimmed = TrimBlanks(line);
    if (trimmed.starts_with(u'{')) FContentFrom[k] = nextClose != kNoClose && FContentFrom[nextClose + 1];
    else if (IsPassedOver(trimmed)) FContentFrom[k] = FContentFrom[k + 1];
    else FContentFrom[k] = MarkerOf(trimmed) == mkNone;
  }
}

bool TContentLookahead::NextHasContent(int index) const {
  const size_t next = size_t(index) + 1;
  return index >= 0 && next < FContentFrom.size() && FContentFrom[next];
}

} // namespace orl::legacy
