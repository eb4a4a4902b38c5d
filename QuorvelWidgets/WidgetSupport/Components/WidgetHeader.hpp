// A widget's title line.
#pragma once

#include <string>
#include <string_view>

#include "QuorvelWidgets/WidgetSupport/Colors/ModeColors.hpp"
#include "QuorvelWidgets/WidgetSupport/Colors/WAccent.hpp"
#include "ViewKit/ViewKit.hpp"

namespace quorvel {

struct WidgetHeader : viewkit::Modifiers<WidgetHeader> {
  static constexpr std::string_view kName = "WidgetHeader";

  std::string symbol;
  std::string text;
  bool compact = false;
  WAccent accent = WAccent{};
  std::string lang;  ///< of the text
  ModeColors colors{};

  [[nodiscard]] viewkit::View body() const;
};

}  // namespace quorvel
