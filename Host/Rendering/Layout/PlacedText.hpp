// What a layout tree says in words: the strings of its lines, and which parts are silent.
#pragma once

#include <string>

#include "Rendering/Layout/LayoutTree.hpp"
#include "ViewKit/Appearance.hpp"

namespace rendering {

/// The characters of a line, in logical order, with its ellipsis.
[[nodiscard]] std::string lineText(const PlacedText& text, const PlacedLine& line);

/// Whether this node is the cover of a view that shows nothing of itself under this redaction.
[[nodiscard]] bool isCovered(const PlacedNode& node, viewkit::RedactionReasons redaction);

/// Whether the node hides all that is in it.
[[nodiscard]] bool isInvisible(const PlacedNode& node);

}  // namespace rendering
