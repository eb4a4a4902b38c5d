// Opacity of several commands at once, as a group only where they overlap.
#pragma once

#include <cstddef>
#include <optional>

#include "Rendering/Recording/DisplayList.hpp"

namespace rendering {

/// Ends the group that begins there; where no two of its commands touch, each becomes translucent
/// by itself and the group goes.
void endOpacity(DisplayList& list, std::size_t begin);

/// The smallest rectangle around what the commands from `first` on may touch.
[[nodiscard]] Rect boundsFrom(const DisplayList& list, std::size_t first);

/// The path whose inside the commands from `first` on cover completely while nothing reaches beyond
/// it.
[[nodiscard]] std::optional<FillPath> silhouetteFrom(DisplayList& list, std::size_t first);

}  // namespace rendering
