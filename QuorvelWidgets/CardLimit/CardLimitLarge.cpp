#include "QuorvelWidgets/CardLimit/CardLimitContent.hpp"
#include "QuorvelWidgets/CardLimit/CardStack.hpp"
#include "QuorvelWidgets/WidgetSupport/Colors/Palette.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/Amount.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/Filling.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/WidgetScaffold.hpp"

namespace quorvel {

using namespace viewkit;

namespace {

View hero(const CardLimitContent& content) {
  const double used = content.totalUsed();
  return HStack{
      {.spacing = 8},
      Amount{.value = content.snapshot.totalRemaining, .snapshot = content.snapshot, .size = 30},
      when(!content.isHidden(),
           [&] {
             return content.usedText(used, 12)
                 .foregroundStyle(content.usageColor(used))
                 .privacySensitive(PrivacyTreatment::covered);
           }),
  };
}

View row(const CardLimitContent& content, TextKey key, double amount) {
  return HStack{
      {},
      content.caption(content.text(key), 13).foregroundStyle(content.colors.caption()),
      Spacer{8},
      Amount{
          .value = amount, .snapshot = content.snapshot, .size = 13, .weight = FontWeight::semibold}
          .layoutPriority(1),
  }
      .accessibility({.children = Accessibility::Children::combine});
}

}  // namespace

View cardLimitLarge(const CardLimitContent& content) {
  const WidgetSnapshot& snapshot = content.snapshot;
  const View hairline =
      Rectangle().fill(content.colors.ground(palette::surfaceAlt)).frame(FixedFrame{.height = 1});
  const CardStack pile{.cards = content.cards,
                       .snapshot = snapshot,
                       .width = std::nullopt,
                       .height = 120,
                       .step = 36,
                       .pillSize = 12,
                       .corner = 12,
                       .renderingMode = content.environment.widgetRenderingMode};
  return VStack{
      {.alignment = HorizontalAlignment::leading, .spacing = 0},
      content.header(HeaderSize::regular),
      hero(content).padding({.top = 8}),
      hairline.padding({.top = 12}),
      row(content, "totalLimit", snapshot.totalLimit).padding({.top = 10}),
      row(content, "usedLabel", snapshot.totalLimit - snapshot.totalRemaining).padding({.top = 5}),
      pile.padding({.top = 14}).frame(filling(Alignment::top)),
  };
}

}  // namespace quorvel
