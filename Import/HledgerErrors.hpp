// What went wrong with a run of hledger, as one line for a person: where, what, and what to do.
// Never an amount: hledger's own messages quote entries, ours may end up in a log.
#pragma once

#include <string>
#include <string_view>

#include "Import/Result.hpp"
#include "Import/Subprocess.hpp"

namespace importer {

/// `journal` is what a person calls it; `problem` what our reader found wrong with the report.
[[nodiscard]] Failure hledgerFailure(const Subprocess& run,
                                     const std::string& journal,
                                     const std::string& version,
                                     const std::string& problem);

/// "/home/me/2026.journal:12:3" of what hledger printed; empty where it names no place.
[[nodiscard]] std::string errorPlace(std::string_view errors);
/// A few words of our own for the kind of error.
[[nodiscard]] std::string_view errorReason(std::string_view errors);

}  // namespace importer
