// Days as numbers: the Gregorian calendar from 1582-10-15, the Julian one before.
#pragma once

#include <cstdint>

namespace foundation {

/// Year 0 is 1 BC.
struct CivilDate {
  std::int64_t year = 1970;
  int month = 1;
  int day = 1;
};

inline constexpr std::int64_t kSecondsOfDay = 86400;

[[nodiscard]] constexpr std::int64_t floorDiv(std::int64_t a, std::int64_t b) {
  return a / b - (a % b != 0 && (a < 0) != (b < 0) ? 1 : 0);
}
[[nodiscard]] constexpr std::int64_t floorMod(std::int64_t a, std::int64_t b) {
  return a - floorDiv(a, b) * b;
}

/// Days since 1970-01-01. Any month and day count on; the ten days that 1582 lacks are read as
/// Julian ones.
[[nodiscard]] std::int64_t daysFromCivil(std::int64_t year, std::int64_t month, std::int64_t day);
[[nodiscard]] CivilDate civilFromDays(std::int64_t days);

/// 0 = Sunday ... 6 = Saturday.
[[nodiscard]] constexpr int weekdayOf(std::int64_t days) {
  return static_cast<int>(floorMod(days + 4, 7));
}

}  // namespace foundation
