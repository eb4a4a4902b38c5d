// What a person sees of a change: an arrow and its figures on one line.
#include <gtest/gtest.h>

#include <algorithm>

#include "QuorvelWidgets/WidgetSupport/Components/WidgetChange.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/ChangeDescription.hpp"
#include "Rendering/Renderer.hpp"
#include "ViewKit/ViewKit.hpp"

namespace quorvel {
namespace {

/// The first and last row and column with ink in a range of columns.
struct InkBox {
  int left = 1 << 20;
  int right = -1;
  int top = 1 << 20;
  int bottom = -1;
};
InkBox inkIn(const rendering::Bitmap& bitmap, int from, int to) {
  InkBox box;
  for (int y = 0; y < bitmap.height; ++y) {
    for (int x = from; x < std::min(to, bitmap.width); ++x) {
      const auto alpha = bitmap.pixels[static_cast<std::size_t>(y * bitmap.stride + x)] >> 24;
      if (alpha < 128) continue;
      box = {std::min(box.left, x),
             std::max(box.right, x),
             std::min(box.top, y),
             std::max(box.bottom, y)};
    }
  }
  return box;
}

TEST(ChangeFigure, TheArrowStandsAsHighAsItsFigures) {
  rendering::Renderer renderer;
  const auto change = describeChange(5, 0, true);
  const viewkit::View row =
      changeFigure(*change, 12)
          .frame(viewkit::FlexibleFrame{.maxWidth = viewkit::kInfinity,
                                        .alignment = viewkit::Alignment::leading});
  rendering::RenderOptions options;
  options.size = {60, 20};
  options.scale = 10;
  options.cornerRadius = 0;
  options.showsBackground = false;
  const rendering::Bitmap bitmap = renderer.bitmap(row, options).value();
  // The ink of the arrow is 8.7 wide; the figure's frame begins 5 after it, its ink less than 0.1
  // em later.
  const InkBox arrow = inkIn(bitmap, 0, 110);
  const InkBox figure = inkIn(bitmap, 110, 200);
  ASSERT_GE(arrow.right, 0);
  EXPECT_NEAR(arrow.bottom, figure.bottom, 3);
  EXPECT_GE(arrow.top, figure.top - 3);
  EXPECT_NEAR(arrow.left, 0, 2);
  EXPECT_NEAR(arrow.right, 87, 2);
  EXPECT_GE(figure.left - arrow.right, 48);
  EXPECT_LE(figure.left - arrow.right, 50 + 12);
}

}  // namespace
}  // namespace quorvel
