// A picture's rows as deflate packs them: copies of bytes that were there before, and pixels for
// themselves.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "Rendering/Graphics/Bitmap.hpp"
#include "Rendering/Images/Deflate.hpp"
#include "Rendering/Images/DeflateBlock.hpp"
#include "Rendering/Images/PngChecksum.hpp"

namespace rendering {

/// 0xAARRGGBB, not premultiplied, as PNG keeps it.
using StraightPixel = std::uint32_t;

/// Our pictures are flat: long runs of one colour, rows that repeat the row above, and letters
/// whose edges have few shades. One pass over whole pixels finds all three.
class PngTokens {
 public:
  PngTokens(const Bitmap& bitmap, std::uint32_t channels);

  /// Calls `rowStart()`, `pixels(const StraightPixel*, count)` and `copy(pixels, distance)` in the
  /// order of the bytes; a copy's distance is in bytes.
  template <class RowStart, class Pixels, class CopyPixels>
  void each(RowStart rowStart, Pixels pixels, CopyPixels copy) const {
    for (std::size_t i = 0; i < tokens_.size();) {
      const std::uint32_t token = tokens_[i++];
      if (token == kRowStart) {
        rowStart();
      } else if ((token & kCopyFlag) == 0) {
        pixels(tokens_.data() + i, token);
        i += token;
      } else {
        copy(token & ~kCopyFlag, tokens_[i++]);
      }
    }
  }

  [[nodiscard]] std::size_t size() const { return tokens_.size(); }
  /// How often each byte occurs outside copies, the filters of rows left out.
  [[nodiscard]] const deflate::SymbolCounts& counts() const { return counts_; }
  /// Of the rows' bytes, filters included.
  [[nodiscard]] std::uint32_t checksum() const { return checksum_.value(); }

 private:
  /// Pixels that were there before, so many bytes back.
  struct Copy {
    int pixels = 0;
    std::uint32_t distance = 0;
  };
  /// Where a pixel, or it and the next one, was last seen.
  class LastSeen {
   public:
    struct Place {
      int x = -1;  ///< below 0: nowhere
      int y = 0;
    };
    Place& operator[](std::uint64_t pixels) {
      return places_[(pixels * 0x9E3779B97F4A7C15u) >> (64 - kBits)];
    }

   private:
    static constexpr int kBits = 12;
    std::array<Place, 1u << kBits> places_{};
  };

  [[nodiscard]] const std::uint32_t* row(int y) const {
    return bitmap_.pixels.data() + static_cast<std::ptrdiff_t>(y) * bitmap_.stride;
  }
  [[nodiscard]] std::uint64_t pair(int x, int y) const {
    const std::uint32_t* pixel = row(y) + x;
    return std::uint64_t{pixel[1]} << 32 | pixel[0];
  }

  void addRow(int y);
  [[nodiscard]] Copy longestCopy(int x, int y, int up);
  [[nodiscard]] Copy fromAbove(int pixels) const {
    return {pixels, static_cast<std::uint32_t>(rowBytes_)};
  }
  [[nodiscard]] Copy earlier(int x, int y);
  [[nodiscard]] Copy copyFrom(LastSeen::Place from, int x, int y) const;
  void remember(int x, int y);
  void updateChecksum(const std::uint32_t* pixels, const std::uint32_t* above, int x, int count);
  void add(const Copy& copy);
  void add(StraightPixel pixel);

  // A token is the start of a row, a copy's pixels and then its distance, or a number of pixels and
  // then these.
  static constexpr std::uint32_t kRowStart = 0xFFFFFFFF;
  static constexpr std::uint32_t kCopyFlag = 0x80000000;

  const Bitmap& bitmap_;
  std::uint32_t channels_;
  std::size_t rowBytes_;
  std::vector<std::uint32_t> tokens_;
  std::size_t pixelRun_ = 0;  ///< the token that counts the pixels added last; 0: none
  deflate::SymbolCounts counts_;
  LastSeen pixels_;
  LastSeen pairs_;
  PngChecksum checksum_;
};

}  // namespace rendering
