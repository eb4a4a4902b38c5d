#include "Rendering/Images/PngTokens.hpp"

#include <libdeflate.h>

#include <algorithm>
#include <cstring>

namespace rendering {

namespace {

constexpr int kGoodCopy = 16;  ///< pixels, with which the search ends
constexpr int kFewPixels = 3;  ///< with fewer a search farther back may pay

std::uint64_t pairAt(const std::uint32_t* pixel) {
  return std::uint64_t{pixel[1]} << 32 | pixel[0];
}

int equalPixels(const std::uint32_t* pixels, const std::uint32_t* others, int count) {
  int i = 0;
  while (i < count && pixels[i] == others[i]) ++i;
  return i;
}

}  // namespace

// Inline, since these few calls per pixel are most of the work.

inline PngTokens::Copy PngTokens::copyFrom(LastSeen::Place from, int x, int y) const {
  const auto distance = static_cast<std::size_t>(y - from.y) * rowBytes_.size() +
                        static_cast<std::size_t>(x - from.x) * channels_;
  if (distance - 1 >= deflate::kWindow) return {};
  const std::uint32_t* pixel = row(y) + x;
  const std::uint32_t* other = row(from.y) + from.x;
  if (*pixel != *other) return {};
  const int room = bitmap_.width - std::max(x, from.x);
  return {1 + equalPixels(pixel + 1, other + 1, room - 1),
          deflate::distanceCode(static_cast<unsigned>(distance))};
}

inline PngTokens::Copy PngTokens::earlier(int x, int y) {
  const std::uint32_t* pixel = row(y) + x;
  if (x + 1 < bitmap_.width) {
    const Copy two = copyFrom(pairs_[pairAt(pixel)], x, y);
    if (two.pixels > 1) return two;
  }
  return copyFrom(pixels_[*pixel], x, y);
}

inline PngTokens::Copy PngTokens::longestCopy(int x, int y, int up) {
  const int left = x > 0 ? sameAsNext_.onesFrom(x - 1) : 0;
  const Copy near = left >= up ? Copy{left, left_} : Copy{up, above_};
  if (near.pixels >= kFewPixels) return near;
  const Copy far = earlier(x, y);
  return far.pixels > near.pixels ? far : near;
}

inline void PngTokens::remember(int x, int y) {
  const std::uint32_t* pixel = row(y) + x;
  pixels_[*pixel] = {x, y};
  if (x + 1 < bitmap_.width) pairs_[pairAt(pixel)] = {x, y};
}

inline void PngTokens::add(const Copy& copy) {
  auto pixels = static_cast<std::uint32_t>(copy.pixels);
  *next_++ = {pixels, copy.distance.symbol, copy.distance.extra};
  std::uint32_t& distances = counts_.distances[copy.distance.symbol];
  for (; pixels > longestMatch_; pixels -= longestMatch_) {
    ++matches_[longestMatch_];
    ++distances;
  }
  ++matches_[pixels];
  ++distances;
}

inline void PngTokens::add(StraightPixel pixel) {
  if (next_[-1].isCopy()) *next_++ = {};
  ++next_[-1].pixels;
  ++counts_.literals[(pixel >> 16) & 255];
  ++counts_.literals[(pixel >> 8) & 255];
  ++counts_.literals[pixel & 255];
  if (channels_ == 4) ++counts_.literals[pixel >> 24];
}

void PngTokens::addTokens(int y, bool canCopyAbove) {
  const std::uint32_t* pixels = row(y);
  const int width = bitmap_.width;
  for (int x = 0; x < width;) {
    const int up = canCopyAbove ? sameAsAbove_.onesFrom(x) : 0;
    if (up == width - x || up >= kGoodCopy) {
      add({up, above_});
      x += up;
      continue;
    }
    const Copy copy = longestCopy(x, y, up);
    remember(x, y);
    if (copy.pixels > 0) {
      add(copy);
      x += copy.pixels;
    } else {
      add(straight(pixels[x++]));
    }
  }
}

void PngTokens::addRow(int y) {
  const std::uint32_t* pixels = row(y);
  const auto width = static_cast<std::size_t>(bitmap_.width);
  const bool isRepeated = y > 0 && std::memcmp(pixels, row(y - 1), width * sizeof *pixels) == 0;
  const bool canCopyAbove = y > 0 && rowBytes_.size() <= deflate::kWindow;
  next_ = rowTokens_.data();
  *next_++ = {};
  if (isRepeated && canCopyAbove) {
    add({bitmap_.width, above_});
  } else {
    if (canCopyAbove) sameAsAbove_.compare(pixels, row(y - 1), bitmap_.width);
    sameAsNext_.compare(pixels, pixels + 1, bitmap_.width - 1);
    addTokens(y, canCopyAbove);
  }
  tokens_.insert(tokens_.end(), rowTokens_.data(), next_);
  if (!isRepeated) writePngRow(pixels, width, channels_, rowBytes_.data() + 1);
  checksum_ = libdeflate_adler32(checksum_, rowBytes_.data(), rowBytes_.size());
}

void PngTokens::countMatches() {
  for (std::uint32_t pixels = 1; pixels <= longestMatch_; ++pixels) {
    counts_.literals[deflate::lengthCode(pixels * channels_).symbol] += matches_[pixels];
  }
}

PngTokens::PngTokens(const Bitmap& bitmap, std::uint32_t channels)
    : bitmap_(bitmap),
      channels_(channels),
      rowBytes_(static_cast<std::size_t>(bitmap.width) * channels + 1, kNoFilter),
      longestMatch_(deflate::kLongestMatch / channels),
      left_(deflate::distanceCode(channels)),
      above_(deflate::distanceCode(static_cast<unsigned>(rowBytes_.size()))),
      sameAsAbove_(bitmap.width),
      sameAsNext_(bitmap.width),
      rowTokens_(static_cast<std::size_t>(bitmap.width) + 1) {
  tokens_.reserve(static_cast<std::size_t>(bitmap_.height) * 32);
  for (int y = 0; y < bitmap_.height; ++y) addRow(y);
  countMatches();
  counts_.literals[kNoFilter] += static_cast<std::uint32_t>(bitmap_.height);
  ++counts_.literals[deflate::kEndOfBlock];
}

}  // namespace rendering
