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

class BlockCodes {
 public:
  explicit BlockCodes(const SymbolCounts& counts);

  /// The header of the stream's last block.
  void writeHeader(BitWriter& bits) const;

  void writeByte(BitWriter& bits, std::uint32_t byte) const {
    bits.put(literalCodes_[byte], literalLengths_[byte]);
  }
  void writeBytes(BitWriter& bits, std::uint32_t first, std::uint32_t second) const {
    bits.put(literalCodes_[first] | std::uint64_t{literalCodes_[second]} << literalLengths_[first],
             literalLengths_[first] + literalLengths_[second]);
  }
  void writeMatch(BitWriter& bits, const Code& length, const Code& distance) const {
    writeWithExtra(bits, literalCodes_[length.symbol], literalLengths_[length.symbol], length);
    writeWithExtra(
        bits, distanceCodes_[distance.symbol], distanceLengths_[distance.symbol], distance);
  }
  void writeEnd(BitWriter& bits) const { writeByte(bits, kEndOfBlock); }

 private:
  static void writeWithExtra(BitWriter& bits, std::uint16_t huffman, int size, const Code& code) {
    bits.put(huffman | std::uint64_t{code.extra} << size, size + code.extraBits);
  }

  std::array<std::uint8_t, kLiterals> literalLengths_{};
  std::array<std::uint16_t, kLiterals> literalCodes_{};
  std::array<std::uint8_t, kDistances> distanceLengths_{};
  std::array<std::uint16_t, kDistances> distanceCodes_{};
};

}  // namespace rendering::deflate
