// Outlines cut to a box fill it as they did, and what they cost grows with what is crossed.
#include <gtest/gtest.h>

#include <random>

#include "Rendering/Painting/PainterOutline.hpp"
#include "Rendering/Painting/PainterSurface.hpp"
#include "Rendering/Text/Font.hpp"

namespace rendering {
namespace {

using Vector = PixelOutline::Vector;

class Outlines : public testing::Test {
 protected:
  /// Points of lines that go far beyond any box here, in a contour or two.
  Path randomPath(int points) {
    const auto coordinate = [&] { return static_cast<double>(random() % 40'000) / 64 - 250; };
    Path path;
    for (int i = 0; i < points; ++i) {
      const bool begins = i == 0 || i == points / 2;
      path.verbs.push_back(begins ? PathVerb::move : PathVerb::line);
      path.points.push_back({coordinate(), coordinate()});
    }
    return path;
  }

  std::vector<std::uint8_t> filled(const Path& path, const PixelBox& box) {
    CoverageMap map;
    map.reset(box);
    CoverageSink sink(map);
    raster.fill({path.verbs, path.points}, {}, FillRule::nonZero, box, sink);
    return map.coverage;
  }

  std::mt19937 random{7};
  FontLibrary fonts;
  Rasterizer raster{fonts.freetype()};
};

PixelOutline outlineOf(const Path& path) {
  PixelOutline outline;
  for (std::size_t i = 0; i < path.verbs.size(); ++i) {
    if (path.verbs[i] == PathVerb::move) outline.endContour();
    const Point& p = path.points[i];
    outline.points.push_back({std::lround(p.x * 64), std::lround(p.y * 64)});
  }
  outline.endContour();
  return outline;
}

Path pathOf(const PixelOutline& outline) {
  Path path;
  std::size_t first = 0;
  for (const short last : outline.contours) {
    for (std::size_t i = first; i <= static_cast<std::size_t>(last); ++i) {
      path.verbs.push_back(i == first ? PathVerb::move : PathVerb::line);
      const Vector& p = outline.points[i];
      path.points.push_back({static_cast<double>(p.x) / 64, static_cast<double>(p.y) / 64});
    }
    first = static_cast<std::size_t>(last) + 1;
  }
  return path;
}

int largestDifference(const std::vector<std::uint8_t>& a, const std::vector<std::uint8_t>& b) {
  EXPECT_EQ(a.size(), b.size());
  int most = 0;
  for (std::size_t i = 0; i < std::min(a.size(), b.size()); ++i) {
    most = std::max(most, std::abs(a[i] - b[i]));
  }
  return most;
}

TEST_F(Outlines, ClippedOnesFillTheBoxAlike) {
  const PixelBox box{10, 20, 75, 60};
  for (int i = 0; i < 300; ++i) {
    const Path path = randomPath(3 + i % 12);
    PixelOutline clipped;
    ASSERT_TRUE(clipOutline(outlineOf(path), box, clipped));
    for (const Vector& p : clipped.points) {
      EXPECT_TRUE(p.x >= 9 * 64 && p.x <= 76 * 64 && p.y >= 19 * 64 && p.y <= 61 * 64);
    }
    // A crossing is rounded to a unit, so an edge may be off by a 64th of a pixel.
    EXPECT_LE(largestDifference(filled(pathOf(clipped), box), filled(path, box)), 5) << i;
  }
}

// More than a few crossed pixels are filled strip by strip, whose borders depend on the box.
TEST_F(Outlines, StripsFillAlikeWhereverTheyBegin) {
  const Path path = randomPath(2000);
  const PixelBox box{0, 0, 150, 60};
  const PixelBox wider{-17, 0, 150, 60};
  const auto whole = filled(path, box);
  const auto other = filled(path, wider);
  std::vector<std::uint8_t> part;
  for (int y = 0; y < 60; ++y) {
    const auto row = other.begin() + y * wider.width() + 17;
    part.insert(part.end(), row, row + box.width());
  }
  EXPECT_LE(largestDifference(whole, part), 40);
}

TEST(OutlineCost, CountsThePixelsThatLinesGoThrough) {
  PixelOutline square;
  square.points = {{0, 0}, {640, 0}, {640, 640}, {0, 640}};
  square.endContour();
  // Each of the four lines goes through ten pixels and the one where it ends.
  EXPECT_EQ(crossedPixels(square, {0, 0, 100, 100}), 44);
  // Lines above and below the rows cost nothing.
  EXPECT_EQ(crossedPixels(square, {0, 3, 100, 7}), 22);
}

}  // namespace
}  // namespace rendering
