#include <utility>

#include "QuorvelWidgets/Due/DueContent.hpp"
#include "QuorvelWidgets/Due/DueTile.hpp"
#include "QuorvelWidgets/WidgetSupport/FittingWidth.hpp"

namespace quorvel {

using namespace viewkit;

View dueSmall(const DueContent& content) {
  const UpcomingDue& next = content.upcoming.front();
  const auto headRow = [&](View tile) {
    return HStack{
        {.alignment = VerticalAlignment::top, .spacing = 0},
        std::move(tile),
        Spacer{4},
        content.relativePill(next, 11),
    };
  };
  const DueTile tile{
      .due = *next.due, .size = 30, .renderingMode = content.environment.widgetRenderingMode};
  const View head = fittingWidth(headRow(tile), headRow(View{}));
  const View subtitle = content.subtitle(*next.due);
  const auto column = [&](int nameLines, const View& below) {
    return VStack{
        {.alignment = HorizontalAlignment::leading, .spacing = 0},
        head,
        Spacer{4},
        content.name(*next.due, 13).lineLimit(nameLines),
        below.padding({.top = 1}),
        content.amount(*next.due, 22).padding({.top = 6}),
        content.dueDate(*next.due, 11).opacity(0.85).padding({.top = 1}),
    };
  };
  return Fitting{column(1, subtitle), column(2, subtitle), column(2, View{}), column(1, View{})}
      .accessibility({.children = Accessibility::Children::combine});
}

}  // namespace quorvel
