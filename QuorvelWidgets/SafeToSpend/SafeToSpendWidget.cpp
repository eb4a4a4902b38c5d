#include "QuorvelWidgets/SafeToSpend/SafeToSpendWidget.hpp"

#include "QuorvelWidgets/SafeToSpend/SafeToSpendProvider.hpp"
#include "QuorvelWidgets/SafeToSpend/SafeToSpendView.hpp"

namespace quorvel {

using widgetruntime::Environment;
using widgetruntime::WidgetContent;
using widgetruntime::WidgetFamily;

widgetruntime::Widget SafeToSpendWidget::configuration(const SnapshotStore& store) {
  return widgetruntime::makeIntentConfiguration(
      {.kind = std::string{kKind},
       .displayName = "Safe to Spend",
       .description = "How much you can spend per day to stay on budget.",
       .families = {WidgetFamily::systemSmall, WidgetFamily::systemMedium}},
      SafeToSpendIntent::description(),
      SafeToSpendProvider{store},
      [store](const SafeToSpendEntry& entry, const Environment& environment) {
        const SafeToSpendView view{
            .entry = entry, .environment = environment, .urlScheme = store.urlScheme()};
        return WidgetContent{view.body(), view.summary()};
      });
}

}  // namespace quorvel
