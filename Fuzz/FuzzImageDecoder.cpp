// Bytes as a picture file: a picture of the size that was asked for, or none.
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "Rendering/Images/ImageDecoder.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 2) return 0;
  const rendering::Size wanted{static_cast<double>(1 + data[0]), static_cast<double>(1 + data[1])};
  const auto image =
      rendering::decodeImage({reinterpret_cast<const char*>(data) + 2, size - 2}, wanted);
  if (!image) return 0;
  const bool isWhole = image->width > 0 && image->height > 0 &&
                       image->pixels.size() == static_cast<std::size_t>(image->width) *
                                                   static_cast<std::size_t>(image->height);
  if (!isWhole) std::abort();
  for (const std::uint32_t pixel : image->pixels) {
    const std::uint32_t alpha = pixel >> 24;
    const bool isPremultiplied =
        (pixel >> 16 & 255) <= alpha && (pixel >> 8 & 255) <= alpha && (pixel & 255) <= alpha;
    if (!isPremultiplied || (image->opaque && alpha != 255)) std::abort();
  }
  return 0;
}
