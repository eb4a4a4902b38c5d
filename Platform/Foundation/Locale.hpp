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

/// A tz database identifier such as "Europe/Berlin", the absolute path of a file in its format, or
/// a POSIX rule such as "EST5EDT,M3.2.0,M11.1.0".
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

/// A zone and where it was found.
struct TimeZoneSetting {
  TimeZone zone;
  std::string source;   ///< "TZ" or a file; empty for the fall-back, UTC
  std::string ignored;  ///< a TZ that names no zone
};

/// TZ as the C library reads it (empty is UTC), else the machine's setting, else UTC. `folder`
/// holds the machine's "localtime", a link into the tz database or a file of its own, and
/// "timezone".
[[nodiscard]] TimeZoneSetting timeZoneSetting(const ProcessEnvironment& environment,
                                              const std::string& folder = "/etc");

[[nodiscard]] TimeZone currentTimeZone(const ProcessEnvironment& environment);

/// Whether a language such as "ar", "pa-Arab" or "he_IL" is written from right to left.
[[nodiscard]] bool isRightToLeft(std::string_view language);

/// 1 = Sunday ... 7 = Saturday.
[[nodiscard]] int firstWeekday(const Locale& locale);

/// Narrow stand-alone weekday names, Sunday first ("S", "M", ...).
[[nodiscard]] std::vector<std::string> narrowWeekdayNames(const Locale& locale);

}  // namespace foundation
