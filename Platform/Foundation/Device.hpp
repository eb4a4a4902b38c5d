// What a device tells every request: the present, where it is and what its user reads.
#pragma once

#include <string>
#include <vector>

#include "Foundation/Instant.hpp"
#include "Foundation/Locale.hpp"

namespace foundation {

struct Device {
  Instant now;
  TimeZone timeZone;
  Locale locale;
  std::vector<std::string> preferredLanguages;

  friend bool operator==(const Device&, const Device&) = default;
};

}  // namespace foundation
