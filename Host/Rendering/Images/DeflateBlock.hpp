// One deflate block with Huffman codes of its own (RFC 1951, 3.2.7): count the symbols, make the
// codes, write the header, the symbols and the end.
#pragma once

#include <array>
#include <cstdint>

#include "Rendering/Images/BitWriter.hpp"
#include "Rendering/Images/Deflate.hpp"

namespace rendering::deflate {

/// How often each symbol occurs in a block.
struct SymbolCounts {
  std::array<std::uint32_t, kLiterals> literals{};
  std::array<std::uint32_t, kDistances> distances{};
};

/// What is written at once: at most 56 bits.
struct Bits {
  std::uint64_t value = 0;
  int count = 0;

  [[nodiscard]] Bits then(const Bits& next) const {
    return {value | next.value << count, count + next.count};
  }
  void writeTo(BitWriter& writer) const { writer.put(value, count); }
};

class BlockCodes {
 public:
  explicit BlockCodes(const SymbolCounts& counts);

  /// The header of the stream's last block, for which it makes room.
  void writeHeader(BitWriter& bits) const;

  [[nodiscard]] Bits literal(std::uint32_t byte) const {
    return {literalCodes_[byte], literalLengths_[byte]};
  }
  [[nodiscard]] Bits length(const Code& code) const {
    return literal(code.symbol).then({code.extra, code.extraBits});
  }
  [[nodiscard]] Bits distance(std::uint16_t symbol, std::uint16_t extra) const {
    const Bits huffman{distanceCodes_[symbol], distanceLengths_[symbol]};
    return huffman.then({extra, distanceExtraBits(symbol)});
  }
  [[nodiscard]] Bits endOfBlock() const { return literal(kEndOfBlock); }

 private:
  std::array<std::uint8_t, kLiterals> literalLengths_{};
  std::array<std::uint16_t, kLiterals> literalCodes_{};
  std::array<std::uint8_t, kDistances> distanceLengths_{};
  std::array<std::uint16_t, kDistances> distanceCodes_{};
};

}  // namespace rendering::deflate
