#include "QuorvelWidgets/Spending/SpendingContent.hpp"
#include "QuorvelWidgets/WidgetSupport/Amount.hpp"

namespace quorvel {

using namespace viewkit;

View spendingSmall(const SpendingContent& content) {
  // The spacer shares a stack with the bars, so that it adds no gap of its own when it is empty.
  const View chart = VStack{
      {.spacing = 0},
      Spacer{0},
      content.bars().frame(FixedFrame{.height = 30}).padding({.top = 6}),
  };
  return VStack{
      {.alignment = HorizontalAlignment::leading, .spacing = 6},
      content.header(true),
      Amount{.value = content.spending.spent,
             .snapshot = content.snapshot,
             .size = 21,
             .weight = FontWeight::semibold}
          .padding({.top = 9}),
      content.comparisonLine(),
      chart,
  };
}

}  // namespace quorvel
