#include "QuorvelWidgets/Spending/SpendingContent.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/Amount.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/FittingWidth.hpp"

namespace quorvel {

using namespace viewkit;

namespace {

View comparison(const SpendingContent& content) {
  View line = content.comparisonLine();
  if (line.isEmpty() || content.isHidden()) return line;
  return fittingWidth(line, content.comparisonFigure());
}

}  // namespace

View spendingSmall(const SpendingContent& content) {
  constexpr double kLeastBars = 16;
  // The spacer shares a stack with the bars, so that it adds no gap of its own when it is empty.
  const View chart = VStack{
      {.spacing = 0},
      Spacer{0},
      content.bars()
          .frame(FlexibleFrame{.minHeight = kLeastBars, .maxHeight = 30})
          .padding({.top = 6})
          .layoutPriority(1),
  };
  return VStack{
      {.alignment = HorizontalAlignment::leading, .spacing = 6},
      content.header(HeaderSize::compact),
      Amount{.value = content.spending.spent,
             .snapshot = content.snapshot,
             .size = 21,
             .weight = FontWeight::semibold}
          .padding({.top = 9}),
      comparison(content),
      chart,
  };
}

}  // namespace quorvel
