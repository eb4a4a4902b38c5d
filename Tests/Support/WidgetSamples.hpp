// A small document whose every figure can be checked by hand, for trees that people read.
#pragma once

#include <string>
#include <string_view>

#include "Foundation/Instant.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetSnapshot.hpp"

namespace testsupport {

/// 10 February 2025, a Monday in a month of 28 days that begins on a Saturday.
inline foundation::Instant februaryTenth() {
  return *foundation::parseInternetDateTime("2025-02-10T09:30:00Z");
}

/// Two cards (16 % and 60 % used, 25 % together), four dues (one over, today, tomorrow, in nine
/// days), 600 of 1800 spent in 3 days of 28 (last month 500, so 20 % more), a net worth of 1100
/// after 1000 (10 %).
inline quorvel::WidgetSnapshot smallSnapshot(std::string_view lang = "en") {
  quorvel::WidgetSnapshot snapshot;
  snapshot.generatedAt = februaryTenth();
  snapshot.lang = lang;
  snapshot.money = {.symbol = "$", .showDecimals = false};
  snapshot.cards = {
      {"a", "Northbank", "Everyday", "8478", 8000, 6720, {"#315792", "#20375D"}, false},
      {"b", "Harbor Bank", "", std::nullopt, 2000, 800, {"#687280", "#414953"}, false},
  };
  snapshot.totalLimit = 10000;
  snapshot.totalRemaining = 7500;
  snapshot.dues = {
      {.id = "o", .name = "Over", .amount = 1, .dueDate = "2025-02-09", .kind = "bill"},
      {.id = "x",
       .name = "Everyday",
       .amount = 125,
       .dueDate = "2025-02-10",
       .kind = "card",
       .cardId = "a",
       .face = {{"#315792", "#20375D"}},
       .subtitle = "Northbank",
       .symbol = "creditcard.fill"},
      {.id = "y",
       .name = "Netflix",
       .amount = 15.99,
       .dueDate = "2025-02-11",
       .kind = "bill",
       .brandId = "netflix"},
      {.id = "z", .name = "loan", .amount = 2500, .dueDate = "2025-02-19", .kind = "loan"},
  };
  snapshot.budget = quorvel::WidgetSnapshot::Budget{
      .total = 1800, .spent = 600, .periodEnd = "2025-02-28", .periodStart = "2025-02-01"};
  snapshot.spending =
      quorvel::WidgetSnapshot::Spending{.month = "2025-02",
                                        .spent = 600,
                                        .lastMonthSpent = 500,
                                        .topCategory = "Food",
                                        .topCategoryAmount = 425,
                                        .daily = {400, 0, 100, 25},
                                        .topCategoryIcon = "fork.knife",
                                        .topCategoryColor = {{"#EDA100", "#C98500"}}};
  snapshot.netWorth = quorvel::WidgetSnapshot::NetWorth{
      .value = 1100,
      .changePercent = 10,
      .assets = 1500,
      .liabilities = 400,
      .history = {{"2024-12", 900}, {"2025-01", 1000}, {"2025-02", 1100}},
      .liquid = 600,
      .nonLiquid = 900};
  return snapshot;
}

}  // namespace testsupport
