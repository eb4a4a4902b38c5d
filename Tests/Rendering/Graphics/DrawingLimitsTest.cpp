// Pictures that cost too much are refused in a line; what is drawn costs bounded time.
#include <gmock/gmock.h>

#include <ctime>
#include <limits>

#include "Rendering/Renderer.hpp"
#include "ViewKit/ViewKit.hpp"

namespace rendering {
namespace {

using namespace viewkit;
using testing::HasSubstr;

const Color kInk = Color::same(0xFF0000);

double cpuSeconds() {
  return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

class DrawingLimits : public testing::Test {
 protected:
  Drawn<Bitmap> draw(const View& view, double width = 158, double height = 158, double scale = 2) {
    return renderer.bitmap(view,
                           {.size = {width, height}, .scale = scale, .showsBackground = false});
  }
  Drawn<std::string> svg(const View& view) {
    return renderer.svg(view, {.size = {158, 158}, .showsBackground = false});
  }

  Renderer renderer;
};

View repeated(View view, int times, const std::function<View(View)>& wrap) {
  for (int i = 0; i < times; ++i) view = wrap(std::move(view));
  return view;
}

View shadowed(int times) {
  return repeated(Circle().fill(kInk.withOpacity(0.5)).frame(FixedFrame{.width = 40, .height = 40}),
                  times,
                  [](const View& view) {
                    return view.shadow({Color::black().withOpacity(0.2), 2, 1, 1});
                  });
}

// Drawn twice each, twenty of them would draw a million circles.
TEST_F(DrawingLimits, NestedShadowsCostNoMoreThanTheirNumber) {
  const double start = cpuSeconds();
  ASSERT_TRUE(draw(shadowed(20)));
  EXPECT_LT(cpuSeconds() - start, 5);
  const auto one = svg(shadowed(1));
  const auto twenty = svg(shadowed(20));
  ASSERT_TRUE(one && twenty);
  EXPECT_LT(twenty->size(), 21 * one->size());
  EXPECT_LT(twenty->size(), 16384u);
}

TEST_F(DrawingLimits, AShadowOfAShadowFallsUnderBoth) {
  const View view = Rectangle()
                        .fill(kInk.withOpacity(0.5))
                        .frame(FixedFrame{.width = 10, .height = 10})
                        .shadow({Color::black(), 0, 20, 0})
                        .shadow({Color::same(0x0000FF), 0, 0, 20});
  const auto bitmap = draw(view, 60, 60, 1);
  ASSERT_TRUE(bitmap);
  const auto at = [&](int x, int y) {
    return bitmap->pixels[static_cast<std::size_t>(y * 60 + x)];
  };
  EXPECT_EQ(at(30, 30), 0x80800000) << "the square itself";
  EXPECT_EQ(at(50, 30), 0x80000000) << "its black shadow to the right";
  EXPECT_EQ(at(30, 50), 0x80000080) << "the blue one below";
  EXPECT_EQ(at(50, 50), 0x80000080) << "that of the black one";
  EXPECT_EQ(at(10, 10), 0u);
}

// Half of what throws the shadow lies outside of the picture.
TEST_F(DrawingLimits, WhatIsOutsideThrowsItsShadowInside) {
  const View view = Rectangle()
                        .fill(kInk.withOpacity(0.5))
                        .frame(FixedFrame{.width = 10, .height = 10})
                        .shadow({Color::black(), 0, 25, 0})
                        .offset(-25, 0);
  const auto bitmap = draw(view, 30, 30, 1);
  ASSERT_TRUE(bitmap);
  EXPECT_EQ(bitmap->pixels[15 * 30 + 15], 0x80000000);
}

TEST_F(DrawingLimits, WhatAShadowsContentCutsOutIsCutOutOfWhatLiesBelow) {
  const View hole = Rectangle()
                        .fill(kInk.withOpacity(0.5))
                        .frame(FixedFrame{.width = 20, .height = 20})
                        .cutout(CircleShape{})
                        .shadow({Color::black(), 0, 0, 0});
  const View view = ZStack{{}, Rectangle().fill(Color::white()), hole};
  const auto bitmap = draw(view, 40, 40, 1);
  const auto plain = draw(ZStack{{},
                                 Rectangle().fill(Color::white()),
                                 Rectangle()
                                     .fill(Color::clear())
                                     .frame(FixedFrame{.width = 20, .height = 20})
                                     .cutout(CircleShape{})},
                          40,
                          40,
                          1);
  ASSERT_TRUE(bitmap && plain);
  // The cutout stands before the square, which then fills it.
  EXPECT_EQ(plain->pixels[20 * 40 + 20], 0u);
  EXPECT_EQ(bitmap->pixels[20 * 40 + 20] >> 24, 0xC0u) << "square over shadow, nothing below";
  EXPECT_EQ(bitmap->pixels[2 * 40 + 2], 0xFFFFFFFF);
}

TEST_F(DrawingLimits, TheLargestShadowsAndOffsetsAreBounded) {
  for (const double radius : {2000.0, 3000.0, 1e6}) {
    for (const double offset : {0.0, -1e6, 1e6, 300.0}) {
      const Shadow shadow{Color::black(), radius, offset, -offset};
      const double start = cpuSeconds();
      static_cast<void>(draw(Circle().fill(kInk).shadow(shadow)));
      static_cast<void>(draw(Circle().fill(kInk.withOpacity(0.5)).shadow(shadow)));
      const FixedFrame far{.width = 1e6, .height = 1e6};
      static_cast<void>(draw(Rectangle().fill(kInk).frame(far).shadow(shadow)));
      static_cast<void>(draw(Rectangle().fill(kInk.withOpacity(0.5)).frame(far).shadow(shadow)));
      EXPECT_LT(cpuSeconds() - start, 10) << radius << " by " << offset;
    }
  }
}

// Of a shape that is far larger than the picture only the part around it is blurred: no edge of it
// is near, so that the shadow is as if it had none.
TEST_F(DrawingLimits, AShadowWhoseRadiusIsNoLengthIsSharp) {
  const auto picture = [&](const View& content, double radius) {
    const auto bitmap =
        draw(content.frame({.width = 60, .height = 60}).shadow({.radius = radius, .x = 9}));
    return bitmap ? bitmap->pixels : std::vector<std::uint32_t>{};
  };
  // A shape's own silhouette, and that of a content of several parts.
  const View shape = Circle().fill(kInk);
  const View parts = HStack{{}, shape, Text("x"), shape};
  for (const View& content : {shape, parts}) {
    const auto sharp = picture(content, 0);
    ASSERT_FALSE(sharp.empty());
    for (const double radius : {-7.0, -1e300, std::numeric_limits<double>::quiet_NaN()}) {
      EXPECT_EQ(picture(content, radius), sharp) << radius;
    }
  }
}

TEST_F(DrawingLimits, AHugeShapesShadowHasNoEdgeInThePicture) {
  const Shadow shadow{Color::black(), 4, 0, 0};
  const View shape = Rectangle().fill(kInk).frame(FixedFrame{.width = 9000, .height = 9000});
  const View behind = shape.shadow(shadow).opacity(0.999);
  const auto bitmap = draw(behind, 40, 40, 1);
  ASSERT_TRUE(bitmap);
  for (const std::uint32_t pixel : bitmap->pixels) ASSERT_EQ(pixel, bitmap->pixels.front());
}

TEST_F(DrawingLimits, GroupsInGroupsAreRefused) {
  const View pair = ZStack{{}, Circle().fill(kInk), Circle().fill(kInk)};
  const auto faded = [&](int times) {
    return repeated(pair, times, [](const View& view) { return view.opacity(0.99); });
  };
  EXPECT_TRUE(draw(faded(20)));
  const auto refused = draw(faded(400), 600, 600, 1);
  ASSERT_FALSE(refused);
  EXPECT_THAT(refused.error(), HasSubstr("more drawing than its size allows"));
  EXPECT_TRUE(draw(faded(20))) << "the next picture is drawn";
}

TEST_F(DrawingLimits, FourThousandShadowsTakeBoundedTime) {
  std::vector<View> views;
  for (int i = 0; i < 3900; ++i) {
    views.push_back(
        Circle().fill(kInk.withOpacity(0.5)).shadow({Color::black(), 5, i % 7 - 3.0, 1}));
  }
  const View all = ZStack{{}, forEach(views, [](const View& view) { return view; })};
  const double start = cpuSeconds();
  static_cast<void>(draw(all));
  static_cast<void>(svg(all));
  EXPECT_LT(cpuSeconds() - start, 20);
}

TEST_F(DrawingLimits, TooManyCommandsAreRefused) {
  std::vector<View> views(3900, Circle().fill(kInk).frame(FixedFrame{.width = 1, .height = 1}));
  for (View& view : views) {
    view = repeated(view, 9, [](const View& v) {
      return v.shadow({Color::black().withOpacity(0.1), 0.1, 0, 0});
    });
  }
  const auto refused = draw(ZStack{{}, forEach(views, [](const View& view) { return view; })});
  ASSERT_FALSE(refused);
  EXPECT_THAT(refused.error(), HasSubstr("too much to draw"));
}

TEST_F(DrawingLimits, TooLargeAPictureIsRefusedByItsSize) {
  const double infinity = std::numeric_limits<double>::infinity();
  for (const auto& [width, height, scale] :
       {std::tuple{2000.0, 2000.0, 8.0}, {16001.0, 1.0, 1.0}, {1.0, 1.0, infinity}}) {
    const auto refused = draw(Circle().fill(kInk), width, height, scale);
    ASSERT_FALSE(refused) << width << "x" << height << " at " << scale;
    EXPECT_THAT(refused.error(), HasSubstr("too large"));
  }
  EXPECT_FALSE(draw(View{}, 10, 10, std::nan("")));
}

TEST_F(DrawingLimits, CutoutsInOneSvgCostNoMoreThanTheirNumber) {
  std::vector<View> views(
      1000, Circle().fill(kInk).frame(FixedFrame{.width = 1, .height = 1}).cutout(CircleShape{}));
  const double start = cpuSeconds();
  const auto text = svg(ZStack{{}, forEach(views, [](const View& view) { return view; })});
  ASSERT_TRUE(text);
  EXPECT_LT(text->size(), 2'000'000u);
  EXPECT_LT(cpuSeconds() - start, 10);
}

TEST_F(DrawingLimits, AnEndlessZigzagTakesBoundedTime) {
  std::vector<PathStep> steps{{PathStep::Verb::move, {0, 0}}};
  for (int i = 1; i < 4000; ++i) {
    const double x = (i * 7919) % 158;
    steps.push_back({PathStep::Verb::line, {x, i % 2 == 0 ? 0.0 : 158.0}});
  }
  std::vector<View> views(20, Path(steps).fill(kInk));
  const double start = cpuSeconds();
  static_cast<void>(draw(ZStack{{}, forEach(views, [](const View& view) { return view; })}));
  EXPECT_LT(cpuSeconds() - start, 20);
}

/// So many lines from one side to the other, close to each other.
std::vector<PathStep> hatching(int lines, bool isUpright) {
  std::vector<PathStep> steps{{PathStep::Verb::move, {0, 0}}};
  for (int i = 1; i < lines; ++i) {
    const double along = 158.0 * i / lines;
    const double across = i % 2 == 0 ? 0 : 158;
    steps.push_back({PathStep::Verb::line,
                     isUpright ? LengthPoint{along, across} : LengthPoint{across, along}});
  }
  return steps;
}

// A row's pixels stand in a list that is searched for each line, so thousands of lines across a
// wide picture took seconds each.
TEST_F(DrawingLimits, HatchingTakesBoundedTime) {
  for (const bool isUpright : {false, true}) {
    const Shape path = Path(hatching(4000, isUpright));
    for (const View& view : {View{path.fill(kInk)},
                             View{path.stroke(kInk, 1)},
                             View{path.stroke(kInk, 100)},
                             View{path.stroke(kInk, 1000)},
                             View{Circle()}.clip(PathShape{hatching(4000, isUpright)}),
                             View{path.fill(kInk)}.shadow({.radius = 2})}) {
      const std::vector<View> views(4, view);
      const double start = cpuSeconds();
      static_cast<void>(draw(ZStack{{}, forEach(views, [](const View& one) { return one; })}));
      EXPECT_LT(cpuSeconds() - start, 2);
    }
  }
}

}  // namespace
}  // namespace rendering
