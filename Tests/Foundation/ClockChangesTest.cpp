// Days and reloads around every clock change of every zone, 2000 to 2040. The expected values come
// from the C library's local time, minute by minute, and from the rules in words.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "Foundation/Calendar.hpp"
#include "Foundation/CivilDate.hpp"
#include "Foundation/DayString.hpp"
#include "Foundation/FileManager.hpp"

namespace foundation {
namespace {

constexpr std::int64_t kMinutesOfDay = 1440;
constexpr std::int64_t kFirstDay = 10957;  // 2000-01-01
constexpr std::int64_t kLastDay = 25933;   // 2041-01-01
constexpr std::int64_t kDaysAround = 7;

/// The C library's zone for as long as this lives.
class LibraryZone {
 public:
  explicit LibraryZone(const std::string& name) {
    if (const char* value = std::getenv("TZ")) old_ = value;
    set((":" + name).c_str());
  }
  ~LibraryZone() { set(old_ ? old_->c_str() : nullptr); }
  LibraryZone(const LibraryZone&) = delete;
  LibraryZone& operator=(const LibraryZone&) = delete;

  /// Minutes east of UTC.
  [[nodiscard]] static std::int64_t offsetAt(std::int64_t minute) {
    const std::time_t seconds = minute * 60;
    std::tm local{};
    ::localtime_r(&seconds, &local);
    EXPECT_EQ(local.tm_gmtoff % 60, 0);
    return local.tm_gmtoff / 60;
  }

 private:
  static void set(const char* value) {
    if (value == nullptr) {
      ::unsetenv("TZ");
    } else {
      ::setenv("TZ", value, 1);
    }
    ::tzset();
  }

  std::optional<std::string> old_;
};

/// One name for each different file of the tz database.
std::vector<std::string> zones() {
  const std::filesystem::path root = "/usr/share/zoneinfo";
  std::set<std::string> names;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(root)) {
    const std::string name = entry.path().lexically_relative(root).string();
    const bool isVariant = name.starts_with("right/") || name.starts_with("posix");
    if (!isVariant && entry.is_regular_file() && !name.contains('.')) names.insert(name);
  }
  std::map<std::string, std::string> byContent;
  for (const std::string& name : names) {
    auto content = contentsOfFile((root / name).string());
    if (content && content->starts_with("TZif")) byContent.emplace(std::move(*content), name);
  }
  std::vector<std::string> out;
  for (auto& [content, name] : byContent) out.push_back(std::move(name));
  return out;
}

/// The first minutes of other offsets; changes are at least a day apart.
std::vector<std::int64_t> changesOf([[maybe_unused]] const LibraryZone& zone) {
  std::vector<std::int64_t> changes;
  std::int64_t before = LibraryZone::offsetAt(kFirstDay * kMinutesOfDay);
  for (std::int64_t day = kFirstDay; day < kLastDay; ++day) {
    const std::int64_t after = LibraryZone::offsetAt((day + 1) * kMinutesOfDay);
    if (after == before) continue;
    std::int64_t low = day * kMinutesOfDay;
    std::int64_t high = low + kMinutesOfDay;
    while (high - low > 1) {
      const std::int64_t middle = (low + high) / 2;
      (LibraryZone::offsetAt(middle) == before ? low : high) = middle;
    }
    changes.push_back(high);
    before = after;
  }
  return changes;
}

/// The wall clock of each minute around a change, in minutes since 1970 as if it were UTC.
class Minutes {
 public:
  Minutes(const std::vector<std::int64_t>& changes, std::int64_t change)
      : first_(change - (kDaysAround + 3) * kMinutesOfDay) {
    const std::int64_t end = change + (kDaysAround + 3) * kMinutesOfDay;
    std::vector<std::int64_t> starts{first_};
    for (const std::int64_t at : changes) {
      if (at > first_ && at < end) starts.push_back(at);
    }
    for (std::size_t i = 0; i < starts.size(); ++i) {
      const std::int64_t offset = LibraryZone::offsetAt(starts[i]);
      const std::int64_t stop = i + 1 < starts.size() ? starts[i + 1] : end;
      for (std::int64_t minute = starts[i]; minute < stop; ++minute) {
        walls_.push_back(minute + offset);
        const std::int64_t day = floorDiv(minute + offset, kMinutesOfDay);
        if (floorMod(minute + offset, kMinutesOfDay) == 0) midnights_.insert(day);
        days_.try_emplace(day, minute).first->second = minute;
        firsts_.try_emplace(day, minute);
      }
    }
  }

  [[nodiscard]] std::int64_t first() const { return first_; }
  [[nodiscard]] const std::vector<std::int64_t>& walls() const { return walls_; }
  [[nodiscard]] bool exists(std::int64_t day) const { return days_.contains(day); }
  [[nodiscard]] bool hasMidnight(std::int64_t day) const { return midnights_.contains(day); }
  [[nodiscard]] std::int64_t firstMinuteOf(std::int64_t day) const { return firsts_.at(day); }
  [[nodiscard]] std::int64_t lastMinuteOf(std::int64_t day) const { return days_.at(day); }

