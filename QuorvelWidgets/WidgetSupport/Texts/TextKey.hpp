// The keys of the string table. One that the table does not have does not compile:
//
//     WidgetStrings::text("nextDue", lang);
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace quorvel {

/// In the table's order.
inline constexpr auto kTextKeys = std::to_array<std::string_view>({
    "nextDue",
    "upcomingDue",
    "safeToSpend",
    "perDay",
    "left",
    "of",
    "daysLeftMonth",
    "lastDay",
    "remainingLimit",
    "used",
    "spentThisMonth",
    "vsLastMonth",
    "topCategory",
    "netWorth",
    "assets",
    "liabilities",
    "today",
    "tomorrow",
    "inDays",
    "nothingDue",
    "noBudget",
    "noCards",
    "noSpending",
    "noNetWorth",
    "signIn",
    "hidden",
    "budget",
    "safe",
    "addExpense",
    "shortDays",
    "overBudget",
    "leftForToday",
    "setBudget",
    "addCard",
    "allClear",
    "newMonth",
    "addAssets",
    "openQuorvel",
    "comparisonWith",
    "liquidAssets",
    "nonLiquidAssets",
    "remaining",
    "totalLimit",
    "usedLabel",
    "average",
    "lastMonth",
    "leftToSpend",
    "spent",
    "daysLeft",
    "paceGood",
    "paceWarning",
    "paceCritical",
    "due",
});

class TextKey {
 public:
  consteval TextKey(const char* key) : index_(indexOf(key)) {}

  [[nodiscard]] constexpr std::size_t index() const { return index_; }

  friend bool operator==(const TextKey&, const TextKey&) = default;

 private:
  static consteval std::size_t indexOf(std::string_view key) {
    for (std::size_t i = 0; i < kTextKeys.size(); ++i) {
      if (kTextKeys[i] == key) return i;
    }
    throw "the string table has no such key";
  }

  std::size_t index_;
};

}  // namespace quorvel
