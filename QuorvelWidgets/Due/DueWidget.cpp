#include "QuorvelWidgets/Due/DueWidget.hpp"

#include "QuorvelWidgets/Due/DueWidgetView.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/SnapshotProvider.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/GalleryName.hpp"

namespace quorvel {

using widgetruntime::WidgetFamily;

widgetruntime::Widget DueWidget::configuration(const SnapshotStore& store, std::string_view lang) {
  return widgetruntime::makeStaticConfiguration(
      {.kind = std::string{kKind},
       .displayName = galleryName("Next Due", "nextDue", lang),
       .description = "Card bills, bills and loans due next.",
       .families = {WidgetFamily::systemSmall, WidgetFamily::systemMedium}},
      SnapshotProvider{store},
      contentOf<DueWidgetView>(store));
}

}  // namespace quorvel
