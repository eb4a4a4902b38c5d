// Fractions as whole percent.
#pragma once

#include <string>

namespace quorvel {

/// 0...1: what is not finite or not above 0 gives 0, above 1 gives 1.
[[nodiscard]] double clampedFraction(double fraction);

/// The clamped fraction as whole percent, halves up: "0%", "100%".
[[nodiscard]] std::string percentText(double fraction);

}  // namespace quorvel
