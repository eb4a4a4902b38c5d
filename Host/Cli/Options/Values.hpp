// The text forms of option values. Each reader gives nothing for a text that is not of its form.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "Cli/Options/Options.hpp"
#include "Rendering/Images/PngEncoder.hpp"

namespace cli {

[[nodiscard]] std::optional<rendering::PngSize> pngSizeNamed(std::string_view name);

/// "170x170" in points, each more than 0 and at most 2,000.
[[nodiscard]] std::optional<rendering::Size> sizeFrom(std::string_view text);

/// "#8A2BE2".
[[nodiscard]] std::optional<viewkit::Rgb> colorFrom(std::string_view text);

/// "privacy", "placeholder" or both, with a comma between them.
[[nodiscard]] std::optional<viewkit::RedactionReasons> redactionFrom(std::string_view text);

/// "style=ring".
[[nodiscard]] std::optional<std::pair<std::string, std::string>> assignmentFrom(
    std::string_view text);

/// A plain decimal number without sign or exponent.
[[nodiscard]] std::optional<double> numberFrom(std::string_view text);

}  // namespace cli
