// A draw list as an SVG document: shapes and glyph outlines, no fonts, no text.
#pragma once

#include <string>

#include "Rendering/DrawList.hpp"
#include "Rendering/DrawingLimits.hpp"
#include "Rendering/Font.hpp"
#include "Rendering/SvgNaming.hpp"

namespace rendering {

/// `cornerRadius` points are cut off the corners (continuous). Each glyph's outline stands once and
/// is used by name. Refused when it would be longer than the limits allow.
[[nodiscard]] Drawn<std::string> writeSvg(const DrawList& list,
                                          double cornerRadius,
                                          const FontLibrary& fonts,
                                          const SvgNaming& naming);

}  // namespace rendering
