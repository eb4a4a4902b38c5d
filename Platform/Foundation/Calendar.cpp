// Civil dates and the system's tz database; every question about a local time is answered from the
// stretches of equal offset around it.
#include "Foundation/Calendar.hpp"

#include <algorithm>
#include <vector>

#include "Foundation/CivilDate.hpp"
#include "Foundation/TimeZoneRules.hpp"

namespace foundation {
namespace {

constexpr std::int64_t kFirstYear = -4714;
constexpr std::int64_t kLastYear = 506714;
constexpr std::int64_t kFirstSecond = (kFirstYear - 1970) * 366 * kSecondsOfDay;
constexpr std::int64_t kLastSecond = (kLastYear - 1970) * 366 * kSecondsOfDay;

std::int64_t clampedSeconds(Instant instant) {
  return std::clamp(instant.seconds, kFirstSecond, kLastSecond);
}

/// A stretch of equal offset: start <= instant < end.
struct Stretch {
  std::int64_t start = 0;
  std::int64_t end = 0;
  std::int32_t offset = 0;
};

/// The first second from `earliest` on that shows this second of the day.
std::int64_t nextAtSecondOfDay(std::int64_t earliest,
                               std::int32_t offset,
                               std::int64_t secondOfDay) {
  return earliest + floorMod(secondOfDay - (earliest + offset), kSecondsOfDay);
}

}  // namespace

struct Calendar::State {
  TimeZoneRules rules;

