// Alignment guides: where in a view the lines lie that stacks and frames bring together.
#pragma once

#include "Rendering/Layout/LayoutRecords.hpp"

namespace rendering {

/// Distance of the guide from the leading edge.
[[nodiscard]] double horizontalGuide(viewkit::HorizontalAlignment alignment,
                                     const MeasuredSize& view);

/// Distance of the guide from the top edge; a view without text stands on its bottom edge.
[[nodiscard]] double verticalGuide(viewkit::VerticalAlignment alignment, const MeasuredSize& view);

/// Where a child of this answer stands in a box when their guides coincide; it may overflow. The
/// box's own text baseline counts as its bottom edge.
[[nodiscard]] Point alignedOrigin(viewkit::Alignment alignment,
                                  Size box,
                                  const MeasuredSize& child);

/// The baseline of a view whose child stands at `origin`.
[[nodiscard]] std::optional<double> carriedBaseline(const MeasuredSize& child, Point origin);

}  // namespace rendering
