#include "QuorvelWidgets/Spending/SpendingWidgetView.hpp"

#include "Foundation/DayString.hpp"
#include "QuorvelWidgets/Spending/SpendingContent.hpp"
#include "QuorvelWidgets/Spending/SpendingFigures.hpp"
#include "QuorvelWidgets/WidgetSupport/Colors/Palette.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/AccessoryFigure.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/WidgetLink.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/WidgetScaffold.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetEnvironment.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/AmountText.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/ChangeText.hpp"

namespace quorvel {

using namespace viewkit;
using widgetruntime::WidgetFamily;

namespace {

constexpr EmptyState kNoSnapshot{kSpendingSymbol, "spentThisMonth", "signIn", "openQuorvel"};
constexpr EmptyState kNoSpending{kSpendingSymbol, "spentThisMonth", "noSpending", "newMonth", true};

SpendingContent makeContent(const SpendingWidgetView& view,
                            const WidgetSnapshot& snapshot,
                            const WidgetSnapshot::Spending& spending,
                            const foundation::Calendar& calendar) {
  const foundation::DateComponents today = calendar.components(view.entry.date);
  const auto first = calendar.date(today.year, today.month, 1);
  return {.snapshot = withEffectivePrivacy(snapshot, view.environment),
          .spending = spending,
          .accent = ModeColors{view.environment.widgetRenderingMode}.accent(snapshot.accent),
          .environment = view.environment,
          .today = today,
          .weekdayOfFirst = first ? calendar.components(*first).weekday : 1,
          .daysInMonth = calendar.daysInMonth(today.year, today.month)};
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
    return accessoryFigure(kSpendingSymbol, content.spending.spent, content.snapshot, family);
  }
  if (family == WidgetFamily::systemLarge) return spendingLarge(content);
  if (family == WidgetFamily::systemMedium) return spendingMedium(content);
  return spendingSmall(content);
}

}  // namespace

View SpendingWidgetView::body() const {
  const WidgetScaffold scaffold{entry.snapshot, environment, widgetLink(urlScheme, "spending")};
  if (!entry.snapshot) return scaffold.root(scaffold.message(kNoSnapshot));
  const foundation::Calendar calendar{environment.locale, environment.timeZone};
  const WidgetSnapshot::Spending* spending = spendingOfMonth(*entry.snapshot, entry.date, calendar);
  if (spending == nullptr) return scaffold.root(scaffold.message(kNoSpending));
  const SpendingContent content = makeContent(*this, *entry.snapshot, *spending, calendar);
  return scaffold.root(
      layout(content, environment.familyInForce()).foregroundStyle(content.colors.text()));
}

widgetruntime::WidgetSummary SpendingWidgetView::summary() const {
  const WidgetScaffold scaffold{entry.snapshot, environment, {}};
  if (environment.redactionReasons.placeholder) return scaffold.titleSummary(kNoSnapshot);
  if (!entry.snapshot) return scaffold.messageSummary(kNoSnapshot);
  const foundation::Calendar calendar{environment.locale, environment.timeZone};
  const WidgetSnapshot::Spending* spending = spendingOfMonth(*entry.snapshot, entry.date, calendar);
  if (spending == nullptr) return scaffold.messageSummary(kNoSpending);
  const WidgetSnapshot snapshot = withEffectivePrivacy(*entry.snapshot, environment);
  const auto change = snapshot.isHidden ? std::nullopt : shownChange(*spending);
  return {.text = amountWithChange(amountText(spending->spent, snapshot), change, snapshot.lang)};
}

}  // namespace quorvel
