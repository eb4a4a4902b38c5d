#include "Rendering/Images/PngRow.hpp"

#include <algorithm>
#include <bit>
#include <cstring>

namespace rendering {

namespace {

/// The pixel whose bytes in memory are red, green, blue, alpha.
std::uint32_t inByteOrder(StraightPixel pixel) {
  if constexpr (std::endian::native == std::endian::big) return std::rotl(pixel, 8);
  return (pixel & 0xFF00FF00) | ((pixel >> 16) & 0xFF) | ((pixel & 0xFF) << 16);
}

void writePixel(unsigned char* bytes, StraightPixel pixel) {
  const std::uint32_t ordered = inByteOrder(pixel);
  std::memcpy(bytes, &ordered, sizeof ordered);
}

/// Not 0 if the pixel's alpha is neither 0 nor 255.
std::uint32_t translucency(std::uint32_t pixel) {
  return ((pixel >> 24) + 1) & 0xFE;
}

/// All pixels first as if none were translucent, which is right for most and a loop of vectors.
void writeBlock(const std::uint32_t* pixels, std::size_t count, unsigned char* bytes) {
  std::uint32_t translucent = 0;
  for (std::size_t i = 0; i < count; ++i) {
    translucent |= translucency(pixels[i]);
    writePixel(bytes + 4 * i, pixels[i]);
  }
  if (translucent == 0) return;
  std::uint32_t last = 0;
  StraightPixel lastStraight = 0;
  for (std::size_t i = 0; i < count; ++i) {
    if (translucency(pixels[i]) == 0) continue;
    if (pixels[i] != last) lastStraight = straight(last = pixels[i]);
    writePixel(bytes + 4 * i, lastStraight);
  }
}

}  // namespace

void writePngRow(const std::uint32_t* pixels,
                 std::size_t count,
                 std::uint32_t channels,
                 unsigned char* bytes) {
  if (channels == 4) {
    constexpr std::size_t kBlock = 32;  // translucent pixels stand together, at edges
    for (std::size_t i = 0; i < count; i += kBlock) {
      writeBlock(pixels + i, std::min(kBlock, count - i), bytes + 4 * i);
    }
    return;
  }
  for (std::size_t i = 0; i < count; ++i, bytes += 3) {
    bytes[0] = static_cast<unsigned char>(pixels[i] >> 16);
    bytes[1] = static_cast<unsigned char>(pixels[i] >> 8);
    bytes[2] = static_cast<unsigned char>(pixels[i]);
  }
}

}  // namespace rendering
