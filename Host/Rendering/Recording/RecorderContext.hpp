// What every part of the recorder writes with: the list, the colours in force, and the commands
// that more than one part needs.
#pragma once

#include "Rendering/Graphics/RenderOptions.hpp"
#include "Rendering/Graphics/ShapePath.hpp"
#include "Rendering/Layout/LayoutTree.hpp"
#include "Rendering/Recording/DisplayList.hpp"
#include "Rendering/Recording/RecorderColors.hpp"
#include "Rendering/Recording/RecorderTools.hpp"
#include "ViewKit/View.hpp"

namespace rendering {

struct RecorderContext {
  const RenderOptions& options;
  RecorderTools tools;
  DisplayList& list;
  const viewkit::Paint* foreground = nullptr;  ///< of the tree, which outlives the recording
  bool accentable = false;
  Path path{};  ///< scratch

  [[nodiscard]] Rgba resolve(const viewkit::Color& color) const {
    return resolveColor(color, options, accentable);
  }
  /// What `paint` is in the node's frame; without one the foreground. Keeps its gradient.
  [[nodiscard]] Ink ink(const viewkit::Paint& paint, const PlacedNode& node);
  /// The colour of what is drawn here, faint. A gradient has no colour of its own.
  [[nodiscard]] viewkit::Color barColor() const;
  /// A rounded rectangle in place of what is not to be seen.
  void cover(const Rect& frame, double radius, const viewkit::Color& shade);
  /// The scratch path as a line.
  void stroke(const Rect& bounds,
              const Ink& paint,
              double width,
              viewkit::LineCap cap,
              viewkit::LineJoin join);
};

[[nodiscard]] inline bool mirrored(const PlacedNode& node) {
  return node.direction == viewkit::LayoutDirection::rightToLeft;
}
[[nodiscard]] inline ShapeBox boxOf(const PlacedNode& node) {
  return {node.frame, node.proposal, node.direction};
}

}  // namespace rendering
