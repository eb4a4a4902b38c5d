// A posting's own date, as hledger reads it from the posting's comment.
#pragma once

#include <optional>
#include <string_view>

#include "Import/Day.hpp"

namespace importer {

/// "date:2026-11-06", "date:11/6" and "[2026-11-06]", the year from the transaction's day where it
/// is left out. Nothing when there is none.
[[nodiscard]] std::optional<Day> postingDate(std::string_view comment, Day transaction);

}  // namespace importer
