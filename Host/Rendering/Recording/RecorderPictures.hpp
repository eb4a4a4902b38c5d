// Symbols and images.
#pragma once

#include "Rendering/Recording/RecorderContext.hpp"

namespace rendering {

void recordSymbol(RecorderContext& context,
                  const PlacedNode& node,
                  const viewkit::SymbolElement& symbol);

/// False when the image cannot be had: what stands in its place is drawn instead.
[[nodiscard]] bool recordImage(RecorderContext& context,
                               const PlacedNode& node,
                               const viewkit::ImageElement& element);

}  // namespace rendering
