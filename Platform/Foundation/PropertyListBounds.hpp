// Whether a property list is small and flat enough to be handed to a recursive reader.
#pragma once

#include <string_view>

namespace foundation {

/// At most 64 levels, tags balanced, no document type of its own, no NUL.
[[nodiscard]] bool isBoundedXmlPropertyList(std::string_view document);

/// At most 64 levels, and small also when every shared object is copied wherever it is referred to;
/// no NUL in a string.
[[nodiscard]] bool isBoundedBinaryPropertyList(std::string_view document);

}  // namespace foundation
