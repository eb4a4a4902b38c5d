// Text within markup: XML, HTML, and what status bars read.
#pragma once

#include <string>
#include <string_view>

namespace foundation {

/// As content or as the value of a quoted attribute: & < > " and ' as their entities.
[[nodiscard]] std::string escapedMarkup(std::string_view text);

}  // namespace foundation
