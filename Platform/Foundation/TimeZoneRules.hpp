// When a time zone's clocks are set, read from the system's tz database.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace foundation {

/// One setting of the clocks. Offsets are seconds east of UTC.
struct ClockChange {
  std::int64_t at = 0;  ///< seconds since 1970 UTC; from here on `after` is in force
  std::int32_t before = 0;
  std::int32_t after = 0;

  friend bool operator==(const ClockChange&, const ClockChange&) = default;
};

/// A yearly rule such as "second Sunday of March at 02:00", as the tz database's last line has it.
struct YearlyChange {
  enum class Form : std::uint8_t { julianDay, zeroBasedDay, weekdayOfMonth };

  Form form = Form::weekdayOfMonth;
  int month = 1;
  int week = 1;                     ///< 5 is the last
  int day = 0;                      ///< of the week (0 = Sunday) or of the year
  std::int32_t secondOfDay = 7200;  ///< wall time; may lie outside the day
};

class TimeZoneRules {
 public:
  /// UTC.
  TimeZoneRules() = default;

  /// Nothing for a file that is not in the TZif format (RFC 8536). One that counts leap seconds
  /// ("right/...") changes its offset by a second at each.
  [[nodiscard]] static std::optional<TimeZoneRules> parse(std::string_view file);
  /// A POSIX rule such as "UTC-3" or "EST5EDT,M3.2.0,M11.1.0"; offsets count westwards.
  [[nodiscard]] static std::optional<TimeZoneRules> parseRule(std::string_view rule);
  /// A zone of the system's database, the absolute path of a TZif file, or a POSIX rule; nothing
  /// for anything else.
  [[nodiscard]] static std::optional<TimeZoneRules> load(std::string_view identifier);

  [[nodiscard]] std::int32_t offsetAt(std::int64_t seconds) const;
  /// The changes of offset with from < at <= to, earliest first.
  [[nodiscard]] std::vector<ClockChange> changesBetween(std::int64_t from, std::int64_t to) const;

 private:
  struct Yearly {
    std::int32_t standardOffset = 0;
    std::int32_t summerOffset = 0;
    YearlyChange toSummer;
    YearlyChange toStandard;
  };

  static std::optional<TimeZoneRules> parseRule(std::string_view text,
                                                std::string_view changesByDefault);
  bool addLeapSecond(std::int64_t at, std::int32_t correction);
  static void appendYear(const Yearly& yearly, std::int64_t year, std::vector<ClockChange>& out);

  std::int32_t firstOffset_ = 0;
  std::vector<ClockChange> changes_;
  std::optional<Yearly> yearly_;  // after the last of changes_
  std::int32_t leapSeconds_ = 0;
  std::int64_t lastLeapSecond_ = 0;
};

}  // namespace foundation
