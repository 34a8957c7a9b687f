#pragma once
// The code explorer's class of a row or fold node.

#include <cstdint>

namespace orl {

enum TCEListItemType : uint8_t {
  ceNone, ceStruct, ceEnum, ceClass, ceClassName, ceNS, ceMethod, ceConstructor, ceDestructor, ceProperty,
  ceLocalMethod, ceTag, ceTagStyle, ceTagScript, ceTagHead, ceTagBody, ceModule, ceUnknown, ceLine, ceDefine
};

} // namespace orl
