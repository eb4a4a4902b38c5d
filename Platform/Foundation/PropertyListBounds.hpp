// Whether a property list is small and flat enough to be handed to a recursive reader.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace foundation {

/// The document in UTF-8 without a byte-order mark, ready for the library; nothing for more than 64
/// levels, unbalanced tags, a document type of its own, or a NUL.
[[nodiscard]] std::optional<std::string> boundedXmlPropertyList(std::string_view document);

/// At most 64 levels, and small also when every shared object is copied wherever it is referred to;
/// no NUL in a string.
[[nodiscard]] bool isBoundedBinaryPropertyList(std::string_view document);

}  // namespace foundation
