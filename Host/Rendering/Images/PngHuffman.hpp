// Huffman codes as deflate wants them.
#pragma once

#include <cstdint>
#include <span>

namespace rendering {

/// Code lengths for symbol counts, none longer than `longest`; symbols that do not occur get 0. A
/// single symbol gets 1.
void huffmanLengths(std::span<const std::uint32_t> counts,
                    int longest,
                    std::span<std::uint8_t> lengths);

/// The codes that the lengths define, bit-reversed for writing from the lowest bit on.
void huffmanCodes(std::span<const std::uint8_t> lengths, std::span<std::uint16_t> codes);

}  // namespace rendering
