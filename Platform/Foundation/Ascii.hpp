// Characters of formats, which know ASCII alone; those of texts are in Characters.hpp.
#pragma once

namespace foundation {

[[nodiscard]] constexpr bool isAsciiDigit(char c) {
  return c >= '0' && c <= '9';
}
[[nodiscard]] constexpr bool isAsciiLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
[[nodiscard]] constexpr bool isAsciiLetterOrDigit(char c) {
  return isAsciiLetter(c) || isAsciiDigit(c);
}

}  // namespace foundation
