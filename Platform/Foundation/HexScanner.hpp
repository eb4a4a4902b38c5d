// Hexadecimal numbers at the front of a text.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace foundation {

/// Skips white space and line breaks, then "0x" where a digit follows, and reads hexadecimal digits
/// up to any other character. Nothing when there is no digit; all ones when the number has more
/// than 64 bits.
[[nodiscard]] std::optional<std::uint64_t> scanHexLongLong(std::string_view text);

}  // namespace foundation
