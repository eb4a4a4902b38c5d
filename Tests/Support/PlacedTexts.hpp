// Every text of a layout tree with what the views around it say about how it is drawn.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "Rendering/Layout/LayoutTree.hpp"

namespace testsupport {

using rendering::PlacedLine;
using rendering::PlacedNode;
using rendering::Rect;

inline Rect intersection(const Rect& a, const Rect& b) {
  const double x = std::max(a.x, b.x);
  const double y = std::max(a.y, b.y);
  return {x,
          y,
          std::max(0.0, std::min(a.right(), b.right()) - x),
          std::max(0.0, std::min(a.bottom(), b.bottom()) - y)};
}

/// What holds for a node because of the views around it.
struct Surroundings {
  Rect clip{};  ///< what may be seen
  viewkit::Color foreground = viewkit::Color::primary();
  double opacity = 1;
  bool isCovered = false;  ///< by a host that redacts for privacy
  bool isInDueTile = false;
  bool isInImage = false;  ///< what stands in for a picture that cannot be read
};

struct FoundText {
  const PlacedNode* node = nullptr;
  Surroundings around;
  [[nodiscard]] const viewkit::TextElement& element() const {
    return std::get<viewkit::TextElement>(*node->element());
  }
};

struct FoundNodes {
  std::vector<FoundText> texts;
  std::vector<Rect> symbols;
  std::vector<Rect> links;  ///< as much as may be seen of them
  std::vector<const PlacedNode*> all;
};

namespace detail {

inline void find(const PlacedNode& node, Surroundings around, FoundNodes& found) {
  found.all.push_back(&node);
  if (node.source && node.source->component == "DueTile") around.isInDueTile = true;
  if (const viewkit::Modifier* modifier = node.modifier()) {
    if (const auto* style = std::get_if<viewkit::ForegroundStyle>(modifier)) {
      if (const auto* color = std::get_if<viewkit::Color>(&style->paint)) {
        around.foreground = *color;
      }
    } else if (const auto* opacity = std::get_if<viewkit::Opacity>(modifier)) {
      around.opacity *= opacity->opacity;
    } else if (std::holds_alternative<viewkit::Clip>(*modifier)) {
      around.clip = intersection(around.clip, node.frame);
    } else if (const auto* sensitive = std::get_if<viewkit::PrivacySensitive>(modifier)) {
      around.isCovered |= sensitive->treatment == viewkit::PrivacyTreatment::covered;
    } else if (std::holds_alternative<viewkit::Link>(*modifier)) {
      found.links.push_back(intersection(around.clip, node.frame));
    }
  }
  if (node.text) found.texts.push_back({&node, around});
  if (const auto* element = node.element()) {
    around.isInImage |= std::holds_alternative<viewkit::ImageElement>(*element);
    if (std::holds_alternative<viewkit::SymbolElement>(*element)) {
      found.symbols.push_back(node.frame);
    }
  }
  for (const PlacedNode& child : node.children) find(child, around, found);
}

}  // namespace detail

/// They live as long as the tree.
inline FoundNodes find(const rendering::LayoutTree& tree) {
  FoundNodes found;
  detail::find(tree.root, {.clip = {0, 0, tree.size.width, tree.size.height}}, found);
  return found;
}

/// Where a line's letters stand: from above the capitals to below the descenders.
inline Rect inkBox(const rendering::PlacedText& text, const PlacedLine& line) {
  return {line.x, line.baseline - 0.78 * text.size, line.width, text.size};
}

}  // namespace testsupport
