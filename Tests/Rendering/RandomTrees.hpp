// Trees made at random from a seed, for tests of what must hold for any.
#pragma once

#include <limits>
#include <optional>
#include <random>
#include <vector>

#include "PlacedNodes.hpp"

namespace rendering {

using namespace viewkit;

inline constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

/// Views with lengths that are usual, odd or senseless.
class TreeMaker {
 public:
  TreeMaker(unsigned seed, bool isSane) : random_(seed), isSane_(isSane) {}
  virtual ~TreeMaker() = default;

  View view(int depth) { return modified(element(depth), depth); }

 protected:
  int below(int end) { return static_cast<int>(random_() % static_cast<unsigned>(end)); }
  double number() {
    static constexpr double kOdd[] = {kNan, kInfinity, -kInfinity, -7, 1e300, -1e300, 1e-300, 0};
    if (!isSane_ && below(4) == 0) return kOdd[below(8)];
    return below(60) - (isSane_ ? 0 : 5);
  }
  std::optional<double> maybe() { return below(2) == 0 ? std::nullopt : std::optional{number()}; }
  Length length() {
    switch (below(4)) {
      case 0:
        return kWidth * (0.1 * below(10));
      case 1:
        return min(kHeight, Length{number()});
      case 2:
        return max(kWidth - number(), kHeight / 2);
      default:
        return number();
    }
  }
  Alignment alignment() {
    return {static_cast<HorizontalAlignment>(below(3)), static_cast<VerticalAlignment>(below(4))};
  }

  virtual View leaf() {
    switch (below(6)) {
      case 0:
        return Text("some words to wrap").font(number()).tracking(number() / 10);
      case 1:
        return Text("one line")
            .font(12)
            .lineLimit(1)
            .minimumScaleFactor(below(2) == 0 ? number() : 0.1 * (1 + below(9)));
      case 2:
        return Text("short words in lines").font(11).lineLimit(below(4)).balanced();
      case 3:
        return Symbol("tag").font(number());
      case 4:
        return Spacer{number()};
      default:
        return RoundedRectangle(length());
    }
  }

  View element(int depth) {
    if (depth == 0) return leaf();
    std::vector<View> views;
    for (int n = below(4); n >= 0; --n) views.push_back(view(depth - 1));
    switch (below(7)) {
      case 6:
        return Fitting{views};
      case 0:
        return HStack{{.alignment = alignment().vertical, .spacing = maybe()}, views};
      case 1:
        return VStack{{.alignment = alignment().horizontal, .spacing = maybe()}, views};
      case 2:
        return ZStack{{.alignment = alignment()}, views};
      case 3:
        return Canvas{views};
      case 4:
        return Gauge{{.fraction = number(), .lineWidth = number()}, view(depth - 1)};
      default:
        return leaf();
    }
  }

  virtual View modified(View v, int depth) {
    for (int n = below(4); n > 0; --n) {
      switch (below(13)) {
        case 12:
          v = v.sharedScale();
          break;
        case 0:
          v = v.frame(FixedFrame{length(), std::nullopt, alignment()});
          break;
        case 1:
          v = v.frame(FixedFrame{std::nullopt, length(), alignment()});
          break;
        case 2:
          v = v.frame(FlexibleFrame{maybe(), maybe(), maybe(), maybe(), alignment()});
          break;
        case 3:
          v = v.padding({number(), number(), number(), number()});
          break;
        case 4:
          v = v.background(leaf(), alignment());
          break;
        case 5:
          v = v.overlay(element(depth > 0 ? 1 : 0), alignment());
          break;
        case 6:
          v = v.offset(length(), length());
          break;
        case 7:
          v = v.position(length(), length());
          break;
        case 8:
          v = v.aspectRatio(number(), static_cast<ImageElement::ContentMode>(below(3)));
          break;
        case 9:
          v = v.layoutPriority(number()).zIndex(number());
          break;
        case 10:
          v = v.fixedSize(below(2) == 0, below(2) == 0);
          break;
        default:
          v = v.layoutDirection(below(2) == 0 ? kLtr : kRtl);
          break;
      }
    }
    return v;
  }

  std::mt19937 random_;

 private:
  bool isSane_;
};

/// The same with everything that draws.
class DrawnTreeMaker : public TreeMaker {
 public:
  using TreeMaker::TreeMaker;

 private:
  Color color() {
    const auto rgb = [&] { return static_cast<Rgb>(random_() & 0xFFFFFF); };
    return below(5) == 0 ? Color::secondary()
                         : Color::dynamic(rgb(), rgb()).withOpacity(0.1 * below(11));
  }
  Paint paint() {
    if (below(3) != 0) return color();
    std::vector<Color> colors;
    for (int n = below(4); n >= 0; --n) colors.push_back(color());
    const auto unit = [&] { return UnitPoint{0.25 * below(5), 0.25 * below(5)}; };
    return Gradient::even(colors, unit(), unit());
  }
  LengthPoint point() { return {length(), length()}; }

  ShapeGeometry geometry() {
    switch (below(6)) {
      case 0:
        return RectangleShape{};
      case 1:
        return RoundedRectangleShape{length(), static_cast<CornerStyle>(below(2))};
      case 2:
        return CapsuleShape{};
      case 3:
        return CircleShape{};
      case 4:
        return ArcShape{point(), length(), 6.0 * number(), 6.0 * number()};
      default:
        PathShape path{{{PathStep::Verb::move, point()}}};
        for (int n = below(6); n > 0; --n) {
          path.steps.push_back({static_cast<PathStep::Verb>(below(4)), point(), point(), point()});
        }
        return path;
    }
  }

  View leaf() override {
    if (below(2) == 0) return TreeMaker::leaf();
    ShapeElement shape{.geometry = geometry(),
                       .mode = static_cast<ShapeElement::Mode>(below(3)),
                       .paint = paint(),
                       .lineWidth = number() / 10,
                       .cap = static_cast<LineCap>(below(3)),
                       .join = static_cast<LineJoin>(below(3))};
    if (below(2) == 0) shape.trimFrom = 0.1 * below(11);
    if (below(2) == 0) shape.trimTo = below(4) == 0 ? 1e-6 : 0.1 * below(11);
    return View{shape};
  }

  View modified(View view, int depth) override {
    view = TreeMaker::modified(view, depth);
    for (int n = below(3); n > 0; --n) view = looked(view);
    return view;
  }

  View looked(const View& view) {
    switch (below(8)) {
      case 0:
        return view.foregroundStyle(paint());
      case 1:
        return view.opacity(0.1 * below(11));
      case 2:
        return view.clip(geometry());
      case 3:
        return view.cutout(geometry());
      case 4:
        return view.shadow({color(), number() / 4, number() / 4, number() / 4});
      case 5:
        return view.accentable().link("scheme://open");
      case 6:
        return view.privacySensitive(static_cast<PrivacyTreatment>(below(2)));
      default:
        return view.accessibility({.label = "label", .value = "value"});
    }
  }
};

}  // namespace rendering
