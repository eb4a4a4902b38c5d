// Patterns are the Unicode date patterns; the zone's offset is applied here, from the system's tz
// database.
#include "Foundation/DateFormatter.hpp"

#include <unicode/gregocal.h>
#include <unicode/smpdtfmt.h>
#include <unicode/timezone.h>

#include <algorithm>

#include "Foundation/TimeZoneRules.hpp"

namespace foundation {
namespace {

/// Formats in UTC; nothing when the library has no data for it.
std::unique_ptr<icu::SimpleDateFormat> makeFormat(const Locale& locale, std::string_view pattern) {
  UErrorCode status = U_ZERO_ERROR;
  icu::Locale gregorian(locale.identifier.c_str());
  gregorian.setKeywordValue("calendar", "gregorian", status);
  const auto text = icu::UnicodeString::fromUTF8(
      icu::StringPiece(pattern.data(), static_cast<std::int32_t>(pattern.size())));
  auto format = std::make_unique<icu::SimpleDateFormat>(text, gregorian, status);
  if (U_FAILURE(status)) return nullptr;
  format->setTimeZone(*icu::TimeZone::getGMT());
  return format;
}

}  // namespace

struct DateFormatter::State {
  std::unique_ptr<icu::SimpleDateFormat> format;
  TimeZoneRules rules;
};

DateFormatter::DateFormatter(const Locale& locale, const TimeZone& zone, std::string_view pattern)
    : state_(std::make_unique<State>(
          makeFormat(locale, pattern),
          TimeZoneRules::load(zone.identifier).value_or(TimeZoneRules()))) {}
DateFormatter::~DateFormatter() = default;
DateFormatter::DateFormatter(DateFormatter&&) noexcept = default;
DateFormatter& DateFormatter::operator=(DateFormatter&&) noexcept = default;

std::string DateFormatter::string(Instant instant) const {
  std::string out;
  if (!state_->format) return out;
  // Beyond the calendar's years nothing is shown differently.
  constexpr std::int64_t kFarSeconds = 15'000'000'000'000;
  const std::int64_t seconds = std::clamp(instant.seconds, -kFarSeconds, kFarSeconds);
  const std::int64_t local = seconds + state_->rules.offsetAt(seconds);
  const std::int64_t milliseconds = local * 1000 + instant.nanoseconds / 1'000'000;
  icu::UnicodeString text;
  state_->format->format(static_cast<double>(milliseconds), text);
  text.toUTF8String(out);
  return out;
}

}  // namespace foundation
