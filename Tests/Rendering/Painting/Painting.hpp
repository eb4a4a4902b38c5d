// Draws small pictures and looks at their pixels.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>

#include "Rendering/Renderer.hpp"
#include "ViewKit/ViewKit.hpp"

namespace rendering {

class Painting : public testing::Test {
 protected:
  /// One pixel per point, no background, no corners.
  static RenderOptions plain(double width, double height) {
    return {.size = {width, height}, .scale = 1, .showsBackground = false};
  }
  Bitmap draw(const viewkit::View& view, const RenderOptions& options) {
    return renderer.bitmap(view, options).value();
  }
  static std::uint32_t at(const Bitmap& bitmap, int x, int y) {
    return bitmap.pixels[static_cast<std::size_t>(y * bitmap.stride + x)];
  }
  /// No channel differs by more than `slack`.
  static void expectSame(const Bitmap& a, const Bitmap& b, int slack = 1) {
    ASSERT_EQ(a.width, b.width);
    ASSERT_EQ(a.height, b.height);
    for (int y = 0; y < a.height; ++y) {
      for (int x = 0; x < a.width; ++x) {
        for (int shift = 0; shift < 32; shift += 8) {
          const int one = static_cast<int>(at(a, x, y) >> shift & 255);
          const int other = static_cast<int>(at(b, x, y) >> shift & 255);
          ASSERT_LE(std::abs(one - other), slack) << "at " << x << "," << y << " shift " << shift;
        }
      }
    }
  }
  static bool isBlank(const Bitmap& bitmap) {
    return std::ranges::all_of(bitmap.pixels, [](auto p) { return p == 0; });
  }
  static int inked(const Bitmap& bitmap) {
    return static_cast<int>(std::ranges::count_if(bitmap.pixels, [](auto p) { return p != 0; }));
  }

  Renderer renderer;
};

inline const viewkit::Color kRed = viewkit::Color::same(0xFF0000);
inline const viewkit::Color kBlue = viewkit::Color::same(0x0000FF);

inline viewkit::View box(viewkit::Color color, double width, double height) {
  return viewkit::Rectangle().fill(color).frame(
      {.width = viewkit::Length(width), .height = viewkit::Length(height)});
}

}  // namespace rendering
