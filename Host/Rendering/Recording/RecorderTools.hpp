// What drawing needs besides the tree.
#pragma once

#include "Rendering/Images/ImageDecoder.hpp"
#include "Rendering/Symbols/SymbolLibrary.hpp"
#include "Rendering/Text/ColorGlyphs.hpp"
#include "Rendering/Text/FontMeasurer.hpp"

namespace rendering {

struct RecorderTools {
  FontMeasurer& measurer;
  SymbolLibrary& symbols;
  ImageCache& images;
  ColorGlyphs& colorGlyphs;
};

}  // namespace rendering
