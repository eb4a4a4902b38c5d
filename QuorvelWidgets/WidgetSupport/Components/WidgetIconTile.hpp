// A symbol on a small rounded tile.
#pragma once

#include <string>
#include <string_view>

#include "ViewKit/ViewKit.hpp"

namespace quorvel {

/// `size` x `size` points; decorative, so assistive technology skips it.
struct WidgetIconTile : viewkit::Modifiers<WidgetIconTile> {
  static constexpr std::string_view kName = "WidgetIconTile";

  std::string symbol;
  viewkit::Color color;
  viewkit::Color background;
  double size = 22;
  std::string fallback;  ///< drawn where the symbol is unknown; empty: the host's choice

  [[nodiscard]] viewkit::View body() const;
};

}  // namespace quorvel
