// A change in percent: the arrow carries the sign, the colour its meaning.
#pragma once

#include <string>
#include <string_view>

#include "QuorvelWidgets/WidgetSupport/Colors/ModeColors.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/ChangeDescription.hpp"
#include "ViewKit/ViewKit.hpp"

namespace quorvel {

/// An arrow and a percentage in `size`, in the colour around them: the arrow stands on the base
/// line, as high as the figures and as wide as its ink.
[[nodiscard]] viewkit::View changeFigure(const ChangeDescription& change, double size);

/// Nothing at all when `value` is not finite. Under privacy a view leaves the component out.
struct WidgetChange : viewkit::Modifiers<WidgetChange> {
  static constexpr std::string_view kName = "WidgetChange";

  double value = 0;   ///< percent; 5.5 means +5.5 %
  int precision = 0;  ///< decimals
  bool favorableWhenPositive = true;
  double size = 12;
  std::string lang{};
  ModeColors colors{};

  [[nodiscard]] viewkit::View body() const;
};

}  // namespace quorvel
