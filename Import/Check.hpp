// What `check` says: what was found, what is missing and what each widget will show. No amounts.
#pragma once

#include <string>

#include "Import/Journal.hpp"
#include "Import/Settings.hpp"
#include "Import/SnapshotMaker.hpp"

namespace importer {

/// A line for each finding: its name in a column, then what there is to say.
[[nodiscard]] std::string findings(const Figures& figures,
                                   const Journal& journal,
                                   const Settings& settings);

}  // namespace importer
