// A capsule-like label in one colour. No widget has one yet.
#pragma once

#include <string>
#include <string_view>

#include "ViewKit/ViewKit.hpp"

namespace quorvel {

/// `size` + 8.5 points high; symbol and text are 2 points smaller than `size`.
struct WidgetPill : viewkit::Modifiers<WidgetPill> {
  static constexpr std::string_view kName = "WidgetPill";

  std::string text;
  std::string symbol;
  viewkit::Color color;
  double size = 13.5;
  std::string lang;  ///< of the text

  [[nodiscard]] viewkit::View body() const;
};

}  // namespace quorvel
