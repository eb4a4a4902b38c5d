#include "QuorvelWidgets/Spending/SpendingWidget.hpp"

#include "QuorvelWidgets/Spending/SpendingWidgetView.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/SnapshotProvider.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/GalleryName.hpp"

namespace quorvel {

using widgetruntime::WidgetFamily;

widgetruntime::Widget SpendingWidget::configuration(const SnapshotStore& store,
                                                    std::string_view lang) {
  return widgetruntime::makeStaticConfiguration(
      {.kind = std::string{kKind},
       .displayName = galleryName("Spending This Month", "spentThisMonth", lang),
       .description = "This month's spending vs last month.",
       .families = {WidgetFamily::systemSmall,
                    WidgetFamily::systemMedium,
                    WidgetFamily::systemLarge}},
      SnapshotProvider{store},
      contentOf<SpendingWidgetView>(store));
}

}  // namespace quorvel
