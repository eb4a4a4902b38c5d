// Which payments fall due next, and how far away they are said to be.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "Foundation/Calendar.hpp"
#include "Foundation/Instant.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetSnapshot.hpp"

namespace quorvel {

struct UpcomingDue {
  const WidgetSnapshot::Due* due;
  std::int64_t days;  ///< whole days from today, 0 or more
};

/// The first `most` dues that are not over, in the document's order. Those without a readable date
/// are left out.
[[nodiscard]] std::vector<UpcomingDue> upcomingDues(const std::vector<WidgetSnapshot::Due>& dues,
                                                    foundation::Instant now,
                                                    const foundation::Calendar& calendar,
                                                    std::size_t most);

/// "Today", "Tomorrow", "in 5 days".
[[nodiscard]] std::string relativeLabel(std::int64_t days, std::string_view lang);
/// The same as a person says it, with the plural that follows the number.
[[nodiscard]] std::string spokenRelativeLabel(std::int64_t days, std::string_view lang);
/// "Today", "Tomorrow", "5d left".
[[nodiscard]] std::string shortRelativeLabel(std::int64_t days, std::string_view lang);

}  // namespace quorvel
