// Whatever tree an extension sends, layout asks a number of questions that grows with its nodes
// alone.
#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <ostream>

#include "PlacedNodes.hpp"
#include "Rendering/Layout/LayoutItems.hpp"
#include "Rendering/Layout/LayoutPlacer.hpp"

namespace rendering {
namespace {

using namespace viewkit;

constexpr int kDeepest = 62;

struct Cost {
  std::size_t questions = 0;
  double milliseconds = 0;
};

Cost costOf(const View& view, Size size = {364, 382}) {
  FixedCellMeasurer measurer;
  const auto start = std::chrono::steady_clock::now();
  const LayoutOptions options{.size = size};
  LayoutItems items(view, options, measurer);
  const MeasuredSize answer = items.measure(items.root(), {size.width, size.height});
  PlacedNode root;
  LayoutPlacer(items).place(
      items.root(), {0, 0, answer.width, answer.height}, {size.width, size.height}, root);
  const std::chrono::duration<double, std::milli> taken = std::chrono::steady_clock::now() - start;
  return {items.questions(), taken.count()};
}

View words(int i) {
  return Text(i % 2 == 0 ? "some words" : "one two three four").font(10 + i % 5);
}

/// Around `inner` as often as levels are asked for, each time with its number.
using Level = std::function<View(const View& inner, int level)>;
View nested(int levels, const Level& level) {
  View view = words(0);
  for (int i = 0; i < levels; ++i) view = level(view, i);
  return view;
}

View stackOf(int level, const View& inner, const View& second) {
  if (level % 2 == 0) return HStack{{.spacing = 1}, words(level), inner, second};
  return VStack{{.spacing = 1}, words(level), inner, second};
}

FlexibleFrame flexible(int level) {
  return {.minWidth = 3.0 + level, .maxWidth = 900.0 - 7 * level, .minHeight = 2.0 + level};
}

struct Shape {
  const char* name;
  Level level;
};
void PrintTo(const Shape& shape, std::ostream* out) {
  *out << shape.name;
}

std::vector<Shape> shapesOfFrames() {
  return {
      {"flexibleFrames",
       [](const View& inner, int i) {
         return View{stackOf(i, inner, words(i))}.frame(flexible(i)).padding(1.0 + 0.1 * i);
       }},
      {"maximaWithoutProposal",
       [](const View& inner, int i) {
         return View{stackOf(i, inner, words(i))}
             .frame(FlexibleFrame{.maxWidth = 500.0 - i, .maxHeight = 400.0 - i})
             .fixedSize(i % 3 == 0, i % 3 == 1);
       }},
      {"priorities",
       [](const View& inner, int i) {
         return View{stackOf(i, inner.layoutPriority(i % 3), words(i).layoutPriority(i % 2))}.frame(
             flexible(i));
       }},
      {"baselines",
       [](const View& inner, int i) {
         const View row = HStack{
             {.alignment = VerticalAlignment::firstTextBaseline}, words(i), inner, Spacer{1.0 + i}};
         return VStack{{}, row.frame(flexible(i)), words(i)}.padding(0.5 * i);
       }},
      {"aspectRatios",
       [](const View& inner, int i) {
         return View{stackOf(i, inner, Circle())}
             .aspectRatio(0.3 + 0.1 * i, static_cast<ImageElement::ContentMode>(i % 3))
             .padding(1.0 + 0.3 * i);
       }},
      {"piles",
       [](const View& inner, int i) {
         const View pile = ZStack{{}, inner, inner.isEmpty() ? View{} : words(i)};
         return View{stackOf(i, pile, Circle())}.frame(flexible(i)).padding(0.7 * i);
       }},
      {"backgroundsAndOverlays",
       [](const View& inner, int i) {
         return View{stackOf(i, words(i), Circle())}
             .background(inner.frame(flexible(i)))
             .overlay(words(i))
             .padding(0.2 * i);
       }},
  };
}

std::vector<Shape> shapesOfContainers() {
  return {
      {"relativeFrames",
       [](const View& inner, int i) {
         return View{stackOf(i, inner, words(i))}.frame(
             {.width = kWidth * 0.9 - 0.1 * i, .height = max(kHeight * 0.8, 5)});
       }},
      {"canvases",
       [](const View& inner, int i) {
         return Canvas{inner.frame({.width = kWidth * 0.97}).offset(kWidth / 9, 1), words(i)}.frame(
             flexible(i));
       }},
      {"fittings",
       [](const View& inner, int i) {
         return Fitting{View{stackOf(i, inner, words(i))}.frame(flexible(i)), words(i)};
       }},
      {"fittingsThatNeverFit",
       [](const View& inner, int i) {
         const View wide = Rectangle().frame({.width = 5000.0 - i});
         return View{stackOf(i, Fitting{HStack{{}, wide, inner}, inner}, words(i))}.padding(1);
       }},
      {"groups",
       [](const View& inner, int i) {
         const View amount = Text("1,234,567").lineLimit(1).minimumScaleFactor(0.5);
         return View{stackOf(i, inner, amount)}.frame(flexible(i)).sharedScale();
       }},
      {"groupsInFittings",
       [](const View& inner, int i) {
         const View amount = Text("1,234,567").lineLimit(1).minimumScaleFactor(0.5);
         return Fitting{View{stackOf(i, inner, amount)}.frame(flexible(i)).sharedScale(),
                        View{stackOf(i + 1, inner, amount)}.padding(1)};
       }},
      {"gauges",
       [](const View& inner, int i) {
         return View{stackOf(i, Gauge{{.fraction = 0.5, .lineWidth = 0.1}, inner}, words(i))}.frame(
             flexible(i));
       }},
      {"positions",
       [](const View& inner, int i) {
         return View{stackOf(i, inner.position(kWidth / 2, 3), words(i))}.frame(flexible(i));
       }},
  };
}

std::vector<Shape> hostileShapes() {
  std::vector<Shape> shapes = shapesOfFrames();
  for (const Shape& shape : shapesOfContainers()) shapes.push_back(shape);
  return shapes;
}

/// Nodes and modifiers that are laid out, those of a shared part wherever it stands.
std::size_t itemsOf(const View& view) {
  const Node& node = view.node();
  std::size_t count = 1 + node.modifiers.size();
  for (const View& child : node.children) count += itemsOf(child);
  for (const Modifier& modifier : node.modifiers) {
    if (const auto* m = std::get_if<Background>(&modifier)) count += itemsOf(m->content);
    if (const auto* m = std::get_if<Overlay>(&modifier)) count += itemsOf(m->content);
  }
  return count;
}

class LayoutBounds : public ::testing::TestWithParam<Shape> {};

TEST_P(LayoutBounds, QuestionsGrowWithTheNodes) {
  const std::vector<Size> sizes{{364, 382}, {10, 10}, {1000, 1000}};
  // Where each level holds the inner ones twice, fewer levels are as many nodes.
  int levels = 2;
  while (levels < kDeepest && itemsOf(nested(levels + 2, GetParam().level)) <= 4000) levels += 2;
  const View view = nested(levels, GetParam().level);
  for (const Size size : sizes) {
    const Cost cost = costOf(view, size);
    EXPECT_LT(cost.questions, itemsOf(view) * kSamples * 6) << levels << " levels";
    EXPECT_LT(cost.milliseconds, 5000);
    RecordProperty("questions", static_cast<int>(cost.questions));
  }
}

// Three questions at each of three proposals a level would be 3^31 of them.
TEST(LayoutBoundsOfStacks, SixtyFourLevelsTakeMilliseconds) {
  const View view = nested(63, hostileShapes()[0].level);
  const Cost cost = costOf(view);
  EXPECT_LT(cost.questions, 150'000u);
  EXPECT_LT(cost.milliseconds, 500) << "50 on a quiet machine";
}

INSTANTIATE_TEST_SUITE_P(Hostile,
                         LayoutBounds,
                         ::testing::ValuesIn(hostileShapes()),
                         [](const auto& shape) { return shape.param.name; });
}  // namespace
}  // namespace rendering
