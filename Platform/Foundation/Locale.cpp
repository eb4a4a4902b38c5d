// Locales from the environment that is handed in, weekdays from the Unicode library.
#include "Foundation/Locale.hpp"

#include <unicode/dtfmtsym.h>
#include <unicode/gregocal.h>
#include <unicode/timezone.h>
#include <unicode/uloc.h>
#include <unistd.h>

#include <algorithm>
#include <array>

#include "Foundation/FileManager.hpp"
#include "Foundation/TimeZoneRules.hpp"

namespace foundation {
namespace {

std::string_view variable(const ProcessEnvironment& environment, const std::string& name) {
  const auto found = environment.find(name);
  return found == environment.end() ? std::string_view() : found->second;
}

/// "de_DE.UTF-8@euro" is "de_DE"; nothing for the neutral locales.
std::string_view language(std::string_view setting) {
  setting = setting.substr(0, setting.find_first_of(".@"));
  return setting == "C" || setting == "POSIX" ? std::string_view() : setting;
}

/// The zone that a path such as /usr/share/zoneinfo/Europe/Berlin names.
std::string_view zoneOfPath(std::string_view path) {
  constexpr std::string_view kFolder = "zoneinfo/";
  const std::size_t found = path.find(kFolder);
  return found == std::string_view::npos ? std::string_view() : path.substr(found + kFolder.size());
}

/// The machine's zone; a name where there is one, since a path says little to a person.
TimeZoneSetting machineZone(const std::string& folder) {
  const std::string localtime = appendingPathComponent(folder, "localtime");
  std::array<char, 1024> target;
  const ssize_t size = ::readlink(localtime.c_str(), target.data(), target.size());
  if (size > 0) {
    const std::string_view zone = zoneOfPath({target.data(), static_cast<std::size_t>(size)});
    if (isKnownTimeZone(zone)) return {{std::string(zone)}, localtime, {}};
  }
  if (isKnownTimeZone(localtime)) return {{localtime}, localtime, {}};

  const std::string timezone = appendingPathComponent(folder, "timezone");
  std::string name = contentsOfFile(timezone, 1024).value_or("");
  name.resize(std::min(name.find_first_of(" \t\r\n"), name.size()));
  if (isKnownTimeZone(name)) return {{std::move(name)}, timezone, {}};
  return {};
}

}  // namespace

bool isKnownTimeZone(std::string_view identifier) {
  return TimeZoneRules::load(identifier).has_value();
}

std::vector<std::string> preferredLanguages(const ProcessEnvironment& environment) {
  std::vector<std::string> languages;
  const auto add = [&](std::string_view setting) {
    if (const auto name = language(setting); !name.empty()) languages.emplace_back(name);
  };
  std::string_view list = variable(environment, "LANGUAGE");
  while (!list.empty()) {
    const std::size_t colon = std::min(list.find(':'), list.size());
    add(list.substr(0, colon));
    list.remove_prefix(std::min(colon + 1, list.size()));
  }
  for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) add(variable(environment, name));
  return languages;
}

Locale currentLocale(const ProcessEnvironment& environment) {
  for (const char* name : {"LC_ALL", "LC_TIME", "LANG"}) {
    const auto found = language(variable(environment, name));
    if (!found.empty()) return {std::string(found)};
  }
  return {};
}

TimeZoneSetting timeZoneSetting(const ProcessEnvironment& environment, const std::string& folder) {
  const auto variable = environment.find("TZ");
  if (variable == environment.end()) return machineZone(folder);
  std::string_view setting = variable->second;
  if (setting.starts_with(':')) setting.remove_prefix(1);
  if (setting.empty()) return {{}, "TZ", {}};
  const std::string_view named = setting.starts_with('/') ? zoneOfPath(setting) : setting;
  for (const std::string_view zone : {named, setting}) {
    if (isKnownTimeZone(zone)) return {{std::string(zone)}, "TZ", {}};
  }
  TimeZoneSetting machine = machineZone(folder);
  machine.ignored = variable->second;
  return machine;
}

TimeZone currentTimeZone(const ProcessEnvironment& environment) {
  return timeZoneSetting(environment).zone;
}

bool isRightToLeft(std::string_view language) {
  return uloc_isRightToLeft(std::string(language).c_str()) != 0;
}

int firstWeekday(const Locale& locale) {
  UErrorCode status = U_ZERO_ERROR;
  const icu::GregorianCalendar calendar(
      *icu::TimeZone::getGMT(), icu::Locale(locale.identifier.c_str()), status);
  const UCalendarDaysOfWeek day = calendar.getFirstDayOfWeek(status);
  return U_SUCCESS(status) ? static_cast<int>(day) : 1;
}

std::vector<std::string> narrowWeekdayNames(const Locale& locale) {
  UErrorCode status = U_ZERO_ERROR;
  const icu::DateFormatSymbols symbols(icu::Locale(locale.identifier.c_str()), status);
  std::int32_t count = 0;
  const icu::UnicodeString* names = symbols.getWeekdays(
      count, icu::DateFormatSymbols::STANDALONE, icu::DateFormatSymbols::NARROW);
  std::vector<std::string> out;
  for (std::int32_t i = UCAL_SUNDAY; U_SUCCESS(status) && i < count; ++i) {
    names[i].toUTF8String(out.emplace_back());
  }
  return out;
}

}  // namespace foundation
