#include "QuorvelWidgets/Spending/SpendingWidgetView.hpp"

#include "Foundation/DayString.hpp"
#include "QuorvelWidgets/Spending/SpendingContent.hpp"
#include "QuorvelWidgets/Spending/SpendingFigures.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/AccessoryFigure.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/AmountText.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/ChangeText.hpp"

namespace quorvel {

using namespace viewkit;
using widgetruntime::WidgetFamily;

namespace {

constexpr EmptyState kNoSpending{.text = "noSpending", .label = "newMonth", .labelIsStatus = true};

SpendingContent makeContent(const SpendingWidgetView& view,
                            const WidgetSnapshot::Spending& spending,
                            const foundation::Calendar& calendar) {
  const foundation::DateComponents today = calendar.components(view.entry.date);
  const auto first = calendar.date(today.year, today.month, 1);
  return {{view.context()},
          spending,
          today,
          first ? calendar.components(*first).weekday : 1,
          calendar.daysInMonth(today.year, today.month)};
}

/// The record of the month of that date; null when there is none or it is another month's.
const WidgetSnapshot::Spending* spendingOfMonth(const WidgetSnapshot& snapshot,
                                                foundation::Instant date,
                                                const foundation::Calendar& calendar) {
  const auto& spending = snapshot.spending;
  const bool isCurrent = spending && spending->month == foundation::monthString(date, calendar);
  return isCurrent ? &*spending : nullptr;
}

View layout(const SpendingContent& content, WidgetFamily family) {
  if (isAccessory(family)) {
    return accessoryFigure(content.title.symbol, content.spending.spent, content.snapshot, family);
  }
  if (family == WidgetFamily::systemLarge) return spendingLarge(content);
  if (family == WidgetFamily::systemMedium) return spendingMedium(content);
  return spendingSmall(content);
}

}  // namespace

View SpendingWidgetView::body() const {
  const WidgetScaffold scaffold = this->scaffold();
  if (!snapshot) return scaffold.root(scaffold.message(kNoSnapshot));
  const foundation::Calendar calendar{environment.timeZone};
  const WidgetSnapshot::Spending* spending = spendingOfMonth(*snapshot, entry.date, calendar);
  if (spending == nullptr) return scaffold.root(scaffold.message(kNoSpending));
  const SpendingContent content = makeContent(*this, *spending, calendar);
  const View shown = layout(content, environment.familyInForce());
  return scaffold.root(scaffold.onBackdrop(shown.foregroundStyle(content.colors.text())));
}

widgetruntime::WidgetSummary SpendingWidgetView::summary() const {
  const WidgetScaffold scaffold = this->scaffold();
  if (const auto summary = scaffold.summaryWithoutData()) return *summary;
  const foundation::Calendar calendar{environment.timeZone};
  const WidgetSnapshot::Spending* spending = spendingOfMonth(*snapshot, entry.date, calendar);
  if (spending == nullptr) return scaffold.messageSummary(kNoSpending);
  const auto change = snapshot->isHidden ? std::nullopt : shownChange(*spending);
  return {.text = amountWithChange(amountText(spending->spent, *snapshot), change, snapshot->lang)};
}

}  // namespace quorvel
