// What is read aloud where it has to differ from what is seen: words for an arrow, a slash or an
// abbreviation, an amount in its place in the sentence, plurals.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

#include "QuorvelWidgets/WidgetSupport/Texts/ChangeDescription.hpp"

namespace quorvel {

/// "1 day left", "18 days left".
[[nodiscard]] std::string spokenDaysLeft(std::int64_t days, std::optional<std::string_view> lang);

/// "in 9 days", of two or more.
[[nodiscard]] std::string spokenInDays(std::int64_t days, std::optional<std::string_view> lang);

/// "$67 per day".
[[nodiscard]] std::string spokenPerDay(std::string_view amount,
                                       std::optional<std::string_view> lang);

/// "$1,200 left".
[[nodiscard]] std::string spokenLeft(std::string_view amount, std::optional<std::string_view> lang);

/// "$210 over budget".
[[nodiscard]] std::string spokenOverBudget(std::string_view amount,
                                           std::optional<std::string_view> lang);

/// "33% used".
[[nodiscard]] std::string spokenUsed(std::string_view percentage,
                                     std::optional<std::string_view> lang);

/// "up 20.0%", "down 3.3%", "unchanged".
[[nodiscard]] std::string spokenChange(const ChangeDescription& change,
                                       std::optional<std::string_view> lang);

/// "up 20.0% from last month".
[[nodiscard]] std::string spokenChangeFromLastMonth(const ChangeDescription& change,
                                                    std::optional<std::string_view> lang);

/// "up 20.0% from January". The month is a string such as "2025-01"; a malformed one is left out.
[[nodiscard]] std::string spokenChangeFromMonth(const ChangeDescription& change,
                                                std::string_view month,
                                                std::optional<std::string_view> lang);

/// The items in their order, with the comma of the language's script between them.
[[nodiscard]] std::string spokenList(std::initializer_list<std::string_view> items,
                                     std::optional<std::string_view> lang);

/// "ending in 8 4 7 8": the last digits of a card's number, said one by one.
[[nodiscard]] std::string spokenEndingIn(std::string_view digits,
                                         std::optional<std::string_view> lang);

/// A payment's subtitle: as it is, but a masked number ("•• 8478") as that of a card.
[[nodiscard]] std::string spokenSubtitle(std::string_view subtitle,
                                         std::optional<std::string_view> lang);

}  // namespace quorvel
