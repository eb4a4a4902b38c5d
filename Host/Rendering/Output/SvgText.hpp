// Values as SVG writes them.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "Rendering/Graphics/Geometry.hpp"
#include "Rendering/Graphics/Rgba.hpp"
#include "Rendering/Graphics/ShapePath.hpp"

namespace rendering::svg {

/// Up to three decimals; what is not finite is 0.
[[nodiscard]] std::string number(double value);

/// The attribute `d` of a path.
[[nodiscard]] std::string pathData(std::span<const PathVerb> verbs, std::span<const Point> points);
[[nodiscard]] std::string pathData(const Path& path);

/// `x="1" y="2" width="3" height="4"`.
[[nodiscard]] std::string box(const Rect& rect);

/// "#RRGGBB"; opacity is an attribute of its own.
[[nodiscard]] std::string hex(const Rgba& color);

/// RFC 4648, section 4.
[[nodiscard]] std::string base64(std::string_view bytes);

}  // namespace rendering::svg
