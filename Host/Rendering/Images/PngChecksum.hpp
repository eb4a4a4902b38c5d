// The Adler-32 checksum (RFC 1950, 8.2) of a picture's rows, worked out from what changes.
#pragma once

#include <cstddef>
#include <cstdint>

namespace rendering {

/// The row's own two sums carry over to the next row: most rows are much like the one above. The
/// first sums the bytes, the second every byte as often as bytes follow it in the row, itself
/// included. The filter byte, which is 0, counts for the row's length alone.
class PngChecksum {
 public:
  PngChecksum(std::size_t rowBytes, std::uint32_t channels)
      : rowBytes_(rowBytes), channels_(channels) {}

  /// A pixel that differs from the one above; `weight` bytes of the row are left at its first.
  void change(std::uint32_t pixel, std::uint32_t above, std::uint64_t weight) {
    const auto add = [&](int shift) {
      const auto change = static_cast<std::int64_t>((pixel >> shift) & 255) -
                          static_cast<std::int64_t>((above >> shift) & 255);
      rowFirst_ += change;
      rowSecond_ += change * static_cast<std::int64_t>(weight--);
    };
    add(16);
    add(8);
    add(0);
    if (channels_ == 4) add(24);
  }

  void finishRow() {
    const auto rowFirst = static_cast<std::uint64_t>(rowFirst_);
    const auto rowSecond = static_cast<std::uint64_t>(rowSecond_);
    second_ =
        static_cast<std::uint32_t>((second_ + rowBytes_ % kBase * first_ + rowSecond) % kBase);
    first_ = static_cast<std::uint32_t>((first_ + rowFirst) % kBase);
  }

  [[nodiscard]] std::uint32_t value() const { return second_ << 16 | first_; }

 private:
  static constexpr std::uint32_t kBase = 65521;  ///< the largest prime below 2^16

  std::size_t rowBytes_;
  std::uint32_t channels_;
  std::int64_t rowFirst_ = 0;
  std::int64_t rowSecond_ = 0;
  std::uint32_t first_ = 1;
  std::uint32_t second_ = 0;
};

}  // namespace rendering
