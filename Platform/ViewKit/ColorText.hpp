// Colours as a word: `#6B1F3A/#B4416A 0.1/0.24` (light/dark colour, light/dark opacity), `#FFFFFF`,
// `primary 0.6`.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "ViewKit/Color.hpp"

namespace viewkit {

/// `number` appends an opacity; one of 1 in both appearances is left out.
void appendColor(std::string& out, const Color& color, void (*number)(std::string&, double));

/// Absent for a text of another form, and for opacities outside 0...1.
[[nodiscard]] std::optional<Color> parseColor(std::string_view text);

}  // namespace viewkit
