// A program's own information property list.
#pragma once

#include <string>
#include <string_view>

#include "Foundation/PropertyList.hpp"

namespace foundation {

class Bundle {
 public:
  /// Without information.
  Bundle() = default;
  explicit Bundle(PropertyList::Dictionary information) : information_(std::move(information)) {}
  /// A missing or malformed Info.plist is an empty dictionary.
  [[nodiscard]] static Bundle withInformationAt(const std::string& path);

  /// The key's value with its type; null without one.
  [[nodiscard]] const PropertyList* objectForInfoDictionaryKey(std::string_view key) const;

 private:
  PropertyList::Dictionary information_;
};

}  // namespace foundation
