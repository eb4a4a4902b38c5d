#include "QuorvelWidgets/SnapshotDiagnosis.hpp"

#include <fmt/format.h>

#include <expected>
#include <limits>
#include <new>
#include <stdexcept>
#include <string>
#include <utility>

#include "Foundation/DayString.hpp"
#include "Foundation/FileManager.hpp"
#include "Foundation/JsonProblemCount.hpp"
#include "QuorvelWidgets/CardLimit/CardLimitWidget.hpp"
#include "QuorvelWidgets/Due/DueWidget.hpp"
#include "QuorvelWidgets/Due/UpcomingDues.hpp"
#include "QuorvelWidgets/NetWorth/NetWorthWidget.hpp"
#include "QuorvelWidgets/SafeToSpend/SafeToSpendMetrics.hpp"
#include "QuorvelWidgets/SafeToSpend/SafeToSpendWidget.hpp"
#include "QuorvelWidgets/Spending/SpendingWidget.hpp"

namespace quorvel {

using foundation::Calendar;
using foundation::Instant;
using foundation::JsonFailure;
using widgetruntime::DiagnoseAnswer;
using widgetruntime::DiagnoseParameters;
using widgetruntime::WidgetOutlook;

namespace {

std::string counted(std::size_t count, std::string_view one, std::string_view many) {
  return fmt::format("{} {}", count, count == 1 ? one : many);
}

std::string cards(const WidgetSnapshot& snapshot, Instant, const Calendar&) {
  if (snapshot.cards.empty()) return "A request to add a card: the document has none.";
  return fmt::format("The remaining limit of {}.", counted(snapshot.cards.size(), "card", "cards"));
}

std::string dues(const WidgetSnapshot& snapshot, Instant now, const Calendar& calendar) {
  constexpr auto kAll = std::numeric_limits<std::size_t>::max();
  const std::size_t coming = upcomingDues(snapshot.dues, now, calendar, kAll).size();
  if (coming == 0) return "That nothing is due soon: no due lies ahead.";
  return fmt::format("What falls due next, out of {}.", counted(coming, "payment", "payments"));
}

std::string netWorth(const WidgetSnapshot& snapshot, Instant, const Calendar&) {
  if (!snapshot.netWorth) return "A request to add assets: the document has no net worth.";
  return fmt::format("Net worth with a trend of {}.",
                     counted(snapshot.netWorth->history.size(), "month", "months"));
}

std::string budget(const WidgetSnapshot& snapshot, Instant now, const Calendar& calendar) {
  if (!snapshot.budget) return "A request to set a budget: the document has none.";
  const auto metrics = makeSafeToSpendMetrics(
      snapshot.budget->total, snapshot.budget->spent, snapshot.budget->periodEnd, now, calendar);
  if (!metrics) {
    return "A request to set a budget: the period is over or its end cannot be read.";
  }
  if (metrics->daysLeft == 0) return "What is left of the budget on its last day.";
  return fmt::format("What may be spent a day, for {}.",
                     counted(static_cast<std::size_t>(metrics->daysLeft), "day", "days"));
}

std::string spending(const WidgetSnapshot& snapshot, Instant now, const Calendar& calendar) {
  if (!snapshot.spending) return "A fresh month: the document has no spending.";
  if (snapshot.spending->month != foundation::monthString(now, calendar)) {
    return "A fresh month: the document's spending is of another month.";
  }
  return "This month's spending against last month's.";
}

struct Outlook {
  std::string_view kind;
  std::string (*shows)(const WidgetSnapshot&, Instant, const Calendar&);
};
constexpr Outlook kOutlooks[] = {
    {CardLimitWidget::kKind, cards},
    {DueWidget::kKind, dues},
    {NetWorthWidget::kKind, netWorth},
    {SafeToSpendWidget::kKind, budget},
    {SpendingWidget::kKind, spending},
};

std::unexpected<JsonFailure> unreadable(std::string_view found) {
  return std::unexpected(
      JsonFailure{{{.expected = "a readable document", .found = std::string{found}}}});
}

using Decoded = std::expected<WidgetSnapshot, JsonFailure>;

Decoded decode(std::string_view document, DiagnoseAnswer& answer) {
  auto snapshot = decodeWidgetSnapshot(document);
  if (!snapshot) {
    answer.leftOut =
        foundation::countJsonProblems<WidgetSnapshot>(document) - snapshot.error().problems.size();
  }
  return snapshot;
}

Decoded readSnapshot(const DiagnoseParameters& parameters, DiagnoseAnswer& answer) {
  if (parameters.text) return decode(*parameters.text, answer);
  if (parameters.path.value_or("").empty()) return unreadable("no container");
  const auto bytes = foundation::readFile(*parameters.path);
  if (!bytes) return unreadable(describe(bytes.error()));
  return decode(*bytes, answer);
}

DiagnoseAnswer diagnose(const DiagnoseParameters& parameters, const Calendar& calendar) {
  DiagnoseAnswer answer;
  const auto snapshot = readSnapshot(parameters, answer);
  answer.accepted = snapshot.has_value();
  if (!snapshot) answer.problems = snapshot.error().problems;
  answer.widgets = widgetOutlooks(snapshot ? &*snapshot : nullptr, parameters.device.now, calendar);
  return answer;
}

}  // namespace

std::vector<WidgetOutlook> widgetOutlooks(const WidgetSnapshot* snapshot,
                                          Instant now,
                                          const Calendar& calendar) {
  std::vector<WidgetOutlook> outlooks;
  for (const Outlook& outlook : kOutlooks) {
    std::string shows = "A request to open Quorvel: there is no usable document.";
    if (snapshot) shows = outlook.shows(*snapshot, now, calendar);
    if (snapshot && snapshot->isHidden) shows += " Amounts are hidden.";
    outlooks.push_back({std::string{outlook.kind}, std::move(shows)});
  }
  return outlooks;
}

DiagnoseAnswer diagnoseSnapshot(const DiagnoseParameters& parameters) {
  const Calendar calendar{parameters.device.timeZone};
  try {
    return diagnose(parameters, calendar);
  } catch (const std::bad_alloc&) {
  } catch (const std::length_error&) {
  }
  return {.problems = unreadable("more than memory holds").error().problems,
          .widgets = widgetOutlooks(nullptr, parameters.device.now, calendar)};
}

}  // namespace quorvel
