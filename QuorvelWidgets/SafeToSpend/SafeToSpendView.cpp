#include "QuorvelWidgets/SafeToSpend/SafeToSpendView.hpp"

#include <optional>

#include "Foundation/Calendar.hpp"
#include "QuorvelWidgets/SafeToSpend/SafeToSpendLayouts.hpp"

namespace quorvel {

using namespace viewkit;
using widgetruntime::WidgetFamily;

namespace {

constexpr EmptyState kNoBudget{"noBudget", "setBudget"};

std::optional<SafeToSpendContent> makeContent(const SafeToSpendView& view) {
  const auto& budget = view.snapshot->budget;
  if (!budget) return std::nullopt;
  const foundation::Calendar calendar{view.environment.timeZone};
  const auto metrics = makeSafeToSpendMetrics(
      budget->total, budget->spent, budget->periodEnd, view.entry.date, calendar);
  if (!metrics) return std::nullopt;
  return SafeToSpendContent{{view.context()},
                            *budget,
                            *metrics,
                            budgetPace(*budget, view.entry.date, calendar),
                            view.showsBackground};
}

/// The accent tile is for the small family; wider ones have room for everything.
bool isAccentTile(const SafeToSpendView& view) {
  return view.environment.familyInForce() == WidgetFamily::systemSmall &&
         view.entry.style == SafeToSpendStyle::accent;
}

View layout(const SafeToSpendView& view, const SafeToSpendContent& content) {
  const WidgetFamily family = view.environment.familyInForce();
  if (isAccessory(family)) return safeToSpendAccessory(content);
  if (family != WidgetFamily::systemSmall) return safeToSpendMedium(content);
  return isAccentTile(view) ? safeToSpendAccentTile(content) : safeToSpendRing(content);
}

widgetruntime::WidgetSummary::State stateOf(PaceVerdict verdict) {
  using State = widgetruntime::WidgetSummary::State;
  switch (verdict) {
    case PaceVerdict::warning:
      return State::warning;
    case PaceVerdict::critical:
      return State::critical;
    case PaceVerdict::good:
      break;
  }
  return State::good;
}

}  // namespace

View SafeToSpendView::body() const {
  const WidgetScaffold scaffold = this->scaffold();
  if (!snapshot) return scaffold.root(scaffold.message(kNoSnapshot));
  const auto content = makeContent(*this);
  if (!content) return scaffold.root(scaffold.message(kNoBudget));

  WidgetChrome chrome = scaffold.chrome(scaffold.onBackdrop(layout(*this, *content)));
  if (isAccentTile(*this)) chrome.background = Rectangle().fill(content->accent.fill);
  return chrome;
}

widgetruntime::WidgetSummary SafeToSpendView::summary() const {
  const WidgetScaffold scaffold = this->scaffold();
  if (const auto summary = scaffold.summaryWithoutData()) return *summary;
  const auto content = makeContent(*this);
  if (!content) return scaffold.messageSummary(kNoBudget);
  return {.text = summaryText(*content), .state = stateOf(content->pace.verdict)};
}

}  // namespace quorvel
