// Picture data as small as it gets without a thought for time.
#pragma once

#include <string>

#include "Rendering/Graphics/Bitmap.hpp"

namespace rendering {

/// The zlib stream of the rows; empty on failure.
[[nodiscard]] std::string deflateSmall(const Bitmap& bitmap, bool opaque);

}  // namespace rendering
