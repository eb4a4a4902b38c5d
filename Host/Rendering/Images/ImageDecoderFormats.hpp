// The two formats that pictures come in.
#pragma once

#include <optional>
#include <string_view>

#include "Rendering/Graphics/DrawingLimits.hpp"
#include "Rendering/Images/ImageDecoder.hpp"

namespace rendering {

[[nodiscard]] bool isPng(std::string_view bytes);
[[nodiscard]] bool isJpeg(std::string_view bytes);
[[nodiscard]] std::optional<DecodedImage> decodePng(std::string_view bytes, Size wanted);
[[nodiscard]] std::optional<DecodedImage> decodeJpeg(std::string_view bytes, Size wanted);

/// How a file's pixels are stored.
enum class PixelOrder : std::uint8_t { rowByRow, progressive };

/// Whether a picture of this size may be decoded at all.
[[nodiscard]] constexpr bool isWithinLimits(std::uint64_t width,
                                            std::uint64_t height,
                                            PixelOrder order) {
  return width > 0 && height > 0 && width <= limits::kImageSide && height <= limits::kImageSide &&
         width * height <=
             (order == PixelOrder::progressive ? limits::kProgressivePixels : limits::kImagePixels);
}

}  // namespace rendering
