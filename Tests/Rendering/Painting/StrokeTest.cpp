// Strokes too short to have a direction: a dot where the caps are round, nothing elsewhere, and
// never an end to what the stroker did not begin.
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <vector>

#include "Rendering/Renderer.hpp"
#include "ViewKit/ViewKit.hpp"

namespace rendering {
namespace {

using namespace viewkit;

const Color kInk = Color::same(0xFF0000);

class Strokes : public testing::Test {
 protected:
  Bitmap draw(const View& view, double width, double height, double scale = 1) {
    return renderer
        .bitmap(view, {.size = {width, height}, .scale = scale, .showsBackground = false})
        .value();
  }
  /// Pixels' worth of ink.
  static double weight(const Bitmap& bitmap) {
    double sum = 0;
    for (const std::uint32_t pixel : bitmap.pixels) sum += (pixel >> 24) / 255.0;
    return sum;
  }
  double weightOf(const View& view) { return weight(draw(view, 20, 20)); }

  Renderer renderer;
};

using Verb = PathStep::Verb;
using Steps = std::vector<PathStep>;

const LineCap kFlatCaps[] = {LineCap::butt, LineCap::square};

constexpr double discArea(double diameter) {
  return std::numbers::pi * diameter * diameter / 4;
}

TEST_F(Strokes, AStepOfNoLengthIsADotUnderRoundCaps) {
  const Steps paths[] = {
      {{Verb::move, {10, 10}}, {Verb::line, {10, 10}}},
      {{Verb::move, {10, 10}}, {Verb::close}},
      {{Verb::move, {10, 10}}, {Verb::line, {10, 10}}, {Verb::close}},
      {{Verb::move, {10, 10}}, {Verb::line, {10.001, 10}}},
      {{Verb::move, {10, 10}}, {Verb::cubic, {10, 10}, {10, 10}, {10, 10}}},
      {{Verb::move, {10, 10}}, {Verb::cubic, {10.01, 10}, {10.01, 10.01}, {10, 10.01}}}};
  for (const Steps& path : paths) {
    const auto stroked = [&](LineCap cap) { return Path(path).stroke(kInk, 6, cap); };
    EXPECT_NEAR(weightOf(stroked(LineCap::round)), discArea(6), 0.5);
    for (const LineCap cap : kFlatCaps) EXPECT_EQ(weightOf(stroked(cap)), 0);
  }
}

TEST_F(Strokes, AMoveAloneDrawsNothing) {
  for (const LineCap cap : {LineCap::butt, LineCap::round, LineCap::square}) {
    EXPECT_EQ(weightOf(Path(Steps{{Verb::move, {10, 10}}}).stroke(kInk, 6, cap)), 0);
    const Steps two{{Verb::move, {10, 10}}, {Verb::move, {3, 3}}};
    EXPECT_EQ(weightOf(Path(two).stroke(kInk, 6, cap)), 0);
  }
}

// A hundred steps of 1/100 point make a line of one point.
TEST_F(Strokes, ManyShortStepsAddUp) {
  Steps steps{{Verb::move, {5, 10}}};
  for (int i = 1; i <= 1000; ++i) steps.push_back({Verb::line, {5 + i / 100.0, 10}});
  EXPECT_NEAR(weightOf(Path(steps).stroke(kInk, 4)), 10 * 4, 0.2);
  Steps curves{{Verb::move, {5, 10}}};
  for (int i = 1; i <= 1000; ++i) {
    const double x = 5 + i / 100.0;
    curves.push_back({Verb::cubic, {x, 10}, {x, 10}, {x, 10}});
  }
  EXPECT_NEAR(weightOf(Path(curves).stroke(kInk, 4)), 10 * 4, 0.2);
}

TEST_F(Strokes, AStepAfterAClosedSubpathBeginsWhereThatOneDid) {
  const Steps closed{{Verb::move, {4, 4}},
                     {Verb::line, {8, 4}},
                     {Verb::line, {8, 8}},
                     {Verb::close},
                     {Verb::line, {4, 16}}};
  Steps apart = closed;
  apart.insert(apart.begin() + 4, {Verb::move, {4, 4}});
  EXPECT_EQ(draw(Path(closed).stroke(kInk, 2), 20, 20).pixels,
            draw(Path(apart).stroke(kInk, 2), 20, 20).pixels);
}

TEST_F(Strokes, APointBesideALineLeavesTheLine) {
  const Steps line{{Verb::move, {5, 5}}, {Verb::line, {15, 5}}};
  Steps both{{Verb::move, {2, 2}}, {Verb::line, {2, 2}}};
  both.insert(both.end(), line.begin(), line.end());
  both.push_back({Verb::move, {3, 17}});
  EXPECT_EQ(draw(Path(both).stroke(kInk, 4), 20, 20).pixels,
            draw(Path(line).stroke(kInk, 4), 20, 20).pixels);
}

TEST_F(Strokes, ACircleOfNoSizeIsNothing) {
  const View circle = Circle().stroke(kInk, 3).frame({.width = Length(0), .height = Length(0)});
  EXPECT_EQ(weightOf(circle), 0);
  EXPECT_EQ(weightOf(Circle().trim(0, 1e-6).stroke(kInk, 3)), 0);
}

// The thinnest line that the rasteriser's units can tell from nothing has a radius of half a unit.
TEST_F(Strokes, AnInvisiblyThinLineIsNothing) {
  const Steps line{{Verb::move, {5, 5}}, {Verb::line, {15, 5}}};
  EXPECT_EQ(weightOf(Path(line).stroke(kInk, 1e-9)), 0);
  EXPECT_EQ(weightOf(Path(line).stroke(kInk, 0)), 0);
}

TEST_F(Strokes, TheSmallestFractionsAndSizesAreDrawn) {
  constexpr double kFractions[] = {0, 1e-7, 1e-6, 1e-5, 1e-4, 1e-3, 0.1, 1 - 1e-7, 1};
  constexpr double kSides[] = {1, 2, 3, 5, 8, 13, 40, 41.7, 120, 158};
  for (const double fraction : kFractions) {
    for (const double side : kSides) {
      for (const double lineWidth : {0.01, 0.5, 1.0, 3.0, 12.0}) {
        for (const double scale : {0.5, 1.0, 2.0, 3.0}) {
          const View view = ZStack{{},
                                   Gauge{{.fraction = fraction, .lineWidth = lineWidth}, View{}},
                                   Circle().trim(0, fraction).stroke(kInk, lineWidth),
                                   Circle()
                                       .trim(1 - fraction, 1)
                                       .stroke(kInk, lineWidth, LineCap::round, LineJoin::round)};
          const auto pixels = static_cast<std::size_t>(std::max(1L, std::lround(side * scale)));
          ASSERT_EQ(draw(view, side, side, scale).pixels.size(), pixels * pixels)
              << fraction << " of " << side << " by " << lineWidth << " at " << scale;
        }
      }
    }
  }
}

// An arc of so small a fraction is its two round caps.
TEST_F(Strokes, ATinyFractionOfAGaugeIsADot) {
  const auto gauge = [&](double fraction) {
    return weight(draw(Gauge{{.fraction = fraction, .lineWidth = 6}, View{}}, 60, 60));
  };
  // 0.7 of the dot: the track below already has 0.3.
  EXPECT_NEAR(gauge(1e-7) - gauge(0), discArea(6) * 0.7, 0.5);
  EXPECT_NEAR(gauge(1e-4) - gauge(0), discArea(6) * 0.7, 0.5);
}

}  // namespace
}  // namespace rendering
