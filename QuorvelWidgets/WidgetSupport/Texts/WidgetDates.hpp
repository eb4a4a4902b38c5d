// Date texts in the snapshot's language, by fixed patterns.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "Foundation/Instant.hpp"
#include "Foundation/Locale.hpp"

namespace quorvel {

/// A date by a fixed pattern ("MMM") under the language's locale. Formatters are made once per
/// thread and kept.
[[nodiscard]] std::string dateText(foundation::Instant date,
                                   std::optional<std::string_view> lang,
                                   std::string_view pattern,
                                   const foundation::TimeZone& zone);

/// The due date of an instant, day and abbreviated month as the language writes them: "Mar 5",
/// "5. März", "3月5日", in French "1er mars" and "5 mars".
[[nodiscard]] std::string dueDateText(foundation::Instant date,
                                      std::optional<std::string_view> lang,
                                      const foundation::TimeZone& zone);

/// The due date as it is read aloud, with the month's full name: "March 5", "5. März".
[[nodiscard]] std::string spokenDueDateText(foundation::Instant date,
                                            std::optional<std::string_view> lang,
                                            const foundation::TimeZone& zone);

/// The abbreviated name of a month string ("2025-02" gives "Feb"); nothing when it is malformed.
[[nodiscard]] std::optional<std::string> abbreviatedMonth(std::string_view month,
                                                          std::optional<std::string_view> lang);

/// The abbreviated name of a month string as it stands alone, on an axis: in Russian "май" where a
/// date has "мая"; nothing when it is malformed.
[[nodiscard]] std::optional<std::string> standaloneMonth(std::string_view month,
                                                         std::optional<std::string_view> lang);

/// The full name of a month string in the form that stands in a date; nothing when it is malformed.
[[nodiscard]] std::optional<std::string> fullMonth(std::string_view month,
                                                   std::optional<std::string_view> lang);

}  // namespace quorvel
