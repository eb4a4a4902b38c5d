// What every layout of the card limit widget draws from, and the pieces they share.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "QuorvelWidgets/WidgetSupport/Components/WidgetContext.hpp"
#include "ViewKit/ViewKit.hpp"

namespace quorvel {

struct CardLimitContent : AccentedContext {
  std::vector<const WidgetSnapshot::Card*> cards;  ///< those drawn, at least one

  /// The used part of all cards' limits, 0...1.
  [[nodiscard]] double totalUsed() const;
  [[nodiscard]] viewkit::Color usageColor(double fraction) const;
  /// "42% used".
  [[nodiscard]] viewkit::View usedText(double fraction, double size) const;
};

[[nodiscard]] viewkit::View cardLimitSmall(const CardLimitContent& content);
[[nodiscard]] viewkit::View cardLimitMedium(const CardLimitContent& content);
[[nodiscard]] viewkit::View cardLimitLarge(const CardLimitContent& content);

}  // namespace quorvel
