// A layout tree as text, for approval files and for a look at what layout did.
#pragma once

#include <string>

#include "Rendering/Layout/LayoutTree.hpp"

namespace rendering {

/// One element per line, indented by depth: its kind, the component that it is the body of, what it
/// shows, then "x y width height" in points rounded to hundredths. "in x y width height" follows
/// where the view's modifiers give it another frame. Texts show their lines, their scale if shrunk,
/// and "cut" if cut.
[[nodiscard]] std::string dumpPlaced(const LayoutTree& tree);

}  // namespace rendering
