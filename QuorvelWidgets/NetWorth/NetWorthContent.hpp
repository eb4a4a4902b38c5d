// What every net worth layout draws from, and the pieces they share.
#pragma once

#include <optional>
#include <span>
#include <string>

#include "QuorvelWidgets/WidgetSupport/Components/WidgetContext.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/ChangeDescription.hpp"
#include "ViewKit/ViewKit.hpp"

namespace quorvel {

/// Captions of this widget shrink less than others.
inline constexpr double kLeastCaption = 0.85;

enum class ChartGrid { none, shown };

struct NetWorthContent : AccentedContext {
  const WidgetSnapshot::NetWorth& netWorth;

  /// The months that are drawn: the latest ones, oldest first.
  [[nodiscard]] std::span<const WidgetSnapshot::NetWorth::Point> history() const;
  [[nodiscard]] viewkit::View chart(ChartGrid grid) const;
  /// The change, or that amounts are hidden; empty without either.
  [[nodiscard]] viewkit::View change() const;
};

/// The change as it is written; nothing when it is absent or not finite.
[[nodiscard]] std::optional<ChangeDescription> shownChange(
    const WidgetSnapshot::NetWorth& netWorth);

/// The month that the change compares with; only when the history bears the shown percentage out.
[[nodiscard]] std::optional<std::string> comparedMonth(const WidgetSnapshot::NetWorth& netWorth);

[[nodiscard]] viewkit::View netWorthSmall(const NetWorthContent& content);
[[nodiscard]] viewkit::View netWorthMedium(const NetWorthContent& content);
[[nodiscard]] viewkit::View netWorthLarge(const NetWorthContent& content);

}  // namespace quorvel
