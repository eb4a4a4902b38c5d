// What every layout of the card limit widget draws from, and the pieces they share.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "QuorvelWidgets/WidgetSupport/Colors/ModeColors.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetSnapshot.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/TextKey.hpp"
#include "ViewKit/ViewKit.hpp"
#include "WidgetRuntime/Environment.hpp"

namespace quorvel {

inline constexpr std::string_view kCardSymbol = "creditcard.fill";

struct CardLimitContent {
  WidgetSnapshot snapshot;                         ///< its `isHidden` is the effective privacy
  std::vector<const WidgetSnapshot::Card*> cards;  ///< those drawn, at least one
  std::size_t cardCount = 0;                       ///< in the document
  WAccent accent;
  widgetruntime::Environment environment;
  ModeColors colors{environment.widgetRenderingMode};

  [[nodiscard]] std::string text(TextKey key) const;
  /// A caption: one line in the snapshot's language.
  [[nodiscard]] viewkit::Text caption(std::string text, double size) const;
  [[nodiscard]] viewkit::View header(bool compact) const;
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
