#include "syntax/ExtensionIndex.h"

#include <algorithm>

#include "platform/FileIO.h"
#include "textstore/OrlUniUtils.h"

namespace orl {

void TExtensionIndex::Add(const std::filesystem::path& definition, std::u16string_view extensionList) {
  for (size_t from = 0; from < extensionList.size();) {
    const size_t bar = std::min(extensionList.find(u'|', from), extensionList.size());
    if (bar > from)
      FClaims.try_emplace(TOrlUniUtils::OrlWideLowercase(std::u16string(extensionList.substr(from, bar - from))),
                          definition);
    from = bar + 1;
  }
}

std::filesystem::path TExtensionIndex::ForExtension(std::u16string_view extension) const {
  if (extension.empty()) return {};
  const auto found = FClaims.find(TOrlUniUtils::OrlWideLowercase(std::u16string(extension)));
  return found == FClaims.end() ? std::filesystem::path() : found->second;
}

std::filesystem::path TExtensionIndex::ForFile(const std::filesystem::path& file) const {
  return ForExtension(StringFromPath(file.extension()));
}

} // namespace orl
