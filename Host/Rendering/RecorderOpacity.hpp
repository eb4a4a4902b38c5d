// Opacity of several commands at once, as a group only where they overlap.
#pragma once

#include <cstddef>
#include <optional>

#include "Rendering/DrawList.hpp"

namespace rendering {

/// Makes the commands from `first` on translucent: each by itself if no two touch, else as a group.
void applyOpacity(DrawList& list, std::size_t first, double opacity);

/// The smallest rectangle around what the commands from `first` on may touch.
[[nodiscard]] Rect boundsFrom(const DrawList& list, std::size_t first);

/// The path whose inside the commands from `first` on cover completely while nothing reaches beyond
/// it.
[[nodiscard]] std::optional<FillPath> silhouetteFrom(DrawList& list, std::size_t first);

[[nodiscard]] bool contains(const Rect& outer, const Rect& inner);
[[nodiscard]] Rect unite(const Rect& a, const Rect& b);
[[nodiscard]] Rect intersect(const Rect& a, const Rect& b);

}  // namespace rendering
