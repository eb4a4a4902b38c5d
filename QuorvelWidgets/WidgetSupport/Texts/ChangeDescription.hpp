// A change in percent, described: its arrow, its text and the colour of its meaning.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "ViewKit/Color.hpp"

namespace quorvel {

enum class Trend : std::uint8_t { rise, fall, none };

/// A change in percent: an arrow that carries the sign, the magnitude and the colour of its
/// meaning.
struct ChangeDescription {
  std::string symbol;  ///< "arrow.up.right", "arrow.down.right" or "arrow.right"
  std::string text;    ///< "3.3%"
  viewkit::Color color;
  Trend trend = Trend::none;

  friend bool operator==(const ChangeDescription&, const ChangeDescription&) = default;
};

/// Nothing when `percent` is not finite. `precision` counts decimals.
[[nodiscard]] std::optional<ChangeDescription> describeChange(double percent,
                                                              int precision,
                                                              bool favorableWhenPositive);

}  // namespace quorvel
