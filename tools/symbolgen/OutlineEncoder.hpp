// The compact form of outlines that the renderer reads; see Host/Rendering/Symbols/SymbolData.hpp.
#pragma once

#include <string>

#include "Outline.hpp"

namespace symbolgen {

/// Appends the icon's bytes.
void encode(const Icon& icon, std::string& out);

}  // namespace symbolgen
