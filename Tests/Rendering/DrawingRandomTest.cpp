// Trees made at random, drawn at random sizes in every form: each is a picture of the size that was
// asked for, or refused in one line.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "RandomTrees.hpp"
#include "Rendering/Images/PngEncoder.hpp"
#include "Rendering/Renderer.hpp"

namespace rendering {
namespace {

/// Sides of 1 to 1000 points, small ones more often, since they find as much and sooner.
RenderOptions randomOptions(unsigned seed) {
  std::mt19937 random(seed);
  const auto below = [&](unsigned end) { return static_cast<unsigned>(random() % end); };
  const auto side = [&] { return 1 + below(below(8) == 0 ? 9990 : 1990) / 10.0; };
  RenderOptions options;
  options.size = {side(), side()};
  options.scale = options.size.width * options.size.height > 90'000 ? 1 : 0.5 + below(36) / 10.0;
  options.appearance = static_cast<Appearance>(below(2));
  options.mode = static_cast<RenderingMode>(below(3));
  options.direction = below(2) == 0 ? kLtr : kRtl;
  options.showsBackground = below(2) == 0;
  options.cornerRadius = below(40);
  options.redaction = {.privacy = below(4) == 0, .placeholder = below(8) == 0};
  return options;
}

bool isOneLine(const std::string& text) {
  return !text.empty() && text.find('\n') == std::string::npos;
}

/// Whether there was a picture.
bool expectDrawn(Renderer& renderer, const View& view, const RenderOptions& options) {
  const auto bitmap = renderer.bitmap(view, options);
  if (!bitmap) {
    EXPECT_TRUE(isOneLine(bitmap.error())) << bitmap.error();
    return false;
  }
  const auto pixels = [&](double points) {
    return static_cast<int>(std::max(1L, std::lround(points * options.scale)));
  };
  EXPECT_EQ(bitmap->width, pixels(options.size.width));
  EXPECT_EQ(bitmap->height, pixels(options.size.height));
  EXPECT_TRUE(encodePng(*bitmap).starts_with("\x89PNG"));
  const auto svg = renderer.svg(view, options);
  EXPECT_TRUE(svg && svg->ends_with("</svg>\n")) << (svg ? "" : svg.error());
  EXPECT_TRUE(renderer.plainText(view, options));
  EXPECT_TRUE(renderer.accessibilityTree(view, options, "Widget"));
  return true;
}

TEST(DrawingRandom, EveryTreeIsDrawnInEveryForm) {
  Renderer renderer;
  for (unsigned seed = 0; seed < 250; ++seed) {
    SCOPED_TRACE(seed);
    EXPECT_TRUE(expectDrawn(renderer, DrawnTreeMaker(seed, true).view(3), randomOptions(seed)));
  }
}

TEST(DrawingRandom, SenselessLengthsAreDrawnOrRefused) {
  Renderer renderer;
  int drawn = 0;
  for (unsigned seed = 0; seed < 250; ++seed) {
    SCOPED_TRACE(seed);
    drawn += expectDrawn(renderer, DrawnTreeMaker(seed, false).view(3), randomOptions(seed));
  }
  EXPECT_GT(drawn, 200);
}

}  // namespace
}  // namespace rendering
