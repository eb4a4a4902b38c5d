// A journal as far as widgets need it: what hledger said, nothing worked out yet.
#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "Import/Accounts.hpp"
#include "Import/Book.hpp"
#include "Import/Day.hpp"
#include "Import/Decimal.hpp"

namespace importer {

struct Balance {
  std::string account;
  std::string commodity;
  Decimal amount;
};

struct MonthlyValue {
  Month month;
  Decimal value;
};

struct Journal {
  std::string name;     ///< for a person: the file, or "your journal"
  std::string version;  ///< hledger's: "1.25"
  Day today;
  Accounts accounts;
  Lexicon lexicon;
  Book past;   ///< entries from the thirteenth month before this one up to today
  Book ahead;  ///< entries after today, and what periodic rules make from the budget period on
  std::uint32_t commodity = 0;
  Month firstMonth;                  ///< of the first entry
  std::vector<MonthlyValue> months;  ///< assets less liabilities at the ends of past months
  std::vector<Balance> assets;       ///< today, valued; types A and C
  std::vector<Balance> liabilities;  ///< today, valued; below zero when something is owed
  std::vector<Balance> cards;        ///< today, as they are, of the [[card]] accounts
  std::map<std::string, std::map<std::string, std::string>> tags;  ///< account to tag to value

  [[nodiscard]] const std::string& commodityName() const { return lexicon.commodities[commodity]; }
};

/// The first and the last day of the budget period that holds `today`.
[[nodiscard]] std::pair<Day, Day> budgetPeriod(Day today, int startDay);

}  // namespace importer
