// The result of layout: new records with absolute frames, one for each element and one for each
// modifier around it.
#pragma once

#include <cstdint>
#include <memory>
#include <variant>
#include <vector>

#include "Rendering/Graphics/Geometry.hpp"
#include "Rendering/Text/TextMeasurer.hpp"
#include "ViewKit/View.hpp"

namespace rendering {

/// A line of a placed text: clusters [first, last) of the paragraph, then perhaps an ellipsis. x
/// and baseline are absolute.
struct PlacedLine {
  std::uint32_t first = 0;
  std::uint32_t last = 0;
  bool ellipsis = false;
  double x = 0;  ///< left edge
  double baseline = 0;
  double width = 0;
};

struct PlacedText {
  std::shared_ptr<const ShapedParagraph> paragraph;
  double size = 0;      ///< points, after shrinking to fit
  double scale = 1;     ///< that size over the element's
  double tracking = 0;  ///< points, after shrinking
  std::vector<PlacedLine> lines;
  [[nodiscard]] bool isCut() const { return !lines.empty() && lines.back().ellipsis; }
};

/// `frame` is absolute, in points, already mirrored where the layout runs right to left; `proposal`
/// is what relative lengths (radii, path points, gradients) of the carrier resolve against.
///
/// An element's node has the children in drawing order (z indices applied). A modifier's node has
/// its target as first child; Background and Overlay have their content as second child.
struct PlacedNode {
  std::variant<const viewkit::Element*, const viewkit::Modifier*> what;
  const viewkit::Node* source =
      nullptr;  ///< the view that it belongs to; alive as long as LayoutTree::root
  Rect frame;
  Size proposal;
  viewkit::LayoutDirection direction = viewkit::LayoutDirection::leftToRight;
  std::vector<PlacedNode> children;
  std::unique_ptr<PlacedText> text;  ///< of text elements

  [[nodiscard]] const viewkit::Element* element() const {
    const auto* e = std::get_if<const viewkit::Element*>(&what);
    return e ? *e : nullptr;
  }
  [[nodiscard]] const viewkit::Modifier* modifier() const {
    const auto* m = std::get_if<const viewkit::Modifier*>(&what);
    return m ? *m : nullptr;
  }
};

struct LayoutTree {
  viewkit::View view;  ///< keeps the nodes alive
  Size size;
  PlacedNode root;
};

}  // namespace rendering
