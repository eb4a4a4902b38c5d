#include "Rendering/Images/DeflateBlock.hpp"

#include <algorithm>
#include <span>
#include <vector>

#include "Rendering/Images/PngHuffman.hpp"

namespace rendering::deflate {

namespace {

// A block's header: whether it is the last, its type, and how many codes of each alphabet follow,
// less those that are always there.
constexpr int kDynamicCodes = 2;
constexpr int kFewestLiterals = 257;
constexpr int kFewestDistances = 1;
constexpr int kFewestCodeLengths = 4;

// The alphabet in which the lengths of the codes are written: each length for itself, and runs.
constexpr std::size_t kCodeLengths = 19;
constexpr int kLongestCodeLength = 7;  ///< bits
constexpr std::array<std::uint8_t, kCodeLengths> kCodeLengthOrder{
    16, 17, 18, 0, 8, 7, 9, 6, 10, 5, 11, 4, 12, 3, 13, 2, 14, 1, 15};

/// A symbol that stands for a run of zeros.
struct ZeroRun {
  std::uint8_t symbol;
  std::size_t shortest;
  std::size_t longest;
  int extraBits;
};
constexpr ZeroRun kShortRun{17, 3, 10, 3};
constexpr ZeroRun kLongRun{18, 11, 138, 7};

struct CodeLength {
  std::uint8_t symbol;
  std::uint8_t extra = 0;
  int extraBits = 0;
};

/// The lengths of both alphabets as one sequence, runs of zeros shortened. Runs of other lengths
/// are too rare here to gain by theirs.
std::vector<CodeLength> shortened(std::span<const std::uint8_t> lengths) {
  std::vector<CodeLength> result;
  for (std::size_t i = 0; i < lengths.size();) {
    std::size_t zeros = 0;
    while (i + zeros < lengths.size() && lengths[i + zeros] == 0) ++zeros;
    if (zeros < kShortRun.shortest) {
      result.push_back({lengths[i++]});
      continue;
    }
    const ZeroRun& run = zeros < kLongRun.shortest ? kShortRun : kLongRun;
    zeros = std::min(zeros, run.longest);
    result.push_back({run.symbol, static_cast<std::uint8_t>(zeros - run.shortest), run.extraBits});
    i += zeros;
  }
  return result;
}

void writeCodeLengths(BitWriter& bits, std::span<const std::uint8_t> lengthsToWrite) {
  const std::vector<CodeLength> sequence = shortened(lengthsToWrite);
  std::array<std::uint32_t, kCodeLengths> counts{};
  for (const CodeLength& one : sequence) ++counts[one.symbol];
  std::array<std::uint8_t, kCodeLengths> lengths{};
  std::array<std::uint16_t, kCodeLengths> codes{};
  huffmanLengths(counts, kLongestCodeLength, lengths);
  huffmanCodes(lengths, codes);
  for (const std::uint8_t symbol : kCodeLengthOrder) bits.put(lengths[symbol], 3);
  for (const CodeLength& one : sequence) {
    bits.put(codes[one.symbol], lengths[one.symbol]);
    if (one.extraBits > 0) bits.put(one.extra, one.extraBits);
  }
}

}  // namespace

BlockCodes::BlockCodes(const SymbolCounts& counts) {
  huffmanLengths(counts.literals, kLongestCode, literalLengths_);
  huffmanLengths(counts.distances, kLongestCode, distanceLengths_);
  // A block without a match still has one distance code.
  if (std::ranges::all_of(distanceLengths_, [](auto length) { return length == 0; })) {
    distanceLengths_[0] = 1;
  }
  huffmanCodes(literalLengths_, literalCodes_);
  huffmanCodes(distanceLengths_, distanceCodes_);
}

void BlockCodes::writeHeader(BitWriter& bits) const {
  constexpr int kLast = 1;
  constexpr std::size_t kMostBytes = (kLiterals + kDistances + kCodeLengths) * 2;
  bits.makeRoom(kMostBytes);
  bits.put(kLast, 1);
  bits.put(kDynamicCodes, 2);
  bits.put(kLiterals - kFewestLiterals, 5);
  bits.put(kDistances - kFewestDistances, 5);
  bits.put(kCodeLengths - kFewestCodeLengths, 4);
  std::vector<std::uint8_t> lengths(literalLengths_.begin(), literalLengths_.end());
  lengths.insert(lengths.end(), distanceLengths_.begin(), distanceLengths_.end());
  writeCodeLengths(bits, lengths);
}

}  // namespace rendering::deflate
