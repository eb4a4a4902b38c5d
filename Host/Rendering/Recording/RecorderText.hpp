// Texts as glyphs, or as bars where nothing is to be read.
#pragma once

#include "Rendering/Recording/RecorderContext.hpp"

namespace rendering {

void recordText(RecorderContext& context, const PlacedNode& node);

}  // namespace rendering
