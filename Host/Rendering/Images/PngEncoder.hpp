// Pictures as PNG (Portable Network Graphics, third edition; ISO/IEC 15948): eight bits a channel,
// without filters or interlacing, the alpha channel only where a pixel is not opaque.
#pragma once

#include <cstdint>
#include <string>

#include "Rendering/Graphics/Bitmap.hpp"

namespace rendering {

enum class PngSize : std::uint8_t { fast, small };

/// Empty for an empty picture.
[[nodiscard]] std::string encodePng(const Bitmap& bitmap, PngSize size = PngSize::fast);

}  // namespace rendering
