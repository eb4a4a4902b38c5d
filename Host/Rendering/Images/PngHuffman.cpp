// Lengths by merging the two rarest, codes by counting.
#include "Rendering/Images/PngHuffman.hpp"

#include <algorithm>
#include <array>
#include <vector>

namespace rendering {

namespace {

constexpr int kLongest = 15;

struct Leaf {
  std::uint32_t count;
  std::uint16_t symbol;
};

/// The depth of each leaf (rarest first) in a Huffman tree, by two queues.
std::vector<int> leafDepths(const std::vector<Leaf>& leaves) {
  const std::size_t n = leaves.size();
  std::vector<std::uint64_t> weight(2 * n - 1);
  std::vector<std::size_t> parent(2 * n - 1);
  for (std::size_t i = 0; i < n; ++i) weight[i] = leaves[i].count;
  std::size_t leaf = 0;
  std::size_t inner = n;
  for (std::size_t next = n; next < 2 * n - 1; ++next) {
    for (int child = 0; child < 2; ++child) {
      const bool takeLeaf = leaf < n && (inner >= next || weight[leaf] <= weight[inner]);
      const std::size_t taken = takeLeaf ? leaf++ : inner++;
      weight[next] += weight[taken];
      parent[taken] = next;
    }
  }
  std::vector<int> depth(2 * n - 1);
  for (std::size_t i = 2 * n - 2; i-- > 0;) depth[i] = depth[parent[i]] + 1;
  depth.resize(n);
  return depth;
}

}  // namespace

void huffmanLengths(std::span<const std::uint32_t> counts,
                    int longest,
                    std::span<std::uint8_t> lengths) {
  std::ranges::fill(lengths, std::uint8_t{0});
  std::vector<Leaf> leaves;
  for (std::size_t i = 0; i < counts.size(); ++i) {
    if (counts[i] != 0) leaves.push_back({counts[i], static_cast<std::uint16_t>(i)});
  }
  if (leaves.empty()) return;
  if (leaves.size() == 1) {
    lengths[leaves[0].symbol] = 1;
    return;
  }
  std::ranges::stable_sort(leaves, {}, &Leaf::count);
  const std::vector<int> depth = leafDepths(leaves);
  // Too deep leaves come up to the limit; the room they take is won back by pushing others down one
  // level.
  std::array<int, kLongest + 1> perLength{};
  for (int d : depth) ++perLength[static_cast<std::size_t>(std::min(d, longest))];
  std::uint32_t room = 0;  // in units of the deepest level
  for (int d = 1; d <= longest; ++d) {
    room += static_cast<std::uint32_t>(perLength[static_cast<std::size_t>(d)]) << (longest - d);
  }
  while (room > 1u << longest) {
    int d = longest - 1;
    while (perLength[static_cast<std::size_t>(d)] == 0) --d;
    --perLength[static_cast<std::size_t>(d)];
    perLength[static_cast<std::size_t>(d) + 1] += 2;
    --perLength[static_cast<std::size_t>(longest)];
    --room;
  }
  // The rarest symbols get the longest codes.
  std::size_t next = 0;
  for (int d = longest; d >= 1; --d) {
    for (int i = 0; i < perLength[static_cast<std::size_t>(d)]; ++i) {
      lengths[leaves[next++].symbol] = static_cast<std::uint8_t>(d);
    }
  }
}

void huffmanCodes(std::span<const std::uint8_t> lengths, std::span<std::uint16_t> codes) {
  std::array<std::uint32_t, kLongest + 2> next{};
  for (std::uint8_t length : lengths) {
    if (length != 0) ++next[length + 1u];
  }
  for (std::size_t i = 2; i < next.size(); ++i) next[i] = (next[i] + next[i - 1]) << 1;
  for (std::size_t i = 0; i < lengths.size(); ++i) {
    std::uint32_t code = lengths[i] != 0 ? next[lengths[i]]++ : 0;
    std::uint32_t reversed = 0;
    for (int bit = 0; bit < lengths[i]; ++bit, code >>= 1) reversed = reversed << 1 | (code & 1);
    codes[i] = static_cast<std::uint16_t>(reversed);
  }
}

}  // namespace rendering
