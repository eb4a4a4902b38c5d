// Documents, devices and folders that several tests share.
#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

#include "Foundation/Device.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace testsupport {

/// Only what a document must hold.
inline nlohmann::json minimalDocument() {
  return nlohmann::json::parse(R"({
    "generatedAt": "2025-03-14T09:30:00Z", "isHidden": false, "lang": "es",
    "money": {"symbol": "$", "showDecimals": true},
    "dues": [], "cards": [], "totalLimit": 30000, "totalRemaining": 25730})");
}

/// One of each kind of field.
inline nlohmann::json fullDocument() {
  return nlohmann::json::parse(R"({
    "generatedAt": "2025-03-14T09:30:00Z", "isHidden": true, "lang": "pt-BR",
    "money": {"symbol": "R$", "showDecimals": false, "conversionRate": 5.25},
    "dues": [{"id": "d1", "name": "Netflix", "amount": 15.99, "dueDate": "2025-03-20", "kind": "bill",
              "cardId": "a", "face": ["#EA353E", "#670409"], "subtitle": "Premium",
              "brandId": "netflix", "symbol": "tv"}],
    "budget": {"total": 3000, "spent": 1834.5, "periodEnd": "2025-03-31",
               "periodStart": "2025-03-01"},
    "cards": [{"id": "a", "bankName": "Northbank", "productName": "Everyday", "last4": "8478",
               "limit": 10000, "remaining": 8320, "gradient": ["#315792", "#20375D"],
               "hasImage": true}],
    "totalLimit": 30000, "totalRemaining": 25730,
    "spending": {"month": "2025-03", "spent": 1834.5, "lastMonthSpent": 1950,
                 "topCategory": "Comida", "topCategoryAmount": 612, "daily": [100, 0.5, 42],
                 "topCategoryIcon": "fork.knife",
                 "topCategoryColor": {"light": "#EDA100", "dark": "#C98500"},
                 "earlier": [{"month": "2025-02", "daily": [1, 2]}]},
    "netWorth": {"value": 97260, "changePercent": 5.5, "assets": 121840, "liabilities": 24580,
                 "history": [{"month": "2025-02", "value": 92190},
                             {"month": "2025-03", "value": 97260}],
                 "liquid": 51240, "nonLiquid": 70600},
    "accent": {"fill": {"light": "#6B1F3A", "dark": "#B4416A"},
               "ink": {"light": "#6B1F3B", "dark": "#B4416B"},
               "heat": {"light": "#FF0000", "dark": "#00FF00"}}})");
}

inline foundation::Device device(std::int64_t now,
                                 std::string zone = "UTC",
                                 std::vector<std::string> languages = {"en-US"}) {
  return {{now, 0}, {std::move(zone)}, {"en_US"}, std::move(languages)};
}

}  // namespace testsupport
