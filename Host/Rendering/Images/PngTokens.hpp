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
#include "Rendering/Images/PixelMask.hpp"
#include "Rendering/Images/PngRow.hpp"

namespace rendering {

/// Our pictures are flat: long runs of one colour, rows that repeat the row above, and letters
/// whose edges have few shades. One pass over whole pixels finds all three.
class PngTokens {
 public:
  PngTokens(const Bitmap& bitmap, std::uint32_t channels);

  /// Pixels that stand for themselves, or that were there before. No token goes beyond its row; a
  /// row's first may be of no pixels.
  struct Token {
    static constexpr std::uint16_t kNoDistance = 0xFFFF;

    std::uint32_t pixels = 0;
    std::uint16_t distance = kNoDistance;  ///< the symbol, in bytes
    std::uint16_t extra = 0;               ///< the bits that follow the symbol

    [[nodiscard]] bool isCopy() const { return distance != kNoDistance; }
  };

  [[nodiscard]] const std::vector<Token>& tokens() const { return tokens_; }
  /// How often each symbol occurs, the filters of the rows and the block's end included.
  [[nodiscard]] const deflate::SymbolCounts& counts() const { return counts_; }
  /// A copy of more pixels takes several matches.
  [[nodiscard]] std::uint32_t longestMatch() const { return longestMatch_; }
  /// Adler-32 (RFC 1950, 8.2) of the rows' bytes, filters included.
  [[nodiscard]] std::uint32_t checksum() const { return checksum_; }

 private:
  /// Pixels that were there before.
  struct Copy {
    int pixels = 0;
    deflate::Code distance{};
  };
  /// Where a pixel, or it and the next one, was last seen.
  class LastSeen {
   public:
    struct Place {
      int x = 0;
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

  void addRow(int y);
  void addTokens(int y, bool canCopyAbove);
  [[nodiscard]] Copy longestCopy(int x, int y, int up);
  [[nodiscard]] Copy earlier(int x, int y);
  [[nodiscard]] Copy copyFrom(LastSeen::Place from, int x, int y) const;
  void remember(int x, int y);
  void add(const Copy& copy);
  void add(StraightPixel pixel);
  void countMatches();

  const Bitmap& bitmap_;
  std::uint32_t channels_;
  std::vector<unsigned char> rowBytes_;  ///< of the row that is looked at, its filter first
  std::uint32_t longestMatch_;
  deflate::Code left_;   ///< the distance of the pixel before
  deflate::Code above_;  ///< and of the one above, if that can be reached
  std::vector<Token> tokens_;
  std::array<std::uint32_t, deflate::kLongestMatch + 1> matches_{};  ///< of so many pixels
  deflate::SymbolCounts counts_;
  PixelMask sameAsAbove_;
  PixelMask sameAsNext_;
  std::vector<Token> rowTokens_;  ///< of one row, as many as there are room for
  Token* next_ = nullptr;         ///< the place in it for the next token
  LastSeen pixels_;
  LastSeen pairs_;
  std::uint32_t checksum_ = 1;
};

}  // namespace rendering
