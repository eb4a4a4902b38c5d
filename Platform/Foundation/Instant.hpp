// A point in time, and its one text form.
#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace foundation {

/// Seconds since 1970-01-01T00:00:00Z, leap seconds not counted, with a fraction of 0...999,999,999
/// ns.
struct Instant {
  std::int64_t seconds = 0;
  std::int32_t nanoseconds = 0;

  friend auto operator<=>(const Instant&, const Instant&) = default;
};

/// Reads an internet date-time ("2025-03-14T09:30:00Z", "+hh:mm" and "+hhmm" offsets, no fraction);
/// nothing for any other form or for a date that the month does not have. Second 60 reads as 59.
[[nodiscard]] std::optional<Instant> parseInternetDateTime(std::string_view text);

/// "2025-03-14T09:30:00Z"; the fraction is dropped.
[[nodiscard]] std::string formatInternetDateTime(Instant instant);

}  // namespace foundation
