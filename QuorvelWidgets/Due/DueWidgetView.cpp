#include "QuorvelWidgets/Due/DueWidgetView.hpp"

#include "QuorvelWidgets/Due/DueContent.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/Filling.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/WidgetStrings.hpp"

namespace quorvel {

using namespace viewkit;
using widgetruntime::WidgetFamily;

namespace {

constexpr EmptyState kNothingDue{.text = "nothingDue", .label = "allClear", .labelIsStatus = true};

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
  return scaffold.onBackdrop(words.lineLimit(2)
                                 .balanced()
                                 .padding(Insets::horizontal(10))
                                 .frame(filling(Alignment::leading)));
}

DueContent makeContent(const DueWidgetView& view,
                       const foundation::Calendar& calendar,
                       std::size_t mostDues) {
  return {view.context(),
          upcomingDues(view.snapshot->dues, view.entry.date, calendar, mostDues),
          view.urlScheme,
          calendar};
}

}  // namespace

View DueWidgetView::body() const {
  const WidgetScaffold scaffold = this->scaffold();
  const WidgetFamily family = environment.familyInForce();
  if (!snapshot) return scaffold.root(emptyView(scaffold, kNoSnapshot));
  const foundation::Calendar calendar{environment.timeZone};
  const DueContent content = makeContent(*this, calendar, kMostDues);
  if (content.upcoming.empty()) return scaffold.root(emptyView(scaffold, kNothingDue));
  const Color primary = isAccessory(family) ? Color::primary() : content.colors.text();
  if (family == WidgetFamily::systemMedium) {
    return scaffold.rootWithoutMargins(dueMedium(content).foregroundStyle(primary));
  }
  const View layout = isAccessory(family) ? dueAccessory(content) : dueSmall(content);
  return scaffold.root(scaffold.onBackdrop(layout.foregroundStyle(primary)));
}

widgetruntime::WidgetSummary DueWidgetView::summary() const {
  const WidgetScaffold scaffold = this->scaffold();
  if (const auto summary = scaffold.summaryWithoutData()) return *summary;
  const foundation::Calendar calendar{environment.timeZone};
  const DueContent content = makeContent(*this, calendar, 1);
  if (content.upcoming.empty()) return scaffold.messageSummary(kNothingDue);
  return {.text = inlineText(content)};
}

}  // namespace quorvel
