#include "Rendering/Images/PngTokens.hpp"

#include <algorithm>
#include <cstring>

namespace rendering {

namespace {

constexpr int kGoodCopy = 16;  ///< pixels, with which the search ends
constexpr int kFewPixels = 3;  ///< with fewer a search farther back may pay

StraightPixel straight(std::uint32_t pixel) {
  const std::uint32_t alpha = pixel >> 24;
  if (alpha == 255) return pixel;
  if (alpha == 0) return 0;
  const auto channel = [&](int shift) {
    return std::min(255u, (((pixel >> shift) & 255) * 255 + alpha / 2) / alpha) << shift;
  };
  return alpha << 24 | channel(16) | channel(8) | channel(0);
}

/// How many pixels are the same from the start of both.
inline int equalPixels(const std::uint32_t* pixels, const std::uint32_t* others, int count) {
  int i = 0;
  for (; i + 4 <= count; i += 4) {
    std::uint64_t a[2];
    std::uint64_t b[2];
    std::memcpy(a, pixels + i, 16);
    std::memcpy(b, others + i, 16);
    const std::uint64_t first = a[0] ^ b[0];
    const std::uint64_t second = a[1] ^ b[1];
    if ((first | second) == 0) continue;
    if (first == 0) i += 2;
    return pixels[i] == others[i] ? i + 1 : i;
  }
  while (i < count && pixels[i] == others[i]) ++i;
  return i;
}

}  // namespace

// Inline, since these few calls per pixel are most of the work.

inline PngTokens::Copy PngTokens::copyFrom(LastSeen::Place from, int x, int y) const {
  if (from.x < 0) return {};
  const auto distance = static_cast<std::size_t>(y - from.y) * rowBytes_ +
                        static_cast<std::size_t>(x - from.x) * channels_;
  if (distance > deflate::kWindow) return {};
  const int room = bitmap_.width - std::max(x, from.x);
  return {equalPixels(row(y) + x, row(from.y) + from.x, room),
          static_cast<std::uint32_t>(distance)};
}

inline PngTokens::Copy PngTokens::earlier(int x, int y) {
  if (x + 1 < bitmap_.width) {
    const Copy two = copyFrom(pairs_[pair(x, y)], x, y);
    if (two.pixels > 1) return two;
  }
  return copyFrom(pixels_[row(y)[x]], x, y);
}

inline PngTokens::Copy PngTokens::longestCopy(int x, int y, int up) {
  const std::uint32_t* pixel = row(y) + x;
  const int left = x > 0 ? equalPixels(pixel, pixel - 1, bitmap_.width - x) : 0;
  const Copy near = left >= up ? Copy{left, channels_} : fromAbove(up);
  if (near.pixels >= kFewPixels) return near;
  const Copy far = earlier(x, y);
  return far.pixels > near.pixels ? far : near;
}

inline void PngTokens::remember(int x, int y) {
  const LastSeen::Place place{x, y};
  pixels_[row(y)[x]] = place;
  if (x + 1 < bitmap_.width) pairs_[pair(x, y)] = place;
}

inline void PngTokens::updateChecksum(const std::uint32_t* pixels,
                                      const std::uint32_t* above,
                                      int x,
                                      int count) {
  std::uint64_t weight = (static_cast<std::uint64_t>(bitmap_.width) - x) * channels_;
  for (int i = x; i < x + count; ++i, weight -= channels_) {
    const std::uint32_t before = above ? above[i] : 0;
    if (pixels[i] != before) checksum_.change(straight(pixels[i]), straight(before), weight);
  }
}

inline void PngTokens::add(const Copy& copy) {
  pixelRun_ = 0;
  tokens_.push_back(kCopyFlag | static_cast<std::uint32_t>(copy.pixels));
  tokens_.push_back(copy.distance);
}

inline void PngTokens::add(StraightPixel pixel) {
  if (pixelRun_ == 0) {
    pixelRun_ = tokens_.size();
    tokens_.push_back(0);
  }
  ++tokens_[pixelRun_];
  tokens_.push_back(pixel);
  ++counts_.literals[(pixel >> 16) & 255];
  ++counts_.literals[(pixel >> 8) & 255];
  ++counts_.literals[pixel & 255];
  if (channels_ == 4) ++counts_.literals[pixel >> 24];
}

void PngTokens::addRow(int y) {
  const std::uint32_t* pixels = row(y);
  const int width = bitmap_.width;
  const std::uint32_t* above = y > 0 ? row(y - 1) : nullptr;
  const bool canCopy = above && rowBytes_ <= deflate::kWindow;
  tokens_.push_back(kRowStart);
  for (int x = 0; x < width;) {
    const int up = canCopy ? equalPixels(pixels + x, above + x, width - x) : 0;
    const bool isGood = up == width - x || up >= kGoodCopy;
    const Copy copy = isGood ? fromAbove(up) : longestCopy(x, y, up);
    const int count = std::max(copy.pixels, 1);
    if (copy.pixels > 0) {
      add(copy);
    } else {
      add(straight(pixels[x]));
    }
    if (!isGood) {
      updateChecksum(pixels, above, x, count);
      remember(x, y);
    }
    x += count;
  }
  pixelRun_ = 0;
  checksum_.finishRow();
}

PngTokens::PngTokens(const Bitmap& bitmap, std::uint32_t channels)
    : bitmap_(bitmap),
      channels_(channels),
      rowBytes_(static_cast<std::size_t>(bitmap.width) * channels + 1),
      checksum_(rowBytes_, channels) {
  tokens_.reserve(static_cast<std::size_t>(bitmap_.height) * 64);
  for (int y = 0; y < bitmap_.height; ++y) addRow(y);
}

}  // namespace rendering
