// How far two colours stand apart for a reader, and what makes a text legible on a face.
#pragma once

#include <span>

#include "ViewKit/Color.hpp"

namespace quorvel {

inline constexpr double kTextContrast = 4.5;

/// WCAG relative luminance of an sRGB colour, 0...1.
[[nodiscard]] double relativeLuminance(viewkit::Rgb color);

/// WCAG contrast of two opaque colours, 1...21, in either order.
[[nodiscard]] double contrastRatio(viewkit::Rgb first, viewkit::Rgb second);

/// The least opacity, in steps of 0.01, of a black veil over every colour of `face` at which a text
/// of `text` at `textOpacity` has `ratio` everywhere; 1 when none does.
[[nodiscard]] double leastVeil(std::span<const viewkit::Rgb> face,
                               viewkit::Rgb text,
                               double textOpacity = 1,
                               double ratio = kTextContrast);

}  // namespace quorvel
