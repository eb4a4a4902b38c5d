// The alphabets of deflate (RFC 1951, 3.2.5): bytes, the end of a block and lengths in one,
// distances in the other.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>

namespace rendering::deflate {

inline constexpr int kEndOfBlock = 256;
inline constexpr int kFirstLength = 257;  ///< the symbol of the shortest match
inline constexpr int kLastLength = 285;   ///< the symbol of the longest, which has no extra bits
inline constexpr int kLiterals = 286;     ///< symbols of the first alphabet
inline constexpr int kDistances = 30;     ///< and of the second
inline constexpr int kLongestCode = 15;   ///< bits

inline constexpr unsigned kShortestMatch = 3;  ///< bytes
inline constexpr unsigned kLongestMatch = 258;
inline constexpr std::size_t kWindow = 32768;  ///< how far back a match may lie

/// A symbol, and the bits behind it that tell the values apart which share it.
struct Code {
  std::uint16_t symbol;
  std::uint8_t extraBits;
  std::uint16_t extra;
};

/// Every power of two has 2^`divisions` symbols of equal extent; the first values have one each.
constexpr Code divided(unsigned value, int divisions) {
  const int bits = std::bit_width(value) - divisions - 1;
  if (bits <= 0) return {static_cast<std::uint16_t>(value), 0, 0};
  return {static_cast<std::uint16_t>((bits << divisions) + static_cast<int>(value >> bits)),
          static_cast<std::uint8_t>(bits),
          static_cast<std::uint16_t>(value & ((1u << bits) - 1))};
}

/// Of `kShortestMatch` to `kLongestMatch` bytes.
constexpr Code lengthCode(unsigned length) {
  if (length == kLongestMatch) return {kLastLength, 0, 0};
  Code code = divided(length - kShortestMatch, 2);
  code.symbol = static_cast<std::uint16_t>(code.symbol + kFirstLength);
  return code;
}

/// Of 1 to `kWindow` bytes.
constexpr Code distanceCode(unsigned distance) {
  return divided(distance - 1, 1);
}

/// How many bits follow a distance's symbol.
constexpr int distanceExtraBits(int symbol) {
  return symbol < 4 ? 0 : symbol / 2 - 1;
}

}  // namespace rendering::deflate
