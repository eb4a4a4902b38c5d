#include "QuorvelWidgets/SafeToSpend/SafeToSpendWidget.hpp"

#include "QuorvelWidgets/SafeToSpend/SafeToSpendProvider.hpp"
#include "QuorvelWidgets/SafeToSpend/SafeToSpendView.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/GalleryName.hpp"

namespace quorvel {

using widgetruntime::WidgetFamily;

widgetruntime::Widget SafeToSpendWidget::configuration(const SnapshotStore& store,
                                                       std::string_view lang) {
  return widgetruntime::makeIntentConfiguration(
      {.kind = std::string{kKind},
       .displayName = galleryName("Safe to Spend", "safeToSpend", lang),
       .description = "How much you can spend per day to stay on budget.",
       .families = {WidgetFamily::systemSmall, WidgetFamily::systemMedium}},
      SafeToSpendIntent::description(),
      SafeToSpendProvider{store},
      contentOf<SafeToSpendView>(store));
}

}  // namespace quorvel
