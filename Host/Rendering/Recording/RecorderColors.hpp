// Which colour a described colour has on this screen.
#pragma once

#include "Rendering/Graphics/RenderOptions.hpp"
#include "Rendering/Recording/DisplayList.hpp"
#include "ViewKit/Color.hpp"

namespace rendering {

/// The colour of labels: black on light, white on dark.
[[nodiscard]] Rgba labelColor(viewkit::Appearance appearance);

/// The grey of the same lightness, measured in linear light.
[[nodiscard]] Rgba greyOf(const Rgba& color);

/// Full colour: the pair's colour for the appearance; primary is the label colour, secondary the
/// same at 0.6. Accented: the tint inside accentable views and the label colour elsewhere; only the
/// opacity of `color` counts. Vibrant: the full colour's grey, opacity kept.
[[nodiscard]] Rgba resolveColor(const viewkit::Color& color,
                                const RenderOptions& options,
                                bool accentable);

}  // namespace rendering
