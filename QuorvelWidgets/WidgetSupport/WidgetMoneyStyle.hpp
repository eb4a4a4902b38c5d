// How the document's amounts are written: always Latin digits, "," between thousands, "." before
// decimals, the symbol in front, whatever the device's locale.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "Foundation/Json.hpp"
#include "ViewKit/Color.hpp"

namespace quorvel {

struct WidgetSnapshot;

struct WidgetMoneyStyle {
  std::string symbol;
  bool showDecimals = false;
  std::optional<double> conversionRate;  ///< every amount is multiplied by it first; absent: 1

  /// "$1,234.50", "-$0"; "-" for what is not finite or not below 9e18 once converted.
  [[nodiscard]] std::string format(double amount) const;

  /// "$1.0K", "$12.5M", "$250K", "$999"; "-" as above.
  [[nodiscard]] std::string formatCompact(double amount) const;

  static std::span<const foundation::JsonField> jsonFields();
  friend bool operator==(const WidgetMoneyStyle&, const WidgetMoneyStyle&) = default;
};

/// Decimal digits with "," between groups of three; `number` is not negative.
[[nodiscard]] std::string groupThousands(std::int64_t number);

/// What an amount shows: "••••" when the snapshot hides amounts, else the full format, or the
/// compact one when that is asked for or the full one has 13 characters or more.
[[nodiscard]] std::string amountText(double value,
                                     const WidgetSnapshot& snapshot,
                                     bool compact = false);

/// What is read out for an amount: the text of `hidden`, else always the full format.
[[nodiscard]] std::string amountAccessibilityLabel(double value, const WidgetSnapshot& snapshot);

enum class Trend : std::uint8_t { rise, fall, none };

/// A change in percent: an arrow that carries the sign, the magnitude and the colour of its
/// meaning.
struct ChangeDescription {
  std::string symbol;  ///< "arrow.up.right", "arrow.down.right" or "arrow.right"
  std::string text;    ///< "3.3%"
  viewkit::Color color;
  Trend trend = Trend::none;

  friend bool operator==(const ChangeDescription&, const ChangeDescription&) = default;
};

/// Nothing when `percent` is not finite. `precision` counts decimals.
[[nodiscard]] std::optional<ChangeDescription> describeChange(double percent,
                                                              int precision,
                                                              bool favorableWhenPositive);

/// 0...1: what is not finite or not above 0 gives 0, above 1 gives 1.
[[nodiscard]] double clampedFraction(double fraction);

/// The clamped fraction as whole percent, halves up: "0%", "100%".
[[nodiscard]] std::string percentText(double fraction);

}  // namespace quorvel
