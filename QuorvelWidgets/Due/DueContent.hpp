// What every layout of the due widget draws from, and the pieces they share.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "QuorvelWidgets/Due/UpcomingDues.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/WidgetContext.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/AmountText.hpp"
#include "ViewKit/ViewKit.hpp"

namespace quorvel {

inline constexpr double kSubtitleOpacity = 0.85;
/// As many as the tallest layout shows.
inline constexpr std::size_t kMostDues = 3;

struct DueContent : WidgetContext {
  std::vector<UpcomingDue> upcoming;  ///< at least one
  std::string urlScheme;
  const foundation::Calendar& calendar;

  /// The user's own name of a payment; may be cut.
  [[nodiscard]] viewkit::Text name(const WidgetSnapshot::Due& due, double size) const;
  /// What stands below the name; nothing when there is no such text.
  [[nodiscard]] viewkit::View subtitle(const WidgetSnapshot::Due& due) const;
  /// The full money text, never the short form; "••••" when amounts are hidden.
  [[nodiscard]] std::string amountText(const WidgetSnapshot::Due& due) const;
  [[nodiscard]] viewkit::View amount(const WidgetSnapshot::Due& due, double size) const;
  /// How far away the payment is, on a dark capsule.
  [[nodiscard]] viewkit::View relativePill(const UpcomingDue& next, double size) const;
  /// "Due Nov 23".
  [[nodiscard]] viewkit::View dueDate(const WidgetSnapshot::Due& due, double size) const;
};

/// The next payment in one line: "in 3 days · Everyday card · $125".
[[nodiscard]] std::string inlineText(const DueContent& content);
/// The same without the name.
[[nodiscard]] std::string bareInlineText(const DueContent& content);

[[nodiscard]] viewkit::View dueSmall(const DueContent& content);
[[nodiscard]] viewkit::View dueMedium(const DueContent& content);
[[nodiscard]] viewkit::View dueAccessory(const DueContent& content);

}  // namespace quorvel
