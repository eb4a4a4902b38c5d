// What every net worth layout draws from, and the pieces they share.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "QuorvelWidgets/WidgetSupport/Colors/ModeColors.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetSnapshot.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/ChangeDescription.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/TextKey.hpp"
#include "ViewKit/ViewKit.hpp"
#include "WidgetRuntime/Environment.hpp"

namespace quorvel {

inline constexpr std::string_view kNetWorthSymbol = "chart.line.uptrend.xyaxis";

struct NetWorthContent {
  WidgetSnapshot snapshot;  ///< its `isHidden` is the effective privacy
  const WidgetSnapshot::NetWorth& netWorth;
  WAccent accent;
  widgetruntime::Environment environment;
  ModeColors colors{environment.widgetRenderingMode};

  [[nodiscard]] std::string text(TextKey key) const;
  /// A caption: one line in the snapshot's language.
  [[nodiscard]] viewkit::Text caption(std::string text, double size) const;
  [[nodiscard]] viewkit::View header(bool compact) const;
  /// The months that are drawn: the latest ones, oldest first.
  [[nodiscard]] std::span<const WidgetSnapshot::NetWorth::Point> history() const;
  [[nodiscard]] viewkit::View chart(bool showsGrid) const;
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
