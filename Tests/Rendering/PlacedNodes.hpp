// Ways through a layout tree for tests: a view's element below its modifiers, frames that compare
// within rounding.
#pragma once

#include <gmock/gmock.h>

#include "FixedCellMeasurer.hpp"
#include "Rendering/Layout/Layout.hpp"
#include "Rendering/Layout/LayoutItems.hpp"
#include "ViewKit/ViewKit.hpp"

namespace rendering {

inline constexpr auto kLtr = viewkit::LayoutDirection::leftToRight;
inline constexpr auto kRtl = viewkit::LayoutDirection::rightToLeft;

inline const PlacedNode& elementOf(const PlacedNode& node) {
  const PlacedNode* at = &node;
  while (at->modifier()) at = &at->children.at(0);
  return *at;
}

/// The outermost node of the i-th child of a view's element.
inline const PlacedNode& child(const PlacedNode& view, std::size_t i) {
  return elementOf(view).children.at(i);
}
inline const PlacedNode& child(const LayoutTree& tree, std::size_t i) {
  return child(tree.root, i);
}

inline LayoutTree placed(const viewkit::View& view,
                         Size size,
                         viewkit::LayoutDirection direction = kLtr,
                         double cell = 0.6) {
  FixedCellMeasurer measurer(cell);
  return layOut(view, {.size = size, .direction = direction}, measurer);
}

/// What a view answers to a proposal.
inline Size sizeThatFits(const viewkit::View& view,
                         const Proposal& proposal,
                         viewkit::LayoutDirection direction,
                         TextMeasurer& measurer) {
  const LayoutOptions options{.size = {}, .direction = direction};
  LayoutItems items(view, options, measurer);
  return items.measure(items.root(), proposal).size();
}

inline Size answered(const viewkit::View& view, Proposal proposal, double cell = 0.6) {
  FixedCellMeasurer measurer(cell);
  return sizeThatFits(view, proposal, kLtr, measurer);
}

MATCHER_P4(FrameIs, x, y, width, height, "") {
  const Rect& f = arg.frame;
  *result_listener << "frame " << f.x << " " << f.y << " " << f.width << " " << f.height;
  const auto near = [](double a, double b) { return std::abs(a - b) < 1e-6; };
  return near(f.x, x) && near(f.y, y) && near(f.width, width) && near(f.height, height);
}

MATCHER_P2(SizeIs, width, height, "") {
  *result_listener << "size " << arg.width << " x " << arg.height;
  const auto near = [](double a, double b) {
    return std::isinf(b) ? std::isinf(a) : std::abs(a - b) < 1e-6;
  };
  return near(arg.width, width) && near(arg.height, height);
}

inline viewkit::View box(double width, double height) {
  return viewkit::Rectangle().frame({.width = width, .height = height});
}

}  // namespace rendering
