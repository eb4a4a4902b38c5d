// What the first byte of a JSON value tells, and where the plain part of a string ends.
#pragma once

#include <bit>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "Foundation/Ascii.hpp"

namespace foundation {

/// The first quotation mark, backslash or control character; `end` when there is none.
[[nodiscard]] inline const char* plainEnd(const char* at, const char* end) {
  constexpr std::uint64_t kOnes = 0x0101010101010101;
  constexpr std::uint64_t kTops = 0x8080808080808080;
  const auto zeroBytes = [](std::uint64_t w) { return (w - kOnes) & ~w; };
  while (end - at >= 8) {
    std::uint64_t word;
    std::memcpy(&word, at, 8);
    if constexpr (std::endian::native == std::endian::big) word = std::byteswap(word);
    // The lowest marked byte is exact in each of the three; higher ones may be wrong and are not
    // looked at.
    const std::uint64_t control = (word - kOnes * 0x20) & ~word;
    const std::uint64_t marks =
        (control | zeroBytes(word ^ kOnes * '"') | zeroBytes(word ^ kOnes * '\\')) & kTops;
    if (marks != 0) return at + std::countr_zero(marks) / 8;
    at += 8;
  }
  while (at != end && *at != '"' && *at != '\\' && static_cast<unsigned char>(*at) >= 0x20) ++at;
  return at;
}

/// Empty for a byte that begins no value.
[[nodiscard]] constexpr std::string_view jsonTypeName(char first) {
  switch (first) {
    case '{':
      return "object";
    case '[':
      return "array";
    case '"':
      return "string";
    case 't':
    case 'f':
      return "boolean";
    case 'n':
      return "null";
    default:
      return isAsciiDigit(first) || first == '-' ? "number" : "";
  }
}

}  // namespace foundation
