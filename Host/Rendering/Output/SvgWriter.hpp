// A display list as an SVG document: shapes and glyph outlines, no fonts, no text.
#pragma once

#include <string>

#include "Rendering/Graphics/DrawingLimits.hpp"
#include "Rendering/Output/SvgNaming.hpp"
#include "Rendering/Recording/DisplayList.hpp"
#include "Rendering/Text/Font.hpp"

namespace rendering {

/// `cornerRadius` points are cut off the corners (continuous). Each glyph's outline stands once and
/// is used by name. Refused when it would be longer than the limits allow.
[[nodiscard]] Drawn<std::string> writeSvg(const DisplayList& list,
                                          double cornerRadius,
                                          const FontLibrary& fonts,
                                          const SvgNaming& naming);

}  // namespace rendering
