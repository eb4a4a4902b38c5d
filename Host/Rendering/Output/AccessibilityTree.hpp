// What assistive technology is told of a layout tree.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "Foundation/Names.hpp"
#include "Rendering/Layout/LayoutTree.hpp"
#include "ViewKit/Appearance.hpp"

namespace rendering {

struct AccessibilityOptions {
  viewkit::RedactionReasons redaction;
  std::string name{};  ///< the widget's; without one there is no element of the widget itself
};

enum class AccessibleRole : std::uint8_t { text, image, link, group };
constexpr auto namesOf(AccessibleRole) {
  return foundation::names("text", "image", "link", "group");
}

struct AccessibleElement {
  AccessibleRole role = AccessibleRole::text;
  std::string label;
  std::string value;
  Rect frame;
  std::string link;  ///< where a tap leads, of the link role
  friend bool operator==(const AccessibleElement&, const AccessibleElement&) = default;
};

/// First the widget itself: its name, and where a tap on no other link leads. A placeholder says no
/// more than that. Then in the order of the tree. Symbols and images are silent unless labelled;
/// what a link surrounds is one element, its texts joined as their language lists things; a covered
/// view and its labels are left out while the host redacts for privacy. Controls of the writing
/// direction are left out of what is said.
[[nodiscard]] std::vector<AccessibleElement> accessibleElements(
    const LayoutTree& tree, const AccessibilityOptions& options);

/// The same, one element per line: role, label, value, link and frame.
[[nodiscard]] std::string accessibilityTree(const LayoutTree& tree,
                                            const AccessibilityOptions& options);

}  // namespace rendering
