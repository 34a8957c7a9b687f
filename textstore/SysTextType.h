#pragma once
// The line-ending type of a document as a whole.

#include <cstdint>

namespace orl {

/// A mixed type names the ending most lines have; its rows keep their own.
enum TSysTextType : uint8_t { sttWindows, sttUnix, sttMac, sttMixedWindows, sttMixedUnix, sttMixedMac };

} // namespace orl
