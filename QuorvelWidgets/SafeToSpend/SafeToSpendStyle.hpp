// The looks that a person may choose for the safe-to-spend widget.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace quorvel {

enum class SafeToSpendStyle : std::uint8_t { accent, ring };

/// The cases in the order shown; the first is the default.
inline constexpr std::array kSafeToSpendStyles{SafeToSpendStyle::accent, SafeToSpendStyle::ring};

/// "accent", "ring".
[[nodiscard]] std::string_view rawValue(SafeToSpendStyle style);
/// "Accent Tile", "Budget Ring".
[[nodiscard]] std::string_view displayTitle(SafeToSpendStyle style);
/// An exact match; nothing for any other value.
[[nodiscard]] std::optional<SafeToSpendStyle> safeToSpendStyle(std::string_view rawValue);

}  // namespace quorvel
