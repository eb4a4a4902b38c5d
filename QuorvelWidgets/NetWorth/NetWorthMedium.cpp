#include "QuorvelWidgets/NetWorth/NetWorthContent.hpp"
#include "QuorvelWidgets/NetWorth/NetWorthPieces.hpp"
#include "QuorvelWidgets/WidgetSupport/Colors/Palette.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/Amount.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/FittingWidth.hpp"

namespace quorvel {

using namespace viewkit;

namespace {

View row(const NetWorthContent& content, TextKey key, double amount, const Color& color) {
  return HStack{
      {.spacing = 6},
      Circle()
          .fill(content.colors.mark(color))
          .frame(FixedFrame{.width = 7, .height = 7})
          .accessibilityHidden(),
      content.caption(content.text(key), 11.5, kLeastCaption)
          .foregroundStyle(content.colors.caption()),
      Spacer{4},
      Amount{.value = amount,
             .snapshot = content.snapshot,
             .size = 11.5,
             .weight = FontWeight::semibold}
          .layoutPriority(1),
  }
      .accessibility({.children = Accessibility::Children::combine});
}

}  // namespace

View netWorthMedium(const NetWorthContent& content) {
  const View rows = VStack{
      {.alignment = HorizontalAlignment::leading, .spacing = 6},
      row(content, "assets", content.netWorth.assets, palette::assetGreen),
      row(content, "liabilities", content.netWorth.liabilities, palette::liabilityPink),
  };
  const View figures = VStack{
      {.alignment = HorizontalAlignment::leading, .spacing = 0},
      content.header(HeaderSize::regular),
      Amount{.value = content.netWorth.value, .snapshot = content.snapshot, .size = 24}.padding(
          {.top = 8}),
      changeRow(content).padding({.top = 6}),
      Spacer{0},
      whereItFits(rows.sharedScale().padding({.top = 3})),
  };
  return HStack{
      {.alignment = VerticalAlignment::top, .spacing = 14},
      figures.frame(FixedFrame{.width = 150, .alignment = Alignment::topLeading}),
      content.chart(ChartGrid::shown),
  };
}

}  // namespace quorvel
