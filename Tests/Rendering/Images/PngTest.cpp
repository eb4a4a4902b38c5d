// The encoder against libpng, pixel for pixel.
#include <gtest/gtest.h>
#include <png.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

#include "Rendering/Images/PngEncoder.hpp"
#include "Rendering/Renderer.hpp"

namespace rendering {
namespace {

/// What a viewer must see: RGBA bytes.
std::vector<std::uint8_t> straightBytes(const Bitmap& bitmap) {
  std::vector<std::uint8_t> bytes;
  for (int y = 0; y < bitmap.height; ++y) {
    for (int x = 0; x < bitmap.width; ++x) {
      const std::uint32_t p = bitmap.pixels[static_cast<std::size_t>(y * bitmap.stride + x)];
      const std::uint32_t alpha = p >> 24;
      for (int shift : {16, 8, 0}) {
        const double value = alpha == 0 ? 0 : ((p >> shift) & 255) * 255.0 / alpha;
        bytes.push_back(static_cast<std::uint8_t>(std::min(255.0, std::floor(value + 0.5))));
      }
      bytes.push_back(static_cast<std::uint8_t>(alpha));
    }
  }
  return bytes;
}

struct Decoded {
  bool ok = false;
  bool alpha = false;
  std::vector<std::uint8_t> bytes;
};

Decoded decode(const std::string& file) {
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  if (!png_image_begin_read_from_memory(&image, file.data(), file.size())) return {};
  Decoded result;
  result.alpha = (image.format & PNG_FORMAT_FLAG_ALPHA) != 0;
  image.format = PNG_FORMAT_RGBA;
  result.bytes.resize(PNG_IMAGE_SIZE(image));
  result.ok = png_image_finish_read(&image, nullptr, result.bytes.data(), 0, nullptr) != 0;
  return result;
}

void expectRoundTrip(const Bitmap& bitmap) {
  for (PngSize size : {PngSize::fast, PngSize::small}) {
    const Decoded decoded = decode(encodePng(bitmap, size));
    ASSERT_TRUE(decoded.ok) << bitmap.width << "x" << bitmap.height;
    ASSERT_EQ(decoded.bytes, straightBytes(bitmap)) << bitmap.width << "x" << bitmap.height;
  }
}

std::uint32_t premultiplied(std::uint32_t alpha, std::mt19937& random) {
  std::uint32_t pixel = alpha << 24;
  for (int shift : {0, 8, 16})
    pixel |= (alpha == 0 ? 0u : static_cast<std::uint32_t>(random() % (alpha + 1))) << shift;
  return pixel;
}

Bitmap blank(int width, int height, std::uint32_t pixel) {
  return {width,
          height,
          width,
          std::vector<std::uint32_t>(static_cast<std::size_t>(width * height), pixel)};
}

TEST(Png, RandomPicturesComeBackUnchanged) {
  std::mt19937 random(3);
  for (int round = 0; round < 200 && !testing::Test::HasFatalFailure(); ++round) {
    const int width = 1 + static_cast<int>(random() % 70);
    const int height = 1 + static_cast<int>(random() % 40);
    Bitmap bitmap = blank(width, height, 0);
    const int colors = 1 + static_cast<int>(random() % 5);
    std::vector<std::uint32_t> palette;
    for (int i = 0; i < colors; ++i) {
      palette.push_back(premultiplied(round % 2 == 0 ? 255 : random() % 256, random));
    }
    for (std::size_t i = 0; i < bitmap.pixels.size(); ++i) {
      const bool repeatsAbove = i >= static_cast<std::size_t>(width) && random() % 3 != 0;
      const bool repeatsLeft = i > 0 && random() % 2 == 0;
      bitmap.pixels[i] = repeatsAbove  ? bitmap.pixels[i - static_cast<std::size_t>(width)]
                         : repeatsLeft ? bitmap.pixels[i - 1]
                                       : palette[random() % palette.size()];
    }
    expectRoundTrip(bitmap);
  }
}

TEST(Png, EveryAlphaAndNoisePasses) {
  std::mt19937 random(5);
  Bitmap bitmap = blank(256, 16, 0);
  for (std::size_t i = 0; i < bitmap.pixels.size(); ++i) {
    bitmap.pixels[i] = premultiplied(static_cast<std::uint32_t>(i % 256), random);
  }
  expectRoundTrip(bitmap);
}

TEST(Png, FlatPicturesAreSmall) {
  const Bitmap flat = blank(676, 316, 0xFF336699);
  expectRoundTrip(flat);
  EXPECT_LT(encodePng(flat).size(), 4000u);
  expectRoundTrip(blank(1, 1, 0));
  expectRoundTrip(blank(1, 300, 0xFF000000));
  expectRoundTrip(blank(300, 1, 0x80808080));
}

constexpr int kStampSide = 12;

/// Noise, the same wherever it stands.
void stamp(Bitmap& bitmap, int left, int top) {
  std::mt19937 random(11);
  for (int y = top; y < top + kStampSide; ++y) {
    for (int x = left; x < left + kStampSide; ++x) {
      bitmap.pixels[static_cast<std::size_t>(y * bitmap.stride + x)] = premultiplied(255, random);
    }
  }
}

TEST(Png, WhatWasDrawnBeforeIsCopied) {
  Bitmap bitmap = blank(200, 30, 0xFF336699);
  constexpr int kStamps = 10;
  for (int i = 0; i < kStamps; ++i) stamp(bitmap, 3 + 19 * i, 2 + i);
  expectRoundTrip(bitmap);
  constexpr std::size_t kNoiseBytes = 3 * kStampSide * kStampSide;
  EXPECT_LT(encodePng(bitmap).size(), kStamps * kNoiseBytes / 2);
}

// Nearer and farther than a match reaches, and in rows of their own.
TEST(Png, ScatteredCopiesPass) {
  std::mt19937 random(13);
  Bitmap bitmap = blank(200, 200, 0xFF336699);
  for (int i = 0; i < 60; ++i) {
    const auto place = [&] { return static_cast<int>(random() % (200 - kStampSide)); };
    const int left = place();
    stamp(bitmap, left, place());
  }
  expectRoundTrip(bitmap);
}

// A row that no match reaches back over.
TEST(Png, VeryWidePicturesPass) {
  std::mt19937 random(9);
  Bitmap bitmap = blank(9000, 3, 0xFF112233);
  for (int i = 0; i < 500; ++i)
    bitmap.pixels[random() % bitmap.pixels.size()] = premultiplied(255, random);
  expectRoundTrip(bitmap);
  bitmap.pixels[5] = 0x40404040;
  expectRoundTrip(bitmap);
}

// Runs are looked for in words of bits, a bit for each pixel.
TEST(Png, RunsOfEveryLengthPass) {
  constexpr int kLongest = 200;
  for (const bool opaque : {true, false}) {
    for (int width = 1; width <= kLongest && !testing::Test::HasFatalFailure(); ++width) {
      Bitmap bitmap = blank(width, 6, opaque ? 0xFF336699 : 0x80203040);
      const auto at = [&](int x, int y) -> std::uint32_t& {
        return bitmap.pixels[static_cast<std::size_t>(y * width + x)];
      };
      at(width - 1, 1) = 0xFFFFFFFF;
      at(0, 2) = 0xFFFFFFFF;
      at(width / 2, 4) = 0xFF000000;
      expectRoundTrip(bitmap);
    }
  }
}

TEST(Png, RowsMayBePadded) {
  Bitmap bitmap{
      3, 2, 5, {0xFF010203, 0xFF040506, 0xFF070809, 1, 1, 0xFF010203, 0x80402010, 0, 1, 1}};
  expectRoundTrip(bitmap);
}

TEST(Png, OpaquePicturesHaveNoAlphaChannel) {
  Bitmap bitmap = blank(4, 4, 0xFF336699);
  EXPECT_FALSE(decode(encodePng(bitmap)).alpha);
  bitmap.pixels[15] = 0x80000000;
  EXPECT_TRUE(decode(encodePng(bitmap)).alpha);
}

TEST(Png, SmallIsNeverLarger) {
  std::mt19937 random(11);
  Bitmap bitmap = blank(120, 80, 0xFFFFFFFF);
  for (int y = 0; y < 80; ++y) {
    for (int x = 0; x < 120; ++x) {
      bitmap.pixels[static_cast<std::size_t>(y * 120 + x)] =
          0xFF000000u | static_cast<std::uint32_t>(x * 2) << 16 | static_cast<std::uint32_t>(y * 3);
    }
  }
  EXPECT_LT(encodePng(bitmap, PngSize::small).size(), encodePng(bitmap, PngSize::fast).size());
}

TEST(Png, NothingIsNoPicture) {
  EXPECT_EQ(encodePng({}), "");
}

}  // namespace
}  // namespace rendering
