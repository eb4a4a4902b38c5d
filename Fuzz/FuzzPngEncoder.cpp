// Any bitmap that the encoder takes must come back from libpng pixel for pixel.
#include <png.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <vector>

#include "Rendering/Images/PngEncoder.hpp"
#include "Rendering/Renderer.hpp"

namespace {

/// Two bytes of size, one of style, then pixels; what is missing repeats.
rendering::Bitmap bitmapFrom(const std::uint8_t* data, std::size_t size) {
  rendering::Bitmap bitmap;
  bitmap.width = bitmap.stride = 1 + data[0];
  bitmap.height = 1 + data[1] % 64;
  const bool opaque = data[2] % 2 == 0;
  data += 3;
  size -= 3;
  bitmap.pixels.resize(static_cast<std::size_t>(bitmap.width * bitmap.height));
  for (std::size_t i = 0; i < bitmap.pixels.size(); ++i) {
    const auto byte = [&](std::size_t at) -> std::uint32_t {
      return size == 0 ? 0 : data[(i * 4 + at) % size];
    };
    const std::uint32_t alpha = opaque ? 255 : byte(3);
    const auto channel = [&](std::size_t at) { return std::min(byte(at), alpha); };
    bitmap.pixels[i] = alpha << 24 | channel(0) << 16 | channel(1) << 8 | channel(2);
  }
  return bitmap;
}

std::uint8_t straight(std::uint32_t pixel, int shift) {
  const std::uint32_t alpha = pixel >> 24;
  if (alpha == 0) return 0;
  return static_cast<std::uint8_t>(
      std::min(255u, (((pixel >> shift) & 255) * 255 + alpha / 2) / alpha));
}

void check(const rendering::Bitmap& bitmap, const std::string& file) {
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  if (!png_image_begin_read_from_memory(&image, file.data(), file.size())) std::abort();
  image.format = PNG_FORMAT_RGBA;
  std::vector<std::uint8_t> bytes(PNG_IMAGE_SIZE(image));
  if (!png_image_finish_read(&image, nullptr, bytes.data(), 0, nullptr)) std::abort();
  if (bytes.size() != bitmap.pixels.size() * 4) std::abort();
  for (std::size_t i = 0; i < bitmap.pixels.size(); ++i) {
    const std::uint32_t pixel = bitmap.pixels[i];
    const std::uint8_t* seen = bytes.data() + i * 4;
    const bool same = seen[0] == straight(pixel, 16) && seen[1] == straight(pixel, 8) &&
                      seen[2] == straight(pixel, 0) && seen[3] == pixel >> 24;
    if (!same) std::abort();
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 3) return 0;
  const rendering::Bitmap bitmap = bitmapFrom(data, size);
  check(bitmap, rendering::encodePng(bitmap, rendering::PngSize::fast));
  check(bitmap, rendering::encodePng(bitmap, rendering::PngSize::small));
  return 0;
}
