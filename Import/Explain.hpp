// Which postings and balances gave which figure, as tables for a person.
#pragma once

#include <string>
#include <string_view>

#include "Import/Journal.hpp"
#include "Import/Settings.hpp"
#include "Import/SnapshotMaker.hpp"

namespace importer {

inline constexpr std::string_view kFigures[] = {
    "spending", "last-month", "category", "budget", "net-worth", "cards", "dues"};

/// One table, or all of them when `figure` is empty. Each ends with the figure as the document has
/// it.
[[nodiscard]] std::string explanation(const Figures& figures,
                                      const Journal& journal,
                                      const Settings& settings,
                                      std::string_view figure);

}  // namespace importer
