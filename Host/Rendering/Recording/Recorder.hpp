// From a layout tree to a display list: colours resolved, redaction applied, images opened.
#pragma once

#include "Rendering/Graphics/DrawingLimits.hpp"
#include "Rendering/Graphics/RenderOptions.hpp"
#include "Rendering/Images/ImageDecoder.hpp"
#include "Rendering/Layout/LayoutTree.hpp"
#include "Rendering/Recording/DisplayList.hpp"
#include "Rendering/Symbols/SymbolLibrary.hpp"
#include "Rendering/Text/ColorGlyphs.hpp"
#include "Rendering/Text/FontMeasurer.hpp"

namespace rendering {

/// What drawing needs besides the tree.
struct RecorderTools {
  FontMeasurer& measurer;
  SymbolLibrary& symbols;
  ImageCache& images;
  ColorGlyphs& colorGlyphs;
};

/// Appends the tree's commands. The list refers to the symbol library's drawings. Refused when they
/// are more than the limits allow.
[[nodiscard]] Drawn<void> record(const LayoutTree& tree,
                                 const RenderOptions& options,
                                 RecorderTools tools,
                                 DisplayList& list);

}  // namespace rendering
