// What `status` says of the host and of each placement, as JSON. Never an amount.
#pragma once

#include <string>

#include "Resident/Resident.hpp"

namespace resident {

[[nodiscard]] std::string statusJson(Resident& host);

}  // namespace resident