 private:
  std::int64_t first_;
  std::vector<std::int64_t> walls_;
  std::map<std::int64_t, std::int64_t> firsts_;
  std::map<std::int64_t, std::int64_t> days_;
  std::set<std::int64_t> midnights_;
};

std::string dayText(std::int64_t day) {
  const CivilDate date = civilFromDays(day);
  return std::to_string(date.year) + "-" + std::to_string(date.month) + "-" +
         std::to_string(date.day);
}

/// Days that were skipped as a whole do not count, and stand for the next one. Counted from a day
/// without a midnight, later days are one fewer.
std::int64_t expectedDays(const Minutes& minutes, std::int64_t today, std::int64_t day) {
  while (!minutes.exists(day)) ++day;
  std::int64_t count = 0;
  for (std::int64_t d = today; d < day; ++d) count += minutes.exists(d + 1) ? 1 : 0;
  for (std::int64_t d = day; d < today; ++d) count -= minutes.exists(d) ? 1 : 0;
  if (day > today && !minutes.hasMidnight(today)) --count;
  return count;
}

void checkDays(const std::string& zone, const Calendar& calendar, const Minutes& minutes) {
  const std::int64_t middle =
      floorDiv(minutes.walls()[(kDaysAround + 3) * kMinutesOfDay], kMinutesOfDay);
  for (std::int64_t today = middle - kDaysAround; today <= middle + kDaysAround; ++today) {
    if (!minutes.exists(today)) continue;
    const Instant first{minutes.firstMinuteOf(today) * 60};
    const Instant last{minutes.lastMinuteOf(today) * 60 + 59, 999'999'999};
    ASSERT_EQ(calendar.startOfDay(last), first) << zone << " " << dayText(today);
    for (const std::int64_t day : {today - 1, today, today + 1}) {
      const auto expected = expectedDays(minutes, today, day);
      for (const Instant now : {first, last}) {
        ASSERT_EQ(daysBetween(dayText(day), now, calendar), expected)
            << zone << " on " << dayText(today) << " to " << dayText(day);
      }
    }
  }
}

/// When the clock shows 00:00:05, or jumps over it.
struct Reload {
  std::int64_t at = 0;
  std::int64_t wall = 0;  ///< minute that is shown; -1 for a jump
};

std::vector<Reload> reloadsIn(const Minutes& minutes) {
  std::vector<Reload> out;
  const auto& walls = minutes.walls();
  for (std::size_t i = 1; i < walls.size(); ++i) {
    const std::int64_t minute = minutes.first() + static_cast<std::int64_t>(i);
    const std::int64_t due = walls[i - 1] + 1;  // without a jump
    const std::int64_t skipped = walls[i] - due;
    if (skipped > 0 && skipped < kMinutesOfDay && floorMod(-due, kMinutesOfDay) < skipped) {
      out.push_back({minute * 60, -1});
    }
    if (floorMod(walls[i], kMinutesOfDay) == 0) out.push_back({minute * 60 + 5, walls[i]});
  }
  return out;
}

std::int64_t expectedReload(const std::vector<Reload>& reloads, std::int64_t now) {
  std::int64_t shown = -2;
  for (const Reload& reload : reloads) {
    if (reload.at == now) shown = reload.wall;
    if (reload.at > now && reload.wall != shown) return reload.at;
  }
  return 0;
}

void checkReloads(const std::string& zone, const Calendar& calendar, const Minutes& minutes) {
  const auto reloads = reloadsIn(minutes);
  std::set<std::int64_t> nows;
  const std::int64_t change = minutes.first() + (kDaysAround + 3) * kMinutesOfDay;
  for (std::int64_t hour = -kDaysAround * 24; hour <= kDaysAround * 24; hour += 12) {
    nows.insert((change + hour * 60) * 60);
  }
  for (const std::int64_t second : {-3600, -1, 0, 1, 4, 5, 6, 1800, 3600}) {
    nows.insert(change * 60 + second);
  }
  for (const Reload& reload : reloads) {
    if (std::abs(reload.at - change * 60) > kDaysAround * kSecondsOfDay) continue;
    for (const std::int64_t second : {-6, -1, 0, 1}) nows.insert(reload.at + second);
  }
  for (const std::int64_t now : nows) {
    ASSERT_EQ(calendar.nextDate({now}, 0, 0, 5), Instant{expectedReload(reloads, now)})
        << zone << " after " << formatInternetDateTime({now});
  }
}

TEST(ClockChanges, DaysAndReloadsAroundEachFollowTheRule) {
  std::size_t count = 0;
  const auto names = zones();
  for (const std::string& name : names) {
    const LibraryZone zone(name);
    const Calendar calendar(TimeZone{name});
    const auto changes = changesOf(zone);
    for (const std::int64_t change : changes) {
      const Minutes minutes(changes, change);
      ASSERT_NO_FATAL_FAILURE(checkDays(name, calendar, minutes));
      ASSERT_NO_FATAL_FAILURE(checkReloads(name, calendar, minutes));
      ++count;
    }
  }
  EXPECT_GT(names.size(), 300U);
  EXPECT_GT(count, 8000U);
}

}  // namespace
}  // namespace foundation
