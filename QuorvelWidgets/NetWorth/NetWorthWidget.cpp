#include "QuorvelWidgets/NetWorth/NetWorthWidget.hpp"

#include "QuorvelWidgets/NetWorth/NetWorthWidgetView.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/SnapshotProvider.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/GalleryName.hpp"

namespace quorvel {

using widgetruntime::WidgetFamily;

widgetruntime::Widget NetWorthWidget::configuration(const SnapshotStore& store,
                                                    std::string_view lang) {
  return widgetruntime::makeStaticConfiguration(
      {.kind = std::string{kKind},
       .displayName = galleryName("Net Worth", "netWorth", lang),
       .description = "Your net worth and how it's trending.",
       .families = {WidgetFamily::systemSmall,
                    WidgetFamily::systemMedium,
                    WidgetFamily::systemLarge}},
      SnapshotProvider{store},
      contentOf<NetWorthWidgetView>(store));
}

}  // namespace quorvel
