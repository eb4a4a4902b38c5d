#include "QuorvelWidgets/NetWorth/NetWorthContent.hpp"
#include "QuorvelWidgets/NetWorth/NetWorthPieces.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/Amount.hpp"

namespace quorvel {

using namespace viewkit;

View netWorthSmall(const NetWorthContent& content) {
  return VStack{
      {.alignment = HorizontalAlignment::leading, .spacing = 0},
      content.header(HeaderSize::compact),
      Amount{.value = content.netWorth.value, .snapshot = content.snapshot, .size = 21}.padding(
          {.top = 9}),
      changeRow(content).padding({.top = 6}),
      Spacer{0},
      content.chart(ChartGrid::none).frame(FlexibleFrame{.maxHeight = 54}),
  };
}

}  // namespace quorvel
