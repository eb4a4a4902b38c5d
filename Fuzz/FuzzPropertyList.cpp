// Any bytes: reading never fails badly, and what is read as XML is written so that it reads back.
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "Foundation/PropertyList.hpp"

namespace {

/// A UID reads like this dictionary, but nothing can be set in it.
bool isUid(const foundation::PropertyList::Dictionary& values) {
  return values.size() == 1 && values.contains("CF$UID");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const auto list = foundation::parsePropertyList(bytes);
  if (list && list->dictionary() != nullptr) {
    const auto changed = foundation::propertyListBySetting(bytes, "fuzz", true);
    if (!changed) {
      if (!isUid(*list->dictionary())) std::abort();
      return 0;
    }
    const auto again = foundation::parsePropertyList(*changed);
    if (again && again->dictionary() != nullptr && !again->dictionary()->contains("fuzz")) {
      std::abort();
    }
  }
  return 0;
}
