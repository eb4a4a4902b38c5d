// Both calendars count years from March, so that the leap day comes last.
#include "Foundation/CivilDate.hpp"

namespace foundation {
namespace {

constexpr std::int64_t kEpochGregorian = 719468;  // 0000-03-01 Gregorian to 1970-01-01
constexpr std::int64_t kEpochJulian = 719470;     // 0000-03-01 Julian to 1970-01-01
constexpr std::int64_t kCutover = -141427;        // 1582-10-15

/// Days before the month, counted from March (0) to February (11).
constexpr std::int64_t daysBeforeMonth(std::int64_t month) {
  return (153 * month + 2) / 5;
}

constexpr CivilDate fromMarchYear(std::int64_t marchYear, std::int64_t dayOfYear) {
  const std::int64_t month = (5 * dayOfYear + 2) / 153;
  return {marchYear + (month >= 10 ? 1 : 0),
          static_cast<int>(month < 10 ? month + 3 : month - 9),
          static_cast<int>(dayOfYear - daysBeforeMonth(month) + 1)};
}

constexpr CivilDate gregorianFromDays(std::int64_t days) {
  const std::int64_t shifted = days + kEpochGregorian;
  const std::int64_t era = floorDiv(shifted, 146097);
  const std::int64_t dayOfEra = floorMod(shifted, 146097);
  const std::int64_t yearOfEra =
      (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
  const std::int64_t dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
  return fromMarchYear(era * 400 + yearOfEra, dayOfYear);
}

constexpr CivilDate julianFromDays(std::int64_t days) {
  const std::int64_t shifted = days + kEpochJulian;
  const std::int64_t era = floorDiv(shifted, 1461);
  const std::int64_t dayOfEra = floorMod(shifted, 1461);
  const std::int64_t yearOfEra = (dayOfEra - dayOfEra / 1460) / 365;
  return fromMarchYear(era * 4 + yearOfEra, dayOfEra - 365 * yearOfEra);
}

}  // namespace

std::int64_t daysFromCivil(std::int64_t year, std::int64_t month, std::int64_t day) {
  const std::int64_t marchMonth = floorMod(month - 3, 12);
  const std::int64_t y = year + floorDiv(month - 3, 12);
  const std::int64_t ofYear = daysBeforeMonth(marchMonth) + day - 1;
  const std::int64_t gregorian =
      365 * y + floorDiv(y, 4) - floorDiv(y, 100) + floorDiv(y, 400) + ofYear - kEpochGregorian;
  if (gregorian >= kCutover) return gregorian;
  return 365 * y + floorDiv(y, 4) + ofYear - kEpochJulian;
}

CivilDate civilFromDays(std::int64_t days) {
  return days >= kCutover ? gregorianFromDays(days) : julianFromDays(days);
}

}  // namespace foundation
