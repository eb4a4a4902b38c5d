// Where two rows of pixels are alike, a bit for each pixel: runs are then found without a loop over
// pixels, whose end no processor can foresee.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace rendering {

class PixelMask {
 public:
  /// For rows of at most so many pixels.
  explicit PixelMask(int width) : words_(static_cast<std::size_t>(width) / kBits + 2) {}

  /// A bit is set where both have the same pixel, and none from `count` on.
  void compare(const std::uint32_t* pixels, const std::uint32_t* others, int count);

  /// How many bits are set from `x` on.
  [[nodiscard]] int onesFrom(int x) const {
    const std::uint64_t* word = words_.data() + x / kBits;
    const int ones = std::countr_one(*word >> (x % kBits));
    if (ones < kBits - x % kBits) [[likely]]
      return ones;
    int more = 0;
    while (~*++word == 0) more += kBits;
    return ones + more + std::countr_one(*word);
  }

 private:
  static constexpr int kBits = 64;

  std::vector<std::uint64_t> words_;  ///< the last is 0, where every run ends
};

}  // namespace rendering
