// Lengths that are no lengths: wherever one stands, every frame is a sound one.
#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <string>

#include "PlacedNodes.hpp"

namespace rendering {
namespace {

using namespace viewkit;

struct Place {
  std::string name;
  std::function<View(double)> holding;
};

const View kBox = box(20, 10);

const Place kPlaces[] = {
    {"FixedWidth", [](double n) { return kBox.frame({.width = n}); }},
    {"FixedHeight", [](double n) { return kBox.frame({.height = n}); }},
    {"LeastWidth", [](double n) { return kBox.frame(FlexibleFrame{.minWidth = n}); }},
    {"MostWidth", [](double n) { return kBox.frame(FlexibleFrame{.maxWidth = n}); }},
    {"LeastHeight", [](double n) { return kBox.frame(FlexibleFrame{.minHeight = n}); }},
    {"MostHeight", [](double n) { return kBox.frame(FlexibleFrame{.maxHeight = n}); }},
    {"Padding", [](double n) { return kBox.padding(n); }},
    {"Offset", [](double n) { return kBox.offset(n, n); }},
    {"Position", [](double n) { return kBox.position(n, n); }},
    {"AspectRatio",
     [](double n) { return Rectangle().aspectRatio(n, ImageElement::ContentMode::fit); }},
    {"Priority",
     [](double n) {
       return HStack{{}, Text("a").layoutPriority(n), kBox};
     }},
    {"Spacing",
     [](double n) {
       return HStack{{.spacing = n}, kBox, kBox};
     }},
    {"Spacer",
     [](double n) {
       return HStack{{}, kBox, Spacer{n}, kBox};
     }},
    {"FontSize", [](double n) { return Text("words").font(n); }},
    {"Tracking", [](double n) { return Text("words").tracking(n); }},
    {"Scale", [](double n) { return Text("words").lineLimit(1).minimumScaleFactor(n); }},
    {"Symbol", [](double n) { return Symbol("tag").font(n); }},
    {"Gauge",
     [](double n) {
       return Gauge{{.fraction = n, .lineWidth = n}, Text("5")};
     }},
    {"Radius", [](double n) { return RoundedRectangle(n); }},
};

void PrintTo(const Place& place, std::ostream* out) {
  *out << place.name;
}

void expectSound(const PlacedNode& node) {
  const Rect& f = node.frame;
  EXPECT_TRUE(std::isfinite(f.x) && std::isfinite(f.y)) << f.x << " " << f.y;
  EXPECT_TRUE(std::isfinite(f.width) && std::isfinite(f.height)) << f.width << " " << f.height;
  EXPECT_TRUE(f.width >= 0 && f.height >= 0) << f.width << " " << f.height;
  for (const PlacedNode& child : node.children) expectSound(child);
}

class LayoutNumbers : public testing::TestWithParam<Place> {};

TEST_P(LayoutNumbers, EveryFrameIsSound) {
  constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
  for (const double number : {kNan, kInfinity, -kInfinity, 1e300, -1e300, 5e-324, -0.0}) {
    SCOPED_TRACE(number);
    const View view = GetParam().holding(number);
    expectSound(placed(view, {170, 120}).root);
    expectSound(placed(VStack{{}, view, kBox}, {170, 120}, kRtl).root);
  }
}

INSTANTIATE_TEST_SUITE_P(Places, LayoutNumbers, testing::ValuesIn(kPlaces), [](const auto& place) {
  return place.param.name;
});

}  // namespace
}  // namespace rendering
