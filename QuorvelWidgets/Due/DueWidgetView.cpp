#include "QuorvelWidgets/Due/DueWidgetView.hpp"

#include "QuorvelWidgets/Due/DueContent.hpp"
#include "QuorvelWidgets/WidgetSupport/Colors/Palette.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/WidgetLink.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/WidgetScaffold.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetEnvironment.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/WidgetStrings.hpp"

namespace quorvel {

using namespace viewkit;
using widgetruntime::WidgetFamily;

namespace {

constexpr EmptyState kNoSnapshot{kDueSymbol, "nextDue", "signIn", "openQuorvel"};
constexpr EmptyState kNothingDue{kDueSymbol, "nextDue", "nothingDue", "allClear", true};

// The flat accessories have room for the message's words alone.
View emptyView(const WidgetScaffold& scaffold, const EmptyState& state) {
  const WidgetFamily family = scaffold.environment.familyInForce();
  const bool isFlat =
      family == WidgetFamily::accessoryRectangular || family == WidgetFamily::accessoryInline;
  if (!isFlat) return scaffold.message(state);
  const Text words = Text{WidgetStrings::text(state.text, scaffold.lang())}
                         .font(12)
                         .minimumScaleFactor(0.8)
                         .language(scaffold.lang());
  if (family == WidgetFamily::accessoryInline) return words.lineLimit(1);
  return words.lineLimit(2)
      .padding(Insets::horizontal(10))
      .frame(FlexibleFrame{
          .maxWidth = kInfinity, .maxHeight = kInfinity, .alignment = Alignment::leading});
}

DueContent makeContent(const DueWidgetView& view,
                       const WidgetSnapshot& snapshot,
                       const foundation::Calendar& calendar,
                       std::size_t mostDues) {
  return {.snapshot = withEffectivePrivacy(snapshot, view.environment),
          .upcoming = upcomingDues(snapshot.dues, view.entry.date, calendar, mostDues),
          .urlScheme = view.urlScheme,
          .environment = view.environment,
          .calendar = calendar};
}

}  // namespace

View DueWidgetView::body() const {
  const WidgetScaffold scaffold{entry.snapshot, environment, widgetLink(urlScheme, "bills")};
  const WidgetFamily family = environment.familyInForce();
  if (!entry.snapshot) return scaffold.root(emptyView(scaffold, kNoSnapshot));
  const foundation::Calendar calendar{environment.locale, environment.timeZone};
  const DueContent content = makeContent(*this, *entry.snapshot, calendar, kMostDues);
  if (content.upcoming.empty()) return scaffold.root(emptyView(scaffold, kNothingDue));
  const Color primary = isAccessory(family) ? Color::primary() : content.colors.text();
  if (family == WidgetFamily::systemMedium) {
    return scaffold.root(dueMedium(content).foregroundStyle(primary), false);
  }
  const View layout = isAccessory(family) ? dueAccessory(content) : dueSmall(content);
  return scaffold.root(layout.foregroundStyle(primary));
}

widgetruntime::WidgetSummary DueWidgetView::summary() const {
  const WidgetScaffold scaffold{entry.snapshot, environment, {}};
  if (environment.redactionReasons.placeholder) return scaffold.titleSummary(kNoSnapshot);
  if (!entry.snapshot) return scaffold.messageSummary(kNoSnapshot);
  const foundation::Calendar calendar{environment.locale, environment.timeZone};
  const DueContent content = makeContent(*this, *entry.snapshot, calendar, 1);
  if (content.upcoming.empty()) return scaffold.messageSummary(kNothingDue);
  return {.text = inlineText(content)};
}

}  // namespace quorvel
