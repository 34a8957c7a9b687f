#pragma once
// How parameter hints are opened, closed and split, and the hints themselves.

#include "definition/StringList.h"
#include "syntax/CharStyle.h"

namespace orl {

struct THintParameter {
  TColor FTextColor = 0;
  TColor FBkColor = clInfoBk;
  char16_t FStartchar = u'(';
  char16_t FEndchar = u')';
  char16_t FDelimiterchar = u';';
  char16_t FWritedelimiterchar = u',';
  TStringList FParameters;  ///< the lines of the companion's [Hints]
};

} // namespace orl
