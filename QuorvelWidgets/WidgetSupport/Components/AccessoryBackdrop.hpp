// What stands behind a view when the host draws no container background.
#pragma once

#include <string_view>

#include "ViewKit/ViewKit.hpp"

namespace quorvel {

/// Takes the whole proposal; clear while the host draws the background itself.
struct AccessoryBackdrop : viewkit::Modifiers<AccessoryBackdrop> {
  static constexpr std::string_view kName = "AccessoryBackdrop";

  bool showsBackground = false;

  [[nodiscard]] viewkit::View body() const;
};

}  // namespace quorvel
