// How many things are wrong with a document, where decoding names the first hundred of them.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>

#include "Foundation/Json.hpp"

namespace foundation {

/// Walks the document once more; up to the first malformed byte, as decoding does.
[[nodiscard]] std::size_t countJsonProblems(std::string_view document,
                                            std::span<const JsonField> fields,
                                            void* record);

template <JsonRecord T>
[[nodiscard]] std::size_t countJsonProblems(std::string_view document) {
  T record;
  return countJsonProblems(document, T::jsonFields(), &record);
}

}  // namespace foundation
