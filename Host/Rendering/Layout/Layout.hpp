// Layout: propose, size, place. A pure function of a view, a size, a text measurer and a direction.
#pragma once

#include <functional>
#include <string>
#include <variant>

#include "Rendering/Layout/LayoutTree.hpp"

namespace rendering {

/// One question that layout worked out. Repeated ones are answered from memory, and modifiers
/// without a say in layout pass them on: neither is told.
struct LayoutStep {
  std::variant<const viewkit::Element*, const viewkit::Modifier*> what;
  int depth = 0;  ///< questions that are open around it
  Proposal proposal;
  Size answer;
};
using LayoutTrace = std::function<void(const LayoutStep&)>;

struct LayoutOptions {
  Size size;
  viewkit::LayoutDirection direction = viewkit::LayoutDirection::leftToRight;
  bool placeholderRedaction = false;  ///< texts are at least 2 em wide
  LayoutTrace trace{};                ///< told every answer when set, as tests do to count them
};

/// The root is proposed the whole size and centred in it. A view's container background is laid out
/// by itself: `viewkit::containerBackground` finds it.
[[nodiscard]] LayoutTree layOut(const viewkit::View& view,
                                const LayoutOptions& options,
                                TextMeasurer& measurer);

}  // namespace rendering
