// Asks hledger for everything that widgets show of a journal.
//
//     auto journal = readJournal({.environment = environment, .today = today}, settings);
//     if (!journal) complain(journal.error().line);
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "Import/Journal.hpp"
#include "Import/Result.hpp"
#include "Import/Settings.hpp"
#include "Import/Subprocess.hpp"

namespace importer {

struct JournalRequest {
  std::string program = "hledger";  ///< found on PATH
  std::string file;                 ///< empty: hledger's own choice
  Environment environment;
  Day today;
  SubprocessLimits limits;
};

/// Refused, with one line, when hledger is missing or too old, the journal has errors or no
/// entries, or the settings name what is not in it.
[[nodiscard]] Result<Journal> readJournal(const JournalRequest& request, const Settings& settings);

/// The accounts and their types alone, of what a journal has before anything is set.
[[nodiscard]] Result<Journal> readAccounts(const JournalRequest& request, const Settings& settings);

/// The journal's file, then those that it includes.
[[nodiscard]] Result<std::vector<std::string>> journalFiles(const JournalRequest& request);

/// "1.25" of "hledger 1.25, linux-x86_64", as 1025; nothing for any other text.
[[nodiscard]] std::optional<int> hledgerVersion(std::string_view text);

}  // namespace importer
