// Says that amounts are hidden.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "ViewKit/ViewKit.hpp"

namespace quorvel {

struct WidgetPrivacyNote : viewkit::Modifiers<WidgetPrivacyNote> {
  static constexpr std::string_view kName = "WidgetPrivacyNote";

  std::optional<std::string> lang;
  viewkit::Color color;

  [[nodiscard]] viewkit::View body() const;
};

}  // namespace quorvel
