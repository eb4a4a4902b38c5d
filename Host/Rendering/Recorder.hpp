// From a placed tree to a draw list: colours resolved, redaction applied, images opened.
#pragma once

#include "Rendering/ColorGlyphs.hpp"
#include "Rendering/DrawList.hpp"
#include "Rendering/DrawingLimits.hpp"
#include "Rendering/FontMeasurer.hpp"
#include "Rendering/ImageDecoder.hpp"
#include "Rendering/PlacedTree.hpp"
#include "Rendering/Renderer.hpp"
#include "Rendering/SymbolLibrary.hpp"

namespace rendering {

/// What drawing needs besides the tree.
struct RecorderTools {
  FontMeasurer& measurer;
  SymbolLibrary& symbols;
  ImageStore& images;
  ColorGlyphs& colorGlyphs;
};

/// Appends the tree's commands. The list refers to the symbol library's drawings. Refused when they
/// are more than the limits allow.
[[nodiscard]] Drawn<void> record(const PlacedTree& tree,
                                 const RenderOptions& options,
                                 RecorderTools tools,
                                 DrawList& list);

}  // namespace rendering
