// The two formats that pictures come in.
#pragma once

#include <optional>
#include <string_view>

#include "Rendering/ImageDecoder.hpp"

namespace rendering {

[[nodiscard]] bool isPng(std::string_view bytes);
[[nodiscard]] bool isJpeg(std::string_view bytes);
[[nodiscard]] std::optional<DecodedImage> decodePng(std::string_view bytes, Size wanted);
[[nodiscard]] std::optional<DecodedImage> decodeJpeg(std::string_view bytes, Size wanted);

/// Whether a picture of this size may be decoded at all.
[[nodiscard]] constexpr bool isBearable(std::uint64_t width, std::uint64_t height) {
  return width > 0 && height > 0 && width <= 16384 && height <= 16384 &&
         width * height <= 50'000'000;
}

}  // namespace rendering
