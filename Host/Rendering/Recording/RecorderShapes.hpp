// Shapes and gauges as filled and stroked paths.
#pragma once

#include "Rendering/Recording/RecorderContext.hpp"

namespace rendering {

void recordShape(RecorderContext& context,
                 const PlacedNode& node,
                 const viewkit::ShapeElement& shape);

/// The gauge's track and arc, not what stands inside it.
void recordGauge(RecorderContext& context,
                 const PlacedNode& node,
                 const viewkit::GaugeElement& gauge);

}  // namespace rendering
