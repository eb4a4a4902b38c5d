// Date text by a fixed pattern.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "Foundation/Instant.hpp"
#include "Foundation/Locale.hpp"

namespace foundation {

/// Formats with the locale's names and digits, the Gregorian calendar and a zone. Construction is
/// slow (keep it), formatting is fast and may run on any one thread at a time.
class DateFormatter {
 public:
  DateFormatter(const Locale& locale, const TimeZone& zone, std::string_view pattern);
  ~DateFormatter();
  DateFormatter(DateFormatter&&) noexcept;
  DateFormatter& operator=(DateFormatter&&) noexcept;

  [[nodiscard]] std::string string(Instant instant) const;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace foundation
