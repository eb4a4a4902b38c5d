// Every widget can be drawn: at any size, with almost nothing spent, in any state.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "Rendering/Renderer.hpp"
#include "Tests/Support/WidgetLayouts.hpp"

namespace quorvel {
namespace {

using rendering::RenderOptions;
using rendering::Size;
using testsupport::WidgetLayout;
using testsupport::WidgetState;

class Drawing : public testing::Test {
 protected:
  /// The layout's picture has as many pixels as its size asks for.
  void expectDrawn(const WidgetLayout& layout, const WidgetState& state, RenderOptions options) {
    const auto side = [&](double points) {
      return static_cast<int>(std::max(1L, std::lround(points * options.scale)));
    };
    const auto bitmap = renderer.bitmap(testsupport::viewOf(layout, state), options);
    ASSERT_TRUE(bitmap) << layout.name << ", " << state.name << ": " << bitmap.error();
    EXPECT_EQ(bitmap->width, side(options.size.width)) << layout.name << ", " << state.name;
    EXPECT_EQ(bitmap->height, side(options.size.height)) << layout.name << ", " << state.name;
  }
  void expectDrawn(const WidgetState& state, RenderOptions options) {
    for (const WidgetLayout& layout : testsupport::layouts()) expectDrawn(layout, state, options);
  }

  rendering::Renderer renderer;
  const foundation::Instant now = testsupport::morningOf("2025-03-14");
};

TEST_F(Drawing, AlmostNothingSpentIsDrawn) {
  constexpr double kSpent[] = {
      0, 0.1 + 0.2 - 0.3, 1e-6, 0.01, 0.3, 0.4, 0.5, 0.6, 0.7, 0.8, 0.9, 1.0, 3};
  for (const double spent : kSpent) {
    WidgetState state{"little", now, testsupport::richSnapshot("en", now), {}};
    state.snapshot->budget->total = 3000;
    state.snapshot->budget->spent = spent;
    expectDrawn(state, {.size = {338, 158}});
    expectDrawn(state, {.size = {158, 158}});
    expectDrawn(state, {.size = {40, 40}});
  }
  WidgetState state{"thousand of millions", now, testsupport::richSnapshot("en", now), {}};
  state.snapshot->budget->total = 10'000'000;
  state.snapshot->budget->spent = 1000;
  expectDrawn(state, {.size = {338, 158}});
}

TEST_F(Drawing, EverySizeIsDrawn) {
  constexpr Size kSizes[] = {{1, 1},
                             {1, 200},
                             {200, 1},
                             {2, 3},
                             {9, 9},
                             {37, 170},
                             {40, 40},
                             {180, 170},
                             {0.4, 0.4},
                             {61.3, 47.9}};
  const WidgetState state{"full", now, testsupport::richSnapshot("en", now), {}};
  for (const Size& size : kSizes) {
    for (const double scale : {0.5, 1.0, 2.0, 3.7}) {
      expectDrawn(state, {.size = size, .scale = scale});
    }
  }
}

}  // namespace
}  // namespace quorvel
