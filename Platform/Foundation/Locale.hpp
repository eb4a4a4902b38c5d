// Locales, time zones and the languages a person prefers: values that are handed in, never read
// from the process.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace foundation {

/// An ICU locale identifier such as "de_DE" or "ar@numbers=latn".
struct Locale {
  std::string identifier = "en_US";

  friend bool operator==(const Locale&, const Locale&) = default;
};

/// A tz database identifier such as "Europe/Berlin".
struct TimeZone {
  std::string identifier = "UTC";

  friend bool operator==(const TimeZone&, const TimeZone&) = default;
};

[[nodiscard]] bool isKnownTimeZone(std::string_view identifier);

using ProcessEnvironment = std::map<std::string, std::string>;

/// Preferred language identifiers, first choice first: LANGUAGE (split at ":"), then LC_ALL,
/// LC_MESSAGES, LANG, each cut at "." and "@"; "C" and "POSIX" are skipped. May be empty.
[[nodiscard]] std::vector<std::string> preferredLanguages(const ProcessEnvironment& environment);

/// The user's locale by LC_ALL, LC_TIME, LANG; "en_US" when none says anything.
[[nodiscard]] Locale currentLocale(const ProcessEnvironment& environment);

/// TZ, else the machine's setting (/etc/localtime, /etc/timezone), else UTC.
[[nodiscard]] TimeZone currentTimeZone(const ProcessEnvironment& environment);

/// 1 = Sunday ... 7 = Saturday.
[[nodiscard]] int firstWeekday(const Locale& locale);

/// Narrow stand-alone weekday names, Sunday first ("S", "M", ...).
[[nodiscard]] std::vector<std::string> narrowWeekdayNames(const Locale& locale);

}  // namespace foundation
