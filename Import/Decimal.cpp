#include "Import/Decimal.hpp"

#include <charconv>

#include "Foundation/Ascii.hpp"

namespace importer {

using foundation::isAsciiDigit;

namespace {

constexpr int kFractionDigits = 12;
constexpr int kWholeDigits = 15;

}  // namespace

std::optional<Decimal> parseDecimal(std::string_view text) {
  const bool isNegative = text.starts_with('-');
  if (isNegative || text.starts_with('+')) text.remove_prefix(1);
  Decimal::Units units = 0;
  int whole = 0;
  std::size_t at = 0;
  for (; at < text.size() && isAsciiDigit(text[at]); ++at) {
    units = units * 10 + (text[at] - '0');
    if (units != 0 && ++whole > kWholeDigits) return std::nullopt;
  }
  std::size_t digits = at;
  const bool hasPoint = at < text.size() && text[at] == '.';
  if (hasPoint) ++at;
  int fraction = 0;
  bool roundsUp = false;
  for (; hasPoint && at < text.size() && isAsciiDigit(text[at]); ++at, ++digits) {
    if (fraction < kFractionDigits) {
      units = units * 10 + (text[at] - '0');
    } else if (fraction == kFractionDigits) {
      roundsUp = text[at] >= '5';
    }
    ++fraction;
  }
  if (digits == 0 || at != text.size()) return std::nullopt;
  for (; fraction < kFractionDigits; ++fraction) units *= 10;
  if (roundsUp) ++units;
  return Decimal(isNegative ? -units : units);
}

std::string Decimal::text() const {
  // Digits from the right; the sign is taken off first.
  Units rest = units_ < 0 ? -units_ : units_;
  std::string digits;
  for (int i = 0; rest != 0 || i <= kFractionDigits; ++i) {
    if (i == kFractionDigits) digits.insert(digits.begin(), '.');
    digits.insert(digits.begin(), static_cast<char>('0' + static_cast<int>(rest % 10)));
    rest /= 10;
  }
  digits.erase(digits.find_last_not_of('0') + 1);
  if (digits.ends_with('.')) digits.pop_back();
  return units_ < 0 ? "-" + digits : digits;
}

double Decimal::toDouble() const {
  const std::string digits = text();
  double value = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), value);
  return value;
}

}  // namespace importer
