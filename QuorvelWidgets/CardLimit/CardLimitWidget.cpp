#include "QuorvelWidgets/CardLimit/CardLimitWidget.hpp"

#include "QuorvelWidgets/CardLimit/CardLimitView.hpp"
#include "QuorvelWidgets/CardLimit/CardProvider.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/GalleryName.hpp"

namespace quorvel {

using widgetruntime::WidgetFamily;

widgetruntime::Widget CardLimitWidget::configuration(const SnapshotStore& store,
                                                     std::string_view lang) {
  return widgetruntime::makeIntentConfiguration(
      {.kind = std::string{kKind},
       .displayName = galleryName("Remaining Limit", "remainingLimit", lang),
       .description = "How much limit is left on your cards.",
       .families = {WidgetFamily::systemSmall,
                    WidgetFamily::systemMedium,
                    WidgetFamily::systemLarge}},
      SelectCardIntent::description(store),
      CardProvider{store},
      contentOf<CardLimitView>(store));
}

}  // namespace quorvel
