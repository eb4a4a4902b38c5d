// Exact decimal amounts: sums of money must not pick up binary fractions on the way.
//
//     Decimal sum = *parseDecimal("0.10");
//     sum += *parseDecimal("0.20");
//     sum.toDouble();  // 0.3, rounded once
#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace importer {

/// A count of units of 10^-12. Parsed amounts stay below 10^15, so a hundred million of them fit.
class Decimal {
 public:
  constexpr Decimal() = default;
  [[nodiscard]] static constexpr Decimal whole(std::int64_t number) {
    return Decimal(static_cast<Units>(number) * kScale);
  }

  constexpr Decimal& operator+=(Decimal other) {
    units_ += other.units_;
    return *this;
  }
  constexpr Decimal& operator-=(Decimal other) {
    units_ -= other.units_;
    return *this;
  }
  friend constexpr Decimal operator+(Decimal a, Decimal b) { return a += b; }
  friend constexpr Decimal operator-(Decimal a, Decimal b) { return a -= b; }
  friend constexpr Decimal operator-(Decimal a) { return Decimal{} - a; }
  friend constexpr auto operator<=>(Decimal, Decimal) = default;

  [[nodiscard]] constexpr bool isWhole() const { return units_ % kScale == 0; }
  /// The nearest double.
  [[nodiscard]] double toDouble() const;
  /// "1234.5", "-0.01": no more fraction digits than needed.
  [[nodiscard]] std::string text() const;

 private:
  __extension__ using Units = __int128;
  static constexpr Units kScale = 1'000'000'000'000;

  constexpr explicit Decimal(Units units) : units_(units) {}
  friend std::optional<Decimal> parseDecimal(std::string_view text);

  Units units_ = 0;
};

/// Digits with at most one ".", after at most one sign; fraction digits beyond the twelfth are
/// rounded. Nothing for any other text and from 10^15 on.
[[nodiscard]] std::optional<Decimal> parseDecimal(std::string_view text);

[[nodiscard]] constexpr Decimal atLeastZero(Decimal amount) {
  return amount < Decimal{} ? Decimal{} : amount;
}

}  // namespace importer
