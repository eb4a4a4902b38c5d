// UTF-8, one scalar at a time.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace foundation {

/// The front of a text: one scalar, or the longest piece that starts like one but is none.
struct Utf8Step {
  char32_t scalar = 0xFFFD;  ///< U+FFFD for a piece that is no scalar
  std::size_t length = 0;    ///< in bytes; 0 only for an empty text
  bool valid = false;
};

[[nodiscard]] Utf8Step utf8Step(std::string_view text);

/// The offset of the first byte that belongs to no scalar; the text's size when there is none.
[[nodiscard]] std::size_t firstInvalidUtf8(std::string_view text);

/// As much of the front as `most` bytes hold without a scalar that is cut in two.
[[nodiscard]] std::string_view utf8Prefix(std::string_view text, std::size_t most);

/// A text of at most `most` bytes, which are at least three: what is too long ends in "…".
void shortenUtf8(std::string& text, std::size_t most);

/// `scalar` is no surrogate and at most U+10FFFF.
void appendUtf8(std::string& out, char32_t scalar);

}  // namespace foundation
