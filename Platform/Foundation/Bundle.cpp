// A bundle never fails to load: what cannot be read is not there.
#include "Foundation/Bundle.hpp"

#include "Foundation/FileManager.hpp"

namespace foundation {

Bundle Bundle::withInformationAt(const std::string& path) {
  const auto bytes = contentsOfFile(path, kMaximumPropertyList);
  const auto list = bytes ? parsePropertyList(*bytes) : std::nullopt;
  const PropertyList::Dictionary* information = list ? list->dictionary() : nullptr;
  return information == nullptr ? Bundle() : Bundle(*information);
}

const PropertyList* Bundle::objectForInfoDictionaryKey(std::string_view key) const {
  const auto found = information_.find(key);
  return found == information_.end() ? nullptr : &found->second;
}

}  // namespace foundation
