// The safe-to-spend widget in its states, for tests of trees and pictures.
#pragma once

#include <optional>
#include <string>
#include <utility>

#include "Foundation/Instant.hpp"
#include "QuorvelWidgets/SafeToSpend/SafeToSpendView.hpp"
#include "Tests/Support/Snapshots.hpp"

namespace testsupport {

/// 14 March 2025, 09:30 in UTC, the zone of every environment here.
inline foundation::Instant marchFourteenth() {
  return *foundation::parseInternetDateTime("2025-03-14T09:30:00Z");
}

inline quorvel::WidgetSnapshot::Budget budgetOf(
    double total,
    double spent,
    std::string periodEnd,
    std::optional<std::string> periodStart = std::nullopt) {
  return {total, spent, std::move(periodEnd), std::move(periodStart)};
}

inline quorvel::SafeToSpendEntry entryWith(
    std::optional<quorvel::WidgetSnapshot> snapshot,
    quorvel::SafeToSpendStyle style = quorvel::SafeToSpendStyle::accent) {
  return {marchFourteenth(), std::move(snapshot), style};
}

inline quorvel::WidgetSnapshot snapshotWith(quorvel::WidgetSnapshot::Budget budget,
                                            std::string lang = "en") {
  quorvel::WidgetSnapshot snapshot = emptySnapshot(std::move(lang));
  snapshot.budget = std::move(budget);
  return snapshot;
}

inline viewkit::View safeToSpendView(const quorvel::SafeToSpendEntry& entry,
                                     const widgetruntime::Environment& environment = {}) {
  return quorvel::SafeToSpendView{
      {.entry = entry, .environment = environment, .urlScheme = "quorvel-widget"}};
}

}  // namespace testsupport
