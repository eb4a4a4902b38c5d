// A widget as one line in a status bar, in the form that each bar reads.
#pragma once

#include <cstdint>
#include <string>

#include "Foundation/Names.hpp"

namespace surfaces {

enum class BarFormat : std::uint8_t { waybar, i3bar, i3blocks, polybar, plain, json };
constexpr auto namesOf(BarFormat) {
  return foundation::names("waybar", "i3bar", "i3blocks", "polybar", "plain", "json");
}

/// What a resident host says of a widget.
struct BarLine {
  std::string kind;     ///< short: "safe-to-spend"
  std::string text;     ///< masked while amounts are hidden
  std::string state;    ///< none, good, warning, critical
  std::string tooltip;  ///< several lines
  std::string status;   ///< live, stale, failed
  std::string reason;   ///< why it is not live, one line
  bool isHidden = false;
  std::string json;  ///< all of it as it came
};

/// One whole line with its end; for i3bar one element of its endless array.
[[nodiscard]] std::string format(const BarLine& line, BarFormat format);

/// What comes before the first line: i3bar's header.
[[nodiscard]] std::string opening(BarFormat format);

}  // namespace surfaces