  [[nodiscard]] std::int64_t local(std::int64_t seconds) const {
    return seconds + rules.offsetAt(seconds);
  }
  [[nodiscard]] std::vector<Stretch> stretches(std::int64_t from, std::int64_t to) const;
  [[nodiscard]] std::int64_t firstInstantOf(std::int64_t wall) const;
  [[nodiscard]] std::int64_t addingDays(std::int64_t seconds, std::int64_t days) const;
};

std::vector<Stretch> Calendar::State::stretches(std::int64_t from, std::int64_t to) const {
  std::vector<Stretch> out{{from, to, rules.offsetAt(from)}};
  for (const ClockChange& change : rules.changesBetween(from, to)) {
    out.back().end = change.at;
    out.push_back({change.at, to, change.after});
  }
  return out;
}

/// A wall time, in seconds as if the zone were UTC: its first occurrence or, where it is skipped,
/// the instant that it would be by the offset before the jump.
std::int64_t Calendar::State::firstInstantOf(std::int64_t wall) const {
  const auto around = stretches(wall - 2 * kSecondsOfDay, wall + 2 * kSecondsOfDay);
  std::int64_t skipped = wall - around.front().offset;
  for (const Stretch& stretch : around) {
    const std::int64_t instant = wall - stretch.offset;
    if (instant >= stretch.start && instant < stretch.end) return instant;
    if (instant >= stretch.end) skipped = instant;
  }
  return skipped;
}

std::int64_t Calendar::State::addingDays(std::int64_t seconds, std::int64_t days) const {
  const std::int64_t timeOfDay = floorMod(local(seconds), kSecondsOfDay);
  const auto keepsTime = [&](std::int64_t t) {
    return floorMod(local(t), kSecondsOfDay) == timeOfDay;
  };
  std::int64_t sum = seconds + days * kSecondsOfDay;
  if (!keepsTime(sum)) {
    const std::int64_t moved = sum + rules.offsetAt(seconds) - rules.offsetAt(sum);
    // Where the wall time is skipped the later instant counts: the day's first, not the day before.
    if (keepsTime(moved) || moved > sum) sum = moved;
  }
  return days > 0 ? std::min(sum, firstInstantOf(local(sum))) : sum;
}

Calendar::Calendar(const TimeZone& zone)
    : state_(
          std::make_unique<State>(TimeZoneRules::load(zone.identifier).value_or(TimeZoneRules()))) {
}
Calendar::~Calendar() = default;
Calendar::Calendar(Calendar&&) noexcept = default;
Calendar& Calendar::operator=(Calendar&&) noexcept = default;

DateComponents Calendar::components(Instant instant) const {
  const std::int64_t local = state_->local(clampedSeconds(instant));
  const std::int64_t days = floorDiv(local, kSecondsOfDay);
  const int secondOfDay = static_cast<int>(floorMod(local, kSecondsOfDay));
  const CivilDate date = civilFromDays(days);
  return {static_cast<int>(date.year),
          date.month,
          date.day,
          secondOfDay / 3600,
          secondOfDay / 60 % 60,
          secondOfDay % 60,
          weekdayOf(days) + 1};
}

std::optional<Instant> Calendar::date(std::int64_t year,
                                      std::int64_t month,
                                      std::int64_t day) const {
  const auto isWithin = [](std::int64_t value, std::int64_t unit) {
    return value >= kFirstYear * unit && value <= kLastYear * unit;
  };
  if (!isWithin(year, 1) || !isWithin(month, 12) || !isWithin(day, 372)) return std::nullopt;
  return Instant{state_->firstInstantOf(daysFromCivil(year, month, day) * kSecondsOfDay)};
}

Instant Calendar::startOfDay(Instant instant) const {
  const std::int64_t seconds = clampedSeconds(instant);
  const std::int64_t local = state_->local(seconds);
  const std::int64_t midnight = local - floorMod(local, kSecondsOfDay);
  for (const Stretch& stretch :
       state_->stretches(midnight - 2 * kSecondsOfDay, seconds + kSecondsOfDay)) {
    const std::int64_t first = std::max(stretch.start, midnight - stretch.offset);
    if (first < stretch.end && first + stretch.offset < midnight + kSecondsOfDay) {
      return Instant{first};
    }
  }
  return Instant{seconds};  // not reached: the instant's own stretch holds it
}

std::int64_t Calendar::dayDifference(Instant from, Instant to) const {
  from.seconds = clampedSeconds(from);
  to.seconds = clampedSeconds(to);
  const std::int64_t direction = to < from ? -1 : 1;
  const auto passes = [&](std::int64_t days) {
    const Instant sum{state_->addingDays(from.seconds, days), from.nanoseconds};
    return direction > 0 ? sum > to : sum < to;
  };
  // Offsets change by a day at most, so the answer is near the plain quotient.
  std::int64_t days = (to.seconds - from.seconds) / kSecondsOfDay + 2 * direction;
  while (days != 0 && (days * direction < 0 || passes(days))) days -= direction;
  return days;
}

std::optional<Instant> Calendar::nextDate(Instant after, int hour, int minute, int second) const {
  if (after.seconds < kFirstSecond || after.seconds > kLastSecond) return std::nullopt;
  const std::int64_t secondOfDay = hour * 3600 + minute * 60 + second;
  const std::int64_t now = after.seconds;
  std::int64_t earliest = now + 1;

  const auto around = state_->stretches(now - 2 * kSecondsOfDay, now + 3 * kSecondsOfDay);
  // Exactly at the first of two equal wall times, the second one is passed over as well.
  const std::int64_t local = state_->local(now);
  if (after.nanoseconds == 0 && floorMod(local, kSecondsOfDay) == secondOfDay) {
    for (const Stretch& stretch : around) {
      const std::int64_t again = local - stretch.offset;
      if (again >= stretch.start && again < stretch.end) earliest = std::max(earliest, again + 1);
    }
  }

  for (std::size_t i = 0; i < around.size(); ++i) {
    const Stretch& stretch = around[i];
    if (i > 0 && stretch.start >= earliest) {
      const std::int64_t jump = stretch.offset - around[i - 1].offset;
      const std::int64_t skipped =
          nextAtSecondOfDay(stretch.start, around[i - 1].offset, secondOfDay) - stretch.start;
      // A whole skipped day leaves the time of day as it was.
      if (skipped < jump && jump < kSecondsOfDay) return Instant{stretch.start};
    }
    const std::int64_t found =
        nextAtSecondOfDay(std::max(stretch.start, earliest), stretch.offset, secondOfDay);
    if (found < stretch.end) return Instant{found};
  }
  return std::nullopt;
}

int Calendar::daysInMonth(int year, int month) const {
  const std::int64_t first = daysFromCivil(year, month, 1);
  return static_cast<int>(daysFromCivil(year, std::int64_t{month} + 1, 1) - first);
}

}  // namespace foundation
