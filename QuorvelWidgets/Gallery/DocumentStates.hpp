// Documents edited into the corpus's states, for whoever holds a document as text and knows nothing
// of what it says.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quorvel {

/// The document in that state (empty: its own) and language (empty: its own). One that cannot be
/// read is left as it is.
[[nodiscard]] std::string documentInState(std::string_view document,
                                          std::string_view state,
                                          std::string_view language);

/// Nothing for a document that cannot be read.
[[nodiscard]] std::optional<std::string> documentWithOtherAmounts(std::string_view document,
                                                                  int step);

}  // namespace quorvel
