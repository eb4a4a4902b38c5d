#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetMoneyStyle.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace quorvel {
namespace {

constexpr std::string_view kNotANumber = "-";

/// Keeps everything that is turned into an integer inside 64 bits. A NaN is not below it.
constexpr double kLimit = 9e18;

struct Scale {
  double threshold;
  double divisor;
  std::string_view suffix;
};
constexpr std::array<Scale, 4> kScales{
    {{1e9, 1e9, "B"}, {1e6, 1e6, "M"}, {1e3, 1e3, "K"}, {0, 1, ""}}};

std::string_view sign(double value) {
  return value < 0 ? "-" : "";
}

std::int64_t nearest(double value) {
  return static_cast<std::int64_t>(std::round(value));
}

/// The cents are taken from the product, never from the amount's own fraction, so that they carry
/// into the whole.
std::string numberWithDecimals(double magnitude) {
  const double cents = std::round(magnitude * 100);
  return fmt::format("{}.{:02}",
                     groupThousands(static_cast<std::int64_t>(cents / 100)),
                     static_cast<int>(std::fmod(cents, 100)));
}

}  // namespace

std::string WidgetMoneyStyle::format(double amount) const {
  const double value = amount * conversionRate.value_or(1);
  const double magnitude = std::fabs(value);
  if (!(magnitude < kLimit)) return std::string(kNotANumber);
  return fmt::format(
      "{}{}{}",
      sign(value),
      symbol,
      showDecimals ? numberWithDecimals(magnitude) : groupThousands(nearest(magnitude)));
}

std::string WidgetMoneyStyle::formatCompact(double amount) const {
  const double value = amount * conversionRate.value_or(1);
  const double magnitude = std::fabs(value);
  if (!(magnitude < kLimit)) return std::string(kNotANumber);
  const Scale& scale = *std::ranges::find_if(
      kScales, [&](const Scale& candidate) { return magnitude >= candidate.threshold; });
  const double scaled = magnitude / scale.divisor;
  const bool oneDecimal = !scale.suffix.empty() && scaled < 100;
  return fmt::format(
      "{}{}{}{}",
      sign(value),
      symbol,
      oneDecimal ? fmt::format("{:.1f}", scaled) : fmt::format("{}", nearest(scaled)),
      scale.suffix);
}

std::string groupThousands(std::int64_t number) {
  std::string digits = fmt::format("{}", number);
  for (std::size_t left = digits.size(); left > 3;) digits.insert(left -= 3, 1, ',');
  return digits;
}

}  // namespace quorvel
