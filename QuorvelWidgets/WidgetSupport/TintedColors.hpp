// What becomes of the palette where a host tints: it turns colours into greys, or drops them.
#pragma once

#include "ViewKit/View.hpp"

namespace quorvel {

/// The view with secondary texts in the hierarchical secondary, marks and statuses in the primary
/// colour, and icon tiles on a weak primary, so that none depends on a hue that is not drawn. Faces
/// and charts keep their steps.
[[nodiscard]] viewkit::View withTintedColors(const viewkit::View& view);

}  // namespace quorvel
