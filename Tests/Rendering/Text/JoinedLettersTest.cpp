// Lines of joined letters that are cut inside a word.
#include <gtest/gtest.h>

#include <algorithm>

#include "Rendering/Renderer.hpp"
#include "ViewKit/ViewKit.hpp"

namespace rendering {
namespace {

using namespace viewkit;

struct Columns {
  int first = 0;
  int last = -1;
};

/// The columns that hold ink.
Columns inked(const Bitmap& bitmap) {
  Columns columns{bitmap.width, -1};
  for (int y = 0; y < bitmap.height; ++y) {
    for (int x = 0; x < bitmap.width; ++x) {
      if (bitmap.pixels[static_cast<std::size_t>(y * bitmap.stride + x)] >> 24 < 64) continue;
      columns.first = std::min(columns.first, x);
      columns.last = std::max(columns.last, x);
    }
  }
  return columns;
}

// The last letter before the ellipsis takes its final form, up to half an em wider than the one
// that the whole word was measured with.
TEST(JoinedLetters, ACutLineStaysInItsFrameFromItsBeginning) {
  constexpr int kMargin = 30;
  constexpr int kSideBearing = 3;
  Renderer renderer;
  for (const LayoutDirection direction :
       {LayoutDirection::rightToLeft, LayoutDirection::leftToRight}) {
    for (int width = 40; width < 150; ++width) {
      const View text = Text{"بطاقة السفر الذهبية"}
                            .font(20, FontWeight::bold)
                            .lineLimit(1)
                            .language("ar")
                            .frame(FixedFrame{.width = static_cast<double>(width),
                                              .alignment = Alignment::leading})
                            .layoutDirection(direction);
      const Size size{static_cast<double>(width + 2 * kMargin), 40};
      const Columns ink = inked(
          renderer.bitmap(text, {.size = size, .scale = 1, .showsBackground = false}).value());
      EXPECT_GE(ink.first, kMargin - 1) << width;
      EXPECT_LE(ink.last, kMargin + width) << width;
      if (direction == LayoutDirection::rightToLeft) {
        EXPECT_GE(ink.last, kMargin + width - kSideBearing) << width;
      }
    }
  }
}

}  // namespace
}  // namespace rendering
