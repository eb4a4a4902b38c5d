// Averages of squares, premultiplied so that transparent pixels lend no colour.
#include "Rendering/Images/ImageDecoderScale.hpp"

#include <algorithm>

#include "Rendering/Graphics/PainterPixels.hpp"

namespace rendering {

int shrinkFactor(int width, int height, Size wanted) {
  const double byWidth = width / std::max(wanted.width, 1.0);
  const double byHeight = height / std::max(wanted.height, 1.0);
  // Sums of 255 times the square of the factor must fit into 32 bits.
  return static_cast<int>(std::clamp(std::min(byWidth, byHeight), 1.0, 1024.0));
}

ShrinkingImage::ShrinkingImage(int width, int height, int factor) : width_(width), factor_(factor) {
  image_.sourceWidth = width;
  image_.sourceHeight = height;
  image_.width = (width + factor - 1) / factor;
  image_.height = (height + factor - 1) / factor;
  image_.pixels.resize(static_cast<std::size_t>(image_.width) *
                       static_cast<std::size_t>(image_.height));
  if (factor > 1) sums_.assign(static_cast<std::size_t>(image_.width) * 4, 0);
}

void ShrinkingImage::row(const std::uint8_t* rgba) {
  if (nextRow_ >= image_.height) return;
  if (factor_ == 1) {
    std::uint32_t* to = image_.pixels.data() + static_cast<std::ptrdiff_t>(nextRow_++) * width_;
    for (int x = 0; x < width_; ++x, rgba += 4) {
      const std::uint32_t alpha = rgba[3];
      to[x] = alpha << 24 | scaleByte(rgba[0], alpha) << 16 | scaleByte(rgba[1], alpha) << 8 |
              scaleByte(rgba[2], alpha);
    }
    return;
  }
  for (int x = 0; x < width_; ++x, rgba += 4) {
    std::uint32_t* sum = sums_.data() + static_cast<std::ptrdiff_t>(x / factor_) * 4;
    const std::uint32_t alpha = rgba[3];
    sum[0] += scaleByte(rgba[0], alpha);
    sum[1] += scaleByte(rgba[1], alpha);
    sum[2] += scaleByte(rgba[2], alpha);
    sum[3] += alpha;
  }
  if (++rowsHeld_ == factor_) flush();
}

void ShrinkingImage::flush() {
  if (rowsHeld_ == 0) return;
  std::uint32_t* to = image_.pixels.data() + static_cast<std::ptrdiff_t>(nextRow_++) * image_.width;
  for (int x = 0; x < image_.width; ++x) {
    const auto columns = static_cast<std::uint32_t>(std::min(factor_, width_ - x * factor_));
    const std::uint32_t count = columns * static_cast<std::uint32_t>(rowsHeld_);
    const std::uint32_t* sum = sums_.data() + static_cast<std::ptrdiff_t>(x) * 4;
    const auto mean = [&](int i) { return (sum[i] + count / 2) / count; };
    to[x] = mean(3) << 24 | mean(0) << 16 | mean(1) << 8 | mean(2);
  }
  std::ranges::fill(sums_, 0);
  rowsHeld_ = 0;
}

DecodedImage ShrinkingImage::finish() {
  flush();
  image_.opaque =
      std::ranges::all_of(image_.pixels, [](std::uint32_t pixel) { return pixel >> 24 == 255; });
  return std::move(image_);
}

}  // namespace rendering
