// Pixels: small pictures whose every pixel follows from a rule, and pairs of ways to draw the same
// picture.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>

#include "Painting/Painting.hpp"

namespace rendering {
namespace {

using namespace viewkit;

TEST_F(Painting, AnEdgeBetweenTwoPixelsCoversHalf) {
  const Bitmap b =
      draw(box(kRed, 2, 2).frame({.width = Length(3), .height = Length(2)}), plain(3, 2));
  EXPECT_EQ(at(b, 0, 0), 0x80800000);
  EXPECT_EQ(at(b, 1, 0), 0xFFFF0000);
  EXPECT_EQ(at(b, 2, 1), 0x80800000);
}

TEST_F(Painting, OpacityLiesOverWhatIsBelow) {
  const View view = ZStack{{}, box(kBlue, 1, 1), box(kRed, 1, 1).opacity(0.5)};
  EXPECT_EQ(at(draw(view, plain(1, 1)), 0, 0), 0xFF80007F);
}

// Two overlapping squares at half opacity do not show through each other.
TEST_F(Painting, OpacityOfOverlappingViewsIsThatOfTheGroup) {
  const View pair = ZStack{{}, box(kBlue, 2, 2), box(kRed, 2, 2)};
  EXPECT_EQ(at(draw(pair.opacity(0.5), plain(2, 2)), 0, 0), 0x80800000);
}

TEST_F(Painting, OpacityOfSeparateViewsNeedsNoGroup) {
  const View pair = HStack{{.spacing = 1}, box(kBlue, 2, 2), box(kRed, 2, 2)};
  const View faded =
      HStack{{.spacing = 1}, box(kBlue.withOpacity(0.4), 2, 2), box(kRed.withOpacity(0.4), 2, 2)};
  expectSame(draw(pair.opacity(0.4), plain(5, 2)), draw(faded, plain(5, 2)));
}

TEST_F(Painting, ACircleIsACapsuleIsARoundedSquare) {
  const auto sized = [](const Shape& shape) {
    return shape.fill(kRed).frame({.width = Length(30), .height = Length(30)});
  };
  const Bitmap circle = draw(sized(Circle()), plain(30, 30));
  expectSame(circle, draw(sized(Capsule()), plain(30, 30)));
  expectSame(circle, draw(sized(RoundedRectangle(15)), plain(30, 30)));
  expectSame(circle, draw(sized(RoundedRectangle(99, CornerStyle::continuous)), plain(30, 30)));
  EXPECT_EQ(at(circle, 0, 0), 0u);
  EXPECT_EQ(at(circle, 15, 15), 0xFFFF0000);
}

// The area of a disc of radius 20 is 1256.6 pixels.
TEST_F(Painting, CoverageAddsUpToTheArea) {
  const Bitmap b = draw(Circle().fill(kRed), plain(40, 40));
  double area = 0;
  for (std::uint32_t p : b.pixels) area += (p >> 24) / 255.0;
  EXPECT_NEAR(area, 400 * 3.14159265, 1.5);
}

TEST_F(Painting, ClippingAFillIsFillingTheShape) {
  const RoundedRectangleShape shape{8, CornerStyle::continuous};
  const View clipped = Rectangle().fill(kRed).clip(shape);
  expectSame(draw(clipped, plain(40, 30)),
             draw(RoundedRectangle(8, CornerStyle::continuous).fill(kRed), plain(40, 30)));
}

TEST_F(Painting, NestedClipsCutTogether) {
  const View inner = Rectangle().fill(kRed).clip(CircleShape{});
  const Bitmap both = draw(inner.clip(RectangleShape{}).clip(CapsuleShape{}), plain(20, 20));
  expectSame(both,
             draw(Circle().fill(kRed), plain(20, 20)),
             64);  // edges are covered twice: c * c against c
  EXPECT_EQ(at(both, 0, 0), 0u);
  EXPECT_EQ(at(both, 10, 10), 0xFFFF0000);
}

TEST_F(Painting, AnInnerStrokeStaysInside) {
  const Bitmap ring = draw(Rectangle().innerStroke(kRed, 2), plain(10, 10));
  EXPECT_EQ(at(ring, 0, 5), 0xFFFF0000);
  EXPECT_EQ(at(ring, 1, 5), 0xFFFF0000);
  EXPECT_EQ(at(ring, 2, 5), 0u);
  const Bitmap circle = draw(Circle().innerStroke(kRed, 4), plain(30, 30));
  EXPECT_EQ(at(circle, 15, 1), 0xFFFF0000);
  EXPECT_EQ(at(circle, 15, 6), 0u);
}

TEST_F(Painting, StrokingAClosedCircleIsADifferenceOfDiscs) {
  const Bitmap stroke = draw(
      Circle().stroke(kRed, 4).frame({.width = Length(24), .height = Length(24)}), plain(40, 40));
  double area = 0;
  for (std::uint32_t p : stroke.pixels) area += (p >> 24) / 255.0;
  EXPECT_NEAR(area, 3.14159265 * (14 * 14 - 10 * 10), 3);
}

TEST_F(Painting, ATrimmedCircleBeginsAtThreeOClock) {
  const Bitmap b = draw(Circle().trim(0, 0.25).stroke(kRed, 4).padding(4), plain(40, 40));
  EXPECT_NE(at(b, 31, 31), 0u) << "lower right";
  EXPECT_EQ(at(b, 8, 31), 0u);
  EXPECT_EQ(at(b, 31, 8), 0u);
}

TEST_F(Painting, TwoHalvesOfATrimMakeTheWhole) {
  const auto part = [](double from, double to) {
    return Circle().trim(from, to).stroke(kRed, 3).padding(4);
  };
  const View halves = ZStack{{}, part(0, 0.37), part(0.37, 1)};
  expectSame(draw(halves, plain(40, 40)), draw(part(0, 1), plain(40, 40)), 64);
}

TEST_F(Painting, RoundCapsReachBeyondTheEnd) {
  const std::vector<PathStep> line{{PathStep::Verb::move, {5, 5}}, {PathStep::Verb::line, {15, 5}}};
  const Bitmap butt = draw(Path(line).stroke(kRed, 4), plain(20, 10));
  const Bitmap round = draw(Path(line).stroke(kRed, 4, LineCap::round), plain(20, 10));
  EXPECT_EQ(at(butt, 4, 5), 0u);
  EXPECT_EQ(at(butt, 5, 5), 0xFFFF0000);
  EXPECT_EQ(at(round, 4, 4), 0xFFFF0000);
  EXPECT_EQ(at(round, 2, 5), 0u);
}

TEST_F(Painting, AGradientRunsBetweenItsEnds) {
  const Gradient gradient = Gradient::even({Color::black(), Color::white()}, {0, 0}, {1, 0});
  const Bitmap b = draw(Rectangle().fill(gradient), plain(100, 1));
  for (int x : {0, 25, 50, 99}) {
    EXPECT_NEAR(at(b, x, 0) & 255, (x + 0.5) / 100 * 255, 1.5) << x;
  }
}

TEST_F(Painting, RightToLeftMirrorsShapesAndGradients) {
  const std::vector<PathStep> corner{{PathStep::Verb::move, {0, 0}},
                                     {PathStep::Verb::line, {kWidth * 0.7, 0}},
                                     {PathStep::Verb::line, {0, kHeight}},
                                     {PathStep::Verb::close}};
  const View view = Path(corner).fill(Gradient::even({Color::black(), kRed}, {0, 0}, {1, 1}));
  const Bitmap ltr = draw(view, plain(30, 20));
  RenderOptions options = plain(30, 20);
  options.direction = LayoutDirection::rightToLeft;
  const Bitmap rtl = draw(view, options);
  Bitmap flipped = rtl;
  for (int y = 0; y < 20; ++y) {
    for (int x = 0; x < 30; ++x)
      flipped.pixels[static_cast<std::size_t>(y * 30 + x)] = at(rtl, 29 - x, y);
  }
  expectSame(ltr, flipped, 2);
}

TEST_F(Painting, AGaugeOfNothingShowsItsTrackOnly) {
  const auto gauge = [](double fraction) {
    return Gauge{{.fraction = fraction, .lineWidth = 6}, View{}};
  };
  const Bitmap empty = draw(gauge(0), plain(60, 60));
  EXPECT_EQ(at(empty, 30, 3) >> 24, 77u) << "0.3 of 255";
  EXPECT_EQ(at(empty, 30, 57), 0u) << "open below";
  const Bitmap full = draw(gauge(1), plain(60, 60));
  EXPECT_EQ(at(full, 30, 3), 0xFF000000);
  const Bitmap half = draw(gauge(0.4), plain(60, 60));
  EXPECT_EQ(at(half, 3, 30) >> 24, 255u) << "the arc begins at the lower left";
  EXPECT_EQ(at(half, 56, 30) >> 24, 77u);
}

TEST_F(Painting, ACutoutRemovesWhatLiesBehindButNotTheBackground) {
  const View view =
      ZStack{{}, box(kBlue, 10, 10), box(kRed.withOpacity(0.5), 4, 4).cutout(RectangleShape{})};
  const Bitmap bare = draw(view, plain(10, 10));
  EXPECT_EQ(at(bare, 5, 5), 0x80800000);
  EXPECT_EQ(at(bare, 0, 0), 0xFF0000FF);
  RenderOptions options = plain(10, 10);
  options.showsBackground = true;
  options.cornerRadius = 0;
  const Bitmap grounded = draw(view.containerBackground(Rectangle().fill(Color::white())), options);
  EXPECT_EQ(at(grounded, 5, 5), 0xFFFF7F7F);
}

TEST_F(Painting, TheWidgetsCornersAreCut) {
  RenderOptions options{.size = {60, 60}, .scale = 1, .cornerRadius = 22};
  const Bitmap b = draw(box(kRed, 60, 60).containerBackground(Rectangle().fill(kBlue)), options);
  expectSame(b, draw(RoundedRectangle(22, CornerStyle::continuous).fill(kRed), plain(60, 60)), 3);
}

TEST_F(Painting, AShadowFallsBelowAndFades) {
  const View card = box(Color::white(), 20, 20).shadow({Color::black(), 3, 0, 4});
  const Bitmap b = draw(card, plain(60, 60));
  EXPECT_EQ(at(b, 30, 30), 0xFFFFFFFF);
  EXPECT_GT(at(b, 30, 41) >> 24, 128u) << "just below the card";
  EXPECT_GT(at(b, 30, 41) >> 24, at(b, 30, 47) >> 24);
  EXPECT_LT(at(b, 30, 18) >> 24, 60u) << "moved away from the upper edge";
  // Blurring moves ink but makes none: a shadow alone has the weight of its shape.
  double weight = 0;
  for (std::uint32_t p :
       draw(box(Color::white(), 20, 20).shadow({Color::black(), 3, 30, 30}), plain(120, 120))
           .pixels) {
    if ((p & 0xFFFFFF) == 0) weight += (p >> 24) / 255.0;
  }
  EXPECT_NEAR(weight, 400, 12);
}

TEST_F(Painting, AShadowOfAShapeIsTheShadowOfItsPixels) {
  const View shape =
      RoundedRectangle(5).fill(kRed).frame({.width = Length(20), .height = Length(12)});
  // An overlay beside the shape keeps the silhouette from being taken from the path.
  const View content = shape.overlay(box(kRed, 1, 1).offset(0, 0).opacity(0.999));
  const Shadow shadow{Color::black(), 2, 1, 2};
  expectSame(
      draw(shape.shadow(shadow), plain(50, 40)), draw(content.shadow(shadow), plain(50, 40)), 3);
}

TEST_F(Painting, TextIsDrawnInTheForegroundStyle) {
  const View text = Text{"W"}.font(40, FontWeight::bold).foregroundStyle(kRed);
  const Bitmap b = draw(text, plain(60, 60));
  EXPECT_GT(inked(b), 200);
  for (std::uint32_t p : b.pixels) EXPECT_EQ(p & 0xFFFF, 0u) << "only red";
}

// A glyph image and the same glyph filled as a path (at large sizes) have the same ink.
TEST_F(Painting, LargeGlyphsLookLikeSmallOnes) {
  const auto weight = [&](double size) {
    double sum = 0;
    for (std::uint32_t p : draw(Text{"8"}.font(size), plain(size * 2, size * 2)).pixels)
      sum += (p >> 24) / 255.0;
    return sum / size / size;
  };
  EXPECT_NEAR(weight(199), weight(201), 0.002);
}

TEST_F(Painting, EqualGlyphsAreEvenlySpaced) {
  // Quarter-pixel places: the stems of a row of equal letters differ in distance by at most a
  // quarter pixel.
  const Bitmap b = draw(Text{"llllllll"}.font(11.5), plain(60, 20));
  std::vector<double> centers;
  double sum = 0;
  double moment = 0;
  for (int x = 0; x < 60; ++x) {
    double column = 0;
    for (int y = 0; y < 20; ++y) column += at(b, x, y) >> 24;
    if (column < 200 && sum > 0) {
      centers.push_back(moment / sum);
      sum = moment = 0;
    }
    if (column >= 200) {
      sum += column;
      moment += column * (x + 0.5);
    }
  }
  ASSERT_EQ(centers.size(), 8u);
  const double mean = (centers.back() - centers.front()) / 7;
  for (std::size_t i = 1; i < centers.size(); ++i)
    EXPECT_NEAR(centers[i] - centers[i - 1], mean, 0.3);
}

TEST_F(Painting, TranslucentJoinedLettersAreDrawnOnce) {
  const View text = Text{"محمد"}
                        .font(60)
                        .language("ar")
                        .direction(LayoutDirection::rightToLeft)
                        .foregroundStyle(Color::black().withOpacity(0.5));
  for (std::uint32_t p : draw(text, plain(240, 120)).pixels) EXPECT_LE(p >> 24, 128u);
}

TEST_F(Painting, ABitmapIsUsedAgain) {
  const View small = box(kRed, 4, 4);
  const LayoutTree tree = renderer.place(small, plain(4, 4)).value();
  Bitmap b = draw(box(kBlue, 50, 50), plain(50, 50));
  ASSERT_TRUE(renderer.draw(tree, plain(4, 4), b));
  expectSame(b, draw(small, plain(4, 4)), 0);
}

TEST_F(Painting, StrangeNumbersDrawNothingAndDoNoHarm) {
  const double nan = std::nan("");
  const View views[] = {
      Arc({{Length(nan), 5}, 3, 0, 180}).stroke(kRed, 2),
      Arc({{5, 5}, 1e9, 0, 360}).stroke(kRed, 1e9),
      RoundedRectangle(Length(nan)).fill(kRed),
      Path({{PathStep::Verb::line, {1e300, 0}}, {PathStep::Verb::close}}).fill(kRed),
      Rectangle().fill(Gradient{}),
      Rectangle().fill(Gradient::even({kRed, kBlue}, {0, 0}, {0, 0})),
      Circle().fill(kRed).shadow({Color::black(), 0, 0, 0}),
      Gauge{{.fraction = nan, .lineWidth = 400}, View{}}.view()};
  for (const View& view : views) EXPECT_EQ(draw(view, plain(10, 10)).pixels.size(), 100u);
}

}  // namespace
}  // namespace rendering
