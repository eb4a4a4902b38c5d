// From a layout tree to a display list: colours resolved, redaction applied, images opened.
#pragma once

#include "Rendering/Graphics/DrawingLimits.hpp"
#include "Rendering/Graphics/RenderOptions.hpp"
#include "Rendering/Layout/LayoutTree.hpp"
#include "Rendering/Recording/DisplayList.hpp"
#include "Rendering/Recording/RecorderTools.hpp"

namespace rendering {

/// Appends the tree's commands. The list refers to the symbol library's drawings. Refused when they
/// are more than the limits allow.
[[nodiscard]] Drawn<void> record(const LayoutTree& tree,
                                 const RenderOptions& options,
                                 RecorderTools tools,
                                 DisplayList& list);

}  // namespace rendering
