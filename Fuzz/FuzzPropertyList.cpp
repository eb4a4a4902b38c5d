// Any bytes: reading never fails badly, and what is read as XML is written so that it reads back.
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "Foundation/PropertyList.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const auto list = foundation::parsePropertyList(bytes);
  if (list && list->dictionary() != nullptr) {
    const auto changed = foundation::propertyListBySetting(bytes, "fuzz", true);
    if (!changed) std::abort();
    const auto again = foundation::parsePropertyList(*changed);
    if (again && again->dictionary() != nullptr && !again->dictionary()->contains("fuzz")) {
      std::abort();
    }
  }
  return 0;
}
