// How the document's amounts are written: always Latin digits, "," between thousands, "." before
// decimals, the symbol in front, whatever the device's locale.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "Foundation/Json.hpp"

namespace quorvel {

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

}  // namespace quorvel
